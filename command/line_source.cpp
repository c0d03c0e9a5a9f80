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
            const auto after =
                static_cast<std::size_t>(static_cast<const char*>(end) + 1 - rest.data.get());
            textAreaAppend(source.carry, {rest.data.get() + after, count - after});
            return;
        }
    }
    source.hasEnded = true;
}

// Keeps the rows that are whole and carries the beginning of the next over. searchFrom is where a
// line can end. False without any row.
bool cutAfterLastRow(LineSource& source, TextArea& text, std::size_t searchFrom) {
    const std::size_t last = textAreaView(text).substr(searchFrom).rfind('\n');
    if (last == std::string_view::npos) {
        return false;
    }
    std::size_t whole = searchFrom + last + 1;
    if (source.wholeRows) {
        whole = source.wholeRows(textAreaView(text).substr(0, whole));
    }
    if (whole > 0) {
        textAreaAppend(source.carry, textAreaView(text).substr(whole));
        text.size = whole;
    }
    return whole > 0;
}

void fillBlock(LineSource& source, LineBlock& block) {
    TextArea& text = block.text;
    if (text.size > 0 && cutAfterLastRow(source, text, 0)) {
        return;
    }
    while (text.size <= LONGEST_LINE) {
        textAreaReserve(text, LINE_BLOCK_SIZE + 1);
        const std::size_t before = text.size;
        const std::size_t count = readSome(source, text.data.get() + before, LINE_BLOCK_SIZE);
        text.size += count;
        if (count == 0) {
            source.hasEnded = true;
            return;
        }
        if (cutAfterLastRow(source, text, before)) {
            return;
        }
    }
    // Whole lines before the one that is too long are inside of a quote that is not closed.
    const std::size_t lastEnd = textAreaView(text).rfind('\n');
    if (lastEnd == std::string_view::npos) {
        return skipLine(source, block);
    }
    textAreaAppend(source.carry, textAreaView(text).substr(lastEnd + 1));
    text.size = lastEnd + 1;
}

// The ends of lines in a text. The counts of short runs fit in a byte, so that many characters are
// compared at a time.
std::uint64_t lineEndsIn(std::string_view text) {
    constexpr std::size_t longestRun = 255;
    std::uint64_t ends = 0;
    while (!text.empty()) {
        const std::string_view run = text.substr(0, longestRun);
        std::uint8_t count = 0;
        for (const char character : run) {
            count = static_cast<std::uint8_t>(count + (character == '\n' ? 1 : 0));
        }
        ends += count;
        text.remove_prefix(run.size());
    }
    return ends;
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
    constexpr std::size_t mostKept = 16 * LINE_BLOCK_SIZE;
    if (area.capacity > mostKept) {
        area = {};
    }
    area.size = 0;
}

LineSource lineSourceOpen(const std::string& fileName) {
    LineSource source;
    source.descriptor = STDIN_FILENO;
    source.name = "standard input";
    if (!fileName.empty() && fileName != "-") {
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

void lineSourcePutBack(LineSource& source, LineBlock& block) {
    const std::string_view text = textAreaView(block.text);
    const std::size_t whole = source.wholeRows(text);
    TextArea carry;
    textAreaAppend(carry, text.substr(whole));
    source.nextLine -= lineEndsIn(textAreaView(carry));
    if (block.lacksLastEnd && carry.size > 0) {
        --carry.size;
        block.lacksLastEnd = false;
    }
    textAreaAppend(carry, textAreaView(source.carry));
    source.carry = std::move(carry);
    block.text.size = whole;
}

bool lineSourceRead(LineSource& source, LineBlock& block) {
    textAreaClear(block.text);
    block.isOverlong = false;
    block.firstLine = source.nextLine;
    std::swap(block.text, source.carry);
    source.carry.size = 0;
    if (!source.hasEnded) {
        fillBlock(source, block);
    }
    TextArea& text = block.text;
    block.lacksLastEnd = text.size > 0 && textAreaView(text).back() != '\n';
    textAreaAppend(text, block.lacksLastEnd ? "\n" : "");
    source.nextLine += lineEndsIn(textAreaView(text));
    block.bytesRead = source.bytesRead;
    return text.size > 0;
}

} // namespace rosetag
