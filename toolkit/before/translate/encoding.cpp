#include "before/translate/encoding.h"

#include "before/explain/explain_walk.h"
#include "before/translate/library_calls.h"

namespace rosetag {
inline namespace before {

namespace {

constexpr std::string_view gcpLengthMissing =
    "needs --gcp-length, the number of digits of the GS1 company prefix.\n"
    "  A GS1 company prefix is the 6 to 12 digits at the beginning of a key that GS1 has given to\n"
    "  its owner. A tag keeps it apart from the rest of the key, and the digits of the key do not\n"
    "  tell where it ends. Its length stands in the owner's licence from GS1; for the prefix of\n"
    "  another company, look the key up at the Verified by GS1 service of GS1.";

EpcStatus encodeTagUri(const std::string& uri, std::string& hex) {
    return textFrom(hex, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToHex(uri.c_str(), size, dst);
    });
}

EpcStatus encodeElementString(const std::string& text, const EncodeRequest& request,
                              std::string& hex) {
    return textFrom(hex, [&](std::int32_t size, char* dst) {
        return epc_gs1ElementStringToHexEnc(
            text.c_str(), request.scheme->scheme, request.filter.value_or(0),
            request.gcpLength.value_or(0), request.encoding, size, dst);
    });
}

// A plus scheme holds no URI, but the AIs that a URI stands for.
EpcStatus encodePureUri(const std::string& uri, const EncodeRequest& request, std::string& hex) {
    if (!schemeIsPlus(*request.scheme)) {
        return textFrom(hex, [&](std::int32_t size, char* dst) {
            return epc_epcUriToHex(uri.c_str(), request.scheme->scheme, request.filter.value_or(0),
                                   size, dst);
        });
    }
    std::string elementString;
    const EpcStatus status = textFrom(elementString, [&](std::int32_t size, char* dst) {
        return epc_epcUriToGs1ElementString(uri.c_str(), size, dst);
    });
    return status == EPC_OK ? encodeElementString(elementString, request, hex) : status;
}

EpcStatus encodeLink(const std::string& link, const EncodeRequest& request, std::string& hex) {
    return textFrom(hex, [&](std::int32_t size, char* dst) {
        return epc_digitalLinkToHexEnc(link.c_str(), request.scheme->scheme,
                                       request.filter.value_or(0), request.gcpLength.value_or(0),
                                       request.encoding, size, dst);
    });
}

// A barcode string may have separators behind any value, and a value may hold a "(". Its AIs say
// where each value ends, so that they go on as a bracketed text where they can.
EpcStatus encodeBarcode(const std::string& text, const EncodeRequest& request, std::string& hex) {
    const AiValues ais = aiValuesOfBarcode(text);
    if (ais.status == EPC_OK && canStandInBrackets(ais.ais)) {
        return encodeElementString(elementStringOf(ais.ais), request, hex);
    }
    return textFrom(hex, [&](std::int32_t size, char* dst) {
        return epc_barcodeStringToHexEnc(text.c_str(), request.scheme->scheme,
                                         request.filter.value_or(0), request.gcpLength.value_or(0),
                                         request.encoding, size, dst);
    });
}

EpcStatus encodeForm(const PreparedValue& value, const EncodeRequest& request, std::string& hex) {
    switch (value.form) {
    case ValueForm::TAG_URI:
        return encodeTagUri(value.text, hex);
    case ValueForm::PURE_URI:
        return encodePureUri(value.text, request, hex);
    case ValueForm::ELEMENT_STRING:
        return encodeElementString(value.text, request, hex);
    case ValueForm::BARCODE:
        return encodeBarcode(value.text, request, hex);
    default:
        return encodeLink(value.text, request, hex);
    }
}

// A plain scheme drops the check digit, and the library takes a wrong one in brackets and barcodes.
// A scan with a wrong one must not become a tag.
bool hasWrongCheckDigit(const PreparedValue& value) {
    if (value.form == ValueForm::ELEMENT_STRING) {
        return aiValuesOfElementString(value.text).status == EPC_ERR_CHECK_DIGIT;
    }
    return value.form == ValueForm::BARCODE &&
           aiValuesOfBarcode(value.text).status == EPC_ERR_CHECK_DIGIT;
}

// A tag URI has its own scheme and filter; another that is asked for is a contradiction.
Failure failureOfContradiction(const PreparedValue& value, const EncodeRequest& request,
                               const std::string& hex) {
    const std::vector<std::uint8_t> bytes = bytesOfHex(hex);
    const SchemeEntry* const scheme = schemeByHeader(bytes.front());
    if (value.form != ValueForm::TAG_URI || scheme == nullptr) {
        return {};
    }
    if (request.scheme != nullptr && request.scheme != scheme) {
        return {EPC_ERR_SCHEME_MISMATCH, "the tag URI is one of " + std::string(scheme->name) +
                                             ", and --scheme asks for " +
                                             std::string(request.scheme->name) +
                                             "; give the pure identity URI in its place"};
    }
    const std::optional<int> filter = schemeFilterOf(*scheme, bytes);
    if (request.filter.has_value() && filter != request.filter) {
        return {EPC_ERR_FILTER_FIELD,
                "the tag URI has a filter of its own, and --filter asks for " +
                    std::to_string(*request.filter) + "; leave --filter out or change the URI"};
    }
    return {};
}

} // namespace

std::string encodeUsageError(const EncodeRequest& request, ValueForm form) {
    if (form == ValueForm::TAG_URI || form == ValueForm::HEX || form == ValueForm::UNKNOWN) {
        return {};
    }
    if (request.scheme == nullptr) {
        return std::string(valueFormName(form)) +
               " needs --scheme: it does not say which of the tag schemes to use (rosetag schemes "
               "lists them)";
    }
    const SchemeEntry& scheme = *request.scheme;
    if (request.filter.has_value() && scheme.filterLimit == 0) {
        return "--filter: " + std::string(scheme.name) + " has no filter";
    }
    if (valueFormIsGs1(form) && scheme.hasUris && scheme.hasGs1Texts &&
        !request.gcpLength.has_value()) {
        return std::string(valueFormName(form)) + " for " + std::string(scheme.name) + ' ' +
               std::string(gcpLengthMissing);
    }
    return {};
}

Failure encodeValue(const PreparedValue& value, const EncodeRequest& request, std::string& hex) {
    if (Failure failure = failureOfPreparing(value); isFailure(failure)) {
        return failure;
    }
    if (value.form == ValueForm::HEX) {
        return {EPC_ERR_BAD_FORMAT, "this is hex, and so a tag value already; if it is a barcode "
                                    "string, say --barcode"};
    }
    EpcStatus status = encodeForm(value, request, hex);
    if (status == EPC_OK && hasWrongCheckDigit(value)) {
        status = EPC_ERR_CHECK_DIGIT;
    }
    if (status == EPC_OK) {
        return failureOfContradiction(value, request, hex);
    }
    return value.form == ValueForm::TAG_URI
               ? failureOfReading(status, value.form, value.text)
               : failureOfEncoding(status, value.form, value.text, *request.scheme,
                                   request.filter.value_or(0));
}

std::string wordsOfHex(std::string_view hexDigits) {
    std::string words;
    for (std::size_t i = 0; i < hexDigits.size(); i += 4) {
        if (i > 0) {
            words += ' ';
        }
        words += hexDigits.substr(i, 4);
    }
    return words;
}

} // namespace before
} // namespace rosetag
