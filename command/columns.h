/*
 * One column of a table of comma-, semicolon- or tab-separated values.
 */
#ifndef ROSETAG_COMMAND_COLUMNS_H
#define ROSETAG_COMMAND_COLUMNS_H

#include <string>
#include <string_view>

namespace rosetag {

struct ColumnChoice {
    std::string name; // of the header, or a number that counts from 1; empty: lines are no table
    bool hasHeader = true;
};

struct Column {
    std::size_t index = 0;
    std::size_t count = 0; // of the cells in the first line
    char separator = ',';
};

// Finds the column by the first line of the table. Throws UsageError if it is not there.
Column columnFind(const ColumnChoice& choice, std::string_view firstLine);

// Takes the cell out of a row, its quotes resolved. False if the row has no such column or a quoted
// cell does not end on its line.
bool columnCell(const Column& column, std::string_view row, std::string& cell);

// Gives a row that is shorter than the first line empty cells, so that what is appended stands in
// its own columns.
void columnPad(const Column& column, std::string& row);

// Appends the separator and a cell, quoted where it must be.
void columnAppend(const Column& column, std::string& row, std::string_view cell);

} // namespace rosetag

#endif
