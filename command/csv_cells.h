/*
 * Cells of separated values as they are written, and the character that separates them.
 */
#ifndef ROSETAG_COMMAND_CSV_CELLS_H
#define ROSETAG_COMMAND_CSV_CELLS_H

#include <string>
#include <string_view>

namespace rosetag {

// True of most cells, and only of those of ASCII without a control character.
bool isPlainCell(std::string_view cell);

// Appends a cell of a row that tabs separate. A tab or a line end in it is spelled out: \t.
void tsvAppendCell(std::string& row, std::string_view cell);

// Appends a cell, quoted where it has to be.
void csvAppendCell(std::string& row, char delimiter, std::string_view cell);

// The delimiter of a table by its first line: the first of tab, semicolon, comma and bar, tried in
// this order, that occurs outside quotes; the comma if none does.
char csvDelimiterOf(std::string_view firstLine);

} // namespace rosetag

#endif
