/*
 * Converts a block of lines.
 */
#ifndef ROSETAG_COMMAND_LINE_WORK_H
#define ROSETAG_COMMAND_LINE_WORK_H

#include "converter.h"
#include "line_source.h"
#include "table.h"

#include <array>
#include <optional>

namespace rosetag {

// How often there were notes of each kind.
using NoteCounts = std::array<std::uint64_t, 32>;

// How often check found something, by rule.
using FindingCounts = std::array<std::uint64_t, CHECK_RULE_COUNT>;

struct LineTally {
    std::uint64_t lines = 0;
    std::uint64_t blanks = 0;
    std::uint64_t failures = 0;
    NoteCounts notes{};
    FindingCounts findings{};
    std::string firstFailure; // its line and what was wrong
    std::string usageError;   // what no line after it could do better; the run ends with it
};

struct LineWork {
    LineBlock block;
    std::unique_ptr<Converter> converter;
    std::string out;
    std::string errors; // a line for each failure
    LineTally tally;
};

// What is done with every line.
struct LineRules {
    MakeConverter makeConverter;
    std::string header; // the first line of the output; empty: none
    std::optional<Table> table;
    std::vector<AddedColumn> addedColumns; // to a table
    bool keepsRows = true;                 // of a table; otherwise its rows are written like lines
    bool writesErrors = false;
    bool stopsAtFailure = false;
};

// Empties a work that is done, and gives back memory that ordinary lines don't need.
void lineWorkTrim(LineWork& work);

// Fills out, errors and tally from the block. A run that stops at a failure has it as its last
// line.
void lineWorkRun(const LineRules& rules, LineWork& work);

} // namespace rosetag

#endif
