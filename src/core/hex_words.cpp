#include "core/hex_words.h"

#include "core/byte_order.h"
#include "core/hex_digits.h"

namespace rosetag {

// Converts the digits of as many bytes as a number has, two digits each. False if one of the
// characters is not a digit. The bytes are stored at once, as wide as they will be read: a load
// that spans several recent stores would have to wait for them.
template <typename Number>
static bool takeBytes(std::string_view& hex, std::uint8_t*& bytes) {
    Number number = 0;
    std::int32_t values = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
        const std::int32_t value = hexPairValue(hex[2 * i], hex[2 * i + 1]);
        number |= static_cast<Number>(static_cast<std::uint8_t>(value)) << (8 * i);
        values |= value;
    }
    bytesStore<std::endian::little>(bytes, number);
    bytes += sizeof number;
    hex.remove_prefix(2 * sizeof number);
    return values >= 0;
}

EpcStatus hexToBytes(std::string_view hex, std::uint8_t* bytes) {
    while (hex.size() >= 16) {
        if (!takeBytes<std::uint64_t>(hex, bytes)) {
            return EPC_ERR_NO_ROOM;
        }
    }
    if (hex.size() >= 8 && !takeBytes<std::uint32_t>(hex, bytes)) {
        return EPC_ERR_NO_ROOM;
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
