#include "check/check_pair.h"

#include <algorithm>
#include <cstdint>

namespace rosetag {

namespace {

// A character counts as its place here.
constexpr std::string_view values = "!\"%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZ_"
                                    "abcdefghijklmnopqrstuvwxyz";
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
