#include "json/json_writer.h"

#include "core/hex_digits.h"

#include <array>
#include <charconv>
#include <cstring>

namespace rosetag {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

unsigned char byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool isPlain(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code >= 0x20 && code < 0x80 && character != '"' && character != '\\';
}

// How many characters at the start of a text stand for themselves.
std::size_t plainLength(std::string_view text) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highs = 0x8080808080808080;
    std::size_t length = 0;
    // Eight at a time: a high bit is set for a byte that is below 0x20, above 0x7F, a quote or a
    // backslash, and perhaps for one beside it.
    for (; length + 8 <= text.size(); length += 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + length, 8);
        const std::uint64_t quote = bytes ^ (ones * '"');
        const std::uint64_t backslash = bytes ^ (ones * '\\');
        const std::uint64_t special =
            bytes | (bytes - ones * 0x20) | (quote - ones) | (backslash - ones);
        if ((special & highs) != 0) {
            break;
        }
    }
    while (length < text.size() && isPlain(text[length])) {
        ++length;
    }
    return length;
}

// The length of the UTF-8 sequence at the start of a text, 0 if there is none.
//
// Source: The Unicode Standard, table 3-7 (well-formed byte sequences).
std::size_t sequenceLength(std::string_view text) {
    struct Row {
        unsigned char firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    // clang-format off
    constexpr std::array<Row, 8> rows = {{
        // first byte  second byte  bytes
        {0xC2, 0xDF,   0x80, 0xBF,  2},
        {0xE0, 0xE0,   0xA0, 0xBF,  3},
        {0xE1, 0xEC,   0x80, 0xBF,  3},
        {0xED, 0xED,   0x80, 0x9F,  3},
        {0xEE, 0xEF,   0x80, 0xBF,  3},
        {0xF0, 0xF0,   0x90, 0xBF,  4},
        {0xF1, 0xF3,   0x80, 0xBF,  4},
        {0xF4, 0xF4,   0x80, 0x8F,  4},
    }};
    // clang-format on
    const unsigned char first = byteAt(text, 0);
    for (const Row& row : rows) {
        if (first < row.firstLow || first > row.firstHigh) {
            continue;
        }
        if (text.size() < row.length || byteAt(text, 1) < row.secondLow ||
            byteAt(text, 1) > row.secondHigh) {
            return 0;
        }
        for (std::size_t i = 2; i < row.length; ++i) {
            if ((byteAt(text, i) & 0xC0) != 0x80) {
                return 0;
            }
        }
        return row.length;
    }
    return 0;
}

void putEscape(std::string& text, char character) {
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    constexpr std::string_view names = "\"\\bfnrt";
    text += '\\';
    if (const std::size_t at = named.find(character); at != std::string_view::npos) {
        text += names[at];
        return;
    }
    const auto code = static_cast<unsigned char>(character);
    text += "u00";
    text += HEX_DIGITS_LOWER[code >> 4];
    text += HEX_DIGITS_LOWER[code & 15];
}

void putComma(JsonWriter& json) {
    if (json.needsComma) {
        json.text += ',';
    }
    json.needsComma = true;
}

} // namespace

void jsonBegin(JsonWriter& json, char bracket) {
    putComma(json);
    json.text += bracket;
    json.needsComma = false;
}

void jsonEnd(JsonWriter& json, char bracket) {
    json.text += bracket;
    json.needsComma = true;
}

void jsonKey(JsonWriter& json, std::string_view key) {
    putComma(json);
    json.text += '"';
    json.text += key;
    json.text += "\":";
    json.needsComma = false;
}

void jsonText(JsonWriter& json, std::string_view text) {
    putComma(json);
    json.text += '"';
    while (!text.empty()) {
        const std::size_t plain = plainLength(text);
        json.text += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        if (byteAt(text, 0) < 0x80) {
            putEscape(json.text, text.front());
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = sequenceLength(text);
        json.text += length == 0 ? replacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    json.text += '"';
}

void jsonNumber(JsonWriter& json, std::uint64_t number) {
    putComma(json);
    std::array<char, 20> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    json.text.append(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
}

void jsonBool(JsonWriter& json, bool value) {
    putComma(json);
    json.text += value ? "true" : "false";
}

void jsonMember(JsonWriter& json, std::string_view key, std::string_view text) {
    jsonKey(json, key);
    jsonText(json, text);
}

void jsonMemberIfAny(JsonWriter& json, std::string_view key, std::string_view text) {
    if (!text.empty()) {
        jsonMember(json, key, text);
    }
}

void jsonMember(JsonWriter& json, std::string_view key, std::uint64_t number) {
    jsonKey(json, key);
    jsonNumber(json, number);
}

void jsonMemberBool(JsonWriter& json, std::string_view key, bool value) {
    jsonKey(json, key);
    jsonBool(json, value);
}

} // namespace rosetag
