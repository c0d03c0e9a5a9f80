/*
 * The processor time of an export's call over the lines of a file, which are in memory before:
 *
 *     rosetag_calls_over_lines FILE NAME...
 *
 * prints the nanoseconds of one call for each name, a line each.
 */
#include <rosetag/rosetag.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t TEXT_SIZE = 512;
constexpr std::int32_t FILTER = 3;
constexpr std::int32_t GCP_LENGTH = 7;

template <EpcStatus (*convert)(const char*, std::int32_t, char*)>
EpcStatus decode(const char* text, char* out) {
    return convert(text, TEXT_SIZE, out);
}

template <EpcStatus (*convert)(const char*, EpcScheme, std::int32_t, std::int32_t, std::int32_t,
                               char*)>
EpcStatus encode(const char* text, char* out) {
    return convert(text, EPC_SCHEME_SGTIN_96, FILTER, GCP_LENGTH, TEXT_SIZE, out);
}

template <EpcStatus (*convert)(const char*, std::int32_t, std::uint32_t, char*, char*,
                               std::uint32_t*)>
EpcStatus toAIs(const char* text, char* out) {
    char codes[4][EPC_AI_CODE_SIZE];
    std::uint32_t count = 0;
    return convert(text, 4, TEXT_SIZE / 4, codes[0], out, &count);
}

EpcStatus barcodeStringToAIs(const char* text, char* out) {
    char codes[4][EPC_AI_CODE_SIZE];
    std::uint32_t count = 0;
    return epc_barcodeStringToAIs(text, 0, 4, TEXT_SIZE / 4, codes[0], out, &count);
}

EpcStatus pureIdentityToHex(const char* text, char* out) {
    return epc_epcUriToHex(text, EPC_SCHEME_SGTIN_96, FILTER, TEXT_SIZE, out);
}

struct Conversion {
    const char* name;
    EpcStatus (*call)(const char* text, char* out);
};

constexpr Conversion conversions[] = {
    {"hex-to-tag-uri", decode<epc_hexToEpcTagUri>},
    {"hex-to-pure-identity", decode<epc_hexToEpcUri>},
    {"hex-to-element-string", decode<epc_hexToGs1ElementString>},
    {"hex-to-barcode-string", decode<epc_hexToBarcodeString>},
    {"hex-to-digital-link", decode<epc_hexToDigitalLink>},
    {"hex-to-ais", toAIs<epc_hexToAIs>},
    {"tag-uri-to-hex", decode<epc_epcTagUriToHex>},
    {"tag-uri-to-element-string", decode<epc_epcTagUriToGs1ElementString>},
    {"pure-identity-to-element-string", decode<epc_epcUriToGs1ElementString>},
    {"pure-identity-to-hex", pureIdentityToHex},
    {"element-string-to-digital-link", decode<epc_gs1ElementStringToDigitalLink>},
    {"element-string-to-ais", toAIs<epc_gs1ElementStringToAIs>},
    {"barcode-string-to-ais", barcodeStringToAIs},
    {"digital-link-to-element-string", decode<epc_digitalLinkToGs1ElementString>},
    {"element-string-to-hex", encode<epc_gs1ElementStringToHex>},
    {"barcode-string-to-hex", encode<epc_barcodeStringToHex>},
    {"digital-link-to-hex", encode<epc_digitalLinkToHex>},
};

const Conversion* conversionOf(const char* name) {
    for (const Conversion& conversion : conversions) {
        if (std::strcmp(conversion.name, name) == 0) {
            return &conversion;
        }
    }
    return nullptr;
}

double nanosecondsOfCall(const std::vector<std::string>& lines, const Conversion& conversion) {
    char out[TEXT_SIZE];
    const std::clock_t begin = std::clock();
    for (const std::string& line : lines) {
        if (conversion.call(line.c_str(), out) != EPC_OK) {
            return -1;
        }
    }
    const auto ticks = static_cast<double>(std::clock() - begin);
    return ticks / CLOCKS_PER_SEC * 1e9 / static_cast<double>(lines.size());
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> lines;
    std::ifstream file(argc > 1 ? argv[1] : "");
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    for (int i = 2; i < argc; ++i) {
        const Conversion* const conversion = conversionOf(argv[i]);
        const double time =
            conversion == nullptr || lines.empty() ? -1 : nanosecondsOfCall(lines, *conversion);
        if (time < 0) {
            std::fprintf(stderr, "%s fails over %s\n", argv[i], argv[1]);
            return 1;
        }
        std::printf("%.2f\n", time);
    }
    return 0;
}
