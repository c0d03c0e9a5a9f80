/*
 * The frames of the exports: how a binary value crosses the boundary as hexadecimal text or as
 * words. Each frame stands once, as a function that takes the work to be done on bytes; an export
 * names its frame and its work.
 */
#ifndef ROSETAG_CORE_FRAMES_H
#define ROSETAG_CORE_FRAMES_H

#include "core/hex_words.h"
#include "core/text_buffer.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

// work: EpcStatus(std::int32_t bits, const std::uint8_t* binary)
template <typename Work>
EpcStatus hexInputFrame(const char* hex, Work work) {
    const std::string_view digits = hex;
    const std::size_t byteCount = (digits.size() + 1) / 2;
    if (byteCount > static_cast<std::size_t>(MAX_BINARY_BYTES)) {
        return EPC_ERR_TOO_LONG;
    }
    std::uint8_t binary[MAX_BINARY_BYTES];
    EPC_TRY(hexToBytes(digits, binary));
    return work(static_cast<std::int32_t>(byteCount * 8), binary);
}

// work: EpcStatus(std::int32_t bits, const std::uint8_t* binary)
template <typename Work>
EpcStatus wordInputFrame(std::int32_t bits, const std::uint16_t* words, Work work) {
    const auto wordCount = static_cast<std::uint32_t>((std::int64_t{bits} + 15) / 16);
    std::uint8_t binary[MAX_BINARY_BYTES];
    EPC_TRY(wordsToBytes(words, wordCount, binary));
    return work(bits, binary);
}

// work: EpcStatus(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes)
template <typename Work>
EpcStatus hexOutputFrame(std::int32_t dstSize, char* dst, Work work) {
    std::uint8_t binary[MAX_BINARY_BYTES];
    std::int32_t byteCount = 0;
    EPC_TRY(work(MAX_BINARY_BYTES, binary, &byteCount));
    TextBuffer text = textBufferOver(dst, dstSize);
    return textBufferPutHex(text, binary, byteCount);
}

// work: EpcStatus(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes)
template <typename Work>
EpcStatus wordOutputFrame(std::int32_t maxWords, std::uint16_t* outWords,
                          std::int32_t* outWordCount, Work work) {
    std::uint8_t binary[MAX_BINARY_BYTES];
    std::int32_t byteCount = 0;
    EPC_TRY(work(MAX_BINARY_BYTES, binary, &byteCount));
    const std::int32_t wordCount = (byteCount + 1) / 2;
    if (wordCount > maxWords) {
        return EPC_ERR_NO_ROOM;
    }
    EPC_TRY(bytesToWords(binary, static_cast<std::uint32_t>(byteCount), outWords));
    if (outWordCount != nullptr) {
        *outWordCount = wordCount;
    }
    return EPC_OK;
}

} // namespace rosetag

#endif
