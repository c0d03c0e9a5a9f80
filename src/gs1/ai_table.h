/*
 * The GS1 Application Identifiers: code, data title, and the components of the value. The
 * library's catalogue is made of these rows by the compiler; the titles stay out of it.
 *
 * Source: GS1 General Specifications, section 3.2 (data titles); EPC Tag Data Standard, table F
 * (the bit form of each AI).
 */
#ifndef ROSETAG_GS1_AI_TABLE_H
#define ROSETAG_GS1_AI_TABLE_H

#include "gs1/ai_shape.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

namespace rosetag {

struct AiTableRow {
    std::string_view codes; // one, or the first and the last of a range
    std::string_view title;
    AiComponent components[AI_MAX_COMPONENTS]; // the second is empty if there is only one
};

namespace ai_shapes {

inline constexpr AiTableRow rows[] = {
    // clang-format off
    // codes      title                        components
    {"00",        "SSCC",                      {checked(digits(18))}},
    {"01",        "GTIN",                      {checked(digits(14))}},
    {"02",        "CONTENT",                   {checked(digits(14))}},
    {"10",        "BATCH/LOT",                 {text(20)}},
    {"11",        "PROD DATE",                 {date}},
    {"12",        "DUE DATE",                  {date}},
    {"13",        "PACK DATE",                 {date}},
    {"15",        "BEST BEFORE",               {date}},
    {"16",        "SELL BY",                   {date}},
    {"17",        "USE BY",                    {date}},
    {"20",        "VARIANT",                   {numeric(2)}},
    {"21",        "SERIAL",                    {text(20)}},
    {"22",        "CPV",                       {text(20)}},
    {"235",       "TPX",                       {text(28)}},
    {"240",       "ADDITIONAL ID",             {text(30)}},
    {"241",       "CUST. PART NO.",            {text(30)}},
    {"242",       "MTO VARIANT",               {varNumeric(6)}},
    {"243",       "PCN",                       {text(20)}},
    {"250",       "SECONDARY SERIAL",          {text(30)}},
    {"251",       "REF. TO SOURCE",            {text(30)}},
    {"253",       "GDTI",                      {checked(digits(13)), text(17)}},
    {"254",       "GLN EXTENSION COMPONENT",   {text(20)}},
    {"255",       "GCN",                       {checked(digits(13)), varNumeric(12)}},
    {"30",        "VAR. COUNT",                {varNumeric(8)}},
    {"3100-3105", "NET WEIGHT (kg)",           {numeric(6)}},
    {"3110-3115", "LENGTH (m)",                {numeric(6)}},
    {"3120-3125", "WIDTH (m)",                 {numeric(6)}},
    {"3130-3135", "HEIGHT (m)",                {numeric(6)}},
    {"3140-3145", "AREA (m²)",                 {numeric(6)}},
    {"3150-3155", "NET VOLUME (l)",            {numeric(6)}},
    {"3160-3165", "NET VOLUME (m³)",           {numeric(6)}},
    {"3200-3205", "NET WEIGHT (lb)",           {numeric(6)}},
    {"3210-3215", "LENGTH (in)",               {numeric(6)}},
    {"3220-3225", "LENGTH (ft)",               {numeric(6)}},
    {"3230-3235", "LENGTH (yd)",               {numeric(6)}},
    {"3240-3245", "WIDTH (in)",                {numeric(6)}},
    {"3250-3255", "WIDTH (ft)",                {numeric(6)}},
    {"3260-3265", "WIDTH (yd)",                {numeric(6)}},
    {"3270-3275", "HEIGHT (in)",               {numeric(6)}},
    {"3280-3285", "HEIGHT (ft)",               {numeric(6)}},
    {"3290-3295", "HEIGHT (yd)",               {numeric(6)}},
    {"3300-3305", "GROSS WEIGHT (kg)",         {numeric(6)}},
    {"3310-3315", "LENGTH (m), log",           {numeric(6)}},
    {"3320-3325", "WIDTH (m), log",            {numeric(6)}},
    {"3330-3335", "HEIGHT (m), log",           {numeric(6)}},
    {"3340-3345", "AREA (m²), log",            {numeric(6)}},
    {"3350-3355", "VOLUME (l), log",           {numeric(6)}},
    {"3360-3365", "VOLUME (m³), log",          {numeric(6)}},
    {"3370-3375", "KG PER m²",                 {numeric(6)}},
    {"3400-3405", "GROSS WEIGHT (lb)",         {numeric(6)}},
    {"3410-3415", "LENGTH (in), log",          {numeric(6)}},
    {"3420-3425", "LENGTH (ft), log",          {numeric(6)}},
    {"3430-3435", "LENGTH (yd), log",          {numeric(6)}},
    {"3440-3445", "WIDTH (in), log",           {numeric(6)}},
    {"3450-3455", "WIDTH (ft), log",           {numeric(6)}},
    {"3460-3465", "WIDTH (yd), log",           {numeric(6)}},
    {"3470-3475", "HEIGHT (in), log",          {numeric(6)}},
    {"3480-3485", "HEIGHT (ft), log",          {numeric(6)}},
    {"3490-3495", "HEIGHT (yd), log",          {numeric(6)}},
    {"3500-3505", "AREA (in²)",                {numeric(6)}},
    {"3510-3515", "AREA (ft²)",                {numeric(6)}},
    {"3520-3525", "AREA (yd²)",                {numeric(6)}},
    {"3530-3535", "AREA (in²), log",           {numeric(6)}},
    {"3540-3545", "AREA (ft²), log",           {numeric(6)}},
    {"3550-3555", "AREA (yd²), log",           {numeric(6)}},
    {"3560-3565", "NET WEIGHT (t oz)",         {numeric(6)}},
    {"3570-3575", "NET VOLUME (oz)",           {numeric(6)}},
    {"3600-3605", "NET VOLUME (qt)",           {numeric(6)}},
    {"3610-3615", "NET VOLUME (gal.)",         {numeric(6)}},
    {"3620-3625", "VOLUME (qt), log",          {numeric(6)}},
    {"3630-3635", "VOLUME (gal.), log",        {numeric(6)}},
    {"3640-3645", "VOLUME (in³)",              {numeric(6)}},
    {"3650-3655", "VOLUME (ft³)",              {numeric(6)}},
    {"3660-3665", "VOLUME (yd³)",              {numeric(6)}},
    {"3670-3675", "VOLUME (in³), log",         {numeric(6)}},
    {"3680-3685", "VOLUME (ft³), log",         {numeric(6)}},
    {"3690-3695", "VOLUME (yd³), log",         {numeric(6)}},
    {"37",        "COUNT",                     {varNumeric(8)}},
    {"3900-3909", "AMOUNT",                    {varNumeric(15)}},
    {"3910-3919", "AMOUNT",                    {numeric(3), varNumeric(15)}},
    {"3920-3929", "PRICE",                     {varNumeric(15)}},
    {"3930-3939", "PRICE",                     {numeric(3), varNumeric(15)}},
    {"3940-3943", "PRCNT OFF",                 {numeric(4)}},
    {"3950-3953", "PRICE/UoM",                 {numeric(6)}},
    {"400",       "ORDER NUMBER",              {text(30)}},
    {"401",       "GINC",                      {text(30)}},
    {"402",       "GSIN",                      {checked(numeric(17))}},
    {"403",       "ROUTE",                     {text(30)}},
    {"410",       "SHIP TO LOC",               {checked(digits(13))}},
    {"411",       "BILL TO",                   {checked(digits(13))}},
    {"412",       "PURCHASE FROM",             {checked(digits(13))}},
    {"413",       "SHIP FOR LOC",              {checked(digits(13))}},
    {"414",       "LOC NO.",                   {checked(digits(13))}},
    {"415",       "PAY TO",                    {checked(digits(13))}},
    {"416",       "PROD/SERV LOC",             {checked(digits(13))}},
    {"417",       "PARTY",                     {checked(digits(13))}},
    {"420",       "SHIP TO POST",              {text(20)}},
    {"421",       "SHIP TO POST",              {numeric(3), text(9)}},
    {"422",       "ORIGIN",                    {numeric(3)}},
    {"423",       "COUNTRY - INITIAL PROCESS", {varNumeric(15)}},
    {"424",       "COUNTRY - PROCESS",         {numeric(3)}},
    {"425",       "COUNTRY - DISASSEMBLY",     {varNumeric(15)}},
    {"426",       "COUNTRY - FULL PROCESS",    {numeric(3)}},
    {"427",       "ORIGIN SUBDIVISION",        {text(3)}},
    {"4300",      "SHIP TO COMP",              {text(35)}},
    {"4301",      "SHIP TO NAME",              {text(35)}},
    {"4302",      "SHIP TO ADD1",              {text(70)}},
    {"4303",      "SHIP TO ADD2",              {text(70)}},
    {"4304",      "SHIP TO SUB",               {text(70)}},
    {"4305",      "SHIP TO LOC",               {text(70)}},
    {"4306",      "SHIP TO REG",               {text(70)}},
    {"4307",      "SHIP TO COUNTRY",           {letters}},
    {"4308",      "SHIP TO PHONE",             {text(30)}},
    {"4309",      "SHIP TO GEO",               {numeric(20)}},
    {"4310",      "RTN TO COMP",               {text(35)}},
    {"4311",      "RTN TO NAME",               {text(35)}},
    {"4312",      "RTN TO ADD1",               {text(70)}},
    {"4313",      "RTN TO ADD2",               {text(70)}},
    {"4314",      "RTN TO SUB",                {text(70)}},
    {"4315",      "RTN TO LOC",                {text(70)}},
    {"4316",      "RTN TO REG",                {text(70)}},
    {"4317",      "RTN TO COUNTRY",            {letters}},
    {"4318",      "RTN TO POST",               {text(20)}},
    {"4319",      "RTN TO PHONE",              {text(30)}},
    {"4320",      "SRV DESCRIPTION",           {text(35)}},
    {"4321",      "DANGEROUS GOODS",           {flag}},
    {"4322",      "AUTH LEAVE",                {flag}},
    {"4323",      "SIG REQUIRED",              {flag}},
    {"4324",      "NOT BEF DEL DT",            {dateTime}},
    {"4325",      "NOT AFT DEL DT",            {dateTime}},
    {"4326",      "REL DATE",                  {date}},
    {"4330",      "MAX TEMP F",                {numeric(6), sign}},
    {"4331",      "MAX TEMP C",                {numeric(6), sign}},
    {"4332",      "MIN TEMP F",                {numeric(6), sign}},
    {"4333",      "MIN TEMP C",                {numeric(6), sign}},
    {"7001",      "NSN",                       {numeric(13)}},
    {"7002",      "MEAT CUT",                  {text(30)}},
    {"7003",      "EXPIRY TIME",               {dateTime}},
    {"7004",      "ACTIVE POTENCY",            {varNumeric(4)}},
    {"7005",      "CATCH AREA",                {text(12)}},
    {"7006",      "FIRST FREEZE DATE",         {date}},
    {"7007",      "HARVEST DATE",              {dateRange}},
    {"7008",      "AQUATIC SPECIES",           {text(3)}},
    {"7009",      "FISHING GEAR TYPE",         {text(10)}},
    {"7010",      "PROD METHOD",               {text(2)}},
    {"7011",      "TEST BY DATE",              {dateTimeVar}},
    {"7020",      "REFURB LOT",                {text(20)}},
    {"7021",      "FUNC STAT",                 {text(20)}},
    {"7022",      "REV STAT",                  {text(20)}},
    {"7023",      "GIAI - ASSEMBLY",           {digitsThenText(30)}},
    {"7030-7039", "PROCESSOR #",               {numeric(3), text(27)}},
    {"7040",      "UIC+EXT",                   {text(4)}},
    {"710",       "NHRN PZN",                  {text(20)}},
    {"711",       "NHRN CIP",                  {text(20)}},
    {"712",       "NHRN CN",                   {text(20)}},
    {"713",       "NHRN DRN",                  {text(20)}},
    {"714",       "NHRN AIM",                  {text(20)}},
    {"715",       "NHRN NDC",                  {text(20)}},
    {"7230-7239", "CERT #",                    {text(30)}},
    {"7240",      "PROTOCOL",                  {text(20)}},
    {"7241",      "AIDC MEDIA TYPE",           {digits(2)}},
    {"7242",      "VCN",                       {text(25)}},
    {"8001",      "DIMENSIONS",                {numeric(14)}},
    {"8002",      "CMT NO.",                   {text(20)}},
    {"8003",      "GRAI",                      {checked(digits(14)), text(16)}},
    {"8004",      "GIAI",                      {digitsThenText(30)}},
    {"8005",      "PRICE PER UNIT",            {numeric(6)}},
    {"8006",      "ITIP",                      {checked(digits(14)), digits(4)}},
    {"8007",      "IBAN",                      {text(24)}},
    {"8008",      "PROD TIME",                 {dateTimeVar}},
    {"8009",      "OPTSEN",                    {text(50)}},
    {"8010",      "CPID",                      {digitsThenText(30)}},
    {"8011",      "CPID SERIAL",               {varNumeric(12)}},
    {"8012",      "VERSION",                   {text(20)}},
    {"8013",      "GMN",                       {checked(text(25), AI_CHECK_PAIR)}},
    {"8017",      "GSRN - PROVIDER",           {checked(digits(18))}},
    {"8018",      "GSRN - RECIPIENT",          {checked(digits(18))}},
    {"8019",      "SRIN",                      {varNumeric(10)}},
    {"8020",      "REF NO.",                   {text(25)}},
    {"8026",      "ITIP CONTENT",              {checked(digits(14)), digits(4)}},
    {"8030",      "DIGSIG",                    {text(90)}},
    {"8110",      "COUPON CODE (NA)",          {text(70)}},
    {"8111",      "POINTS",                    {numeric(4)}},
    {"8112",      "PAPERLESS COUPON (NA)",     {text(70)}},
    {"8200",      "PRODUCT URL",               {text(70)}},
    {"90",        "INTERNAL",                  {text(30)}},
    {"91-99",     "INTERNAL",                  {text(90)}},
    // clang-format on
};

} // namespace ai_shapes

inline constexpr std::span<const AiTableRow> aiTable = ai_shapes::rows;

// The first and last code of a row; the same for a row of one AI.
constexpr std::string_view aiFirstCode(const AiTableRow& row) {
    return {row.codes.begin(), std::find(row.codes.begin(), row.codes.end(), '-')};
}
constexpr std::string_view aiLastCode(const AiTableRow& row) {
    return {row.codes.end() - aiFirstCode(row).size(), row.codes.end()};
}

static_assert(std::all_of(aiTable.begin(), aiTable.end(),
                          [](const AiTableRow& row) {
                              std::string_view first = aiFirstCode(row);
                              std::string_view last = aiLastCode(row);
                              const bool isRange = first.size() != row.codes.size();
                              const bool ascends = first.back() < last.back();
                              first.remove_suffix(1);
                              last.remove_suffix(1);
                              return first == last && ascends == isRange;
                          }),
              "the codes of a range differ in their last digit alone");

// The row of exactly this code, or null.
constexpr const AiTableRow* aiTableFind(std::string_view code) {
    const auto row = std::find_if(aiTable.begin(), aiTable.end(), [&](const AiTableRow& candidate) {
        return code.size() == aiFirstCode(candidate).size() && aiFirstCode(candidate) <= code &&
               code <= aiLastCode(candidate);
    });
    return row == aiTable.end() ? nullptr : &*row;
}

} // namespace rosetag

#endif
