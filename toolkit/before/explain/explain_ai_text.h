/*
 * The fields of AI values that hold a number of any length or a text in one of six encodings.
 *
 * Source: EPC Tag Data Standard, section 14.5 (encoding methods).
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_TEXT_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_TEXT_H

#include "before/explain/explain_walk.h"

namespace rosetag {
inline namespace before {

// An AI and the title that stands in front of its values.
struct AiSubject {
    std::string code;
    std::string title;
};

std::string fieldName(const AiSubject& subject, std::string_view part);

// The field that was added last holds this part of the AI's value.
void meanValue(Walk& walk, const AiSubject& subject, const std::string& value);

void walkDigitsAsNumber(Walk& walk, const AiSubject& subject, std::size_t digits);

// How many digits or characters follow, in as many bits as maxLength needs.
std::size_t walkLength(Walk& walk, const AiSubject& subject, int maxLength,
                       std::string_view counted);

// The encoding, the length and the characters.
void walkText(Walk& walk, const AiSubject& subject, int maxLength);

} // namespace before
} // namespace rosetag

#endif
