#include "bridge/gs1_key_table.h"
#include "bridge/numeric_slots.h"
#include "bridge/plain_slots.h"
#include "schemes/numeric_uri.h"
#include "schemes/scheme_codec.h"
#include "schemes/tag_scheme.h"
#include "values/plus_slots.h"

#include <algorithm>

namespace rosetag {

namespace {

using enum Gs1Syntax;

template <EpcScheme scheme>
constexpr TagSchemeOps opsOfScheme() {
    constexpr SchemeRow row = schemeRows[scheme];
    TagSchemeOps ops = {
        .info = tagSchemeInfos[scheme],
        .key = gs1KeyFindByName(row.familyWord),
    };
    if constexpr (schemeIsPlus(row)) {
        ops.binaryToElementString = plusBinaryToElementString;
        ops.binaryToAIs = plusBinaryToAIs;
        ops.elementStringToBinary.general = plusElementStringToBinary;
        ops.binaryToBarcodeString = plusBinaryToBarcodeString;
        ops.barcodeStringToBinary.general = plusBarcodeStringToBinary;
        ops.binaryToDigitalLink = plusBinaryToDigitalLink;
        ops.digitalLinkToBinary.general = plusDigitalLinkToBinary;
        return ops;
    } else {
        ops.binaryToUriBody = schemeReadBody<scheme>;
        ops.uriBodyToBinary = schemeWriteBody<scheme>;
        if constexpr (NUMERIC_READING && schemeHasShortcuts(row)) {
            ops.numericBitsToUri = numericBitsToUri<scheme>;
        }
        if constexpr (NUMERIC_WRITING && schemeHasShortcuts(row)) {
            ops.numericBytes = numericBytes<scheme>;
            ops.numericTagUriToValue = numericTagUriToValue<scheme>;
            ops.uriBodyToBinary = numericWriteBody<scheme>;
        }
        if constexpr (schemeHasGs1Key(row)) {
            static_assert(gs1KeyFindByName(row.familyWord) != nullptr);
            ops.binaryToElementString = plainBinaryToElementString;
            ops.binaryToAIs = plainBinaryToAIs;
            ops.elementStringToBinary.general = plainElementStringToBinary;
            ops.binaryToBarcodeString = plainBinaryToBarcodeString;
            ops.barcodeStringToBinary.general = plainBarcodeStringToBinary;
            ops.binaryToDigitalLink = plainBinaryToDigitalLink;
            ops.digitalLinkToBinary.general = plainDigitalLinkToBinary;
            if constexpr (NUMERIC_READING && schemeHasShortcuts(row)) {
                ops.binaryToElementString =
                    numericBinaryToGs1Text<scheme, ELEMENT_STRING, plainBinaryToElementString>;
                ops.binaryToAIs = numericBinaryToAIs<scheme>;
                ops.binaryToBarcodeString =
                    numericBinaryToGs1Text<scheme, BARCODE_STRING, plainBinaryToBarcodeString>;
                ops.binaryToDigitalLink =
                    numericBinaryToGs1Text<scheme, DIGITAL_LINK, plainBinaryToDigitalLink>;
            }
            if constexpr (NUMERIC_WRITING && schemeHasShortcuts(row)) {
                ops.elementStringToBinary.numeric = numericGs1TextToValue<scheme, ELEMENT_STRING>;
                ops.barcodeStringToBinary.numeric = numericGs1TextToValue<scheme, BARCODE_STRING>;
                ops.digitalLinkToBinary.numeric = numericGs1TextToValue<scheme, DIGITAL_LINK>;
            }
        }
        return ops;
    }
}

template <std::size_t... index>
constexpr SchemeArray<TagSchemeOps> tagSchemeTableMake(std::index_sequence<index...>) {
    return {{opsOfScheme<static_cast<EpcScheme>(index)>()...}};
}

constexpr std::array<EpcScheme, 256> headerMapMake() {
    std::array<EpcScheme, 256> map{};
    map.fill(-1);
    for (const SchemeRow& row : schemeRows) {
        map[row.header] = row.scheme;
    }
    return map;
}

} // namespace

constexpr SchemeArray<TagSchemeOps> tagSchemeTable =
    tagSchemeTableMake(std::make_index_sequence<EPC_SCHEME_COUNT>());

constexpr std::array<EpcScheme, 256> tagSchemeByHeader = headerMapMake();

} // namespace rosetag
