#include "gs1/text_writers.h"

#include "gs1/digital_link_keys.h"

#include <cstring>
#include <span>

namespace rosetag {

namespace {

// put: EpcStatus(const AiElement& element)
template <typename Put>
EpcStatus putPass(const AiList& list, AiPass pass, Put& put) {
    for (const AiElement& element : std::span(list.elements, list.count)) {
        if (element.pass == pass) {
            EPC_TRY(put(element));
        }
    }
    return EPC_OK;
}

template <typename Put>
EpcStatus putPassByPass(const AiList& list, Put put) {
    for (const AiPass pass : {KEY_PASS, DATE_PASS, DATA_PASS}) {
        EPC_TRY(putPass(list, pass, put));
    }
    return EPC_OK;
}

// Writes the code between two characters; each of the three is written whole or not at all.
EpcStatus putCode(TextBuffer& dst, char before, const AiDefinition& ai, char after) {
    const std::string_view code = aiCodeOf(ai);
    if (static_cast<std::size_t>(textBufferRoom(dst)) < code.size() + 2) {
        EPC_TRY(textBufferPutChar(dst, before));
        EPC_TRY(textBufferPutString(dst, code));
        return textBufferPutChar(dst, after);
    }
    char* const out = dst.writePointer;
    out[0] = before;
    std::memcpy(out + 1, ai.code, AI_CODE_SIZE - 1); // the padding of a short code is overwritten
    out[1 + code.size()] = after;
    out[2 + code.size()] = '\0';
    dst.writePointer += 2 + code.size();
    return EPC_OK;
}

bool isVariable(const AiDefinition& ai) {
    return ai.components[0].digitCount == 0 ||
           (ai.componentCount > 1 && ai.components[1].digitCount == 0);
}

EpcStatus putLinkElement(TextBuffer& dst, AiElement& element, const char* baseText,
                         char startDelimiter, char codeDelimiter) {
    EPC_TRY(putCode(dst, startDelimiter, *element.ai, codeDelimiter));
    EPC_TRY(textBufferPutLinkEscapedRange(dst, baseText, element.valueOffset,
                                          element.valueOffset + element.valueLength));
    element.isConsumed = true;
    return EPC_OK;
}

// All elements of one AI; the list may have it more than once.
EpcStatus putPathElements(TextBuffer& dst, std::span<AiElement> elements, const char* baseText,
                          const char (&code)[AI_CODE_SIZE]) {
    for (AiElement& element : elements) {
        if (aiCodesAreEqual(element.ai->code, code)) {
            EPC_TRY(putLinkElement(dst, element, baseText, '/', '/'));
        }
    }
    return EPC_OK;
}

// Everything that is not in the path.
EpcStatus putQuery(TextBuffer& dst, std::span<AiElement> elements, const char* baseText) {
    char startDelimiter = '?';
    for (AiElement& element : elements) {
        if (!element.isConsumed) {
            EPC_TRY(putLinkElement(dst, element, baseText, startDelimiter, '='));
            startDelimiter = '&';
        }
    }
    return EPC_OK;
}

} // namespace

EpcStatus elementStringWrite(TextBuffer& dst, const AiList& list, const char* baseText) {
    return putPassByPass(list, [&](const AiElement& element) -> EpcStatus {
        EPC_TRY(putCode(dst, '(', *element.ai, ')'));
        return textBufferPutString(dst, aiElementValue(element, baseText));
    });
}

EpcStatus barcodeStringWrite(TextBuffer& dst, const AiList& list, const char* baseText) {
    bool needsSeparator = false; // the previous value is of variable length
    return putPassByPass(list, [&](const AiElement& element) -> EpcStatus {
        if (needsSeparator) {
            EPC_TRY(textBufferPutChar(dst, GROUP_SEPARATOR));
        }
        needsSeparator = isVariable(*element.ai);
        EPC_TRY(textBufferPutString(dst, aiCodeOf(*element.ai)));
        return textBufferPutString(dst, aiElementValue(element, baseText));
    });
}

EpcStatus digitalLinkWrite(TextBuffer& dst, AiList& list, const char* baseText) {
    const DigitalLinkKeyChain* row = nullptr;
    EPC_TRY(digitalLinkChooseKey(list, row));
    const std::span elements(list.elements, list.count);
    EPC_TRY(putPathElements(dst, elements, baseText, row->key));
    for (const auto& qualifier : qualifiersOf(*row)) {
        EPC_TRY(putPathElements(dst, elements, baseText, qualifier));
    }
    return putQuery(dst, elements, baseText);
}

} // namespace rosetag
