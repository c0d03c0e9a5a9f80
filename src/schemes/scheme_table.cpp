#include "schemes/scheme_table.h"

#include "core/long_decimal.h"
#include "schemes/field_cage_code.h"

// What must hold of the rows for their generated readers and writers to be right.
namespace rosetag {

namespace {

constexpr bool holdsForSchemes(bool (*holds)(const SchemeRow& row)) {
    return std::all_of(schemeRows.begin(), schemeRows.end(), holds);
}

constexpr bool holdsForFields(bool (*holds)(const SchemeField& field)) {
    for (const SchemeRow& row : schemeRows) {
        const auto fields = schemeFields(row);
        if (!std::all_of(fields.begin(), fields.end(), holds)) {
            return false;
        }
    }
    return true;
}

constexpr bool isAtItsIndex(const SchemeRow& row) {
    return &row == schemeRows.begin() + row.scheme;
}

constexpr bool nameAndHeaderAreUnique(const SchemeRow& row) {
    return std::count_if(schemeRows.begin(), schemeRows.end(), [&row](const SchemeRow& other) {
               return other.name == row.name || other.header == row.header;
           }) == 1;
}

constexpr bool nameBeginsWithFamily(const SchemeRow& row) {
    return row.name.compare(0, row.familyWord.size(), row.familyWord) == 0;
}

// The number that a name ends with, as 96 in "sgtin-96", or 0.
constexpr std::int32_t bitsInName(std::string_view name) {
    std::int32_t bits = 0;
    for (const char character : name) {
        bits = charIsDigit(character) ? bits * 10 + (character - '0') : 0;
    }
    return bits;
}

constexpr bool widthsAddUpToName(const SchemeRow& row) {
    return schemeBits(row) == bitsInName(row.name);
}

constexpr bool plusIsInName(const SchemeRow& row) {
    return schemeIsPlus(row) == (row.name.back() == '+');
}

// Partition, company prefix and reference come together or not at all; the filter comes first; a
// plus scheme goes on with its key and ends with the data.
constexpr bool fieldsAreInOrder(const SchemeRow& row) {
    using enum FieldKind;
    FieldKind before = END;
    for (const SchemeField& field : schemeFields(row)) {
        const bool isInOrder =
            (field.kind != FILTER || before == (schemeIsPlus(row) ? TOGGLE : END)) &&
            (field.kind == COMPANY_PREFIX) == (before == PARTITION) &&
            fieldIsReference(field.kind) == (before == COMPANY_PREFIX) &&
            (field.kind != AI_VALUE || before == FILTER || before == CODED_DATE ||
             before == AI_VALUE) &&
            before != DATA_SECTION;
        if (!isInOrder) {
            return false;
        }
        before = field.kind;
    }
    return schemeIsPlus(row) == (before == DATA_SECTION);
}

// Each partition value has one digit less than the one before, as partitionFindByDigits assumes.
constexpr bool companyPrefixesFit() {
    for (const CompanyPrefixSize& size : companyPrefixSizes) {
        const auto partition = static_cast<std::size_t>(partitionFindByDigits(size.digits));
        if (&companyPrefixSizes[partition] != &size || aiDigitBits(size.digits) > size.bits) {
            return false;
        }
    }
    return true;
}

// Where the count of digits is exact, every number of that many digits fits its bits, so no writer
// has to test it.
constexpr bool referenceFits(const SchemeField& field) {
    const PartitionTable table = schemePartitionTable(field);
    return !fieldIsReference(field.kind) ||
           std::all_of(table.begin(), table.end() - 1, [&field](const PartitionRow& row) {
               switch (field.kind) {
               case FieldKind::REFERENCE_DIGITS:
                   return aiDigitBits(row.referenceDigits) <= row.referenceBits;
               case FieldKind::REFERENCE_CHARS7:
                   return CHAR7_BITS * row.referenceDigits <= row.referenceBits;
               default:
                   return true;
               }
           });
}

constexpr bool sizeFitsWidth(const SchemeField& field) {
    switch (field.kind) {
    case FieldKind::FILTER:
        return field.width > 0 && field.largest >> field.width == 0;
    case FieldKind::PADDED_NUMBER:
        return aiDigitBits(field.size) <= field.width;
    case FieldKind::CAGE_CODE:
        return field.width == CAGE_CODE_CHARS * CHAR6_BITS || field.width == CAGE_CODE_CHARS * 8;
    default:
        return field.width <= 64 || fieldIsReference(field.kind) || field.kind == FieldKind::CHARS7;
    }
}

constexpr bool aiCodeIsWellFormed(const SchemeField& field) {
    return field.kind != FieldKind::AI_VALUE ||
           (field.name.size() >= 2 && field.name.size() <= 4 &&
            std::all_of(field.name.begin(), field.name.end(), charIsDigit));
}

static_assert(holdsForSchemes(isAtItsIndex));
static_assert(holdsForSchemes(nameAndHeaderAreUnique));
static_assert(holdsForSchemes(nameBeginsWithFamily));
static_assert(holdsForSchemes(widthsAddUpToName));
static_assert(holdsForSchemes(plusIsInName));
static_assert(holdsForSchemes(fieldsAreInOrder));
static_assert(holdsForFields(referenceFits));
static_assert(holdsForFields(sizeFitsWidth));
static_assert(holdsForFields(aiCodeIsWellFormed));
static_assert(companyPrefixesFit());

} // namespace

} // namespace rosetag
