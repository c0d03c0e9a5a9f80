#include "values/date_kinds.h"

#include <iterator>

namespace rosetag {

namespace {

constexpr std::int32_t DATE_CODE_BITS = 4;
constexpr std::int32_t YEAR_BITS = 7;
constexpr std::int32_t MONTH_BITS = 4;
constexpr std::int32_t DAY_BITS = 5;
constexpr std::int32_t PRECISION_BITS = 2;

constexpr std::ptrdiff_t DATE_LENGTH = 6;
constexpr std::ptrdiff_t DATE_TIME_LENGTH = 10;
constexpr std::ptrdiff_t DATE_PAIR_LENGTH = 2 * DATE_LENGTH;
constexpr std::ptrdiff_t MOST_PRECISE_LENGTH = DATE_LENGTH + 6;

// A precision below this one is the count of time fields less one.
constexpr std::uint64_t PRECISION_DATE_ONLY = 3;

struct AiDate {
    std::uint64_t year;
    std::uint64_t month;
    std::uint64_t day;
};

struct TimeField {
    std::int32_t bits;
    std::uint64_t largest;
};

constexpr TimeField timeFields[] = {
    {5, 23}, // hour
    {6, 59}, // minute
    {6, 59}, // second
};
constexpr std::size_t MAX_TIME_FIELDS = std::size(timeFields);

struct AiTime {
    std::uint64_t fields[MAX_TIME_FIELDS];
    std::size_t count; // how many of them the text has
};

// A date code is the index of its row.
constexpr bool dateCodesAreIndexes() {
    for (std::size_t i = 0; i < dateKeyTable.size(); ++i) {
        if (dateKeyTable[i].dateCode != i) {
            return false;
        }
    }
    return true;
}

static_assert(dateCodesAreIndexes());

bool monthIsKnown(std::uint64_t month) {
    return month >= 1 && month <= 12;
}

// There is no lower limit: day 00 stands for a date without a day.
bool dayIsInMonth(const AiDate& date) {
    constexpr std::uint8_t daysOfMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeapDay = date.month == 2 && date.year % 4 == 0 && date.day == 29;
    return isLeapDay || date.day <= daysOfMonth[date.month - 1];
}

EpcStatus parseTwoDigits(TextCursor& cursor, EpcStatus otherwise, std::uint64_t& number) {
    std::int32_t count = 0;
    EPC_TRY(textCursorReadNumber(cursor, LeadingZeros::ALLOW, number, &count, 2));
    return count == 2 ? EPC_OK : otherwise;
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
    EPC_TRY(bitBufferWrite(out, date.year, YEAR_BITS));
    EPC_TRY(bitBufferWrite(out, date.month, MONTH_BITS));
    return bitBufferWrite(out, date.day, DAY_BITS);
}

EpcStatus decodeDate(BitBuffer& bits, TextBuffer& text) {
    AiDate date{};
    EPC_TRY(bitBufferRead(bits, YEAR_BITS, date.year));
    EPC_TRY(textBufferPutPadded(text, date.year, 2));
    EPC_TRY(bitBufferRead(bits, MONTH_BITS, date.month));
    if (!monthIsKnown(date.month)) {
        return EPC_ERR_BAD_FORMAT;
    }
    EPC_TRY(textBufferPutPadded(text, date.month, 2));
    EPC_TRY(bitBufferRead(bits, DAY_BITS, date.day));
    EPC_TRY(textBufferPutPadded(text, date.day, 2));
    return dayIsInMonth(date) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

// Reads hour, minute and second, as many as stand before the end.
EpcStatus aiParseTime(TextCursor& cursor, AiTime& time) {
    if (textCursorLeft(cursor) < 2) {
        return EPC_ERR_TRUNCATED;
    }
    time.count = 0;
    do {
        std::uint64_t& field = time.fields[time.count];
        EPC_TRY(parseTwoDigits(cursor, EPC_ERR_BAD_FORMAT, field));
        if (field > timeFields[time.count].largest) {
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
        if (field > timeFields[i].largest) {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(textBufferPutPadded(text, field, 2));
    }
    return EPC_OK;
}

const DateKeyRow* dateKeyFind(const AiDefinition& ai) {
    for (const DateKeyRow& row : dateKeyTable) {
        if (aiCodesAreEqual(row.ai, ai.code)) {
            return &row;
        }
    }
    return nullptr;
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
    const DateKeyRow* const key = dateKeyFind(field.ai);
    if (key == nullptr) {
        return EPC_ERR_BAD_FORMAT;
    }
    EPC_TRY(bitBufferWrite(out, key->dateCode, DATE_CODE_BITS));
    return putDate(out, date);
}

EpcStatus aiDecodeDateCoded(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    const DateKeyRow* key = nullptr;
    return aiDecodeDateWithKey(bits, text, key);
}

EpcStatus aiDecodeDateWithKey(BitBuffer& bits, TextBuffer& text, const DateKeyRow*& key) {
    std::uint64_t dateCode = 0;
    EPC_TRY(bitBufferRead(bits, DATE_CODE_BITS, dateCode));
    if (dateCode >= dateKeyTable.size()) {
        return EPC_ERR_BAD_FORMAT;
    }
    key = dateKeyTable.data() + dateCode;
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
    EPC_TRY(bitBufferWrite(out, isPair ? 1 : 0, 1));
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
    EPC_TRY(bitBufferRead(bits, 1, isPair));
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
    const std::uint64_t precision = time.count == 0 ? PRECISION_DATE_ONLY : time.count - 1;
    EPC_TRY(bitBufferWrite(out, precision, PRECISION_BITS));
    EPC_TRY(putDate(out, date));
    return putTime(out, time);
}

EpcStatus aiDecodeDateTimeVar(BitBuffer& bits, TextBuffer& text, const AiComponent&) {
    std::uint64_t precision = 0;
    EPC_TRY(bitBufferRead(bits, PRECISION_BITS, precision));
    EPC_TRY(decodeDate(bits, text));
    return precision == PRECISION_DATE_ONLY ? EPC_OK : aiDecodeTime(bits, text, precision + 1);
}

} // namespace rosetag
