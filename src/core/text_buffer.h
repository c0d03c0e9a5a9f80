/*
 * Writes text into bounded storage: the library's printer.
 *
 * The last byte of the storage is kept for the NUL, which ends the text after every operation,
 * failed ones included. An operation that appends one item (a text, a number) writes all of it or
 * nothing; those that append character by character leave what fitted. No room is EPC_ERR_NO_ROOM.
 */
#ifndef ROSETAG_CORE_TEXT_BUFFER_H
#define ROSETAG_CORE_TEXT_BUFFER_H

#include "core/char_class.h"
#include "core/digit_words.h"
#include "core/status.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rosetag {

struct TextBuffer {
    char* begin;
    std::int32_t capacity; // in bytes, the NUL included
    char* writePointer;    // where the next character goes
};

// An empty text over the storage, whose first byte is written whatever the capacity.
inline TextBuffer textBufferOver(char* storage, std::int32_t capacity) {
    *storage = '\0';
    return {storage, capacity, storage};
}

template <std::size_t size>
TextBuffer textBufferOver(char (&storage)[size]) {
    return textBufferOver(storage, static_cast<std::int32_t>(size));
}

// Characters in the text.
inline std::int32_t textBufferLength(const TextBuffer& buffer) {
    return static_cast<std::int32_t>(buffer.writePointer - buffer.begin);
}

// Characters that can still be added.
inline std::int32_t textBufferRoom(const TextBuffer& buffer) {
    return buffer.capacity > 0 ? buffer.capacity - 1 - textBufferLength(buffer) : 0;
}

inline std::string_view textBufferView(const TextBuffer& buffer) {
    return {buffer.begin, static_cast<std::size_t>(textBufferLength(buffer))};
}

inline EpcStatus textBufferPutChar(TextBuffer& buffer, char character) {
    if (textBufferRoom(buffer) < 1) {
        return EPC_ERR_NO_ROOM;
    }
    *buffer.writePointer++ = character;
    *buffer.writePointer = '\0';
    return EPC_OK;
}

inline EpcStatus textBufferPutString(TextBuffer& buffer, std::string_view text) {
    if (text.size() > static_cast<std::size_t>(textBufferRoom(buffer))) {
        return EPC_ERR_NO_ROOM;
    }
    buffer.writePointer = std::copy(text.begin(), text.end(), buffer.writePointer);
    *buffer.writePointer = '\0';
    return EPC_OK;
}

// Appends base[start] to base[end - 1]; nothing unless start is before end.
inline EpcStatus textBufferPutRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                    std::uint32_t end) {
    return start < end ? textBufferPutString(buffer, {base + start, end - start}) : EPC_OK;
}

EpcStatus textBufferPutDecimal(TextBuffer& buffer, std::uint64_t value);

// Zero-padded to exactly width characters; a number of more digits is EPC_ERR_OUT_OF_RANGE. The
// number 0 in a width of 0 is the empty text.
EpcStatus textBufferPutPadded(TextBuffer& buffer, std::uint64_t value, std::int32_t width);

// The same in a width of 2.
inline EpcStatus textBufferPutTwoDigits(TextBuffer& buffer, std::uint64_t value) {
    if (value > 99) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    if (textBufferRoom(buffer) < 2) {
        return EPC_ERR_NO_ROOM;
    }
    buffer.writePointer[0] = static_cast<char>('0' + value / 10);
    buffer.writePointer[1] = static_cast<char>('0' + value % 10);
    buffer.writePointer += 2;
    *buffer.writePointer = '\0';
    return EPC_OK;
}

// Two upper-case digits a byte, digit by digit.
EpcStatus textBufferPutHex(TextBuffer& buffer, const std::uint8_t* bytes, std::int32_t count);

// Appends "%" and two upper-case hexadecimal digits.
EpcStatus textBufferPutEscape(TextBuffer& buffer, char character);

// Appends character by character, those of the class as escapes.
inline EpcStatus textBufferPutEscapedChar(TextBuffer& buffer, char character) {
    return charIsOfClass(character, CHAR_CLASS_URI_ESCAPE) ? textBufferPutEscape(buffer, character)
                                                           : textBufferPutChar(buffer, character);
}
EpcStatus textBufferPutEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                    std::uint32_t end);
EpcStatus textBufferPutLinkEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                        std::uint32_t end);

} // namespace rosetag

#endif
