/*
 * The tag schemes: the name of each, the header that begins its binary values, and the fields that
 * follow the header. A row says all that is known about a scheme; its readers and writers are
 * generated from the row (scheme_codec.h), and widths, filter limits and key AIs are read from it.
 *
 * The names of the fields are for explaining a value. The library itself reads the rows at compile
 * time only, so the names do not become part of it.
 *
 * Source: EPC Tag Data Standard, section 14 (EPC binary encoding: headers, coding tables).
 */
#ifndef ROSETAG_SCHEMES_SCHEME_TABLE_H
#define ROSETAG_SCHEMES_SCHEME_TABLE_H

#include "core/char_class.h"
#include "core/status.h"
#include "schemes/field_chars.h"
#include "schemes/partition.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace rosetag {

enum class FieldKind : std::uint8_t {
    END, // after the last field of a row

    // plain schemes
    FILTER,           // width bits; largest: the highest value that may be written
    PARTITION,        // how many digits the company prefix has
    COMPANY_PREFIX,   // its width depends on the partition
    REFERENCE_DIGITS, // size digits, width bits, both counted with the company prefix
    REFERENCE_OPEN,   // a number of any length, width bits counted with the company prefix
    REFERENCE_CHARS7, // up to size 7-bit characters, zeros after them, both counted as above
    REFERENCE_CHARS6, // up to size 6-bit characters counted with the company prefix, then a zero
    NUMBER,           // width bits, no leading zeros in text
    PADDED_NUMBER,    // width bits, size digits in text
    NUMBER_AFTER_ONE, // width bits: digits whose leading zeros count, with a 1 before them
    CHARS7,           // 1 to size 7-bit characters, zeros after them
    CHARS6,           // least to size 6-bit characters, then a zero
    CAGE_CODE,        // six characters of equal width; a code of five follows a space
    RESERVED,         // width zero bits, nothing in text

    // plus schemes
    TOGGLE,       // 1: +AIDC data follow the key
    CODED_DATE,   // which date it is, and the date
    AI_VALUE,     // the value of the AI name, component by component
    DATA_SECTION, // AIs with their codes, up to the end
};

struct SchemeField {
    FieldKind kind = FieldKind::END;
    std::string_view name;  // of AI_VALUE the AI
    std::int32_t width = 0; // in bits; 0: varies
    std::int32_t size = 0;  // digits or characters
    std::int32_t least = 0;
    std::uint32_t largest = 0;
    HashRule hashRule = HashRule::HASH_NEVER;
};

constexpr std::size_t MAX_SCHEME_FIELDS = 8;

struct SchemeRow {
    std::string_view name;       // as in a tag URI: "sgtin-96"
    std::string_view familyWord; // as in a pure identity URI: "sgtin"
    std::uint8_t header;         // the first eight bits of a binary value
    EpcScheme scheme;
    SchemeField fields[MAX_SCHEME_FIELDS + 1]; // the rest of the row is of kind END
};

// A table with one row per scheme, in the order of EpcScheme.
template <typename Row>
struct SchemeArray {
    Row rows[EPC_SCHEME_COUNT];

    constexpr const Row& operator[](EpcScheme scheme) const {
        return rows[scheme];
    }
    constexpr const Row* begin() const {
        return rows;
    }
    constexpr const Row* end() const {
        return rows + EPC_SCHEME_COUNT;
    }
};

constexpr std::int32_t TAG_HEADER_BITS = 8;

// The words in which the rows are written.
namespace scheme_words {

using enum FieldKind;

constexpr SchemeField filter(std::int32_t width, std::uint32_t largest) {
    return {.kind = FILTER, .name = "filter", .width = width, .largest = largest};
}
constexpr SchemeField filter(std::int32_t width) {
    return filter(width, (1U << width) - 1);
}
constexpr SchemeField digits(std::string_view name, std::int32_t width, std::int32_t size) {
    return {.kind = REFERENCE_DIGITS, .name = name, .width = width, .size = size};
}
constexpr SchemeField open(std::string_view name, std::int32_t width) {
    return {.kind = REFERENCE_OPEN, .name = name, .width = width};
}
constexpr SchemeField text7(std::string_view name, std::int32_t width, std::int32_t size) {
    return {.kind = REFERENCE_CHARS7, .name = name, .width = width, .size = size};
}
constexpr SchemeField text6(std::string_view name, std::int32_t size, HashRule hashRule) {
    return {.kind = REFERENCE_CHARS6, .name = name, .size = size, .least = 1, .hashRule = hashRule};
}
constexpr SchemeField number(std::string_view name, std::int32_t width) {
    return {.kind = NUMBER, .name = name, .width = width};
}
constexpr SchemeField padded(std::string_view name, std::int32_t width, std::int32_t size) {
    return {.kind = PADDED_NUMBER, .name = name, .width = width, .size = size};
}
constexpr SchemeField afterOne(std::string_view name, std::int32_t width) {
    return {.kind = NUMBER_AFTER_ONE, .name = name, .width = width};
}
constexpr SchemeField chars7(std::string_view name, std::int32_t size) {
    return {.kind = CHARS7, .name = name, .width = CHAR7_BITS * size, .size = size, .least = 1};
}
constexpr SchemeField chars6(std::string_view name, std::int32_t least, std::int32_t size,
                             HashRule hashRule) {
    return {.kind = CHARS6, .name = name, .size = size, .least = least, .hashRule = hashRule};
}
constexpr SchemeField cage(std::int32_t width) {
    return {.kind = CAGE_CODE, .name = "CAGE or DoDAAC", .width = width};
}
constexpr SchemeField reserved(std::int32_t width) {
    return {.kind = RESERVED, .name = "reserved", .width = width};
}
constexpr SchemeField ai(std::string_view code) {
    return {.kind = AI_VALUE, .name = code};
}

constexpr SchemeField part = {.kind = PARTITION, .name = "partition", .width = PARTITION_BITS};
constexpr SchemeField prefix = {.kind = COMPANY_PREFIX, .name = "company prefix"};
constexpr SchemeField toggle = {.kind = TOGGLE, .name = "AI data toggle", .width = 1};
constexpr SchemeField date = {.kind = CODED_DATE, .name = "date", .width = 20};
constexpr SchemeField data = {.kind = DATA_SECTION, .name = "data"};

constexpr HashRule anyHash = HashRule::HASH_ANYWHERE;
constexpr HashRule noHash = HashRule::HASH_NEVER;
constexpr HashRule hashFirst = HashRule::HASH_FIRST_ONLY;

// The size and width of a reference include the company prefix: together they are the same for
// every partition.
//
// clang-format off
inline constexpr SchemeArray<SchemeRow> schemeRows = {{
    // name         family    header scheme                   fields after the header
    {"sgtin-96",    "sgtin",   0x30, EPC_SCHEME_SGTIN_96,    {filter(3), part, prefix, digits("item reference", 44, 13), number("serial", 38)}},
    {"sgtin-198",   "sgtin",   0x36, EPC_SCHEME_SGTIN_198,   {filter(3), part, prefix, digits("item reference", 44, 13), chars7("serial", 20)}},
    {"sscc-96",     "sscc",    0x31, EPC_SCHEME_SSCC_96,     {filter(3), part, prefix, digits("serial reference", 58, 17), reserved(24)}},
    {"sgln-96",     "sgln",    0x32, EPC_SCHEME_SGLN_96,     {filter(3), part, prefix, digits("location reference", 41, 12), number("extension", 41)}},
    {"sgln-195",    "sgln",    0x39, EPC_SCHEME_SGLN_195,    {filter(3), part, prefix, digits("location reference", 41, 12), chars7("extension", 20)}},
    {"grai-96",     "grai",    0x33, EPC_SCHEME_GRAI_96,     {filter(3), part, prefix, digits("asset type", 44, 12), number("serial", 38)}},
    {"grai-170",    "grai",    0x37, EPC_SCHEME_GRAI_170,    {filter(3), part, prefix, digits("asset type", 44, 12), chars7("serial", 16)}},
    {"giai-96",     "giai",    0x34, EPC_SCHEME_GIAI_96,     {filter(3), part, prefix, open("asset reference", 82)}},
    {"giai-202",    "giai",    0x38, EPC_SCHEME_GIAI_202,    {filter(3), part, prefix, text7("asset reference", 188, 30)}},
    {"gsrn-96",     "gsrn",    0x2D, EPC_SCHEME_GSRN_96,     {filter(3), part, prefix, digits("service reference", 58, 17), reserved(24)}},
    {"gsrnp-96",    "gsrnp",   0x2E, EPC_SCHEME_GSRNP_96,    {filter(3), part, prefix, digits("service reference", 58, 17), reserved(24)}},
    {"gdti-96",     "gdti",    0x2C, EPC_SCHEME_GDTI_96,     {filter(3), part, prefix, digits("document type", 41, 12), number("serial", 41)}},
    {"gdti-113",    "gdti",    0x3A, EPC_SCHEME_GDTI_113,    {filter(3), part, prefix, digits("document type", 41, 12), afterOne("serial", 58)}},
    {"gdti-174",    "gdti",    0x3E, EPC_SCHEME_GDTI_174,    {filter(3), part, prefix, digits("document type", 41, 12), chars7("serial", 17)}},
    {"cpi-96",      "cpi",     0x3C, EPC_SCHEME_CPI_96,      {filter(3), part, prefix, open("component reference", 51), number("serial", 31)}},
    {"cpi-var",     "cpi",     0x3D, EPC_SCHEME_CPI_VAR,     {filter(3), part, prefix, text6("component reference", 30, anyHash), number("serial", 40)}},
    {"sgcn-96",     "sgcn",    0x3F, EPC_SCHEME_SGCN_96,     {filter(3), part, prefix, digits("coupon reference", 41, 12), afterOne("serial", 41)}},
    {"gid-96",      "gid",     0x35, EPC_SCHEME_GID_96,      {number("general manager", 28), number("object class", 24), number("serial", 36)}},
    {"usdod-96",    "usdod",   0x2F, EPC_SCHEME_USDOD_96,    {filter(4, 14), cage(48), number("serial", 36)}},
    {"adi-var",     "adi",     0x3B, EPC_SCHEME_ADI_VAR,     {filter(6), cage(36), chars6("part number", 0, 32, noHash), chars6("serial", 1, 30, hashFirst)}},
    {"itip-110",    "itip",    0x40, EPC_SCHEME_ITIP_110,    {filter(3), part, prefix, digits("item reference", 44, 13), padded("piece", 7, 2), padded("total", 7, 2), number("serial", 38)}},
    {"itip-212",    "itip",    0x41, EPC_SCHEME_ITIP_212,    {filter(3), part, prefix, digits("item reference", 44, 13), padded("piece", 7, 2), padded("total", 7, 2), chars7("serial", 20)}},
    {"cpi+",        "cpi",     0xF0, EPC_SCHEME_CPI_PLUS,    {toggle, filter(3), ai("8010"), ai("8011"), data}},
    {"grai+",       "grai",    0xF1, EPC_SCHEME_GRAI_PLUS,   {toggle, filter(3), ai("8003"), data}},
    {"sgln+",       "sgln",    0xF2, EPC_SCHEME_SGLN_PLUS,   {toggle, filter(3), ai("414"), ai("254"), data}},
    {"itip+",       "itip",    0xF3, EPC_SCHEME_ITIP_PLUS,   {toggle, filter(3), ai("8006"), ai("21"), data}},
    {"gsrn+",       "gsrn",    0xF4, EPC_SCHEME_GSRN_PLUS,   {toggle, filter(3), ai("8018"), data}},
    {"gsrnp+",      "gsrnp",   0xF5, EPC_SCHEME_GSRNP_PLUS,  {toggle, filter(3), ai("8017"), data}},
    {"gdti+",       "gdti",    0xF6, EPC_SCHEME_GDTI_PLUS,   {toggle, filter(3), ai("253"), data}},
    {"sgtin+",      "sgtin",   0xF7, EPC_SCHEME_SGTIN_PLUS,  {toggle, filter(3), ai("01"), ai("21"), data}},
    {"sgcn+",       "sgcn",    0xF8, EPC_SCHEME_SGCN_PLUS,   {toggle, filter(3), ai("255"), data}},
    {"sscc+",       "sscc",    0xF9, EPC_SCHEME_SSCC_PLUS,   {toggle, filter(3), ai("00"), data}},
    {"giai+",       "giai",    0xFA, EPC_SCHEME_GIAI_PLUS,   {toggle, filter(3), ai("8004"), data}},
    {"dsgtin+",     "dsgtin",  0xFB, EPC_SCHEME_DSGTIN_PLUS, {toggle, filter(3), date, ai("01"), ai("21"), data}},
}};
// clang-format on

} // namespace scheme_words

using scheme_words::schemeRows;

constexpr std::span<const SchemeField> schemeFields(const SchemeRow& row) {
    std::size_t count = 0;
    while (row.fields[count].kind != FieldKind::END) {
        ++count;
    }
    return {row.fields, count};
}

// The first field of the kind, or null.
constexpr const SchemeField* schemeFindField(const SchemeRow& row, FieldKind kind) {
    for (const SchemeField& field : schemeFields(row)) {
        if (field.kind == kind) {
            return &field;
        }
    }
    return nullptr;
}

constexpr bool schemeHasField(const SchemeRow& row, FieldKind kind) {
    return schemeFindField(row, kind) != nullptr;
}

// A scheme that carries +AIDC data.
constexpr bool schemeIsPlus(const SchemeRow& row) {
    return schemeHasField(row, FieldKind::TOGGLE);
}

// A scheme that identifies by a GS1 key; the others have URIs and nothing else.
constexpr bool schemeHasGs1Key(const SchemeRow& row) {
    return schemeHasField(row, FieldKind::COMPANY_PREFIX) ||
           schemeHasField(row, FieldKind::AI_VALUE);
}

// 0 for a scheme without a filter.
constexpr std::int32_t schemeFilterBits(const SchemeRow& row) {
    const SchemeField* const filter = schemeFindField(row, FieldKind::FILTER);
    return filter != nullptr ? filter->width : 0;
}

// Filter values that a text may name lie below it; 0 for a scheme without a filter.
constexpr std::int32_t schemeFilterLimit(const SchemeRow& row) {
    const std::int32_t bits = schemeFilterBits(row);
    return bits != 0 ? 1 << bits : 0;
}

// The bits of a value of fixed length, 0 if the length varies.
constexpr std::int32_t schemeBits(const SchemeRow& row) {
    std::int32_t bits = TAG_HEADER_BITS;
    for (const SchemeField& field : schemeFields(row)) {
        if (field.width == 0 && field.kind != FieldKind::COMPANY_PREFIX) {
            return 0;
        }
        bits += field.width;
    }
    return bits;
}

constexpr bool fieldIsReference(FieldKind kind) {
    return kind == FieldKind::REFERENCE_DIGITS || kind == FieldKind::REFERENCE_OPEN ||
           kind == FieldKind::REFERENCE_CHARS7 || kind == FieldKind::REFERENCE_CHARS6;
}

// How the width and size of a reference are divided, by partition value.
constexpr PartitionTable schemePartitionTable(const SchemeField& reference) {
    return partitionTableMake(reference.width, reference.size);
}

constexpr std::size_t MAX_KEY_AIS = 3;

// The AIs that make up the key of a plus scheme in the order of writing; empty after the last.
constexpr std::array<std::string_view, MAX_KEY_AIS> schemeKeyAis(const SchemeRow& row) {
    std::array<std::string_view, MAX_KEY_AIS> ais;
    std::size_t count = 0;
    for (const SchemeField& field : schemeFields(row)) {
        if (field.kind == FieldKind::AI_VALUE) {
            ais[count++] = field.name;
        }
    }
    return ais;
}

// True if a coded date precedes the key of a plus scheme.
constexpr bool schemeHasCodedDate(const SchemeRow& row) {
    return schemeHasField(row, FieldKind::CODED_DATE);
}

} // namespace rosetag

#endif
