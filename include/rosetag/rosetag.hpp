/**
 * @file
 * Rosetag for C++20: the functions of rosetag.h with C++ types, and nothing else.
 *
 * A function has the name of its C twin without the prefix. It takes texts as std::string_view and
 * binary values as std::span of whole bytes or words, and returns a Result:
 *
 *     if (const auto uri = rosetag::hexToEpcUri("3074257BF7194E4000001A85")) {
 *         std::cout << *uri;
 *     } else {
 *         std::cerr << uri.name() << ": " << uri.message();
 *     }
 *
 * There are no functions ending in Enc: the encoding is an argument with a default. A text is
 * copied to the stack to end it with a NUL. One of more than MAX_TEXT_LENGTH characters is refused
 * with EPC_ERR_TOO_LONG, one that contains a NUL with EPC_ERR_BAD_CHARACTER, without a call.
 * Everything else is as rosetag.h says. The only exceptions are those of std::string and
 * std::vector when memory runs out.
 */
#ifndef ROSETAG_ROSETAG_HPP
#define ROSETAG_ROSETAG_HPP

#if __cplusplus < 201709L && (!defined(_MSVC_LANG) || _MSVC_LANG < 201709L)
#error "rosetag.hpp needs C++20 (-std=c++20). Older C++ can use rosetag.h."
#else

#include "rosetag/rosetag.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

/** The longest text accepted: longer than any that the library writes. */
inline constexpr std::size_t MAX_TEXT_LENGTH = 8191;

/** The result of a call: a value, or the status that says why there is none. */
template <typename Value>
struct Result {
    EpcStatus status = EPC_OK;
    Value value{}; ///< Empty unless status is EPC_OK.

    explicit operator bool() const {
        return status == EPC_OK;
    }
    const Value& operator*() const {
        return value;
    }
    const Value* operator->() const {
        return &value;
    }
    /** The name of the status, for example "EPC_ERR_NO_ROOM". */
    std::string_view name() const {
        return epc_statusName(status);
    }
    /** What the status says about the input. */
    std::string_view message() const {
        return epc_statusText(status);
    }
};

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;
using BytesView = std::span<const std::uint8_t>;
using WordsView = std::span<const std::uint16_t>;

/** An AI and its value, as in an element string. */
struct Ai {
    std::string code;
    std::string value;
};

/** The +AIDC bits of an AI value as bytes, words or hexadecimal digits, and their number. */
template <typename Form>
struct AiBits {
    Form data;
    std::int32_t bits = 0;
};

/** What a binary value needs beyond the GS1 text it is made from. */
struct Target {
    EpcScheme scheme = EPC_SCHEME_SGTIN_96;
    std::int32_t filter = 0;
    std::int32_t gcpLength = 0; ///< 6 to 12; ignored by the plus schemes.
    std::int32_t encoding = AI_ENC_AUTO;
};

namespace detail {

// More bytes than the largest value made from a text has: 20 AIs of 656 bits each.
inline constexpr std::size_t MAX_BYTES = 2048;

// Calls call with a NUL-terminated copy of the text.
template <typename Call>
auto withText(std::string_view text, Call call) -> decltype(call("")) {
    if (text.size() > MAX_TEXT_LENGTH) {
        return {EPC_ERR_TOO_LONG, {}};
    }
    if (text.find('\0') != std::string_view::npos) {
        return {EPC_ERR_BAD_CHARACTER, {}};
    }
    char copy[MAX_TEXT_LENGTH + 1];
    copy[text.copy(copy, text.size())] = '\0';
    return call(copy);
}

// Calls call with the number of bits and a pointer to the first element.
template <typename Element, typename Call>
auto withBits(std::span<const Element> data, Call call) -> decltype(call(0, data.data())) {
    constexpr std::size_t mostBytes = std::numeric_limits<std::int32_t>::max() / 8;
    if (data.size_bytes() > mostBytes) {
        return {EPC_ERR_TOO_LONG, {}};
    }
    return call(static_cast<std::int32_t>(data.size_bytes() * 8), data.data());
}

// Each of these calls a C function with room for its output, which comes after its other arguments.

template <std::size_t size, typename Function, typename... Arguments>
Result<std::string> getText(Function* function, Arguments... arguments) {
    char dst[size];
    const EpcStatus status = function(arguments..., static_cast<std::int32_t>(size), dst);
    return {status, status == EPC_OK ? dst : ""};
}

template <typename Element, std::size_t capacity, typename Function, typename... Arguments>
Result<std::vector<Element>> getElements(Function* function, Arguments... arguments) {
    Element out[capacity];
    std::int32_t count = 0;
    const EpcStatus status =
        function(arguments..., static_cast<std::int32_t>(capacity), out, &count);
    return {status, std::vector<Element>(out, status == EPC_OK ? out + count : out)};
}

template <typename Function, typename... Arguments>
Result<std::vector<Ai>> getAis(Function* function, Arguments... arguments) {
    char codes[EPC_MAX_AIS][EPC_AI_CODE_SIZE];
    char values[EPC_MAX_AIS][EPC_AI_VALUE_SIZE];
    std::uint32_t count = 0;
    Result<std::vector<Ai>> ais;
    ais.status =
        function(arguments..., EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes[0], values[0], &count);
    for (std::uint32_t i = 0; ais && i < count; ++i) {
        ais.value.push_back({codes[i], values[i]});
    }
    return ais;
}

template <std::size_t size, typename Function, typename... Arguments>
Result<std::string> textToText(Function* function, std::string_view text, Arguments... arguments) {
    return withText(text,
                    [=](const char* copy) { return getText<size>(function, copy, arguments...); });
}

template <typename Element, std::size_t capacity, typename Function, typename... Arguments>
Result<std::vector<Element>> textToElements(Function* function, std::string_view text,
                                            Arguments... arguments) {
    return withText(text, [=](const char* copy) {
        return getElements<Element, capacity>(function, copy, arguments...);
    });
}

template <typename Function, typename... Arguments>
Result<std::vector<Ai>> textToAis(Function* function, std::string_view text,
                                  Arguments... arguments) {
    return withText(text, [=](const char* copy) { return getAis(function, copy, arguments...); });
}

template <std::size_t size, typename Element, typename Function, typename... Arguments>
Result<std::string> bitsToText(Function* function, std::span<const Element> data) {
    return withBits(data, [=](std::int32_t bits, const Element* first) {
        return getText<size>(function, bits, first);
    });
}

} // namespace detail

/* ---- Scheme names ---- */

inline Result<std::string> tagSchemeEnumToName(EpcScheme scheme) {
    return detail::getText<EPC_SCHEME_NAME_SIZE>(epc_tagSchemeEnumToName, scheme);
}

inline Result<EpcScheme> tagSchemeNameToEnum(std::string_view name) {
    return detail::withText(name, [](const char* copy) {
        Result<EpcScheme> scheme;
        scheme.status = epc_tagSchemeNameToEnum(copy, &scheme.value);
        return scheme;
    });
}

inline Result<std::string> binaryToTagSchemeName(BytesView binary) {
    return detail::bitsToText<EPC_SCHEME_NAME_SIZE>(epc_binaryToTagSchemeName, binary);
}

inline Result<std::string> hexToTagSchemeName(std::string_view hex) {
    return detail::textToText<EPC_SCHEME_NAME_SIZE>(epc_hexToTagSchemeName, hex);
}

/* ---- EPC binary to text ---- */

inline Result<std::string> binaryToEpcTagUri(BytesView binary) {
    return detail::bitsToText<EPC_URI_SIZE>(epc_binaryToEpcTagUri, binary);
}

inline Result<std::string> binaryToEpcUri(BytesView binary) {
    return detail::bitsToText<EPC_URI_SIZE>(epc_binaryToEpcUri, binary);
}

inline Result<std::string> binaryToGs1ElementString(BytesView binary) {
    return detail::bitsToText<EPC_ELEMENT_STRING_SIZE>(epc_binaryToGs1ElementString, binary);
}

inline Result<std::string> binaryToBarcodeString(BytesView binary) {
    return detail::bitsToText<EPC_BARCODE_STRING_SIZE>(epc_binaryToBarcodeString, binary);
}

inline Result<std::string> binaryToDigitalLink(BytesView binary) {
    return detail::bitsToText<EPC_DIGITAL_LINK_SIZE>(epc_binaryToDigitalLink, binary);
}

inline Result<std::vector<Ai>> binaryToAIs(BytesView binary) {
    return detail::withBits(binary, [](std::int32_t bits, const std::uint8_t* first) {
        return detail::getAis(epc_binaryToAIs, bits, first);
    });
}

inline Result<std::string> hexToEpcTagUri(std::string_view hex) {
    return detail::textToText<EPC_URI_SIZE>(epc_hexToEpcTagUri, hex);
}

inline Result<std::string> hexToEpcUri(std::string_view hex) {
    return detail::textToText<EPC_URI_SIZE>(epc_hexToEpcUri, hex);
}

inline Result<std::string> hexToGs1ElementString(std::string_view hex) {
    return detail::textToText<EPC_ELEMENT_STRING_SIZE>(epc_hexToGs1ElementString, hex);
}

inline Result<std::string> hexToBarcodeString(std::string_view hex) {
    return detail::textToText<EPC_BARCODE_STRING_SIZE>(epc_hexToBarcodeString, hex);
}

inline Result<std::string> hexToDigitalLink(std::string_view hex) {
    return detail::textToText<EPC_DIGITAL_LINK_SIZE>(epc_hexToDigitalLink, hex);
}

inline Result<std::vector<Ai>> hexToAIs(std::string_view hex) {
    return detail::textToAis(epc_hexToAIs, hex);
}

inline Result<std::string> wordsToEpcTagUri(WordsView words) {
    return detail::bitsToText<EPC_URI_SIZE>(epc_wordsToEpcTagUri, words);
}

inline Result<std::string> wordsToEpcUri(WordsView words) {
    return detail::bitsToText<EPC_URI_SIZE>(epc_wordsToEpcUri, words);
}

inline Result<std::string> wordsToGs1ElementString(WordsView words) {
    return detail::bitsToText<EPC_ELEMENT_STRING_SIZE>(epc_wordsToGs1ElementString, words);
}

inline Result<std::string> wordsToBarcodeString(WordsView words) {
    return detail::bitsToText<EPC_BARCODE_STRING_SIZE>(epc_wordsToBarcodeString, words);
}

inline Result<std::string> wordsToDigitalLink(WordsView words) {
    return detail::bitsToText<EPC_DIGITAL_LINK_SIZE>(epc_wordsToDigitalLink, words);
}

/* ---- EPC URIs to binary ---- */

inline Result<Bytes> epcTagUriToBinary(std::string_view text) {
    return detail::textToElements<std::uint8_t, EPC_MAX_BINARY_BYTES>(epc_epcTagUriToBinary, text);
}

inline Result<std::string> epcTagUriToHex(std::string_view text) {
    return detail::textToText<EPC_HEX_SIZE>(epc_epcTagUriToHex, text);
}

inline Result<Words> epcTagUriToWords(std::string_view text) {
    return detail::textToElements<std::uint16_t, EPC_MAX_BINARY_WORDS>(epc_epcTagUriToWords, text);
}

inline Result<Bytes> epcUriToBinary(std::string_view text, EpcScheme scheme, std::int32_t filter) {
    return detail::textToElements<std::uint8_t, EPC_MAX_BINARY_BYTES>(epc_epcUriToBinary, text,
                                                                      scheme, filter);
}

inline Result<std::string> epcUriToHex(std::string_view text, EpcScheme scheme,
                                       std::int32_t filter) {
    return detail::textToText<EPC_HEX_SIZE>(epc_epcUriToHex, text, scheme, filter);
}

inline Result<Words> epcUriToWords(std::string_view text, EpcScheme scheme, std::int32_t filter) {
    return detail::textToElements<std::uint16_t, EPC_MAX_BINARY_WORDS>(epc_epcUriToWords, text,
                                                                       scheme, filter);
}

/* ---- GS1 text to binary ---- */

inline Result<Bytes> barcodeStringToBinary(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint8_t, detail::MAX_BYTES>(
        epc_barcodeStringToBinaryEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

inline Result<std::string> barcodeStringToHex(std::string_view text, const Target& target) {
    return detail::textToText<EPC_HEX_SIZE>(epc_barcodeStringToHexEnc, text, target.scheme,
                                            target.filter, target.gcpLength, target.encoding);
}

inline Result<Words> barcodeStringToWords(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint16_t, EPC_MAX_BINARY_WORDS>(
        epc_barcodeStringToWordsEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

inline Result<Bytes> digitalLinkToBinary(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint8_t, detail::MAX_BYTES>(
        epc_digitalLinkToBinaryEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

inline Result<std::string> digitalLinkToHex(std::string_view text, const Target& target) {
    return detail::textToText<EPC_HEX_SIZE>(epc_digitalLinkToHexEnc, text, target.scheme,
                                            target.filter, target.gcpLength, target.encoding);
}

inline Result<Words> digitalLinkToWords(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint16_t, EPC_MAX_BINARY_WORDS>(
        epc_digitalLinkToWordsEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

inline Result<Bytes> gs1ElementStringToBinary(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint8_t, detail::MAX_BYTES>(
        epc_gs1ElementStringToBinaryEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

inline Result<std::string> gs1ElementStringToHex(std::string_view text, const Target& target) {
    return detail::textToText<EPC_HEX_SIZE>(epc_gs1ElementStringToHexEnc, text, target.scheme,
                                            target.filter, target.gcpLength, target.encoding);
}

inline Result<Words> gs1ElementStringToWords(std::string_view text, const Target& target) {
    return detail::textToElements<std::uint16_t, EPC_MAX_BINARY_WORDS>(
        epc_gs1ElementStringToWordsEnc, text, target.scheme, target.filter, target.gcpLength,
        target.encoding);
}

/* ---- Text to text ---- */

inline Result<std::vector<Ai>> barcodeStringToAIs(std::string_view text, char separator) {
    return detail::textToAis(epc_barcodeStringToAIs, text, static_cast<unsigned char>(separator));
}

/** Ignores the encoding of target. */
inline Result<std::string> barcodeStringToEpcTagUri(std::string_view text, const Target& target) {
    return detail::textToText<EPC_URI_SIZE>(epc_barcodeStringToEpcTagUri, text, target.scheme,
                                            target.filter, target.gcpLength);
}

inline Result<std::vector<Ai>> digitalLinkToAIs(std::string_view text) {
    return detail::textToAis(epc_digitalLinkToAIs, text);
}

inline Result<std::string> digitalLinkToGs1ElementString(std::string_view text) {
    return detail::textToText<EPC_ELEMENT_STRING_SIZE>(epc_digitalLinkToGs1ElementString, text);
}

inline Result<std::string> epcTagUriToBarcodeString(std::string_view text) {
    return detail::textToText<EPC_BARCODE_STRING_SIZE>(epc_epcTagUriToBarcodeString, text);
}

inline Result<std::string> epcTagUriToDigitalLink(std::string_view text) {
    return detail::textToText<EPC_DIGITAL_LINK_SIZE>(epc_epcTagUriToDigitalLink, text);
}

inline Result<std::string> epcTagUriToGs1ElementString(std::string_view text) {
    return detail::textToText<EPC_ELEMENT_STRING_SIZE>(epc_epcTagUriToGs1ElementString, text);
}

inline Result<std::string> epcUriToBarcodeString(std::string_view text) {
    return detail::textToText<EPC_BARCODE_STRING_SIZE>(epc_epcUriToBarcodeString, text);
}

inline Result<std::string> epcUriToGs1ElementString(std::string_view text) {
    return detail::textToText<EPC_ELEMENT_STRING_SIZE>(epc_epcUriToGs1ElementString, text);
}

inline Result<std::vector<Ai>> gs1ElementStringToAIs(std::string_view text) {
    return detail::textToAis(epc_gs1ElementStringToAIs, text);
}

inline Result<std::string> gs1ElementStringToDigitalLink(std::string_view text) {
    return detail::textToText<EPC_DIGITAL_LINK_SIZE>(epc_gs1ElementStringToDigitalLink, text);
}

/** Ignores the encoding of target. */
inline Result<std::string> gs1ElementStringToEpcTagUri(std::string_view text,
                                                       const Target& target) {
    return detail::textToText<EPC_URI_SIZE>(epc_gs1ElementStringToEpcTagUri, text, target.scheme,
                                            target.filter, target.gcpLength);
}

inline Result<std::string> gs1ElementStringToEpcUri(std::string_view text, std::int32_t gcpLength) {
    return detail::textToText<EPC_URI_SIZE>(epc_gs1ElementStringToEpcUri, text, gcpLength);
}

/* ---- Single AI values ---- */

/** Whether the bits of a value begin with the digits of its AI. */
enum class AiCode { WITHOUT, WITH };

namespace detail {

// unitsOf: the number of elements of Form that hold a number of bits.
template <typename Form, std::size_t capacity, typename Function, typename UnitsOf>
Result<AiBits<Form>> putAiValue(Function* function, std::string_view ai, std::string_view value,
                                AiCode code, std::int32_t encoding, UnitsOf unitsOf) {
    return withText(ai, [=](const char* aiCopy) {
        return withText(value, [=](const char* valueCopy) {
            typename Form::value_type out[capacity];
            Result<AiBits<Form>> result;
            std::int32_t bits = 0;
            result.status = function(aiCopy, valueCopy, code == AiCode::WITH ? 1 : 0, encoding,
                                     static_cast<std::int32_t>(capacity), out, &bits);
            if (result) {
                result.value = {Form(out, out + unitsOf(bits)), bits};
            }
            return result;
        });
    });
}

template <typename Function, typename... Arguments>
Result<Ai> getAi(Function* function, Arguments... arguments) {
    char code[EPC_AI_CODE_SIZE];
    char value[EPC_AI_VALUE_SIZE];
    Result<Ai> ai;
    ai.status = function(arguments..., code, EPC_AI_VALUE_SIZE, value);
    if (ai) {
        ai.value = {code, value};
    }
    return ai;
}

template <typename Function, typename Element>
Result<std::string> getAiValue(Function* function, std::span<const Element> data,
                               std::string_view ai) {
    return withText(ai, [=](const char* copy) {
        return withBits(data, [=](std::int32_t bits, const Element* first) {
            return getText<EPC_AI_VALUE_SIZE>(function, bits, first, copy);
        });
    });
}

} // namespace detail

inline Result<AiBits<Bytes>> AIToBinary(std::string_view ai, std::string_view value, AiCode code,
                                        std::int32_t encoding = AI_ENC_AUTO) {
    return detail::putAiValue<Bytes, detail::MAX_BYTES>(
        epc_AIToBinaryEnc, ai, value, code, encoding,
        [](std::int32_t bits) { return (bits + 7) / 8; });
}

inline Result<AiBits<std::string>> AIToHex(std::string_view ai, std::string_view value, AiCode code,
                                           std::int32_t encoding = AI_ENC_AUTO) {
    return detail::putAiValue<std::string, EPC_HEX_SIZE>(
        epc_AIToHexEnc, ai, value, code, encoding,
        [](std::int32_t bits) { return (bits + 7) / 8 * 2; });
}

inline Result<AiBits<Words>> AIToWords(std::string_view ai, std::string_view value, AiCode code,
                                       std::int32_t encoding = AI_ENC_AUTO) {
    return detail::putAiValue<Words, EPC_MAX_BINARY_WORDS>(
        epc_AIToWordsEnc, ai, value, code, encoding,
        [](std::int32_t bits) { return (bits + 15) / 16; });
}

inline Result<std::string> binaryValueToAI(BytesView binary, std::string_view ai) {
    return detail::getAiValue(epc_binaryValueToAI, binary, ai);
}

inline Result<std::string> hexValueToAI(std::string_view hex, std::string_view ai) {
    return detail::withText(ai, [hex](const char* copy) {
        return detail::textToText<EPC_AI_VALUE_SIZE>(epc_hexValueToAI, hex, copy);
    });
}

inline Result<std::string> wordsValueToAI(WordsView words, std::string_view ai) {
    return detail::getAiValue(epc_wordsValueToAI, words, ai);
}

inline Result<Ai> plusAidcBinaryToAI(BytesView binary) {
    return detail::withBits(binary, [](std::int32_t bits, const std::uint8_t* first) {
        return detail::getAi(epc_plusAidcBinaryToAI, bits, first);
    });
}

inline Result<Ai> plusAidcHexToAI(std::string_view hex) {
    return detail::withText(
        hex, [](const char* copy) { return detail::getAi(epc_plusAidcHexToAI, copy); });
}

inline Result<Ai> plusAidcWordsToAI(WordsView words) {
    return detail::withBits(words, [](std::int32_t bits, const std::uint16_t* first) {
        return detail::getAi(epc_plusAidcWordsToAI, bits, first);
    });
}

/* ---- TID ---- */

/** tid_binaryDecode. The record holds everything that the other TID functions write. */
inline Result<TidRecord> tidDecode(BytesView binary) {
    return detail::withBits(binary, [](std::int32_t bits, const std::uint8_t* first) {
        Result<TidRecord> tid;
        tid.status = tid_binaryDecode(bits, first, &tid.value);
        return tid;
    });
}

/** tid_wordsDecode. */
inline Result<TidRecord> tidDecode(WordsView words) {
    return detail::withBits(words, [](std::int32_t bits, const std::uint16_t* first) {
        Result<TidRecord> tid;
        tid.status = tid_wordsDecode(bits, first, &tid.value);
        return tid;
    });
}

} // namespace rosetag

#endif
#endif
