/*
 * Sets of characters by their code. A byte at or above 0x80 belongs to no set.
 *
 * Source: GS1 General Specifications, figure 7.11-1 (character set 82) and figure 7.11-2 (character
 * set 39); EPC Tag Data Standard, section 6 (escapes of EPC URIs); GS1 Digital Link, URI syntax.
 */
#ifndef ROSETAG_CORE_CHAR_CLASS_H
#define ROSETAG_CORE_CHAR_CLASS_H

#include <array>
#include <cstdint>
#include <string_view>

namespace rosetag {

// Percent-escaped in EPC URI bodies.
constexpr std::uint32_t CHAR_CLASS_URI_ESCAPE = 0x02;
// The GS1 AI encodable character set 82.
constexpr std::uint32_t CHAR_CLASS_AI82 = 0x04;
// The GS1 AI encodable character set 39.
constexpr std::uint32_t CHAR_CLASS_AI39 = 0x08;
// Percent-escaped in Digital Link values.
constexpr std::uint32_t CHAR_CLASS_LINK_ESCAPE = 0x10;

constexpr std::array<std::uint32_t, 128> charClassTableMake() {
    struct Members {
        std::uint32_t charClass;
        std::string_view characters;
    };
    constexpr Members members[] = {
        {CHAR_CLASS_URI_ESCAPE, " \"#%&()/<>?"},
        {CHAR_CLASS_AI82, "!\"%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZ_"
                          "abcdefghijklmnopqrstuvwxyz"},
        {CHAR_CLASS_AI39, "#-/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
        {CHAR_CLASS_LINK_ESCAPE, "!#%&'()*+,/:;<=>?"},
    };
    std::array<std::uint32_t, 128> table{};
    for (const Members& row : members) {
        for (const char character : row.characters) {
            table[static_cast<unsigned char>(character)] |= row.charClass;
        }
    }
    return table;
}

inline constexpr std::array<std::uint32_t, 128> charClassTable = charClassTableMake();

// True if the character is of any of the classes.
constexpr bool charIsOfClass(char character, std::uint32_t classes) {
    const auto code = static_cast<unsigned char>(character);
    return code < charClassTable.size() && (charClassTable[code] & classes) != 0;
}

constexpr bool charIsDigit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace rosetag

#endif
