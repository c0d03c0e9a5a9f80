#include "line_run.h"

#include "line_pool.h"
#include "progress.h"
#include "system.h"

#include <cerrno>
#include <optional>

#include <unistd.h>

namespace rosetag {

namespace {

// Where finished blocks go, in order.
struct Sink {
    Output& output;
    Output errors; // descriptor -1: there is no file for them
    Progress progress;
    LineTally total;
    bool isUnbuffered;
};

void addTally(LineTally& total, LineTally& tally) {
    total.lines += tally.lines;
    total.blanks += tally.blanks;
    total.failures += tally.failures;
    if (total.firstFailure.empty()) {
        total.firstFailure = std::move(tally.firstFailure);
    }
}

void deliver(Sink& sink, LineWork& work) {
    addTally(sink.total, work.tally);
    // Errors first: should the output fail, each of its empty lines is accounted for.
    outputWrite(sink.errors, work.errors);
    outputWrite(sink.output, textAreaView(work.out));
    if (sink.isUnbuffered) {
        outputFlush(sink.errors);
        outputFlush(sink.output);
    }
    if (!work.tally.usageError.empty()) {
        throw UsageError(work.tally.usageError);
    }
    progressUpdate(sink.progress, sink.total.lines, sink.total.failures, work.block.bytesRead);
}

bool isSameFile(int a, int b) {
    const std::optional<FileIdentity> identity = fileIdentity(a);
    return identity.has_value() && identity == fileIdentity(b);
}

void throwIfInputIsOutput(const LineSource& source, int descriptor, const std::string& name) {
    if (isSameFile(source.descriptor, descriptor)) {
        throw UsageError(source.name + " would be overwritten while it is read: " + name +
                         " is the same file");
    }
}

// Opens the file for lines that fail. It is emptied when it is known to be none of the others.
Output openErrors(const std::string& fileName, const LineSource& source) {
    if (fileName.empty()) {
        return {-1, {}, {}};
    }
    const int descriptor = openForWriting(fileName);
    if (descriptor < 0) {
        throw ioError(fileName, errno);
    }
    throwIfInputIsOutput(source, descriptor, fileName);
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

// The header of a table goes on with the names of the new columns; fields get a header of their
// own.
std::string headerText(const LineFormat& format, const ColumnChoice& choice, std::string header) {
    std::vector<std::string_view> names;
    for (const ResultField* field : format.fields) {
        names.push_back(field->name);
    }
    if (format.hasStatusColumn) {
        names.emplace_back("status");
    }
    if (format.isJson || (format.column.has_value() && !choice.hasHeader) ||
        (!format.column.has_value() && !format.hasFieldHeader)) {
        return {};
    }
    if (!format.column.has_value()) {
        for (const std::string_view name : names) {
            header += (header.empty() ? "" : "\t") + std::string(name);
        }
        return header + '\n';
    }
    for (const std::string_view name : names) {
        columnAppend(*format.column, header, name);
    }
    return header + '\n';
}

std::string summary(const LineTally& total, bool hasStopped) {
    std::string text = groupedDigits(total.lines) + (total.lines == 1 ? " line, " : " lines, ") +
                       groupedDigits(total.lines - total.blanks - total.failures) + " converted, " +
                       groupedDigits(total.failures) + " failed";
    if (total.blanks > 0) {
        text += ", " + groupedDigits(total.blanks) + " empty";
    }
    if (hasStopped) {
        text += "; stopped at the first failure";
    }
    if (!total.firstFailure.empty()) {
        text += "; the first failure is in " + total.firstFailure;
    }
    return text;
}

void runAll(LineSource& source, LineRules& rules, const RunOptions& options, Sink& sink) {
    LineWork first;
    if (!lineSourceRead(source, first.block)) {
        return;
    }
    const std::string header = lineHeader(rules.format, options.column, first.block);
    outputWrite(sink.output, headerText(rules.format, options.column, header));
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
    if (options.inputFile.empty() && isTerminal(STDIN_FILENO)) {
        complain(output, std::string("reads values from the terminal, one a line; ") +
                             END_OF_INPUT_KEYS + " ends them");
    }
    rules.writesErrors = !options.errorsFile.empty();
    rules.format.hasStatusColumn = rules.format.hasStatusColumn && !rules.writesErrors;
    throwIfInputIsOutput(source, STDOUT_FILENO, "standard output");
    Sink sink{output,
              openErrors(options.errorsFile, source),
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
        complain(output, summary(sink.total, hasFailed && rules.stopsAtFailure));
    }
    return hasFailed ? EXIT_STATUS_FAILED : EXIT_STATUS_GOOD;
}

} // namespace rosetag
