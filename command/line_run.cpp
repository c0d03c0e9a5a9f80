#include "line_run.h"

#include "line_pool.h"
#include "progress.h"
#include "system.h"

#include <cerrno>

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
    outputWrite(sink.output, textAreaView(work.out));
    if (sink.isUnbuffered) {
        outputFlush(sink.output);
    }
    if (!work.errors.empty()) {
        outputWrite(sink.errors, work.errors);
    }
    if (!work.tally.usageError.empty()) {
        throw UsageError(work.tally.usageError);
    }
    progressUpdate(sink.progress, sink.total.lines, sink.total.failures, work.block.bytesRead);
}

Output openErrors(const std::string& fileName) {
    if (fileName.empty()) {
        return {-1, {}, {}};
    }
    const int descriptor = openForWriting(fileName);
    if (descriptor < 0) {
        throw ioError(fileName, errno);
    }
    return {descriptor, fileName, {}};
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

void runOnThisThread(LineSource& source, const LineRules& rules, LineWork& work, Sink& sink) {
    do {
        lineWorkRun(rules, work);
        deliver(sink, work);
    } while (!(rules.stopsAtFailure && sink.total.failures > 0) &&
             lineSourceRead(source, work.block));
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
    if (options.jobs <= 1) {
        return runOnThisThread(source, rules, first, sink);
    }
    linePoolRun(source, rules, std::move(first), options.jobs, [&](LineWork& work) {
        deliver(sink, work);
        return !(rules.stopsAtFailure && sink.total.failures > 0);
    });
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
    Sink sink{output,
              openErrors(options.errorsFile),
              progressStart(!options.isQuiet, source.totalBytes),
              {},
              options.isUnbuffered};
    try {
        runAll(source, rules, options, sink);
        outputFlush(output);
    } catch (...) {
        progressEnd(sink.progress);
        outputFlush(sink.errors);
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
