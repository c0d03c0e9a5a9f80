#include "schemes/layout_non_gs1.h"

#include "schemes/field_cage_code.h"
#include "schemes/field_chars.h"
#include "schemes/field_number.h"

namespace rosetag {

namespace {

constexpr std::int32_t MANAGER_NUMBER_BITS = 28;
constexpr std::int32_t OBJECT_CLASS_BITS = 24;
constexpr std::int32_t GID_SERIAL_BITS = 36;
static_assert(fieldHeadBits(EPC_SCHEME_GID_96) + MANAGER_NUMBER_BITS + OBJECT_CLASS_BITS +
                  GID_SERIAL_BITS ==
              tagSchemeBits(EPC_SCHEME_GID_96));

constexpr std::int32_t USDOD_CHAR_BITS = 8;
constexpr std::int32_t USDOD_SERIAL_BITS = 36;
constexpr std::uint32_t USDOD_MAX_FILTER = 14; // 15 fits the field and is reserved
static_assert(fieldHeadBits(EPC_SCHEME_USDOD_96) + CAGE_CODE_CHARS * USDOD_CHAR_BITS +
                  USDOD_SERIAL_BITS ==
              tagSchemeBits(EPC_SCHEME_USDOD_96));

constexpr Chars6Rule partNumberRule = {
    .maxChars = 32, .allowEmpty = true, .hashRule = HashRule::HASH_NEVER};
constexpr Chars6Rule adiSerialRule = {
    .maxChars = 30, .allowEmpty = false, .hashRule = HashRule::HASH_FIRST_ONLY};

} // namespace

EpcStatus layoutGid96Read(BitBuffer& bits, TextBuffer& text, UriForm) {
    EPC_TRY(fieldReadDecimal(bits, text, MANAGER_NUMBER_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    EPC_TRY(fieldReadDecimal(bits, text, OBJECT_CLASS_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    return fieldReadDecimal(bits, text, GID_SERIAL_BITS);
}

EpcStatus layoutGid96Write(TextCursor& cursor, std::uint32_t, BitBuffer& bits) {
    EPC_TRY(fieldWriteHeader(bits, EPC_SCHEME_GID_96));
    EPC_TRY(fieldWriteDecimal(cursor, bits, MANAGER_NUMBER_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(fieldWriteDecimal(cursor, bits, OBJECT_CLASS_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return fieldWriteDecimal(cursor, bits, GID_SERIAL_BITS);
}

EpcStatus layoutUsdod96Read(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_USDOD_96));
    EPC_TRY(fieldReadCageCode(bits, text, USDOD_CHAR_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    return fieldReadDecimal(bits, text, USDOD_SERIAL_BITS);
}

EpcStatus layoutUsdod96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHeader(bits, EPC_SCHEME_USDOD_96));
    if (filter > USDOD_MAX_FILTER) {
        return EPC_ERR_FILTER_FIELD;
    }
    EPC_TRY(bitBufferWrite(bits, filter, fieldFilterBits(EPC_SCHEME_USDOD_96)));
    EPC_TRY(fieldWriteCageCode(cursor, bits, USDOD_CHAR_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return fieldWriteDecimal(cursor, bits, USDOD_SERIAL_BITS);
}

EpcStatus layoutAdiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form) {
    EPC_TRY(fieldReadFilter(bits, text, form, EPC_SCHEME_ADI_VAR));
    EPC_TRY(fieldReadCageCode(bits, text, CHAR6_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    EPC_TRY(fieldReadChars6(bits, text, partNumberRule));
    EPC_TRY(textBufferPutChar(text, '.'));
    return fieldReadChars6(bits, text, adiSerialRule);
}

// The "." before the serial is the terminator of the part number.
EpcStatus layoutAdiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(fieldWriteHead(filter, bits, EPC_SCHEME_ADI_VAR));
    EPC_TRY(fieldWriteCageCode(cursor, bits, CHAR6_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(fieldWriteChars6(cursor, bits, partNumberRule, '.'));
    return fieldWriteChars6(cursor, bits, adiSerialRule, '\0');
}

} // namespace rosetag
