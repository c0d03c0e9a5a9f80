/*
 * Finds the rows of a table of separated values in running text, and their cells. Every byte of a
 * row is kept; a cell in quotes may hold line ends.
 *
 * Where the text is not well formed a row is its first line, so that a stray quote costs one row
 * and not those after it.
 */
#ifndef ROSETAG_COMMAND_CSV_ROWS_H
#define ROSETAG_COMMAND_CSV_ROWS_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

enum class CsvFault {
    NONE,
    TEXT_AFTER_QUOTE,
    OPEN_QUOTE, // a quoted cell does not end within LONGEST_QUOTED_ROW, nor in the text
    NUL,
};

struct CsvRow {
    std::string_view text;    // without its line end
    std::string_view lineEnd; // as it was: LF or CR LF
    std::size_t lines = 1;
    CsvFault fault = CsvFault::NONE;
    std::string_view culprit; // the part of the text that is at fault
    std::string characters;   // of all cells, their quotes resolved
    std::vector<std::size_t> ends;
};

// About how many bytes a row that spans several lines may have.
inline constexpr std::size_t LONGEST_QUOTED_ROW = std::size_t{64} << 10;

struct CsvParser; // of the CSV library

struct CsvReader {
    char delimiter = ',';
    std::shared_ptr<CsvParser> parser;
};

// Quotes mean nothing where tabs separate.
CsvReader csvReader(char delimiter);

// Reads the row at the beginning of a text of whole lines, and takes it off.
void csvReadRow(CsvReader& reader, std::string_view& text, CsvRow& row);

// The bytes of a text of whole lines that are certainly rows, whatever comes after it.
std::size_t csvWholeRows(CsvReader& reader, std::string_view text);

inline std::size_t csvCellCount(const CsvRow& row) {
    return row.ends.size();
}

// The text of a row, which has no fault, from a cell on.
std::string_view csvCellsFrom(const CsvRow& row, char delimiter, std::size_t index);

inline std::string_view csvCell(const CsvRow& row, std::size_t index) {
    const std::size_t begin = index == 0 ? 0 : row.ends[index - 1];
    return std::string_view(row.characters).substr(begin, row.ends[index] - begin);
}

} // namespace rosetag

#endif
