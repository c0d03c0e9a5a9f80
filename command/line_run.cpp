#include "line_run.h"

#include "line_pool.h"
#include "progress.h"
#include "system.h"

#include <cerrno>
#include <cstring>
#include <optional>

#include <unistd.h>

namespace rosetag {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Where finished blocks go, in order.
struct Sink {
    Output& output;
    Output errors; // descriptor -1: there is no file for them
    Progress progress;
    LineTally total;
    bool isUnbuffered;
    std::vector<FailureCount> told{}; // on standard error, by their words
    std::uint64_t toldFailures = 0;
};

void addTally(LineTally& total, LineTally& tally) {
    total.lines += tally.lines;
    total.blanks += tally.blanks;
    total.failures += tally.failures;
    for (std::size_t i = 0; i < total.notes.size(); ++i) {
        total.notes[i] += tally.notes[i];
    }
    for (std::size_t i = 0; i < total.findings.size(); ++i) {
        total.findings[i] += tally.findings[i];
    }
    for (const FailureCount& count : tally.failureCounts) {
        failureCountOf(total.failureCounts, count.word).count += count.count;
    }
    if (total.firstFailedLine == 0) {
        total.firstFailedLine = tally.firstFailedLine;
    }
}

// The first of each kind. A block has the first of its own.
void tellLines(Sink& sink, const std::vector<ToldLine>& lines) {
    for (const ToldLine& line : lines) {
        FailureCount& told = failureCountOf(sink.told, line.word);
        if (told.count < MOST_TOLD) {
            ++told.count;
            sink.toldFailures += line.isFailure ? 1 : 0;
            progressEnd(sink.progress);
            complain(sink.output, line.text);
        }
    }
}

void deliver(Sink& sink, LineWork& work) {
    addTally(sink.total, work.tally);
    // Errors first: should the output fail, each of its empty lines is accounted for.
    outputWrite(sink.errors, work.errors);
    outputWrite(sink.output, work.out);
    if (sink.isUnbuffered) {
        outputFlush(sink.errors);
        outputFlush(sink.output);
    }
    tellLines(sink, work.tally.told);
    if (!work.tally.usageError.empty()) {
        throw UsageError(work.tally.usageError);
    }
    progressUpdate(sink.progress, sink.total.lines, sink.total.failures, work.block.bytesRead);
}

bool isSameFile(int a, int b) {
    const std::optional<FileIdentity> identity = fileIdentity(a);
    return identity.has_value() && identity == fileIdentity(b);
}

void throwIfInputIsOutput(const std::vector<KnownFile>& inputs, int descriptor,
                          const std::string& name) {
    const std::optional<FileIdentity> identity = fileIdentity(descriptor);
    for (const KnownFile& input : inputs) {
        if (input.identity == identity) {
            throw UsageError(input.name + ", which is read, would be overwritten: " + name +
                             " is the same file");
        }
    }
}

// Opens the file for lines that fail. It is emptied when it is known to be none of the others.
Output openErrors(const std::string& fileName, const std::vector<KnownFile>& inputs) {
    if (fileName.empty()) {
        return {-1, {}, {}};
    }
    if (fileName == "-") {
        throw UsageError("--errors: standard output has the results; name a file");
    }
    const int descriptor = openForWriting(fileName);
    if (descriptor < 0) {
        throw ioError(fileName, errno);
    }
    throwIfInputIsOutput(inputs, descriptor, fileName);
    if (isSameFile(STDOUT_FILENO, descriptor)) {
        throw UsageError("--errors: " + fileName +
                         " is also standard output; results and failures need a file each");
    }
    if (!emptyFile(descriptor)) {
        throw ioError(fileName, errno);
    }
    return {descriptor, fileName, {}};
}

// A run that fails keeps the errors that it found.
void closeErrorsAfterFailure(Output& errors) {
    try {
        if (errors.descriptor >= 0) {
            outputClose(errors);
        }
    } catch (const IoError& error) {
        warn(error.what());
    }
}

void dropBytes(LineBlock& block, std::size_t count) {
    std::memmove(block.text.data.get(), block.text.data.get() + count, block.text.size - count);
    block.text.size -= count;
}

// Finds the columns of a table in its first block, and takes its header off, which is written with
// the new columns. False if more must be read first.
bool beginTable(LineSource& source, LineRules& rules, const TableOptions& options, LineBlock& block,
                Output& output) {
    if (!rules.table.has_value()) {
        rules.table = tableFind(options, textAreaView(block.text));
        rules.table->added = rules.addedColumns;
        const auto reader = std::make_shared<TableReader>(tableReader(*rules.table));
        source.wholeRows = [reader](std::string_view text) {
            return tableWholeRows(*reader, text);
        };
        lineSourcePutBack(source, block);
        if (block.text.size == 0) {
            return false;
        }
    }
    if (rules.table->hasHeader) {
        TableReader reader = tableReader(*rules.table);
        TableRow row;
        std::string_view text = textAreaView(block.text);
        tableReadRow(reader, text, row);
        if (rules.keepsRows) {
            outputWrite(output, tableHeader(*rules.table, row));
            const bool isAll = text.empty() && block.lacksLastEnd;
            outputWrite(output, isAll ? "" : row.lineEnd);
        }
        dropBytes(block, block.text.size - text.size());
        block.firstLine += row.lines;
    }
    return true;
}

// "; notes: 3 padded, 1 blanks"
template <typename Counts, typename WordOf>
std::string countSummary(std::string_view title, const Counts& counts, WordOf wordOf) {
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] > 0) {
            text += text.empty() ? "; " + std::string(title) + ": " : std::string(", ");
            text += groupedDigits(counts[i]) + ' ' + std::string(wordOf(i));
        }
    }
    return text;
}

// "; failures: 2 EPC_ERR_UNKNOWN_HEADER", and where the rest of them is if not all were told.
std::string failureSummary(const Sink& sink) {
    const std::vector<FailureCount>& counts = sink.total.failureCounts;
    std::string text;
    for (const FailureCount& count : counts) {
        text += text.empty() ? "; failures: " : ", ";
        text += groupedDigits(count.count) + ' ' + std::string(count.word);
    }
    if (sink.toldFailures == sink.total.failures) {
        return text;
    }
    return text + (sink.errors.descriptor >= 0 ? "; all are in " + sink.errors.name
                   : sink.toldFailures > 0
                       ? std::string("; --errors FILE takes all of them")
                       : "; the first is in line " + std::to_string(sink.total.firstFailedLine));
}

std::string summary(const Sink& sink, bool hasStopped) {
    const LineTally& total = sink.total;
    std::string text = groupedDigits(total.lines) + (total.lines == 1 ? " line, " : " lines, ") +
                       groupedDigits(total.lines - total.blanks - total.failures) + " converted, " +
                       groupedDigits(total.failures) + " failed";
    if (total.blanks > 0) {
        text += ", " + groupedDigits(total.blanks) + " empty";
    }
    text += failureSummary(sink);
    text += countSummary("notes", total.notes,
                         [](std::size_t kind) { return noteWord(static_cast<NoteKind>(kind)); });
    text += countSummary("findings", total.findings, [](std::size_t rule) {
        return checkRuleWord(static_cast<CheckRule>(rule));
    });
    if (hasStopped) {
        text += "; stopped at the first failure";
    }
    return text;
}

// Any object may lack the members that are asked for; that all of them do is likely to be a slip.
void tellMissingMember(Output& output, const LineRules& rules, const LineTally& total) {
    if (rules.table.has_value() && rules.table->isJsonLines && total.lines > 0 &&
        total.blanks == total.lines) {
        complain(output, "warning: no object has a member \"" + rules.table->columns.front() + '"');
    }
}

void runAll(LineSource& source, LineRules& rules, const RunOptions& options, Sink& sink) {
    LineWork first;
    if (!lineSourceRead(source, first.block)) {
        return;
    }
    if (textAreaView(first.block.text).starts_with(byteOrderMark)) {
        dropBytes(first.block, byteOrderMark.size());
    }
    if (!options.table.columns.empty()) {
        while (!beginTable(source, rules, options.table, first.block, sink.output)) {
            if (!lineSourceRead(source, first.block)) {
                return;
            }
        }
    } else {
        outputWrite(sink.output, rules.header);
    }
    const LinePoolCalls calls = {
        .deliver =
            [&](LineWork& work) {
                deliver(sink, work);
                return !(rules.stopsAtFailure && sink.total.failures > 0);
            },
        .onFewerThreads =
            [&](unsigned started, const std::string& reason) {
                warn("--jobs: only " + std::to_string(started) + " of " +
                     std::to_string(options.jobs) + " threads could be started: " + reason);
            },
    };
    linePoolRun(source, rules, std::move(first), options.jobs, calls);
}

} // namespace

int lineRun(Output& output, LineRules& rules, const RunOptions& options) {
    LineSource source = lineSourceOpen(options.inputFile);
    if (source.descriptor == STDIN_FILENO && isTerminal(STDIN_FILENO)) {
        complain(output, std::string("reads values from the terminal, one a line; ") +
                             END_OF_INPUT_KEYS + " ends them");
    }
    rules.writesErrors = !options.errorsFile.empty();
    rules.tellsFailures = !options.isQuiet && !rules.writesErrors;
    rules.tellsWarnings = !options.isQuiet;
    std::vector<KnownFile> inputs = options.otherInputs;
    if (const std::optional<FileIdentity> identity = fileIdentity(source.descriptor)) {
        inputs.push_back({source.name, *identity});
    }
    throwIfInputIsOutput(inputs, STDOUT_FILENO, "standard output");
    Sink sink{output,
              openErrors(options.errorsFile, inputs),
              progressStart(!options.isQuiet, source.totalBytes),
              {},
              options.isUnbuffered};
    try {
        runAll(source, rules, options, sink);
        outputFlush(output);
    } catch (...) {
        progressEnd(sink.progress);
        closeErrorsAfterFailure(sink.errors);
        throw;
    }
    progressEnd(sink.progress);
    lineSourceClose(source);
    if (rules.writesErrors) {
        outputClose(sink.errors);
    }
    const bool hasFailed = sink.total.failures > 0;
    if (!options.isQuiet) {
        complain(output, summary(sink, hasFailed && rules.stopsAtFailure));
    }
    tellMissingMember(output, rules, sink.total);
    return hasFailed ? EXIT_STATUS_FAILED : EXIT_STATUS_GOOD;
}

} // namespace rosetag
