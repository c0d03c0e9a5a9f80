#include "baselines.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr int prefixBits[] = {40, 37, 34, 30, 27, 24, 20};

struct HexValues {
    std::int8_t values[256];
};

constexpr HexValues hexValues = [] {
    HexValues table{};
    for (std::int8_t& value : table.values) {
        value = -1;
    }
    for (int digit = 0; digit < 16; ++digit) {
        table.values[static_cast<unsigned char>("0123456789ABCDEF"[digit])] =
            static_cast<std::int8_t>(digit);
        table.values[static_cast<unsigned char>("0123456789abcdef"[digit])] =
            static_cast<std::int8_t>(digit);
    }
    return table;
}();

struct DigitPairs {
    char pairs[200];
};

constexpr DigitPairs digitPairs = [] {
    DigitPairs table{};
    for (int i = 0; i < 100; ++i) {
        table.pairs[2 * i] = static_cast<char>('0' + i / 10);
        table.pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return table;
}();

struct Fields {
    std::uint64_t filter;
    std::uint64_t prefix;
    std::uint64_t reference;
    std::uint64_t serial;
    int partition;
};

// The first 48 bits of the value and the last 48.
bool hexHalf(const char* hex, std::uint64_t& half) {
    std::int64_t bad = 0;
    half = 0;
    for (int i = 0; i < 12; ++i) {
        const std::int8_t value = hexValues.values[static_cast<unsigned char>(hex[i])];
        bad |= value;
        half = half << 4 | static_cast<std::uint8_t>(value & 15);
    }
    return bad >= 0;
}

bool fieldsFromHex(const char* hex, Fields& fields) {
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    if (!hexHalf(hex, high) || !hexHalf(hex + 12, low) || hex[24] != '\0' || high >> 40 != 0x30) {
        return false;
    }
    fields.filter = high >> 37 & 7;
    fields.partition = static_cast<int>(high >> 34 & 7);
    if (fields.partition == 7) {
        return false;
    }
    const std::uint64_t both = (high & 0x3FFFFFFFF) << 10 | low >> 38;
    const int width = 44 - prefixBits[fields.partition];
    fields.prefix = both >> width;
    fields.reference = both & ((std::uint64_t{1} << width) - 1);
    fields.serial = low & 0x3FFFFFFFFF;
    return true;
}

char* putPadded(char* out, std::uint64_t value, int width) {
    int i = width;
    for (; i >= 2; i -= 2, value /= 100) {
        std::memcpy(out + i - 2, digitPairs.pairs + value % 100 * 2, 2);
    }
    if (i == 1) {
        out[0] = static_cast<char>('0' + value);
    }
    return out + width;
}

char* putNumber(char* out, std::uint64_t value) {
    int digits = 1;
    for (std::uint64_t limit = 10; value >= limit; limit *= 10) {
        ++digits;
    }
    return putPadded(out, value, digits);
}

char* putText(char* out, const char* text, std::size_t length) {
    std::memcpy(out, text, length);
    return out + length;
}

bool hexFromFields(const Fields& fields, char* out) {
    const int width = 44 - prefixBits[fields.partition];
    const std::uint64_t both = fields.prefix << width | fields.reference;
    const std::uint64_t high = std::uint64_t{0x30} << 40 | fields.filter << 37 |
                               static_cast<std::uint64_t>(fields.partition) << 34 | both >> 10;
    const std::uint64_t low = (both & 0x3FF) << 38 | fields.serial;
    for (int i = 0; i < 12; ++i) {
        out[i] = "0123456789ABCDEF"[high >> (44 - 4 * i) & 15];
        out[i + 12] = "0123456789ABCDEF"[low >> (44 - 4 * i) & 15];
    }
    out[24] = '\0';
    return true;
}

// Reads digits and gives their count.
int getNumber(const char*& text, std::uint64_t& value) {
    const char* first = text;
    value = 0;
    while (*text >= '0' && *text <= '9') {
        value = value * 10 + static_cast<std::uint64_t>(*text++ - '0');
    }
    return static_cast<int>(text - first);
}

bool hexToTagUri(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    if (size < 64 || !fieldsFromHex(hex, fields)) {
        return false;
    }
    out = putText(out, "urn:epc:tag:sgtin-96:", 21);
    *out++ = static_cast<char>('0' + fields.filter);
    *out++ = '.';
    out = putPadded(out, fields.prefix, 12 - fields.partition);
    *out++ = '.';
    out = putPadded(out, fields.reference, 1 + fields.partition);
    *out++ = '.';
    *putNumber(out, fields.serial) = '\0';
    return true;
}

bool tagUriToHex(const char* uri, char* out, std::size_t size) {
    Fields fields{};
    if (size < 25 || std::strncmp(uri, "urn:epc:tag:sgtin-96:", 21) != 0 || uri[22] != '.') {
        return false;
    }
    fields.filter = static_cast<std::uint64_t>(uri[21] - '0');
    const char* text = uri + 23;
    const int prefixDigits = getNumber(text, fields.prefix);
    fields.partition = 12 - prefixDigits;
    if (fields.filter > 7 || prefixDigits < 6 || prefixDigits > 12 || *text++ != '.' ||
        getNumber(text, fields.reference) != 13 - prefixDigits || *text++ != '.' ||
        getNumber(text, fields.serial) == 0 || *text != '\0' || fields.serial >> 38 != 0) {
        return false;
    }
    return hexFromFields(fields, out);
}

bool hexToElementString(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    if (size < 64 || !fieldsFromHex(hex, fields)) {
        return false;
    }
    char reference[8];
    putPadded(reference, fields.reference, 1 + fields.partition);
    char* gtin = putText(out, "(01)", 4);
    out = gtin;
    *out++ = reference[0];
    out = putPadded(out, fields.prefix, 12 - fields.partition);
    out = putText(out, reference + 1, static_cast<std::size_t>(fields.partition));
    int sum = 0;
    for (int i = 0; i < 13; i += 2) {
        sum += (gtin[i] - '0') * 3;
    }
    for (int i = 1; i < 13; i += 2) {
        sum += gtin[i] - '0';
    }
    *out++ = static_cast<char>('0' + (10 - sum % 10) % 10);
    out = putText(out, "(21)", 4);
    *putNumber(out, fields.serial) = '\0';
    return true;
}

std::uint64_t digitsToNumber(const char* digits, int count) {
    std::uint64_t value = 0;
    for (int i = 0; i < count; ++i) {
        value = value * 10 + static_cast<std::uint64_t>(digits[i] - '0');
    }
    return value;
}

bool elementStringToHex(const char* text, int filter, int gcpLength, char* out, std::size_t size) {
    if (size < 25 || std::strncmp(text, "(01)", 4) != 0 || std::strlen(text) < 23 ||
        std::strncmp(text + 18, "(21)", 4) != 0) {
        return false;
    }
    Fields fields{};
    fields.filter = static_cast<std::uint64_t>(filter);
    fields.partition = 12 - gcpLength;
    fields.prefix = digitsToNumber(text + 5, gcpLength);
    char reference[8] = {text[4]};
    std::memcpy(reference + 1, text + 5 + gcpLength, static_cast<std::size_t>(12 - gcpLength));
    fields.reference = digitsToNumber(reference, 13 - gcpLength);
    const char* serial = text + 22;
    if (getNumber(serial, fields.serial) == 0 || *serial != '\0' || fields.serial >> 38 != 0) {
        return false;
    }
    return hexFromFields(fields, out);
}

} // namespace

const SgtinBaseline handTunedBaseline = {"hand-tuned", hexToTagUri, tagUriToHex, hexToElementString,
                                         elementStringToHex};
