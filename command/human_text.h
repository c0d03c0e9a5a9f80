/*
 * What a person reads of a value, aligned.
 */
#ifndef ROSETAG_COMMAND_HUMAN_TEXT_H
#define ROSETAG_COMMAND_HUMAN_TEXT_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {

// All forms of a value, a line each.
std::string humanForms(const Translation& translation, bool raw);

// The fields of a value in columns.
std::string humanExplanation(const Explanation& explanation);

// What a TID says, a line each. The list, which may be null, names the designer and the chip.
std::string humanTid(const TidRecord& record, const DesignerList* designers);

// The names of the designer and of the chip of a TID; empty where the list has none.
std::string_view designerName(const DesignerList* designers, const TidRecord& record);
std::string_view chipName(const DesignerList* designers, const TidRecord& record);

// A number in hexadecimal digits, filled up with zeros.
std::string hexText(unsigned number, int digits);

// Text filled up with blanks to a width, counted in characters.
std::string padded(std::string_view text, std::size_t width);

// A line of a label and a text.
std::string labelled(std::string_view label, std::string_view text);

} // namespace rosetag

#endif
