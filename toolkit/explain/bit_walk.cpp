#include "explain/bit_walk.h"

#include "core/hex_digits.h"

#include <algorithm>

namespace rosetag {

Walk walkBegin(Explanation& explanation, std::string_view hexDigits) {
    explanation.hex = hexDigits;
    explanation.bits.clear();
    appendBits(explanation.bits, hexDigits);
    explanation.fields.clear();
    return {explanation};
}

std::string_view walkTake(Walk& walk, std::string_view name, std::size_t width) {
    ExplainedField& field = walk.explanation.fields.add();
    field.first = walk.position;
    field.width = 0;
    field.name = name;
    field.meaning.clear();
    field.value.clear();
    field.ai.clear();
    field.groups = {};
    field.isGood = true;
    return walkExtend(walk, width);
}

std::uint64_t walkNumber(Walk& walk, std::string_view name, std::size_t width) {
    return numberOfBits(walkTake(walk, name, width));
}

std::string_view walkExtend(Walk& walk, std::size_t width) {
    const std::size_t first = walk.position;
    const std::size_t taken = std::min(width, walkLeft(walk));
    walkField(walk).width += taken;
    walk.position += taken;
    if (taken < width) {
        walkFail(walk, "the bits end here, " + std::to_string(width - taken) + " too early");
        return {};
    }
    return std::string_view(walk.explanation.bits).substr(first, width);
}

std::string_view walkLastBits(const Walk& walk) {
    const ExplainedField& field = walk.explanation.fields.back();
    return std::string_view(walk.explanation.bits).substr(field.first, field.width);
}

void walkMean(Walk& walk, std::string_view meaning, std::string_view value) {
    if (walk.isGood) {
        walkField(walk).meaning = meaning;
        walkField(walk).value = value;
    }
}

void walkFail(Walk& walk, std::string_view why) {
    if (walk.isGood) {
        walk.isGood = false;
        walkField(walk).isGood = false;
        walkField(walk).meaning = why;
    }
}

void walkGroup(Walk& walk, std::size_t width) {
    static constexpr std::array<int, 17> widths = {0, 1,  2,  3,  4,  5,  6,  7, 8,
                                                   9, 10, 11, 12, 13, 14, 15, 16};
    walkField(walk).groups = {&widths[width], 1};
}

std::uint64_t numberOfBits(std::string_view bits) {
    std::uint64_t number = 0;
    for (const char bit : bits) {
        number = number << 1 | (bit == '1' ? 1U : 0U);
    }
    return number;
}

std::string decimalOfBits(std::string_view bits) {
    std::string reversed = "0";
    for (const char bit : bits) {
        int carry = bit == '1' ? 1 : 0;
        for (char& digit : reversed) {
            const int doubled = 2 * (digit - '0') + carry;
            digit = static_cast<char>('0' + doubled % 10);
            carry = doubled / 10;
        }
        if (carry != 0) {
            reversed += '1';
        }
    }
    return {reversed.rbegin(), reversed.rend()};
}

std::string hexOfBits(std::string_view bits) {
    std::string hex;
    std::size_t width = bits.size() % 4; // of the first digit
    while (!bits.empty()) {
        width = width == 0 ? 4 : width;
        hex += HEX_DIGITS[static_cast<std::size_t>(numberOfBits(bits.substr(0, width)))];
        bits.remove_prefix(width);
        width = 0;
    }
    return hex;
}

std::string zeroPadded(std::string digits, std::size_t width) {
    digits.insert(0, width > digits.size() ? width - digits.size() : 0, '0');
    return digits;
}

} // namespace rosetag
