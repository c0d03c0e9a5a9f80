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

struct DateKeyRow {
    std::uint32_t dateCode;    // the 4 bits in front of the date
    std::string_view dateName; // what the date tells, for the reader of the table
    char ai[AI_CODE_SIZE];
};

// The dates that a DSGTIN+ may carry, those of a higher priority first.
//
// Source: EPC Tag Data Standard, section 14.5.3 (prioritised date).
// clang-format off
inline constexpr std::array<DateKeyRow, 7> dateKeyTable = {{
    // code  name               AI
    {0,      "prodDate",        "11"},
    {1,      "packDate",        "13"},
    {2,      "bestBeforeDate",  "15"},
    {3,      "sellByDate",      "16"},
    {4,      "expDate",         "17"},
    {5,      "firstFreezeDate", "7006"},
    {6,      "firstFreezeDate", "7007"},
}};
// clang-format on

// YYMMDD.
EpcStatus aiEncodeDate(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDate(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD behind the date code of its AI. The last decoder tells the AI.
EpcStatus aiEncodeDateCoded(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateCoded(BitBuffer& bits, TextBuffer& text, const AiComponent& component);
EpcStatus aiDecodeDateWithKey(BitBuffer& bits, TextBuffer& text, const DateKeyRow*& key);

// YYMMDDHHMM.
EpcStatus aiEncodeDateTime(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateTime(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD or YYMMDDYYMMDD.
EpcStatus aiEncodeDateRange(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateRange(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// YYMMDD, and HH, HHMM, HHMMSS or nothing.
EpcStatus aiEncodeDateTimeVar(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDateTimeVar(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
