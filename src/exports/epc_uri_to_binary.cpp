#include "core/frames.h"
#include "schemes/epc_uri.h"

namespace rosetag {
namespace {

// The frame of the exports from a URI to binary.
// read: EpcStatus(TextCursor& cursor, BitBuffer& bits)
template <typename Read>
EpcStatus uriToBinary(const char* text, std::int32_t maxBytes, std::uint8_t* out,
                      std::int32_t* outBytes, Read read) {
    BitBuffer bits = bitBufferForWriting(out, maxBytes);
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(read(cursor, bits));
    if (outBytes != nullptr) {
        *outBytes = bits.position / 8;
    }
    return EPC_OK;
}

// What the six exports do, as work for the output frames.
auto tagUriWork(const char* text) {
    return [text](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return uriToBinary(text, maxBytes, out, outBytes, tagUriToBits);
    };
}

auto uriWork(const char* text, EpcScheme scheme, std::int32_t filter) {
    return [=](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return uriToBinary(text, maxBytes, out, outBytes,
                           [scheme, filter](TextCursor& cursor, BitBuffer& bits) {
                               return pureIdentityUriToBits(cursor, scheme, filter, bits);
                           });
    };
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_epcTagUriToBinary(const char* text, int32_t maxBytes, uint8_t* out,
                                int32_t* outBytes) {
    return tagUriWork(text)(maxBytes, out, outBytes);
}

EpcStatus epc_epcTagUriToHex(const char* text, int32_t dstSize, char* dst) {
    return hexOutputFrame(dstSize, dst, tagUriWork(text));
}

EpcStatus epc_epcTagUriToWords(const char* text, int32_t maxWords, uint16_t* outWords,
                               int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, tagUriWork(text));
}

EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, int32_t filter, int32_t maxBytes,
                             uint8_t* out, int32_t* outBytes) {
    return uriWork(text, scheme, filter)(maxBytes, out, outBytes);
}

EpcStatus epc_epcUriToHex(const char* text, EpcScheme scheme, int32_t filter, int32_t dstSize,
                          char* dst) {
    return hexOutputFrame(dstSize, dst, uriWork(text, scheme, filter));
}

EpcStatus epc_epcUriToWords(const char* text, EpcScheme scheme, int32_t filter, int32_t maxWords,
                            uint16_t* outWords, int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, uriWork(text, scheme, filter));
}
