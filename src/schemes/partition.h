/*
 * How the bits behind a partition value are divided between the GS1 company prefix and the
 * reference that its owner has assigned. The longer the prefix, the shorter the reference.
 *
 * Source: EPC Tag Data Standard, section 14.6 (partition tables of the EPC binary encodings).
 */
#ifndef ROSETAG_SCHEMES_PARTITION_H
#define ROSETAG_SCHEMES_PARTITION_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace rosetag {

struct PartitionRow {
    std::int32_t companyPrefixBits;
    std::int32_t companyPrefixDigits;
    std::int32_t referenceBits;
    std::int32_t referenceDigits; // or characters, where the reference is a string
};

constexpr std::int32_t PARTITION_BITS = 3;

// Indexed by the partition value. The value 7 is invalid in every table: its row holds -1.
using PartitionTable = std::array<PartitionRow, 8>;

// A reference column of a table, partition values 0 to 6.
struct PartitionReference {
    std::int32_t bits;
    std::int32_t digits;
};
using PartitionReferences = std::array<PartitionReference, 7>;

// The columns of the company prefix are the same in all tables: 12 to 6 digits.
constexpr PartitionTable partitionTableMake(const PartitionReferences& references) {
    constexpr std::int32_t prefixBits[] = {40, 37, 34, 30, 27, 24, 20};
    PartitionTable table{};
    table.fill({-1, -1, -1, -1});
    for (std::size_t i = 0; i < references.size(); ++i) {
        table[i] = {prefixBits[i], 12 - static_cast<std::int32_t>(i), references[i].bits,
                    references[i].digits};
    }
    return table;
}

// Bits and digits of the reference. What the digits mean, by table:
//   Sgtin, Sgln, Sscc, Grai   the exact count; a reference of 0 digits is the empty text
//   Giai96, Cpi96             nothing: the number is bounded by its bits alone
//   Giai202                   the most 7-bit characters; the bits behind them are zero
//   CpiVar                    the most 6-bit characters; a terminator stands behind them
//
// clang-format off
// partition value                                                         0          1          2          3          4          5          6
inline constexpr PartitionTable partitionTableSgtin   = partitionTableMake({{{  4,  1}, {  7,  2}, { 10,  3}, { 14,  4}, { 17,  5}, { 20,  6}, { 24,  7}}});
inline constexpr PartitionTable partitionTableSgln    = partitionTableMake({{{  1,  0}, {  4,  1}, {  7,  2}, { 11,  3}, { 14,  4}, { 17,  5}, { 21,  6}}});
inline constexpr PartitionTable partitionTableSscc    = partitionTableMake({{{ 18,  5}, { 21,  6}, { 24,  7}, { 28,  8}, { 31,  9}, { 34, 10}, { 38, 11}}});
inline constexpr PartitionTable partitionTableGrai    = partitionTableMake({{{  4,  0}, {  7,  1}, { 10,  2}, { 14,  3}, { 17,  4}, { 20,  5}, { 24,  6}}});
inline constexpr PartitionTable partitionTableGiai96  = partitionTableMake({{{ 42, 13}, { 45, 14}, { 48, 15}, { 52, 16}, { 55, 17}, { 58, 18}, { 62, 19}}});
inline constexpr PartitionTable partitionTableGiai202 = partitionTableMake({{{148, 18}, {151, 19}, {154, 20}, {158, 21}, {161, 22}, {164, 23}, {168, 24}}});
inline constexpr PartitionTable partitionTableCpi96   = partitionTableMake({{{ 11,  3}, { 14,  4}, { 17,  5}, { 21,  6}, { 24,  7}, { 27,  8}, { 31,  9}}});
inline constexpr PartitionTable partitionTableCpiVar  = partitionTableMake({{{114, 18}, {120, 19}, {126, 20}, {132, 21}, {138, 22}, {144, 23}, {150, 24}}});
// clang-format on

// The bits of company prefix and reference together, which are the same in every row of a table of
// fixed length; -1 if they are not.
constexpr std::int32_t partitionTableBits(const PartitionTable& table) {
    const std::int32_t bits = table[0].companyPrefixBits + table[0].referenceBits;
    for (std::size_t i = 1; i < table.size() - 1; ++i) {
        if (table[i].companyPrefixBits + table[i].referenceBits != bits) {
            return -1;
        }
    }
    return bits;
}

// The partition value of a company prefix of so many digits, or -1.
std::int32_t partitionFindByDigits(const PartitionTable& table, std::int32_t digits);

} // namespace rosetag

#endif
