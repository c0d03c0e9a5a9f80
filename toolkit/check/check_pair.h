/*
 * The check character pair of a Global Model Number.
 *
 * Source: GS1 General Specifications, section 7.9.5.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_CHECK_PAIR_H
#define ROSETAG_TOOLKIT_CHECK_CHECK_PAIR_H

#include <array>
#include <cstddef>
#include <string_view>

namespace rosetag {

// A GMN has at most 25 characters including the pair.
inline constexpr std::size_t CHECK_PAIR_SIZE = 2;
inline constexpr std::size_t CHECK_PAIR_TEXT_SIZE = 25 - CHECK_PAIR_SIZE;

// The pair that belongs after the text, of CHECK_PAIR_TEXT_SIZE characters of set 82 at most.
std::array<char, CHECK_PAIR_SIZE> checkPairOf(std::string_view text);

} // namespace rosetag

#endif
