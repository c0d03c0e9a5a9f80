#include "system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef _WIN32

#include <io.h>

namespace {

constexpr int OPEN_FLAGS = O_BINARY | O_NOINHERIT;

} // namespace

void prepareStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        _setmode(descriptor, O_BINARY);
    }
}

std::uint64_t sizeOfFile(int descriptor) {
    struct _stat64 status = {};
    const bool isFile = _fstat64(descriptor, &status) == 0 && (status.st_mode & S_IFREG) != 0;
    return isFile ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool waitUntilReadable(int, int) {
    return true;
}

void waitUntilWritable(int) {}

#else

#include <csignal>

#include <poll.h>

namespace rosetag {

namespace {

constexpr int OPEN_FLAGS = O_CLOEXEC;

bool waitFor(int descriptor, short event, int milliseconds) {
    pollfd waiting{descriptor, event, 0};
    return poll(&waiting, 1, milliseconds) > 0;
}

} // namespace

void prepareStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
}

std::uint64_t sizeOfFile(int descriptor) {
    struct stat status = {};
    const bool isFile = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool waitUntilReadable(int descriptor, int milliseconds) {
    return waitFor(descriptor, POLLIN, milliseconds);
}

void waitUntilWritable(int descriptor) {
    waitFor(descriptor, POLLOUT, -1);
}

#endif

int openForReading(const std::string& fileName) {
    return open(fileName.c_str(), O_RDONLY | OPEN_FLAGS);
}

int openForWriting(const std::string& fileName) {
    return open(fileName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | OPEN_FLAGS, 0666);
}

bool isTerminal(int descriptor) {
    return isatty(descriptor) != 0;
}

} // namespace rosetag
