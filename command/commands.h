/*
 * Runs the command that the arguments name, over values or over lines.
 */
#ifndef ROSETAG_COMMAND_COMMANDS_H
#define ROSETAG_COMMAND_COMMANDS_H

#include "arguments.h"

namespace rosetag {

// Gives the exit status. Throws UsageError and IoError.
int commandRun(Output& output, const Arguments& given);

// Lists the tag schemes.
void schemesCommand(Output& output, bool isJson);

} // namespace rosetag

#endif
