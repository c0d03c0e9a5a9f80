/*
 * What the command knows of the GS1 Application Identifiers: the short title of each, and of what
 * parts its value is made on a tag.
 *
 * Source: GS1 General Specifications, section 3.2 (data titles); EPC Tag Data Standard, table F
 * (the bit form of each AI).
 */
#ifndef ROSETAG_TOOLKIT_WORDS_AI_DICTIONARY_H
#define ROSETAG_TOOLKIT_WORDS_AI_DICTIONARY_H

#include <rosetag/toolkit.hpp>

#include <span>
#include <string_view>

namespace rosetag {
inline namespace before {

enum class AiPartKind {
    NONE,
    NUMBER,           // size digits as one number
    DIGITS,           // size digits, four bits each
    DIGITS_THEN_TEXT, // digits of four bits, an end mark, or a switch mark and a text
    TEXT,             // encoding, length, up to size characters
    FLAG,
    DATE,
    DATE_TIME,
    DATE_RANGE,
    DATE_TIME_VAR,
    LETTERS,
    VAR_NUMBER, // length, up to size digits as one number
    SIGN,
};

struct AiPart {
    AiPartKind kind = AiPartKind::NONE;
    int size = 0;
};

struct AiEntry {
    std::string_view first; // the first and the last code of a run of the same length
    std::string_view last;
    std::string_view title;
    AiPart parts[2];
};

std::span<const AiEntry> aiEntries();

// The entry of a code, or null for a code that is not assigned.
const AiEntry* aiEntryOf(std::string_view code);

// The count of digits of a code by its first two, or 0 if none begins so.
std::size_t aiCodeLength(std::string_view firstTwo);

// True if a value needs a separator behind it in a barcode string when another AI follows.
//
// Source: GS1 General Specifications, figure 7.8.5-2 (AIs of predefined length).
bool aiNeedsSeparator(std::string_view code);

// True for an AI that can be the primary key of a Digital Link.
bool aiIsLinkKey(std::string_view code);

} // namespace before
} // namespace rosetag

#endif
