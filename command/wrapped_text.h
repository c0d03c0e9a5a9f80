/*
 * Texts that fit the screen.
 */
#ifndef ROSETAG_COMMAND_WRAPPED_TEXT_H
#define ROSETAG_COMMAND_WRAPPED_TEXT_H

#include <string>
#include <string_view>

namespace rosetag {

// A text in lines of at most that many characters.
std::string wrapped(std::string_view text, std::size_t width);

// A text with every place of one part replaced by another.
std::string replaced(std::string text, std::string_view from, std::string_view to);

} // namespace rosetag

#endif
