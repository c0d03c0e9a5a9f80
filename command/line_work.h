/*
 * Converts a block of lines: what a run is to write of each, and how each is done.
 */
#ifndef ROSETAG_COMMAND_LINE_WORK_H
#define ROSETAG_COMMAND_LINE_WORK_H

#include "line_source.h"
#include "results.h"
#include "table.h"

#include <optional>

namespace rosetag {

// An export that makes another text of hexadecimal digits.
using HexExport = EpcStatus (*)(const char* hex, std::int32_t dstSize, char* dst);

// What a run writes of each line.
struct LineFormat {
    std::vector<const ResultField*> fields; // of --fields, or the one of --to
    bool isJson = false;
    bool isRaw = false;
    bool hasStatusColumn = true; // the status follows the result of a line that failed
    bool hasFieldHeader = false; // the names of the fields come first
    std::optional<Table> table;
    HexExport hexExport = nullptr; // makes the one field of a line that is hex in one call
};

struct LineTally {
    std::uint64_t lines = 0;
    std::uint64_t blanks = 0;
    std::uint64_t failures = 0;
    std::string firstFailure; // its line and what was wrong
    std::string usageError;   // what no line after it could do better; the run ends with it
};

struct LineWork {
    LineBlock block;
    TextArea out;
    std::string errors; // a line for each failure
    LineTally tally;
};

struct LineRules {
    Convert convert;
    LineFormat format;
    bool writesErrors = false;
    bool stopsAtFailure = false;
};

// The export for a field, or null where a value has to be looked at more closely.
HexExport hexExportOf(std::string_view fieldName);

// Empties a work that is done, and gives back memory that ordinary lines don't need.
void lineWorkTrim(LineWork& work);

// Fills out, errors and tally from the block. A run that stops at a failure has it as its last
// line.
void lineWorkRun(const LineRules& rules, LineWork& work);

} // namespace rosetag

#endif
