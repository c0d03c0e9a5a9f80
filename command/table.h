/*
 * A table whose rows are converted: separated values, or JSON Lines. The rows are kept as they
 * were, and results added to them.
 */
#ifndef ROSETAG_COMMAND_TABLE_H
#define ROSETAG_COMMAND_TABLE_H

#include "csv_rows.h"

#include <rosetag/toolkit.hpp>

#include <span>

namespace rosetag {

struct TableOptions {
    std::vector<std::string> columns; // names, or numbers that count from 1; none: lines, no table
    char delimiter = '\0';            // NUL: found by the first line
    bool hasHeader = true;
};

// A column that is added.
struct AddedColumn {
    std::string_view name;
    bool isNumber = false;
};

struct Table {
    bool isJsonLines = false;
    bool hasHeader = true;
    char delimiter = ',';
    std::vector<std::string> columns; // as asked for
    std::vector<std::size_t> indexes; // of those columns, in separated values
    std::size_t cellCount = 0;        // of the first row
    std::vector<AddedColumn> added;
};

// Reads rows, one thread at a time.
struct TableReader {
    const Table& table;
    CsvReader csv;
    CsvRow row;
};

struct TableRow {
    std::string_view text; // without its line end
    std::string_view lineEnd;
    std::size_t lines = 1;
    std::vector<std::string> cells; // of the columns that were asked for
    Failure failure;                // of the row as a table
    std::size_t missingCells = 0;   // fewer than in the first row
    bool canGrow = true;            // results can be added: neither an empty line nor bad JSON
};

// Finds the columns by the first lines of the text. Throws UsageError if they are not there.
Table tableFind(const TableOptions& options, std::string_view text);

TableReader tableReader(const Table& table);

// Reads the row at the beginning of a text of whole lines, and takes it off.
void tableReadRow(TableReader& reader, std::string_view& text, TableRow& row);

// The bytes of a text of whole lines that are certainly rows.
std::size_t tableWholeRows(TableReader& reader, std::string_view text);

// The names of the added columns after the header.
std::string tableHeader(const Table& table, const TableRow& row);

// The row with a cell for each column that is added.
void tableAppend(const Table& table, const TableRow& row, std::span<const std::string> cells,
                 std::string& out);

} // namespace rosetag

#endif
