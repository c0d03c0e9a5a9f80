/*
 * Reads text over a span: the library's lexer.
 *
 * The cursor is at its end at the length of its span or at a NUL. Every span lies in a text that
 * ends in a NUL, so the character at current can always be read: the readers of digits do not test
 * for the end, they stop at the character itself. No operation puts the cursor back after a
 * failure.
 */
#ifndef ROSETAG_CORE_TEXT_CURSOR_H
#define ROSETAG_CORE_TEXT_CURSOR_H

#include "core/char_class.h"
#include "core/status.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

namespace rosetag {

struct TextCursor {
    const char* begin;
    const char* current;
    std::uint32_t length; // of the span, in characters from begin
};

enum class LeadingZeros : std::uint8_t { REFUSE, ALLOW };

// A number in text has 19 digits at most, so that it always fits 64 bits.
constexpr std::int32_t MAX_NUMBER_DIGITS = std::numeric_limits<std::uint64_t>::digits10;

inline TextCursor textCursorOver(std::string_view text) {
    return {text.data(), text.data(), static_cast<std::uint32_t>(text.size())};
}

inline const char* textCursorEnd(const TextCursor& cursor) {
    return cursor.begin + cursor.length;
}

inline bool textCursorAtEnd(const TextCursor& cursor) {
    return cursor.current == textCursorEnd(cursor) || *cursor.current == '\0';
}

// Characters from current to the end of the span, even if a NUL comes before it. Negative if digits
// were read past that end.
inline std::ptrdiff_t textCursorLeft(const TextCursor& cursor) {
    return textCursorEnd(cursor) - cursor.current;
}

// Consumes the literal. EPC_ERR_TRUNCATED at the end, EPC_ERR_BAD_FORMAT at a character that
// differs; what matched before it stays consumed.
inline EpcStatus textCursorExpect(TextCursor& cursor, char literal) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    if (*cursor.current != literal) {
        return EPC_ERR_BAD_FORMAT;
    }
    ++cursor.current;
    return EPC_OK;
}
inline EpcStatus textCursorExpect(TextCursor& cursor, std::string_view literal) {
    if (static_cast<std::ptrdiff_t>(literal.size()) <= textCursorLeft(cursor) &&
        std::memcmp(cursor.current, literal.data(), literal.size()) == 0) {
        cursor.current += literal.size();
        return EPC_OK;
    }
    for (const char character : literal) {
        EPC_TRY(textCursorExpect(cursor, character));
    }
    return EPC_OK;
}

// Takes the text up to the delimiter, which stays unread: at most capacity - 1 characters, capacity
// being 1 at least. The end before it is EPC_ERR_TRUNCATED, a longer text EPC_ERR_TOO_LONG.
EpcStatus textCursorReadUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                              std::string_view& out);

// Reads a percent escape (%2F), whose "%" is at the cursor.
EpcStatus textCursorReadEscape(TextCursor& cursor, char& out);

// Reads one character; a percent escape is one.
inline EpcStatus textCursorReadEscapedChar(TextCursor& cursor, char& out) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    if (*cursor.current == '%') {
        return textCursorReadEscape(cursor, out);
    }
    out = *cursor.current++;
    return EPC_OK;
}

// Copies up to the delimiter into out of capacity characters with its NUL, percent escapes
// resolved, and gives their count. Only a raw delimiter ends the text; with the delimiter NUL it
// goes to the end. A lack of room is found before the end is.
EpcStatus textCursorReadEscapedUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                                     char* out, std::int32_t& outCount);

// The same up to the end.
EpcStatus textCursorReadEscapedToEnd(TextCursor& cursor, std::int32_t capacity, char* out,
                                     std::int32_t& outCount);

// Takes a run of up to maxDigits digits, which may be empty. A further digit is
// EPC_ERR_OUT_OF_RANGE. stopAfter ends the run at that many digits; 0 sets no end.
EpcStatus textCursorReadDigits(TextCursor& cursor, std::int32_t maxDigits, std::string_view& out,
                               std::int32_t stopAfter = 0);

// Reads such a run as a number of up to 19 digits. An empty run is the number 0.
EpcStatus textCursorReadNumber(TextCursor& cursor, LeadingZeros leadingZeros,
                               std::uint64_t& outValue, std::int32_t* outCount = nullptr,
                               std::int32_t stopAfter = 0);

// The same without count and stop, for a number that mostly has one digit, such as a filter: it
// saves 70 of the 1,150 instructions of a tag URI. The same test in the reader of all numbers would
// cost the others more than it saves here.
inline EpcStatus textCursorReadShortNumber(TextCursor& cursor, LeadingZeros leadingZeros,
                                           std::uint64_t& outValue) {
    const char* const digits = cursor.current;
    if (!charIsDigit(digits[0]) || charIsDigit(digits[1])) {
        return textCursorReadNumber(cursor, leadingZeros, outValue);
    }
    outValue = static_cast<std::uint64_t>(digits[0] - '0');
    ++cursor.current;
    return EPC_OK;
}

// Characters from current up to stop or the end. The cursor does not move.
std::uint32_t textCursorCountTo(const TextCursor& cursor, char stop);

// Lays a new cursor over the next count characters. EPC_ERR_NO_ROOM if the source has fewer.
EpcStatus textCursorSlice(TextCursor& cursor, const TextCursor& source, std::uint32_t count);

} // namespace rosetag

#endif
