/*
 * The command line: the commands, their options, what these take and which go together. Help,
 * completions and the man page are made from this.
 */
#ifndef ROSETAG_COMMAND_COMMAND_LINE_H
#define ROSETAG_COMMAND_COMMAND_LINE_H

#include "arguments.h"

#include <CLI/CLI.hpp>

namespace rosetag {

// Adds all commands to the app, each with its options as soon as it is met on the command line.
void commandLineBuild(CLI::App& app, Arguments& arguments);

// The names of the commands.
std::vector<std::string> commandNames();

// Adds the options of decode to the app itself: a value without a command is decoded.
void commandLineAddBareDecode(CLI::App& app, Arguments& arguments);

// Adds the options of every command at once, for those who describe them.
void commandLineComplete(CLI::App& app, Arguments& arguments);

} // namespace rosetag

#endif
