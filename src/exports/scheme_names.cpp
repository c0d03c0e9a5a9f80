#include "core/frames.h"
#include "schemes/tag_scheme.h"

using namespace rosetag;

EpcStatus epc_tagSchemeEnumToName(EpcScheme scheme, std::int32_t dstSize, char* dst) {
    return tagSchemeIsKnown(scheme) ? tagSchemeCopyName(tagSchemeInfos[scheme], dstSize, dst)
                                    : EPC_ERR_UNKNOWN_SCHEME;
}

EpcStatus epc_tagSchemeNameToEnum(const char* name, EpcScheme* outScheme) {
    return tagSchemeNameToNumber(name, outScheme);
}

EpcStatus epc_binaryToTagSchemeName(std::int32_t bits, const std::uint8_t* binary,
                                    std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToSchemeName, dstSize, dst);
}

EpcStatus epc_hexToTagSchemeName(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToSchemeName, dstSize, dst);
}
