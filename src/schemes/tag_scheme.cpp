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

EpcStatus tagSchemeNameToNumber(std::string_view name, EpcScheme* outScheme) {
    const TagSchemeOps* const row = tagSchemeFindByName(name);
    if (row == nullptr) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    if (outScheme != nullptr) {
        *outScheme = row->info.scheme;
    }
    return EPC_OK;
}

EpcStatus tagSchemeCopyName(const TagSchemeInfo& info, std::int32_t dstSize, char* dst) {
    if (static_cast<std::int32_t>(info.name.size()) >= dstSize) {
        return EPC_ERR_NO_ROOM;
    }
    *std::copy(info.name.begin(), info.name.end(), dst) = '\0';
    return EPC_OK;
}

EpcStatus bitsToSchemeName(BitBuffer& bits, std::int32_t dstSize, char* dst) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(bits, row));
    return tagSchemeCopyName(row->info, dstSize, dst);
}

} // namespace rosetag
