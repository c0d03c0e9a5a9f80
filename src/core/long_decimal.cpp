#include "core/long_decimal.h"

#include "core/text_cursor.h"

#include <algorithm>

namespace rosetag {

namespace {

// A long number, lowest limb first. 10 limbs take 320 bits: 75 hexadecimal digits have 300, 90
// decimal digits 299. Limbs of half a machine word keep every product and carry within 64 bits.
constexpr std::size_t LIMBS = 10;
using LongNumber = std::array<std::uint32_t, LIMBS>;

constexpr std::int32_t DECIMAL_CHUNK_DIGITS = 9; // 10^9 is the largest power of ten in a limb
constexpr std::uint32_t DECIMAL_CHUNK = 1000000000;

constexpr std::array<std::int32_t, MAX_LONG_HEX_DIGITS> hexToDecimalDigitsMake() {
    std::array<std::int32_t, MAX_LONG_HEX_DIGITS> digits{};
    for (std::size_t n = 1; n < digits.size(); ++n) {
        digits[n] = static_cast<std::int32_t>(n * 12041199827ULL / 10000000000ULL) + 1;
    }
    for (const unsigned n : {19U, 24U, 29U, 34U, 39U, 44U, 48U, 53U, 58U, 63U, 68U, 73U}) {
        ++digits[n];
    }
    return digits;
}

// Room that a number of n hexadecimal digits is given: the decimal digits of 16^n - 1, and one more
// in the rows of which the table says so.
constexpr std::array<std::int32_t, MAX_LONG_HEX_DIGITS> hexToDecimalDigits =
    hexToDecimalDigitsMake();
static_assert(hexToDecimalDigits[1] == 2 && hexToDecimalDigits[5] == 7 &&
              hexToDecimalDigits[19] == 24 && hexToDecimalDigits[74] == 90);

constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> decimalToHexDigitsMake() {
    std::array<std::int32_t, MAX_LONG_DIGITS + 1> digits{};
    std::transform(aiDigitBitsTable.begin(), aiDigitBitsTable.end(), digits.begin(),
                   [](std::int32_t bits) { return (bits + 3) / 4; });
    return digits;
}

// The hexadecimal digits of 10^n - 1.
constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> decimalToHexDigits =
    decimalToHexDigitsMake();
static_assert(decimalToHexDigits[0] == 0 && decimalToHexDigits[6] == 5 &&
              decimalToHexDigits[90] == MAX_LONG_HEX_DIGITS);

void multiplyAdd(LongNumber& number, std::uint32_t factor, std::uint32_t summand) {
    std::uint64_t carry = summand;
    for (std::uint32_t& limb : number) {
        carry += std::uint64_t{limb} * factor;
        limb = static_cast<std::uint32_t>(carry & 0xFFFFFFFF);
        carry >>= 32;
    }
}

// Divides and gives the remainder.
std::uint32_t divide(LongNumber& number, std::uint32_t divisor) {
    std::uint64_t remainder = 0;
    for (auto limb = number.rbegin(); limb != number.rend(); ++limb) {
        const std::uint64_t dividend = remainder << 32 | *limb;
        *limb = static_cast<std::uint32_t>(dividend / divisor);
        remainder = dividend % divisor;
    }
    return static_cast<std::uint32_t>(remainder);
}

LongNumber longNumberFromDecimal(std::string_view digits) {
    LongNumber number{};
    std::uint32_t chunk = 0;
    std::uint32_t scale = 1;
    for (const char digit : digits) {
        chunk = chunk * 10 + static_cast<std::uint32_t>(digit - '0');
        scale *= 10;
        if (scale == DECIMAL_CHUNK) {
            multiplyAdd(number, scale, chunk);
            chunk = 0;
            scale = 1;
        }
    }
    multiplyAdd(number, scale, chunk);
    return number;
}

LongNumber longNumberFromHex(std::string_view hex) {
    LongNumber number{};
    std::size_t shift = 0;
    for (auto digit = hex.rbegin(); digit != hex.rend(); ++digit, shift += 4) {
        number[shift / 32] |= static_cast<std::uint32_t>(hexDigitValue(*digit)) << shift % 32;
    }
    return number;
}

// The longest text that either conversion gives: 2^300 - 1 has 91 decimal digits.
struct LongDigits {
    std::array<char, 10 * DECIMAL_CHUNK_DIGITS + DECIMAL_CHUNK_DIGITS> characters;
    std::size_t first; // the characters before it are not part of the number
};

std::string_view withoutLeadingZeros(const LongDigits& digits) {
    const auto first = std::find_if(digits.characters.begin() + static_cast<long>(digits.first),
                                    digits.characters.end(), [](char c) { return c != '0'; });
    return {first, digits.characters.end()};
}

LongDigits decimalDigits(LongNumber number) {
    LongDigits digits;
    digits.first = digits.characters.size();
    while (digits.first != 0) {
        std::uint32_t chunk = divide(number, DECIMAL_CHUNK);
        for (std::int32_t i = 0; i < DECIMAL_CHUNK_DIGITS; ++i, chunk /= 10) {
            digits.characters[--digits.first] = static_cast<char>('0' + chunk % 10);
        }
    }
    return digits;
}

LongDigits hexDigits(const LongNumber& number) {
    LongDigits digits;
    digits.first = digits.characters.size();
    for (const std::uint32_t limb : number) {
        for (std::uint32_t shift = 0; shift < 32; shift += 4) {
            digits.characters[--digits.first] = "0123456789ABCDEF"[limb >> shift & 0xF];
        }
    }
    return digits;
}

void copyOut(std::string_view digits, char* out, std::int32_t& outCount) {
    *std::copy(digits.begin(), digits.end(), out) = '\0';
    outCount = static_cast<std::int32_t>(digits.size());
}

} // namespace

EpcStatus hexToDecimal(std::string_view hex, std::int32_t capacity, char* out,
                       std::int32_t& outCount) {
    if (hex.size() > static_cast<std::size_t>(MAX_LONG_HEX_DIGITS)) {
        return EPC_ERR_TOO_LONG;
    }
    if (hex.size() < hexToDecimalDigits.size() && hexToDecimalDigits[hex.size()] > capacity - 1) {
        return EPC_ERR_NO_ROOM;
    }
    const LongDigits digits = decimalDigits(longNumberFromHex(hex));
    const std::string_view number = withoutLeadingZeros(digits);
    // 75 digits are a number of 90 or 91 decimal digits: only its value tells.
    if (static_cast<std::int32_t>(number.size()) > capacity - 1) {
        return EPC_ERR_NO_ROOM;
    }
    copyOut(number, out, outCount);
    return EPC_OK;
}

EpcStatus decimalToHex(std::string_view digits, std::int32_t capacity, char* out,
                       std::int32_t& outCount) {
    if (digits.size() > static_cast<std::size_t>(MAX_LONG_DIGITS)) {
        return EPC_ERR_TOO_LONG;
    }
    if (decimalToHexDigits[digits.size()] > capacity - 1) {
        return EPC_ERR_NO_ROOM;
    }
    const LongDigits hex = hexDigits(longNumberFromDecimal(digits));
    copyOut(withoutLeadingZeros(hex), out, outCount);
    return EPC_OK;
}

} // namespace rosetag
