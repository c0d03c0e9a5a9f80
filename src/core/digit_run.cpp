#include "core/digit_run.h"

#include "core/char_scan.h"
#include "core/digit_words.h"

#include <algorithm>
#include <cstring>

namespace rosetag {

namespace {

constexpr std::int32_t WORD_BITS = WORD_DIGITS * DIGIT_BITS;

// Eight digits of four bits become eight bytes, the first in the highest one, and back.
constexpr std::uint64_t spreadDigits(std::uint64_t digits) {
    digits = (digits | digits << 16) & 0x0000FFFF0000FFFF;
    digits = (digits | digits << 8) & 0x00FF00FF00FF00FF;
    return (digits | digits << 4) & 0x0F0F0F0F0F0F0F0F;
}

constexpr std::uint64_t packDigits(std::uint64_t bytes) {
    bytes = (bytes | bytes >> 4) & 0x00FF00FF00FF00FF;
    bytes = (bytes | bytes >> 8) & 0x0000FFFF0000FFFF;
    return (bytes | bytes >> 16) & 0xFFFFFFFF;
}
static_assert(spreadDigits(0x12345678) == 0x0102030405060708 &&
              packDigits(0x0102030405060708) == 0x12345678);

// A digit below 10 stays below 16 when 6 is added.
constexpr bool areDigits(std::uint64_t bytes) {
    return ((bytes + 0x0606060606060606) & 0x1010101010101010) == 0;
}

std::uint64_t loadText(const char* characters) {
    return loadBigEndian(reinterpret_cast<const std::uint8_t*>(characters));
}

// Reads up to eight digits into characters. Does nothing and returns false unless all are there.
bool readWord(BitBuffer& bits, std::int32_t count, char* characters) {
    std::uint64_t fields = 0;
    if (bitBufferGet(bits, count * DIGIT_BITS, fields) != 0) {
        return false;
    }
    const std::uint64_t bytes = spreadDigits(fields << (WORD_DIGITS - count) * DIGIT_BITS);
    if (!areDigits(bytes)) {
        bits.position -= count * DIGIT_BITS;
        return false;
    }
    const std::uint64_t text = bytes | inEveryByte('0');
    if (count == WORD_DIGITS) {
        storeBigEndian(reinterpret_cast<std::uint8_t*>(characters), text);
        return true;
    }
    for (std::int32_t i = 0; i < count; ++i) {
        characters[i] = static_cast<char>(text >> (56 - 8 * i) & 0xFF);
    }
    return true;
}

} // namespace

EpcStatus digitRunPut(BitBuffer& out, std::string_view digits) {
    const auto count = static_cast<std::int32_t>(digits.size());
    const std::int32_t fitting = std::min(count, bitBufferLeft(out) / DIGIT_BITS);
    const char* next = digits.data();
    const char* const end = next + fitting;
    while (end - next >= WORD_DIGITS) {
        const std::uint64_t characters = loadText(next);
        if (markNonDigits(characters) != 0) {
            break;
        }
        const std::uint64_t fields = packDigits(characters ^ inEveryByte('0'));
        EPC_TRY(bitBufferWrite(out, fields, WORD_BITS));
        next += WORD_DIGITS;
    }
    // The last digits, in a word that begins with some that are already written.
    if (next != end && end - next < WORD_DIGITS && end - digits.data() >= WORD_DIGITS) {
        const std::uint64_t characters = loadText(end - WORD_DIGITS);
        if (markNonDigits(characters) == 0) {
            const std::uint64_t fields = packDigits(characters ^ inEveryByte('0'));
            const auto width = static_cast<std::int32_t>(end - next) * DIGIT_BITS;
            EPC_TRY(bitBufferWrite(out, fields, width));
            next = end;
        }
    }
    std::uint64_t fields = 0;
    std::int32_t width = 0;
    for (; next != end && charIsDigit(*next); ++next, width += DIGIT_BITS) {
        fields = fields << DIGIT_BITS | static_cast<std::uint64_t>(*next - '0');
    }
    EPC_TRY(bitBufferWrite(out, fields, width));
    if (next == end && fitting == count) {
        return EPC_OK;
    }
    return charIsDigit(*next) ? EPC_ERR_NO_ROOM : EPC_ERR_BAD_FORMAT;
}

EpcStatus digitRunGet(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    while (count > 0) {
        const std::int32_t taken = std::min(count, WORD_DIGITS);
        if (textBufferRoom(text) < taken || !readWord(bits, taken, text.writePointer)) {
            break;
        }
        text.writePointer += taken;
        *text.writePointer = '\0';
        count -= taken;
    }
    // The fault is among the next eight.
    for (; count > 0; --count) {
        std::uint64_t digit = 0;
        EPC_TRY(bitBufferRead(bits, DIGIT_BITS, digit));
        if (digit > 9) {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(textBufferPutChar(text, static_cast<char>('0' + digit)));
    }
    return EPC_OK;
}

} // namespace rosetag
