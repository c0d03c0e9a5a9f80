/*
 * The bits of AI values, as the plus schemes carry them.
 *
 * Source: EPC Tag Data Standard, section 14.5 (encoding methods) and table F.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_VALUES_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_AI_VALUES_H

#include "before/explain/explain_walk.h"

namespace rosetag {
inline namespace before {

// The value of an AI that is known, by its parts.
void walkAiValue(Walk& walk, std::string_view code);

// Four bits that say which date follows, and the date.
void walkDateCoded(Walk& walk);

// AIs with their codes, as long as bits are left. otherAis were read before.
void walkDataSection(Walk& walk, std::size_t otherAis);

} // namespace before
} // namespace rosetag

#endif
