#include "output.h"

#include "system.h"

#include <rosetag/toolkit.hpp>

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace rosetag {

namespace {

constexpr std::size_t heldBack = 65536;

// What a terminal could take for a command, or not show, is spelled; lines stay lines.
std::string spelledLines(std::string_view text) {
    std::string spelled;
    while (true) {
        const std::size_t end = text.find('\n');
        spelled += shownText(text.substr(0, end), text.size());
        if (end == std::string_view::npos) {
            return spelled;
        }
        spelled += '\n';
        text.remove_prefix(end + 1);
    }
}

} // namespace

IoError ioError(const std::string& name, int errorNumber) {
    if (errorNumber == EPIPE) {
        return IoError(name + ": its reader has gone away (broken pipe); the rest is not written");
    }
    return IoError(name + ": " + std::generic_category().message(errorNumber));
}

Output standardOutput() {
    return {STDOUT_FILENO, "standard output", {}};
}

void outputWrite(Output& output, std::string_view text) {
    if (output.buffer.empty() && text.size() >= heldBack) {
        return writeAll(output.descriptor, output.name, text);
    }
    output.buffer += text;
    if (output.buffer.size() >= heldBack) {
        outputFlush(output);
    }
}

void outputFlush(Output& output) {
    // What cannot be written is not tried again. The buffer keeps its memory, which the system
    // would otherwise take back and give anew each time.
    std::string text;
    text.swap(output.buffer);
    writeAll(output.descriptor, output.name, text);
    text.clear();
    output.buffer.swap(text);
}

void outputClose(Output& output) {
    outputFlush(output);
    if (close(output.descriptor) != 0) {
        throw ioError(output.name, errno);
    }
}

void writeAll(int descriptor, const std::string& name, std::string_view text) {
    std::size_t done = 0;
    const auto fail = [&](int errorNumber) {
        const std::size_t lineEnd = text.substr(0, done).rfind('\n');
        const std::size_t whole = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
        takeBack(descriptor, done - whole);
        throw ioError(name, errorNumber);
    };
    while (done < text.size()) {
        const ssize_t written = write(descriptor, text.data() + done, text.size() - done);
        if (written > 0) {
            done += static_cast<std::size_t>(written);
        } else if (written == 0) {
            fail(ENOSPC); // some devices say nothing else when they are full
        } else if (errno == EAGAIN) {
            waitUntilWritable(descriptor);
        } else if (errno != EINTR) {
            fail(errno);
        }
    }
}

void warn(std::string_view text) {
    try {
        writeAll(STDERR_FILENO, "standard error", "rosetag: " + spelledLines(text) + '\n');
    } catch (const IoError&) {
        // A closed standard error cannot be reported to anyone.
    }
}

void complain(Output& output, std::string_view text) {
    outputFlush(output);
    warn(text);
}

} // namespace rosetag
