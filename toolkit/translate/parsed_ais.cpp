#include "translate/parsed_ais.h"

#include "core/hex_digits.h"
#include "recognise/link_text.h"

#include <algorithm>

namespace rosetag {

namespace {

// The library measures a value as a link has it, where an escape counts three characters, and
// refuses links that it writes itself. Here an escape counts as what it stands for: a character
// that separates nothing takes its place while the text is parsed.
bool linkParseUnescaped(std::string_view text, ParsedAis& ais) {
    constexpr char standIn = '_';
    std::array<char, LINK_VALUES_SIZE> room;
    std::size_t length = 0;
    while (!text.empty() && length < room.size()) {
        const bool isEscape = text[0] == '%';
        const int code = isEscape && text.size() > 2 ? hexPairValue(text[1], text[2]) : 0;
        if (isEscape && code <= 0) {
            return false;
        }
        room[length] = isEscape ? standIn : text[0];
        ais.decoded[length++] = isEscape ? static_cast<char>(code) : text[0];
        text.remove_prefix(isEscape ? 3 : 1);
    }
    if (length == room.size()) {
        return false;
    }
    room[length] = '\0';
    TextCursor cursor = textCursorOver({room.data(), length});
    aiListClear(ais.list);
    ais.isUnescaped = digitalLinkParse(ais.list, cursor) == EPC_OK;
    return ais.isUnescaped;
}

EpcStatus linkParse(std::string_view text, ParsedAis& ais) {
    TextBuffer flat =
        textBufferOver(ais.decoded.data(), static_cast<std::int32_t>(ais.decoded.size()));
    TextCursor cursor = textCursorOver(text);
    ais.base = ais.decoded.data();
    const EpcStatus status = digitalLinkParse(ais.list, cursor);
    if (status == EPC_ERR_BAD_FORMAT && linkParseUnescaped(text, ais)) {
        return EPC_OK;
    }
    EPC_TRY(status);
    return digitalLinkDecodeValues(ais.list, text.data(), flat);
}

// Without escapes the values are where the text has them.
bool plainLinkParse(std::string_view text, ParsedAis& ais) {
    constexpr std::string_view unusual = "?#%";
    if (text.ends_with('/') || std::any_of(unusual.begin(), unusual.end(), [=](char character) {
            return text.find(character) != std::string_view::npos;
        })) {
        return false;
    }
    TextCursor cursor = textCursorOver(text);
    aiListClear(ais.list);
    ais.base = text.data();
    return digitalLinkParse(ais.list, cursor) == EPC_OK;
}

// A key can begin where the path has the code of one, also in the place of a value. The last value
// is not followed by one of its own.
bool hasOneKey(const AiList& list) {
    for (std::size_t i = 0; i < list.count; ++i) {
        const bool isKey = list.elements[i].ai->linkKey != 0;
        const bool mayBeCode =
            i + 1 < list.count && list.elements[i].valueLength <= LONGEST_LINK_CODE;
        if (isKey != (i == 0) || mayBeCode) {
            return false;
        }
    }
    return true;
}

} // namespace

bool plainAisParse(const Reading& reading, ParsedAis& ais) {
    const std::string& text = reading.workspace.text;
    switch (reading.form) {
    case Form::DIGITAL_LINK:
        return plainLinkParse(text, ais) && hasOneKey(ais.list) && fitBrackets(ais);
    case Form::ELEMENT_STRING:
    case Form::BARCODE_STRING:
        // A GTIN that lacks zeros is refused, unless a longer value swallows it with its bracket.
        return aisParse(reading.form, text, ais) == EPC_OK && fitBrackets(ais);
    default:
        return false;
    }
}

EpcStatus aisParse(Form form, std::string_view text, ParsedAis& ais) {
    aiListClear(ais.list);
    ais.isUnescaped = false;
    if (form == Form::DIGITAL_LINK) {
        return linkParse(text, ais);
    }
    TextCursor cursor = textCursorOver(text);
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
    elementStringOf(ais, text);
    return text;
}

void elementStringOf(const ParsedAis& ais, std::string& text) {
    text.clear();
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        text += '(';
        text += aiCodeAt(ais, i);
        text += ')';
        text += aiValueAt(ais, i);
    }
}

} // namespace rosetag
