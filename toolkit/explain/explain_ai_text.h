/*
 * The fields of AI values that hold a number of any length or a text in one of six encodings.
 *
 * Source: EPC Tag Data Standard, section 14.5 (encoding methods).
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_TEXT_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_TEXT_H

#include "explain/bit_walk.h"
#include "gs1/ai_shape.h"

namespace rosetag {

// An AI, and the title that precedes its values.
struct AiSubject {
    std::string_view code;
    std::string_view title;
};

std::string fieldName(const AiSubject& subject, std::string_view part);

// The last field holds this part of the AI's value.
void meanValue(Walk& walk, const AiSubject& subject, std::string_view value);

// A number of that many digits.
void walkDigitsAsNumber(Walk& walk, const AiSubject& subject, std::size_t digits);

// How many digits or characters follow.
std::size_t walkLength(Walk& walk, const AiSubject& subject, const AiComponent& component,
                       std::string_view counted);

// The encoding, the length and the characters.
void walkText(Walk& walk, const AiSubject& subject, const AiComponent& component);

} // namespace rosetag

#endif
