#include "baselines.h"

#include <array>
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
    constexpr std::uint64_t everyFourth = 0x000000FF000000FF;
    const std::uint64_t pairs = digits * 10 + (digits >> 8);
    return ((pairs & everyFourth) * 4294967296000100 +
            (pairs >> 16 & everyFourth) * 42949672960001) >>
           32;
}

// Four digits in each half, both at once.
std::uint64_t joinedHalves(std::uint64_t digits) {
    digits = (digits * 2561) >> 8 & 0x00FF00FF00FF00FF;
    return (digits * 6553601) >> 16 & 0x0000FFFF0000FFFF;
}

std::uint64_t split(std::uint64_t value) {
    const std::uint64_t fours = value / 10000 | value % 10000 << 32;
    const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007F0000007F;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
    return tens | (twos - 10 * tens) << 8;
}

// Not 0 under marks if one of the values is not that of a digit; right up to the first.
constexpr std::uint64_t marks = 0x8080808080808080;

std::uint64_t others(std::uint64_t digits) {
    return (digits + 0x7676767676767676) | digits;
}

constexpr std::uint64_t all = ~std::uint64_t{0};

// By the digits of a company prefix above six: which of the eight before its end are its own, how
// far its first four have to move, and where it is put.
struct PrefixRow {
    std::uint64_t mask;
    int digitShift;
    int bitShift;
};

constexpr PrefixRow prefixRows[] = {
    {all << 16, 48, 30}, {all << 8, 40, 26}, {all, 32, 23}, {all, 24, 20},
    {all, 16, 16},       {all, 8, 13},       {all, 0, 10},
};

// By the digits of a serial: which of its last eight and of the eight before are its own.
struct SerialMasks {
    std::uint64_t low;
    std::uint64_t high;
};

constexpr auto serialMasks = []() {
    std::array<SerialMasks, 13> masks{};
    for (std::size_t count = 1; count < masks.size(); ++count) {
        masks[count].low = count >= 8 ? all : all << (64 - 8 * count);
        masks[count].high = count <= 8 ? 0 : all << (128 - 8 * count);
    }
    return masks;
}();

// Reads prefix and serial; the prefix begins at first, has above digits more than six, and the
// serial ends at end. Returns what is not a digit in them.
std::uint64_t readNumbers(const char* first, std::size_t above, const char* end, std::size_t count,
                          Fields& fields) {
    const PrefixRow& row = prefixRows[above];
    const SerialMasks& own = serialMasks[count];
    const std::uint64_t prefix = (load(first + above - 2) ^ zeros) & row.mask;
    const std::uint64_t serial = (load(end - 8) ^ zeros) & own.low;
    const std::uint64_t high = (((load(first) ^ zeros) << row.digitShift) & 0xFFFFFFFF) |
                               (count > 8 ? (load(end - 16) ^ zeros) & own.high : 0);
    const std::uint64_t halves = joinedHalves(high);
    fields.prefix = joined(prefix) + (halves & 0xFFFFFFFF) * eightDigits;
    fields.serial = joined(serial) + (halves >> 32) * eightDigits;
    return others(prefix) | others(serial) | others(high);
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

// Sixteen characters side by side.
using Bytes [[gnu::vector_size(16)]] = unsigned char;
using SignedBytes [[gnu::vector_size(16)]] = signed char;
using Words [[gnu::vector_size(16)]] = std::uint64_t;

std::uint64_t evenBytes(Bytes bytes) {
    return reinterpret_cast<Words>(__builtin_shufflevector(bytes, bytes, 0, 2, 4, 6, 8, 10, 12, 14,
                                                           16, 18, 20, 22, 24, 26, 28, 30))[0];
}

std::uint64_t oddBytes(Bytes bytes) {
    return reinterpret_cast<Words>(__builtin_shufflevector(bytes, bytes, 1, 3, 5, 7, 9, 11, 13, 15,
                                                           17, 19, 21, 23, 25, 27, 29, 31))[0];
}

// Sixteen hexadecimal digits to 64 bits.
bool hexWord(const char* hex, std::uint64_t& word) {
    Bytes characters;
    std::memcpy(&characters, hex, sizeof characters);
    const Bytes digits = characters - '0';
    const Bytes letters = characters - 'A';
    const auto isDigit = reinterpret_cast<Bytes>(digits <= 9);
    const auto isLetter = reinterpret_cast<Bytes>(letters <= 5);
    const Bytes values = (digits & isDigit) | ((letters + 10) & isLetter);
    const auto known = reinterpret_cast<Words>(isDigit | isLetter);
    word = __builtin_bswap64(evenBytes(values) << 4 | oddBytes(values));
    return (known[0] & known[1]) == all;
}

bool fieldsFromHex(const char* hex, Fields& fields) {
    std::uint64_t high = 0;
    std::uint64_t last = 0; // begins with the last half of high
    if (!hexWord(hex, high) || !hexWord(hex + 8, last) || hex[24] != '\0' || high >> 56 != 0x30) {
        return false;
    }
    fields.filter = high >> 53 & 7;
    fields.partition = static_cast<int>(high >> 50 & 7);
    if (fields.partition == 7) {
        return false;
    }
    const std::uint64_t both = high >> 6 & 0xFFFFFFFFFFF;
    const int width = 44 - prefixBits[fields.partition];
    fields.prefix = both >> width;
    fields.reference = both & ((std::uint64_t{1} << width) - 1);
    fields.serial = last & 0x3FFFFFFFFF;
    return true;
}

void putHex(char* out, std::uint64_t number) {
    const std::uint64_t bytes = __builtin_bswap64(number);
    const auto high = reinterpret_cast<Bytes>(Words{bytes >> 4, 0});
    const auto low = reinterpret_cast<Bytes>(Words{bytes, 0});
    const Bytes digits =
        __builtin_shufflevector(high, low, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23) &
        15;
    const auto isLetter = reinterpret_cast<Bytes>(reinterpret_cast<SignedBytes>(digits) > 9);
    const Bytes characters = digits + '0' + (isLetter & 7);
    std::memcpy(out, &characters, sizeof characters);
}

bool hexFromFields(const Fields& fields, std::uint64_t bad, char* out) {
    if (((bad & marks) | fields.serial >> 38) != 0) {
        return false;
    }
    const int shift = prefixRows[6 - fields.partition].bitShift;
    const std::uint64_t high = std::uint64_t{0x30} << 56 | fields.filter << 53 |
                               static_cast<std::uint64_t>(fields.partition) << 50 |
                               fields.prefix << shift | fields.reference << 6 | fields.serial >> 32;
    putHex(out, high);
    putHex(out + 8, high << 32 | (fields.serial & 0xFFFFFFFF));
    out[24] = '\0';
    return true;
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
    const std::size_t count = length - 38;
    if (size < 25 || count - 1 > 11 || std::memcmp(uri, "urn:epc:tag:sgtin-96:", 21) != 0) {
        return false;
    }
    const char* const text = uri + 23;
    const std::uint64_t tail = load(text + 6) ^ zeros; // the "." is among these
    const std::uint64_t dot = others(tail) & marks;
    const auto above = static_cast<std::size_t>(std::countr_zero(dot) / 8);
    Fields fields{};
    fields.filter = static_cast<unsigned char>(uri[21]) - std::uint64_t{'0'};
    if (fields.filter > 7 || above > 6 || uri[22] != '.' || text[6 + above] != '.' ||
        text[14] != '.' || (text[15] == '0' && count > 1)) {
        return false;
    }
    const std::uint64_t reference = tail & ~(dot ^ (dot - 1)); // what follows the "."
    fields.partition = 6 - static_cast<int>(above);
    fields.reference = joined(reference);
    const std::uint64_t bad = readNumbers(text, above, uri + length, count, fields);
    return hexFromFields(fields, bad | others(reference), out);
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
    const std::size_t count = length - 22;
    const auto above = static_cast<std::size_t>(gcpLength) - 6;
    if (size < 25 || count - 1 > 11 || above > 6 || std::memcmp(text, "(01)", 4) != 0 ||
        std::memcmp(text + 18, "(21)", 4) != 0 || (text[22] == '0' && count > 1)) {
        return false;
    }
    const std::uint64_t first = load(text + 4) ^ zeros;
    const std::uint64_t last = load(text + 10) ^ zeros; // ends with the check digit
    Fields fields{};
    fields.filter = static_cast<std::uint64_t>(filter);
    fields.partition = 6 - static_cast<int>(above);
    // The first digit of the GTIN goes before those of the reference.
    fields.reference =
        joined((last << 8 & all << (8 * above) << 16) | (first & 0xFF) << (8 * (above + 1)));
    const std::uint64_t bad = readNumbers(text + 5, above, text + length, count, fields);
    return hexFromFields(fields, bad | others(first) | others(last), out);
}

} // namespace

const SgtinBaseline numbersBaseline = {"numbers", hexToTagUri, tagUriToHex, hexToElementString,
                                       elementStringToHex};
