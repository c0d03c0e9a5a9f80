#include "gs1/barcode_string.h"
#include "gs1/digital_link_parser.h"
#include "gs1/text_to_text.h"

namespace rosetag {
namespace {

EpcStatus textToAIs(std::string_view text, const AiSyntax& syntax, const AiRows& rows) {
    TextCursor cursor = textCursorOver(text);
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, syntax, 0));
    return aiListCopyOut(list, text.data(), rows);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_gs1ElementStringToAIs(const char* text, std::int32_t maxAIs, std::uint32_t valueSize,
                                    char* aiCodes, char* aiValues, std::uint32_t* aiCount) {
    return textToAIs(text, ELEMENT_STRING_SYNTAX, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_barcodeStringToAIs(const char* text, std::int32_t separator, std::int32_t maxAIs,
                                 std::uint32_t valueSize, char* aiCodes, char* aiValues,
                                 std::uint32_t* aiCount) {
    char buffer[BARCODE_BUFFER_SIZE];
    std::string_view normalised;
    EPC_TRY(barcodeStringNormalise(text, buffer, normalised));
    const AiSyntax syntax = {0, 0, static_cast<char>(separator), false};
    return textToAIs(normalised, syntax, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_digitalLinkToAIs(const char* text, std::int32_t maxAIs, std::uint32_t valueSize,
                               char* aiCodes, char* aiValues, std::uint32_t* aiCount) {
    TextCursor cursor = textCursorOver(text);
    return digitalLinkToAIs(cursor, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_digitalLinkToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    TextCursor cursor = textCursorOver(text);
    TextBuffer buffer = textBufferOver(dst, dstSize);
    return digitalLinkToElementString(cursor, buffer);
}

EpcStatus epc_gs1ElementStringToDigitalLink(const char* text, std::int32_t dstSize, char* dst) {
    TextCursor cursor = textCursorOver(text);
    TextBuffer buffer = textBufferOver(dst, dstSize);
    return elementStringToDigitalLink(cursor, buffer);
}
