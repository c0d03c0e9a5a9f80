#include "core/frames.h"
#include "schemes/tag_scheme.h"

#include <algorithm>

namespace rosetag {
namespace {

// An output that cannot hold the name stays as it is.
EpcStatus copyName(const TagSchemeInfo& info, std::int32_t dstSize, char* dst) {
    if (static_cast<std::int32_t>(info.name.size()) >= dstSize) {
        return EPC_ERR_NO_ROOM;
    }
    *std::copy(info.name.begin(), info.name.end(), dst) = '\0';
    return EPC_OK;
}

EpcStatus headerToName(std::int32_t bits, const std::uint8_t* binary, std::int32_t dstSize,
                       char* dst) {
    BitBuffer buffer = bitBufferForReading(binary, bits);
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(buffer, row));
    return copyName(row->info, dstSize, dst);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_tagSchemeEnumToName(EpcScheme scheme, int32_t dstSize, char* dst) {
    if (!tagSchemeIsKnown(scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    return copyName(tagSchemeInfos[scheme], dstSize, dst);
}

EpcStatus epc_tagSchemeNameToEnum(const char* name, EpcScheme* outScheme) {
    const TagSchemeOps* const row = tagSchemeFindByName(name);
    if (row == nullptr) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    if (outScheme != nullptr) {
        *outScheme = row->info.scheme;
    }
    return EPC_OK;
}

EpcStatus epc_binaryToTagSchemeName(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                    char* dst) {
    return headerToName(bits, binary, dstSize, dst);
}

EpcStatus epc_hexToTagSchemeName(const char* hex, int32_t dstSize, char* dst) {
    return hexInputFrame(hex, [=](std::int32_t bits, const std::uint8_t* binary) {
        return headerToName(bits, binary, dstSize, dst);
    });
}
