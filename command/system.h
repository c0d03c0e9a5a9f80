/*
 * What the command asks of the operating system beside reading, writing and closing descriptors.
 */
#ifndef ROSETAG_COMMAND_SYSTEM_H
#define ROSETAG_COMMAND_SYSTEM_H

#include <cstdint>
#include <string>

namespace rosetag {

// Bytes pass the standard streams as they are, and a reader that goes away shows itself where its
// pipe is written.
void prepareStandardStreams();

// A descriptor, or -1 with the reason in errno.
int openForReading(const std::string& fileName);
int openForWriting(const std::string& fileName);

// 0 for what is no regular file.
std::uint64_t sizeOfFile(int descriptor);

bool isTerminal(int descriptor);

// What is pressed on a terminal to end the input.
#ifdef _WIN32
inline constexpr const char* END_OF_INPUT_KEYS = "Ctrl-Z and Enter";
#else
inline constexpr const char* END_OF_INPUT_KEYS = "Ctrl-D";
#endif

// True if something can be read, false if nothing came in that time. Where the system cannot tell,
// reading itself waits.
bool waitUntilReadable(int descriptor, int milliseconds);
void waitUntilWritable(int descriptor);

} // namespace rosetag

#endif
