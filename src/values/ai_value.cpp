#include "values/ai_value.h"

#include "gs1/ai_table.h"
#include "values/date_kinds.h"
#include "values/number_kinds.h"
#include "values/small_kinds.h"
#include "values/text_kinds.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

struct KindRow {
    AiKind kind;
    AiEncode encode;
    AiDecode decode;
};

// clang-format off
constexpr KindRow kindTable[] = {
    // kind                    encode                  decode
    {AI_KIND_NUMERIC,          aiEncodeNumeric,        aiDecodeNumeric},
    {AI_KIND_DATE_CODED,       aiEncodeDateCoded,      nullptr}, // for kindOverride alone
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
    "the rows are in the order of the kinds");

constexpr const KindRow& kindRow(AiKind kind) {
    return kindTable[kind - AI_KIND_NUMERIC];
}

constexpr bool bitFormIsComplete(const AiComponent& component) {
    if (component.kind == AI_KIND_NONE) {
        return true;
    }
    const bool isText =
        component.kind == AI_KIND_TEXT || component.kind == AI_KIND_DIGITS_THEN_TEXT;
    const bool isDigits = component.kind == AI_KIND_NUMERIC || component.kind == AI_KIND_DIGITS;
    const bool hasLength = isText || component.kind == AI_KIND_VAR_NUMERIC;
    return kindRow(component.kind).decode != nullptr &&
           hasLength == (component.lengthIndicatorBits != 0) &&
           (!isDigits || component.digitCount != 0);
}

static_assert(std::all_of(aiTable.begin(), aiTable.end(), [](const AiTableRow& row) {
    return std::all_of(std::begin(row.components), std::end(row.components), bitFormIsComplete);
}));

} // namespace

EpcStatus aiValueEncode(TextCursor& cursor, BitBuffer& out, const AiDefinition& ai,
                        std::uint8_t componentIndex, AiKind kindOverride, std::int32_t encoding) {
    const AiComponent& component = ai.components[componentIndex];
    const AiKind kind = kindOverride != AI_KIND_NONE ? kindOverride : component.kind;
    return kindRow(kind).encode(cursor, out, {ai, component, encoding});
}

EpcStatus aiValueDecode(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai) {
    for (std::uint8_t i = 0; i < ai.componentCount; ++i) {
        const AiComponent& component = ai.components[i];
        EPC_TRY(kindRow(component.kind).decode(bits, text, component));
    }
    return EPC_OK;
}

} // namespace rosetag
