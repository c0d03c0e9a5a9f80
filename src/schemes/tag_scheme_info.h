/*
 * What the library needs to know about a scheme at run time.
 */
#ifndef ROSETAG_SCHEMES_TAG_SCHEME_INFO_H
#define ROSETAG_SCHEMES_TAG_SCHEME_INFO_H

#include "schemes/scheme_table.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

struct TagSchemeInfo {
    std::string_view name;       // as in a tag URI: "sgtin-96"
    std::string_view familyWord; // as in a pure identity URI: "sgtin"
    std::int32_t filterLimit;    // filter values lie below it; 0: the scheme has no filter
    std::uint32_t plus;          // 1: the scheme carries +AIDC data
    EpcScheme scheme;
    std::uint8_t header; // the first eight bits of a binary value
};

constexpr SchemeArray<TagSchemeInfo> tagSchemeInfosMake() {
    SchemeArray<TagSchemeInfo> infos{};
    for (const SchemeRow& row : schemeRows) {
        infos.rows[row.scheme] = {
            row.name,   row.familyWord, schemeFilterLimit(row), schemeIsPlus(row) ? 1U : 0U,
            row.scheme, row.header};
    }
    return infos;
}

inline constexpr SchemeArray<TagSchemeInfo> tagSchemeInfos = tagSchemeInfosMake();

} // namespace rosetag

#endif
