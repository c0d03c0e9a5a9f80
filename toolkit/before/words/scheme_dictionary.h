/*
 * What the command knows of the 34 tag schemes beyond their names: the header that marks them and
 * the filter that they carry.
 *
 * Source: EPC Tag Data Standard, section 14.2 (EPC binary headers).
 */
#ifndef ROSETAG_TOOLKIT_WORDS_SCHEME_DICTIONARY_H
#define ROSETAG_TOOLKIT_WORDS_SCHEME_DICTIONARY_H

#include <rosetag/toolkit.hpp>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {
inline namespace before {

using SchemeEntry = SchemeInfo;

const SchemeEntry* schemeByHeader(std::uint8_t header);

// The plain schemes of a family, the shortest value first.
std::vector<const SchemeEntry*> plainSchemesOfFamily(std::string_view family);

inline bool schemeIsPlus(const SchemeEntry& entry) {
    return entry.isPlus;
}

// Width of the filter field and where it begins. A plus scheme has one bit in front of it.
int schemeFilterBits(const SchemeEntry& entry);
int schemeFilterStart(const SchemeEntry& entry);

// The filter in the bits of a value, if the scheme has one and the bits reach so far.
std::optional<int> schemeFilterOf(const SchemeEntry& entry, std::span<const std::uint8_t> bytes);

// The names, separated by commas, for a message.
std::string schemeNamesLike(std::string_view name);

} // namespace before
} // namespace rosetag

#endif
