/*
 * The command line: the commands, their options, what these take and which go together. Help,
 * completions and the man page are made from this.
 */
#ifndef ROSETAG_COMMAND_COMMAND_LINE_H
#define ROSETAG_COMMAND_COMMAND_LINE_H

#include "arguments.h"

#include <CLI/CLI.hpp>

namespace rosetag {

// The environment variable that names a list of prefixes where no option does.
inline constexpr const char* gcpListVariable = "ROSETAG_GCP_LIST";

// Adds all commands to the app, each with its options as soon as it is met on the command line.
// From the first word on that is neither a command nor an option of the app, words remain: a value
// without a command is decoded.
void commandLineBuild(CLI::App& app, Arguments& arguments);

// The names of the commands.
std::vector<std::string> commandNames();

// Adds the options of every command at once, for those who describe them.
void commandLineComplete(CLI::App& app, Arguments& arguments);

} // namespace rosetag

#endif
