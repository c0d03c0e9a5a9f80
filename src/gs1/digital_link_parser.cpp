#include "gs1/digital_link_parser.h"

#include "gs1/percent_decoding.h"

namespace rosetag {

namespace {

constexpr std::string_view LINK_SCHEME = "https://";

constexpr AiSyntax PATH_SYNTAX = {'/', '/', '/', true};
constexpr AiSyntax FIRST_QUERY_SYNTAX = {'?', '=', '&', true};
constexpr AiSyntax FURTHER_QUERY_SYNTAX = {'&', '=', '&', true};

// Parses the text up to the stop character, which stays unread.
EpcStatus parseUpTo(AiList& list, TextCursor& cursor, char stop, const AiSyntax& syntax) {
    const auto offset = static_cast<std::uint32_t>(cursor.current - cursor.begin);
    const std::uint32_t length = textCursorCountTo(cursor, stop);
    TextCursor span{};
    EPC_TRY(textCursorSlice(span, cursor, length));
    EPC_TRY(aiTextParse(list, span, syntax, offset));
    cursor.current += length;
    return EPC_OK;
}

} // namespace

EpcStatus digitalLinkSkipHost(TextCursor& cursor) {
    if (textCursorExpect(cursor, LINK_SCHEME) != EPC_OK) {
        const bool isPath = cursor.current == cursor.begin;
        return isPath || textCursorAtEnd(cursor) ? EPC_OK : EPC_ERR_BAD_FORMAT;
    }
    cursor.current += textCursorCountTo(cursor, '/');
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    cursor = textCursorOver({cursor.current, static_cast<std::size_t>(textCursorLeft(cursor))});
    return EPC_OK;
}

EpcStatus digitalLinkParse(AiList& list, TextCursor& cursor) {
    EPC_TRY(parseUpTo(list, cursor, '?', PATH_SYNTAX));
    EPC_TRY(parseUpTo(list, cursor, '&', FIRST_QUERY_SYNTAX));
    return aiTextParse(list, cursor, FURTHER_QUERY_SYNTAX, 0);
}

EpcStatus digitalLinkDecodeValues(AiList& list, const char* rawText, TextBuffer& flat) {
    for (std::uint8_t i = 0; i < list.count; ++i) {
        AiElement& element = list.elements[i];
        char decoded[DECODED_VALUE_SIZE];
        std::string_view value;
        EPC_TRY(percentDecode(aiElementValue(element, rawText), sizeof decoded, decoded, value));
        element.valueOffset = static_cast<std::uint32_t>(textBufferLength(flat));
        element.valueLength = static_cast<std::uint32_t>(value.size());
        EPC_TRY(textBufferPutString(flat, value));
    }
    return EPC_OK;
}

} // namespace rosetag
