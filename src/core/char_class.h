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

struct CharClassRow {
    std::uint32_t charClass;
    std::string_view characters;
};

inline constexpr CharClassRow charClassRows[] = {
    // clang-format off
    {CHAR_CLASS_URI_ESCAPE,  " \"#%&()/<>?"},
    {CHAR_CLASS_AI82,        "!\"%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz"},
    {CHAR_CLASS_AI39,        "#-/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {CHAR_CLASS_LINK_ESCAPE, "!#%&'()*+,/:;<=>?"},
    // clang-format on
};

// The classes of each character, by its code.
inline constexpr std::array<std::uint8_t, 256> charClassTable = []() {
    std::array<std::uint8_t, 256> table{};
    for (const CharClassRow& row : charClassRows) {
        for (const char character : row.characters) {
            table[static_cast<unsigned char>(character)] |=
                static_cast<std::uint8_t>(row.charClass);
        }
    }
    return table;
}();

// True if the character is of any of the classes.
constexpr bool charIsOfClass(char character, std::uint32_t classes) {
    return (charClassTable[static_cast<unsigned char>(character)] & classes) != 0;
}

constexpr bool charIsDigit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace rosetag

#endif
