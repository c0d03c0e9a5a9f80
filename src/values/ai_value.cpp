#include "values/ai_value.h"

#include "values/date_kinds.h"
#include "values/number_kinds.h"
#include "values/small_kinds.h"
#include "values/text_kinds.h"

namespace rosetag {

namespace {

struct KindRow {
    AiKind kind;
    AiEncode encode;
    AiDecode decode;
};

// In the order of AiKind, from the first on.
// clang-format off
constexpr KindRow kindTable[] = {
    // kind                    encode                  decode
    {AI_KIND_NUMERIC,          aiEncodeNumeric,        aiDecodeNumeric},
    {AI_KIND_DATE_CODED,       aiEncodeDateCoded,      aiDecodeDateCoded},
    {AI_KIND_DIGITS,           aiEncodeDigits,         aiDecodeDigits},
    {AI_KIND_DIGITS_THEN_TEXT, aiEncodeDigitsThenText, aiDecodeDigitsThenText},
    {AI_KIND_TEXT,             aiEncodeText,           aiDecodeText},
    {AI_KIND_FLAG,             aiEncodeFlag,           aiDecodeFlag},
    {AI_KIND_DATE,             aiEncodeDate,           aiDecodeDate},
    {AI_KIND_DATE_TIME,        aiEncodeDateTime,       aiDecodeDateTime},
    {AI_KIND_DATE_RANGE,       aiEncodeDateRange,      aiDecodeDateRange},
    {AI_KIND_DATE_TIME_VAR,    aiEncodeDateTimeVar,    aiDecodeDateTimeVar},
    {AI_KIND_LETTERS,          aiEncodeLetters,        aiDecodeLetters},
    {AI_KIND_VAR_NUMERIC,      aiEncodeVarNumeric,     aiDecodeVarNumeric},
    {AI_KIND_SIGN,             aiEncodeSign,           aiDecodeSign},
};
// clang-format on

static_assert(
    [] {
        unsigned kind = AI_KIND_NUMERIC;
        for (const KindRow& row : kindTable) {
            if (row.kind != kind++) {
                return false;
            }
        }
        return kind == AI_KIND_SIGN + 1U;
    }(),
    "the rows stand in the order of the kinds");

const KindRow* kindFind(AiKind kind) {
    if (kind < AI_KIND_NUMERIC || kind > AI_KIND_SIGN) {
        return nullptr;
    }
    return &kindTable[kind - AI_KIND_NUMERIC];
}

} // namespace

EpcStatus aiValueEncode(TextCursor& cursor, BitBuffer& out, const AiDefinition& ai,
                        std::uint8_t componentIndex, AiKind kindOverride, std::int32_t encoding) {
    const AiComponent& component = ai.components[componentIndex];
    const KindRow* const row =
        kindFind(kindOverride != AI_KIND_NONE ? kindOverride : component.kind);
    if (row == nullptr) {
        return EPC_ERR_BAD_FORMAT;
    }
    return row->encode(cursor, out, {ai, component, encoding});
}

EpcStatus aiValueDecode(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai,
                        std::uint8_t componentIndex) {
    const AiComponent& component = ai.components[componentIndex];
    const KindRow* const row = kindFind(component.kind);
    if (row == nullptr) {
        return EPC_ERR_BAD_FORMAT;
    }
    return row->decode(bits, text, component);
}

EpcStatus aiValueDecodeAll(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai) {
    for (std::uint8_t i = 0; i < ai.componentCount; ++i) {
        EPC_TRY(aiValueDecode(bits, text, ai, i));
    }
    return EPC_OK;
}

} // namespace rosetag
