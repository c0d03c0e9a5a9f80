#include "before/explain/explain_layouts.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

using enum FieldKind;
using enum TidMeaning;

constexpr LayoutField filter(int width) {
    return {FILTER, "filter", width};
}
constexpr LayoutField digits(std::string_view name, int width, int size) {
    return {REFERENCE_DIGITS, name, width, size};
}
constexpr LayoutField number(std::string_view name, int width) {
    return {NUMBER, name, width};
}
constexpr LayoutField twoDigits(std::string_view name) {
    return {NUMBER_TWO_DIGITS, name, 7};
}
constexpr LayoutField behindOne(std::string_view name, int width) {
    return {NUMBER_BEHIND_ONE, name, width};
}
constexpr LayoutField chars7(std::string_view name, int size) {
    return {CHARS7, name, 7 * size, size};
}
constexpr LayoutField ai(std::string_view code) {
    return {AI_VALUE, code};
}
constexpr LayoutField open(std::string_view name, int width) {
    return {REFERENCE_OPEN, name, width};
}

constexpr LayoutField toggle = {TOGGLE, "AI data toggle", 1};
constexpr LayoutField part = {PARTITION, "partition", 3};
constexpr LayoutField prefix = {COMPANY_PREFIX, "company prefix"};
constexpr LayoutField assetText = {REFERENCE_CHARS7, "asset reference", 188};
constexpr LayoutField partText = {REFERENCE_CHARS6, "component reference"};
constexpr LayoutField reserved = {RESERVED, "reserved", 24};
constexpr LayoutField cage8 = {CODE_CHARS8, "CAGE or DoDAAC", 48};
constexpr LayoutField cage6 = {CODE_CHARS6, "CAGE or DoDAAC", 36};
constexpr LayoutField partNumber = {CHARS6_EMPTY, "part number", 0, 32};
constexpr LayoutField partSerial = {CHARS6, "serial", 0, 30};
constexpr LayoutField dateCoded = {DATE_CODED, "date", 20};
constexpr LayoutField data = {DATA_SECTION, "data"};

// clang-format off
constexpr SchemeLayout layouts[] = {
    // scheme      fields behind the header; the width of a reference counts the company prefix in
    {"sgtin-96",  {filter(3), part, prefix, digits("item reference", 44, 13), number("serial", 38)}},
    {"sgtin-198", {filter(3), part, prefix, digits("item reference", 44, 13), chars7("serial", 20)}},
    {"sscc-96",   {filter(3), part, prefix, digits("serial reference", 58, 17), reserved}},
    {"sgln-96",   {filter(3), part, prefix, digits("location reference", 41, 12), number("extension", 41)}},
    {"sgln-195",  {filter(3), part, prefix, digits("location reference", 41, 12), chars7("extension", 20)}},
    {"grai-96",   {filter(3), part, prefix, digits("asset type", 44, 12), number("serial", 38)}},
    {"grai-170",  {filter(3), part, prefix, digits("asset type", 44, 12), chars7("serial", 16)}},
    {"giai-96",   {filter(3), part, prefix, open("asset reference", 82)}},
    {"giai-202",  {filter(3), part, prefix, assetText}},
    {"gsrn-96",   {filter(3), part, prefix, digits("service reference", 58, 17), reserved}},
    {"gsrnp-96",  {filter(3), part, prefix, digits("service reference", 58, 17), reserved}},
    {"gdti-96",   {filter(3), part, prefix, digits("document type", 41, 12), number("serial", 41)}},
    {"gdti-113",  {filter(3), part, prefix, digits("document type", 41, 12), behindOne("serial", 58)}},
    {"gdti-174",  {filter(3), part, prefix, digits("document type", 41, 12), chars7("serial", 17)}},
    {"cpi-96",    {filter(3), part, prefix, open("component reference", 51), number("serial", 31)}},
    {"cpi-var",   {filter(3), part, prefix, partText, number("serial", 40)}},
    {"sgcn-96",   {filter(3), part, prefix, digits("coupon reference", 41, 12), behindOne("serial", 41)}},
    {"gid-96",    {number("general manager", 28), number("object class", 24), number("serial", 36)}},
    {"usdod-96",  {filter(4), cage8, number("serial", 36)}},
    {"adi-var",   {filter(6), cage6, partNumber, partSerial}},
    {"itip-110",  {filter(3), part, prefix, digits("item reference", 44, 13), twoDigits("piece"), twoDigits("total"), number("serial", 38)}},
    {"itip-212",  {filter(3), part, prefix, digits("item reference", 44, 13), twoDigits("piece"), twoDigits("total"), chars7("serial", 20)}},
    {"cpi+",      {toggle, filter(3), ai("8010"), ai("8011"), data}},
    {"grai+",     {toggle, filter(3), ai("8003"), data}},
    {"sgln+",     {toggle, filter(3), ai("414"), ai("254"), data}},
    {"itip+",     {toggle, filter(3), ai("8006"), ai("21"), data}},
    {"gsrn+",     {toggle, filter(3), ai("8018"), data}},
    {"gsrnp+",    {toggle, filter(3), ai("8017"), data}},
    {"gdti+",     {toggle, filter(3), ai("253"), data}},
    {"sgtin+",    {toggle, filter(3), ai("01"), ai("21"), data}},
    {"sgcn+",     {toggle, filter(3), ai("255"), data}},
    {"sscc+",     {toggle, filter(3), ai("00"), data}},
    {"giai+",     {toggle, filter(3), ai("8004"), data}},
    {"dsgtin+",   {toggle, filter(3), dateCoded, ai("01"), ai("21"), data}},
};

constexpr int companyPrefixWidths[] = {40, 37, 34, 30, 27, 24, 20};

constexpr TidField tidFront[] = {
    {"allocation class", 8,  CLASS},
    {"XTID",             1,  YES_NO},
    {"security",         1,  YES_NO},
    {"file",             1,  YES_NO},
    {"designer (MDID)",  9,  HEX},
    {"model (TMN)",      12, HEX},
};

constexpr TidField tidHeader[] = {
    {"serialization",         3, SERIAL_LENGTH},
    {"user memory segment",   1, YES_NO},
    {"block command segment", 1, YES_NO},
    {"optional segment",      1, YES_NO},
    {"reserved",              9, MUST_BE_ZERO},
    {"extended header",       1, MUST_BE_ZERO},
    {"serial",                0, SERIAL},
};

constexpr TidField tidOptional[] = {
    {"reserved",           3, MUST_BE_ZERO},
    {"BlockPermaLock",     1, YES_NO},
    {"BlockWrite",         1, YES_NO},
    {"BlockErase",         1, YES_NO},
    {"phase jitter mod.",  1, YES_NO},
    {"automatic UMI",      1, YES_NO},
    {"separate lock bits", 1, YES_NO},
    {"access",             1, YES_NO},
    {"recommission",       1, YES_NO},
    {"largest EPC",        5, WORDS},
};

constexpr TidField tidBlocks[] = {
    {"reserved",                5, MUST_BE_ZERO},
    {"erase: user unaligned",   1, YES_NO},
    {"erase: user offset",      8, WORDS},
    {"erase: EPC unaligned",    1, YES_NO},
    {"erase: EPC offset",       8, WORDS},
    {"erase: smaller blocks",   1, YES_NO},
    {"erase: largest block",    8, WORDS},
    {"reserved",                5, MUST_BE_ZERO},
    {"write: user unaligned",   1, YES_NO},
    {"write: user offset",      8, WORDS},
    {"write: EPC unaligned",    1, YES_NO},
    {"write: EPC offset",       8, WORDS},
    {"write: smaller blocks",   1, YES_NO},
    {"write: largest block",    8, WORDS},
};

constexpr TidField tidUserMemory[] = {
    {"perma-lock block", 16, WORDS},
    {"user memory",      16, WORDS},
};

constexpr TidSegment tidSegments[] = {
    {"",                      tidFront},
    {"XTID",                  tidHeader},
    {"optional segment",      tidOptional},
    {"block command segment", tidBlocks},
    {"user memory segment",   tidUserMemory},
};
// clang-format on

} // namespace

const SchemeLayout* layoutOfScheme(std::string_view scheme) {
    const auto* const layout = std::ranges::find(layouts, scheme, &SchemeLayout::scheme);
    return layout == std::end(layouts) ? nullptr : layout;
}

int companyPrefixBits(int partitionValue) {
    return companyPrefixWidths[partitionValue];
}

std::span<const TidSegment> tidLayout() {
    return tidSegments;
}

} // namespace before
} // namespace rosetag
