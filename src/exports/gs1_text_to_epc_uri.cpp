#include "bridge/ais_to_identity.h"

using namespace rosetag;

EpcStatus epc_gs1ElementStringToEpcTagUri(const char* text, EpcScheme scheme, std::int32_t filter,
                                          std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return gs1TextToTagUri(text, AI_BRACKETED, {scheme, filter, gcpLength}, dstSize, dst);
}

EpcStatus epc_barcodeStringToEpcTagUri(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return gs1TextToTagUri(text, AI_BARE, {scheme, filter, gcpLength}, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToEpcUri(const char* text, std::int32_t gcpLength,
                                       std::int32_t dstSize, char* dst) {
    return gs1TextToPureIdentityUri(text, AI_BRACKETED, gcpLength, dstSize, dst);
}
