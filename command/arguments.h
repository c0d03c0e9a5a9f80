/*
 * What the command line asks for.
 */
#ifndef ROSETAG_COMMAND_ARGUMENTS_H
#define ROSETAG_COMMAND_ARGUMENTS_H

#include "line_run.h"
#include "output.h"

#include <rosetag/toolkit.hpp>

#include <optional>
#include <string>
#include <vector>

namespace rosetag {

enum class Command { DECODE, ENCODE, EXPLAIN, CHECK, AI_ENCODE, AI_DECODE, TID, SCHEMES };

struct Arguments {
    Command command = Command::DECODE;
    bool isBare = false; // a value without a command
    std::vector<std::string> values;
    ReadOptions read;
    std::string gcpListFile;      // empty: none
    std::string designerListFile; // empty: none
    bool isJson = false;
    bool isRaw = false;
    std::string to;                  // one field; empty: not given
    std::vector<std::string> fields; // several; empty: not given
    // Of encode; they may name columns.
    std::string text;
    std::string scheme;
    std::string filter;
    std::string gcpLength; // of decode too
    std::string encoding = "auto";
    // Of ai.
    std::string ai;
    bool withCode = false;
    RunOptions run;
};

// Reads the arguments. Where they ask for help or the version that is printed, and the exit status
// is given in place of arguments. Throws UsageError.
std::optional<int> argumentsRead(int argc, char** argv, Output& output, Arguments& arguments);

} // namespace rosetag

#endif
