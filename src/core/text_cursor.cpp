#include "core/text_cursor.h"

#include <algorithm>

namespace {

// The run of digits that both forms read. maxDigits is the limit, stopAfter where the run ends by
// itself.
EpcStatus sliceDigitRun(TextCursor& cursor, LeadingZeros leadingZeros, std::int32_t maxDigits,
                        std::int32_t stopAfter, std::string_view& run) {
    const bool stops = stopAfter > 0 && stopAfter <= maxDigits;
    const std::int32_t most = stops ? stopAfter : maxDigits;
    const char* const first = cursor.current;
    std::int32_t count = 0;
    while (count < most && charIsDigit(first[count])) {
        ++count;
    }
    if (count > 1 && *first == '0' && leadingZeros == LeadingZeros::REFUSE) {
        cursor.current = first + 1;
        return EPC_ERR_BAD_FORMAT;
    }
    cursor.current = first + count;
    if (count == most && !stops && charIsDigit(*cursor.current)) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    run = {first, static_cast<std::size_t>(count)};
    return EPC_OK;
}

} // namespace

EpcStatus textCursorExpect(TextCursor& cursor, char literal) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    if (*cursor.current != literal) {
        return EPC_ERR_BAD_FORMAT;
    }
    ++cursor.current;
    return EPC_OK;
}

EpcStatus textCursorExpect(TextCursor& cursor, std::string_view literal) {
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

EpcStatus textCursorSliceUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                               std::string_view& out) {
    const char* const first = cursor.current;
    while (*cursor.current != delimiter) {
        if (textCursorAtEnd(cursor)) {
            return EPC_ERR_TRUNCATED;
        }
        if (cursor.current - first >= capacity - 1) {
            return EPC_ERR_TOO_LONG;
        }
        ++cursor.current;
    }
    out = {first, static_cast<std::size_t>(cursor.current - first)};
    return EPC_OK;
}

EpcStatus textCursorReadUntil(TextCursor& cursor, char delimiter, std::int32_t capacity, char* out,
                              std::int32_t& outCount) {
    std::string_view slice;
    EPC_TRY(textCursorSliceUntil(cursor, delimiter, capacity, slice));
    std::copy(slice.begin(), slice.end(), out);
    out[slice.size()] = '\0';
    outCount = static_cast<std::int32_t>(slice.size());
    return EPC_OK;
}

EpcStatus textCursorReadEscapedChar(TextCursor& cursor, char& out) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    const char character = *cursor.current++;
    if (character != '%') {
        out = character;
        return EPC_OK;
    }
    char digits[2] = {};
    for (char& digit : digits) {
        if (textCursorAtEnd(cursor)) {
            return EPC_ERR_TRUNCATED;
        }
        digit = *cursor.current++;
    }
    const std::int32_t high = hexDigitValue(digits[0]);
    const std::int32_t low = hexDigitValue(digits[1]);
    if (high < 0 || low < 0) {
        return EPC_ERR_BAD_CHARACTER;
    }
    out = static_cast<char>(static_cast<unsigned char>(high * 16 + low));
    return EPC_OK;
}

EpcStatus textCursorReadEscapedUntil(TextCursor& cursor, char delimiter, std::int32_t capacity,
                                     char* out, std::int32_t& outCount) {
    std::int32_t count = 0;
    while (*cursor.current != delimiter) {
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

EpcStatus textCursorReadEscapedUntilAny(TextCursor& cursor, std::string_view stops,
                                        std::int32_t capacity, char* out, std::int32_t& outCount) {
    std::int32_t count = 0;
    while (!textCursorAtEnd(cursor) && stops.find(*cursor.current) == std::string_view::npos) {
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

EpcStatus textCursorReadDigits(TextCursor& cursor, LeadingZeros leadingZeros,
                               std::int32_t maxDigits, char* out, std::int32_t* outCount,
                               std::int32_t stopAfter) {
    std::string_view run;
    EPC_TRY(sliceDigitRun(cursor, leadingZeros, maxDigits, stopAfter, run));
    *std::copy(run.begin(), run.end(), out) = '\0';
    if (outCount != nullptr) {
        *outCount = static_cast<std::int32_t>(run.size());
    }
    return EPC_OK;
}

EpcStatus textCursorReadNumber(TextCursor& cursor, LeadingZeros leadingZeros,
                               std::uint64_t& outValue, std::int32_t* outCount,
                               std::int32_t stopAfter) {
    std::string_view run;
    EPC_TRY(sliceDigitRun(cursor, leadingZeros, MAX_NUMBER_DIGITS, stopAfter, run));
    std::uint64_t value = 0;
    for (const char digit : run) {
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    outValue = value;
    if (outCount != nullptr) {
        *outCount = static_cast<std::int32_t>(run.size());
    }
    return EPC_OK;
}

std::uint32_t textCursorCountTo(const TextCursor& cursor, char stop) {
    TextCursor ahead = cursor;
    while (!textCursorAtEnd(ahead) && *ahead.current != stop) {
        ++ahead.current;
    }
    return static_cast<std::uint32_t>(ahead.current - cursor.current);
}

EpcStatus textCursorSlice(TextCursor& cursor, const TextCursor& source, std::uint32_t count) {
    if (textCursorLeft(source) < static_cast<std::int64_t>(count)) {
        return EPC_ERR_NO_ROOM;
    }
    cursor = {source.current, source.current, count};
    return EPC_OK;
}
