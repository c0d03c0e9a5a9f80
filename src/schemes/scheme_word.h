/*
 * Finds a scheme by the word that names it in a tag URI. A word is packed into two numbers, which
 * are looked up in a hash table without collisions.
 */
#ifndef ROSETAG_SCHEMES_SCHEME_WORD_H
#define ROSETAG_SCHEMES_SCHEME_WORD_H

#include "core/char_scan.h"
#include "core/text_cursor.h"
#include "schemes/scheme_table.h"

#include <array>
#include <bit>

namespace rosetag {

constexpr std::int32_t SCHEME_WORD_CHARS = 16;

// Up to 16 characters, the first in the lowest byte, and NULs after them.
struct SchemeWord {
    std::uint64_t first;
    std::uint64_t second;
};

// A longer name gives the word of its beginning, which is no scheme's.
constexpr SchemeWord schemeWordOf(std::string_view name) {
    SchemeWord word{};
    for (std::size_t i = 0; i < name.size() && i < SCHEME_WORD_CHARS; ++i) {
        const auto character = std::uint64_t{static_cast<unsigned char>(name[i])};
        (i < 8 ? word.first : word.second) |= character << (8 * (i % 8));
    }
    return word;
}

// Reads a word up to the ":", which stays unread. False, with nothing read, if there is none within
// 16 characters.
inline bool schemeWordRead(TextCursor& cursor, SchemeWord& word) {
    if (textCursorLeft(cursor) < SCHEME_WORD_CHARS) {
        return false;
    }
    word = {loadCharacters(cursor.current), loadCharacters(cursor.current + 8)};
    const bool endsInFirst = markNul(word.first ^ inEveryByte(':')) != 0;
    std::uint64_t& last = endsInFirst ? word.first : word.second;
    const std::uint64_t marks = markNul(last ^ inEveryByte(':'));
    if (marks == 0) {
        return false;
    }
    const std::int32_t bits = std::countr_zero(marks) - 7; // of the characters before it
    last &= ~(~std::uint64_t{0} << bits);
    word.second = endsInFirst ? 0 : word.second;
    cursor.current += (endsInFirst ? 0 : 8) + bits / 8;
    return true;
}

constexpr std::int32_t SCHEME_WORD_HASH_BITS = 7;

struct SchemeWordTable {
    std::uint64_t factor;
    std::array<EpcScheme, 1 << SCHEME_WORD_HASH_BITS> schemes; // -1 in an empty slot
    SchemeArray<SchemeWord> words;

    constexpr std::size_t slotOf(const SchemeWord& word) const {
        return static_cast<std::size_t>((word.first + word.second) * factor >>
                                        (64 - SCHEME_WORD_HASH_BITS));
    }
};

// Puts every scheme into its slot. False if two of them collide.
constexpr bool schemeWordTableFill(SchemeWordTable& table) {
    table.schemes.fill(-1);
    for (const SchemeRow& row : schemeRows) {
        table.words.rows[row.scheme] = schemeWordOf(row.name);
        EpcScheme& slot = table.schemes[table.slotOf(table.words[row.scheme])];
        if (slot >= 0) {
            return false;
        }
        slot = row.scheme;
    }
    return true;
}

// Tries one factor after the other.
constexpr SchemeWordTable schemeWordTableMake() {
    SchemeWordTable table{.factor = 0x9E3779B97F4A7C15, .schemes = {}, .words = {}};
    while (!schemeWordTableFill(table)) {
        table.factor += 0x9E3779B97F4A7C16;
    }
    return table;
}

inline constexpr SchemeWordTable schemeWordTable = schemeWordTableMake();

// The scheme of exactly this name, or -1.
inline EpcScheme schemeFindByWord(const SchemeWord& word) {
    const EpcScheme scheme = schemeWordTable.schemes[schemeWordTable.slotOf(word)];
    if (scheme < 0) {
        return -1;
    }
    const SchemeWord& found = schemeWordTable.words[scheme];
    return found.first == word.first && found.second == word.second ? scheme : -1;
}

} // namespace rosetag

#endif
