// Any text as a table: its rows are the text, and cells that are written are read again.
//
// Input: a byte for the delimiter, the text.
#include "fuzz_input.h"

#include "csv_cells.h"
#include "csv_rows.h"

using rosetag::CsvFault;
using rosetag::CsvReader;
using rosetag::CsvRow;

namespace {

std::vector<std::string> cellsOf(const CsvRow& row) {
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < csvCellCount(row); ++i) {
        cells.emplace_back(csvCell(row, i));
    }
    return cells;
}

void requireWrittenIsRead(char delimiter, const std::vector<std::string>& cells) {
    std::string text;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) {
            text += delimiter;
        }
        rosetag::csvAppendCell(text, delimiter, cell);
    }
    text += '\n';
    std::string_view rest = text;
    CsvReader reader = rosetag::csvReader(delimiter);
    CsvRow row;
    rosetag::csvReadRow(reader, rest, row);
    require(rest.empty() && row.fault == CsvFault::NONE && cellsOf(row) == cells,
            "cells that are written are read again: " + text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    constexpr std::string_view delimiters = ",;|\t";
    const char delimiter = delimiters[static_cast<std::size_t>(input.number() & 3)];
    const std::string text = input.restAsBytes() + '\n';
    std::string_view rest = text;
    std::string whole;
    CsvReader reader = rosetag::csvReader(delimiter);
    require(rosetag::csvWholeRows(reader, rest) <= rest.size(), "whole rows lie in the text");
    while (!rest.empty()) {
        CsvRow row;
        const std::size_t before = rest.size();
        rosetag::csvReadRow(reader, rest, row);
        require(rest.size() < before, "a row takes something off");
        whole.append(row.text).append(row.lineEnd);
        if (row.fault == CsvFault::NONE && delimiter != '\t') {
            requireWrittenIsRead(delimiter, cellsOf(row));
        }
    }
    require(whole == text, "the rows are the text");
    return 0;
}
