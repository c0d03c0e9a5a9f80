#include "core/long_field.h"

#include "core/long_decimal.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::int32_t CHUNK_BITS = 64;

// A long number as text: 90 digits and the NUL.
constexpr std::int32_t LONG_TEXT_SIZE = MAX_LONG_DIGITS + 1;

EpcStatus putLeftPadded(TextBuffer& text, std::string_view digits, std::int32_t width) {
    const auto count = static_cast<std::int32_t>(digits.size());
    if (count < width) {
        EPC_TRY(textBufferPutPadded(text, 0, width - count));
    }
    return textBufferPutString(text, digits);
}

} // namespace

EpcStatus bitBufferGetHex(BitBuffer& buffer, std::int32_t bitCount, std::int32_t dstSize,
                          char* dst) {
    std::uint8_t scratchBytes[MAX_LONG_FIELD_BITS / 8];
    BitBuffer scratch = bitBufferForWriting(scratchBytes, sizeof scratchBytes);
    const std::int32_t digits = (bitCount + 3) / 4;
    EPC_TRY(bitBufferWrite(scratch, 0, digits * 4 - bitCount));
    for (std::int32_t remaining = bitCount; remaining > 0;) {
        const std::int32_t chunkBits = std::min(remaining, CHUNK_BITS);
        std::uint64_t chunk = 0;
        EPC_TRY(bitBufferRead(buffer, chunkBits, chunk));
        EPC_TRY(bitBufferWrite(scratch, chunk, chunkBits));
        remaining -= chunkBits;
    }
    TextBuffer text = textBufferOver(dst, dstSize);
    EPC_TRY(textBufferPutHex(text, scratchBytes, (bitCount + 7) / 8));
    dst[digits] = '\0'; // cuts the half byte behind an odd count of digits
    return EPC_OK;
}

EpcStatus bitBufferGetPaddedHex(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                std::int32_t width) {
    char hex[LONG_TEXT_SIZE];
    EPC_TRY(bitBufferGetHex(buffer, bitCount, sizeof hex, hex));
    return putLeftPadded(text, hex, width);
}

EpcStatus bitBufferGetPaddedDecimal(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                    std::int32_t width) {
    char hex[LONG_TEXT_SIZE];
    EPC_TRY(bitBufferGetHex(buffer, bitCount, sizeof hex, hex));
    char decimal[LONG_TEXT_SIZE];
    std::int32_t count = 0;
    EPC_TRY(hexToDecimal(hex, sizeof decimal, decimal, count));
    return putLeftPadded(text, {decimal, static_cast<std::size_t>(count)}, width);
}

std::int32_t bitBufferPutHexBytes(BitBuffer& buffer, std::int32_t hexDigits,
                                  const std::uint8_t* digitBytes, std::int32_t bitCount) {
    BitBuffer digits = bitBufferForReading(digitBytes, hexDigits * 4);
    const std::int32_t zeros = std::max(bitCount - digits.capacity, 0);
    const std::int32_t dropped = std::max(digits.capacity - std::max(bitCount, 0), 0);
    if (bitBufferPut(buffer, 0, zeros) != 0 || bitBufferSkip(digits, dropped) != 0) {
        return -1;
    }
    while (bitBufferLeft(digits) > 0) {
        const std::int32_t chunkBits = std::min(bitBufferLeft(digits), CHUNK_BITS);
        std::uint64_t chunk = 0;
        if (bitBufferGet(digits, chunkBits, chunk) != 0 ||
            bitBufferPut(buffer, chunk, chunkBits) != 0) {
            return -1;
        }
    }
    return 0;
}

} // namespace rosetag
