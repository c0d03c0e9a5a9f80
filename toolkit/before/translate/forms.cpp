#include "before/translate/forms.h"

namespace rosetag {
inline namespace before {

namespace {

void addLink(Forms& forms) {
    textFrom(forms.link, [&](std::int32_t size, char* dst) {
        return epc_gs1ElementStringToDigitalLink(forms.elementString.c_str(), size, dst);
    });
}

// The GS1 texts of a value whose binary is known. A value of a scheme without a GS1 key has none.
EpcStatus addGs1TextsOfHex(Forms& forms) {
    const char* const hex = forms.hex.c_str();
    const EpcStatus status = textFrom(forms.elementString, [&](std::int32_t size, char* dst) {
        return epc_hexToGs1ElementString(hex, size, dst);
    });
    if (status != EPC_OK) {
        return status == EPC_ERR_NOT_SUPPORTED ? EPC_OK : status;
    }
    textFrom(forms.barcodeString,
             [&](std::int32_t size, char* dst) { return epc_hexToBarcodeString(hex, size, dst); });
    textFrom(forms.link,
             [&](std::int32_t size, char* dst) { return epc_hexToDigitalLink(hex, size, dst); });
    AiValues ais = aiValuesOfHex(forms.hex);
    forms.ais = std::move(ais.ais);
    return ais.status;
}

EpcStatus addUrisOfHex(Forms& forms) {
    if (schemeIsPlus(*forms.scheme)) {
        return EPC_OK;
    }
    const char* const hex = forms.hex.c_str();
    textFrom(forms.pureUri,
             [&](std::int32_t size, char* dst) { return epc_hexToEpcUri(hex, size, dst); });
    return textFrom(forms.tagUri, [&](std::int32_t size, char* dst) {
        return epc_hexToEpcTagUri(hex, size, dst);
    });
}

EpcStatus formsOfHex(const std::string& hex, Forms& forms) {
    forms.hex = hex;
    EpcStatus status = addTagFacts(forms);
    if (status == EPC_OK) {
        status = addUrisOfHex(forms);
    }
    return status == EPC_OK ? addGs1TextsOfHex(forms) : status;
}

// The name of a plus scheme can stand in a tag URI that has the GS1 texts, and no binary.
EpcStatus textsOfPlusTagUri(const std::string& uri, Forms& forms) {
    forms.tagUri = uri;
    const EpcStatus status = textFrom(forms.elementString, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToGs1ElementString(uri.c_str(), size, dst);
    });
    textFrom(forms.barcodeString, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToBarcodeString(uri.c_str(), size, dst);
    });
    textFrom(forms.link, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToDigitalLink(uri.c_str(), size, dst);
    });
    forms.ais = aiValuesOfElementString(forms.elementString).ais;
    return status;
}

EpcStatus formsOfTagUri(const std::string& uri, Forms& forms) {
    std::string hex;
    const EpcStatus status = textFrom(hex, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToHex(uri.c_str(), size, dst);
    });
    if (status == EPC_ERR_NOT_SUPPORTED) {
        return textsOfPlusTagUri(uri, forms);
    }
    return status == EPC_OK ? formsOfHex(hex, forms) : status;
}

// Fills the schemes that can hold an identity. The status is that of the roomiest.
EpcStatus addFits(const std::string& pureUri, Forms& forms) {
    std::string_view family = pureUri;
    family.remove_prefix(PURE_URI_PREFIX.size());
    family = family.substr(0, family.find(':'));
    EpcStatus status = EPC_OK;
    std::string hex;
    for (const SchemeEntry* scheme : plainSchemesOfFamily(family)) {
        status = textFrom(hex, [&](std::int32_t size, char* dst) {
            return epc_epcUriToHex(pureUri.c_str(), scheme->scheme, 0, size, dst);
        });
        if (status == EPC_OK) {
            forms.fits.push_back(scheme);
        }
    }
    return forms.fits.empty() ? status : EPC_OK;
}

EpcStatus formsOfPureUri(const std::string& uri, Forms& forms) {
    EpcStatus status = addFits(uri, forms);
    if (status != EPC_OK) {
        return status;
    }
    forms.pureUri = uri;
    status = textFrom(forms.elementString, [&](std::int32_t size, char* dst) {
        return epc_epcUriToGs1ElementString(uri.c_str(), size, dst);
    });
    if (status != EPC_OK) {
        return status == EPC_ERR_NO_KEY_DEFINITION && !forms.fits.empty() ? EPC_OK : status;
    }
    textFrom(forms.barcodeString, [&](std::int32_t size, char* dst) {
        return epc_epcUriToBarcodeString(uri.c_str(), size, dst);
    });
    addLink(forms);
    forms.ais = aiValuesOfElementString(forms.elementString).ais;
    return EPC_OK;
}

void addPureUri(std::optional<int> gcpLength, Forms& forms) {
    constexpr int anyLength = 7;
    std::string uri;
    const EpcStatus status = textFrom(uri, [&](std::int32_t size, char* dst) {
        return epc_gs1ElementStringToEpcUri(forms.elementString.c_str(),
                                            gcpLength.value_or(anyLength), size, dst);
    });
    if (status != EPC_OK) {
        return;
    }
    forms.lacksGcpLength = !gcpLength.has_value();
    if (gcpLength.has_value() && addFits(uri, forms) == EPC_OK) {
        forms.pureUri = uri;
    }
}

EpcStatus formsOfGs1Text(const PreparedValue& value, std::optional<int> gcpLength, Forms& forms) {
    AiValues ais = aiValuesOf(value);
    if (ais.status != EPC_OK) {
        return ais.status;
    }
    if (ais.ais.empty()) {
        return EPC_ERR_NO_KEY_AI;
    }
    forms.ais = std::move(ais.ais);
    forms.elementString = elementStringOf(forms.ais);
    forms.barcodeString = barcodeStringOf(forms.ais);
    if (canStandInBrackets(forms.ais)) {
        addLink(forms);
        addPureUri(gcpLength, forms);
    } else if (value.form == ValueForm::LINK) {
        forms.link = value.text;
    }
    return EPC_OK;
}

} // namespace

EpcStatus addTagFacts(Forms& forms) {
    const std::vector<std::uint8_t> bytes = bytesOfHex(forms.hex);
    forms.bits = static_cast<int>(8 * bytes.size());
    std::string name;
    const EpcStatus status = textFrom(name, [&](std::int32_t size, char* dst) {
        return epc_hexToTagSchemeName(forms.hex.c_str(), size, dst);
    });
    if (status == EPC_OK) {
        forms.scheme = schemeByName(name);
        forms.filter = schemeFilterOf(*forms.scheme, bytes);
    }
    return status;
}

AiValues aiValuesOf(const PreparedValue& value) {
    switch (value.form) {
    case ValueForm::ELEMENT_STRING:
        return aiValuesOfElementString(value.text);
    case ValueForm::BARCODE:
        return aiValuesOfBarcode(value.text);
    default:
        return aiValuesOfLink(value.text);
    }
}

Failure formsOf(const PreparedValue& value, std::optional<int> gcpLength, Forms& forms) {
    if (Failure failure = failureOfPreparing(value); isFailure(failure)) {
        return failure;
    }
    EpcStatus status = EPC_OK;
    switch (value.form) {
    case ValueForm::HEX:
        status = formsOfHex(value.text, forms);
        break;
    case ValueForm::TAG_URI:
        status = formsOfTagUri(value.text, forms);
        break;
    case ValueForm::PURE_URI:
        status = formsOfPureUri(value.text, forms);
        break;
    default:
        status = formsOfGs1Text(value, gcpLength, forms);
    }
    return failureOfReading(status, value.form, value.text);
}

} // namespace before
} // namespace rosetag
