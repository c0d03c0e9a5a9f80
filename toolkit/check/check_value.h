/*
 * One AI and its value against the parts that the value is made of.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_CHECK_VALUE_H
#define ROSETAG_TOOLKIT_CHECK_CHECK_VALUE_H

#include "check/check_run.h"

namespace rosetag {

// Remembers the AI and checks its value.
void checkAi(CheckRun& run, const CheckedAi& ai, const KnownAi& known, const CheckedText& value);

// What the value of an AI looks like, in words: "3 digits, then 1 to 9 characters".
std::string describeParts(const ValueParts& parts);

} // namespace rosetag

#endif
