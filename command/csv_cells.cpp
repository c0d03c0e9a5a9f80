#include "csv_cells.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace rosetag {

namespace {

// True if no character of a cell has to be spelled out; eight are looked at together.
bool isPlain(std::string_view cell) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highest = 0x80 * ones;
    while (cell.size() >= sizeof ones) {
        std::uint64_t characters = 0;
        std::memcpy(&characters, cell.data(), sizeof characters);
        if (((characters - ones * ('\r' + 1)) & ~characters & highest) != 0) {
            return false;
        }
        cell.remove_prefix(sizeof characters);
    }
    return std::all_of(cell.begin(), cell.end(),
                       [](char character) { return static_cast<unsigned char>(character) > '\r'; });
}

} // namespace

void tsvAppendCell(std::string& row, std::string_view cell) {
    constexpr std::string_view special("\t\n\r\0", 4);
    constexpr std::string_view letters = "tnr0";
    if (isPlain(cell)) {
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
    const bool needsQuotes = std::any_of(cell.begin(), cell.end(), [delimiter](char character) {
        return character == delimiter || character == '"' || character == '\n' || character == '\r';
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
