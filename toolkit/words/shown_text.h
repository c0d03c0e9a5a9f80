/*
 * Texts as sentences show them.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_SHOWN_TEXT_H
#define ROSETAG_TOOLKIT_WORDS_SHOWN_TEXT_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {

inline constexpr std::string_view GROUP_SEPARATOR_SPELLED = "{GS}";

// shownText in quotes.
std::string quotedText(std::string_view text);

// The same of its first 24 characters, with "..." after them where there are more.
std::string quotedBeginning(std::string_view text);

// "1 digit", "13 digits".
std::string counted(std::size_t count, std::string_view noun);

} // namespace rosetag

#endif
