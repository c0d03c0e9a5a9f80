/*
 * Buffered writing to a file descriptor that reports every failure; and the exit statuses.
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

// "NAME: No space left on device", with the system's text for the error number.
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

// Writes all of a text at once, past any buffer. On failure a regular file ends with the last line
// that went out whole.
void writeAll(int descriptor, const std::string& name, std::string_view text);

// A line on standard error.
void warn(std::string_view text);

// The same, after what standard output was given so far.
void complain(Output& output, std::string_view text);

} // namespace rosetag

#endif
