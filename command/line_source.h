/*
 * Reads a file or pipe in blocks of whole lines, as they come, in memory that does not grow with
 * the count of lines.
 */
#ifndef ROSETAG_COMMAND_LINE_SOURCE_H
#define ROSETAG_COMMAND_LINE_SOURCE_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace rosetag {

// A growing area of characters that are not cleared before they are written.
struct TextArea {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::size_t capacity = 0;
};

// Makes room for more characters after those that are there.
void textAreaReserve(TextArea& area, std::size_t more);
void textAreaAppend(TextArea& area, std::string_view text);

// Empties the area, and gives its memory back where ordinary lines don't need so much.
void textAreaClear(TextArea& area);

inline std::string_view textAreaView(const TextArea& area) {
    return {area.data.get(), area.size};
}

struct LineBlock {
    TextArea text; // lines, each with its "\n"; one more character can be written after them
    std::uint64_t firstLine = 1;
    std::uint64_t bytesRead = 0; // of the whole input, this block included
    bool isOverlong = false;     // the beginning of one line that is longer than any may be
    bool lacksLastEnd = false;   // the "\n" of the last line was not in the input
};

// How much is read at a time.
inline constexpr std::size_t LINE_BLOCK_SIZE = std::size_t{64} << 10;

// The most characters of a line. Of a longer one the beginning is kept.
inline constexpr std::size_t LONGEST_LINE = std::size_t{16} << 20;

struct LineSource {
    int descriptor = -1;
    std::string name;
    std::uint64_t totalBytes = 0; // 0: not known
    std::uint64_t bytesRead = 0;
    std::uint64_t nextLine = 1;
    TextArea carry; // the beginning of the next line
    bool hasEnded = false;
    const std::atomic<bool>* isGivenUp = nullptr; // once true, waiting for input ends
    // The bytes of whole lines that may be delivered before more is read; unset: all.
    std::function<std::size_t(std::string_view lines)> wholeRows;
};

// Standard input for an empty name. Throws IoError.
LineSource lineSourceOpen(const std::string& fileName);
void lineSourceClose(LineSource& source);

// Puts back what follows the last whole row of a block.
void lineSourcePutBack(LineSource& source, LineBlock& block);

// Reads at least one line, and as many as are there. False at the end. Throws IoError.
bool lineSourceRead(LineSource& source, LineBlock& block);

} // namespace rosetag

#endif
