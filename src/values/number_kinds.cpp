#include "values/number_kinds.h"

#include "core/digit_run.h"
#include "core/long_decimal.h"

namespace rosetag {

namespace {

// A run of one digit too many is still read, and refused as a number.
constexpr std::int32_t MAX_READ_DIGITS = MAX_LONG_DIGITS + 1;

EpcStatus encodeLongNumeric(TextCursor& cursor, BitBuffer& out, const AiComponent& component) {
    std::string_view digits;
    EPC_TRY(textCursorReadDigits(cursor, MAX_READ_DIGITS, digits, component.digitCount));
    if (digits.size() < component.digitCount) {
        return EPC_ERR_BAD_CHARACTER;
    }
    return bitBufferPutLongDecimal(out, digits, aiDigitBits(component.digitCount));
}

EpcStatus encodeLongInteger(TextCursor& cursor, BitBuffer& out) {
    std::string_view digits;
    EPC_TRY(textCursorReadDigits(cursor, MAX_READ_DIGITS, digits));
    if (!textCursorAtEnd(cursor)) {
        return EPC_ERR_BAD_CHARACTER;
    }
    const auto count = static_cast<std::int32_t>(digits.size());
    if (count > MAX_LONG_DIGITS) {
        return EPC_ERR_TOO_LONG;
    }
    return bitBufferPutLongDecimal(out, digits, aiDigitBits(count));
}

} // namespace

EpcStatus aiEncodeNumeric(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    const AiComponent& component = field.component;
    const std::ptrdiff_t length = textCursorLeft(cursor);
    if (length != component.digitCount) {
        return length > component.digitCount ? EPC_ERR_TOO_LONG : EPC_ERR_TRUNCATED;
    }
    if (component.digitCount > MAX_NUMBER_DIGITS) {
        return encodeLongNumeric(cursor, out, component);
    }
    std::uint64_t number = 0;
    std::int32_t count = 0;
    EPC_TRY(
        textCursorReadNumber(cursor, LeadingZeros::ALLOW, number, &count, component.digitCount));
    if (count < component.digitCount) {
        return EPC_ERR_BAD_CHARACTER;
    }
    return bitBufferWrite(out, number, aiDigitBits(component.digitCount));
}

EpcStatus aiDecodeNumeric(BitBuffer& bits, TextBuffer& text, const AiComponent& component) {
    return aiDecodeInteger(bits, text, component.digitCount);
}

EpcStatus aiEncodeDigits(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    if (textCursorLeft(cursor) < field.component.digitCount) {
        return EPC_ERR_TRUNCATED;
    }
    return digitRunPut(out, {cursor.current, field.component.digitCount});
}

EpcStatus aiDecodeDigits(BitBuffer& bits, TextBuffer& text, const AiComponent& component) {
    return digitRunGet(bits, text, component.digitCount);
}

EpcStatus aiEncodeVarNumeric(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    const auto length = static_cast<std::uint64_t>(textCursorLeft(cursor));
    if (!fitsBits(length, field.component.lengthIndicatorBits)) {
        return EPC_ERR_TOO_LONG;
    }
    EPC_TRY(bitBufferWrite(out, length, field.component.lengthIndicatorBits));
    return aiEncodeInteger(cursor, out);
}

EpcStatus aiDecodeVarNumeric(BitBuffer& bits, TextBuffer& text, const AiComponent& component) {
    std::uint64_t digitCount = 0;
    EPC_TRY(bitBufferRead(bits, component.lengthIndicatorBits, digitCount));
    return aiDecodeInteger(bits, text, static_cast<std::int32_t>(digitCount));
}

EpcStatus aiEncodeInteger(TextCursor& cursor, BitBuffer& out) {
    if (textCursorLeft(cursor) > MAX_NUMBER_DIGITS) {
        return encodeLongInteger(cursor, out);
    }
    std::uint64_t number = 0;
    std::int32_t count = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, number, &count));
    if (!textCursorAtEnd(cursor)) {
        return EPC_ERR_BAD_CHARACTER;
    }
    return bitBufferWrite(out, number, aiDigitBits(count));
}

EpcStatus aiDecodeInteger(BitBuffer& bits, TextBuffer& text, std::int32_t digitCount) {
    if (digitCount > MAX_LONG_DIGITS) {
        return EPC_ERR_BAD_FORMAT;
    }
    const std::int32_t bitWidth = aiDigitBits(digitCount);
    if (digitCount > MAX_NUMBER_DIGITS) {
        return bitBufferGetLongDecimal(text, bits, bitWidth, digitCount);
    }
    std::uint64_t number = 0;
    EPC_TRY(bitBufferRead(bits, bitWidth, number));
    return textBufferPutPadded(text, number, digitCount);
}

} // namespace rosetag
