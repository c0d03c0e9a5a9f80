/*
 * Scans text eight characters at a time: each is a byte of a machine word, the first the lowest.
 */
#ifndef ROSETAG_CORE_CHAR_SCAN_H
#define ROSETAG_CORE_CHAR_SCAN_H

#include "core/byte_order.h"
#include "core/char_class.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace rosetag {

constexpr std::ptrdiff_t SCAN_WIDTH = 8;

// The same character in every byte.
constexpr std::uint64_t inEveryByte(char character) {
    return std::uint64_t{0x0101010101010101} * static_cast<unsigned char>(character);
}

// A character is marked by the highest bit of its byte.
constexpr std::uint64_t ALL_MARKS = 0x8080808080808080;

constexpr std::uint64_t loadCharacters(const char* characters) {
    if (!std::is_constant_evaluated()) {
        return bytesLoad<std::endian::little, std::uint64_t>(characters);
    }
    std::uint64_t loaded = 0;
    for (int i = 0; i < SCAN_WIDTH; ++i) {
        loaded |= std::uint64_t{static_cast<unsigned char>(characters[i])} << (8 * i);
    }
    return loaded;
}

inline void storeCharacters(char* out, std::uint64_t characters) {
    bytesStore<std::endian::little>(out, characters);
}

// The characters before the first mark.
constexpr std::ptrdiff_t countBeforeMark(std::uint64_t marks) {
    return std::countr_zero(marks) / 8;
}

// Marks what is not the value of a digit.
constexpr std::uint64_t nonDigits(std::uint64_t values) {
    return (((values & ~ALL_MARKS) + inEveryByte(0x80 - 10)) | values) & ALL_MARKS;
}

// Marks what is not a digit. Without the bits of '0' a digit is below 10.
constexpr std::uint64_t markNonDigits(std::uint64_t characters) {
    return nonDigits(characters ^ inEveryByte('0'));
}

// Marks the first NUL; marks after it are meaningless.
ROSETAG_WRAPS constexpr std::uint64_t markNul(std::uint64_t characters) {
    return (characters - inEveryByte(1)) & ~characters & ALL_MARKS;
}

// The first character from first on that is stop or NUL, or last.
inline const char* findStop(const char* first, const char* last, char stop) {
    for (; last - first >= SCAN_WIDTH; first += SCAN_WIDTH) {
        const std::uint64_t characters = loadCharacters(first);
        const std::uint64_t marks = markNul(characters) | markNul(characters ^ inEveryByte(stop));
        if (marks != 0) {
            return first + countBeforeMark(marks);
        }
    }
    return std::find_if(first, last, [stop](char c) { return c == stop || c == '\0'; });
}

// Marks what may have to be escaped: digits and characters from '@' on never do.
constexpr std::uint64_t markUnsafe(std::uint64_t characters) {
    const std::uint64_t isFromAt = characters | characters << 1; // bit 6 or 7 of the byte
    return markNonDigits(characters) & ~isFromAt;
}
static_assert(std::all_of(std::begin(charClassRows), std::end(charClassRows),
                          [](const CharClassRow& row) {
                              constexpr std::uint32_t escapes =
                                  CHAR_CLASS_URI_ESCAPE | CHAR_CLASS_LINK_ESCAPE;
                              return (row.charClass & escapes) == 0 ||
                                     std::all_of(row.characters.begin(), row.characters.end(),
                                                 [](char c) { return c < '@' && !charIsDigit(c); });
                          }));

// The first character of a class of escapes from first on, or last.
inline const char* findEscaped(const char* first, const char* last, std::uint32_t escapedClass) {
    while (last - first >= SCAN_WIDTH) {
        const std::uint64_t marks = markUnsafe(loadCharacters(first));
        if (marks == 0) {
            first += SCAN_WIDTH;
            continue;
        }
        first += countBeforeMark(marks);
        if (charIsOfClass(*first, escapedClass)) {
            return first;
        }
        ++first;
    }
    return std::find_if(first, last,
                        [escapedClass](char c) { return charIsOfClass(c, escapedClass); });
}

} // namespace rosetag

#endif
