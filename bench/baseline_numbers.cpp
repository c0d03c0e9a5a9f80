#include "baselines.h"

#include <bit>
#include <cstdint>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "the first character is the lowest byte");

namespace {

constexpr int prefixBits[] = {40, 37, 34, 30, 27, 24, 20};
constexpr std::uint64_t powers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
constexpr std::uint64_t zeros = 0x3030303030303030;
constexpr std::uint64_t eightDigits = 100000000;

struct Fields {
    std::uint64_t filter;
    std::uint64_t prefix;
    std::uint64_t reference;
    std::uint64_t serial;
    int partition;
};

std::uint64_t load(const char* from) {
    std::uint64_t word = 0;
    std::memcpy(&word, from, sizeof word);
    return word;
}

void store(char* to, std::uint64_t word) {
    std::memcpy(to, &word, sizeof word);
}

// Eight digits to a number and back, the first in the lowest byte.
std::uint64_t joined(std::uint64_t digits) {
    digits = (digits * 2561) >> 8 & 0x00FF00FF00FF00FF;
    digits = (digits * 6553601) >> 16 & 0x0000FFFF0000FFFF;
    return (digits * 42949672960001) >> 32;
}

std::uint64_t split(std::uint64_t value) {
    const std::uint64_t fours = value / 10000 | value % 10000 << 32;
    const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007F0000007F;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
    return tens | (twos - 10 * tens) << 8;
}

std::uint64_t others(std::uint64_t digits) {
    return (((digits & 0x7F7F7F7F7F7F7F7F) + 0x7676767676767676) | digits) & 0x8080808080808080;
}

// The last count digits of those that end here; bad collects what is not a digit.
std::uint64_t digitsBefore(const char* end, int count, std::uint64_t& bad) {
    if (count <= 0) {
        return 0;
    }
    const std::uint64_t mask =
        count >= 8 ? ~std::uint64_t{0} : ~std::uint64_t{0} << (64 - 8 * count);
    const std::uint64_t digits = (load(end - 8) ^ zeros) & mask;
    bad |= others(digits);
    return joined(digits);
}

std::uint64_t numberBefore(const char* end, int count, std::uint64_t& bad) {
    return digitsBefore(end, count, bad) + eightDigits * digitsBefore(end - 8, count - 8, bad);
}

char* putBefore(char* end, std::uint64_t value, int digits) {
    store(end - 8, split(value % eightDigits) | zeros);
    if (digits > 8) {
        store(end - 16, split(value / eightDigits) | zeros);
    }
    return end - digits;
}

int digitsOf(std::uint64_t value) {
    int digits = 1;
    for (std::uint64_t limit = 10; value >= limit; limit *= 10) {
        ++digits;
    }
    return digits;
}

// Eight hexadecimal digits to 32 bits.
bool hexPart(const char* hex, std::uint64_t& part) {
    part = 0;
    for (int i = 0; i < 8; ++i) {
        const char digit = hex[i];
        const bool isDecimal = digit >= '0' && digit <= '9';
        if (!isDecimal && (digit < 'A' || digit > 'F')) {
            return false;
        }
        part = part << 4 | static_cast<std::uint64_t>(isDecimal ? digit - '0' : digit - 'A' + 10);
    }
    return true;
}

bool fieldsFromHex(const char* hex, Fields& fields) {
    std::uint64_t parts[3];
    if (!hexPart(hex, parts[0]) || !hexPart(hex + 8, parts[1]) || !hexPart(hex + 16, parts[2]) ||
        hex[24] != '\0' || parts[0] >> 24 != 0x30) {
        return false;
    }
    const std::uint64_t high = parts[0] << 32 | parts[1];
    fields.filter = high >> 53 & 7;
    fields.partition = static_cast<int>(high >> 50 & 7);
    if (fields.partition == 7) {
        return false;
    }
    const std::uint64_t both = high >> 6 & 0xFFFFFFFFFFF;
    const int width = 44 - prefixBits[fields.partition];
    fields.prefix = both >> width;
    fields.reference = both & ((std::uint64_t{1} << width) - 1);
    fields.serial = (high & 0x3F) << 32 | parts[2];
    return true;
}

void putHex(char* out, std::uint64_t bytes) {
    std::uint64_t wide = (bytes | bytes << 16) & 0x0000FFFF0000FFFF;
    wide = (wide | wide << 8) & 0x00FF00FF00FF00FF;
    wide = (wide >> 4 | wide << 8) & 0x0F0F0F0F0F0F0F0F;
    const std::uint64_t letters = (wide + 0x0606060606060606) >> 4 & 0x0101010101010101;
    store(out, wide + zeros + letters * 7);
}

std::uint64_t swapped(std::uint64_t value) {
    value = (value & 0x00FF00FF) << 8 | (value >> 8 & 0x00FF00FF);
    return (value & 0xFFFF) << 16 | value >> 16;
}

bool hexFromFields(const Fields& fields, char* out) {
    const int width = 44 - prefixBits[fields.partition];
    const std::uint64_t both = fields.prefix << width | fields.reference;
    const std::uint64_t high = std::uint64_t{0x30} << 56 | fields.filter << 53 |
                               static_cast<std::uint64_t>(fields.partition) << 50 | both << 6 |
                               fields.serial >> 32;
    putHex(out, swapped(high >> 32));
    putHex(out + 8, swapped(high & 0xFFFFFFFF));
    putHex(out + 16, swapped(fields.serial & 0xFFFFFFFF));
    out[24] = '\0';
    return fields.serial >> 38 == 0;
}

// Writes from the end to the beginning, so that whole words may run into what comes later.
bool hexToTagUri(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    if (size < 64 || !fieldsFromHex(hex, fields)) {
        return false;
    }
    const int digits = digitsOf(fields.serial);
    char* end = out + 38 + digits;
    *end = '\0';
    end = putBefore(end, fields.serial, digits);
    *--end = '.';
    end = putBefore(end, fields.reference, 1 + fields.partition);
    *--end = '.';
    putBefore(end, fields.prefix, 12);
    std::memcpy(out, "urn:epc:tag:sgtin-96:", 21);
    out[21] = static_cast<char>('0' + fields.filter);
    out[22] = '.';
    return true;
}

bool tagUriToHex(const char* uri, char* out, std::size_t size) {
    const std::size_t length = std::strlen(uri);
    if (size < 25 || length < 39 || std::memcmp(uri, "urn:epc:tag:sgtin-96:", 21) != 0 ||
        uri[22] != '.') {
        return false;
    }
    const char* const text = uri + 23;
    const std::uint64_t first = others(load(text) ^ zeros);
    const std::uint64_t second = others(load(text + 8) ^ zeros);
    const int prefixDigits =
        first != 0 ? std::countr_zero(first) / 8 : 8 + std::countr_zero(second) / 8;
    const int serialDigits = static_cast<int>(length) - 38;
    Fields fields{};
    fields.filter = static_cast<std::uint64_t>(uri[21] - '0');
    fields.partition = 12 - prefixDigits;
    if (fields.filter > 7 || prefixDigits < 6 || prefixDigits > 12 || text[prefixDigits] != '.' ||
        text[14] != '.' || serialDigits > 12 || (text[15] == '0' && serialDigits > 1)) {
        return false;
    }
    std::uint64_t bad = 0;
    fields.prefix = numberBefore(text + prefixDigits, prefixDigits, bad);
    fields.reference = digitsBefore(text + 14, 13 - prefixDigits, bad);
    fields.serial = numberBefore(uri + length, serialDigits, bad);
    return bad == 0 && hexFromFields(fields, out);
}

bool hexToElementString(const char* hex, char* out, std::size_t size) {
    Fields fields{};
    if (size < 64 || !fieldsFromHex(hex, fields)) {
        return false;
    }
    const std::uint64_t power = powers[fields.partition];
    const std::uint64_t first = fields.reference / power;
    const std::uint64_t key =
        first * 1000000000000 + fields.prefix * power + (fields.reference - first * power);
    const std::uint64_t high = split(key / eightDigits);
    const std::uint64_t low = split(key % eightDigits);
    const std::uint64_t even = (high & 0x00FF00FF00FF00FF) + (low & 0x00FF00FF00FF00FF);
    const std::uint64_t odd = (high >> 8 & 0x00FF00FF00FF00FF) + (low >> 8 & 0x00FF00FF00FF00FF);
    const std::uint64_t sum = (even + 3 * odd) * 0x0001000100010001 >> 48;
    const std::uint64_t check = (10 - sum % 10) % 10;
    const int digits = digitsOf(fields.serial);
    out[22 + digits] = '\0';
    putBefore(out + 22 + digits, fields.serial, digits);
    std::memcpy(out + 18, "(21)", 4);
    store(out + 10, (low >> 8 | check << 56) | zeros);
    store(out + 2, (high >> 8 | low << 56) | zeros);
    std::memcpy(out, "(01)", 4);
    return true;
}

bool elementStringToHex(const char* text, int filter, int gcpLength, char* out, std::size_t size) {
    const std::size_t length = std::strlen(text);
    if (size < 25 || length < 23 || length > 34 || std::memcmp(text, "(01)", 4) != 0 ||
        std::memcmp(text + 18, "(21)", 4) != 0 || (text[22] == '0' && length > 23)) {
        return false;
    }
    std::uint64_t bad = others((load(text + 4) ^ zeros)) | others(load(text + 10) ^ zeros);
    Fields fields{};
    fields.filter = static_cast<std::uint64_t>(filter);
    fields.partition = 12 - gcpLength;
    const char* const prefixEnd = text + 5 + gcpLength;
    const std::uint64_t above = (load(text + 5) ^ zeros) << (8 * (12 - gcpLength)) << 32;
    fields.prefix =
        digitsBefore(prefixEnd, gcpLength, bad) + (gcpLength > 8 ? eightDigits * joined(above) : 0);
    fields.reference = static_cast<std::uint64_t>(text[4] - '0') * powers[fields.partition] +
                       digitsBefore(text + 17, 12 - gcpLength, bad);
    fields.serial = numberBefore(text + length, static_cast<int>(length) - 22, bad);
    return bad == 0 && hexFromFields(fields, out);
}

} // namespace

const SgtinBaseline numbersBaseline = {"numbers", hexToTagUri, tagUriToHex, hexToElementString,
                                       elementStringToHex};
