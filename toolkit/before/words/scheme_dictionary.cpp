#include "before/words/scheme_dictionary.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

// clang-format off
constexpr SchemeEntry entries[] = {
    // scheme                  name         family    header  limit  URIs   GS1    plus
    {EPC_SCHEME_SGTIN_96,     "sgtin-96",  "sgtin",   0x30,    8,    true,  true,  false},
    {EPC_SCHEME_SGTIN_198,    "sgtin-198", "sgtin",   0x36,    8,    true,  true,  false},
    {EPC_SCHEME_SSCC_96,      "sscc-96",   "sscc",    0x31,    8,    true,  true,  false},
    {EPC_SCHEME_SGLN_96,      "sgln-96",   "sgln",    0x32,    8,    true,  true,  false},
    {EPC_SCHEME_SGLN_195,     "sgln-195",  "sgln",    0x39,    8,    true,  true,  false},
    {EPC_SCHEME_GRAI_96,      "grai-96",   "grai",    0x33,    8,    true,  true,  false},
    {EPC_SCHEME_GRAI_170,     "grai-170",  "grai",    0x37,    8,    true,  true,  false},
    {EPC_SCHEME_GIAI_96,      "giai-96",   "giai",    0x34,    8,    true,  true,  false},
    {EPC_SCHEME_GIAI_202,     "giai-202",  "giai",    0x38,    8,    true,  true,  false},
    {EPC_SCHEME_GSRN_96,      "gsrn-96",   "gsrn",    0x2D,    8,    true,  true,  false},
    {EPC_SCHEME_GSRNP_96,     "gsrnp-96",  "gsrnp",   0x2E,    8,    true,  true,  false},
    {EPC_SCHEME_GDTI_96,      "gdti-96",   "gdti",    0x2C,    8,    true,  true,  false},
    {EPC_SCHEME_GDTI_113,     "gdti-113",  "gdti",    0x3A,    8,    true,  true,  false},
    {EPC_SCHEME_GDTI_174,     "gdti-174",  "gdti",    0x3E,    8,    true,  true,  false},
    {EPC_SCHEME_CPI_96,       "cpi-96",    "cpi",     0x3C,    8,    true,  true,  false},
    {EPC_SCHEME_CPI_VAR,      "cpi-var",   "cpi",     0x3D,    8,    true,  true,  false},
    {EPC_SCHEME_SGCN_96,      "sgcn-96",   "sgcn",    0x3F,    8,    true,  true,  false},
    {EPC_SCHEME_GID_96,       "gid-96",    "gid",     0x35,    0,    true,  false, false},
    {EPC_SCHEME_USDOD_96,     "usdod-96",  "usdod",   0x2F,   16,    true,  false, false},
    {EPC_SCHEME_ADI_VAR,      "adi-var",   "adi",     0x3B,   64,    true,  false, false},
    {EPC_SCHEME_ITIP_110,     "itip-110",  "itip",    0x40,    8,    true,  true,  false},
    {EPC_SCHEME_ITIP_212,     "itip-212",  "itip",    0x41,    8,    true,  true,  false},
    {EPC_SCHEME_CPI_PLUS,     "cpi+",      "cpi",     0xF0,    8,    false, true,  true},
    {EPC_SCHEME_GRAI_PLUS,    "grai+",     "grai",    0xF1,    8,    false, true,  true},
    {EPC_SCHEME_SGLN_PLUS,    "sgln+",     "sgln",    0xF2,    8,    false, true,  true},
    {EPC_SCHEME_ITIP_PLUS,    "itip+",     "itip",    0xF3,    8,    false, true,  true},
    {EPC_SCHEME_GSRN_PLUS,    "gsrn+",     "gsrn",    0xF4,    8,    false, true,  true},
    {EPC_SCHEME_GSRNP_PLUS,   "gsrnp+",    "gsrnp",   0xF5,    8,    false, true,  true},
    {EPC_SCHEME_GDTI_PLUS,    "gdti+",     "gdti",    0xF6,    8,    false, true,  true},
    {EPC_SCHEME_SGTIN_PLUS,   "sgtin+",    "sgtin",   0xF7,    8,    false, true,  true},
    {EPC_SCHEME_SGCN_PLUS,    "sgcn+",     "sgcn",    0xF8,    8,    false, true,  true},
    {EPC_SCHEME_SSCC_PLUS,    "sscc+",     "sscc",    0xF9,    8,    false, true,  true},
    {EPC_SCHEME_GIAI_PLUS,    "giai+",     "giai",    0xFA,    8,    false, true,  true},
    {EPC_SCHEME_DSGTIN_PLUS,  "dsgtin+",   "dsgtin",  0xFB,    8,    false, true,  true},
};
// clang-format on
static_assert(std::size(entries) == EPC_SCHEME_COUNT);

} // namespace

const SchemeEntry* schemeByHeader(std::uint8_t header) {
    const auto* const entry = std::ranges::find(entries, header, &SchemeEntry::header);
    return entry == std::end(entries) ? nullptr : entry;
}

std::vector<const SchemeEntry*> plainSchemesOfFamily(std::string_view family) {
    std::vector<const SchemeEntry*> found;
    for (const SchemeEntry& entry : entries) {
        if (entry.family == family && !schemeIsPlus(entry)) {
            found.push_back(&entry);
        }
    }
    return found;
}

int schemeFilterBits(const SchemeEntry& entry) {
    switch (entry.filterLimit) {
    case 0:
        return 0;
    case 8:
        return 3;
    case 16:
        return 4;
    default:
        return 6;
    }
}

int schemeFilterStart(const SchemeEntry& entry) {
    return schemeIsPlus(entry) ? 9 : 8;
}

std::optional<int> schemeFilterOf(const SchemeEntry& entry, std::span<const std::uint8_t> bytes) {
    const int bits = schemeFilterBits(entry);
    if (bits == 0 || bytes.size() < 2) {
        return std::nullopt;
    }
    return bytes[1] >> (16 - schemeFilterStart(entry) - bits) & ((1 << bits) - 1);
}

std::string schemeNamesLike(std::string_view name) {
    const std::string_view stem = name.substr(0, name.find_first_of("-+0123456789"));
    const auto isLike = [&](const SchemeEntry& entry) { return entry.family == stem; };
    const bool anyLike = std::ranges::any_of(entries, isLike);
    std::string names;
    for (const SchemeEntry& entry : entries) {
        if (!anyLike || isLike(entry)) {
            names += (names.empty() ? "" : ", ") + std::string(entry.name);
        }
    }
    return names;
}

} // namespace before
} // namespace rosetag
