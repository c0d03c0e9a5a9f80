#include "values/small_kinds.h"

namespace rosetag {

EpcStatus aiEncodeFlag(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    if (textCursorLeft(cursor) != 1) {
        return EPC_ERR_TOO_LONG;
    }
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    const char flag = *cursor.current++;
    if (flag != '0' && flag != '1') {
        return EPC_ERR_BAD_CHARACTER;
    }
    return bitBufferWrite(out, flag == '1' ? 1 : 0, 1);
}

EpcStatus aiDecodeFlag(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    std::uint64_t flag = 0;
    EPC_TRY(bitBufferRead(bits, 1, flag));
    return textBufferPutChar(text, flag == 1 ? '1' : '0');
}

EpcStatus aiEncodeLetters(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    if (textCursorLeft(cursor) > LETTER_COUNT) {
        return EPC_ERR_TOO_LONG;
    }
    const char* const letters = cursor.current;
    if (textCursorCountTo(cursor, '\0') < LETTER_COUNT) {
        return EPC_ERR_TRUNCATED;
    }
    for (; !textCursorAtEnd(cursor); ++cursor.current) {
        if (*cursor.current < 'A' || *cursor.current > 'Z') {
            return EPC_ERR_BAD_FORMAT;
        }
    }
    for (const char* letter = letters; letter != cursor.current; ++letter) {
        EPC_TRY(bitBufferWrite(out, static_cast<std::uint64_t>(*letter - 'A'), LETTER_BITS));
    }
    return EPC_OK;
}

EpcStatus aiDecodeLetters(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    for (std::int32_t i = 0; i < LETTER_COUNT; ++i) {
        std::uint64_t letter = 0;
        EPC_TRY(bitBufferRead(bits, LETTER_BITS, letter));
        if (letter > 'Z' - 'A') {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(textBufferPutChar(text, static_cast<char>('A' + letter)));
    }
    return EPC_OK;
}

EpcStatus aiEncodeSign(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    if (textCursorLeft(cursor) > 1) {
        return EPC_ERR_TOO_LONG;
    }
    if (textCursorAtEnd(cursor)) {
        return bitBufferWrite(out, 0, 1);
    }
    if (*cursor.current++ != '-') {
        return EPC_ERR_BAD_FORMAT;
    }
    return bitBufferWrite(out, 1, 1);
}

EpcStatus aiDecodeSign(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    std::uint64_t sign = 0;
    if (bitBufferGet(bits, 1, sign) != 0) {
        return EPC_OK; // the bits may end before the sign
    }
    return sign == 1 ? textBufferPutChar(text, '-') : EPC_OK;
}

} // namespace rosetag
