/*
 * How the bits after a partition value are divided between the GS1 company prefix and the reference
 * that its owner has assigned. The longer the prefix, the shorter the reference.
 *
 * Source: EPC Tag Data Standard, section 14.6 (partition tables of the EPC binary encodings).
 */
#ifndef ROSETAG_SCHEMES_PARTITION_H
#define ROSETAG_SCHEMES_PARTITION_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace rosetag {

struct CompanyPrefixSize {
    std::int32_t bits;
    std::int32_t digits;
};

constexpr std::int32_t PARTITION_BITS = 3;
constexpr std::size_t PARTITION_COUNT = 7; // the value 7 is invalid

// By the partition value, the same for all schemes.
// clang-format off
inline constexpr std::array<CompanyPrefixSize, PARTITION_COUNT> companyPrefixSizes = {{
    // bits, digits
    {40, 12},
    {37, 11},
    {34, 10},
    {30,  9},
    {27,  8},
    {24,  7},
    {20,  6},
}};
// clang-format on

struct PartitionRow {
    std::int32_t companyPrefixBits;
    std::int32_t companyPrefixDigits;
    std::int32_t referenceBits;   // 0 where the reference ends with a terminator
    std::int32_t referenceDigits; // or characters; 0 where its bits alone limit it
};

// Indexed by the partition value. The row of the invalid value 7 holds -1.
using PartitionTable = std::array<PartitionRow, PARTITION_COUNT + 1>;

// The table of a scheme in which company prefix and reference have this many bits and digits (or
// characters) together; 0: no limit.
constexpr PartitionTable partitionTableMake(std::int32_t bits, std::int32_t digits) {
    PartitionTable table{};
    table.fill({-1, -1, -1, -1});
    for (std::size_t partition = 0; partition < PARTITION_COUNT; ++partition) {
        const CompanyPrefixSize& prefix = companyPrefixSizes[partition];
        table[partition] = {prefix.bits, prefix.digits, bits != 0 ? bits - prefix.bits : 0,
                            digits != 0 ? digits - prefix.digits : 0};
    }
    return table;
}

template <std::int32_t bits, std::int32_t digits>
inline constexpr PartitionTable partitionTable = partitionTableMake(bits, digits);

// The partition value of a company prefix of that many digits, or -1.
constexpr std::int32_t partitionFindByDigits(std::int32_t digits) {
    constexpr std::int32_t most = companyPrefixSizes[0].digits;
    const std::int32_t partition = most - digits;
    return partition >= 0 && partition < static_cast<std::int32_t>(PARTITION_COUNT) ? partition
                                                                                    : -1;
}

} // namespace rosetag

#endif
