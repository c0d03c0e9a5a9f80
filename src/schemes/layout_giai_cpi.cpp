#include "schemes/layout_giai_cpi.h"

#include "schemes/field_chars.h"
#include "schemes/field_number.h"
#include "schemes/field_partition.h"

namespace rosetag {

namespace {

constexpr std::int32_t CPI_96_SERIAL_BITS = 31;
constexpr std::int32_t CPI_VAR_SERIAL_BITS = 40;

static_assert(layoutKeyBits(EPC_SCHEME_GIAI_96, partitionTableGiai96) ==
              tagSchemeBits(EPC_SCHEME_GIAI_96));
static_assert(layoutKeyBits(EPC_SCHEME_GIAI_202, partitionTableGiai202) ==
              tagSchemeBits(EPC_SCHEME_GIAI_202));
static_assert(layoutKeyBits(EPC_SCHEME_CPI_96, partitionTableCpi96) + CPI_96_SERIAL_BITS ==
              tagSchemeBits(EPC_SCHEME_CPI_96));

// The bits of the asset reference that no 7-bit character takes.
std::int32_t restBits(const PartitionRow& row) {
    return row.referenceBits - CHAR7_BITS * row.referenceDigits;
}

Chars6Rule componentReferenceRule(const PartitionRow& row) {
    return {
        .maxChars = row.referenceDigits, .allowEmpty = false, .hashRule = HashRule::HASH_ANYWHERE};
}

} // namespace

EpcStatus layoutGiai96Read(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_GIAI_96));
    return fieldReadPartitionOpenReference(bits, text, partitionTableGiai96);
}

EpcStatus layoutGiai96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHead(filter, bits, EPC_SCHEME_GIAI_96));
    return fieldWritePartitionOpenReference(cursor, bits, partitionTableGiai96);
}

EpcStatus layoutGiai202Read(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_GIAI_202));
    const PartitionRow* row = nullptr;
    EPC_TRY(fieldReadCompanyPrefix(bits, text, partitionTableGiai202, row));
    EPC_TRY(fieldReadChars7(bits, text, row->referenceDigits));
    return fieldReadZeros(bits, restBits(*row));
}

EpcStatus layoutGiai202Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHead(filter, bits, EPC_SCHEME_GIAI_202));
    const PartitionRow* row = nullptr;
    EPC_TRY(fieldWriteCompanyPrefix(cursor, bits, partitionTableGiai202, row));
    EPC_TRY(fieldWriteChars7(cursor, bits, row->referenceDigits));
    return fieldWriteZeros(bits, restBits(*row));
}

EpcStatus layoutCpi96Read(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_CPI_96));
    EPC_TRY(fieldReadPartitionOpenReference(bits, text, partitionTableCpi96));
    EPC_TRY(textBufferPutChar(text, '.'));
    return fieldReadDecimal(bits, text, CPI_96_SERIAL_BITS);
}

EpcStatus layoutCpi96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHead(filter, bits, EPC_SCHEME_CPI_96));
    EPC_TRY(fieldWritePartitionOpenReference(cursor, bits, partitionTableCpi96));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return fieldWriteDecimal(cursor, bits, CPI_96_SERIAL_BITS);
}

EpcStatus layoutCpiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_CPI_VAR));
    const PartitionRow* row = nullptr;
    EPC_TRY(fieldReadCompanyPrefix(bits, text, partitionTableCpiVar, row));
    EPC_TRY(fieldReadChars6(bits, text, componentReferenceRule(*row)));
    EPC_TRY(textBufferPutChar(text, '.'));
    return fieldReadDecimal(bits, text, CPI_VAR_SERIAL_BITS);
}

// The "." before the serial is the terminator of the component reference. At the end of the text
// the serial is 0.
EpcStatus layoutCpiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHead(filter, bits, EPC_SCHEME_CPI_VAR));
    const PartitionRow* row = nullptr;
    EPC_TRY(fieldWriteCompanyPrefix(cursor, bits, partitionTableCpiVar, row));
    EPC_TRY(fieldWriteChars6(cursor, bits, componentReferenceRule(*row), '.'));
    return fieldWriteDecimal(cursor, bits, CPI_VAR_SERIAL_BITS);
}

} // namespace rosetag
