/*
 * Writing to a file descriptor, buffered, with every failure seen; and the exit statuses.
 */
#ifndef ROSETAG_COMMAND_OUTPUT_H
#define ROSETAG_COMMAND_OUTPUT_H

#include <stdexcept>
#include <string>
#include <string_view>

namespace rosetag {

enum ExitStatus {
    EXIT_STATUS_GOOD = 0,
    EXIT_STATUS_FAILED = 1, // a value could not be converted
    EXIT_STATUS_USAGE = 2,
    EXIT_STATUS_IO = 3, // a file or pipe could not be read or written
};

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct IoError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// "NAME: No space left on device", with what the system says of the error number.
IoError ioError(const std::string& name, int errorNumber);

struct Output {
    int descriptor;
    std::string name; // for messages
    std::string buffer;
};

Output standardOutput();

// All throw IoError. outputWrite holds text back until there is much of it.
void outputWrite(Output& output, std::string_view text);
void outputFlush(Output& output);
void outputClose(Output& output);

// Writes all of a text at once, past any buffer.
void writeAll(int descriptor, const std::string& name, const std::string& text);

// A line on standard error, behind what standard output was given so far.
void complain(Output& output, std::string_view text);

} // namespace rosetag

#endif
