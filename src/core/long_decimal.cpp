#include "core/long_decimal.h"

#include <algorithm>
#include <bit>

namespace rosetag {

namespace {

constexpr std::int32_t LIMB_BITS = 32;
constexpr std::size_t LIMBS = (aiDigitBits(MAX_LONG_DIGITS) + LIMB_BITS - 1) / LIMB_BITS;

// Lowest limb first. Limbs of half a machine word keep every product and carry within 64 bits.
struct LongNumber {
    std::array<std::uint32_t, LIMBS + 2> limbs; // the last two stay 0
    std::size_t count;                          // of the limbs in use: 0 from there on
};

constexpr std::int32_t CHUNK_DIGITS = 9; // 10^9 is the largest power of ten in a limb
constexpr std::uint32_t CHUNK = powersOfTen[CHUNK_DIGITS];

void multiplyAdd(LongNumber& number, std::uint32_t factor, std::uint32_t summand) {
    std::uint64_t carry = summand;
    for (std::size_t i = 0; i < number.count; ++i) {
        carry += std::uint64_t{number.limbs[i]} * factor;
        number.limbs[i] = static_cast<std::uint32_t>(carry & 0xFFFFFFFF);
        carry >>= LIMB_BITS;
    }
    if (carry != 0) {
        number.limbs[number.count++] = static_cast<std::uint32_t>(carry);
    }
}

void dropLeadingZeros(LongNumber& number) {
    while (number.count > 0 && number.limbs[number.count - 1] == 0) {
        --number.count;
    }
}

// Divides by 10^9 and gives the remainder.
std::uint32_t takeChunk(LongNumber& number) {
    std::uint64_t remainder = 0;
    for (std::size_t left = number.count; left > 0; --left) {
        std::uint32_t& limb = number.limbs[left - 1];
        const std::uint64_t dividend = remainder << LIMB_BITS | limb;
        limb = static_cast<std::uint32_t>(dividend / CHUNK);
        remainder = dividend % CHUNK;
    }
    dropLeadingZeros(number);
    return static_cast<std::uint32_t>(remainder);
}

LongNumber longNumberOf(std::string_view digits) {
    LongNumber number{};
    while (!digits.empty()) {
        const std::size_t count = std::min<std::size_t>(digits.size(), CHUNK_DIGITS);
        std::uint32_t chunk = 0;
        for (std::size_t i = 0; i < count; ++i) {
            chunk = chunk * 10 + static_cast<std::uint32_t>(digits[i] - '0');
        }
        multiplyAdd(number, static_cast<std::uint32_t>(powersOfTen[count]), chunk);
        digits.remove_prefix(count);
    }
    return number;
}

std::int32_t bitWidthOf(const LongNumber& number) {
    if (number.count == 0) {
        return 0;
    }
    return static_cast<std::int32_t>(number.count) * LIMB_BITS -
           std::countl_zero(number.limbs[number.count - 1]);
}

// 64 bits of the number, from the bit of weight 2^lowest up.
std::uint64_t bitsOf(const LongNumber& number, std::int32_t lowest) {
    const std::uint32_t* const limbs = number.limbs.data() + lowest / LIMB_BITS;
    const std::uint64_t bits = std::uint64_t{limbs[1]} << LIMB_BITS | limbs[0];
    const std::int32_t shift = lowest % LIMB_BITS;
    return shift == 0 ? bits : std::uint64_t{limbs[2]} << (64 - shift) | bits >> shift;
}

EpcStatus readLongNumber(BitBuffer& buffer, std::int32_t bitCount, LongNumber& number) {
    if (bitBufferLeft(buffer) < bitCount) {
        return EPC_ERR_TRUNCATED;
    }
    number.count = static_cast<std::size_t>((bitCount + LIMB_BITS - 1) / LIMB_BITS);
    for (std::size_t left = number.count; left > 0; --left) {
        const std::int32_t width = bitCount - static_cast<std::int32_t>(left - 1) * LIMB_BITS;
        std::uint64_t limb = 0;
        EPC_TRY(bitBufferRead(buffer, width, limb));
        number.limbs[left - 1] = static_cast<std::uint32_t>(limb);
        bitCount -= width;
    }
    dropLeadingZeros(number);
    return EPC_OK;
}

using LongDigits = std::array<char, (LIMBS + 1) * CHUNK_DIGITS>;

// Writes the digits, without leading zeros, up to the end of the storage.
std::string_view digitsOf(LongNumber number, LongDigits& storage) {
    char* first = storage.end();
    while (number.count > 0) {
        std::uint32_t chunk = takeChunk(number);
        for (std::int32_t i = 0; i < CHUNK_DIGITS; ++i, chunk /= 10) {
            *--first = static_cast<char>('0' + chunk % 10);
        }
    }
    return {std::find_if(first, storage.end(), [](char digit) { return digit != '0'; }),
            storage.end()};
}

} // namespace

EpcStatus bitBufferPutLongDecimal(BitBuffer& buffer, std::string_view digits,
                                  std::int32_t bitCount) {
    const LongNumber number = longNumberOf(digits);
    // Which bits fit depends on where the blocks begin: at a whole hexadecimal digit.
    std::int32_t left = std::min((bitWidthOf(number) + 3) / 4 * 4, bitCount);
    EPC_TRY(bitBufferWrite(buffer, 0, bitCount - left));
    while (left > 0) {
        const std::int32_t width = std::min(left, 64);
        left -= width;
        EPC_TRY(bitBufferWrite(buffer, bitsOf(number, left), width));
    }
    return EPC_OK;
}

EpcStatus bitBufferGetLongDecimal(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                  std::int32_t width) {
    LongNumber number{};
    EPC_TRY(readLongNumber(buffer, bitCount, number));
    LongDigits storage;
    const std::string_view digits = digitsOf(number, storage);
    const auto count = static_cast<std::int32_t>(digits.size());
    if (count > MAX_LONG_DIGITS) {
        return EPC_ERR_NO_ROOM;
    }
    if (count < width) {
        EPC_TRY(textBufferPutPadded(text, 0, width - count));
    }
    return textBufferPutString(text, digits);
}

} // namespace rosetag
