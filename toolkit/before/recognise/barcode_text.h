/*
 * Barcode strings as people type and read them. The character 29, GS, ends a value of variable
 * length; it is typed raw, as "{GS}" or as "\x1d", and shown as "{GS}".
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_BARCODE_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_BARCODE_TEXT_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace rosetag {
inline namespace before {

inline constexpr char GROUP_SEPARATOR = 29;
inline constexpr std::string_view GROUP_SEPARATOR_SPELLED = "{GS}";

bool holdsGroupSeparator(std::string_view text);

// Every spelling of the separator becomes the character.
std::string groupSeparatorsRaw(std::string_view text);

// The character becomes "{GS}".
std::string groupSeparatorsSpelled(std::string_view text);

// AI codes and values without brackets, a separator behind each value that needs one.
std::string barcodeStringOf(const std::vector<AiValue>& ais);

// The bracketed form.
std::string elementStringOf(const std::vector<AiValue>& ais);

// True if the bracketed form reads back as the same AIs: a "(" in a value would begin another.
bool canStandInBrackets(const std::vector<AiValue>& ais);

} // namespace before
} // namespace rosetag

#endif
