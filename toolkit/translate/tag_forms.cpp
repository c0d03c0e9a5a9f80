/*
 * The forms of a tag value.
 */
#include "bridge/gs1_conversions.h"
#include "gs1/ai_list.h"
#include "recognise/hex_text.h"
#include "schemes/epc_uri.h"
#include "schemes/numeric_identity.h"
#include "schemes/tag_scheme.h"
#include "translate/numbers.h"
#include "translate/text_room.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

#include <algorithm>
#include <array>
#include <functional>

namespace rosetag {

namespace {

constexpr FormSet GS1_TEXTS = Form::ELEMENT_STRING | Form::BARCODE_STRING | Form::DIGITAL_LINK;

TagBits tagBitsOf(std::string_view hex) {
    TagBits bits;
    bits.count = static_cast<std::int32_t>(8 * bytesOfHex(hex, bits.bytes.data()));
    return bits;
}

struct TagAis {
    std::uint32_t count = 0;
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_CODE_SIZE> codes;
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_VALUE_SIZE> values;

    AiText operator()(std::size_t index) const {
        return {&codes[index * EPC_AI_CODE_SIZE], &values[index * EPC_AI_VALUE_SIZE]};
    }
};

EpcStatus tagAisRead(BitBuffer bits, TagAis& ais) {
    return bitsToAIs(
        bits, {EPC_MAX_AIS, EPC_AI_VALUE_SIZE, ais.codes.data(), ais.values.data(), &ais.count});
}

EpcStatus addAisOfBits(const BitBuffer& bits, FormSet wanted, Translation& result) {
    TagAis ais;
    EPC_TRY(tagAisRead(bits, ais));
    for (std::size_t i = 0; wanted.has(Form::AIS) && i < ais.count; ++i) {
        addAi(result, ais(i).code, ais(i).value);
    }
    addNumbers(wanted, ais.count, std::cref(ais), result);
    return EPC_OK;
}

template <std::size_t size>
EpcStatus gs1TextOfBits(BitBuffer bits, BinaryToText TagSchemeOps::*slot, std::string& text) {
    return textWritten<size>(
        text, [&](TextBuffer& buffer) { return bitsPutGs1Text(bits, buffer, slot); });
}

EpcStatus uriOfBits(BitBuffer bits, UriForm form, std::string& text) {
    return textWritten<EPC_URI_SIZE>(
        text, [&](TextBuffer& buffer) { return bitsPutEpcUri(bits, buffer, form); });
}

// The texts of a value that has a GS1 key. A value need not have a link: further AIs can be a key
// too, and a serial number can hold what the link writer takes for an escape.
EpcStatus gs1TextsOfBits(const BitBuffer& bits, FormSet wanted, Translation& result) {
    if (wanted.has(Form::ELEMENT_STRING)) {
        EPC_TRY(gs1TextOfBits<EPC_ELEMENT_STRING_SIZE>(bits, &TagSchemeOps::binaryToElementString,
                                                       result.elementString));
    }
    if (wanted.has(Form::BARCODE_STRING)) {
        EPC_TRY(gs1TextOfBits<EPC_BARCODE_STRING_SIZE>(bits, &TagSchemeOps::binaryToBarcodeString,
                                                       result.barcodeString));
    }
    if (wanted.has(Form::DIGITAL_LINK) &&
        gs1TextOfBits<EPC_DIGITAL_LINK_SIZE>(bits, &TagSchemeOps::binaryToDigitalLink,
                                             result.digitalLink) != EPC_OK) {
        // Whether the bits can be read at all.
        EPC_TRY(gs1TextOfBits<EPC_ELEMENT_STRING_SIZE>(bits, &TagSchemeOps::binaryToElementString,
                                                       result.elementString));
    }
    if (wanted.hasAny(AI_FORMS)) {
        EPC_TRY(addAisOfBits(bits, wanted, result));
    }
    return EPC_OK;
}

EpcStatus urisOfBits(const BitBuffer& bits, FormSet wanted, Translation& result) {
    if (wanted.has(Form::TAG_URI)) {
        EPC_TRY(uriOfBits(bits, UriForm::TAG, result.tagUri));
    }
    if (wanted.has(Form::PURE_IDENTITY)) {
        EPC_TRY(uriOfBits(bits, UriForm::PURE_IDENTITY, result.pureIdentity));
    }
    return EPC_OK;
}

// True if the bits can be read; otherwise the general reader says whether they can.
using NumbersRead = bool (*)(const BitBuffer& bits);

template <EpcScheme scheme>
bool readNumbers(const BitBuffer& bits) {
    NumericIdentity identity;
    return numericFromBits<scheme>(bits, identity);
}

template <EpcScheme scheme>
constexpr NumbersRead numbersReadOf() {
    if constexpr (schemeHasShortcuts(schemeRows[scheme])) {
        return readNumbers<scheme>;
    }
    return nullptr;
}

// By scheme; null for those that are not of numbers.
template <int... scheme>
constexpr auto numbersReadsMake(std::integer_sequence<int, scheme...>) {
    return std::array{numbersReadOf<EpcScheme{scheme}>()...};
}

constexpr auto numbersReads = numbersReadsMake(std::make_integer_sequence<int, EPC_SCHEME_COUNT>());

// What was encoded for a scheme of numbers can be read: both look at the same limits.
NumbersRead numbersReadFor(const SchemeInfo& scheme) {
    return numbersReads[static_cast<std::size_t>(scheme.scheme)];
}

// Whether some form that was asked for shows that the bits can be read.
bool showsReadable(FormSet wanted, const SchemeInfo& scheme) {
    return wanted.hasAny(scheme.hasUris ? Form::TAG_URI | Form::PURE_IDENTITY : FormSet()) ||
           wanted.hasAny(scheme.hasGs1Texts ? GS1_TEXTS | AI_FORMS : FormSet());
}

// EPC_OK if the bits can be read.
EpcStatus readBits(BitBuffer bits, const SchemeInfo& scheme, NumbersRead numeric) {
    if (numeric != nullptr && numeric(bits)) {
        return EPC_OK;
    }
    std::array<char, std::max(EPC_URI_SIZE, EPC_ELEMENT_STRING_SIZE)> room;
    TextBuffer text = textBufferOver(room.data(), static_cast<std::int32_t>(room.size()));
    return scheme.hasUris ? bitsPutEpcUri(bits, text, UriForm::PURE_IDENTITY)
                          : bitsPutGs1Text(bits, text, &TagSchemeOps::binaryToElementString);
}

// Character by character: a wider load has to wait for what was just stored in parts.
AiText firstAiOf(std::string_view elementString) {
    std::size_t codeEnd = 1;
    while (elementString[codeEnd] != ')') {
        ++codeEnd;
    }
    return {elementString.substr(1, codeEnd - 1), elementString.substr(codeEnd + 1)};
}

// One or two AIs whose values are digits.
struct DigitAis {
    AiText first;
    AiText last; // the first if there is no other
};

ROSETAG_INLINE DigitAis digitAisOf(std::string_view elementString) {
    const std::size_t last = elementString.rfind('(');
    return {firstAiOf(last == 0 ? elementString : elementString.substr(0, last)),
            firstAiOf(elementString.substr(last))};
}

bool isNumeric(const BitBuffer& bits) {
    const SchemeInfo* const scheme = schemeByHeader(bits.bytes[0]);
    return scheme != nullptr && isNumericScheme(*scheme);
}

// Narrows a text to what was found in it.
void textNarrow(TextBuffer& text, std::string_view found) {
    text.begin += found.empty() ? 0 : found.data() - text.begin;
    text.writePointer = text.begin + found.size();
}

} // namespace

bool isNumericScheme(const SchemeInfo& scheme) {
    return numbersReadFor(scheme) != nullptr;
}

void hexInUpperCase(std::string_view hex, std::string& text) {
    text = hex;
    for (char& digit : text) {
        digit = static_cast<char>('a' <= digit && digit <= 'f' ? digit - 'a' + 'A' : digit);
    }
}

EpcStatus formsOfHex(std::string_view hex, FormSet wanted, Translation& result) {
    if (wanted.has(Form::HEX)) {
        hexInUpperCase(hex, result.hex);
    }
    return formsOfTag(tagBitsOf(hex), wanted, TagOrigin::GIVEN, result);
}

void describeTag(const TagBits& tag, Translation& result) {
    result.bits = tag.count;
    result.filter.reset();
    result.scheme = tag.count < TAG_HEADER_BITS ? nullptr : schemeByHeader(tag.bytes[0]);
    if (result.scheme != nullptr && result.scheme->filterLimit > 0 &&
        tag.count >= 2 * TAG_HEADER_BITS) {
        result.filter = schemeFilterOf(*result.scheme, tag.bytes.data());
    }
}

EpcStatus formsOfEncoded(const TagBits& tag, FormSet wanted, Translation& result) {
    if (wanted.has(Form::HEX)) {
        EPC_TRY(textWritten<EPC_HEX_SIZE>(result.hex, [&](TextBuffer& hex) {
            return textBufferPutHex(hex, tag.bytes.data(), tag.count / 8);
        }));
    }
    return formsOfTag(tag, wanted.without(Form::HEX), TagOrigin::ENCODED, result);
}

EpcStatus formsOfTag(const TagBits& tag, FormSet wanted, TagOrigin origin, Translation& result) {
    describeTag(tag, result);
    if (result.scheme == nullptr) {
        return tag.count < TAG_HEADER_BITS ? EPC_ERR_TRUNCATED : EPC_ERR_UNKNOWN_HEADER;
    }
    const NumbersRead numeric = numbersReadFor(*result.scheme);
    const bool isReadable = origin == TagOrigin::ENCODED && numeric != nullptr;
    if (isReadable && wanted == FormSet()) {
        return EPC_OK;
    }
    const BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    if (!isReadable && !showsReadable(wanted, *result.scheme)) {
        EPC_TRY(readBits(bits, *result.scheme, numeric));
    }
    if (result.scheme->hasUris) {
        EPC_TRY(urisOfBits(bits, wanted, result));
    }
    return result.scheme->hasGs1Texts ? gs1TextsOfBits(bits, wanted, result) : EPC_OK;
}

EpcStatus readTagBits(const BitBuffer& bits) {
    const SchemeInfo* const scheme = schemeByHeader(bits.bytes[0]);
    return scheme == nullptr ? EPC_ERR_UNKNOWN_HEADER
                             : readBits(bits, *scheme, numbersReadFor(*scheme));
}

EpcStatus numberOfBits(BitBuffer& bits, Form number, TextBuffer& text) {
    if (isNumeric(bits)) {
        EPC_TRY(bitsPutGs1Text(bits, text, &TagSchemeOps::binaryToElementString));
        const DigitAis ais = digitAisOf(textBufferView(text));
        std::string_view found;
        if (number == Form::SERIAL) {
            serialIn(ais.last, *gs1KeyFindByAi(ais.first.code), found);
        } else if (ais.first.code == GTIN_AI) {
            found = ais.first.value;
        }
        textNarrow(text, found);
        return found.empty() ? EPC_ERR_NOT_SUPPORTED : EPC_OK;
    }
    TagAis ais;
    EPC_TRY(tagAisRead(bits, ais));
    const std::string_view found = number == Form::GTIN ? gtinAmong(ais.count, std::cref(ais))
                                                        : serialAmong(ais.count, std::cref(ais));
    return found.empty() ? EPC_ERR_NOT_SUPPORTED : textBufferPutString(text, found);
}

EpcStatus aisOfBits(BitBuffer& bits, TextBuffer& text) {
    if (!isNumeric(bits)) {
        TagAis ais;
        EPC_TRY(tagAisRead(bits, ais));
        return aisPut(text, ais.count, std::cref(ais));
    }
    // "(01)1(21)2" becomes "01=1 21=2" where it is.
    EPC_TRY(bitsPutGs1Text(bits, text, &TagSchemeOps::binaryToElementString));
    const DigitAis ais = digitAisOf(textBufferView(text));
    for (const AiText& element : {ais.first, ais.last}) {
        char* const code = text.begin + (element.code.data() - text.begin);
        code[-1] = ' ';
        code[element.code.size()] = '=';
    }
    ++text.begin;
    return EPC_OK;
}

EpcStatus aiOfNumericBits(BitBuffer& bits, std::string_view code, TextBuffer& text) {
    if (!isNumeric(bits)) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(bitsPutGs1Text(bits, text, &TagSchemeOps::binaryToElementString));
    const DigitAis ais = digitAisOf(textBufferView(text));
    textNarrow(text, ais.first.code == code  ? ais.first.value
                     : ais.last.code == code ? ais.last.value
                                             : std::string_view());
    return EPC_OK;
}

namespace {

// 0 where the values of a scheme have no fixed length.
constexpr std::array<std::int32_t, EPC_SCHEME_COUNT> fixedBitsMake() {
    std::array<std::int32_t, EPC_SCHEME_COUNT> bits{};
    for (const SchemeRow& row : schemeRows) {
        bits[static_cast<std::size_t>(row.scheme)] = schemeBits(row);
    }
    return bits;
}

constexpr std::array<std::int32_t, EPC_SCHEME_COUNT> fixedBits = fixedBitsMake();

} // namespace

std::size_t tagValueBits(std::string_view hex) {
    TagBits tag = tagBitsOf(hex);
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    const TagSchemeOps* row = nullptr;
    if (tagSchemeReadHeader(bits, row) != EPC_OK) {
        return 0;
    }
    if (const std::int32_t fixed = fixedBits[static_cast<std::size_t>(row->info.scheme)];
        fixed != 0) {
        return static_cast<std::size_t>(fixed);
    }
    std::array<char, EPC_BARCODE_STRING_SIZE> room;
    TextBuffer text = textBufferOver(room.data(), static_cast<std::int32_t>(room.size()));
    const EpcStatus status = row->binaryToUriBody != nullptr
                                 ? row->binaryToUriBody(bits, text, UriForm::PURE_IDENTITY)
                                 : row->binaryToElementString(*row, bits, text);
    return status == EPC_OK ? static_cast<std::size_t>(bits.position) : 0;
}

} // namespace rosetag
