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

// How often lines failed with a word: the name of a status, or of a rule.
struct FailureCount {
    std::string_view word;
    std::uint64_t count = 0;
};

// The count of a word, which is added if it is new.
FailureCount& failureCountOf(std::vector<FailureCount>& counts, std::string_view word);

// So many failures with the same word, and warnings of the same kind, are told on standard error;
// the others are counted.
inline constexpr std::uint64_t MOST_TOLD = 5;

struct ToldLine {
    std::string_view word; // of the failure, or of the kind of note
    std::string text;      // line, value and message
    bool isFailure;
};

struct LineTally {
    std::uint64_t lines = 0;
    std::uint64_t blanks = 0;
    std::uint64_t failures = 0;
    std::vector<FailureCount> failureCounts;
    std::vector<ToldLine> told;
    std::uint64_t firstFailedLine = 0;
    NoteCounts notes{};
    FindingCounts findings{};
    std::string usageError; // an error that every later line would meet too; ends the run
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
    bool tellsFailures = true; // on standard error, unless what is written of the lines does
    bool tellsWarnings = true;
    bool stopsAtFailure = false;
};

// Empties a work that is done, and gives back memory that ordinary lines don't need.
void lineWorkTrim(LineWork& work);

// Fills out, errors and tally from the block. A run that stops at a failure has it as its last
// line.
void lineWorkRun(const LineRules& rules, LineWork& work);

} // namespace rosetag

#endif
