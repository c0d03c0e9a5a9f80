#include "core/hex_words.h"

#include "core/byte_order.h"
#include "core/hex_digits.h"

namespace rosetag {

// Converts sixteen digits to eight bytes, in the order of memory. False if one of the characters is
// not a digit.
ROSETAG_INLINE bool hexTakeWord(const char* hex, std::uint64_t& bytes) {
    constexpr std::uint8_t toLower = 'a' - 'A';
    const ByteVector characters = byteVectorLoad(hex);
    const ByteVector digits = characters - '0';
    const ByteVector letters = (characters | toLower) - 'a';
    const auto isDigit = reinterpret_cast<ByteVector>(digits <= 9);
    const auto isLetter = reinterpret_cast<ByteVector>(letters <= 5);
    const ByteVector values = (digits & isDigit) | ((letters + 10) & isLetter);
    const WordVector known = wordVectorOf(isDigit | isLetter);
    bytes = byteVectorEven(values) << 4 | byteVectorOdd(values);
    return (known[0] & known[1]) == ~std::uint64_t{0};
}

// The later half of a word in memory, where it is the first.
constexpr std::uint64_t laterHalf(std::uint64_t word) {
    return std::endian::native == std::endian::big ? word << 32 : word >> 32;
}

// Bytes are stored as wide as they will be read: a load that spans several recent stores would have
// to wait for them. So eight digits after others are converted together with those before them, but
// stored alone.
EpcStatus hexToBytes(std::string_view hex, std::uint8_t* bytes) {
    constexpr std::size_t wordDigits = 2 * HEX_WORD_BYTES;
    constexpr std::size_t halfDigits = wordDigits / 2;
    const bool isLong = BYTE_VECTORS && hex.size() >= wordDigits;
    std::uint64_t word = 0;
    for (; BYTE_VECTORS && hex.size() >= wordDigits; bytes += HEX_WORD_BYTES) {
        if (!hexTakeWord(hex.data(), word)) {
            return EPC_ERR_NO_ROOM;
        }
        std::memcpy(bytes, &word, HEX_WORD_BYTES);
        hex.remove_prefix(wordDigits);
    }
    if (isLong && hex.size() >= halfDigits) {
        if (!hexTakeWord(hex.data() - halfDigits, word)) {
            return EPC_ERR_NO_ROOM;
        }
        word = laterHalf(word);
        std::memcpy(bytes, &word, HEX_WORD_BYTES / 2);
        bytes += HEX_WORD_BYTES / 2;
        hex.remove_prefix(halfDigits);
    }
    const std::size_t wholeBytes = hex.size() / 2;
    for (std::size_t i = 0; i < wholeBytes; ++i) {
        const std::int32_t value = hexPairValue(hex[2 * i], hex[2 * i + 1]);
        if (value < 0) {
            return EPC_ERR_NO_ROOM;
        }
        bytes[i] = static_cast<std::uint8_t>(value);
    }
    if (hex.size() % 2 == 0) {
        return EPC_OK;
    }
    const std::int32_t high = hexDigitValue(hex.back());
    if (high < 0) {
        return EPC_ERR_NO_ROOM;
    }
    bytes[wholeBytes] = static_cast<std::uint8_t>(high * 16);
    return EPC_OK;
}

// Where words leave bytes over, the last one takes some bytes again.
char* hexPutBytes(char* out, const std::uint8_t* bytes, std::int32_t count) {
    const std::uint8_t* const end = bytes + count;
    if (!BYTE_VECTORS || count < HEX_WORD_BYTES) {
        while (bytes < end) {
            out = hexPutPair(out, *bytes++);
        }
        return out;
    }
    for (; end - bytes > HEX_WORD_BYTES; bytes += HEX_WORD_BYTES, out += 2 * HEX_WORD_BYTES) {
        hexPutWord(out, bytesLoad<std::endian::native, std::uint64_t>(bytes));
    }
    out -= 2 * (HEX_WORD_BYTES - (end - bytes));
    hexPutWord(out, bytesLoad<std::endian::native, std::uint64_t>(end - HEX_WORD_BYTES));
    return out + 2 * HEX_WORD_BYTES;
}

EpcStatus bytesToWords(const std::uint8_t* bytes, std::uint32_t count, std::uint16_t* words) {
    if (count > static_cast<std::uint32_t>(MAX_BINARY_BYTES)) {
        return EPC_ERR_TOO_LONG;
    }
    for (std::uint32_t i = 0; i < count; i += 2) {
        const int low = i + 1 < count ? bytes[i + 1] : 0;
        words[i / 2] = static_cast<std::uint16_t>(bytes[i] << 8 | low);
    }
    return EPC_OK;
}

EpcStatus wordsToBytes(const std::uint16_t* words, std::uint32_t count, std::uint8_t* bytes) {
    if (count > static_cast<std::uint32_t>(MAX_BINARY_WORDS)) {
        return EPC_ERR_TOO_LONG;
    }
    for (std::uint32_t i = 0; i < count; ++i) {
        bytes[2 * i] = static_cast<std::uint8_t>(words[i] >> 8);
        bytes[2 * i + 1] = static_cast<std::uint8_t>(words[i] & 0xFF);
    }
    return EPC_OK;
}

} // namespace rosetag
