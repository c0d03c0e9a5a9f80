#include "gs1/text_writers.h"

#include "gs1/digital_link_keys.h"

#include <cstddef>

namespace rosetag {

namespace {

constexpr std::uint32_t PASSES = 3;

EpcStatus putElementStringElement(TextBuffer& dst, const AiElement& element, const char* baseText) {
    EPC_TRY(textBufferPutChar(dst, '('));
    EPC_TRY(textBufferPutString(dst, aiCodeView(element.code)));
    EPC_TRY(textBufferPutChar(dst, ')'));
    return textBufferPutString(dst, aiElementValue(element, baseText));
}

EpcStatus putPass(TextBuffer& dst, const AiList& list, const char* baseText, std::uint32_t pass) {
    for (const AiElement& element : std::span(list.elements, list.count)) {
        if (element.pass == pass) {
            EPC_TRY(putElementStringElement(dst, element, baseText));
        }
    }
    return EPC_OK;
}

EpcStatus putLinkElement(TextBuffer& dst, AiElement& element, const char* baseText,
                         char startDelimiter, char codeDelimiter) {
    EPC_TRY(textBufferPutChar(dst, startDelimiter));
    EPC_TRY(textBufferPutString(dst, aiCodeView(element.code)));
    EPC_TRY(textBufferPutChar(dst, codeDelimiter));
    EPC_TRY(textBufferPutLinkEscapedRange(dst, baseText, element.valueOffset,
                                          element.valueOffset + element.valueLength));
    element.consumed = 1;
    return EPC_OK;
}

// All elements of one AI; it may stand on the list more than once.
EpcStatus putPathElements(TextBuffer& dst, std::span<AiElement> elements, const char* baseText,
                          const char (&code)[AI_CODE_SIZE]) {
    for (AiElement& element : elements) {
        if (aiCodesAreEqual(element.code, code)) {
            EPC_TRY(putLinkElement(dst, element, baseText, '/', '/'));
        }
    }
    return EPC_OK;
}

// All that the path has left over.
EpcStatus putQuery(TextBuffer& dst, std::span<AiElement> elements, const char* baseText) {
    char startDelimiter = '?';
    for (AiElement& element : elements) {
        if (element.consumed != 1) {
            EPC_TRY(putLinkElement(dst, element, baseText, startDelimiter, '='));
            startDelimiter = '&';
        }
    }
    return EPC_OK;
}

} // namespace

EpcStatus elementStringWrite(TextBuffer& dst, const AiList& list, const char* baseText) {
    for (std::uint32_t pass = 0; pass < PASSES; ++pass) {
        EPC_TRY(putPass(dst, list, baseText, pass));
    }
    return EPC_OK;
}

EpcStatus digitalLinkWrite(TextBuffer& dst, AiList& list, const char* baseText) {
    const DigitalLinkKeyChain* row = nullptr;
    EPC_TRY(digitalLinkChooseKey(list, row));
    const std::span elements(list.elements, list.count);
    EPC_TRY(putPathElements(dst, elements, baseText, row->key));
    for (const DigitalLinkQualifier& qualifier : qualifiersOf(*row)) {
        EPC_TRY(putPathElements(dst, elements, baseText, qualifier.ai));
    }
    return putQuery(dst, elements, baseText);
}

} // namespace rosetag
