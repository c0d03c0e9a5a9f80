#include "translate/parsed_ais.h"

namespace rosetag {

namespace {

EpcStatus linkParse(TextCursor& cursor, ParsedAis& ais) {
    TextBuffer flat =
        textBufferOver(ais.decoded.data(), static_cast<std::int32_t>(ais.decoded.size()));
    ais.base = ais.decoded.data();
    EPC_TRY(digitalLinkParse(ais.list, cursor));
    return digitalLinkDecodeValues(ais.list, cursor.begin, flat);
}

} // namespace

EpcStatus aisParse(Form form, std::string_view text, ParsedAis& ais) {
    TextCursor cursor = textCursorOver(text);
    aiListClear(ais.list);
    if (form == Form::DIGITAL_LINK) {
        return linkParse(cursor, ais);
    }
    ais.base = text.data();
    return aiTextParse(ais.list, cursor,
                       form == Form::BARCODE_STRING ? BARCODE_STRING_SYNTAX : ELEMENT_STRING_SYNTAX,
                       0);
}

bool fitBrackets(const ParsedAis& ais) {
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        if (aiValueAt(ais, i).find('(') != std::string_view::npos) {
            return false;
        }
    }
    return true;
}

std::string elementStringOf(const ParsedAis& ais) {
    std::string text;
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        text += '(';
        text += aiCodeAt(ais, i);
        text += ')';
        text += aiValueAt(ais, i);
    }
    return text;
}

} // namespace rosetag
