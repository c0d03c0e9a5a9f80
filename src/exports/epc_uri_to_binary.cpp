#include "core/frames.h"
#include "schemes/epc_uri.h"

using namespace rosetag;

EpcStatus epc_epcTagUriToBinary(const char* text, std::int32_t maxBytes, std::uint8_t* out,
                                std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, tagUriToBits, text);
}

EpcStatus epc_epcTagUriToHex(const char* text, std::int32_t dstSize, char* dst) {
    return shortHexOutputFrame(dstSize, dst, tagUriToShortValue, tagUriToBitsByFields, text);
}

EpcStatus epc_epcTagUriToWords(const char* text, std::int32_t maxWords, std::uint16_t* outWords,
                               std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, tagUriToBits, text);
}

EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                             std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, pureIdentityUriToBits, text, scheme, filter);
}

EpcStatus epc_epcUriToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                          std::int32_t dstSize, char* dst) {
    return hexOutputFrame(dstSize, dst, pureIdentityUriToBits, text, scheme, filter);
}

EpcStatus epc_epcUriToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                            std::int32_t maxWords, std::uint16_t* outWords,
                            std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, pureIdentityUriToBits, text, scheme,
                           filter);
}
