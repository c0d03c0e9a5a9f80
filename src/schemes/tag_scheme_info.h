/*
 * What each of the 34 tag schemes is called, and by which header its binary values are known.
 */
#ifndef ROSETAG_SCHEMES_TAG_SCHEME_INFO_H
#define ROSETAG_SCHEMES_TAG_SCHEME_INFO_H

#include "core/char_class.h"
#include "core/status.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

struct TagSchemeInfo {
    std::string_view name;       // as it stands in a tag URI: "sgtin-96"
    std::string_view familyWord; // as it stands in a pure identity URI: "sgtin"
    std::int32_t filterLimit;    // filter values lie below it; 0: the scheme has no filter
    std::uint32_t plus;          // 1: the scheme carries +AIDC data
    EpcScheme scheme;
    std::uint8_t header; // the first eight bits of a binary value
};

constexpr std::int32_t TAG_HEADER_BITS = 8;

// In the order of EpcScheme.
//
// Source: EPC Tag Data Standard, section 14 (EPC binary encoding), table of EPC binary headers.
// clang-format off
inline constexpr TagSchemeInfo tagSchemeInfos[] = {
    //               family    filter
    // name          word      limit   plus  scheme                   header
    {"sgtin-96",     "sgtin",   8,     0,    EPC_SCHEME_SGTIN_96,     0x30},
    {"sgtin-198",    "sgtin",   8,     0,    EPC_SCHEME_SGTIN_198,    0x36},
    {"sscc-96",      "sscc",    8,     0,    EPC_SCHEME_SSCC_96,      0x31},
    {"sgln-96",      "sgln",    8,     0,    EPC_SCHEME_SGLN_96,      0x32},
    {"sgln-195",     "sgln",    8,     0,    EPC_SCHEME_SGLN_195,     0x39},
    {"grai-96",      "grai",    8,     0,    EPC_SCHEME_GRAI_96,      0x33},
    {"grai-170",     "grai",    8,     0,    EPC_SCHEME_GRAI_170,     0x37},
    {"giai-96",      "giai",    8,     0,    EPC_SCHEME_GIAI_96,      0x34},
    {"giai-202",     "giai",    8,     0,    EPC_SCHEME_GIAI_202,     0x38},
    {"gsrn-96",      "gsrn",    8,     0,    EPC_SCHEME_GSRN_96,      0x2D},
    {"gsrnp-96",     "gsrnp",   8,     0,    EPC_SCHEME_GSRNP_96,     0x2E},
    {"gdti-96",      "gdti",    8,     0,    EPC_SCHEME_GDTI_96,      0x2C},
    {"gdti-113",     "gdti",    8,     0,    EPC_SCHEME_GDTI_113,     0x3A},
    {"gdti-174",     "gdti",    8,     0,    EPC_SCHEME_GDTI_174,     0x3E},
    {"cpi-96",       "cpi",     8,     0,    EPC_SCHEME_CPI_96,       0x3C},
    {"cpi-var",      "cpi",     8,     0,    EPC_SCHEME_CPI_VAR,      0x3D},
    {"sgcn-96",      "sgcn",    8,     0,    EPC_SCHEME_SGCN_96,      0x3F},
    {"gid-96",       "gid",     0,     0,    EPC_SCHEME_GID_96,       0x35},
    {"usdod-96",     "usdod",  16,     0,    EPC_SCHEME_USDOD_96,     0x2F},
    {"adi-var",      "adi",    64,     0,    EPC_SCHEME_ADI_VAR,      0x3B},
    {"itip-110",     "itip",    8,     0,    EPC_SCHEME_ITIP_110,     0x40},
    {"itip-212",     "itip",    8,     0,    EPC_SCHEME_ITIP_212,     0x41},
    {"cpi+",         "cpi",     8,     1,    EPC_SCHEME_CPI_PLUS,     0xF0},
    {"grai+",        "grai",    8,     1,    EPC_SCHEME_GRAI_PLUS,    0xF1},
    {"sgln+",        "sgln",    8,     1,    EPC_SCHEME_SGLN_PLUS,    0xF2},
    {"itip+",        "itip",    8,     1,    EPC_SCHEME_ITIP_PLUS,    0xF3},
    {"gsrn+",        "gsrn",    8,     1,    EPC_SCHEME_GSRN_PLUS,    0xF4},
    {"gsrnp+",       "gsrnp",   8,     1,    EPC_SCHEME_GSRNP_PLUS,   0xF5},
    {"gdti+",        "gdti",    8,     1,    EPC_SCHEME_GDTI_PLUS,    0xF6},
    {"sgtin+",       "sgtin",   8,     1,    EPC_SCHEME_SGTIN_PLUS,   0xF7},
    {"sgcn+",        "sgcn",    8,     1,    EPC_SCHEME_SGCN_PLUS,    0xF8},
    {"sscc+",        "sscc",    8,     1,    EPC_SCHEME_SSCC_PLUS,    0xF9},
    {"giai+",        "giai",    8,     1,    EPC_SCHEME_GIAI_PLUS,    0xFA},
    {"dsgtin+",      "dsgtin",  8,     1,    EPC_SCHEME_DSGTIN_PLUS,  0xFB},
};
// clang-format on

// The number of bits that the name of a scheme of fixed length tells: 96 of "sgtin-96". 0: the
// length varies.
constexpr std::int32_t tagSchemeBits(EpcScheme scheme) {
    std::int32_t bits = 0;
    for (const char character : tagSchemeInfos[scheme].name) {
        bits = charIsDigit(character) ? bits * 10 + (character - '0') : 0;
    }
    return bits;
}

} // namespace rosetag

#endif
