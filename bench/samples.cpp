#include "samples.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

std::mt19937_64& generator() {
    static std::mt19937_64 engine(20261122); // fixed: the same values in every run
    return engine;
}

std::size_t randomBelow(std::size_t limit) {
    return generator()() % limit;
}

std::string text(const std::string& alphabet, std::size_t length) {
    std::string result;
    for (std::size_t i = 0; i < length; ++i) {
        result += alphabet[randomBelow(alphabet.size())];
    }
    return result;
}

std::string digits(std::size_t length) {
    return text("0123456789", length);
}

std::string number(std::size_t most) {
    return std::to_string(1 + randomBelow(most));
}

std::string characters(std::size_t length) {
    return text("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-", length);
}

std::string date() {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02zu%02zu%02zu", randomBelow(100), 1 + randomBelow(12),
                  1 + randomBelow(28));
    return buffer;
}

std::string withCheckDigit(const std::string& value) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        sum += static_cast<std::size_t>(value[i] - '0') * ((value.size() - i) % 2 != 0 ? 3 : 1);
    }
    return value + static_cast<char>('0' + (10 - sum % 10) % 10);
}

void require(EpcStatus status, const char* what, const std::string& value) {
    if (status != EPC_OK) {
        std::fprintf(stderr, "sample %s: %s: %s\n", value.c_str(), what, epc_statusName(status));
        std::exit(1);
    }
}

// How many digits of the GTIN-like 13 digits the company prefix takes.
int gcpLength() {
    return 6 + static_cast<int>(randomBelow(7));
}

// The URI body of a random identity, without the filter.
std::string body(EpcScheme scheme, int gcp) {
    const auto prefixDigits = static_cast<std::size_t>(gcp);
    const std::string prefix = digits(prefixDigits) + ".";
    const std::string reference12 = digits(12 - prefixDigits) + ".";
    const std::string reference13 = digits(13 - prefixDigits) + ".";
    const std::string reference17 = digits(17 - prefixDigits);
    constexpr std::size_t million = 1000000;
    switch (scheme) {
    case EPC_SCHEME_SGTIN_96:
        return prefix + reference13 + number(million);
    case EPC_SCHEME_SGTIN_198:
        return prefix + reference13 + characters(10);
    case EPC_SCHEME_SSCC_96:
    case EPC_SCHEME_GSRN_96:
    case EPC_SCHEME_GSRNP_96:
        return prefix + reference17;
    case EPC_SCHEME_SGLN_96:
    case EPC_SCHEME_GRAI_96:
    case EPC_SCHEME_GDTI_96:
    case EPC_SCHEME_GDTI_113:
    case EPC_SCHEME_SGCN_96:
        return prefix + reference12 + number(million);
    case EPC_SCHEME_SGLN_195:
    case EPC_SCHEME_GRAI_170:
    case EPC_SCHEME_GDTI_174:
        return prefix + reference12 + characters(10);
    case EPC_SCHEME_GIAI_96:
        return prefix + number(million);
    case EPC_SCHEME_GIAI_202:
        return prefix + characters(12);
    case EPC_SCHEME_CPI_96:
        return prefix + number(1000) + "." + number(million);
    case EPC_SCHEME_CPI_VAR:
        return prefix + text("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-", 8) + "." + number(million);
    case EPC_SCHEME_GID_96:
        return number(million) + "." + number(million) + "." + number(million);
    case EPC_SCHEME_USDOD_96:
        return text("ABCDEFGHJK", 5) + "." + number(million);
    case EPC_SCHEME_ADI_VAR:
        return text("ABCDEFGHJK", 5) + "." + text("ABCDEF0123456789", 6) + "." +
               text("ABCDEF0123456789", 8);
    case EPC_SCHEME_ITIP_110:
        return prefix + reference13 + digits(2) + "." + digits(2) + "." + number(million);
    default:
        return prefix + reference13 + digits(2) + "." + digits(2) + "." + characters(10);
    }
}

std::string convert(EpcStatus (*function)(const char*, std::int32_t, char*),
                    const std::string& from) {
    char buffer[512];
    const EpcStatus status = function(from.c_str(), sizeof buffer, buffer);
    return status == EPC_OK ? buffer : "";
}

void fillBinary(TagSample& sample) {
    for (std::size_t i = 0; i < sample.hex.size(); i += 2) {
        sample.binary.push_back(
            static_cast<unsigned char>(std::stoul(sample.hex.substr(i, 2), nullptr, 16)));
    }
}

TagSample tagSample(EpcScheme scheme, const std::string& bodyText, int gcp) {
    TagSample sample{};
    sample.scheme = scheme;
    sample.gcpLength = gcp;
    sample.filter = static_cast<int>(randomBelow(8));
    char name[32];
    require(epc_tagSchemeEnumToName(scheme, sizeof name, name), "name", bodyText);
    const std::string filter =
        scheme == EPC_SCHEME_GID_96 ? "" : std::to_string(sample.filter) + ".";
    sample.tagUri = std::string("urn:epc:tag:") + name + ":" + filter + bodyText;
    char hex[128];
    require(epc_epcTagUriToHex(sample.tagUri.c_str(), sizeof hex, hex), "to hex", sample.tagUri);
    sample.hex = hex;
    fillBinary(sample);
    sample.elementString = convert(epc_hexToGs1ElementString, sample.hex);
    sample.barcodeString = convert(epc_hexToBarcodeString, sample.hex);
    sample.digitalLink = convert(epc_hexToDigitalLink, sample.hex);
    return sample;
}

// The value of an AI and, where the scheme has a second one, its own.
std::string plusElementString(EpcScheme scheme) {
    const std::string gtin = withCheckDigit(digits(13));
    const std::string gln = withCheckDigit(digits(12));
    switch (scheme) {
    case EPC_SCHEME_CPI_PLUS:
        return "(8010)" + digits(12) + "(8011)" + number(1000000);
    case EPC_SCHEME_GRAI_PLUS:
        return "(8003)0" + withCheckDigit(digits(12)).substr(0, 12) + "0";
    case EPC_SCHEME_SGLN_PLUS:
        return "(414)" + gln + "(254)" + characters(8);
    case EPC_SCHEME_ITIP_PLUS:
        return "(8006)" + gtin + digits(4) + "(21)" + characters(8);
    case EPC_SCHEME_GSRN_PLUS:
        return "(8018)" + withCheckDigit(digits(17));
    case EPC_SCHEME_GSRNP_PLUS:
        return "(8017)" + withCheckDigit(digits(17));
    case EPC_SCHEME_GDTI_PLUS:
        return "(253)" + gln + characters(8);
    case EPC_SCHEME_SGCN_PLUS:
        return "(255)" + gln + digits(8);
    case EPC_SCHEME_SSCC_PLUS:
        return "(00)" + withCheckDigit(digits(17));
    case EPC_SCHEME_GIAI_PLUS:
        return "(8004)" + digits(7) + characters(8);
    case EPC_SCHEME_DSGTIN_PLUS:
        return "(01)" + gtin + "(21)" + characters(8) + "(17)" + date();
    default:
        return "(01)" + gtin + "(21)" + characters(8);
    }
}

TagSample plusSample(EpcScheme scheme, const std::string& elementString) {
    TagSample sample{};
    sample.scheme = scheme;
    sample.gcpLength = 7;
    sample.filter = static_cast<int>(randomBelow(8));
    char hex[128];
    require(
        epc_gs1ElementStringToHex(elementString.c_str(), scheme, sample.filter, 7, sizeof hex, hex),
        "to hex", elementString);
    sample.hex = hex;
    fillBinary(sample);
    sample.elementString = elementString;
    sample.barcodeString = convert(epc_hexToBarcodeString, sample.hex);
    sample.digitalLink = convert(epc_hexToDigitalLink, sample.hex);
    return sample;
}

std::string graiValue() {
    const std::string twelve = digits(12);
    return "0" + withCheckDigit(twelve);
}

AiSample aiSample(const char* ai, const std::string& value) {
    char hex[128];
    require(epc_AIToHex(ai, value.c_str(), 0, sizeof hex, hex, nullptr), ai, value);
    return {value, hex};
}

std::string aiValue(const std::string& ai) {
    if (ai == "01") {
        return withCheckDigit(digits(13));
    }
    if (ai == "3103") {
        return digits(6);
    }
    if (ai == "17") {
        return date();
    }
    if (ai == "30") {
        return number(99999999);
    }
    if (ai == "8008") {
        return date() + "120000";
    }
    if (ai == "10") {
        return characters(12);
    }
    return digits(7) + characters(8); // 8004: digits, then text
}

} // namespace

std::vector<TagSample> tagSamples(EpcScheme scheme) {
    std::vector<TagSample> samples;
    while (samples.size() < SAMPLE_COUNT) {
        if (scheme >= EPC_SCHEME_CPI_PLUS) {
            const std::string elements = scheme == EPC_SCHEME_GRAI_PLUS
                                             ? "(8003)" + graiValue() + characters(8)
                                             : plusElementString(scheme);
            samples.push_back(plusSample(scheme, elements));
        } else {
            const int gcp = gcpLength();
            samples.push_back(tagSample(scheme, body(scheme, gcp), gcp));
        }
    }
    return samples;
}

std::vector<TagSample> longSerialSamples() {
    std::vector<TagSample> samples;
    while (samples.size() < SAMPLE_COUNT) {
        const int gcp = gcpLength();
        const auto prefixDigits = static_cast<std::size_t>(gcp);
        samples.push_back(tagSample(
            EPC_SCHEME_SGTIN_198,
            digits(prefixDigits) + "." + digits(13 - prefixDigits) + "." + characters(20), gcp));
    }
    return samples;
}

std::vector<TagSample> fiveAiSamples() {
    std::vector<TagSample> samples;
    while (samples.size() < SAMPLE_COUNT) {
        samples.push_back(plusSample(EPC_SCHEME_SGTIN_PLUS, "(01)" + withCheckDigit(digits(13)) +
                                                                "(21)" + characters(8) + "(10)LOT" +
                                                                digits(5) + "(17)" + date() +
                                                                "(3103)" + digits(6)));
    }
    return samples;
}

std::vector<std::vector<unsigned char>> tidSamples() {
    std::vector<std::vector<unsigned char>> samples;
    while (samples.size() < SAMPLE_COUNT) {
        // Class, a designer with an XTID, a header that announces a serial of 48 bits and all
        // segments; then serial, commands, BlockErase, BlockWrite, user memory and BlockPermaLock.
        std::vector<unsigned char> tid = {0xE2, 0x80, 0x11, 0x05, 0x3C, 0x00};
        for (int i = 0; i < 6; ++i) {
            tid.push_back(static_cast<unsigned char>(randomBelow(256)));
        }
        tid.insert(tid.end(), {0x1F, static_cast<unsigned char>(randomBelow(256))});
        for (int i = 0; i < 2; ++i) {
            tid.insert(tid.end(), {0x00, static_cast<unsigned char>(randomBelow(256)), 0x01,
                                   static_cast<unsigned char>(1 + randomBelow(255))});
        }
        for (int i = 0; i < 4; ++i) {
            tid.push_back(static_cast<unsigned char>(randomBelow(256)));
        }
        samples.push_back(tid);
    }
    return samples;
}

std::vector<AiSample> aiSamples(const char* ai) {
    std::vector<AiSample> samples;
    while (samples.size() < SAMPLE_COUNT) {
        samples.push_back(aiSample(ai, aiValue(ai)));
    }
    return samples;
}

std::vector<AiSample> longNumberSamples(std::size_t digitCount) {
    std::vector<AiSample> samples;
    while (samples.size() < SAMPLE_COUNT) {
        samples.push_back(aiSample("91", digits(digitCount)));
    }
    return samples;
}
