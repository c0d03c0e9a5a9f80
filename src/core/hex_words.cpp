#include "core/hex_words.h"

#include "core/text_cursor.h"

namespace rosetag {

EpcStatus hexToBytes(std::string_view hex, std::uint8_t* bytes) {
    const std::size_t wholeBytes = hex.size() / 2;
    for (std::size_t i = 0; i < wholeBytes; ++i) {
        const std::int32_t value = hexDigitValue(hex[2 * i]) * 16 | hexDigitValue(hex[2 * i + 1]);
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
