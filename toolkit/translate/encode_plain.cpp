#include "translate/encode_plain.h"

#include "bridge/gs1_conversions.h"
#include "bridge/gs1_key_table.h"
#include "gs1/check_digit.h"
#include "schemes/epc_uri.h"
#include "schemes/numeric_identity.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

namespace rosetag {

namespace {

struct Syntax {
    TextToBinary TagSchemeOps::*encode;
    BinaryToText TagSchemeOps::*decode;
    std::size_t marks; // characters around the code of an AI
};

constexpr Syntax ELEMENT_STRING = {&TagSchemeOps::elementStringToBinary,
                                   &TagSchemeOps::binaryToElementString, 2};
constexpr Syntax BARCODE_STRING = {&TagSchemeOps::barcodeStringToBinary,
                                   &TagSchemeOps::binaryToBarcodeString, 0};
constexpr Syntax DIGITAL_LINK = {&TagSchemeOps::digitalLinkToBinary,
                                 &TagSchemeOps::binaryToDigitalLink, 2};

// The check digit after 9 to 17 digits. Source: GS1 General Specifications, section 7.9.
ROSETAG_INLINE char checkDigitAfter(std::string_view digits) {
    constexpr std::uint64_t values = 0x0F0F0F0F0F0F0F0F;
    std::uint64_t sum = 0;
    if (digits.size() > 2 * SCAN_WIDTH) {
        sum = 3 * static_cast<std::uint64_t>(digits.front() - '0');
        digits.remove_prefix(1);
    }
    const std::size_t missing = 2 * SCAN_WIDTH - digits.size(); // of the first word
    const std::uint64_t high = (loadCharacters(digits.data()) & values) << (8 * missing);
    const std::uint64_t low = loadCharacters(digits.data() + digits.size() - SCAN_WIDTH) & values;
    return static_cast<char>('0' + (10 - (sum + weightedSumOf(high, low)) % 10) % 10);
}
static_assert(holdsForKeys([](const Gs1KeyDefinition& key) {
    const bool hasDigits = key.keyValueLength > 9 && key.keyValueLength <= 18;
    return key.hasCheckDigit == 0 || key.keyValueLength == 0 || hasDigits;
}));

// Of a text that begins with the AI of the key.
[[maybe_unused]] ROSETAG_INLINE bool
isCheckDigitRight(std::string_view text, const Gs1KeyDefinition& key, const Syntax& syntax) {
    const auto length = static_cast<std::size_t>(key.keyValueLength);
    const std::string_view value = text.substr(key.primaryAi.size() + syntax.marks);
    return key.hasCheckDigit == 0 ||
           checkDigitAfter(value.substr(0, length - 1)) == value[length - 1];
}

EncodeArguments argumentsOf(const EncodeOptions& options, bool isKeyAlone) {
    return {options.filter.value_or(0), options.read.gcpLength.value_or(0), options.encoding,
            isKeyAlone};
}

// A text that its bits give back has nothing left out and a right check digit.
bool encodeAndCompare(const Reading& reading, const EncodeOptions& options, const Syntax& syntax,
                      TagBits& tag) {
    const EpcStatus status = tagBitsWrite(tag, [&](BitBuffer& bits) {
        return gs1TextToBits(bits, syntax.encode, reading.workspace.text, options.scheme->scheme,
                             argumentsOf(options, false));
    });
    std::array<char, EPC_DIGITAL_LINK_SIZE> back;
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    return status == EPC_OK &&
           bitsToGs1Text(bits, EPC_DIGITAL_LINK_SIZE, back.data(), syntax.decode) == EPC_OK &&
           reading.workspace.text == back.data();
}

// A text of the key alone leaves nothing out: all that may be wrong with it is the check digit.
template <const Syntax& syntax>
bool encodeGs1Text(const Reading& reading, const EncodeOptions& options, TagBits& tag) {
    if constexpr (NUMERIC_WRITING) {
        const std::string_view text = reading.workspace.text;
        const EpcScheme scheme = options.scheme->scheme;
        if (isNumericScheme(*options.scheme) &&
            tagBitsWrite(tag, [&](BitBuffer& bits) {
                return gs1TextToBits(bits, syntax.encode, text, scheme, argumentsOf(options, true));
            }) == EPC_OK) {
            return isCheckDigitRight(text, *tagSchemeTable[scheme].key, syntax);
        }
    }
    return encodeAndCompare(reading, options, syntax, tag);
}

// A tag URI has its own scheme and filter.
bool encodeTagUri(const Reading& reading, const EncodeOptions& options, TagBits& tag) {
    return tagBitsWrite(
               tag, [&](BitBuffer& bits) { return tagUriToBits(bits, reading.workspace.text); }) ==
               EPC_OK &&
           !options.filter.has_value() &&
           (options.scheme == nullptr || options.scheme == schemeByHeader(tag.bytes[0]));
}

} // namespace

bool optionsSuffice(Form form, const EncodeOptions& options) {
    if (form == Form::TAG_URI || form == Form::HEX) {
        return true;
    }
    if (options.scheme == nullptr ||
        (options.filter.has_value() && options.scheme->filterLimit == 0)) {
        return false;
    }
    const bool needsPrefix =
        form != Form::PURE_IDENTITY && options.scheme->hasUris && options.scheme->hasGs1Texts;
    return !needsPrefix || options.read.gcpLength.has_value();
}

bool encodePlain(const Reading& reading, const EncodeOptions& options, TagBits& tag) {
    if (reading.form == Form::TAG_URI) {
        return encodeTagUri(reading, options, tag);
    }
    if (options.scheme == nullptr || options.scheme->isPlus) {
        return false;
    }
    switch (reading.form) {
    case Form::PURE_IDENTITY:
        return tagBitsWrite(tag, [&](BitBuffer& bits) {
                   return pureIdentityUriToBits(bits, reading.workspace.text,
                                                options.scheme->scheme, options.filter.value_or(0));
               }) == EPC_OK;
    case Form::ELEMENT_STRING:
        return encodeGs1Text<ELEMENT_STRING>(reading, options, tag);
    case Form::BARCODE_STRING:
        return encodeGs1Text<BARCODE_STRING>(reading, options, tag);
    case Form::DIGITAL_LINK:
        return encodeGs1Text<DIGITAL_LINK>(reading, options, tag);
    default:
        return false;
    }
}

} // namespace rosetag
