#include "bridge/plain_slots.h"
#include "schemes/layout_giai_cpi.h"
#include "schemes/layout_non_gs1.h"
#include "schemes/layout_serial.h"
#include "schemes/tag_scheme.h"
#include "values/plus_slots.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

// A scheme that has nothing but its URI form.
constexpr TagSchemeOps uriRow(const Layout& layout) {
    return {
        .info = tagSchemeInfos[layout.scheme],
        .binaryToUriBody = layout.read,
        .uriBodyToBinary = layout.write,
        .binaryToElementString = nullptr,
        .binaryToAIs = nullptr,
        .elementStringToBinary = nullptr,
        .binaryToBarcodeString = nullptr,
        .barcodeStringToBinary = nullptr,
        .binaryToDigitalLink = nullptr,
        .digitalLinkToBinary = nullptr,
    };
}

// A plain scheme with a GS1 key.
constexpr TagSchemeOps keyRow(const Layout& layout) {
    return {
        .info = tagSchemeInfos[layout.scheme],
        .binaryToUriBody = layout.read,
        .uriBodyToBinary = layout.write,
        .binaryToElementString = plainBinaryToElementString,
        .binaryToAIs = plainBinaryToAIs,
        .elementStringToBinary = plainElementStringToBinary,
        .binaryToBarcodeString = plainBinaryToBarcodeString,
        .barcodeStringToBinary = plainBarcodeStringToBinary,
        .binaryToDigitalLink = plainBinaryToDigitalLink,
        .digitalLinkToBinary = plainDigitalLinkToBinary,
    };
}

constexpr TagSchemeOps plusRow(EpcScheme scheme) {
    return {
        .info = tagSchemeInfos[scheme],
        .binaryToUriBody = nullptr,
        .uriBodyToBinary = nullptr,
        .binaryToElementString = plusBinaryToElementString,
        .binaryToAIs = plusBinaryToAIs,
        .elementStringToBinary = plusElementStringToBinary,
        .binaryToBarcodeString = plusBinaryToBarcodeString,
        .barcodeStringToBinary = plusBarcodeStringToBinary,
        .binaryToDigitalLink = plusBinaryToDigitalLink,
        .digitalLinkToBinary = plusDigitalLinkToBinary,
    };
}

constexpr std::array<EpcScheme, 256> headerMapMake() {
    std::array<EpcScheme, 256> map{};
    map.fill(-1);
    for (const TagSchemeInfo& info : tagSchemeInfos) {
        map[info.header] = info.scheme;
    }
    return map;
}

} // namespace

// clang-format off
constexpr TagSchemeOps tagSchemeTable[EPC_SCHEME_COUNT] = {
    // the fields behind the key, in bits or characters
    keyRow(layoutNumericSerial   <EPC_SCHEME_SGTIN_96,  partitionTableSgtin, 38>),
    keyRow(layoutStringSerial    <EPC_SCHEME_SGTIN_198, partitionTableSgtin, 20>),
    keyRow(layoutReserved        <EPC_SCHEME_SSCC_96,   partitionTableSscc,  24>),
    keyRow(layoutNumericSerial   <EPC_SCHEME_SGLN_96,   partitionTableSgln,  41>),
    keyRow(layoutStringSerial    <EPC_SCHEME_SGLN_195,  partitionTableSgln,  20>),
    keyRow(layoutNumericSerial   <EPC_SCHEME_GRAI_96,   partitionTableGrai,  38>),
    keyRow(layoutStringSerial    <EPC_SCHEME_GRAI_170,  partitionTableGrai,  16>),
    keyRow(layoutGiai96),
    keyRow(layoutGiai202),
    keyRow(layoutReserved        <EPC_SCHEME_GSRN_96,   partitionTableSscc,  24>),
    keyRow(layoutReserved        <EPC_SCHEME_GSRNP_96,  partitionTableSscc,  24>),
    keyRow(layoutNumericSerial   <EPC_SCHEME_GDTI_96,   partitionTableSgln,  41>),
    keyRow(layoutLeadingOneSerial<EPC_SCHEME_GDTI_113,  partitionTableSgln,  58>),
    keyRow(layoutStringSerial    <EPC_SCHEME_GDTI_174,  partitionTableSgln,  17>),
    keyRow(layoutCpi96),
    keyRow(layoutCpiVar),
    keyRow(layoutLeadingOneSerial<EPC_SCHEME_SGCN_96,   partitionTableSgln,  41>),
    uriRow(layoutGid96),
    uriRow(layoutUsdod96),
    uriRow(layoutAdiVar),
    keyRow(layoutItip            <EPC_SCHEME_ITIP_110,  numericSerial,       38>),
    keyRow(layoutItip            <EPC_SCHEME_ITIP_212,  stringSerial,        20>),
    plusRow(EPC_SCHEME_CPI_PLUS),
    plusRow(EPC_SCHEME_GRAI_PLUS),
    plusRow(EPC_SCHEME_SGLN_PLUS),
    plusRow(EPC_SCHEME_ITIP_PLUS),
    plusRow(EPC_SCHEME_GSRN_PLUS),
    plusRow(EPC_SCHEME_GSRNP_PLUS),
    plusRow(EPC_SCHEME_GDTI_PLUS),
    plusRow(EPC_SCHEME_SGTIN_PLUS),
    plusRow(EPC_SCHEME_SGCN_PLUS),
    plusRow(EPC_SCHEME_SSCC_PLUS),
    plusRow(EPC_SCHEME_GIAI_PLUS),
    plusRow(EPC_SCHEME_DSGTIN_PLUS),
};
// clang-format on

constexpr std::array<EpcScheme, 256> tagSchemeByHeader = headerMapMake();

namespace {

constexpr bool rowsStandAtTheirIndex() {
    for (EpcScheme scheme = 0; scheme < EPC_SCHEME_COUNT; ++scheme) {
        if (tagSchemeInfos[scheme].scheme != scheme ||
            tagSchemeTable[scheme].info.scheme != scheme) {
            return false;
        }
    }
    return true;
}

constexpr bool namesAreUnique() {
    for (const TagSchemeInfo& info : tagSchemeInfos) {
        const auto isSame = [&info](const TagSchemeInfo& other) { return other.name == info.name; };
        if (std::count_if(std::begin(tagSchemeInfos), std::end(tagSchemeInfos), isSame) != 1) {
            return false;
        }
    }
    return true;
}

// Headers from first to last that have a scheme.
constexpr auto headersBetween(std::uint8_t first, std::uint8_t last) {
    return std::count_if(tagSchemeByHeader.begin() + first, tagSchemeByHeader.begin() + last + 1,
                         [](EpcScheme scheme) { return scheme != -1; });
}

static_assert(std::size(tagSchemeInfos) == EPC_SCHEME_COUNT);
static_assert(rowsStandAtTheirIndex());
static_assert(namesAreUnique());
// No two rows share a header, or one of them would be missing here.
static_assert(headersBetween(0x00, 0xFF) == EPC_SCHEME_COUNT);
static_assert(headersBetween(0x2C, 0x41) == 22 && headersBetween(0xF0, 0xFB) == 12);

} // namespace

} // namespace rosetag
