#include "values/date_kinds.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::ptrdiff_t DATE_LENGTH = 6;
constexpr std::ptrdiff_t DATE_TIME_LENGTH = DATE_LENGTH + 4;
constexpr std::ptrdiff_t DATE_PAIR_LENGTH = 2 * DATE_LENGTH;
constexpr std::size_t MAX_TIME_FIELDS = std::size(timeFields);
constexpr std::ptrdiff_t MOST_PRECISE_LENGTH = DATE_LENGTH + 2 * MAX_TIME_FIELDS;

struct AiDate {
    std::uint64_t year;
    std::uint64_t month;
    std::uint64_t day;
};

struct AiTime {
    std::uint64_t fields[MAX_TIME_FIELDS];
    std::size_t count; // of those in the text
};

static_assert(
    []() {
        for (std::size_t i = 0; i < dateKeyTable.size(); ++i) {
            if (dateKeyTable[i].dateCode != i) {
                return false;
            }
        }
        return true;
    }(),
    "a date code is the index of its row");

bool monthIsKnown(std::uint64_t month) {
    return month >= DATE_MONTH.least && month <= DATE_MONTH.most;
}

bool dayIsInMonth(const AiDate& date) {
    return date.day <= daysOfMonth(date.year, date.month);
}

EpcStatus parseTwoDigits(TextCursor& cursor, EpcStatus otherwise, std::uint64_t& number) {
    const char* const digits = cursor.current;
    if (!charIsDigit(digits[0]) || !charIsDigit(digits[1])) {
        return otherwise;
    }
    number = static_cast<std::uint64_t>((digits[0] - '0') * 10 + digits[1] - '0');
    cursor.current += 2;
    return EPC_OK;
}

EpcStatus aiParseDate(TextCursor& cursor, AiDate& date) {
    if (textCursorLeft(cursor) < DATE_LENGTH) {
        return EPC_ERR_TRUNCATED;
    }
    EPC_TRY(parseTwoDigits(cursor, EPC_ERR_BAD_CHARACTER, date.year));
    EPC_TRY(parseTwoDigits(cursor, EPC_ERR_BAD_CHARACTER, date.month));
    if (!monthIsKnown(date.month)) {
        return EPC_ERR_BAD_FORMAT;
    }
    EPC_TRY(parseTwoDigits(cursor, EPC_ERR_BAD_CHARACTER, date.day));
    return dayIsInMonth(date) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

EpcStatus putDate(BitBuffer& out, const AiDate& date) {
    return bitBufferWriteFields(
        out,
        {{date.year, DATE_YEAR.bits}, {date.month, DATE_MONTH.bits}, {date.day, DATE_DAY.bits}});
}

EpcStatus decodeDate(BitBuffer& bits, TextBuffer& text) {
    AiDate date{};
    EPC_TRY(bitBufferRead(bits, DATE_YEAR.bits, date.year));
    EPC_TRY(textBufferPutTwoDigits(text, date.year));
    EPC_TRY(bitBufferRead(bits, DATE_MONTH.bits, date.month));
    if (!monthIsKnown(date.month)) {
        return EPC_ERR_BAD_FORMAT;
    }
    EPC_TRY(textBufferPutTwoDigits(text, date.month));
    EPC_TRY(bitBufferRead(bits, DATE_DAY.bits, date.day));
    EPC_TRY(textBufferPutTwoDigits(text, date.day));
    return dayIsInMonth(date) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

// Reads the hour, minute and second, as far as the text has them.
EpcStatus aiParseTime(TextCursor& cursor, AiTime& time) {
    if (textCursorLeft(cursor) < 2) {
        return EPC_ERR_TRUNCATED;
    }
    time.count = 0;
    do {
        std::uint64_t& field = time.fields[time.count];
        EPC_TRY(parseTwoDigits(cursor, EPC_ERR_BAD_FORMAT, field));
        if (field > timeFields[time.count].most) {
            return EPC_ERR_BAD_FORMAT;
        }
        ++time.count;
    } while (time.count < MAX_TIME_FIELDS && !textCursorAtEnd(cursor));
    return EPC_OK;
}

EpcStatus putTime(BitBuffer& out, const AiTime& time) {
    for (std::size_t i = 0; i < time.count; ++i) {
        EPC_TRY(bitBufferWrite(out, time.fields[i], timeFields[i].bits));
    }
    return EPC_OK;
}

EpcStatus aiDecodeTime(BitBuffer& bits, TextBuffer& text, std::uint64_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint64_t field = 0;
        EPC_TRY(bitBufferRead(bits, timeFields[i].bits, field));
        if (field > timeFields[i].most) {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(textBufferPutTwoDigits(text, field));
    }
    return EPC_OK;
}

} // namespace

EpcStatus aiEncodeDate(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    if (textCursorLeft(cursor) > DATE_LENGTH) {
        return EPC_ERR_TOO_LONG;
    }
    AiDate date{};
    EPC_TRY(aiParseDate(cursor, date));
    return putDate(out, date);
}

EpcStatus aiDecodeDate(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    return decodeDate(bits, text);
}

EpcStatus aiEncodeDateCoded(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field) {
    if (textCursorLeft(cursor) > DATE_LENGTH) {
        return EPC_ERR_TOO_LONG;
    }
    AiDate date{};
    EPC_TRY(aiParseDate(cursor, date));
    const auto* const key = std::find(dateKeyAis.begin(), dateKeyAis.end(), &field.ai);
    const auto dateCode = static_cast<std::uint64_t>(key - dateKeyAis.begin());
    EPC_TRY(bitBufferWrite(out, dateCode, DATE_CODE_BITS));
    return putDate(out, date);
}

EpcStatus aiDecodeDateCoded(BitBuffer& bits, TextBuffer& text, const AiDefinition*& ai) {
    std::uint64_t dateCode = 0;
    EPC_TRY(bitBufferRead(bits, DATE_CODE_BITS, dateCode));
    if (dateCode >= dateKeyAis.size()) {
        return EPC_ERR_BAD_FORMAT;
    }
    ai = dateKeyAis[static_cast<std::size_t>(dateCode)];
    return decodeDate(bits, text);
}

EpcStatus aiEncodeDateTime(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    if (textCursorLeft(cursor) > DATE_TIME_LENGTH) {
        return EPC_ERR_TOO_LONG;
    }
    AiDate date{};
    EPC_TRY(aiParseDate(cursor, date));
    AiTime time{};
    EPC_TRY(aiParseTime(cursor, time));
    if (time.count < 2) {
        return EPC_ERR_TRUNCATED;
    }
    EPC_TRY(putDate(out, date));
    return putTime(out, time);
}

EpcStatus aiDecodeDateTime(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    EPC_TRY(decodeDate(bits, text));
    return aiDecodeTime(bits, text, 2);
}

EpcStatus aiEncodeDateRange(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    const std::ptrdiff_t length = textCursorLeft(cursor);
    if (length != DATE_LENGTH && length != DATE_PAIR_LENGTH) {
        return EPC_ERR_BAD_FORMAT;
    }
    const bool isPair = length == DATE_PAIR_LENGTH;
    EPC_TRY(bitBufferWrite(out, isPair ? 1 : 0, DATE_PAIR_BITS));
    AiDate date{};
    EPC_TRY(aiParseDate(cursor, date));
    EPC_TRY(putDate(out, date));
    if (!isPair) {
        return EPC_OK;
    }
    EPC_TRY(aiParseDate(cursor, date));
    return putDate(out, date);
}

EpcStatus aiDecodeDateRange(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    std::uint64_t isPair = 0;
    EPC_TRY(bitBufferRead(bits, DATE_PAIR_BITS, isPair));
    EPC_TRY(decodeDate(bits, text));
    return isPair == 1 ? decodeDate(bits, text) : EPC_OK;
}

EpcStatus aiEncodeDateTimeVar(TextCursor& cursor, BitBuffer& out, const AiEncodeField&) {
    const std::ptrdiff_t length = textCursorLeft(cursor);
    if (length < DATE_LENGTH || length > MOST_PRECISE_LENGTH || length % 2 != 0) {
        return EPC_ERR_BAD_FORMAT;
    }
    AiDate date{};
    EPC_TRY(aiParseDate(cursor, date));
    AiTime time{};
    if (length > DATE_LENGTH) {
        EPC_TRY(aiParseTime(cursor, time));
    }
    const std::uint64_t precision = time.count == 0 ? DATE_PRECISION_DAY : time.count - 1;
    EPC_TRY(bitBufferWrite(out, precision, DATE_PRECISION_BITS));
    EPC_TRY(putDate(out, date));
    return putTime(out, time);
}

EpcStatus aiDecodeDateTimeVar(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    std::uint64_t precision = 0;
    EPC_TRY(bitBufferRead(bits, DATE_PRECISION_BITS, precision));
    EPC_TRY(decodeDate(bits, text));
    return precision == DATE_PRECISION_DAY ? EPC_OK : aiDecodeTime(bits, text, precision + 1);
}

} // namespace rosetag
