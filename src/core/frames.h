/*
 * How a value crosses the boundary of the library. A frame turns the caller's form of it into a
 * bit buffer or a cursor, or back, and leaves the rest to its work: a function that also takes the
 * frame's further arguments unchanged.
 */
#ifndef ROSETAG_CORE_FRAMES_H
#define ROSETAG_CORE_FRAMES_H

#include "core/bit_buffer.h"
#include "core/hex_words.h"
#include "core/short_value.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

// ---- Binary values in ----
// work: EpcStatus(BitBuffer& bits, arguments...)

template <typename Work, typename... Arguments>
EpcStatus binaryInputFrame(std::int32_t bits, const std::uint8_t* binary, Work work,
                           const Arguments&... arguments) {
    BitBuffer buffer = bitBufferForReading(binary, bits);
    return work(buffer, arguments...);
}

template <typename Work, typename... Arguments>
EpcStatus hexInputFrame(const char* hex, Work work, const Arguments&... arguments) {
    const std::string_view digits = hex;
    const std::size_t byteCount = (digits.size() + 1) / 2;
    if (byteCount > static_cast<std::size_t>(MAX_BINARY_BYTES)) {
        return EPC_ERR_TOO_LONG;
    }
    std::uint8_t binary[MAX_BINARY_BYTES];
    EPC_TRY(hexToBytes(digits, binary));
    BitBuffer buffer = bitBufferForReading(binary, static_cast<std::int32_t>(byteCount * 8));
    return work(buffer, arguments...);
}

template <typename Work, typename... Arguments>
EpcStatus wordInputFrame(std::int32_t bits, const std::uint16_t* words, Work work,
                         const Arguments&... arguments) {
    const auto wordCount = static_cast<std::uint32_t>((std::int64_t{bits} + 15) / 16);
    std::uint8_t binary[MAX_BINARY_BYTES];
    EPC_TRY(wordsToBytes(words, wordCount, binary));
    BitBuffer buffer = bitBufferForReading(binary, bits);
    return work(buffer, arguments...);
}

// ---- Binary values out ----
// work: EpcStatus(BitBuffer& bits, arguments...), on an empty buffer

// For values of whole bytes.
template <typename Work, typename... Arguments>
EpcStatus binaryOutputFrame(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes,
                            Work work, const Arguments&... arguments) {
    BitBuffer bits = bitBufferForWriting(out, maxBytes);
    EPC_TRY(work(bits, arguments...));
    if (outBytes != nullptr) {
        *outBytes = bits.position / 8;
    }
    return EPC_OK;
}

template <typename Work, typename... Arguments>
EpcStatus hexOutputFrame(std::int32_t dstSize, char* dst, Work work,
                         const Arguments&... arguments) {
    std::uint8_t binary[MAX_BINARY_BYTES];
    BitBuffer bits = bitBufferForWriting(binary, MAX_BINARY_BYTES);
    EPC_TRY(work(bits, arguments...));
    const std::int32_t byteCount = (bits.position + 7) / 8;
    if (2 * byteCount < dstSize) {
        *hexPutBytes(dst, binary, byteCount) = '\0';
        return EPC_OK;
    }
    TextBuffer text = textBufferOver(dst, dstSize);
    return textBufferPutHex(text, binary, byteCount);
}

// The same after an attempt without a buffer. What is only needed if that fails stands apart, or
// the attempt would have to make room for it. shortcut: ShortValue(arguments...)
template <typename Work, typename... Arguments>
[[gnu::noinline]] EpcStatus hexOutputFrameApart(std::int32_t dstSize, char* dst, Work work,
                                                Arguments... arguments) {
    return hexOutputFrame(dstSize, dst, work, arguments...);
}

template <typename Shortcut, typename Work, typename... Arguments>
ROSETAG_INLINE EpcStatus shortHexOutputFrame(std::int32_t dstSize, char* dst, Shortcut shortcut,
                                             Work work, Arguments... arguments) {
    return shortValueToHex(shortcut(arguments...), dstSize, dst)
               ? EPC_OK
               : hexOutputFrameApart(dstSize, dst, work, arguments...);
}

template <typename Work, typename... Arguments>
EpcStatus wordOutputFrame(std::int32_t maxWords, std::uint16_t* outWords,
                          std::int32_t* outWordCount, Work work, const Arguments&... arguments) {
    std::uint8_t binary[MAX_BINARY_BYTES];
    BitBuffer bits = bitBufferForWriting(binary, MAX_BINARY_BYTES);
    EPC_TRY(work(bits, arguments...));
    const std::int32_t byteCount = (bits.position + 7) / 8;
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

// ---- Text to text ----
// work: EpcStatus(TextCursor& cursor, TextBuffer& out, arguments...)

template <typename Work, typename... Arguments>
EpcStatus textToTextFrame(const char* text, std::int32_t dstSize, char* dst, Work work,
                          const Arguments&... arguments) {
    TextCursor cursor = textCursorOver(text);
    TextBuffer out = textBufferOver(dst, dstSize);
    return work(cursor, out, arguments...);
}

} // namespace rosetag

#endif
