/*
 * What a person reads of a converted value, aligned.
 */
#ifndef ROSETAG_COMMAND_HUMAN_TEXT_H
#define ROSETAG_COMMAND_HUMAN_TEXT_H

#include "before/explain/explain.h"
#include "results.h"

#include <string>

namespace rosetag {

// All forms of a value, a line each.
std::string humanForms(const Result& result, bool raw);

// A sentence that says what a value is.
std::string humanSentence(const Result& result);

// The fields of a value in columns.
std::string humanExplanation(const WalkedBits& explanation);

// Text with blanks behind it up to a width, counted in characters.
std::string padded(std::string_view text, std::size_t width);

// A line of a label and a text.
std::string labelled(std::string_view label, std::string_view text);

} // namespace rosetag

#endif
