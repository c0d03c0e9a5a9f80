#include "check/check_pair.h"

#include "core/char_class.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace rosetag {

namespace {

// A character counts as its place in character set 82.
constexpr std::string_view values =
    std::find_if(std::begin(charClassRows), std::end(charClassRows), [](const CharClassRow& row) {
        return row.charClass == CHAR_CLASS_AI82;
    })->characters;
static_assert(values.size() == 82);

constexpr std::string_view checkCharacters = "23456789ABCDEFGHJKLMNPQRSTUVWXYZ";
static_assert(checkCharacters.size() == 32);

// By the distance from the end of the text.
constexpr std::array<std::uint32_t, CHECK_PAIR_TEXT_SIZE> weights = {
    2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53, 59, 61, 67, 71, 73, 79, 83};

constexpr std::uint32_t modulus = 1021;

} // namespace

std::array<char, CHECK_PAIR_SIZE> checkPairOf(std::string_view text) {
    std::uint32_t sum = 0;
    const std::size_t length = std::min(text.size(), weights.size());
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t value = values.find(text[text.size() - 1 - i]);
        sum += weights[i] * static_cast<std::uint32_t>(value);
    }
    sum %= modulus;
    return {checkCharacters[sum / checkCharacters.size()],
            checkCharacters[sum % checkCharacters.size()]};
}

} // namespace rosetag
