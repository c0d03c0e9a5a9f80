#include "core/frames.h"
#include "gs1/text_to_text.h"

using namespace rosetag;

EpcStatus epc_gs1ElementStringToAIs(const char* text, std::int32_t maxAIs, std::uint32_t valueSize,
                                    char* aiCodes, char* aiValues, std::uint32_t* aiCount) {
    return elementStringToAIs(text, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_barcodeStringToAIs(const char* text, std::int32_t separator, std::int32_t maxAIs,
                                 std::uint32_t valueSize, char* aiCodes, char* aiValues,
                                 std::uint32_t* aiCount) {
    return barcodeStringToAIs(text, static_cast<char>(separator),
                              {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_digitalLinkToAIs(const char* text, std::int32_t maxAIs, std::uint32_t valueSize,
                               char* aiCodes, char* aiValues, std::uint32_t* aiCount) {
    return digitalLinkToAIs(text, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_digitalLinkToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, digitalLinkToElementString);
}

EpcStatus epc_gs1ElementStringToDigitalLink(const char* text, std::int32_t dstSize, char* dst) {
    return textToTextFrame(text, dstSize, dst, elementStringToDigitalLink);
}
