#include "core/text_cursor.h"

#include "core/char_scan.h"
#include "core/digit_words.h"
#include "core/hex_digits.h"

#include <algorithm>

namespace rosetag {

namespace {

// How long a run of digits may be, and whether it ends there even if more digits follow.
struct DigitLimit {
    std::int32_t most;
    bool stops;
};

constexpr DigitLimit digitLimit(std::int32_t maxDigits, std::int32_t stopAfter) {
    const bool stops = stopAfter > 0 && stopAfter <= maxDigits;
    return {stops ? stopAfter : maxDigits, stops};
}

// Skips a run of count digits. The status says what is wrong with it.
EpcStatus endDigitRun(TextCursor& cursor, LeadingZeros leadingZeros, DigitLimit limit,
                      std::int32_t count) {
    if (count > 1 && *cursor.current == '0' && leadingZeros == LeadingZeros::REFUSE) {
        ++cursor.current;
        return EPC_ERR_BAD_FORMAT;
    }
    cursor.current += count;
    const bool isCut = count == limit.most && !limit.stops && charIsDigit(*cursor.current);
    return isCut ? EPC_ERR_OUT_OF_RANGE : EPC_OK;
}

struct DigitGroup {
    std::uint64_t value;
    std::int32_t count; // of digits before the first other character
};

// Up to eight digits at once, which halves the time of a number of seven digits.
DigitGroup readDigitGroup(const char* characters) {
    const std::uint64_t word = loadCharacters(characters) ^ DIGIT_CHARACTERS;
    const auto count = static_cast<std::int32_t>(countBeforeMark(nonDigits(word)));
    return {count != 0 ? digitWordValue(word << (8 * (WORD_DIGITS - count))) : 0, count};
}

// Copies until isDone, percent escapes resolved.
template <typename IsDone>
EpcStatus readEscaped(TextCursor& cursor, std::int32_t capacity, char* out, std::int32_t& outCount,
                      IsDone isDone) {
    std::int32_t count = 0;
    while (!isDone()) {
        if (count >= capacity - 1) {
            return EPC_ERR_TOO_LONG;
        }
        EPC_TRY(textCursorReadEscapedChar(cursor, out[count]));
        ++count;
    }
    out[count] = '\0';
    outCount = count;
    return EPC_OK;
}

} // namespace

EpcStatus textCursorReadUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                              std::string_view& out) {
    const char* const first = cursor.current;
    // Past the span, where digits may have led, only a NUL is an end: what is left is then
    // negative, and as a size exceeds any capacity.
    const auto left = static_cast<std::size_t>(textCursorLeft(cursor));
    const char* const last = first + std::min(left, static_cast<std::size_t>(capacity - 1));
    const char* current = first;
    while (current != last && *current != delimiter && *current != '\0') {
        ++current;
    }
    cursor.current = current;
    // The character after the span counts as a delimiter too, so this is tested first.
    if (*current != delimiter) {
        return textCursorAtEnd(cursor) ? EPC_ERR_TRUNCATED : EPC_ERR_TOO_LONG;
    }
    out = {first, static_cast<std::size_t>(current - first)};
    return EPC_OK;
}

EpcStatus textCursorReadEscape(TextCursor& cursor, char& out) {
    ++cursor.current;
    char digits[2] = {};
    for (char& digit : digits) {
        if (textCursorAtEnd(cursor)) {
            return EPC_ERR_TRUNCATED;
        }
        digit = *cursor.current++;
    }
    const std::int32_t value = hexPairValue(digits[0], digits[1]);
    if (value < 0) {
        return EPC_ERR_BAD_CHARACTER;
    }
    out = static_cast<char>(static_cast<unsigned char>(value));
    return EPC_OK;
}

EpcStatus textCursorReadEscapedUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                                     char* out, std::int32_t& outCount) {
    return readEscaped(cursor, capacity, out, outCount,
                       [&] { return *cursor.current == delimiter; });
}

EpcStatus textCursorReadEscapedToEnd(TextCursor& cursor, std::int32_t capacity, char* out,
                                     std::int32_t& outCount) {
    return readEscaped(cursor, capacity, out, outCount, [&] { return textCursorAtEnd(cursor); });
}

EpcStatus textCursorReadDigits(TextCursor& cursor, std::int32_t maxDigits, std::string_view& out,
                               std::int32_t stopAfter) {
    const DigitLimit limit = digitLimit(maxDigits, stopAfter);
    const char* const digits = cursor.current;
    std::int32_t count = 0;
    while (count < limit.most && charIsDigit(digits[count])) {
        ++count;
    }
    EPC_TRY(endDigitRun(cursor, LeadingZeros::ALLOW, limit, count));
    out = {digits, static_cast<std::size_t>(count)};
    return EPC_OK;
}

EpcStatus textCursorReadNumber(TextCursor& cursor, LeadingZeros leadingZeros,
                               std::uint64_t& outValue, std::int32_t* outCount,
                               std::int32_t stopAfter) {
    const DigitLimit limit = digitLimit(MAX_NUMBER_DIGITS, stopAfter);
    const char* const digits = cursor.current;
    DigitGroup group = {0, 0};
    if (limit.most >= WORD_DIGITS && textCursorLeft(cursor) >= WORD_DIGITS) {
        group = readDigitGroup(digits);
    }
    auto [value, count] = group;
    while (count < limit.most && charIsDigit(digits[count])) {
        value = value * 10 + static_cast<std::uint64_t>(digits[count++] - '0');
    }
    EPC_TRY(endDigitRun(cursor, leadingZeros, limit, count));
    outValue = value;
    if (outCount != nullptr) {
        *outCount = count;
    }
    return EPC_OK;
}

std::uint32_t textCursorCountTo(const TextCursor& cursor, char stop) {
    const char* const last = textCursorEnd(cursor);
    if (cursor.current > last) { // past the span, where digits may have led
        const char* const end = cursor.current + std::strlen(cursor.current);
        return static_cast<std::uint32_t>(std::find(cursor.current, end, stop) - cursor.current);
    }
    return static_cast<std::uint32_t>(findStop(cursor.current, last, stop) - cursor.current);
}

EpcStatus textCursorSlice(TextCursor& cursor, const TextCursor& source, std::uint32_t count) {
    if (textCursorLeft(source) < static_cast<std::int64_t>(count)) {
        return EPC_ERR_NO_ROOM;
    }
    cursor = {source.current, source.current, count};
    return EPC_OK;
}

} // namespace rosetag
