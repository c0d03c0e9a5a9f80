#include "schemes/field_number.h"

#include "core/long_decimal.h"

#include <algorithm>

namespace rosetag {

namespace {

// The largest count of digits such that every number of so many digits fits the width.
constexpr std::int32_t digitsOfWidth(std::int32_t width) {
    std::int32_t digits = 0;
    while (aiDigitBits(digits + 1) <= width) {
        ++digits;
    }
    return digits;
}
static_assert(digitsOfWidth(7) == 2);

constexpr std::uint64_t powerOfTen(std::int32_t exponent) {
    return powersOfTen[static_cast<std::size_t>(exponent)];
}

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

EpcStatus fieldReadSmallNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    const std::int32_t digits = std::max(digitsOfWidth(width), decimalDigitCount(value));
    return textBufferPutPadded(text, value, digits);
}

EpcStatus fieldWriteSmallNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width) {
    std::uint64_t value = 0;
    std::int32_t digits = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, value, &digits));
    if (digits > digitsOfWidth(width)) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return bitBufferWrite(bits, value, width);
}

EpcStatus fieldReadLeadingOneNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width) {
    std::uint64_t value = 0;
    EPC_TRY(bitBufferRead(bits, width, value));
    const std::int32_t digits = decimalDigitCount(value) - 1;
    const std::uint64_t leadingOne = powerOfTen(digits);
    if (digits < 1 || value - leadingOne >= leadingOne) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    return textBufferPutPadded(text, value - leadingOne, digits);
}

EpcStatus fieldWriteLeadingOneNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width) {
    std::uint64_t value = 0;
    std::int32_t digits = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, value, &digits));
    if (digits < 1) {
        return EPC_ERR_BAD_FORMAT;
    }
    if (digits >= MAX_NUMBER_DIGITS) {
        return EPC_ERR_OUT_OF_RANGE; // with the 1 in front it is no number of the library any more
    }
    return writeFitting(bits, powerOfTen(digits) + value, width);
}

} // namespace rosetag
