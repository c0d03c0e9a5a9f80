#include "schemes/field_partition.h"

#include "schemes/field_number.h"

namespace rosetag {

namespace {

// A number and its count of digits in text.
struct DigitRun {
    std::uint64_t value;
    std::int32_t digits;
};

EpcStatus readRow(BitBuffer& bits, const PartitionTable& table, const PartitionRow*& row) {
    std::uint64_t partition = 0;
    EPC_TRY(bitBufferRead(bits, PARTITION_BITS, partition));
    row = &table[static_cast<std::size_t>(partition)];
    return row->companyPrefixBits >= 0 ? EPC_OK : EPC_ERR_BAD_PARTITION;
}

// Appends the company prefix and the ".".
EpcStatus putCompanyPrefix(TextBuffer& text, std::uint64_t companyPrefix, const PartitionRow& row) {
    EPC_TRY(textBufferPutPadded(text, companyPrefix, row.companyPrefixDigits));
    return textBufferPutChar(text, '.');
}

// Reads all three fields and then appends company prefix and ".".
EpcStatus readBothParts(BitBuffer& bits, TextBuffer& text, const PartitionTable& table,
                        const PartitionRow*& row, std::uint64_t& reference) {
    EPC_TRY(readRow(bits, table, row));
    std::uint64_t companyPrefix = 0;
    EPC_TRY(bitBufferRead(bits, row->companyPrefixBits, companyPrefix));
    EPC_TRY(bitBufferRead(bits, row->referenceBits, reference));
    return putCompanyPrefix(text, companyPrefix, *row);
}

EpcStatus readDigitRun(TextCursor& cursor, LeadingZeros leadingZeros, DigitRun& run) {
    return textCursorReadNumber(cursor, leadingZeros, run.value, &run.digits);
}

EpcStatus findRow(const PartitionTable& table, const DigitRun& companyPrefix,
                  const PartitionRow*& row) {
    const std::int32_t partition = partitionFindByDigits(companyPrefix.digits);
    if (partition < 0) {
        return EPC_ERR_BAD_PARTITION;
    }
    row = &table[static_cast<std::size_t>(partition)];
    return EPC_OK;
}

// Reads both texts, then looks for the row.
EpcStatus readBothTexts(TextCursor& cursor, LeadingZeros referenceZeros,
                        const PartitionTable& table, DigitRun& companyPrefix, DigitRun& reference,
                        const PartitionRow*& row) {
    EPC_TRY(readDigitRun(cursor, LeadingZeros::ALLOW, companyPrefix));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(readDigitRun(cursor, referenceZeros, reference));
    return findRow(table, companyPrefix, row);
}

std::uint64_t partitionOf(const PartitionTable& table, const PartitionRow& row) {
    return static_cast<std::uint64_t>(&row - table.data());
}

EpcStatus writeBothParts(BitBuffer& bits, const PartitionTable& table, const PartitionRow& row,
                         std::uint64_t companyPrefix, std::uint64_t reference) {
    return bitBufferWriteFields(bits, {{partitionOf(table, row), PARTITION_BITS},
                                       {companyPrefix, row.companyPrefixBits},
                                       {reference, row.referenceBits}});
}

EpcStatus readCompanyPrefix(BitBuffer& bits, TextBuffer& text, const PartitionTable& table,
                            const PartitionRow*& row) {
    EPC_TRY(readRow(bits, table, row));
    std::uint64_t companyPrefix = 0;
    EPC_TRY(bitBufferRead(bits, row->companyPrefixBits, companyPrefix));
    return putCompanyPrefix(text, companyPrefix, *row);
}

EpcStatus writeCompanyPrefix(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table,
                             const PartitionRow*& row) {
    DigitRun companyPrefix{};
    EPC_TRY(readDigitRun(cursor, LeadingZeros::ALLOW, companyPrefix));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(findRow(table, companyPrefix, row));
    return bitBufferWriteFields(bits, {{partitionOf(table, *row), PARTITION_BITS},
                                       {companyPrefix.value, row->companyPrefixBits}});
}

std::int32_t bitsAfterChars7(const PartitionRow& row) {
    return row.referenceBits - CHAR7_BITS * row.referenceDigits;
}

} // namespace

EpcStatus fieldReadPartition(BitBuffer& bits, TextBuffer& text, const PartitionTable& table) {
    const PartitionRow* row = nullptr;
    std::uint64_t reference = 0;
    EPC_TRY(readBothParts(bits, text, table, row, reference));
    return textBufferPutPadded(text, reference, row->referenceDigits);
}

EpcStatus fieldWritePartition(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table) {
    DigitRun companyPrefix{};
    DigitRun reference{};
    const PartitionRow* row = nullptr;
    EPC_TRY(readBothTexts(cursor, LeadingZeros::ALLOW, table, companyPrefix, reference, row));
    if (reference.digits != row->referenceDigits) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return writeBothParts(bits, table, *row, companyPrefix.value, reference.value);
}

EpcStatus fieldReadPartitionOpen(BitBuffer& bits, TextBuffer& text, const PartitionTable& table) {
    const PartitionRow* row = nullptr;
    std::uint64_t reference = 0;
    EPC_TRY(readBothParts(bits, text, table, row, reference));
    return textBufferPutDecimal(text, reference);
}

EpcStatus fieldWritePartitionOpen(TextCursor& cursor, BitBuffer& bits,
                                  const PartitionTable& table) {
    DigitRun companyPrefix{};
    DigitRun reference{};
    const PartitionRow* row = nullptr;
    EPC_TRY(readBothTexts(cursor, LeadingZeros::REFUSE, table, companyPrefix, reference, row));
    if (!fitsBits(reference.value, row->referenceBits)) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return writeBothParts(bits, table, *row, companyPrefix.value, reference.value);
}

EpcStatus fieldReadPartitionChars7(BitBuffer& bits, TextBuffer& text, const PartitionTable& table) {
    const PartitionRow* row = nullptr;
    EPC_TRY(readCompanyPrefix(bits, text, table, row));
    EPC_TRY(fieldReadChars7(bits, text, row->referenceDigits));
    return fieldReadZeros(bits, bitsAfterChars7(*row));
}

EpcStatus fieldWritePartitionChars7(TextCursor& cursor, BitBuffer& bits,
                                    const PartitionTable& table) {
    const PartitionRow* row = nullptr;
    EPC_TRY(writeCompanyPrefix(cursor, bits, table, row));
    EPC_TRY(fieldWriteChars7(cursor, bits, row->referenceDigits));
    return fieldWriteZeros(bits, bitsAfterChars7(*row));
}

EpcStatus fieldReadPartitionChars6(BitBuffer& bits, TextBuffer& text, const PartitionTable& table,
                                   HashRule hashRule) {
    const PartitionRow* row = nullptr;
    EPC_TRY(readCompanyPrefix(bits, text, table, row));
    return fieldReadChars6(bits, text, {row->referenceDigits, false, hashRule});
}

EpcStatus fieldWritePartitionChars6(TextCursor& cursor, BitBuffer& bits,
                                    const PartitionTable& table, HashRule hashRule,
                                    char terminator) {
    const PartitionRow* row = nullptr;
    EPC_TRY(writeCompanyPrefix(cursor, bits, table, row));
    return fieldWriteChars6(cursor, bits, {row->referenceDigits, false, hashRule}, terminator);
}

} // namespace rosetag
