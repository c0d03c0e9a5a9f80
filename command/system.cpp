#include "system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#ifdef _WIN32

#include <io.h>
#include <windows.h>

namespace rosetag {

namespace {

constexpr int OPEN_FLAGS = O_BINARY | O_NOINHERIT;

using FileStatus = struct _stat64;

int statusOfFile(const char* name, FileStatus* status) {
    return _stat64(name, status);
}

bool regularFile(int descriptor, FileStatus& status) {
    return _fstat64(descriptor, &status) == 0 && (status.st_mode & S_IFMT) == S_IFREG;
}

} // namespace

void prepareStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        _setmode(descriptor, O_BINARY);
    }
}

std::optional<FileIdentity> fileIdentity(int descriptor) {
    FileStatus status = {};
    BY_HANDLE_FILE_INFORMATION file = {};
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
    if (!regularFile(descriptor, status) || !GetFileInformationByHandle(handle, &file)) {
        return std::nullopt;
    }
    return FileIdentity{file.dwVolumeSerialNumber,
                        std::uint64_t{file.nFileIndexHigh} << 32 | file.nFileIndexLow};
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

using FileStatus = struct stat;

int statusOfFile(const char* name, FileStatus* status) {
    return stat(name, status);
}

bool regularFile(int descriptor, FileStatus& status) {
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool waitFor(int descriptor, short event, int milliseconds) {
    pollfd waiting{descriptor, event, 0};
    return poll(&waiting, 1, milliseconds) > 0;
}

// Takes the place of a stream that is closed. It is opened the wrong way round, so that reading and
// writing still fail.
void occupyIfClosed(int descriptor) {
    if (fcntl(descriptor, F_GETFD) < 0) {
        // Those below are taken: the system gives the lowest that is free.
        static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

} // namespace

void prepareStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        occupyIfClosed(descriptor);
    }
}

std::optional<FileIdentity> fileIdentity(int descriptor) {
    FileStatus status = {};
    if (!regularFile(descriptor, status)) {
        return std::nullopt;
    }
    return FileIdentity{status.st_dev, status.st_ino};
}

bool waitUntilReadable(int descriptor, int milliseconds) {
    return waitFor(descriptor, POLLIN, milliseconds);
}

void waitUntilWritable(int descriptor) {
    waitFor(descriptor, POLLOUT, -1);
}

#endif

void returnLargeMemory() {
#ifdef __GLIBC__
    // Otherwise the first large piece that is freed raises the limit, and each thread keeps its
    // own.
    constexpr int largest = 2 << 20;
    mallopt(M_MMAP_THRESHOLD, largest);
#endif
}

int openForReading(const std::string& fileName) {
    return open(fileName.c_str(), O_RDONLY | OPEN_FLAGS);
}

int openForWriting(const std::string& fileName) {
    return open(fileName.c_str(), O_WRONLY | O_CREAT | OPEN_FLAGS, 0666);
}

// A pipe is not opened: that would wait for its writer.
bool isFileName(const std::string& text) {
    FileStatus status = {};
    return statusOfFile(text.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == S_IFREG;
}

bool emptyFile(int descriptor) {
    FileStatus status = {};
    return !regularFile(descriptor, status) || ftruncate(descriptor, 0) == 0;
}

void takeBack(int descriptor, std::uint64_t count) {
    FileStatus status = {};
    if (!regularFile(descriptor, status)) {
        return;
    }
    const off_t end = lseek(descriptor, 0, SEEK_CUR);
    // A file that others write to as well is left as it is.
    if (end == status.st_size && static_cast<std::uint64_t>(end) >= count &&
        ftruncate(descriptor, end - static_cast<off_t>(count)) == 0) {
        lseek(descriptor, 0, SEEK_END);
    }
}

std::uint64_t sizeOfFile(int descriptor) {
    FileStatus status = {};
    return regularFile(descriptor, status) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool isTerminal(int descriptor) {
    return isatty(descriptor) != 0;
}

} // namespace rosetag
