#include "schemes/tag_scheme.h"

#include "schemes/scheme_word.h"

#include <algorithm>

namespace rosetag {

const TagSchemeOps* tagSchemeFindByName(std::string_view name) {
    const EpcScheme scheme = schemeGuess(schemeWordRowOf(name).word.first);
    return tagSchemeInfos[scheme].name == name ? &tagSchemeTable[scheme] : nullptr;
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
