#include "schemes/partition.h"

#include "core/long_decimal.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr bool holdsForRows(const PartitionTable& table, bool (*holds)(const PartitionRow& row)) {
    return std::all_of(table.begin(), table.end() - 1, holds);
}

// True if both parts come to so many digits (or characters) in every row.
constexpr bool digitsAddUp(const PartitionTable& table, std::int32_t digits) {
    return std::all_of(table.begin(), table.end() - 1, [digits](const PartitionRow& row) {
        return row.companyPrefixDigits + row.referenceDigits == digits;
    });
}

constexpr bool prefixFits(const PartitionRow& row) {
    return aiDigitBits(row.companyPrefixDigits) <= row.companyPrefixBits;
}

constexpr bool bothPartsFit(const PartitionRow& row) {
    return prefixFits(row) && aiDigitBits(row.referenceDigits) <= row.referenceBits;
}

constexpr bool prefixAndChars7Fit(const PartitionRow& row) {
    return prefixFits(row) && 7 * row.referenceDigits <= row.referenceBits;
}

constexpr bool prefixAndChars6Fit(const PartitionRow& row) {
    return prefixFits(row) && 6 * (row.referenceDigits + 1) == row.referenceBits;
}

// Where digits are exact, every number of so many digits fits its bits: no writer tests it again.
static_assert(holdsForRows(partitionTableSgtin, bothPartsFit));
static_assert(holdsForRows(partitionTableSgln, bothPartsFit));
static_assert(holdsForRows(partitionTableSscc, bothPartsFit));
static_assert(holdsForRows(partitionTableGrai, bothPartsFit));
static_assert(holdsForRows(partitionTableGiai96, prefixFits));
static_assert(holdsForRows(partitionTableGiai202, prefixAndChars7Fit));
static_assert(holdsForRows(partitionTableCpi96, prefixFits));
static_assert(holdsForRows(partitionTableCpiVar, prefixAndChars6Fit));

// The digits are those of the key without its check digit.
static_assert(digitsAddUp(partitionTableSgtin, 13) &&
              partitionTableBits(partitionTableSgtin) == 44);
static_assert(digitsAddUp(partitionTableSgln, 12) && partitionTableBits(partitionTableSgln) == 41);
static_assert(digitsAddUp(partitionTableSscc, 17) && partitionTableBits(partitionTableSscc) == 58);
static_assert(digitsAddUp(partitionTableGrai, 12) && partitionTableBits(partitionTableGrai) == 44);
static_assert(digitsAddUp(partitionTableGiai96, 25) &&
              partitionTableBits(partitionTableGiai96) == 82);
static_assert(digitsAddUp(partitionTableGiai202, 30));
static_assert(partitionTableBits(partitionTableGiai202) == 188);
static_assert(digitsAddUp(partitionTableCpi96, 15) &&
              partitionTableBits(partitionTableCpi96) == 51);
static_assert(digitsAddUp(partitionTableCpiVar, 30));

} // namespace

std::int32_t partitionFindByDigits(const PartitionTable& table, std::int32_t digits) {
    const auto found = std::find_if(table.begin(), table.end(), [digits](const PartitionRow& row) {
        return row.companyPrefixDigits == digits;
    });
    return found != table.end() ? static_cast<std::int32_t>(found - table.begin()) : -1;
}

} // namespace rosetag
