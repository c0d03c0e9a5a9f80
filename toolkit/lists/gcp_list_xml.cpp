/*
 * The prefix list in XML:
 *
 *     <GCPPrefixFormatList date="2021-09-14T00:00:00">
 *         <entry prefix="0000030" gcpLength="12"/>
 *         ...
 *     </GCPPrefixFormatList>
 */
#include "lists/gcp_list_reader.h"
#include "lists/list_failure.h"

#include <pugixml.hpp>

namespace rosetag {

Failure readGcpListXml(std::string_view text, GcpList& list) {
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(text.data(), text.size(), pugi::parse_minimal | pugi::parse_escapes);
    if (!result) {
        return listFailure(text, static_cast<std::size_t>(result.offset),
                           std::string("this is not XML: ") + result.description());
    }
    const pugi::xml_node root = document.child("GCPPrefixFormatList");
    list.date = root.attribute("date").value();
    for (const pugi::xml_node& entry : root.children("entry")) {
        const std::string fault = gcpListAdd(list, entry.attribute("prefix").value(),
                                             entry.attribute("gcpLength").value());
        if (!fault.empty()) {
            return listFailure(text, static_cast<std::size_t>(entry.offset_debug()), fault);
        }
    }
    return {};
}

} // namespace rosetag
