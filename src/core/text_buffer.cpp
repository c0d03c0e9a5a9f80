#include "core/text_buffer.h"

#include "core/char_scan.h"
#include "core/hex_digits.h"
#include "core/hex_words.h"

#include <algorithm>
#include <cstring>

namespace rosetag {

namespace {

constexpr auto decimalPairs = digitPairsMake<10>();

template <typename Pairs>
void putPair(char* out, const Pairs& pairs, std::size_t number) {
    std::memcpy(out, pairs.data() + 2 * number, 2);
}

// Appends the last width digits of the number; there is room for them.
void putDigits(TextBuffer& buffer, std::uint64_t value, std::int32_t width) {
    char* const end = buffer.writePointer + width;
    char* out = end;
    for (; out - buffer.writePointer >= 2; value /= 100) {
        out -= 2;
        putPair(out, decimalPairs, static_cast<std::size_t>(value % 100));
    }
    if (out != buffer.writePointer) {
        *buffer.writePointer = static_cast<char>('0' + value % 10);
    }
    buffer.writePointer = end;
    *end = '\0';
}

// As many digits as there is room for.
EpcStatus putHexCut(TextBuffer& buffer, const std::uint8_t* bytes, std::int32_t room) {
    char* out = buffer.writePointer;
    for (; room >= 2; room -= 2, out += 2) {
        hexPutPair(out, *bytes++);
    }
    if (room > 0) {
        *out++ = hexPairs[2 * std::size_t{*bytes}];
    }
    buffer.writePointer = out;
    *out = '\0';
    return EPC_ERR_NO_ROOM;
}

// As much of the text as there is room for.
EpcStatus putFitting(TextBuffer& buffer, std::string_view text) {
    const auto room = static_cast<std::size_t>(textBufferRoom(buffer));
    const std::size_t count = std::min(text.size(), room);
    buffer.writePointer = std::copy_n(text.begin(), count, buffer.writePointer);
    *buffer.writePointer = '\0';
    return text.size() > room ? EPC_ERR_NO_ROOM : EPC_OK;
}

EpcStatus putEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                          std::uint32_t end, std::uint32_t escapedClass) {
    if (start >= end) {
        return EPC_OK;
    }
    const char* const last = base + end;
    for (const char* first = base + start; first < last; ++first) {
        const char* const escaped = findEscaped(first, last, escapedClass);
        EPC_TRY(putFitting(buffer, {first, escaped}));
        if (escaped == last) {
            return EPC_OK;
        }
        EPC_TRY(textBufferPutEscape(buffer, *escaped));
        first = escaped;
    }
    return EPC_OK;
}

} // namespace

EpcStatus textBufferPutDecimal(TextBuffer& buffer, std::uint64_t value) {
    const std::int32_t digits = decimalDigitCount(value);
    if (digits > textBufferRoom(buffer)) {
        return EPC_ERR_NO_ROOM;
    }
    putDigits(buffer, value, digits);
    return EPC_OK;
}

EpcStatus textBufferPutPadded(TextBuffer& buffer, std::uint64_t value, std::int32_t width) {
    if (width == 0) {
        return value == 0 ? EPC_OK : EPC_ERR_OUT_OF_RANGE;
    }
    if (decimalDigitCount(value) > width) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    if (width > textBufferRoom(buffer)) {
        return EPC_ERR_NO_ROOM;
    }
    putDigits(buffer, value, width);
    return EPC_OK;
}

EpcStatus textBufferPutHex(TextBuffer& buffer, const std::uint8_t* bytes, std::int32_t count) {
    const std::int32_t room = textBufferRoom(buffer);
    if (count > room / 2) {
        return putHexCut(buffer, bytes, room);
    }
    buffer.writePointer = hexPutBytes(buffer.writePointer, bytes, count);
    *buffer.writePointer = '\0';
    return EPC_OK;
}

EpcStatus textBufferPutEscape(TextBuffer& buffer, char character) {
    EPC_TRY(textBufferPutChar(buffer, '%'));
    const auto byte = static_cast<std::uint8_t>(character);
    return textBufferPutHex(buffer, &byte, 1);
}

EpcStatus textBufferPutEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                    std::uint32_t end) {
    return putEscapedRange(buffer, base, start, end, CHAR_CLASS_URI_ESCAPE);
}

EpcStatus textBufferPutLinkEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                        std::uint32_t end) {
    return putEscapedRange(buffer, base, start, end, CHAR_CLASS_LINK_ESCAPE);
}

} // namespace rosetag
