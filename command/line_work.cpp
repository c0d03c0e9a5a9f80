#include "line_work.h"

#include "before/translate/library_calls.h"
#include "csv_cells.h"
#include "output.h"

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
        tsvAppendCell(task.work.errors, result.value);
        task.work.errors += '\t';
        tsvAppendCell(task.work.errors, message);
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

// The row as it was, and the results after it.
void appendTableRow(LineTask& task, const TableRow& row, const Result& result, bool isBlank) {
    const LineFormat& format = task.rules.format;
    std::vector<std::string> cells;
    for (const ResultField* field : format.fields) {
        cells.push_back(isBlank ? "" : resultText(*field, result, format.isRaw));
    }
    if (format.hasStatusColumn) {
        cells.emplace_back(isBlank ? "" : epc_statusName(result.failure.status));
    }
    task.scratch.clear();
    tableAppend(*format.table, row, cells, task.scratch);
    textAreaAppend(task.work.out, task.scratch);
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

void runRow(LineTask& task, const TableRow& row) {
    Result result;
    result.line = task.number;
    result.value = row.status == EPC_OK ? std::string_view(row.cells.front()) : row.text;
    const bool isBlank = result.value.empty();
    if (row.status != EPC_OK) {
        result.failure = {row.status, row.fault};
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

// False where the run ends with the line.
bool goesOn(const LineTask& task) {
    const LineTally& tally = task.work.tally;
    return tally.usageError.empty() && !(task.rules.stopsAtFailure && tally.failures > 0);
}

void runRows(LineTask& task, std::string_view text) {
    TableReader reader = tableReader(*task.rules.format.table);
    TableRow row;
    while (!text.empty()) {
        tableReadRow(reader, text, row);
        ++task.work.tally.lines;
        runRow(task, row);
        if (!task.work.tally.usageError.empty()) {
            return;
        }
        const bool isWithoutEnd = text.empty() && task.work.block.lacksLastEnd;
        textAreaAppend(task.work.out, task.rules.format.isJson ? "\n"
                                      : isWithoutEnd           ? ""
                                                               : row.lineEnd);
        if (!goesOn(task)) {
            return;
        }
        task.number += row.lines;
    }
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
    if (rules.format.table.has_value()) {
        return runRows(task, text);
    }
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
        if (!goesOn(task)) {
            return;
        }
        ++task.number;
        line = lineEnd + 1;
    }
}

} // namespace rosetag
