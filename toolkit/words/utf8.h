/*
 * Characters of more than one byte.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_UTF8_H
#define ROSETAG_TOOLKIT_WORDS_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rosetag {

// The length of the well-formed UTF-8 sequence at the start of a text, 0 if there is none.
std::size_t utf8Length(std::string_view text);

// The code point of a well-formed sequence.
std::uint32_t utf8CodePoint(std::string_view sequence);

// The character at the start of a text that is not empty. A byte that is not UTF-8 is one.
std::string_view firstCharacter(std::string_view text);

// The beginning of a text, so many characters at most.
std::string_view firstCharacters(std::string_view text, std::size_t most);

std::size_t characterCount(std::string_view text);

// Part of a text, and the rest of the characters that it begins or ends within.
std::string_view wholeCharacters(std::string_view text, std::size_t position, std::size_t length);

} // namespace rosetag

#endif
