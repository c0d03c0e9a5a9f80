// Chains: what was decoded is encoded, what was encoded is decoded, and the two must agree. Every
// step may refuse; one that does not must give the same bits, or the same text.
//
// Input: a byte for the chain, a byte each for scheme, filter and gcpLength, then a binary value, a
// text, or an AI, "|" and its value.
#include "fuzz.h"

#include "support/bits.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Decoder = EpcStatus (*)(std::int32_t, const std::uint8_t*, std::int32_t, char*);

struct Parameters {
    EpcScheme scheme;
    std::int32_t filter, gcpLength;
};
using Encoder = EpcStatus (*)(const char*, EpcScheme, std::int32_t, std::int32_t, std::int32_t,
                              std::uint8_t*, std::int32_t*);

std::optional<std::string> decoded(Decoder decoder, const Bytes& value) {
    std::array<char, 4096> text;
    const auto bits = static_cast<std::int32_t>(value.size()) * 8;
    if (decoder(bits, value.data(), static_cast<std::int32_t>(text.size()), text.data()) !=
        EPC_OK) {
        return {};
    }
    return text.data();
}

// work: EpcStatus(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outCount)
template <typename Work>
std::optional<Bytes> encoded(Work work) {
    Bytes value(1500);
    std::int32_t count = 0;
    if (work(static_cast<std::int32_t>(value.size()), value.data(), &count) != EPC_OK) {
        return {};
    }
    value.resize(static_cast<std::size_t>(count));
    return value;
}

std::optional<Bytes> fromTagUri(const std::string& uri) {
    return encoded([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return epc_epcTagUriToBinary(uri.c_str(), maxBytes, out, outBytes);
    });
}

std::optional<Bytes> fromGs1(Encoder encoder, const std::string& text, const Parameters& with) {
    return encoded([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return encoder(text.c_str(), with.scheme, with.filter, with.gcpLength, maxBytes, out,
                       outBytes);
    });
}

// What a text says of scheme, filter and company prefix; the last from the length of its digits.
Parameters parametersOf(const std::string& tagUri) {
    const std::size_t word = std::string_view("urn:epc:tag:").size();
    const std::size_t colon = tagUri.find(':', word);
    Parameters parameters{};
    epc_tagSchemeNameToEnum(tagUri.substr(word, colon - word).c_str(), &parameters.scheme);
    parameters.filter = std::atoi(tagUri.c_str() + colon + 1);
    const std::size_t prefix = tagUri.find('.', colon) + 1;
    parameters.gcpLength = static_cast<std::int32_t>(tagUri.find('.', prefix) - prefix);
    return parameters;
}

std::int64_t countOfAIs(const Bytes& value) {
    std::array<char, 20 * 5> codes;
    std::array<char, 20 * 100> values;
    std::uint32_t count = 0;
    epc_binaryToAIs(static_cast<std::int32_t>(value.size()) * 8, value.data(), 20, 100,
                    codes.data(), values.data(), &count);
    return count;
}

// A tag URI that a value was decoded to.
void requireTagUriHolds(const std::string& uri, const Bytes& value) {
    const std::optional<Bytes> again = fromTagUri(uri);
    if (!again) {
        return; // some values can be read and not written
    }
    require(decoded(epc_binaryToEpcTagUri, *again) == uri, "decoded, encoded, decoded: " + uri);

    const Parameters parameters = parametersOf(uri);
    const std::optional<std::string> identity = decoded(epc_binaryToEpcUri, value);
    require(identity.has_value(), "a tag URI has its pure identity: " + uri);
    const auto fromIdentity =
        encoded([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
            return epc_epcUriToBinary(identity->c_str(), parameters.scheme, parameters.filter,
                                      maxBytes, out, outBytes);
        });
    require(fromIdentity == again, "by way of the pure identity: " + uri);

    const std::optional<std::string> barcode = decoded(epc_binaryToBarcodeString, *again);
    if (barcode) {
        const auto fromBarcode = fromGs1(epc_barcodeStringToBinary, *barcode, parameters);
        require(!fromBarcode || fromBarcode == again, "by way of the barcode string: " + uri);
    }
    const std::optional<std::string> element = decoded(epc_binaryToGs1ElementString, *again);
    const auto brackets = element ? std::count(element->begin(), element->end(), '(') : 0;
    if (element && brackets == countOfAIs(*again)) { // no bracket in a serial
        const auto fromElement = fromGs1(epc_gs1ElementStringToBinary, *element, parameters);
        require(!fromElement || fromElement == again, "by way of the element string: " + uri);
    }
}

// The same value through a text and back settles: the order of its AIs, or the choice among several
// dates, may change at first.
void requireTextSettles(Decoder decoder, Encoder encoder, Bytes value,
                        const Parameters& parameters) {
    std::string last;
    for (int round = 0; round < 4; ++round) {
        const std::optional<std::string> text = decoded(decoder, value);
        if (!text) {
            return;
        }
        require(round < 3 || *text == last, "the text stays the same: " + *text);
        last = *text;
        const std::optional<Bytes> next = fromGs1(encoder, *text, parameters);
        if (!next) {
            return;
        }
        value = *next;
    }
}

// A barcode string keeps the AIs of a plus scheme and their order. Only which of several dates is
// part of the key may change.
void requireBarcodeKeepsAIs(const Bytes& value, const Parameters& parameters) {
    if (parameters.scheme < EPC_SCHEME_CPI_PLUS || parameters.scheme >= EPC_SCHEME_DSGTIN_PLUS) {
        return;
    }
    const std::optional<std::string> barcode = decoded(epc_binaryToBarcodeString, value);
    const auto again =
        barcode ? fromGs1(epc_barcodeStringToBinary, *barcode, parameters) : std::optional<Bytes>();
    if (again) {
        require(decoded(epc_binaryToGs1ElementString, *again) ==
                    decoded(epc_binaryToGs1ElementString, value),
                "by way of the barcode string of a plus scheme: " + *barcode);
    }
}

void chainFromBinary(const Bytes& value) {
    if (const auto uri = decoded(epc_binaryToEpcTagUri, value)) {
        requireTagUriHolds(*uri, value);
    }
    const EpcScheme scheme = [&] {
        std::array<char, 32> name;
        EpcScheme found = -1;
        const auto bits = static_cast<std::int32_t>(value.size()) * 8;
        if (epc_binaryToTagSchemeName(bits, value.data(), 32, name.data()) == EPC_OK) {
            epc_tagSchemeNameToEnum(name.data(), &found);
        }
        return found;
    }();
    const Parameters parameters = {scheme, 3, 7};
    requireTextSettles(epc_binaryToDigitalLink, epc_digitalLinkToBinary, value, parameters);
    requireTextSettles(epc_binaryToBarcodeString, epc_barcodeStringToBinary, value, parameters);
    requireBarcodeKeepsAIs(value, parameters);
}

void chainFromTagUri(const std::string& text) {
    const std::optional<Bytes> value = fromTagUri(text);
    if (value) {
        const auto uri = decoded(epc_binaryToEpcTagUri, *value);
        require(uri.has_value(), "what was encoded can be decoded: " + text);
        require(fromTagUri(*uri) == value, "encoded, decoded, encoded: " + text);
        requireTagUriHolds(*uri, *value);
    }
}

void chainFromGs1(Encoder encoder, Decoder decoder, const std::string& text,
                  const Parameters& parameters) {
    const std::optional<Bytes> value = fromGs1(encoder, text, parameters);
    if (!value) {
        return;
    }
    if (value->size() <= EPC_MAX_BINARY_BYTES) {
        require(decoded(decoder, *value).has_value() ||
                    decoder == static_cast<Decoder>(epc_binaryToDigitalLink),
                "what was encoded can be decoded: " + text);
    }
    chainFromBinary(*value);
}

void chainFromLinks(const std::string& elementString) {
    std::array<char, 8000> link;
    std::array<char, 8000> element;
    if (epc_gs1ElementStringToDigitalLink(elementString.c_str(), 8000, link.data()) != EPC_OK ||
        epc_digitalLinkToGs1ElementString(link.data(), 8000, element.data()) != EPC_OK) {
        return;
    }
    const std::string first = link.data();
    if (epc_gs1ElementStringToDigitalLink(element.data(), 8000, link.data()) == EPC_OK) {
        require(first == link.data(), "link, element string, link: " + first);
    }
}

void chainFromValue(const std::string& ai, const std::string& value) {
    const auto encode = [&ai](const std::string& text, std::int32_t& bits) {
        return encoded([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBits) {
            const EpcStatus status =
                epc_AIToBinary(ai.c_str(), text.c_str(), 1, maxBytes, out, outBits);
            bits = *outBits;
            *outBits = (bits + 7) / 8;
            return status;
        });
    };
    std::int32_t bits = 0;
    const std::optional<Bytes> first = encode(value, bits);
    if (!first) {
        return;
    }
    std::array<char, 5> code;
    std::array<char, 4096> text;
    require(epc_plusAidcBinaryToAI(bits, first->data(), code.data(), 4096, text.data()) == EPC_OK,
            "an encoded value can be decoded: " + ai + " " + value);
    require(code.data() == ai, "the AI comes back: " + ai);
    require(value.starts_with(text.data()), "the value comes back: " + ai + " " + value);
    std::int32_t bitsAgain = 0;
    require(encode(text.data(), bitsAgain) == first && bitsAgain == bits,
            "the value has the same bits again: " + ai + " " + value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::int32_t chain = input.number();
    const Parameters parameters{input.number(), input.number(), input.number()};
    switch (chain) {
    case 'b':
        chainFromBinary(input.rest());
        break;
    case 't':
        chainFromTagUri(input.restAsText());
        break;
    case 'e':
        chainFromGs1(epc_gs1ElementStringToBinary, epc_binaryToGs1ElementString, input.restAsText(),
                     parameters);
        chainFromLinks(input.restAsText());
        break;
    case 'c':
        chainFromGs1(epc_barcodeStringToBinary, epc_binaryToBarcodeString, input.restAsText(),
                     parameters);
        break;
    case 'l':
        chainFromGs1(epc_digitalLinkToBinary, epc_binaryToDigitalLink, input.restAsText(),
                     parameters);
        break;
    case 'v': {
        const std::string ai = input.textUntil('|');
        chainFromValue(ai, input.restAsText());
        break;
    }
    default:
        return -1;
    }
    return 0;
}
