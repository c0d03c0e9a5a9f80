#include "gs1/text_to_text.h"

#include "gs1/barcode_string.h"
#include "gs1/digital_link_parser.h"
#include "gs1/text_writers.h"

namespace rosetag {

namespace {

EpcStatus parseToRows(std::string_view text, const AiSyntax& syntax, const AiRows& rows) {
    TextCursor cursor = textCursorOver(text);
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, syntax, 0));
    return aiListCopyOut(list, text.data(), rows);
}

} // namespace

EpcStatus digitalLinkToElementString(TextCursor& cursor, TextBuffer& dst) {
    AiList list;
    char values[AI_VALUES_SIZE];
    TextBuffer flat = textBufferOver(values);
    aiListClear(list);
    EPC_TRY(digitalLinkParse(list, cursor));
    EPC_TRY(digitalLinkDecodeValues(list, cursor.begin, flat));
    return elementStringWrite(dst, list, values);
}

EpcStatus elementStringToAIs(std::string_view text, const AiRows& rows) {
    return parseToRows(text, ELEMENT_STRING_SYNTAX, rows);
}

EpcStatus barcodeStringToAIs(std::string_view text, char separator, const AiRows& rows) {
    char buffer[BARCODE_BUFFER_SIZE];
    EPC_TRY(barcodeStringNormalise(text, buffer, text));
    return parseToRows(text, {0, 0, separator, false}, rows);
}

EpcStatus digitalLinkToAIs(std::string_view text, const AiRows& rows) {
    TextCursor cursor = textCursorOver(text);
    AiList list;
    char values[LINK_VALUES_SIZE];
    TextBuffer flat = textBufferOver(values);
    aiListClear(list);
    EPC_TRY(digitalLinkParse(list, cursor));
    EPC_TRY(digitalLinkDecodeValues(list, cursor.begin, flat));
    return aiListCopyOut(list, values, rows);
}

EpcStatus elementStringToDigitalLink(TextCursor& cursor, TextBuffer& dst) {
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 0));
    return digitalLinkWrite(dst, list, cursor.begin);
}

} // namespace rosetag
