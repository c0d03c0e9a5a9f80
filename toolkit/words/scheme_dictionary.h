/*
 * What the command knows of the 34 tag schemes beyond their names: the header that marks them and
 * the filter that they carry.
 *
 * Source: EPC Tag Data Standard, section 14.2 (EPC binary headers).
 */
#ifndef ROSETAG_TOOLKIT_WORDS_SCHEME_DICTIONARY_H
#define ROSETAG_TOOLKIT_WORDS_SCHEME_DICTIONARY_H

#include <rosetag/rosetag.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

// What a value of a scheme can be converted to and from.
enum class SchemeReach {
    URI,      // EPC URIs alone
    URI_GS1,  // EPC URIs and the GS1 texts
    GS1_DATA, // the GS1 texts with any further AIs, but no EPC URI
};

struct SchemeEntry {
    EpcScheme scheme;
    std::string_view name;
    std::string_view family; // the word of the pure identity URI
    std::uint8_t header;
    int filterLimit; // filters lie below it; 0: the scheme has none
    SchemeReach reach;
};

std::span<const SchemeEntry> schemeEntries();

const SchemeEntry* schemeByName(std::string_view name);
const SchemeEntry* schemeByHeader(std::uint8_t header);

// The plain schemes of a family, the shortest value first.
std::vector<const SchemeEntry*> plainSchemesOfFamily(std::string_view family);

inline bool schemeIsPlus(const SchemeEntry& entry) {
    return entry.reach == SchemeReach::GS1_DATA;
}

// Width of the filter field and where it begins. A plus scheme has one bit in front of it.
int schemeFilterBits(const SchemeEntry& entry);
int schemeFilterStart(const SchemeEntry& entry);

// The filter in the bits of a value, if the scheme has one and the bits reach so far.
std::optional<int> schemeFilterOf(const SchemeEntry& entry, std::span<const std::uint8_t> bytes);

// The names, separated by commas, for a message.
std::string schemeNamesLike(std::string_view name);

} // namespace rosetag

#endif
