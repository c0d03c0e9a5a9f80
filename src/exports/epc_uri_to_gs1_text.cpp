#include "bridge/identity_to_ais.h"
#include "core/frames.h"

using namespace rosetag;

EpcStatus epc_epcTagUriToBarcodeString(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, tagUriToGs1Text, identityToBarcodeString);
}

EpcStatus epc_epcTagUriToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, tagUriToGs1Text, identityToElementString);
}

EpcStatus epc_epcTagUriToDigitalLink(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, tagUriToGs1Text, identityToDigitalLink);
}

EpcStatus epc_epcUriToBarcodeString(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, pureIdentityUriToGs1Text, identityToBarcodeString);
}

EpcStatus epc_epcUriToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, pureIdentityUriToGs1Text, identityToElementString);
}
