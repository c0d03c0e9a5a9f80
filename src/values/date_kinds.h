/*
 * Kinds of AI components that are dates and times. Years have two digits and no century.
 *
 * Source: EPC Tag Data Standard, sections 14.5.3 and 14.5.8 to 14.5.11.
 */
#ifndef ROSETAG_VALUES_DATE_KINDS_H
#define ROSETAG_VALUES_DATE_KINDS_H

#include "values/ai_kind.h"

#include <array>

namespace rosetag {

// Two digits of a date or a time.
struct DateField {
    std::int32_t bits;
    std::uint64_t least;
    std::uint64_t most;
};

// clang-format off
//                                      bits  least  most
inline constexpr DateField DATE_YEAR   = {7,  0,     99};
inline constexpr DateField DATE_MONTH  = {4,  1,     12};
inline constexpr DateField DATE_DAY    = {5,  0,     31}; // 0: no particular day of the month
inline constexpr DateField TIME_HOUR   = {5,  0,     23};
inline constexpr DateField TIME_MINUTE = {6,  0,     59};
inline constexpr DateField TIME_SECOND = {6,  0,     59};
// clang-format on

inline constexpr DateField timeFields[] = {TIME_HOUR, TIME_MINUTE, TIME_SECOND};

// The month is 1 to 12. Without a century every year divisible by four is a leap year, even 00.
constexpr std::uint64_t daysOfMonth(std::uint64_t year, std::uint64_t month) {
    constexpr std::uint8_t days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && year % 4 == 0 ? 29 : days[month - 1];
}

// Before a date range: 1 if a second date follows.
constexpr std::int32_t DATE_PAIR_BITS = 1;

// Before a date of variable precision: the count of time fields less one, or that there are none.
constexpr std::int32_t DATE_PRECISION_BITS = 2;
constexpr std::uint64_t DATE_PRECISION_DAY = 3;

// Before the date of a DSGTIN+: which date it is.
constexpr std::int32_t DATE_CODE_BITS = 4;

struct DateKeyRow {
    std::uint32_t dateCode;
    std::string_view ai;
};

// In order of priority: the first one of a list is the date of its key. The date code is the index.
//
// Source: EPC Tag Data Standard, section 14.5.3 (prioritised date).
// clang-format off
inline constexpr std::array<DateKeyRow, 7> dateKeyTable = {{
    // code  AI
    {0,      "11"},   // production
    {1,      "13"},   // packaging
    {2,      "15"},   // best before
    {3,      "16"},   // sell by
    {4,      "17"},   // expiration
    {5,      "7006"}, // first freeze
    {6,      "7007"}, // harvest
}};
// clang-format on

// The AIs of the rows.
inline constexpr auto dateKeyAis = []() {
    std::array<const AiDefinition*, dateKeyTable.size()> ais{};
    for (const DateKeyRow& row : dateKeyTable) {
        ais[row.dateCode] = &aiCatalogue[aiSlotOf(row.ai)];
    }
    return ais;
}();

// YYMMDD.
EpcStatus aiEncodeDate(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDate(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD after the date code of the AI, which is one of dateKeyAis. The decoder says which one.
EpcStatus aiEncodeDateCoded(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateCoded(BitBuffer& bits, TextBuffer& text, const AiDefinition*& ai);

// YYMMDDHHMM.
EpcStatus aiEncodeDateTime(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateTime(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD or YYMMDDYYMMDD.
EpcStatus aiEncodeDateRange(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateRange(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD, alone or followed by HH, HHMM or HHMMSS.
EpcStatus aiEncodeDateTimeVar(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateTimeVar(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
