#include "baselines.h"

#include <bitset>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr int prefixBits[] = {40, 37, 34, 30, 27, 24, 20};

struct Fields {
    unsigned long long filter;
    unsigned long long partition;
    unsigned long long prefix;
    unsigned long long reference;
    unsigned long long serial;
};

int prefixDigits(const Fields& fields) {
    return 12 - static_cast<int>(fields.partition);
}

int referenceDigits(const Fields& fields) {
    return 13 - prefixDigits(fields);
}

std::string bitsOf(unsigned long long value, int width) {
    return std::bitset<64>(value).to_string().substr(static_cast<std::size_t>(64 - width));
}

unsigned long long numberOf(const std::string& bits, int from, int width) {
    return std::stoull(bits.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(width)),
                       nullptr, 2);
}

bool fieldsFromHex(const char* hex, Fields& fields) {
    std::string bits;
    for (unsigned byte = 0; std::sscanf(hex, "%2x", &byte) == 1; hex += 2) {
        bits += std::bitset<8>(byte).to_string();
    }
    if (*hex != '\0' || bits.size() != 96 || numberOf(bits, 0, 8) != 0x30) {
        return false;
    }
    fields.filter = numberOf(bits, 8, 3);
    fields.partition = numberOf(bits, 11, 3);
    if (fields.partition > 6) {
        return false;
    }
    const int width = prefixBits[fields.partition];
    fields.prefix = numberOf(bits, 14, width);
    fields.reference = numberOf(bits, 14 + width, 44 - width);
    fields.serial = numberOf(bits, 58, 38);
    return true;
}

bool hexFromFields(const Fields& fields, char* out, std::size_t size) {
    const int width = prefixBits[fields.partition];
    const std::string bits = "00110000" + bitsOf(fields.filter, 3) + bitsOf(fields.partition, 3) +
                             bitsOf(fields.prefix, width) + bitsOf(fields.reference, 44 - width) +
                             bitsOf(fields.serial, 38);
    return std::snprintf(out, size, "%08llX%08llX%08llX", numberOf(bits, 0, 32),
                         numberOf(bits, 32, 32), numberOf(bits, 64, 32)) == 24;
}

bool hexToTagUri(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    return fieldsFromHex(hex, fields) &&
           std::snprintf(out, size, "urn:epc:tag:sgtin-96:%llu.%0*llu.%0*llu.%llu", fields.filter,
                         prefixDigits(fields), fields.prefix, referenceDigits(fields),
                         fields.reference, fields.serial) > 0;
}

bool tagUriToHex(const char* uri, char* out, std::size_t size) {
    Fields fields{};
    char prefix[16];
    char reference[16];
    if (std::sscanf(uri, "urn:epc:tag:sgtin-96:%llu.%15[0-9].%15[0-9].%llu", &fields.filter, prefix,
                    reference, &fields.serial) != 4) {
        return false;
    }
    fields.partition = 12 - std::strlen(prefix);
    if (fields.partition > 6 || std::strlen(prefix) + std::strlen(reference) != 13) {
        return false;
    }
    fields.prefix = std::stoull(prefix);
    fields.reference = std::stoull(reference);
    return hexFromFields(fields, out, size);
}

int checkDigit(const char* thirteen) {
    int sum = 0;
    for (int i = 0; i < 13; ++i) {
        sum += (thirteen[i] - '0') * (i % 2 == 0 ? 3 : 1);
    }
    return (10 - sum % 10) % 10;
}

bool hexToElementString(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    if (!fieldsFromHex(hex, fields)) {
        return false;
    }
    char prefix[24];
    char reference[24];
    char gtin[48];
    std::snprintf(prefix, sizeof prefix, "%0*llu", prefixDigits(fields), fields.prefix);
    std::snprintf(reference, sizeof reference, "%0*llu", referenceDigits(fields), fields.reference);
    std::snprintf(gtin, sizeof gtin, "%c%s%s", reference[0], prefix, reference + 1);
    return std::snprintf(out, size, "(01)%s%d(21)%llu", gtin, checkDigit(gtin), fields.serial) > 0;
}

bool elementStringToHex(const char* text, int filter, int gcpLength, char* out, std::size_t size) {
    char gtin[16];
    unsigned long long serial = 0;
    if (std::sscanf(text, "(01)%14[0-9](21)%llu", gtin, &serial) != 2) {
        return false;
    }
    const std::string digits = gtin;
    const auto prefixLength = static_cast<std::size_t>(gcpLength);
    char uri[128];
    std::snprintf(uri, sizeof uri, "urn:epc:tag:sgtin-96:%d.%s.%c%s.%llu", filter,
                  digits.substr(1, prefixLength).c_str(), digits[0],
                  digits.substr(1 + prefixLength, 12 - prefixLength).c_str(), serial);
    return tagUriToHex(uri, out, size);
}

} // namespace

const SgtinBaseline straightforwardBaseline = {"straightforward", hexToTagUri, tagUriToHex,
                                               hexToElementString, elementStringToHex};
