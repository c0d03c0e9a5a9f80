#include "values/plus_codec.h"

#include "gs1/ai_table.h"
#include "gs1/percent_decoding.h"
#include "values/ai_code_bits.h"
#include "values/ai_value.h"
#include "values/date_kinds.h"

#include <algorithm>
#include <span>

namespace rosetag {

namespace {

static_assert(schemeFindField(schemeRows[EPC_SCHEME_DSGTIN_PLUS], FieldKind::CODED_DATE)->width ==
              DATE_CODE_BITS + DATE_YEAR.bits + DATE_MONTH.bits + DATE_DAY.bits);

constexpr std::int32_t TOGGLE_BITS = 1;
constexpr std::int32_t FILTER_BITS = 3;

// The fields of a plus scheme between filter and data section.
struct PlusKey {
    const AiDefinition* ais[MAX_KEY_AIS]; // null after the last one
    bool hasDate;
};

constexpr PlusKey plusKeyOf(const SchemeRow& row) {
    PlusKey key = {{}, schemeHasCodedDate(row)};
    const auto codes = schemeKeyAis(row);
    for (std::size_t i = 0; i < codes.size() && !codes[i].empty(); ++i) {
        key.ais[i] = &aiCatalogue[aiSlotOf(codes[i])];
    }
    return key;
}

// Empty for the plain schemes.
constexpr SchemeArray<PlusKey> plusKeys = []() {
    SchemeArray<PlusKey> keys{};
    for (const SchemeRow& row : schemeRows) {
        keys.rows[row.scheme] = plusKeyOf(row);
    }
    return keys;
}();

static_assert(std::all_of(schemeRows.begin(), schemeRows.end(), [](const SchemeRow& row) {
    const SchemeField& first = row.fields[0];
    const SchemeField& second = row.fields[1];
    return !schemeIsPlus(row) || (first.kind == FieldKind::TOGGLE && first.width == TOGGLE_BITS &&
                                  second.kind == FieldKind::FILTER && second.width == FILTER_BITS);
}));
static_assert(std::all_of(schemeRows.begin(), schemeRows.end(), [](const SchemeRow& row) {
    const auto codes = schemeKeyAis(row);
    return std::all_of(codes.begin(), codes.end(), [](std::string_view code) {
        return code.empty() || aiTableFind(code) != nullptr;
    });
}));

struct PlusEncoder {
    BitBuffer& out;
    const char* baseText;
    ValueForm form;
    std::int32_t encoding;
};

// The elements that do not go to the data section.
struct PlusHead {
    const AiElement* date;              // null in a scheme without one
    const AiElement* keys[MAX_KEY_AIS]; // null after the last one
};

// Marks the first element of this AI and returns it, or null. Each AI is asked for once.
const AiElement* consume(AiList& list, const AiDefinition* ai) {
    for (AiElement& element : std::span(list.elements, list.count)) {
        if (element.ai == ai) {
            element.isConsumed = true;
            return &element;
        }
    }
    return nullptr;
}

EpcStatus consumeHead(AiList& list, const PlusKey& key, PlusHead& head) {
    for (std::size_t i = 0; i < MAX_KEY_AIS && key.ais[i] != nullptr; ++i) {
        head.keys[i] = consume(list, key.ais[i]);
        if (head.keys[i] == nullptr) {
            return EPC_ERR_NO_PRIMARY_KEY;
        }
    }
    if (!key.hasDate) {
        return EPC_OK;
    }
    for (const AiDefinition* const ai : dateKeyAis) {
        head.date = consume(list, ai);
        if (head.date != nullptr) {
            return EPC_OK;
        }
    }
    return EPC_ERR_NO_PRIMARY_KEY;
}

bool hasData(const AiList& list) {
    return std::any_of(list.elements, list.elements + list.count,
                       [](const AiElement& element) { return !element.isConsumed; });
}

// A component gets exactly its own characters, and none if it is missing.
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
    EPC_TRY(aiValueDecode(bits, text, ai));
    const auto end = static_cast<std::uint32_t>(textBufferLength(text));
    return aiListAdd(list, ai, offset, end - offset, pass);
}

EpcStatus getDate(BitBuffer& bits, TextBuffer& text, AiList& list) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDecodeDateCoded(bits, text, ai));
    return aiListAdd(list, *ai, 0, static_cast<std::uint32_t>(textBufferLength(text)), DATE_PASS);
}

// Nothing counts the AIs or marks their end: the section ends with the bits, or where what is left
// is zeros and too short for an AI 00.
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

EpcStatus plusEncodeAiList(const TagSchemeOps& row, BitBuffer& out, AiList& list,
                           const char* baseText, ValueForm form, const EncodeArguments& arguments) {
    EPC_TRY(bitBufferWrite(out, row.info.header, TAG_HEADER_BITS));
    PlusHead head{};
    EPC_TRY(consumeHead(list, plusKeys[row.info.scheme], head));
    EPC_TRY(
        bitBufferWriteFields(out, {{hasData(list) ? 1U : 0U, TOGGLE_BITS},
                                   {static_cast<std::uint64_t>(arguments.filter), FILTER_BITS}}));
    const PlusEncoder encoder = {out, baseText, form, arguments.encoding};
    if (head.date != nullptr) {
        EPC_TRY(putValue(encoder, *head.date, AI_KIND_DATE_CODED));
    }
    for (const AiElement* const key : head.keys) {
        if (key != nullptr) {
            EPC_TRY(putValue(encoder, *key, AI_KIND_NONE));
        }
    }
    return putDataSection(encoder, list);
}

EpcStatus plusDecodeAiList(const TagSchemeOps& row, BitBuffer& bits, PlusValues& out) {
    TextBuffer text = textBufferOver(out.baseText);
    aiListClear(out.list);
    std::uint64_t toggle = 0;
    EPC_TRY(bitBufferRead(bits, TOGGLE_BITS, toggle));
    std::uint64_t filter = 0; // no text has it
    EPC_TRY(bitBufferRead(bits, FILTER_BITS, filter));
    const PlusKey& key = plusKeys[row.info.scheme];
    if (key.hasDate) {
        EPC_TRY(getDate(bits, text, out.list));
    }
    for (const AiDefinition* const ai : key.ais) {
        if (ai != nullptr) {
            EPC_TRY(getElement(bits, text, out.list, *ai, KEY_PASS));
        }
    }
    return toggle == 1 ? getDataSection(bits, text, out.list) : EPC_OK;
}

} // namespace rosetag
