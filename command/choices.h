/*
 * The words that options take: names of fields, schemes, encodings and the like.
 */
#ifndef ROSETAG_COMMAND_CHOICES_H
#define ROSETAG_COMMAND_CHOICES_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

// The words for an option of that type name; empty for a type that takes any text.
std::vector<std::string> choicesOf(std::string_view typeName);

// The same with blanks between them.
std::string choicesText(std::string_view typeName);

// What is wrong with a word that is none of the words, with those that are most like it.
std::string unknownWordError(const std::vector<std::string>& words, std::string_view what,
                             std::string_view given);

// What is wrong with a word of that type, with those that are most like it; empty if nothing is.
std::string choiceError(std::string_view typeName, std::string_view what, std::string_view given);

// The encoding of a word of ENCODING.
int encodingByWord(std::string_view word);

// The bank of a word of BANK.
Bank bankByWord(std::string_view word);

// The character of a word of DELIMITER, or a character itself; NUL for what cannot separate cells.
char delimiterOf(std::string_view given);

} // namespace rosetag

#endif
