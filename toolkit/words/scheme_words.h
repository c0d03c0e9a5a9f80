/*
 * The tag schemes as the toolkit's users see them.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_SCHEME_WORDS_H
#define ROSETAG_TOOLKIT_WORDS_SCHEME_WORDS_H

#include "schemes/scheme_table.h"

#include <rosetag/toolkit.hpp>

namespace rosetag {

inline const SchemeInfo& schemeInfoOf(EpcScheme scheme) {
    return schemes()[static_cast<std::size_t>(scheme)];
}

inline const SchemeRow& schemeRowOf(const SchemeInfo& info) {
    return schemeRows[info.scheme];
}

// The scheme of a header, or null.
const SchemeInfo* schemeByHeader(std::uint8_t header);

// The filter in the first bytes of a tag value.
std::uint8_t schemeFilterOf(const SchemeInfo& info, const std::uint8_t* bytes);

// The highest filter that may be written, 0 for a scheme without a filter.
std::uint32_t schemeLargestFilter(const SchemeInfo& info);

// The AIs that a scheme identifies by, in words: "AI 01 and AI 21".
std::string schemeKeyText(const SchemeInfo& info);

// "6 to 12": the digits that a company prefix can have.
std::string gcpLengthsText();

// The names of the schemes of the same family, or of all if there is none: "sgtin-96, sgtin-198".
std::string schemeNamesLike(std::string_view name);

} // namespace rosetag

#endif
