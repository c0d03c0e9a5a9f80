#include "csv_cells.h"

#include <algorithm>

namespace rosetag {

void tsvAppendCell(std::string& row, std::string_view cell) {
    constexpr std::string_view special("\t\n\r\0", 4);
    constexpr std::string_view letters = "tnr0";
    bool isPlain = true;
    for (const char character : cell) { // to its end, so that it takes many at a time
        isPlain = isPlain & (static_cast<unsigned char>(character) > '\r');
    }
    if (isPlain) {
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
