#include "bridge/ais_to_identity.h"
#include "schemes/epc_uri.h"

namespace rosetag {
namespace {

// The frame of the exports to a tag URI.
EpcStatus tagUriFrame(std::string_view text, AiBrackets brackets, const TagUriArguments& arguments,
                      std::int32_t dstSize, char* dst) {
    AiKeyScan found;
    EPC_TRY(aiTextFindKeyOfScheme(text, brackets, arguments, found));
    TextBuffer uri = textBufferOver(dst, dstSize);
    EPC_TRY(textBufferPutString(uri, TAG_URI_PREFIX));
    EPC_TRY(textBufferPutString(uri, tagSchemeTable[arguments.scheme].info.name));
    EPC_TRY(textBufferPutChar(uri, ':'));
    EPC_TRY(textBufferPutDecimal(uri, static_cast<std::uint64_t>(arguments.filter)));
    EPC_TRY(textBufferPutChar(uri, '.'));
    return aiTextToUriBody(text, brackets, arguments.gcpLength, found, uri);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_gs1ElementStringToEpcTagUri(const char* text, EpcScheme scheme, std::int32_t filter,
                                          std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return tagUriFrame(text, AI_BRACKETED, {scheme, filter, gcpLength}, dstSize, dst);
}

EpcStatus epc_barcodeStringToEpcTagUri(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return tagUriFrame(text, AI_BARE, {scheme, filter, gcpLength}, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToEpcUri(const char* text, std::int32_t gcpLength,
                                       std::int32_t dstSize, char* dst) {
    AiKeyScan found;
    EPC_TRY(aiTextFindKey(text, AI_BRACKETED, gcpLength, found));
    TextBuffer uri = textBufferOver(dst, dstSize);
    EPC_TRY(textBufferPutString(uri, PURE_IDENTITY_URI_PREFIX));
    EPC_TRY(textBufferPutString(uri, found.key->familyName));
    EPC_TRY(textBufferPutChar(uri, ':'));
    return aiTextToUriBody(text, AI_BRACKETED, gcpLength, found, uri);
}
