/*
 * The commands. Each gives the exit status, and throws UsageError and IoError.
 */
#ifndef ROSETAG_COMMAND_COMMANDS_H
#define ROSETAG_COMMAND_COMMANDS_H

#include "arguments.h"

namespace rosetag {

int decodeCommand(Output& output, const Arguments& arguments);
int encodeCommand(Output& output, const Arguments& arguments);
int explainCommand(Output& output, const Arguments& arguments);
int aiEncodeCommand(Output& output, const Arguments& arguments);
int aiDecodeCommand(Output& output, const Arguments& arguments);
int tidCommand(Output& output, const Arguments& arguments);
int schemesCommand(Output& output, const Arguments& arguments);

// What a TID tells, for a person or as JSON.
Failure tidText(const std::string& value, bool isJson, std::string& text);

// Tells on standard error why a value failed, and gives the exit status.
int complainOfFailure(Output& output, std::string_view value, const Failure& failure);

} // namespace rosetag

#endif
