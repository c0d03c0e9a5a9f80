#include "values/plus_codec.h"

#include "gs1/percent_decoding.h"
#include "values/ai_code_bits.h"
#include "values/ai_value.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::int32_t HEADER_BITS = 8;
constexpr std::int32_t TOGGLE_BITS = 1;
constexpr std::int32_t FILTER_BITS = 3;

struct PlusEncoder {
    BitBuffer& out;
    const char* baseText;
    ValueForm form;
    std::int32_t encoding;
};

// The elements that do not go to the data section.
struct PlusHead {
    const AiElement* date;              // null in a scheme without one
    const AiElement* keys[MAX_KEY_AIS]; // null behind the last
};

// Marks the first element of this AI and gives it, or null. No AI is asked for twice.
const AiElement* consume(AiList& list, const char (&code)[AI_CODE_SIZE]) {
    AiElement* const end = list.elements + list.count;
    AiElement* const found = std::find_if(list.elements, end, [&](const AiElement& element) {
        return aiCodesAreEqual(element.ai->code, code);
    });
    if (found == end) {
        return nullptr;
    }
    found->isConsumed = true;
    return found;
}

// The order of the date's row decides, not that of the list.
const AiElement* consumeDate(AiList& list, std::span<const DateKeyRow> dateKeys) {
    for (const DateKeyRow& key : dateKeys) {
        if (const AiElement* const date = consume(list, key.ai); date != nullptr) {
            return date;
        }
    }
    return nullptr;
}

EpcStatus consumeHead(AiList& list, const PlusSchemeRow& row, PlusHead& head) {
    const auto keyAis = keyAisOf(row);
    for (std::size_t i = 0; i < keyAis.size(); ++i) {
        head.keys[i] = consume(list, keyAis[i]);
        if (head.keys[i] == nullptr) {
            return EPC_ERR_NO_PRIMARY_KEY;
        }
    }
    head.date = consumeDate(list, row.dateKeys);
    return head.date == nullptr && !row.dateKeys.empty() ? EPC_ERR_NO_PRIMARY_KEY : EPC_OK;
}

bool hasData(const AiList& list) {
    return std::any_of(list.elements, list.elements + list.count,
                       [](const AiElement& element) { return !element.isConsumed; });
}

// Each component gets exactly its own characters, one that is absent an empty slice.
EpcStatus putComponents(const PlusEncoder& encoder, const AiDefinition& ai, std::string_view value,
                        AiKind kindOverride) {
    for (std::uint8_t i = 0; i < ai.componentCount; ++i) {
        const std::size_t digitCount = ai.components[i].digitCount;
        const std::size_t length = digitCount != 0 ? digitCount : value.size();
        if (length > value.size()) {
            return EPC_ERR_NO_ROOM;
        }
        TextCursor cursor = textCursorOver({value.data(), length});
        EPC_TRY(aiValueEncode(cursor, encoder.out, ai, i, kindOverride, encoder.encoding));
        value.remove_prefix(length);
    }
    return EPC_OK;
}

EpcStatus putValue(const PlusEncoder& encoder, const AiElement& element, AiKind kindOverride) {
    std::string_view value = aiElementValue(element, encoder.baseText);
    if (encoder.form == ValueForm::PLAIN) {
        return putComponents(encoder, *element.ai, value, kindOverride);
    }
    char decoded[DECODED_VALUE_SIZE];
    EPC_TRY(percentDecode(value, sizeof decoded, decoded, value));
    return putComponents(encoder, *element.ai, value, kindOverride);
}

EpcStatus putDataSection(const PlusEncoder& encoder, const AiList& list) {
    for (const AiElement& element : std::span(list.elements, list.count)) {
        if (!element.isConsumed) {
            EPC_TRY(aiCodePut(encoder.out, *element.ai));
            EPC_TRY(putValue(encoder, element, AI_KIND_NONE));
        }
    }
    return EPC_OK;
}

// Reads the value of an AI and puts the AI on the list.
EpcStatus getElement(BitBuffer& bits, TextBuffer& text, AiList& list, const AiDefinition& ai,
                     AiPass pass) {
    const auto offset = static_cast<std::uint32_t>(textBufferLength(text));
    EPC_TRY(aiValueDecodeAll(bits, text, ai));
    const auto end = static_cast<std::uint32_t>(textBufferLength(text));
    return aiListAdd(list, ai, offset, end - offset, pass);
}

EpcStatus getDate(BitBuffer& bits, TextBuffer& text, AiList& list) {
    const DateKeyRow* key = nullptr;
    EPC_TRY(aiDecodeDateWithKey(bits, text, key));
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(aiCodeView(key->ai), ai));
    const auto length = static_cast<std::uint32_t>(textBufferLength(text));
    return aiListAdd(list, *ai, 0, length, DATE_PASS);
}

EpcStatus getKeyElement(BitBuffer& bits, TextBuffer& text, AiList& list,
                        const char (&code)[AI_CODE_SIZE]) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(aiCodeView(code), ai));
    return getElement(bits, text, list, *ai, KEY_PASS);
}

// There is neither a count nor an end mark: the section ends with the bits, or with zeros that are
// too few to be an AI 00.
EpcStatus getDataSection(BitBuffer& bits, TextBuffer& text, AiList& list) {
    while (bitBufferLeft(bits) > AI_PREFIX_BITS) {
        char code[AI_CODE_SIZE] = {};
        EPC_TRY(aiCodeGetPrefix(bits, code));
        if (aiCodeIsPadding({code, 2}, bitBufferLeft(bits))) {
            return EPC_OK;
        }
        const AiDefinition* ai = nullptr;
        EPC_TRY(aiCodeGetRest(bits, code, ai));
        EPC_TRY(getElement(bits, text, list, *ai, DATA_PASS));
    }
    return EPC_OK;
}

} // namespace

EpcStatus plusEncodeAiList(BitBuffer& out, AiList& list, const char* baseText, ValueForm form,
                           std::int32_t filter, const PlusSchemeRow& row, std::int32_t encoding) {
    EPC_TRY(bitBufferWrite(out, row.header, HEADER_BITS));
    PlusHead head{};
    EPC_TRY(consumeHead(list, row, head));
    EPC_TRY(bitBufferWrite(out, hasData(list) ? 1 : 0, TOGGLE_BITS));
    EPC_TRY(bitBufferWrite(out, static_cast<std::uint64_t>(filter), FILTER_BITS));
    const PlusEncoder encoder = {out, baseText, form, encoding};
    if (head.date != nullptr) {
        EPC_TRY(putValue(encoder, *head.date, row.dateKind));
    }
    for (const AiElement* const key : head.keys) {
        if (key != nullptr) {
            EPC_TRY(putValue(encoder, *key, AI_KIND_NONE));
        }
    }
    return putDataSection(encoder, list);
}

EpcStatus plusDecodeAiList(BitBuffer& bits, TextBuffer& text, AiList& list, EpcScheme scheme) {
    const PlusSchemeRow* const row = plusSchemeByNumber(scheme);
    if (row == nullptr) {
        return EPC_ERR_BAD_FORMAT;
    }
    std::uint64_t toggle = 0;
    EPC_TRY(bitBufferRead(bits, TOGGLE_BITS, toggle));
    std::uint64_t filter = 0; // stands in no text
    EPC_TRY(bitBufferRead(bits, FILTER_BITS, filter));
    if (!row->dateKeys.empty()) {
        EPC_TRY(getDate(bits, text, list));
    }
    for (const auto& code : keyAisOf(*row)) {
        EPC_TRY(getKeyElement(bits, text, list, code));
    }
    return toggle == 1 ? getDataSection(bits, text, list) : EPC_OK;
}

} // namespace rosetag
