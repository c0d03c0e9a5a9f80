/*
 * Reads the bits of a value field by field and remembers each: where it stands, its bits and what
 * they mean. A walk stops at the first field that breaks the layout, and says so there.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_WALK_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_WALK_H

#include <rosetag/toolkit.hpp>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {
inline namespace before {

// How the bits of a field are set apart.
inline constexpr std::array<int, 6> groupsOfDate = {7, 4, 5, 5, 6, 6};
std::span<const int> groupsOf(std::size_t width);

struct Walk {
    std::string bits; // characters 0 and 1
    std::size_t position = 0;
    std::vector<ExplainedField> fields;
    bool isGood = true;
};

// The bits of hexadecimal digits, filled up to whole bytes.
std::string bitsOfHex(std::string_view hexDigits);

inline std::size_t walkLeft(const Walk& walk) {
    return walk.bits.size() - walk.position;
}

// Adds the next field and gives its bits, or the empty text where fewer are left: then the walk has
// failed.
std::string_view walkTake(Walk& walk, std::string name, std::size_t width);

// As walkTake, with the number that the bits are. width is 64 at most.
std::uint64_t walkNumber(Walk& walk, std::string name, std::size_t width);

// Lengthens the field that was added last. False where the bits end; then the walk has failed.
bool walkExtend(Walk& walk, std::size_t width);

// The bits of the field that was added last.
std::string_view walkLastBits(const Walk& walk);

// What the field that was added last means, and what it adds to the text forms.
void walkMean(Walk& walk, std::string meaning, std::string value = {});

// The field that was added last breaks the layout.
void walkFail(Walk& walk, std::string why);

std::uint64_t numberOfBits(std::string_view bits);
std::string decimalOfBits(std::string_view bits); // of any length
std::string hexOfBits(std::string_view bits);

std::string zeroPadded(std::string digits, std::size_t width);

// The GS1 AI encodable character sets 82 and 39.
bool isInCharacterSet82(char character);
bool isInCharacterSet39(char character);

} // namespace before
} // namespace rosetag

#endif
