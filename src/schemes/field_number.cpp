#include "schemes/field_number.h"

#include "core/digit_words.h"

#include <algorithm>

namespace rosetag {

namespace {

EpcStatus writeFitting(BitBuffer& bits, std::uint64_t value, std::int32_t width) {
    return fitsBits(value, width) ? bitBufferWrite(bits, value, width) : EPC_ERR_OUT_OF_RANGE;
}

} // namespace

EpcStatus fieldReadZeros(BitBuffer& bits, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    return value == 0 ? EPC_OK : EPC_ERR_OUT_OF_RANGE;
}

EpcStatus fieldWriteZeros(BitBuffer& bits, std::int32_t width) {
    return bitBufferWrite(bits, 0, width);
}

EpcStatus fieldReadDecimal(BitBuffer& bits, TextBuffer& text, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    return textBufferPutDecimal(text, value);
}

EpcStatus fieldWriteDecimal(TextCursor& cursor, BitBuffer& bits, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::REFUSE, value));
    return writeFitting(bits, value, width);
}

EpcStatus fieldReadPaddedNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width,
                                std::int32_t digits) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    return textBufferPutPadded(text, value, std::max(digits, decimalDigitCount(value)));
}

EpcStatus fieldWritePaddedNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width,
                                 std::int32_t digits) {
    std::uint64_t value = 0;
    std::int32_t count = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, value, &count));
    if (count > digits) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return bitBufferWrite(bits, value, width);
}

EpcStatus fieldReadNumberAfterOne(BitBuffer& bits, TextBuffer& text, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    const std::int32_t digits = decimalDigitCount(value) - 1;
    const std::uint64_t leadingOne = powerOfTen(digits);
    if (digits < 1 || value - leadingOne >= leadingOne) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return textBufferPutPadded(text, value - leadingOne, digits);
}

EpcStatus fieldWriteNumberAfterOne(TextCursor& cursor, BitBuffer& bits, std::int32_t width) {
    std::uint64_t value = 0;
    std::int32_t digits = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, value, &digits));
    if (digits < 1) {
        return EPC_ERR_BAD_FORMAT;
    }
    if (digits >= MAX_NUMBER_DIGITS) {
        return EPC_ERR_OUT_OF_RANGE; // with the 1 it would exceed the 19 digits of a number
    }
    return writeFitting(bits, powerOfTen(digits) + value, width);
}

} // namespace rosetag
