#include "table.h"

#include "csv_cells.h"
#include "fields.h"
#include "json_lines.h"
#include "output.h"

#include <algorithm>

namespace rosetag {

namespace {

bool isAllDigits(std::string_view text) {
    return !text.empty() &&
           std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

std::string namesOf(const CsvRow& header) {
    std::string names;
    for (std::size_t i = 0; i < csvCellCount(header); ++i) {
        names += (i == 0 ? "" : ", ") + std::string(csvCell(header, i));
    }
    return names;
}

std::size_t indexOfName(const std::string& name, const CsvRow& header) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < csvCellCount(header); ++i) {
        if (csvCell(header, i) == name) {
            found.push_back(i);
        }
    }
    if (found.empty()) {
        throw UsageError("the table has no column \"" + name + "\"; it has " + namesOf(header));
    }
    if (found.size() > 1) {
        throw UsageError("the table has several columns \"" + name + "\"; give the number: " +
                         std::to_string(found[0] + 1) + " or " + std::to_string(found[1] + 1));
    }
    return found.front();
}

std::size_t indexOfNumber(const std::string& number, std::size_t count) {
    constexpr std::size_t mostDigits = 6;
    const bool isSane = number.size() <= mostDigits;
    const std::size_t position = isSane ? std::stoul(number) : count + 1;
    if (position == 0 || position > count) {
        throw UsageError("the table has " + std::to_string(count) +
                         (count == 1 ? " column" : " columns") + ", counted from 1; there is no " +
                         number);
    }
    return position - 1;
}

std::string faultText(CsvFault fault) {
    switch (fault) {
    case CsvFault::TEXT_AFTER_QUOTE:
        return "text follows the closing quote of a cell";
    case CsvFault::OPEN_QUOTE:
        return "this quote is not closed where its cell ends";
    case CsvFault::NUL:
        return "a row cannot hold a NUL, the byte 0";
    case CsvFault::NONE:
        break;
    }
    return {};
}

std::string faultRemedy(CsvFault fault) {
    switch (fault) {
    case CsvFault::TEXT_AFTER_QUOTE:
        return "write a quote inside quotes twice";
    case CsvFault::OPEN_QUOTE:
        return "close it, or leave it out";
    case CsvFault::NUL:
        return "leave it out";
    case CsvFault::NONE:
        break;
    }
    return {};
}

std::string cellsText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " cell" : " cells");
}

// About a part of the row.
void fail(TableRow& row, EpcStatus status, std::string_view part, std::string message,
          std::string remedy) {
    row.failure.status = status;
    row.failure.message = std::move(message);
    row.failure.remedy = std::move(remedy);
    row.failure.position = static_cast<std::size_t>(part.data() - row.text.data());
    row.failure.length = part.size();
    row.failure.culprit = part;
}

void readCsvCells(const Table& table, const CsvRow& csv, TableRow& row) {
    if (csv.fault != CsvFault::NONE) {
        return fail(row, EPC_ERR_BAD_FORMAT, csv.culprit, faultText(csv.fault),
                    faultRemedy(csv.fault));
    }
    const std::size_t count = csvCellCount(csv);
    if (count > table.cellCount) {
        return fail(row, EPC_ERR_BAD_FORMAT, csvCellsFrom(csv, table.delimiter, table.cellCount),
                    "the row has " + cellsText(count) + ", and the first row " +
                        std::to_string(table.cellCount),
                    "put a cell that holds the delimiter in quotes");
    }
    row.missingCells = table.cellCount - count;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::size_t index = table.indexes[i];
        if (index < count) {
            row.cells[i] = csvCell(csv, index);
        } else {
            return fail(row, EPC_ERR_TRUNCATED, row.text.substr(row.text.size()),
                        "the row has " + cellsText(count) + ", and column \"" + table.columns[i] +
                            "\" is cell " + std::to_string(index + 1),
                        "add it");
        }
    }
}

void readJsonCells(const Table& table, TableRow& row) {
    std::vector<std::string_view> keys;
    for (const AddedColumn& column : table.added) {
        keys.push_back(column.name);
    }
    const JsonFault fault = jsonLineRead(row.text, table.columns, keys, row.cells);
    if (!fault.message.empty()) {
        row.canGrow = false;
        fail(row, EPC_ERR_BAD_FORMAT, fault.culprit, fault.message, fault.remedy);
    }
}

// Files whose first byte begins no UTF-8 text: UTF-16, or compressed.
void throwIfNoText(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.empty() ? ' ' : text.front());
    if (first >= 0xFE || (first < 0x20 && first != '\t' && first != '\r' && first != '\n')) {
        throw UsageError("the table: " + failureMessage(recognise(text.substr(0, 4)).failure));
    }
}

} // namespace

Table tableFind(const TableOptions& options, std::string_view text) {
    Table table;
    table.columns = options.columns;
    table.hasHeader = options.hasHeader;
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin != std::string_view::npos && text[begin] == '{') {
        table.isJsonLines = true;
        table.hasHeader = false;
        return table;
    }
    throwIfNoText(text);
    table.delimiter = options.delimiter != '\0' ? options.delimiter
                                                : csvDelimiterOf(text.substr(0, text.find('\n')));
    CsvReader reader = csvReader(table.delimiter);
    CsvRow first;
    csvReadRow(reader, text, first);
    if (first.fault == CsvFault::NUL) {
        throw UsageError("the first row of the table: " +
                         failureMessage(recognise(first.text).failure));
    }
    if (first.fault != CsvFault::NONE) {
        TableRow row;
        row.text = first.text;
        fail(row, EPC_ERR_BAD_FORMAT, first.culprit, faultText(first.fault),
             faultRemedy(first.fault));
        throw UsageError("the first row of the table: " + failureText(row.failure));
    }
    table.cellCount = csvCellCount(first);
    for (const std::string& column : options.columns) {
        if (!isAllDigits(column) && !options.hasHeader) {
            throw UsageError("a table without a header has no column \"" + column +
                             "\"; give its number");
        }
        table.indexes.push_back(isAllDigits(column) ? indexOfNumber(column, table.cellCount)
                                                    : indexOfName(column, first));
    }
    return table;
}

TableReader tableReader(const Table& table) {
    return {table, table.isJsonLines ? CsvReader{} : csvReader(table.delimiter), {}};
}

void tableReadRow(TableReader& reader, std::string_view& text, TableRow& row) {
    row.cells.assign(reader.table.columns.size(), {});
    row.failure.status = EPC_OK;
    row.missingCells = 0;
    row.lines = 1;
    if (reader.table.isJsonLines) {
        const std::size_t size = text.find('\n') + 1;
        const bool hasReturn = size > 1 && text[size - 2] == '\r';
        row.lineEnd = text.substr(size - (hasReturn ? 2 : 1), hasReturn ? 2 : 1);
        row.text = text.substr(0, size - row.lineEnd.size());
        text.remove_prefix(size);
    } else {
        csvReadRow(reader.csv, text, reader.row);
        row.text = reader.row.text;
        row.lineEnd = reader.row.lineEnd;
        row.lines = reader.row.lines;
    }
    row.canGrow = !row.text.empty();
    if (row.canGrow && reader.table.isJsonLines) {
        readJsonCells(reader.table, row);
    } else if (row.canGrow) {
        readCsvCells(reader.table, reader.row, row);
    }
}

std::size_t tableWholeRows(TableReader& reader, std::string_view text) {
    return reader.table.isJsonLines || reader.table.delimiter == '\t'
               ? text.size()
               : csvWholeRows(reader.csv, text);
}

std::string tableHeader(const Table& table, const TableRow& row) {
    std::string header(row.text);
    for (const AddedColumn& column : table.added) {
        header += table.delimiter;
        csvAppendCell(header, table.delimiter, column.name);
    }
    return header;
}

void tableAppend(const Table& table, const TableRow& row, std::span<const std::string> cells,
                 std::string& out) {
    out += row.text;
    if (!row.canGrow) {
        return;
    }
    if (table.isJsonLines) {
        std::vector<JsonMember> members;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!cells[i].empty()) {
                members.push_back({table.added[i].name, cells[i], table.added[i].isNumber});
            }
        }
        return jsonLineAppend(out, members);
    }
    out.append(row.missingCells, table.delimiter);
    for (const std::string& cell : cells) {
        out += table.delimiter;
        csvAppendCell(out, table.delimiter, cell);
    }
}

} // namespace rosetag
