#include "schemes/tag_scheme.h"

#include <algorithm>

namespace rosetag {

const TagSchemeOps* tagSchemeFindByName(std::string_view name) {
    const auto* const found =
        std::find_if(tagSchemeInfos.begin(), tagSchemeInfos.end(),
                     [name](const TagSchemeInfo& info) { return info.name == name; });
    return found != tagSchemeInfos.end() ? &tagSchemeTable[found->scheme] : nullptr;
}

EpcStatus tagSchemeReadHeader(BitBuffer& bits, const TagSchemeOps*& row) {
    std::uint64_t header = 0;
    EPC_TRY(bitBufferRead(bits, TAG_HEADER_BITS, header));
    const EpcScheme scheme = tagSchemeByHeader[static_cast<std::size_t>(header)];
    if (!tagSchemeIsKnown(scheme)) {
        return EPC_ERR_UNKNOWN_HEADER;
    }
    row = &tagSchemeTable[scheme];
    return EPC_OK;
}

} // namespace rosetag
