/*
 * The arguments of the command.
 */
#ifndef ROSETAG_COMMAND_ARGUMENTS_H
#define ROSETAG_COMMAND_ARGUMENTS_H

#include "before/translate/encoding.h"
#include "line_run.h"

#include <optional>
#include <string>
#include <vector>

namespace rosetag {

enum class Command { DECODE, ENCODE, EXPLAIN, AI_ENCODE, AI_DECODE, TID, SCHEMES };

inline constexpr std::string_view COMMAND_WORDS = "decode encode explain ai tid schemes";

struct Arguments {
    Command command = Command::DECODE;
    std::vector<std::string> values;
    bool isBare = false; // a value without a command
    ReadOptions read;
    EncodeRequest encode;
    std::string to;     // one field; empty: not given
    std::string fields; // separated by commas
    bool isJson = false;
    bool isRaw = false;
    bool withCode = false; // of ai encode
    std::string ai;        // of ai encode and ai decode
    RunOptions run;
};

// Reads the arguments. Where they ask for help or the version that is printed, and the exit status
// is given in place of arguments. Throws UsageError.
std::optional<int> argumentsRead(int argc, char** argv, Output& output, Arguments& arguments);

} // namespace rosetag

#endif
