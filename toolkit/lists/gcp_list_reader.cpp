#include "lists/gcp_list_reader.h"

#include "lists/list_failure.h"

namespace rosetag {

namespace {

Failure failureOfEmpty(std::string_view text, const GcpList& list) {
    return list.entries.empty()
               ? listFailure(text, 0, "there is no entry of a GCPPrefixFormatList in this text")
               : Failure{};
}

} // namespace

Failure readGcpList(std::string_view text, GcpList& list) {
    list = {};
    const std::size_t first = text.find_first_not_of("\xEF\xBB\xBF \t\r\n");
    const bool isXml = first != text.npos && text[first] == '<';
    Failure failure = isXml ? readGcpListXml(text, list) : readGcpListJson(text, list);
    if (!isFailure(failure)) {
        const std::string prefix = gcpListFinish(list);
        failure = prefix.empty() ? failureOfEmpty(text, list)
                                 : listFailure(text, 0, "prefix " + prefix + " has two lengths");
    }
    if (isFailure(failure)) {
        list = {};
    }
    return failure;
}

} // namespace rosetag
