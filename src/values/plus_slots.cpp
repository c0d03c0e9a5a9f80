#include "values/plus_slots.h"

#include "gs1/digital_link_parser.h"
#include "gs1/text_writers.h"
#include "values/ai_value.h"
#include "values/plus_codec.h"

#include <span>

namespace rosetag {

namespace {

constexpr std::string_view LINK_SCHEME = "https://";

// Parses the text by parse and encodes the list.
// parse: EpcStatus(AiList& list)
template <typename Parse>
EpcStatus encodeFrame(const TextCursor& cursor, BitBuffer& bits, const EncodeArguments& arguments,
                      ValueForm form, Parse parse) {
    if (arguments.filter < 0) {
        return EPC_ERR_FILTER_LIMIT;
    }
    const PlusSchemeRow* const row = plusSchemeFind(arguments.info.name);
    if (row == nullptr) {
        return EPC_ERR_NO_KEY_FOR_SCHEME;
    }
    AiList list;
    aiListClear(list);
    EPC_TRY(parse(list));
    return plusEncodeAiList(bits, list, cursor.begin, form, arguments.filter, *row,
                            arguments.encoding);
}

// Decodes the bits and hands the list to write.
// write: EpcStatus(AiList& list, const char* baseText)
template <typename Write>
EpcStatus decodeFrame(BitBuffer& bits, EpcScheme scheme, Write write) {
    AiList list;
    aiListClear(list);
    char values[PLUS_VALUES_SIZE];
    TextBuffer text = textBufferOver(values);
    EPC_TRY(plusDecodeAiList(bits, text, list, scheme));
    return write(list, values);
}

// Lays the cursor over the path and the query of a link. Of a text that has neither scheme nor host
// that is all. A text that only begins like the scheme is refused, unless it ends there: then it is
// an empty link.
EpcStatus removeSchemeAndHost(TextCursor& cursor) {
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

bool isVariable(const AiDefinition& ai) {
    return ai.components[0].digitCount == 0 ||
           (ai.componentCount > 1 && ai.components[1].digitCount == 0);
}

struct BarcodeWriter {
    TextBuffer& dst;
    const char* baseText;
    bool needSeparator; // the value before was of variable length
};

EpcStatus putBarcodeElement(BarcodeWriter& writer, const AiElement& element) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(aiCodeView(element.code), ai));
    if (writer.needSeparator) {
        EPC_TRY(textBufferPutChar(writer.dst, GROUP_SEPARATOR));
    }
    EPC_TRY(textBufferPutString(writer.dst, aiCodeView(element.code)));
    EPC_TRY(textBufferPutString(writer.dst, aiElementValue(element, writer.baseText)));
    writer.needSeparator = isVariable(*ai);
    return EPC_OK;
}

EpcStatus putBarcodePass(BarcodeWriter& writer, const AiList& list, std::uint32_t pass) {
    for (const AiElement& element : std::span(list.elements, list.count)) {
        if (element.pass == pass) {
            EPC_TRY(putBarcodeElement(writer, element));
        }
    }
    return EPC_OK;
}

EpcStatus barcodeStringWrite(TextBuffer& dst, const AiList& list, const char* baseText) {
    BarcodeWriter writer = {dst, baseText, false};
    for (std::uint32_t pass = KEY_PASS; pass <= DATA_PASS; ++pass) {
        EPC_TRY(putBarcodePass(writer, list, pass));
    }
    return EPC_OK;
}

} // namespace

EpcStatus plusBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return elementStringWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return barcodeStringWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return digitalLinkWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&rows](AiList& list, const char* baseText) {
        return aiListCopyOut(list, baseText, rows);
    });
}

EpcStatus plusElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PLAIN, [&cursor](AiList& list) {
        return aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 0);
    });
}

EpcStatus plusBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PLAIN, [&cursor](AiList& list) {
        return aiTextParse(list, cursor, BARCODE_STRING_SYNTAX, 0);
    });
}

EpcStatus plusDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PERCENT_ENCODED,
                       [&cursor](AiList& list) -> EpcStatus {
                           EPC_TRY(removeSchemeAndHost(cursor));
                           return digitalLinkParse(list, cursor);
                       });
}

} // namespace rosetag
