/*
 * Makes a prefix list of entries that come in any order.
 */
#ifndef ROSETAG_TOOLKIT_LISTS_GCP_LIST_BUILDER_H
#define ROSETAG_TOOLKIT_LISTS_GCP_LIST_BUILDER_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {

// What is wrong with an entry, or the empty text after adding it.
std::string gcpListAdd(GcpList& list, std::string_view prefix, std::string_view gcpLength);

// Sorts the entries. The prefix of two that contradict each other, or the empty text.
std::string gcpListFinish(GcpList& list);

// The two syntaxes. The failure of each names the place.
Failure readGcpListXml(std::string_view text, GcpList& list);
Failure readGcpListJson(std::string_view text, GcpList& list);

} // namespace rosetag

#endif
