#include "values/text_encoding.h"

#include "core/field_run.h"
#include "values/number_kinds.h"

#include <iterator>

namespace rosetag {

namespace {

constexpr std::uint32_t AI_TEXT_CLASSES = CHAR_CLASS_AI82 | CHAR_CLASS_AI39;

constexpr std::string_view hexUpperAlphabet = "0123456789ABCDEF";
constexpr std::string_view hexLowerAlphabet = "0123456789abcdef";
constexpr CharValues hexUpperValues = charValuesOf(hexUpperAlphabet);
constexpr CharValues hexLowerValues = charValuesOf(hexLowerAlphabet);

constexpr std::array<char, 128> iso646CharactersMake() {
    std::array<char, 128> characters{};
    for (std::size_t code = 0; code < characters.size(); ++code) {
        const auto character = static_cast<char>(code);
        characters[code] = charIsOfClass(character, AI_TEXT_CLASSES) ? character : '\0';
    }
    return characters;
}

// The value of a character is its code. NUL stands at the codes of characters that no AI may hold.
constexpr std::array<char, 128> iso646Characters = iso646CharactersMake();
constexpr std::string_view iso646Alphabet = {iso646Characters.data(), iso646Characters.size()};
constexpr CharValues iso646ValuesMake() {
    CharValues values{};
    for (std::size_t code = 0; code < values.size(); ++code) {
        values[code] = iso646Alphabet[code] == '\0' ? -1 : static_cast<std::int8_t>(code);
    }
    return values;
}

constexpr CharValues iso646Values = iso646ValuesMake();

constexpr std::array<std::uint8_t, 128> charFlagsMake() {
    struct Members {
        AiCharFlag flag;
        std::string_view characters;
    };
    constexpr Members members[] = {
        {AI_CHAR_DIGIT, "0123456789"},
        {AI_CHAR_HEX_UPPER, "ABCDEF"},
        {AI_CHAR_HEX_LOWER, "abcdef"},
        {AI_CHAR_UPPER, "GHIJKLMNOPQRSTUVWXYZ"},
        {AI_CHAR_DOT_COLON, ".:"},
        {AI_CHAR_HYPHEN, "-"},
        {AI_CHAR_LOWER, "ghijklmnopqrstuvwxyz"},
        {AI_CHAR_UNDERSCORE, "_"},
    };
    std::array<std::uint8_t, 128> flags{};
    for (const Members& row : members) {
        for (const char character : row.characters) {
            flags[static_cast<unsigned char>(character)] = row.flag;
        }
    }
    return flags;
}

// -1 for a character outside the alphabet.
std::int32_t charValue(const CharValues& values, char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < values.size() ? values[code] : -1;
}

// Characters of charBits bits each.
template <std::int32_t charBits>
EpcStatus encodeCharacters(TextCursor& cursor, BitBuffer& out, const CharValues& values) {
    const auto count = static_cast<std::int32_t>(textCursorLeft(cursor));
    return fieldRunPut<charBits>(out, count, [&](std::uint64_t& field) -> EpcStatus {
        const std::int32_t value = charValue(values, *cursor.current);
        if (value < 0) {
            return EPC_ERR_BAD_CHARACTER;
        }
        field = static_cast<std::uint64_t>(value);
        ++cursor.current;
        return EPC_OK;
    });
}

template <std::int32_t charBits>
EpcStatus decodeCharacters(BitBuffer& bits, TextBuffer& text, std::string_view alphabet,
                           std::int32_t count) {
    return fieldRunGet<charBits>(bits, count, [&](std::uint32_t field) -> EpcStatus {
        const char character = alphabet[field];
        return character == '\0' ? EPC_ERR_BAD_CHARACTER : textBufferPutChar(text, character);
    });
}

EpcStatus encodeHexUpper(TextCursor& cursor, BitBuffer& out) {
    return encodeCharacters<4>(cursor, out, hexUpperValues);
}

EpcStatus decodeHexUpper(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    return decodeCharacters<4>(bits, text, hexUpperAlphabet, count);
}

EpcStatus encodeHexLower(TextCursor& cursor, BitBuffer& out) {
    return encodeCharacters<4>(cursor, out, hexLowerValues);
}

EpcStatus decodeHexLower(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    return decodeCharacters<4>(bits, text, hexLowerAlphabet, count);
}

EpcStatus aiEncodeBase64Url(TextCursor& cursor, BitBuffer& out) {
    return encodeCharacters<6>(cursor, out, base64UrlValues);
}

EpcStatus aiDecodeBase64Url(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    return decodeCharacters<6>(bits, text, base64UrlAlphabet, count);
}

EpcStatus encodeIso646(TextCursor& cursor, BitBuffer& out) {
    return encodeCharacters<7>(cursor, out, iso646Values);
}

EpcStatus decodeIso646(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    return decodeCharacters<7>(bits, text, iso646Alphabet, count);
}

constexpr std::int32_t CODE40_GROUP = 3;
constexpr std::uint32_t CODE40_LARGEST = 64000; // 40 to the power of 3: a group is stored plus 1

// Three characters, the last group filled up with the value 0.
EpcStatus aiEncodeCode40(TextCursor& cursor, BitBuffer& out) {
    const auto count = static_cast<std::int32_t>(textCursorLeft(cursor));
    const std::int32_t groups = (count + CODE40_GROUP - 1) / CODE40_GROUP;
    return fieldRunPut<16>(out, groups, [&cursor](std::uint64_t& group) -> EpcStatus {
        std::int32_t sum = 0;
        for (std::int32_t i = 0; i < CODE40_GROUP; ++i) {
            const bool isFill = textCursorAtEnd(cursor);
            const std::int32_t value = isFill ? 0 : charValue(code40Values, *cursor.current++);
            if (value < 0) {
                return EPC_ERR_BAD_CHARACTER;
            }
            sum = sum * 40 + value;
        }
        group = static_cast<std::uint64_t>(sum) + 1;
        return EPC_OK;
    });
}

// The value 0 is no character.
EpcStatus putCode40Group(TextBuffer& text, std::uint32_t group) {
    if (group < 1 || group > CODE40_LARGEST) {
        return EPC_ERR_BAD_FORMAT;
    }
    const std::uint32_t sum = group - 1;
    for (const std::uint32_t value : {sum / 1600, sum / 40 % 40, sum % 40}) {
        if (value >= CODE40_FIRST_VALUE) {
            EPC_TRY(textBufferPutChar(text, code40Alphabet[value]));
        }
    }
    return EPC_OK;
}

EpcStatus aiDecodeCode40(BitBuffer& bits, TextBuffer& text, std::int32_t count) {
    const std::int32_t groups = (count + CODE40_GROUP - 1) / CODE40_GROUP;
    return fieldRunGet<16>(bits, groups,
                           [&text](std::uint32_t group) { return putCode40Group(text, group); });
}

struct TextEncoding {
    EpcStatus (*encode)(TextCursor& cursor, BitBuffer& out);
    EpcStatus (*decode)(BitBuffer& bits, TextBuffer& text, std::int32_t count);
};

// By the indicator.
// clang-format off
constexpr TextEncoding textEncodings[] = {
    // encode            decode
    {aiEncodeInteger,    aiDecodeInteger},    // AI_ENC_INTEGER
    {encodeHexUpper,     decodeHexUpper},     // AI_ENC_HEX_UPPER
    {encodeHexLower,     decodeHexLower},     // AI_ENC_HEX_LOWER
    {aiEncodeBase64Url,  aiDecodeBase64Url},  // AI_ENC_BASE64URL
    {encodeIso646,       decodeIso646},       // AI_ENC_ISO646
    {aiEncodeCode40,     aiDecodeCode40},     // AI_ENC_CODE40
};
// clang-format on
static_assert(std::size(textEncodings) == AI_ENC_CODE40 + 1);

bool encodingIsKnown(std::int32_t encoding) {
    return encoding >= AI_ENC_INTEGER && encoding <= AI_ENC_CODE40;
}

bool sawNoneBut(std::uint32_t seenFlags, std::uint32_t allowed) {
    return (seenFlags & ~allowed) == 0;
}

} // namespace

constexpr std::array<std::uint8_t, 128> aiCharFlags = charFlagsMake();

EpcStatus aiScanText(TextCursor cursor, std::uint32_t& seenFlags) {
    seenFlags = 0;
    for (; !textCursorAtEnd(cursor); ++cursor.current) {
        if (!charIsOfClass(*cursor.current, AI_TEXT_CLASSES)) {
            return EPC_ERR_BAD_CHARACTER;
        }
        const std::uint32_t flag = aiCharFlags[static_cast<unsigned char>(*cursor.current)];
        seenFlags |= flag != 0 ? flag : AI_CHAR_OTHER;
    }
    return EPC_OK;
}

std::int32_t aiChooseEncoding(std::uint32_t seenFlags, std::ptrdiff_t count) {
    if (count == 0) {
        return AI_ENC_ISO646;
    }
    if (seenFlags == AI_CHAR_DIGIT) {
        return AI_ENC_INTEGER;
    }
    if (sawNoneBut(seenFlags, AI_CHAR_DIGIT | AI_CHAR_HEX_UPPER)) {
        return AI_ENC_HEX_UPPER;
    }
    if (sawNoneBut(seenFlags, AI_CHAR_DIGIT | AI_CHAR_HEX_LOWER)) {
        return AI_ENC_HEX_LOWER;
    }
    constexpr std::uint32_t code40Flags =
        AI_CHAR_DIGIT | AI_CHAR_HEX_UPPER | AI_CHAR_UPPER | AI_CHAR_DOT_COLON | AI_CHAR_HYPHEN;
    const bool fitsBase64Url = (seenFlags & (AI_CHAR_DOT_COLON | AI_CHAR_OTHER)) == 0;
    if (sawNoneBut(seenFlags, code40Flags)) {
        const bool isShorter = 6 * count < aiCode40Bits(count);
        return fitsBase64Url && isShorter ? AI_ENC_BASE64URL : AI_ENC_CODE40;
    }
    return fitsBase64Url ? AI_ENC_BASE64URL : AI_ENC_ISO646;
}

EpcStatus aiEncodePayload(TextCursor& cursor, BitBuffer& out, std::int32_t encoding) {
    if (!encodingIsKnown(encoding)) {
        return EPC_ERR_BAD_FORMAT;
    }
    return textEncodings[encoding].encode(cursor, out);
}

EpcStatus aiDecodePayload(BitBuffer& bits, TextBuffer& text, std::int32_t encoding,
                          std::int32_t count) {
    if (!encodingIsKnown(encoding)) {
        return EPC_ERR_BAD_FORMAT;
    }
    return textEncodings[encoding].decode(bits, text, count);
}

} // namespace rosetag
