#include "csv_cells.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace rosetag {

namespace {

constexpr std::uint64_t ones = 0x0101010101010101;

// Set the highest bit of each of eight characters that is below the limit, or the same as the
// character; perhaps of others too.
std::uint64_t below(std::uint64_t characters, char limit) {
    return characters - ones * static_cast<unsigned char>(limit);
}
std::uint64_t same(std::uint64_t characters, char character) {
    return (characters ^ ones * static_cast<unsigned char>(character)) - ones;
}

// Looks at all characters of a text, eight at a time, the last ones perhaps twice. False if one may
// be special: then find gives its highest bit.
// find: std::uint64_t(std::uint64_t characters)
template <typename Find>
bool holdsNone(std::string_view text, Find find) {
    constexpr std::uint64_t highest = 0x80 * ones;
    std::uint64_t characters = ones * 'x';
    if (text.size() < sizeof characters) {
        for (const char character : text) {
            characters = characters << 8 | static_cast<unsigned char>(character);
        }
        return ((characters | find(characters)) & highest) == 0;
    }
    const std::size_t last = text.size() - sizeof characters;
    std::uint64_t found = 0;
    for (std::size_t at = 0; at < last; at += sizeof characters) {
        std::memcpy(&characters, text.data() + at, sizeof characters);
        found |= characters | find(characters);
    }
    std::memcpy(&characters, text.data() + last, sizeof characters);
    return ((found | characters | find(characters)) & highest) == 0;
}

} // namespace

bool isPlainCell(std::string_view cell) {
    return holdsNone(cell, [](std::uint64_t characters) { return below(characters, ' '); });
}

void tsvAppendCell(std::string& row, std::string_view cell) {
    constexpr std::string_view special("\t\n\r\0", 4);
    constexpr std::string_view letters = "tnr0";
    if (isPlainCell(cell)) {
        row += cell;
        return;
    }
    for (const char character : cell) {
        if (character > '\r') {
            row += character;
            continue;
        }
        const std::size_t found = special.find(character);
        if (found == std::string_view::npos) {
            row += character;
        } else {
            row += '\\';
            row += letters[found];
        }
    }
}

void csvAppendCell(std::string& row, char delimiter, std::string_view cell) {
    if (delimiter == '\t') {
        return tsvAppendCell(row, cell);
    }
    const bool isPlain = holdsNone(cell, [delimiter](std::uint64_t characters) {
        return below(characters, ' ') | same(characters, '"') | same(characters, delimiter);
    });
    const bool needsQuotes =
        !isPlain && std::any_of(cell.begin(), cell.end(), [delimiter](char character) {
            return character == delimiter || character == '"' || character == '\n' ||
                   character == '\r';
        });
    if (!needsQuotes) {
        row += cell;
        return;
    }
    row += '"';
    for (const char character : cell) {
        row.append(character == '"' ? 2 : 1, character);
    }
    row += '"';
}

char csvDelimiterOf(std::string_view firstLine) {
    constexpr std::string_view delimiters = "\t;,|";
    std::size_t found = delimiters.size();
    bool isQuoted = false;
    for (const char character : firstLine) {
        isQuoted = isQuoted != (character == '"');
        found = isQuoted ? found : std::min(found, delimiters.find(character));
    }
    return found < delimiters.size() ? delimiters[found] : ',';
}

} // namespace rosetag
