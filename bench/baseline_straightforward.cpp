#include "baselines.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int prefixBits[] = {40, 37, 34, 30, 27, 24, 20};

constexpr const char* nibbles[] = {"0000", "0001", "0010", "0011", "0100", "0101", "0110", "0111",
                                   "1000", "1001", "1010", "1011", "1100", "1101", "1110", "1111"};

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

// A field of the bits that stand in the text.
unsigned long long field(const char* bits, int from, int width) {
    char text[65] = {};
    std::memcpy(text, bits + from, static_cast<std::size_t>(width));
    return std::strtoull(text, nullptr, 2);
}

bool fieldsFromHex(const char* hex, Fields& fields) {
    char bits[97] = {};
    if (std::strlen(hex) != 24) {
        return false;
    }
    for (int i = 0; i < 24; ++i) {
        const int value = std::isdigit(hex[i]) ? hex[i] - '0' : std::toupper(hex[i]) - 'A' + 10;
        if (value < 0 || value > 15) {
            return false;
        }
        std::memcpy(bits + 4 * i, nibbles[value], 4);
    }
    if (std::strncmp(bits, "00110000", 8) != 0) {
        return false;
    }
    fields.filter = field(bits, 8, 3);
    fields.partition = field(bits, 11, 3);
    if (fields.partition > 6) {
        return false;
    }
    const int width = prefixBits[fields.partition];
    fields.prefix = field(bits, 14, width);
    fields.reference = field(bits, 14 + width, 44 - width);
    fields.serial = field(bits, 58, 38);
    return true;
}

// Puts the bits of a field into the text, from the last to the first.
void putField(char* bits, int from, int width, unsigned long long value) {
    for (int i = width - 1; i >= 0; --i, value /= 2) {
        bits[from + i] = value % 2 != 0 ? '1' : '0';
    }
}

bool hexFromFields(const Fields& fields, char* out, std::size_t size) {
    char bits[97] = "00110000";
    const int width = prefixBits[fields.partition];
    putField(bits, 8, 3, fields.filter);
    putField(bits, 11, 3, fields.partition);
    putField(bits, 14, width, fields.prefix);
    putField(bits, 14 + width, 44 - width, fields.reference);
    putField(bits, 58, 38, fields.serial);
    if (size < 25) {
        return false;
    }
    for (int i = 0; i < 96; i += 32) {
        std::snprintf(out + i / 4, 9, "%08llX", field(bits, i, 32));
    }
    return true;
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
