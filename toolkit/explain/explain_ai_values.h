/*
 * The bits of AI values, as the plus schemes carry them.
 *
 * Source: EPC Tag Data Standard, section 14.5 (encoding methods) and table F.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_VALUES_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_VALUES_H

#include "explain/bit_walk.h"

namespace rosetag {

// The value of an AI that GS1 has assigned, component by component.
void walkAiValue(Walk& walk, std::string_view code);

// Which date follows, and the date.
void walkDateCoded(Walk& walk);

// AIs with their codes, as long as there are bits. otherAis is how many were read before.
void walkDataSection(Walk& walk, std::size_t otherAis);

} // namespace rosetag

#endif
