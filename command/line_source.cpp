#include "line_source.h"

#include "output.h"
#include "system.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace rosetag {

namespace {

constexpr std::size_t keptOfOverlong = 200;

// Waits until something can be read. False if nobody wants it any more.
bool waitForInput(const LineSource& source) {
    constexpr int milliseconds = 100;
    while (!waitUntilReadable(source.descriptor, milliseconds)) {
        if (source.isGivenUp != nullptr && *source.isGivenUp) {
            return false;
        }
    }
    return true;
}

// Reads what is there, 0 at the end.
std::size_t readSome(LineSource& source, char* out, std::size_t room) {
    while (source.isGivenUp == nullptr || waitForInput(source)) {
        const ssize_t count = read(source.descriptor, out, room);
        if (count >= 0) {
            source.bytesRead += static_cast<std::uint64_t>(count);
            return static_cast<std::size_t>(count);
        }
        if (errno == EAGAIN) {
            waitForInput(source);
        } else if (errno != EINTR) {
            throw ioError(source.name, errno);
        }
    }
    return 0;
}

// Drops the rest of a line that is too long, but for its end.
void skipLine(LineSource& source, LineBlock& block) {
    block.isOverlong = true;
    block.text.size = keptOfOverlong;
    textAreaAppend(block.text, "\n");
    TextArea rest;
    textAreaReserve(rest, LINE_BLOCK_SIZE);
    while (const std::size_t count = readSome(source, rest.data.get(), LINE_BLOCK_SIZE)) {
        const void* const end = std::memchr(rest.data.get(), '\n', count);
        if (end != nullptr) {
            const auto behind =
                static_cast<std::size_t>(static_cast<const char*>(end) + 1 - rest.data.get());
            textAreaAppend(source.carry, {rest.data.get() + behind, count - behind});
            return;
        }
    }
    source.hasEnded = true;
}

// Keeps the lines that are whole and carries the beginning of the next over. False without any.
bool cutBehindLastLine(LineSource& source, TextArea& text, std::size_t searchFrom) {
    const std::string_view added = textAreaView(text).substr(searchFrom);
    const std::size_t last = added.rfind('\n');
    if (last == std::string_view::npos) {
        return false;
    }
    textAreaAppend(source.carry, added.substr(last + 1));
    text.size = searchFrom + last + 1;
    return true;
}

void fillBlock(LineSource& source, LineBlock& block) {
    TextArea& text = block.text;
    if (text.size > 0 && cutBehindLastLine(source, text, 0)) {
        return;
    }
    while (text.size <= LONGEST_LINE) {
        textAreaReserve(text, LINE_BLOCK_SIZE + 1);
        const std::size_t before = text.size;
        const std::size_t count = readSome(source, text.data.get() + before, LINE_BLOCK_SIZE);
        text.size += count;
        if (count == 0) {
            source.hasEnded = true;
            textAreaAppend(text, text.size > 0 ? "\n" : "");
            return;
        }
        if (cutBehindLastLine(source, text, before)) {
            return;
        }
    }
    skipLine(source, block);
}

} // namespace

void textAreaReserve(TextArea& area, std::size_t more) {
    if (area.capacity - area.size >= more) {
        return;
    }
    area.capacity = std::max(2 * area.capacity, area.size + more);
    std::unique_ptr<char[]> data(new char[area.capacity]);
    if (area.size > 0) {
        std::memcpy(data.get(), area.data.get(), area.size);
    }
    area.data = std::move(data);
}

void textAreaAppend(TextArea& area, std::string_view text) {
    textAreaReserve(area, text.size());
    if (!text.empty()) {
        std::memcpy(area.data.get() + area.size, text.data(), text.size());
        area.size += text.size();
    }
}

void textAreaClear(TextArea& area) {
    constexpr std::size_t mostKept = 4 * LINE_BLOCK_SIZE;
    if (area.capacity > mostKept) {
        area = {};
    }
    area.size = 0;
}

LineSource lineSourceOpen(const std::string& fileName) {
    LineSource source{.descriptor = STDIN_FILENO, .name = "standard input", .carry = {}};
    if (!fileName.empty()) {
        source.name = fileName;
        source.descriptor = openForReading(fileName);
        if (source.descriptor < 0) {
            throw ioError(fileName, errno);
        }
    }
    source.totalBytes = sizeOfFile(source.descriptor);
    return source;
}

void lineSourceClose(LineSource& source) {
    if (source.descriptor != STDIN_FILENO) {
        close(source.descriptor);
    }
}

bool lineSourceRead(LineSource& source, LineBlock& block) {
    textAreaClear(block.text);
    block.isOverlong = false;
    block.firstLine = source.nextLine;
    std::swap(block.text, source.carry);
    source.carry.size = 0;
    if (!source.hasEnded) {
        fillBlock(source, block);
    } else if (block.text.size > 0) {
        textAreaAppend(block.text, "\n");
    }
    const std::string_view text = textAreaView(block.text);
    source.nextLine += static_cast<std::uint64_t>(std::ranges::count(text, '\n'));
    block.bytesRead = source.bytesRead;
    return block.text.size > 0;
}

} // namespace rosetag
