/*
 * Failures in the words of check, which knows best what is wrong with the value of an AI.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_FINDING_FAILURE_H
#define ROSETAG_TOOLKIT_WORDS_FINDING_FAILURE_H

#include "recognise/reading.h"

namespace rosetag {

// The finding of check that says why a text failed: an error rather than a warning, of the AI if
// there is one given, and of the check digit if that is what the status says. Among
// warnings a semicolon is the likeliest cause.
const Finding* findingOf(const Rows<Finding>& findings, EpcStatus status, std::string_view ai);

// Lets check say what is wrong with a text. False if it finds nothing.
bool failByFinding(Reading& reading, EpcStatus status, std::string_view ai);

} // namespace rosetag

#endif
