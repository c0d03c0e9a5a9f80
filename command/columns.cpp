#include "columns.h"

#include "output.h"
#include "recognise/value_form.h"
#include "results.h"

namespace rosetag {

namespace {

// The commonest separators, the one that occurs first in this order.
char separatorOf(std::string_view firstLine) {
    for (const char separator : {'\t', ';'}) {
        if (firstLine.find(separator) != std::string_view::npos) {
            return separator;
        }
    }
    return ',';
}

// Reads a cell in quotes, of which two stand for one. False if it does not end.
bool readQuoted(std::string_view& rest, std::string& cell) {
    rest.remove_prefix(1);
    while (true) {
        const std::size_t quote = rest.find('"');
        if (quote == std::string_view::npos) {
            return false;
        }
        cell += rest.substr(0, quote);
        rest.remove_prefix(quote + 1);
        if (!rest.starts_with('"')) {
            return true;
        }
        cell += '"';
        rest.remove_prefix(1);
    }
}

// Reads the next cell and leaves the rest of the row behind its separator. Quotes mean nothing
// where tabs separate.
bool readCell(char separator, std::string_view& rest, std::string& cell, bool& isLast) {
    cell.clear();
    if (separator != '\t' && rest.starts_with('"') && !readQuoted(rest, cell)) {
        return false;
    }
    const std::size_t end = rest.find(separator);
    isLast = end == std::string_view::npos;
    cell += rest.substr(0, end);
    rest.remove_prefix(isLast ? rest.size() : end + 1);
    return true;
}

// The cells of a row, 0 for one that ends inside quotes.
std::size_t cellCount(char separator, std::string_view row) {
    std::string cell;
    bool isLast = false;
    std::size_t count = 0;
    while (!isLast) {
        if (!readCell(separator, row, cell, isLast)) {
            return 0;
        }
        ++count;
    }
    return count;
}

std::size_t indexOfName(const ColumnChoice& choice, char separator, std::string_view header) {
    std::string cell;
    bool isLast = false;
    for (std::size_t index = 0; !isLast && readCell(separator, header, cell, isLast); ++index) {
        if (cell == choice.name) {
            return index;
        }
    }
    throw UsageError("--column: the table has no column \"" + choice.name + '"');
}

std::size_t indexOfNumber(const std::string& number) {
    constexpr std::size_t mostDigits = 6;
    if (number.size() > mostDigits || number.find_first_not_of('0') == std::string::npos) {
        throw UsageError("--column: columns count from 1, and \"" + number + "\" is none");
    }
    return std::stoul(number) - 1;
}

} // namespace

Column columnFind(const ColumnChoice& choice, std::string_view firstLine) {
    const char separator = separatorOf(firstLine);
    const std::size_t index = isAllDigits(choice.name) ? indexOfNumber(choice.name)
                                                       : indexOfName(choice, separator, firstLine);
    return {index, cellCount(separator, firstLine), separator};
}

void columnPad(const Column& column, std::string& row) {
    const std::size_t count = cellCount(column.separator, row);
    if (count > 0 && count < column.count) {
        row.append(column.count - count, column.separator);
    }
}

bool columnCell(const Column& column, std::string_view row, std::string& cell) {
    bool isLast = false;
    for (std::size_t index = 0; index <= column.index; ++index) {
        if (isLast || !readCell(column.separator, row, cell, isLast)) {
            return false;
        }
    }
    return true;
}

void columnAppend(const Column& column, std::string& row, std::string_view cell) {
    row += column.separator;
    const char special[] = {column.separator, '"', '\n', '\r'};
    if (column.separator == '\t') {
        appendTsvCell(row, cell);
    } else if (cell.find_first_of(std::string_view(special, sizeof special)) ==
               std::string_view::npos) {
        row += cell;
    } else {
        row += '"';
        for (const char character : cell) {
            row += character == '"' ? "\"\"" : std::string(1, character);
        }
        row += '"';
    }
}

} // namespace rosetag
