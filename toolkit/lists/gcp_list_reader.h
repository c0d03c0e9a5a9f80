/*
 * The two syntaxes of a prefix list. The failure of each names the place.
 */
#ifndef ROSETAG_TOOLKIT_LISTS_GCP_LIST_READER_H
#define ROSETAG_TOOLKIT_LISTS_GCP_LIST_READER_H

#include <rosetag/toolkit.hpp>

#include <string_view>

namespace rosetag {

// They add the entries as they come; the list must still be finished.
Failure readGcpListXml(std::string_view text, GcpList& list);
Failure readGcpListJson(std::string_view text, GcpList& list);

} // namespace rosetag

#endif
