#include "core/text_buffer.h"

#include "core/char_class.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>

namespace {

constexpr char hexDigits[] = "0123456789ABCDEF";

constexpr std::array<std::uint64_t, 20> powersOfTen = [] {
    std::array<std::uint64_t, 20> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

EpcStatus putEscaped(TextBuffer& buffer, char character, std::uint32_t escapedClass) {
    if (!charIsOfClass(character, escapedClass)) {
        return textBufferPutChar(buffer, character);
    }
    EPC_TRY(textBufferPutChar(buffer, '%'));
    const auto byte = static_cast<std::uint8_t>(character);
    return textBufferPutHex(buffer, &byte, 1);
}

EpcStatus putEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                          std::uint32_t end, std::uint32_t escapedClass) {
    for (std::uint32_t i = start; i < end; ++i) {
        EPC_TRY(putEscaped(buffer, base[i], escapedClass));
    }
    return EPC_OK;
}

} // namespace

std::int32_t decimalDigitCount(std::uint64_t value) {
    // 1233 / 4096 is below log10(2) by so little that the whole part is right for all 64 widths.
    const auto bits = static_cast<std::int32_t>(std::bit_width(value | 1));
    const std::int32_t lower = bits * 1233 >> 12;
    return lower + (value >= powersOfTen[static_cast<std::size_t>(lower)] || value == 0 ? 1 : 0);
}

EpcStatus textBufferPutDecimal(TextBuffer& buffer, std::uint64_t value) {
    const std::int32_t digits = decimalDigitCount(value);
    if (digits > textBufferRoom(buffer)) {
        return EPC_ERR_NO_ROOM;
    }
    char* const last = buffer.writePointer + digits;
    buffer.writePointer = std::to_chars(buffer.writePointer, last, value).ptr;
    *buffer.writePointer = '\0';
    return EPC_OK;
}

EpcStatus textBufferPutPadded(TextBuffer& buffer, std::uint64_t value, std::int32_t width) {
    if (width == 0) {
        return value == 0 ? EPC_OK : EPC_ERR_OUT_OF_RANGE;
    }
    const std::int32_t digits = decimalDigitCount(value);
    if (digits > width) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    if (width > textBufferRoom(buffer)) {
        return EPC_ERR_NO_ROOM;
    }
    buffer.writePointer = std::fill_n(buffer.writePointer, width - digits, '0');
    return textBufferPutDecimal(buffer, value);
}

EpcStatus textBufferPutHex(TextBuffer& buffer, const std::uint8_t* bytes, std::int32_t count) {
    const std::int32_t room = textBufferRoom(buffer);
    const std::int32_t wholeBytes = std::clamp(room / 2, 0, std::max(count, 0));
    char* out = buffer.writePointer;
    for (const std::uint8_t* byte = bytes; byte != bytes + wholeBytes; ++byte) {
        *out++ = hexDigits[*byte >> 4];
        *out++ = hexDigits[*byte & 0xF];
    }
    const bool isCut = wholeBytes < count;
    if (isCut && room % 2 != 0) {
        *out++ = hexDigits[bytes[wholeBytes] >> 4];
    }
    buffer.writePointer = out;
    *out = '\0';
    return isCut ? EPC_ERR_NO_ROOM : EPC_OK;
}

EpcStatus textBufferPutEscapedChar(TextBuffer& buffer, char character) {
    return putEscaped(buffer, character, CHAR_CLASS_URI_ESCAPE);
}

EpcStatus textBufferPutEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                    std::uint32_t end) {
    return putEscapedRange(buffer, base, start, end, CHAR_CLASS_URI_ESCAPE);
}

EpcStatus textBufferPutLinkEscapedRange(TextBuffer& buffer, const char* base, std::uint32_t start,
                                        std::uint32_t end) {
    return putEscapedRange(buffer, base, start, end, CHAR_CLASS_LINK_ESCAPE);
}
