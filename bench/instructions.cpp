/*
 * Runs one conversion a number of times, for a count of its instructions:
 *
 *     rosetag_instructions NAME TIMES
 *
 * The values are set up before; the difference between two runs of different length is what the
 * conversions alone took.
 */
#include <rosetag/rosetag.h>
#include <rosetag/toolkit.hpp>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr char sgtinHex[] = "3074257BF7194E4000001A85";
constexpr char sgtinUri[] = "urn:epc:tag:sgtin-96:3.0614141.812345.6789";
constexpr char sgtinElements[] = "(01)80614141123458(21)6789";
constexpr char sgtinLink[] = "/01/80614141123458/21/6789";
constexpr char stringUri[] = "urn:epc:tag:sgtin-198:3.0614141.712345.ABCDEFGHIJKLMNOPQRST";
constexpr char fiveAis[] = "(01)80614141123458(21)ABC-1234(10)LOT00042(17)261231(3103)000189";
constexpr char fourAis[] = "(01)80614141123458(21)ABC-1234(10)LOT00042(17)261231";
constexpr unsigned char tid[] = {0xE2, 0x80, 0x11, 0x05, 0x3C, 0x00, 0x01, 0x23, 0x45,
                                 0x67, 0x89, 0xAB, 0x1F, 0xE8, 0x00, 0x00, 0x01, 0x08,
                                 0x00, 0x00, 0x01, 0x08, 0x00, 0x10, 0x00, 0x20};

char stringHex[128];
char plusHex[128];
char longNumber[91];
char out[512];

EpcStatus hexToTagUri() {
    return epc_hexToEpcTagUri(sgtinHex, sizeof out, out);
}

EpcStatus tagUriToHex() {
    return epc_epcTagUriToHex(sgtinUri, sizeof out, out);
}

EpcStatus hexToElementString() {
    return epc_hexToGs1ElementString(sgtinHex, sizeof out, out);
}

EpcStatus hexToAIs() {
    char codes[2][EPC_AI_CODE_SIZE];
    std::uint32_t count = 0;
    return epc_hexToAIs(sgtinHex, 2, sizeof out / 2, codes[0], out, &count);
}

EpcStatus elementStringToHex() {
    return epc_gs1ElementStringToHex(sgtinElements, EPC_SCHEME_SGTIN_96, 3, 7, sizeof out, out);
}

EpcStatus digitalLinkToHex() {
    return epc_digitalLinkToHex(sgtinLink, EPC_SCHEME_SGTIN_96, 3, 7, sizeof out, out);
}

EpcStatus stringTagUriToHex() {
    return epc_epcTagUriToHex(stringUri, sizeof out, out);
}

EpcStatus stringHexToTagUri() {
    return epc_hexToEpcTagUri(stringHex, sizeof out, out);
}

EpcStatus elementStringToDigitalLink() {
    return epc_gs1ElementStringToDigitalLink(fiveAis, sizeof out, out);
}

EpcStatus elementStringToPlusHex() {
    return epc_gs1ElementStringToHex(fiveAis, EPC_SCHEME_SGTIN_PLUS, 3, 7, sizeof out, out);
}

EpcStatus plusHexToDigitalLink() {
    return epc_hexToDigitalLink(plusHex, sizeof out, out);
}

EpcStatus longNumberToHex() {
    return epc_AIToHex("91", longNumber, 0, sizeof out, out, nullptr);
}

EpcStatus tidDecode() {
    TidRecord record;
    const EpcStatus status = tid_binaryDecode(sizeof tid * 8, tid, &record);
    out[0] = record.serial[0];
    return status;
}

// The rules of the toolkit, by which nothing is found in the text.
EpcStatus checkElementString() {
    static rosetag::Rows<rosetag::Finding> findings;
    rosetag::check(fourAis, {}, findings);
    return findings.empty() ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

struct Conversion {
    const char* name;
    EpcStatus (*run)();
};

constexpr Conversion conversions[] = {
    {"hex-to-tag-uri", hexToTagUri},
    {"tag-uri-to-hex", tagUriToHex},
    {"hex-to-element-string", hexToElementString},
    {"hex-to-ais", hexToAIs},
    {"element-string-to-hex", elementStringToHex},
    {"digital-link-to-hex", digitalLinkToHex},
    {"string-tag-uri-to-hex", stringTagUriToHex},
    {"string-hex-to-tag-uri", stringHexToTagUri},
    {"element-string-to-digital-link", elementStringToDigitalLink},
    {"element-string-to-plus-hex", elementStringToPlusHex},
    {"plus-hex-to-digital-link", plusHexToDigitalLink},
    {"long-number-to-hex", longNumberToHex},
    {"tid-decode", tidDecode},
    {"check-element-string", checkElementString},
};

int list() {
    for (const Conversion& conversion : conversions) {
        std::puts(conversion.name);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return list();
    }
    if (epc_gs1ElementStringToHex(fiveAis, EPC_SCHEME_SGTIN_PLUS, 3, 7, sizeof plusHex, plusHex) !=
            EPC_OK ||
        epc_epcTagUriToHex(stringUri, sizeof stringHex, stringHex) != EPC_OK) {
        return 1;
    }
    std::memset(longNumber, '7', sizeof longNumber - 1);
    for (const Conversion& conversion : conversions) {
        if (std::strcmp(conversion.name, argv[1]) == 0) {
            for (long left = std::atol(argv[2]); left > 0; --left) {
                if (conversion.run() != EPC_OK) {
                    return 1;
                }
            }
            return 0;
        }
    }
    std::fprintf(stderr, "no conversion %s\n", argv[1]);
    return 2;
}
