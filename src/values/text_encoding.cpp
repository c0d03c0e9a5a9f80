#include "values/text_encoding.h"

#include "core/field_run.h"
#include "values/number_kinds.h"

#include <bit>

namespace rosetag {

namespace {

// The values of the characters by their code; -1 for a character outside the alphabet.
template <std::int32_t encoding>
constexpr std::array<std::int8_t, 256> charValues = []() {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    constexpr std::string_view alphabet = textEncodings[encoding].alphabet;
    for (std::size_t value = 0; value < alphabet.size(); ++value) {
        if (alphabet[value] != '\0') {
            values[static_cast<unsigned char>(alphabet[value])] = static_cast<std::int8_t>(value);
        }
    }
    return values;
}();

template <std::int32_t encoding>
std::int32_t charValue(char character) {
    return charValues<encoding>[static_cast<unsigned char>(character)];
}

template <std::int32_t encoding>
EpcStatus encodeCharacters(TextCursor& cursor, BitBuffer& out) {
    const auto count = static_cast<std::int32_t>(textCursorLeft(cursor));
    const char* next = cursor.current;
    const EpcStatus status = fieldRunPut<textEncodings[encoding].groupBits>(
        out, count, [&next](std::uint64_t& field) -> EpcStatus {
            const std::int32_t value = charValue<encoding>(*next++);
            field = static_cast<std::uint64_t>(value);
            return value < 0 ? EPC_ERR_BAD_CHARACTER : EPC_OK;
        });
    cursor.current += status == EPC_OK ? count : 0;
    return status;
}

// If there is room for all characters, that is tested only once.
template <std::int32_t encoding>
EpcStatus decodeCharacters(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    constexpr std::string_view alphabet = textEncodings[encoding].alphabet;
    constexpr std::int32_t groupBits = textEncodings[encoding].groupBits;
    if (textBufferRoom(text) < count) {
        return fieldRunGet<groupBits>(bits, count, [&](std::uint32_t field) -> EpcStatus {
            const char character = alphabet[field];
            return character == '\0' ? EPC_ERR_BAD_CHARACTER : textBufferPutChar(text, character);
        });
    }
    char* next = text.writePointer;
    const EpcStatus status =
        fieldRunGet<groupBits>(bits, count, [&](std::uint32_t field) -> EpcStatus {
            const char character = alphabet[field];
            *next = character;
            next += character != '\0' ? 1 : 0;
            return character == '\0' ? EPC_ERR_BAD_CHARACTER : EPC_OK;
        });
    *next = '\0';
    text.writePointer = next;
    return status;
}

constexpr TextEncoding code40 = textEncodings[AI_ENC_CODE40];

// A group of code-40 is the number of its three values, 40 to a place, plus 1.
constexpr std::uint32_t CODE40_BASE = 40;
constexpr std::uint32_t CODE40_LARGEST = CODE40_BASE * CODE40_BASE * CODE40_BASE;

// The values of the characters of a group, which is 1 to CODE40_LARGEST.
constexpr std::array<std::uint32_t, 3> code40Values(std::uint32_t group) {
    const std::uint32_t number = group - 1;
    return {number / (CODE40_BASE * CODE40_BASE), number / CODE40_BASE % CODE40_BASE,
            number % CODE40_BASE};
}

constexpr std::int32_t code40Groups(std::int32_t count) {
    return (count + code40.groupSize - 1) / code40.groupSize;
}

EpcStatus encodeCode40(TextCursor& cursor, BitBuffer& out) {
    const std::int32_t groups = code40Groups(static_cast<std::int32_t>(textCursorLeft(cursor)));
    return fieldRunPut<code40.groupBits>(out, groups, [&cursor](std::uint64_t& group) -> EpcStatus {
        std::uint32_t sum = 0;
        for (std::int32_t i = 0; i < code40.groupSize; ++i) {
            const bool isFill = textCursorAtEnd(cursor);
            const std::int32_t value = isFill ? 0 : charValue<AI_ENC_CODE40>(*cursor.current++);
            if (value < 0) {
                return EPC_ERR_BAD_CHARACTER;
            }
            sum = sum * CODE40_BASE + static_cast<std::uint32_t>(value);
        }
        group = sum + 1;
        return EPC_OK;
    });
}

// Padding is skipped wherever it occurs.
EpcStatus putCode40Group(TextBuffer& text, std::uint32_t group) {
    if (group < 1 || group > CODE40_LARGEST) {
        return EPC_ERR_BAD_FORMAT;
    }
    for (const std::uint32_t value : code40Values(group)) {
        if (code40.alphabet[value] != '\0') {
            EPC_TRY(textBufferPutChar(text, code40.alphabet[value]));
        }
    }
    return EPC_OK;
}

EpcStatus decodeCode40(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    return fieldRunGet<code40.groupBits>(bits, code40Groups(count), [&text](std::uint32_t group) {
        return putCode40Group(text, group);
    });
}

struct PayloadCodec {
    EpcStatus (*encode)(TextCursor& cursor, BitBuffer& out);
    EpcStatus (*decode)(BitBuffer& bits, TextBuffer& text, std::int32_t count);
};

// clang-format off
constexpr PayloadCodec payloadCodecs[] = {
    // encode                              decode
    {aiEncodeInteger,                      aiDecodeInteger},
    {encodeCharacters<AI_ENC_HEX_UPPER>,   decodeCharacters<AI_ENC_HEX_UPPER>},
    {encodeCharacters<AI_ENC_HEX_LOWER>,   decodeCharacters<AI_ENC_HEX_LOWER>},
    {encodeCharacters<AI_ENC_BASE64URL>,   decodeCharacters<AI_ENC_BASE64URL>},
    {encodeCharacters<AI_ENC_ISO646>,      decodeCharacters<AI_ENC_ISO646>},
    {encodeCode40,                         decodeCode40},
};
// clang-format on
static_assert(std::size(payloadCodecs) == std::size(textEncodings));

constexpr bool encodingIsKnown(std::int32_t encoding) {
    return encoding >= 0 && encoding < static_cast<std::int32_t>(std::size(textEncodings));
}

constexpr std::uint32_t flagOf(std::int32_t encoding) {
    return 1U << encoding;
}

// The encodings whose alphabet has the character, as flags; 0 if no AI value may contain it.
constexpr std::array<std::uint8_t, 256> encodingsOfChar = []() {
    std::array<std::uint8_t, 256> flags{};
    for (const char character : textEncodings[AI_ENC_ISO646].alphabet) {
        for (std::int32_t encoding = 0; encodingIsKnown(encoding); ++encoding) {
            const bool isHeld =
                textEncodings[encoding].alphabet.find(character) != std::string_view::npos;
            flags[static_cast<unsigned char>(character)] |=
                static_cast<std::uint8_t>(isHeld && character != '\0' ? flagOf(encoding) : 0);
        }
    }
    return flags;
}();

// Integer and hexadecimal come first, then the shorter of base64url and code-40. ISO 646 can encode
// every character.
std::int32_t encodingOf(std::uint32_t fitting, std::ptrdiff_t count) {
    constexpr std::uint32_t digits =
        flagOf(AI_ENC_INTEGER) | flagOf(AI_ENC_HEX_UPPER) | flagOf(AI_ENC_HEX_LOWER);
    if ((fitting & digits) != 0) {
        return std::countr_zero(fitting & digits);
    }
    const bool fitsBase64Url = (fitting & flagOf(AI_ENC_BASE64URL)) != 0;
    const bool fitsCode40 = (fitting & flagOf(AI_ENC_CODE40)) != 0;
    const bool isShorter =
        textPayloadBits(AI_ENC_BASE64URL, count) < textPayloadBits(AI_ENC_CODE40, count);
    if (fitsBase64Url && (isShorter || !fitsCode40)) {
        return AI_ENC_BASE64URL;
    }
    return fitsCode40 ? AI_ENC_CODE40 : AI_ENC_ISO646;
}

} // namespace

EpcStatus aiChooseEncoding(const TextCursor& cursor, std::int32_t& encoding) {
    const std::ptrdiff_t count = textCursorLeft(cursor);
    if (textCursorAtEnd(cursor)) {
        // A text that begins with a NUL has nothing to choose by; hexadecimal refuses the NUL.
        encoding = count == 0 ? AI_ENC_ISO646 : AI_ENC_HEX_UPPER;
        return EPC_OK;
    }
    std::uint32_t fitting = ~0U;
    for (const char character : std::string_view(cursor.current, static_cast<std::size_t>(count))) {
        const std::uint32_t flags = encodingsOfChar[static_cast<unsigned char>(character)];
        if (flags == 0) {
            if (character == '\0') {
                break;
            }
            return EPC_ERR_BAD_CHARACTER;
        }
        fitting &= flags;
    }
    encoding = encodingOf(fitting, count);
    return EPC_OK;
}

EpcStatus aiEncodePayload(TextCursor& cursor, BitBuffer& out, std::int32_t encoding) {
    return encodingIsKnown(encoding) ? payloadCodecs[encoding].encode(cursor, out)
                                     : EPC_ERR_BAD_FORMAT;
}

EpcStatus aiDecodePayload(BitBuffer& bits, TextBuffer& text, std::int32_t encoding,
                          std::int32_t count) {
    return encodingIsKnown(encoding) ? payloadCodecs[encoding].decode(bits, text, count)
                                     : EPC_ERR_BAD_FORMAT;
}

} // namespace rosetag
