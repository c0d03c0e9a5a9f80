#include "before/explain/explain_walk.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::string_view hexDigitText = "0123456789ABCDEF";

constexpr std::string_view characterSet82 = "!\"%&'()*+,-./0123456789:;<=>?"
                                            "ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view characterSet39 = "#-/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

constexpr std::array<int, 5> groupWidths = {4, 6, 7, 8, 16};

} // namespace

std::span<const int> groupsOf(std::size_t width) {
    const auto* const found = std::find(groupWidths.begin(), groupWidths.end(), width);
    return {found, found == groupWidths.end() ? 0U : 1U};
}

std::string bitsOfHex(std::string_view hexDigits) {
    std::string bits;
    for (const char digit : hexDigits) {
        const char upper = digit >= 'a' ? static_cast<char>(digit - 32) : digit;
        const std::size_t value = hexDigitText.find(upper);
        for (const std::size_t mask : {8U, 4U, 2U, 1U}) {
            bits += (value & mask) != 0 ? '1' : '0';
        }
    }
    bits.append(bits.size() % 8, '0');
    return bits;
}

std::string_view walkTake(Walk& walk, std::string name, std::size_t width) {
    ExplainedField& field = walk.fields.emplace_back();
    field.first = walk.position;
    field.name = std::move(name);
    walkExtend(walk, width);
    return walk.isGood ? walkLastBits(walk) : std::string_view();
}

std::uint64_t walkNumber(Walk& walk, std::string name, std::size_t width) {
    return numberOfBits(walkTake(walk, std::move(name), width));
}

bool walkExtend(Walk& walk, std::size_t width) {
    const std::size_t taken = std::min(width, walkLeft(walk));
    walk.fields.back().width += taken;
    walk.position += taken;
    if (taken < width) {
        walkFail(walk, "the bits end here, " + std::to_string(width - taken) + " are missing");
    }
    return taken == width;
}

std::string_view walkLastBits(const Walk& walk) {
    const ExplainedField& field = walk.fields.back();
    return std::string_view(walk.bits).substr(field.first, field.width);
}

void walkMean(Walk& walk, std::string meaning, std::string value) {
    if (walk.isGood) {
        walk.fields.back().meaning = std::move(meaning);
        walk.fields.back().value = std::move(value);
    }
}

void walkFail(Walk& walk, std::string why) {
    if (walk.isGood) {
        walk.isGood = false;
        walk.fields.back().isGood = false;
        walk.fields.back().meaning = std::move(why);
    }
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
    const std::size_t filling = (4 - bits.size() % 4) % 4;
    const std::string whole = std::string(filling, '0') + std::string(bits);
    for (std::size_t i = 0; i < whole.size(); i += 4) {
        hex += hexDigitText[numberOfBits(std::string_view(whole).substr(i, 4))];
    }
    return hex;
}

std::string zeroPadded(std::string digits, std::size_t width) {
    digits.insert(0, width > digits.size() ? width - digits.size() : 0, '0');
    return digits;
}

bool isInCharacterSet82(char character) {
    return characterSet82.find(character) != std::string_view::npos;
}

bool isInCharacterSet39(char character) {
    return characterSet39.find(character) != std::string_view::npos;
}

} // namespace before
} // namespace rosetag
