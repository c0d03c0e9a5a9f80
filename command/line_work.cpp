#include "line_work.h"

#include "output.h"
#include "translate/library_calls.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace rosetag {

namespace {

struct HexRoad {
    std::string_view field;
    HexExport call;
};

constexpr std::array<HexRoad, 5> hexRoads = {{
    {"tag-uri", epc_hexToEpcTagUri},
    {"pure-uri", epc_hexToEpcUri},
    {"element-string", epc_hexToGs1ElementString},
    {"digital-link", epc_hexToDigitalLink},
    {"scheme", epc_hexToTagSchemeName},
}};

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// One line, and where its result goes.
struct LineTask {
    const LineRules& rules;
    LineWork& work;
    std::uint64_t number;
    std::string scratch;
};

void appendFailure(LineTask& task, const Result& result) {
    LineTally& tally = task.work.tally;
    ++tally.failures;
    const std::string status(epc_statusName(result.failure.status));
    // The first line of a message says what is wrong; further ones are advice.
    const std::string message = result.failure.message.substr(0, result.failure.message.find('\n'));
    if (tally.firstFailure.empty()) {
        tally.firstFailure = "line " + std::to_string(task.number) + ", \"" +
                             textForMessage(result.value) + "\": " + status + ": " + message;
    }
    if (task.rules.writesErrors) {
        task.work.errors += std::to_string(task.number) + '\t' + status + '\t';
        appendTsvCell(task.work.errors, result.value);
        task.work.errors += '\t';
        appendTsvCell(task.work.errors, message);
        task.work.errors += '\n';
    }
}

void appendResult(LineTask& task, const Result& result) {
    const LineFormat& format = task.rules.format;
    std::string& line = task.scratch;
    line.clear();
    if (format.isJson) {
        line = resultJson(result);
    } else {
        appendTsvRow(line, format.fields, result, format.isRaw);
        if (format.hasStatusColumn && (format.hasFieldHeader || isFailure(result.failure))) {
            line += '\t' + std::string(epc_statusName(result.failure.status));
        }
    }
    textAreaAppend(task.work.out, line);
}

// The row as it was, and the results behind it.
void appendTableRow(LineTask& task, std::string_view row, const Result& result, bool isBlank) {
    const LineFormat& format = task.rules.format;
    const Column& column = *format.column;
    std::string& line = task.scratch;
    line = row;
    columnPad(column, line);
    for (const ResultField* field : format.fields) {
        columnAppend(column, line, isBlank ? "" : resultText(*field, result, format.isRaw));
    }
    if (format.hasStatusColumn) {
        columnAppend(column, line, isBlank ? "" : epc_statusName(result.failure.status));
    }
    textAreaAppend(task.work.out, line);
}

// Converts the value of a result. False where the arguments of the command do not suffice.
bool convertLine(LineTask& task, Result& result) {
    if (task.work.block.isOverlong) {
        result.failure = {EPC_ERR_TOO_LONG, "the line is longer than " +
                                                std::to_string(LONGEST_LINE >> 20) +
                                                " MiB; this is its beginning"};
        return true;
    }
    try {
        task.rules.convert(result);
    } catch (const UsageError& error) {
        task.work.tally.usageError =
            "line " + std::to_string(task.number) + ": " + std::string(error.what());
    }
    return task.work.tally.usageError.empty();
}

void runRow(LineTask& task, std::string_view row) {
    Result result;
    result.line = task.number;
    std::string cell;
    const bool isThere = columnCell(*task.rules.format.column, row, cell);
    result.value = isThere ? std::string_view(cell) : row;
    const bool isBlank = isThere && cell.empty();
    if (!isThere) {
        result.failure = {EPC_ERR_TRUNCATED,
                          "the row has no such column, or a quoted cell goes on in the next line"};
    } else if (!isBlank && !convertLine(task, result)) {
        return;
    }
    task.work.tally.blanks += isBlank ? 1U : 0U;
    if (isFailure(result.failure)) {
        appendFailure(task, result);
    }
    if (task.rules.format.isJson) {
        appendResult(task, result);
    } else {
        appendTableRow(task, row, result, isBlank);
    }
}

void runLine(LineTask& task, std::string_view line) {
    if (task.rules.format.column.has_value()) {
        return runRow(task, line);
    }
    Result result;
    result.line = task.number;
    result.value = line;
    if (!line.empty() && !convertLine(task, result)) {
        return;
    }
    task.work.tally.blanks += line.empty() ? 1U : 0U;
    if (isFailure(result.failure)) {
        appendFailure(task, result);
    }
    if (!line.empty() || task.rules.format.isJson) {
        appendResult(task, result);
    }
}

// The line is hex and nothing else: one call makes its result.
bool runHexLine(HexExport call, const char* line, TextArea& out) {
    textAreaReserve(out, TEXT_SIZE + 1);
    char* const dst = out.data.get() + out.size;
    if (call(line, TEXT_SIZE, dst) != EPC_OK) {
        return false;
    }
    out.size += std::strlen(dst);
    return true;
}

// The length of a line without what Windows puts in front of its end.
std::size_t lineLength(const char* line, const char* end) {
    const auto length = static_cast<std::size_t>(end - line);
    return length > 0 && line[length - 1] == '\r' ? length - 1 : length;
}

} // namespace

HexExport hexExportOf(std::string_view fieldName) {
    const auto* const road = std::ranges::find(hexRoads, fieldName, &HexRoad::field);
    return road == hexRoads.end() ? nullptr : road->call;
}

void lineWorkTrim(LineWork& work) {
    textAreaClear(work.block.text);
    textAreaClear(work.out);
    if (work.errors.capacity() > LINE_BLOCK_SIZE) {
        work.errors = {};
    }
    work.errors.clear();
    work.tally = {};
}

void lineWorkRun(const LineRules& rules, LineWork& work) {
    LineTask task{rules, work, work.block.firstLine, {}};
    const std::string_view text = textAreaView(work.block.text);
    const bool holdsNul = text.find('\0') != std::string_view::npos;
    const HexExport hexExport = holdsNul ? nullptr : rules.format.hexExport;
    char* line = work.block.text.data.get();
    char* const end = line + text.size();
    while (line != end) {
        auto* const lineEnd =
            static_cast<char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        const std::size_t length = lineLength(line, lineEnd);
        line[length] = '\0';
        ++work.tally.lines;
        if (hexExport == nullptr || !isHexDigit(*line) || !runHexLine(hexExport, line, work.out)) {
            runLine(task, {line, length});
        }
        if (!work.tally.usageError.empty()) {
            return;
        }
        textAreaAppend(work.out, "\n");
        if (rules.stopsAtFailure && work.tally.failures > 0) {
            return;
        }
        ++task.number;
        line = lineEnd + 1;
    }
}

std::string lineHeader(LineFormat& format, const ColumnChoice& choice, LineBlock& block) {
    std::string_view text = textAreaView(block.text);
    std::size_t taken = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    std::string header;
    if (!choice.name.empty()) {
        const std::size_t lineEnd = text.find('\n', taken);
        const std::string_view line =
            text.substr(taken, lineLength(text.data() + taken, text.data() + lineEnd));
        format.column = columnFind(choice, line);
        if (choice.hasHeader) {
            header = line;
            taken = lineEnd + 1;
            ++block.firstLine;
        }
    }
    std::memmove(block.text.data.get(), text.data() + taken, text.size() - taken);
    block.text.size -= taken;
    return header;
}

} // namespace rosetag
