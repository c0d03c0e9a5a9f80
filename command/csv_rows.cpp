#include "csv_rows.h"

#include <algorithm>
#include <new>

#include <csv.h>

namespace rosetag {

struct CsvParser {
    csv_parser state{};
    CsvRow* row = nullptr;
    bool isWhole = false;
    bool lacksMemory = false;

    CsvParser() {
        csv_init(&state, CSV_STRICT);
    }
    CsvParser(const CsvParser&) = delete;
    CsvParser& operator=(const CsvParser&) = delete;
    ~CsvParser() {
        csv_free(&state);
    }
};

namespace {

// A line ends with LF. The CR of Windows before it is a blank, of which the library keeps none at
// the end of a cell.
int endsRow(unsigned char character) {
    return character == '\n' ? 1 : 0;
}
int isBlank(unsigned char character) {
    return character == '\r' ? 1 : 0;
}

// No exception may pass through the library, which is C.
void addCell(void* characters, std::size_t size, void* data) {
    auto& parser = *static_cast<CsvParser*>(data);
    try {
        parser.row->characters.append(static_cast<const char*>(characters), size);
        parser.row->ends.push_back(parser.row->characters.size());
    } catch (const std::bad_alloc&) {
        parser.lacksMemory = true;
    }
}

void endRow(int, void* data) {
    static_cast<CsvParser*>(data)->isWhole = true;
}

// Parses one line. Gives what could not be parsed, which begins with text after a closing quote; a
// quote in the middle of a cell without quotes is a character like others.
std::string_view parseLine(CsvParser& parser, std::string_view line) {
    while (!line.empty()) {
        const std::size_t done =
            csv_parse(&parser.state, line.data(), line.size(), addCell, endRow, &parser);
        if (csv_error(&parser.state) == CSV_ENOMEM || parser.lacksMemory) {
            throw std::bad_alloc();
        }
        line.remove_prefix(done);
        if (line.empty()) {
            break;
        }
        if (line.front() != '"') {
            break;
        }
        csv_set_opts(&parser.state, 0);
        csv_parse(&parser.state, line.data(), 1, addCell, endRow, &parser);
        csv_set_opts(&parser.state, CSV_STRICT);
        line.remove_prefix(1);
    }
    return line;
}

// Begins a new row, whatever was left of the one before.
void restart(CsvParser& parser, CsvRow& row) {
    parser.row = nullptr;
    const auto forget = [](void*, std::size_t, void*) {};
    const auto forgetRow = [](int, void*) {};
    csv_fini(&parser.state, forget, forgetRow, nullptr);
    parser.isWhole = false;
    parser.row = &row;
    row.characters.clear();
    row.ends.clear();
}

std::size_t lineSize(std::string_view text, std::size_t from) {
    return text.find('\n', from) + 1 - from;
}

// What the first lines of a text are.
struct RowExtent {
    std::size_t size = 0;
    std::size_t lines = 0;
    CsvFault fault = CsvFault::NONE;
    std::size_t faultAt = 0;
    bool isOpen = false; // inside of quotes where the text ends
};

// Splits a line that has no quote, which needs no parser.
RowExtent splitLine(std::string_view line, char delimiter, CsvRow& row) {
    const std::size_t end = line.size() - (line.ends_with("\r\n") ? 2 : 1);
    row.characters.clear();
    row.ends.clear();
    for (std::size_t at = 0; at <= end;) {
        const std::size_t next = std::min(line.find(delimiter, at), end);
        row.characters += line.substr(at, next - at);
        row.ends.push_back(row.characters.size());
        at = next + 1;
    }
    return {.size = line.size(), .lines = 1};
}

RowExtent parseRow(CsvParser& parser, std::string_view text, CsvRow& row) {
    const std::string_view first = text.substr(0, lineSize(text, 0));
    if (first.find('"') == std::string_view::npos && first.find('\0') == std::string_view::npos) {
        return splitLine(first, static_cast<char>(csv_get_delim(&parser.state)), row);
    }
    restart(parser, row);
    RowExtent extent;
    while (extent.size < text.size() && extent.size <= LONGEST_QUOTED_ROW) {
        const std::string_view line = text.substr(extent.size, lineSize(text, extent.size));
        if (const std::size_t nul = line.find('\0'); nul != std::string_view::npos) {
            extent.fault = CsvFault::NUL;
            extent.faultAt = extent.size + nul;
        } else if (const std::string_view rest = parseLine(parser, line); !rest.empty()) {
            extent.fault = CsvFault::TEXT_AFTER_QUOTE;
            extent.faultAt = extent.size + line.size() - rest.size();
        }
        extent.size += line.size();
        ++extent.lines;
        // An empty line is a row of one empty cell, which the library does not report.
        const bool isEmpty = extent.lines == 1 && (line == "\n" || line == "\r\n");
        if (extent.fault != CsvFault::NONE || parser.isWhole || isEmpty) {
            return extent;
        }
    }
    extent.isOpen = extent.size <= LONGEST_QUOTED_ROW;
    extent.fault = CsvFault::OPEN_QUOTE;
    extent.faultAt = std::string_view::npos;
    return extent;
}

// A line from a cell on, or from its last cell if there are fewer.
std::string_view fromCell(std::string_view line, char delimiter, std::size_t index) {
    for (std::size_t i = 0; i < index; ++i) {
        std::size_t end = 0;
        if (delimiter != '\t' && line.starts_with('"')) {
            end = line.find('"', 1);
            while (end < line.size() && line.substr(end).starts_with("\"\"")) {
                end = line.find('"', end + 2);
            }
        }
        end = end == std::string_view::npos ? end : line.find(delimiter, end);
        if (end == std::string_view::npos) {
            break;
        }
        line.remove_prefix(end + 1);
    }
    return line;
}

// What is wrong in a line. A quote that is left open begins its last cell.
std::string_view culpritOf(std::string_view line, char delimiter, const RowExtent& extent) {
    if (extent.fault == CsvFault::OPEN_QUOTE) {
        return fromCell(line, delimiter, line.size());
    }
    const std::string_view rest = line.substr(extent.faultAt);
    return rest.substr(0, extent.fault == CsvFault::NUL ? 1 : rest.find(delimiter));
}

} // namespace

CsvReader csvReader(char delimiter) {
    CsvReader reader{delimiter, std::make_shared<CsvParser>()};
    csv_parser& state = reader.parser->state;
    csv_set_delim(&state, static_cast<unsigned char>(delimiter));
    csv_set_quote(&state, delimiter == '\t' ? '\0' : '"');
    csv_set_space_func(&state, isBlank);
    csv_set_term_func(&state, endsRow);
    return reader;
}

void csvReadRow(CsvReader& reader, std::string_view& text, CsvRow& row) {
    RowExtent extent = parseRow(*reader.parser, text, row);
    if (extent.fault != CsvFault::NONE) {
        extent.size = lineSize(text, 0);
        extent.lines = 1;
        // A fault in a line after the first is due to a quote that the first one leaves open.
        extent.fault = extent.faultAt < extent.size ? extent.fault : CsvFault::OPEN_QUOTE;
    }
    if (row.ends.empty()) {
        row.ends.push_back(0);
    }
    row.lines = extent.lines;
    row.fault = extent.fault;
    row.text = text.substr(0, extent.size - 1);
    const bool hasReturn = row.text.ends_with('\r');
    row.text.remove_suffix(hasReturn ? 1 : 0);
    row.lineEnd = text.substr(row.text.size(), hasReturn ? 2 : 1);
    row.culprit = extent.fault == CsvFault::NONE ? std::string_view()
                                                 : culpritOf(row.text, reader.delimiter, extent);
    text.remove_prefix(extent.size);
}

std::string_view csvCellsFrom(const CsvRow& row, char delimiter, std::size_t index) {
    return fromCell(row.text, delimiter, index);
}

std::size_t csvWholeRows(CsvReader& reader, std::string_view text) {
    if (text.find('"') == std::string_view::npos) {
        return text.size();
    }
    CsvRow row;
    std::size_t whole = 0;
    while (whole < text.size()) {
        const std::string_view rest = text.substr(whole);
        const RowExtent extent = parseRow(*reader.parser, rest, row);
        if (extent.isOpen) {
            break;
        }
        whole += extent.fault == CsvFault::NONE ? extent.size : lineSize(rest, 0);
    }
    return whole;
}

} // namespace rosetag
