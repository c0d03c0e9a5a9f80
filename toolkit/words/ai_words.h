/*
 * The AIs by their code, with their titles.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_AI_WORDS_H
#define ROSETAG_TOOLKIT_WORDS_AI_WORDS_H

#include "gs1/ai_table.h"

#include <rosetag/toolkit.hpp>

namespace rosetag {

// The row of an AI, or null for a code that GS1 has not assigned. Quicker than aiTableFind.
const AiTableRow* aiRowOf(std::string_view code);

// What the value of an AI looks like: "AI 17 holds 6 digits, YYMMDD".
std::string aiValueHint(std::string_view code);

} // namespace rosetag

#endif
