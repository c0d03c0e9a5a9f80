/*
 * Reads the bits of a value field by field and adds each to an explanation: where it is, its
 * bits and what they mean. A walk stops at the first field that breaks the layout, and says so
 * there.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_BIT_WALK_H
#define ROSETAG_TOOLKIT_EXPLAIN_BIT_WALK_H

#include <rosetag/toolkit.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace rosetag {

struct Walk {
    Explanation& explanation;
    std::size_t position = 0; // the next bit
    bool isGood = true;
};

// Fills hex and bits of an explanation and begins to read them.
Walk walkBegin(Explanation& explanation, std::string_view hexDigits);

inline std::size_t walkLeft(const Walk& walk) {
    return walk.explanation.bits.size() - walk.position;
}

// The field that was added last.
inline ExplainedField& walkField(Walk& walk) {
    return walk.explanation.fields.back();
}

// Adds the next field and gives its bits, or the empty text if fewer are left: then the walk has
// failed.
std::string_view walkTake(Walk& walk, std::string_view name, std::size_t width);

// Like walkTake, but gives the bits as a number. width is 64 at most.
std::uint64_t walkNumber(Walk& walk, std::string_view name, std::size_t width);

// Lengthens the last field and gives its new bits, or the empty text if fewer are left: then the
// walk has failed.
std::string_view walkExtend(Walk& walk, std::size_t width);

// The bits of the last field.
std::string_view walkLastBits(const Walk& walk);

// What the last field means, and what it adds to the text forms.
void walkMean(Walk& walk, std::string_view meaning, std::string_view value = {});

// The last field breaks the layout.
void walkFail(Walk& walk, std::string_view why);

// The bits of a field are set apart in groups of this width.
void walkGroup(Walk& walk, std::size_t width);

std::uint64_t numberOfBits(std::string_view bits);
std::string decimalOfBits(std::string_view bits); // of any length
std::string hexOfBits(std::string_view bits);

std::string zeroPadded(std::string digits, std::size_t width);

} // namespace rosetag

#endif
