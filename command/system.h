/*
 * What the command asks of the operating system besides reading, writing and closing descriptors.
 */
#ifndef ROSETAG_COMMAND_SYSTEM_H
#define ROSETAG_COMMAND_SYSTEM_H

#include <cstdint>
#include <optional>
#include <string>

namespace rosetag {

// Memory that a very long line took is given back to the system after it, in every thread.
void returnLargeMemory();

// The standard streams carry bytes unchanged, a reader that goes away is reported by the write to
// its pipe, and no file that is opened later takes the descriptor of a stream that is closed.
void prepareStandardStreams();

// A descriptor, or -1 with the reason in errno.
int openForReading(const std::string& fileName);

// As openForReading. What the file holds stays there until emptyFile.
int openForWriting(const std::string& fileName);

// Takes away what a regular file holds. Other files stay as they are. False with the reason in
// errno.
bool emptyFile(int descriptor);

// Takes the last bytes that were written off a regular file again. Other files keep them.
void takeBack(int descriptor, std::uint64_t count);

// What makes two descriptors the same file, under whatever names they were opened.
struct FileIdentity {
    std::uint64_t device;
    std::uint64_t file;
    bool operator==(const FileIdentity&) const = default;
};

struct KnownFile {
    std::string name;
    FileIdentity identity;
};

bool isFileName(const std::string& text);

// Nothing for what is not a regular file.
std::optional<FileIdentity> fileIdentity(int descriptor);

// 0 for what is not a regular file.
std::uint64_t sizeOfFile(int descriptor);

bool isTerminal(int descriptor);

// What is pressed on a terminal to end the input.
#ifdef _WIN32
inline constexpr const char* END_OF_INPUT_KEYS = "Ctrl-Z and Enter";
#else
inline constexpr const char* END_OF_INPUT_KEYS = "Ctrl-D";
#endif

// True if something can be read, false if nothing came in that time. Where the system does not
// know, the read itself waits.
bool waitUntilReadable(int descriptor, int milliseconds);
void waitUntilWritable(int descriptor);

} // namespace rosetag

#endif
