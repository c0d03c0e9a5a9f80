/*
 * How the entries of the lists are ordered, for building and for lookups.
 */
#ifndef ROSETAG_TOOLKIT_LISTS_LIST_ORDER_H
#define ROSETAG_TOOLKIT_LISTS_LIST_ORDER_H

#include <rosetag/toolkit.hpp>

#include <algorithm>

namespace rosetag {

inline constexpr std::size_t SHORTEST_LISTED_PREFIX = 3;
inline constexpr std::size_t LONGEST_LISTED_PREFIX = 12;

// Of two entries that begin with the same digits, the shorter comes first.
inline bool gcpEntryIsBefore(const GcpListEntry& one, const GcpListEntry& other) {
    return one.prefix != other.prefix ? one.prefix < other.prefix : one.digits < other.digits;
}

inline bool designerIsBefore(const ChipDesigner& one, const ChipDesigner& other) {
    return one.mdid < other.mdid;
}

} // namespace rosetag

#endif
