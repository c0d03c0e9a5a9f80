#include "before/words/ai_dictionary.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

using enum AiPartKind;

constexpr AiPart digits(int count) {
    return {DIGITS, count};
}
constexpr AiPart number(int count) {
    return {NUMBER, count};
}
constexpr AiPart varNumber(int maxDigits) {
    return {VAR_NUMBER, maxDigits};
}
constexpr AiPart text(int maxLength) {
    return {TEXT, maxLength};
}
constexpr AiPart digitsThenText(int maxLength) {
    return {DIGITS_THEN_TEXT, maxLength};
}
constexpr AiPart date = {DATE, 6};
constexpr AiPart dateTime = {DATE_TIME, 10};
constexpr AiPart dateRange = {DATE_RANGE, 12};
constexpr AiPart dateTimeVar = {DATE_TIME_VAR, 12};
constexpr AiPart letters = {LETTERS, 2};
constexpr AiPart flag = {FLAG, 1};
constexpr AiPart sign = {SIGN, 1};

// clang-format off
constexpr AiEntry entries[] = {
    // first  last    title                        parts of the value
    {"00",   "00",   "SSCC",                      {digits(18)}},
    {"01",   "01",   "GTIN",                      {digits(14)}},
    {"02",   "02",   "CONTENT",                   {digits(14)}},
    {"10",   "10",   "BATCH/LOT",                 {text(20)}},
    {"11",   "11",   "PROD DATE",                 {date}},
    {"12",   "12",   "DUE DATE",                  {date}},
    {"13",   "13",   "PACK DATE",                 {date}},
    {"15",   "15",   "BEST BEFORE",               {date}},
    {"16",   "16",   "SELL BY",                   {date}},
    {"17",   "17",   "USE BY",                    {date}},
    {"20",   "20",   "VARIANT",                   {number(2)}},
    {"21",   "21",   "SERIAL",                    {text(20)}},
    {"22",   "22",   "CPV",                       {text(20)}},
    {"235",  "235",  "TPX",                       {text(28)}},
    {"240",  "240",  "ADDITIONAL ID",             {text(30)}},
    {"241",  "241",  "CUST. PART NO.",            {text(30)}},
    {"242",  "242",  "MTO VARIANT",               {varNumber(6)}},
    {"243",  "243",  "PCN",                       {text(20)}},
    {"250",  "250",  "SECONDARY SERIAL",          {text(30)}},
    {"251",  "251",  "REF. TO SOURCE",            {text(30)}},
    {"253",  "253",  "GDTI",                      {digits(13), text(17)}},
    {"254",  "254",  "GLN EXTENSION COMPONENT",   {text(20)}},
    {"255",  "255",  "GCN",                       {digits(13), varNumber(12)}},
    {"30",   "30",   "VAR. COUNT",                {varNumber(8)}},
    {"3100", "3105", "NET WEIGHT (kg)",           {number(6)}},
    {"3110", "3115", "LENGTH (m)",                {number(6)}},
    {"3120", "3125", "WIDTH (m)",                 {number(6)}},
    {"3130", "3135", "HEIGHT (m)",                {number(6)}},
    {"3140", "3145", "AREA (m²)",                 {number(6)}},
    {"3150", "3155", "NET VOLUME (l)",            {number(6)}},
    {"3160", "3165", "NET VOLUME (m³)",           {number(6)}},
    {"3200", "3205", "NET WEIGHT (lb)",           {number(6)}},
    {"3210", "3215", "LENGTH (in)",               {number(6)}},
    {"3220", "3225", "LENGTH (ft)",               {number(6)}},
    {"3230", "3235", "LENGTH (yd)",               {number(6)}},
    {"3240", "3245", "WIDTH (in)",                {number(6)}},
    {"3250", "3255", "WIDTH (ft)",                {number(6)}},
    {"3260", "3265", "WIDTH (yd)",                {number(6)}},
    {"3270", "3275", "HEIGHT (in)",               {number(6)}},
    {"3280", "3285", "HEIGHT (ft)",               {number(6)}},
    {"3290", "3295", "HEIGHT (yd)",               {number(6)}},
    {"3300", "3305", "GROSS WEIGHT (kg)",         {number(6)}},
    {"3310", "3315", "LENGTH (m), log",           {number(6)}},
    {"3320", "3325", "WIDTH (m), log",            {number(6)}},
    {"3330", "3335", "HEIGHT (m), log",           {number(6)}},
    {"3340", "3345", "AREA (m²), log",            {number(6)}},
    {"3350", "3355", "VOLUME (l), log",           {number(6)}},
    {"3360", "3365", "VOLUME (m³), log",          {number(6)}},
    {"3370", "3375", "KG PER m²",                 {number(6)}},
    {"3400", "3405", "GROSS WEIGHT (lb)",         {number(6)}},
    {"3410", "3415", "LENGTH (in), log",          {number(6)}},
    {"3420", "3425", "LENGTH (ft), log",          {number(6)}},
    {"3430", "3435", "LENGTH (yd), log",          {number(6)}},
    {"3440", "3445", "WIDTH (in), log",           {number(6)}},
    {"3450", "3455", "WIDTH (ft), log",           {number(6)}},
    {"3460", "3465", "WIDTH (yd), log",           {number(6)}},
    {"3470", "3475", "HEIGHT (in), log",          {number(6)}},
    {"3480", "3485", "HEIGHT (ft), log",          {number(6)}},
    {"3490", "3495", "HEIGHT (yd), log",          {number(6)}},
    {"3500", "3505", "AREA (in²)",                {number(6)}},
    {"3510", "3515", "AREA (ft²)",                {number(6)}},
    {"3520", "3525", "AREA (yd²)",                {number(6)}},
    {"3530", "3535", "AREA (in²), log",           {number(6)}},
    {"3540", "3545", "AREA (ft²), log",           {number(6)}},
    {"3550", "3555", "AREA (yd²), log",           {number(6)}},
    {"3560", "3565", "NET WEIGHT (t oz)",         {number(6)}},
    {"3570", "3575", "NET VOLUME (oz)",           {number(6)}},
    {"3600", "3605", "NET VOLUME (qt)",           {number(6)}},
    {"3610", "3615", "NET VOLUME (gal.)",         {number(6)}},
    {"3620", "3625", "VOLUME (qt), log",          {number(6)}},
    {"3630", "3635", "VOLUME (gal.), log",        {number(6)}},
    {"3640", "3645", "VOLUME (in³)",              {number(6)}},
    {"3650", "3655", "VOLUME (ft³)",              {number(6)}},
    {"3660", "3665", "VOLUME (yd³)",              {number(6)}},
    {"3670", "3675", "VOLUME (in³), log",         {number(6)}},
    {"3680", "3685", "VOLUME (ft³), log",         {number(6)}},
    {"3690", "3695", "VOLUME (yd³), log",         {number(6)}},
    {"37",   "37",   "COUNT",                     {varNumber(8)}},
    {"3900", "3909", "AMOUNT",                    {varNumber(15)}},
    {"3910", "3919", "AMOUNT",                    {number(3), varNumber(15)}},
    {"3920", "3929", "PRICE",                     {varNumber(15)}},
    {"3930", "3939", "PRICE",                     {number(3), varNumber(15)}},
    {"3940", "3943", "PRCNT OFF",                 {number(4)}},
    {"3950", "3953", "PRICE/UoM",                 {number(6)}},
    {"400",  "400",  "ORDER NUMBER",              {text(30)}},
    {"401",  "401",  "GINC",                      {text(30)}},
    {"402",  "402",  "GSIN",                      {number(17)}},
    {"403",  "403",  "ROUTE",                     {text(30)}},
    {"410",  "410",  "SHIP TO LOC",               {digits(13)}},
    {"411",  "411",  "BILL TO",                   {digits(13)}},
    {"412",  "412",  "PURCHASE FROM",             {digits(13)}},
    {"413",  "413",  "SHIP FOR LOC",              {digits(13)}},
    {"414",  "414",  "LOC NO.",                   {digits(13)}},
    {"415",  "415",  "PAY TO",                    {digits(13)}},
    {"416",  "416",  "PROD/SERV LOC",             {digits(13)}},
    {"417",  "417",  "PARTY",                     {digits(13)}},
    {"420",  "420",  "SHIP TO POST",              {text(20)}},
    {"421",  "421",  "SHIP TO POST",              {number(3), text(9)}},
    {"422",  "422",  "ORIGIN",                    {number(3)}},
    {"423",  "423",  "COUNTRY - INITIAL PROCESS", {varNumber(15)}},
    {"424",  "424",  "COUNTRY - PROCESS",         {number(3)}},
    {"425",  "425",  "COUNTRY - DISASSEMBLY",     {varNumber(15)}},
    {"426",  "426",  "COUNTRY - FULL PROCESS",    {number(3)}},
    {"427",  "427",  "ORIGIN SUBDIVISION",        {text(3)}},
    {"4300", "4300", "SHIP TO COMP",              {text(35)}},
    {"4301", "4301", "SHIP TO NAME",              {text(35)}},
    {"4302", "4302", "SHIP TO ADD1",              {text(70)}},
    {"4303", "4303", "SHIP TO ADD2",              {text(70)}},
    {"4304", "4304", "SHIP TO SUB",               {text(70)}},
    {"4305", "4305", "SHIP TO LOC",               {text(70)}},
    {"4306", "4306", "SHIP TO REG",               {text(70)}},
    {"4307", "4307", "SHIP TO COUNTRY",           {letters}},
    {"4308", "4308", "SHIP TO PHONE",             {text(30)}},
    {"4309", "4309", "SHIP TO GEO",               {number(20)}},
    {"4310", "4310", "RTN TO COMP",               {text(35)}},
    {"4311", "4311", "RTN TO NAME",               {text(35)}},
    {"4312", "4312", "RTN TO ADD1",               {text(70)}},
    {"4313", "4313", "RTN TO ADD2",               {text(70)}},
    {"4314", "4314", "RTN TO SUB",                {text(70)}},
    {"4315", "4315", "RTN TO LOC",                {text(70)}},
    {"4316", "4316", "RTN TO REG",                {text(70)}},
    {"4317", "4317", "RTN TO COUNTRY",            {letters}},
    {"4318", "4318", "RTN TO POST",               {text(20)}},
    {"4319", "4319", "RTN TO PHONE",              {text(30)}},
    {"4320", "4320", "SRV DESCRIPTION",           {text(35)}},
    {"4321", "4321", "DANGEROUS GOODS",           {flag}},
    {"4322", "4322", "AUTH LEAVE",                {flag}},
    {"4323", "4323", "SIG REQUIRED",              {flag}},
    {"4324", "4324", "NOT BEF DEL DT",            {dateTime}},
    {"4325", "4325", "NOT AFT DEL DT",            {dateTime}},
    {"4326", "4326", "REL DATE",                  {date}},
    {"4330", "4330", "MAX TEMP F",                {number(6), sign}},
    {"4331", "4331", "MAX TEMP C",                {number(6), sign}},
    {"4332", "4332", "MIN TEMP F",                {number(6), sign}},
    {"4333", "4333", "MIN TEMP C",                {number(6), sign}},
    {"7001", "7001", "NSN",                       {number(13)}},
    {"7002", "7002", "MEAT CUT",                  {text(30)}},
    {"7003", "7003", "EXPIRY TIME",               {dateTime}},
    {"7004", "7004", "ACTIVE POTENCY",            {varNumber(4)}},
    {"7005", "7005", "CATCH AREA",                {text(12)}},
    {"7006", "7006", "FIRST FREEZE DATE",         {date}},
    {"7007", "7007", "HARVEST DATE",              {dateRange}},
    {"7008", "7008", "AQUATIC SPECIES",           {text(3)}},
    {"7009", "7009", "FISHING GEAR TYPE",         {text(10)}},
    {"7010", "7010", "PROD METHOD",               {text(2)}},
    {"7011", "7011", "TEST BY DATE",              {dateTimeVar}},
    {"7020", "7020", "REFURB LOT",                {text(20)}},
    {"7021", "7021", "FUNC STAT",                 {text(20)}},
    {"7022", "7022", "REV STAT",                  {text(20)}},
    {"7023", "7023", "GIAI - ASSEMBLY",           {digitsThenText(30)}},
    {"7030", "7039", "PROCESSOR #",               {number(3), text(27)}},
    {"7040", "7040", "UIC+EXT",                   {text(4)}},
    {"710",  "710",  "NHRN PZN",                  {text(20)}},
    {"711",  "711",  "NHRN CIP",                  {text(20)}},
    {"712",  "712",  "NHRN CN",                   {text(20)}},
    {"713",  "713",  "NHRN DRN",                  {text(20)}},
    {"714",  "714",  "NHRN AIM",                  {text(20)}},
    {"715",  "715",  "NHRN NDC",                  {text(20)}},
    {"7230", "7239", "CERT #",                    {text(30)}},
    {"7240", "7240", "PROTOCOL",                  {text(20)}},
    {"7241", "7241", "AIDC MEDIA TYPE",           {digits(2)}},
    {"7242", "7242", "VCN",                       {text(25)}},
    {"8001", "8001", "DIMENSIONS",                {number(14)}},
    {"8002", "8002", "CMT NO.",                   {text(20)}},
    {"8003", "8003", "GRAI",                      {digits(14), text(16)}},
    {"8004", "8004", "GIAI",                      {digitsThenText(30)}},
    {"8005", "8005", "PRICE PER UNIT",            {number(6)}},
    {"8006", "8006", "ITIP",                      {digits(14), digits(4)}},
    {"8007", "8007", "IBAN",                      {text(24)}},
    {"8008", "8008", "PROD TIME",                 {dateTimeVar}},
    {"8009", "8009", "OPTSEN",                    {text(50)}},
    {"8010", "8010", "CPID",                      {digitsThenText(30)}},
    {"8011", "8011", "CPID SERIAL",               {varNumber(12)}},
    {"8012", "8012", "VERSION",                   {text(20)}},
    {"8013", "8013", "GMN",                       {text(25)}},
    {"8017", "8017", "GSRN - PROVIDER",           {digits(18)}},
    {"8018", "8018", "GSRN - RECIPIENT",          {digits(18)}},
    {"8019", "8019", "SRIN",                      {varNumber(10)}},
    {"8020", "8020", "REF NO.",                   {text(25)}},
    {"8026", "8026", "ITIP CONTENT",              {digits(14), digits(4)}},
    {"8030", "8030", "DIGSIG",                    {text(90)}},
    {"8110", "8110", "COUPON CODE (NA)",          {text(70)}},
    {"8111", "8111", "POINTS",                    {number(4)}},
    {"8112", "8112", "PAPERLESS COUPON (NA)",     {text(70)}},
    {"8200", "8200", "PRODUCT URL",               {text(70)}},
    {"90",   "90",   "INTERNAL",                  {text(30)}},
    {"91",   "99",   "INTERNAL",                  {text(90)}},
};

constexpr std::string_view predefinedLength[] = {
    "00", "01", "02", "03", "04", "11", "12", "13", "14", "15", "16", "17", "18", "19", "20",
    "31", "32", "33", "34", "35", "36", "41",
};

constexpr std::string_view linkKeys[] = {
    "00", "01", "253", "255", "401", "402", "414", "415", "417",
    "8003", "8004", "8006", "8010", "8013", "8017", "8018",
};
// clang-format on

} // namespace

std::span<const AiEntry> aiEntries() {
    return entries;
}

const AiEntry* aiEntryOf(std::string_view code) {
    const auto* const entry = std::ranges::find_if(entries, [&](const AiEntry& candidate) {
        return candidate.first.size() == code.size() && candidate.first <= code &&
               code <= candidate.last;
    });
    return entry == std::end(entries) ? nullptr : entry;
}

std::size_t aiCodeLength(std::string_view firstTwo) {
    const auto* const entry = std::ranges::find_if(entries, [&](const AiEntry& candidate) {
        return candidate.first.substr(0, 2) <= firstTwo && firstTwo <= candidate.last.substr(0, 2);
    });
    return entry == std::end(entries) ? 0 : entry->first.size();
}

bool aiNeedsSeparator(std::string_view code) {
    return std::ranges::find(predefinedLength, code.substr(0, 2)) == std::end(predefinedLength);
}

bool aiIsLinkKey(std::string_view code) {
    return std::ranges::find(linkKeys, code) != std::end(linkKeys);
}

} // namespace before
} // namespace rosetag
