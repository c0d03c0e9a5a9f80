/*
 * Converts a file or pipe line by line, on one thread or several, in the order of the input.
 */
#ifndef ROSETAG_COMMAND_LINE_RUN_H
#define ROSETAG_COMMAND_LINE_RUN_H

#include "line_work.h"
#include "output.h"
#include "system.h"

namespace rosetag {

struct RunOptions {
    std::string inputFile; // empty, -: standard input
    std::string errorsFile;
    std::string column; // that of --column
    TableOptions table;
    unsigned jobs = 1;
    std::vector<KnownFile> otherInputs; // lists
    bool isUnbuffered = false;
    bool isQuiet = false;
    bool stopsAtFailure = false;
};

// Gives the exit status. Throws UsageError and IoError.
int lineRun(Output& output, LineRules& rules, const RunOptions& options);

} // namespace rosetag

#endif
