#include "values/text_kinds.h"

#include "core/digit_run.h"
#include "values/text_encoding.h"

#include <algorithm>

namespace rosetag {

namespace {

std::size_t countDigits(const TextCursor& cursor) {
    const std::string_view text = {cursor.current,
                                   static_cast<std::size_t>(textCursorLeft(cursor))};
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), charIsDigit) -
                                    text.begin());
}

} // namespace

EpcStatus aiEncodeText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    std::int32_t chosen = 0;
    EPC_TRY(aiChooseEncoding(cursor, chosen));
    const std::ptrdiff_t count = textCursorLeft(cursor);
    if (!fitsBits(static_cast<std::uint64_t>(count), field.component.lengthIndicatorBits)) {
        return EPC_ERR_TOO_LONG;
    }
    const std::int32_t encoding = field.encoding == AI_ENC_AUTO ? chosen : field.encoding;
    constexpr std::uint64_t indicatorMask = (1U << ENCODING_INDICATOR_BITS) - 1;
    EPC_TRY(bitBufferWriteFields(
        out, {{static_cast<std::uint64_t>(encoding) & indicatorMask, ENCODING_INDICATOR_BITS},
              {static_cast<std::uint64_t>(count), field.component.lengthIndicatorBits}}));
    return aiEncodePayload(cursor, out, encoding);
}

EpcStatus aiDecodeText(BitBuffer& bits, TextBuffer& text, const AiComponent& component) {
    std::uint64_t encoding = 0;
    EPC_TRY(bitBufferRead(bits, ENCODING_INDICATOR_BITS, encoding));
    std::uint64_t count = 0;
    EPC_TRY(bitBufferRead(bits, component.lengthIndicatorBits, count));
    return aiDecodePayload(bits, text, static_cast<std::int32_t>(encoding),
                           static_cast<std::int32_t>(count));
}

EpcStatus aiEncodeDigitsThenText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    const std::size_t digitCount = countDigits(cursor);
    EPC_TRY(digitRunPut(out, {cursor.current, digitCount}));
    cursor.current += digitCount;
    if (textCursorAtEnd(cursor)) {
        return bitBufferWrite(out, END_OF_DIGITS, DIGIT_BITS);
    }
    EPC_TRY(bitBufferWrite(out, SWITCH_TO_TEXT, DIGIT_BITS));
    return aiEncodeText(cursor, out, field);
}

EpcStatus aiDecodeDigitsThenText(BitBuffer& bits, TextBuffer& text, const AiComponent& component) {
    std::uint64_t digit = 0;
    EPC_TRY(bitBufferRead(bits, DIGIT_BITS, digit));
    while (digit <= 9) {
        EPC_TRY(textBufferPutChar(text, static_cast<char>('0' + digit)));
        EPC_TRY(bitBufferRead(bits, DIGIT_BITS, digit));
    }
    if (digit == END_OF_DIGITS) {
        return EPC_OK;
    }
    return digit == SWITCH_TO_TEXT ? aiDecodeText(bits, text, component) : EPC_ERR_BAD_FORMAT;
}

} // namespace rosetag
