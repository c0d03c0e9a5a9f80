#include "line_work.h"

#include "csv_cells.h"
#include "fields.h"
#include "output.h"

#include <algorithm>

namespace rosetag {

namespace {

// One line, and where its result goes.
struct LineTask {
    const LineRules& rules;
    LineWork& work;
    std::uint64_t number;
};

// The first line of a message says what is wrong; further ones are advice.
std::string firstLine(const std::string& message) {
    return message.substr(0, message.find('\n'));
}

// "line 7, "42": "
std::string shownLine(const LineTask& task) {
    return "line " + std::to_string(task.number) + ", \"" +
           shownText(task.work.converter->value()) + "\": ";
}

void noteFailure(LineTask& task) {
    const Converter& converter = *task.work.converter;
    LineTally& tally = task.work.tally;
    ++tally.failures;
    const std::string_view word = converter.failureWord();
    FailureCount& count = failureCountOf(tally.failureCounts, word);
    tally.firstFailedLine = tally.failures == 1 ? task.number : tally.firstFailedLine;
    const bool isTold =
        count.count++ < MOST_TOLD && task.rules.tellsFailures && !converter.linesTellFailures();
    if (!isTold && !task.rules.writesErrors) {
        return;
    }
    const std::string message = firstLine(failureMessage(converter.failure()));
    if (isTold) {
        tally.told.push_back({word, shownLine(task) + std::string(word) + ": " + message, true});
    }
    if (task.rules.writesErrors) {
        std::string& errors = task.work.errors;
        errors += std::to_string(task.number) + '\t' + std::string(word) + '\t';
        tsvAppendCell(errors, converter.value());
        errors += '\t';
        tsvAppendCell(errors, message);
        errors += '\n';
    }
}

void countNotes(LineTask& task) {
    const Rows<Note>* const notes = task.work.converter->notes();
    for (std::size_t i = 0; notes != nullptr && i < notes->size(); ++i) {
        const Note& note = (*notes)[i];
        LineTally& tally = task.work.tally;
        const std::uint64_t before = tally.notes[static_cast<std::size_t>(note.kind)]++;
        if (note.severity == Severity::WARNING && before < MOST_TOLD && task.rules.tellsWarnings &&
            !task.work.converter->linesTellNotes()) {
            tally.told.push_back(
                {noteWord(note.kind),
                 "warning: " + shownLine(task) + note.text + optionHint(note.option), false});
        }
    }
    const Rows<Finding>* const findings = task.work.converter->findings();
    for (std::size_t i = 0; findings != nullptr && i < findings->size(); ++i) {
        ++task.work.tally.findings[static_cast<std::size_t>((*findings)[i].rule)];
    }
}

// Counts what there is to tell about an item that was converted.
void noteItem(LineTask& task) {
    countNotes(task);
    if (isFailure(task.work.converter->failure())) {
        noteFailure(task);
    }
}

// Takes an item as one that failed or, without a refusal, as a blank one.
void refuseItem(LineTask& task, const InputItem& item, const Failure* refusal) {
    task.work.converter->refuse(item, refusal == nullptr ? Failure() : *refusal);
    if (refusal != nullptr) {
        noteFailure(task);
    }
}

Failure overlong() {
    Failure failure;
    failure.status = EPC_ERR_TOO_LONG;
    failure.message = "a line has at most " + std::to_string(LONGEST_LINE >> 20) + " MiB";
    failure.remedy = "split it";
    failure.position = LONGEST_LINE;
    return failure;
}

bool isEmptyRow(const TableRow& row) {
    for (const std::string& cell : row.cells) {
        if (!cell.empty()) {
            return false;
        }
    }
    return !isFailure(row.failure);
}

void runRows(LineTask& task, std::string_view text) {
    const Table& table = *task.rules.table;
    TableReader reader = tableReader(table);
    TableRow row;
    std::vector<std::string> cells;
    std::string& out = task.work.out;
    for (; !text.empty(); task.number += row.lines) {
        tableReadRow(reader, text, row);
        const bool isWhole = !isFailure(row.failure) && !task.work.block.isOverlong;
        const std::string_view value = isWhole ? std::string_view(row.cells.front()) : row.text;
        const Failure refusal = isWhole                      ? Failure()
                                : task.work.block.isOverlong ? overlong()
                                                             : row.failure;
        const InputItem item = {value, task.number, row.cells};
        const bool isBlank = isEmptyRow(row);
        ++task.work.tally.lines;
        task.work.tally.blanks += isBlank ? 1U : 0U;
        if (!isWhole || isBlank) {
            refuseItem(task, item, isWhole ? nullptr : &refusal);
        } else if (!task.work.converter->convert(item)) {
            noteItem(task);
        }
        if (!task.rules.keepsRows) {
            task.work.converter->writeLine(out);
        } else {
            task.work.converter->writeCells(cells);
            tableAppend(table, row, cells, out);
            out += text.empty() && task.work.block.lacksLastEnd ? "" : row.lineEnd;
        }
        if (task.rules.stopsAtFailure && task.work.tally.failures > 0) {
            return;
        }
    }
}

void runLines(LineTask& task, std::string_view text) {
    const Failure refusal = task.work.block.isOverlong ? overlong() : Failure();
    for (; !text.empty(); ++task.number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        const InputItem item = {line, task.number, {}};
        ++task.work.tally.lines;
        if (task.work.block.isOverlong || line.empty()) {
            task.work.tally.blanks += line.empty() ? 1U : 0U;
            refuseItem(task, item, task.work.block.isOverlong ? &refusal : nullptr);
        } else if (task.work.converter->convertLine(item, task.work.out)) {
            continue;
        } else {
            noteItem(task);
        }
        task.work.converter->writeLine(task.work.out);
        if (task.rules.stopsAtFailure && task.work.tally.failures > 0) {
            return;
        }
    }
}

void clear(std::string& text) {
    constexpr std::size_t mostKept = 32 * LINE_BLOCK_SIZE;
    if (text.capacity() > mostKept) {
        text = {};
    }
    text.clear();
}

} // namespace

FailureCount& failureCountOf(std::vector<FailureCount>& counts, std::string_view word) {
    const auto found = std::ranges::find(counts, word, &FailureCount::word);
    return found == counts.end() ? counts.emplace_back(FailureCount{word, 0}) : *found;
}

void lineWorkTrim(LineWork& work) {
    textAreaClear(work.block.text);
    clear(work.out);
    clear(work.errors);
    work.tally = {};
}

void lineWorkRun(const LineRules& rules, LineWork& work) {
    if (work.converter == nullptr) {
        work.converter = rules.makeConverter();
    }
    LineTask task{rules, work, work.block.firstLine};
    const std::string_view text = textAreaView(work.block.text);
    try {
        if (rules.table.has_value()) {
            runRows(task, text);
        } else {
            runLines(task, text);
        }
    } catch (const UsageError& error) {
        work.tally.usageError = "line " + std::to_string(task.number) + ": " + error.what();
    }
}

} // namespace rosetag
