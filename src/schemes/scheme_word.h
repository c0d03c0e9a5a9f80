/*
 * Finds a scheme by the word that names it in a tag URI. A word is packed into two numbers; its
 * first characters are looked up in a hash table without collisions.
 */
#ifndef ROSETAG_SCHEMES_SCHEME_WORD_H
#define ROSETAG_SCHEMES_SCHEME_WORD_H

#include "core/char_scan.h"
#include "schemes/scheme_table.h"

#include <array>
#include <string_view>

namespace rosetag {

constexpr std::size_t SCHEME_WORD_CHARS = 16;

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

// A name and the ":" after it, as they are in a tag URI.
struct SchemeWordRow {
    SchemeWord word;
    SchemeWord mask; // of its characters
};

constexpr SchemeWordRow schemeWordRowOf(std::string_view name) {
    constexpr std::string_view allOfThem("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                                         "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
                                         SCHEME_WORD_CHARS);
    SchemeWordRow row = {
        schemeWordOf(name),
        schemeWordOf({allOfThem.data(), std::min(name.size() + 1, allOfThem.size())})};
    (name.size() < 8 ? row.word.first : row.word.second) |= std::uint64_t{':'}
                                                            << (8 * (name.size() % 8));
    return row;
}

constexpr int SCHEME_WORD_HASH_BITS = 7;

struct SchemeWordTable {
    std::uint64_t factor;
    std::array<EpcScheme, 1 << SCHEME_WORD_HASH_BITS> schemes; // any in an empty slot
    SchemeArray<SchemeWordRow> rows;

    // Seven characters are looked up: the names differ in them, and every scheme with tag URIs
    // has at least seven, the ":" after its name included.
    ROSETAG_WRAPS constexpr std::size_t slotOf(std::uint64_t first) const {
        return static_cast<std::size_t>((first << 8) * factor >> (64 - SCHEME_WORD_HASH_BITS));
    }
};

// Puts every scheme into its slot. False if two of them collide.
constexpr bool schemeWordTableFill(SchemeWordTable& table) {
    constexpr EpcScheme none = -1;
    table.schemes.fill(none);
    for (const SchemeRow& row : schemeRows) {
        table.rows.rows[row.scheme] = schemeWordRowOf(row.name);
        EpcScheme& slot = table.schemes[table.slotOf(table.rows[row.scheme].word.first)];
        if (slot != none) {
            return false;
        }
        slot = row.scheme;
    }
    for (EpcScheme& slot : table.schemes) {
        slot = std::max(slot, EpcScheme{0});
    }
    return true;
}

// Tries one factor after the other.
constexpr SchemeWordTable schemeWordTableMake() {
    SchemeWordTable table{.factor = 0x9E3779B97F4A7C15, .schemes = {}, .rows = {}};
    while (!schemeWordTableFill(table)) {
        table.factor += 0x9E3779B97F4A7C16;
    }
    return table;
}

inline constexpr SchemeWordTable schemeWordTable = schemeWordTableMake();

// The only scheme whose name and ":" eight characters can begin with, if it has tag URIs.
constexpr EpcScheme schemeGuess(std::uint64_t first) {
    return schemeWordTable.schemes[schemeWordTable.slotOf(first)];
}

// True if the word begins with the name of the scheme and ":".
constexpr bool schemeWordIs(const SchemeWord& word, EpcScheme scheme) {
    const SchemeWordRow& row = schemeWordTable.rows[scheme];
    return (((word.first ^ row.word.first) & row.mask.first) |
            ((word.second ^ row.word.second) & row.mask.second)) == 0;
}

} // namespace rosetag

#endif
