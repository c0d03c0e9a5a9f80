#include "words/utf8.h"

#include <algorithm>
#include <array>

namespace rosetag {

namespace {

unsigned char byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool continues(std::string_view text, std::size_t at) {
    return (byteAt(text, at) & 0xC0) == 0x80;
}

// Where the character at a position begins.
std::size_t beginOfCharacter(std::string_view text, std::size_t position) {
    constexpr std::size_t mostBefore = 3;
    std::size_t begin = position;
    while (begin > 0 && position - begin < mostBefore && continues(text, begin)) {
        --begin;
    }
    return begin + utf8Length(text.substr(begin)) > position ? begin : position;
}

} // namespace

// Source: The Unicode Standard, table 3-7 (well-formed byte sequences).
std::size_t utf8Length(std::string_view text) {
    struct Row {
        unsigned char firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    // clang-format off
    constexpr std::array<Row, 8> rows = {{
        // first byte  second byte  bytes
        {0xC2, 0xDF,   0x80, 0xBF,  2},
        {0xE0, 0xE0,   0xA0, 0xBF,  3},
        {0xE1, 0xEC,   0x80, 0xBF,  3},
        {0xED, 0xED,   0x80, 0x9F,  3},
        {0xEE, 0xEF,   0x80, 0xBF,  3},
        {0xF0, 0xF0,   0x90, 0xBF,  4},
        {0xF1, 0xF3,   0x80, 0xBF,  4},
        {0xF4, 0xF4,   0x80, 0x8F,  4},
    }};
    // clang-format on
    if (text.empty() || byteAt(text, 0) < 0x80) {
        return text.empty() ? 0 : 1;
    }
    const unsigned char first = byteAt(text, 0);
    const auto* const row = std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) {
        return first >= candidate.firstLow && first <= candidate.firstHigh;
    });
    if (row == rows.end() || text.size() < row->length || byteAt(text, 1) < row->secondLow ||
        byteAt(text, 1) > row->secondHigh) {
        return 0;
    }
    for (std::size_t i = 2; i < row->length; ++i) {
        if (!continues(text, i)) {
            return 0;
        }
    }
    return row->length;
}

std::uint32_t utf8CodePoint(std::string_view sequence) {
    constexpr std::array<unsigned, 5> marks = {0, 0, 0xC0, 0xE0, 0xF0}; // of the first byte
    std::uint32_t code = byteAt(sequence, 0) ^ marks[sequence.size()];
    for (std::size_t i = 1; i < sequence.size(); ++i) {
        code = code << 6 | (byteAt(sequence, i) & 0x3FU);
    }
    return code;
}

std::string_view firstCharacter(std::string_view text) {
    return text.substr(0, std::max<std::size_t>(utf8Length(text), 1));
}

std::string_view firstCharacters(std::string_view text, std::size_t most) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < most && size < text.size(); ++i) {
        size += firstCharacter(text.substr(size)).size();
    }
    return text.substr(0, size);
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        text.remove_prefix(firstCharacter(text).size());
    }
    return count;
}

std::string_view wholeCharacters(std::string_view text, std::size_t position, std::size_t length) {
    if (length == 0) {
        return text.substr(position, 0);
    }
    const std::size_t begin = beginOfCharacter(text, position);
    const std::size_t last = beginOfCharacter(text, position + length - 1);
    const std::size_t end = last + firstCharacter(text.substr(last)).size();
    return text.substr(begin, end - begin);
}

} // namespace rosetag
