#include "json/json_writer.h"

#include "core/hex_digits.h"
#include "words/utf8.h"

#include <algorithm>
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

// True only if all eight characters stand for themselves, but not always when they do.
bool areEightPlain(std::uint64_t bytes) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highs = 0x8080808080808080;
    // A high bit is set for a byte that is below 0x20, above 0x7F, a quote or a backslash, and
    // perhaps for one beside it.
    const std::uint64_t quote = bytes ^ (ones * '"');
    const std::uint64_t backslash = bytes ^ (ones * '\\');
    const std::uint64_t special =
        bytes | (bytes - ones * 0x20) | (quote - ones) | (backslash - ones);
    return (special & highs) == 0;
}

// How many characters at the start of a text stand for themselves.
std::size_t plainLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && isPlain(text[length])) {
        ++length;
    }
    return length;
}

// Copies the bytes of a number and returns them.
template <typename Number>
Number copyBytes(char* to, const char* from) {
    Number bytes = 0;
    std::memcpy(&bytes, from, sizeof bytes);
    std::memcpy(to, &bytes, sizeof bytes);
    return bytes;
}

// Copies a text of a few characters, the last ones perhaps twice. Gives its end.
char* copyShort(char* to, std::string_view text) {
    constexpr std::size_t half = sizeof(std::uint32_t);
    constexpr std::size_t whole = sizeof(std::uint64_t);
    const std::size_t size = text.size();
    if (size >= whole && size <= 2 * whole) {
        copyBytes<std::uint64_t>(to, text.data());
        copyBytes<std::uint64_t>(to + size - whole, text.data() + size - whole);
        return to + size;
    }
    if (size >= half && size < whole) {
        copyBytes<std::uint32_t>(to, text.data());
        copyBytes<std::uint32_t>(to + size - half, text.data() + size - half);
        return to + size;
    }
    return std::copy(text.begin(), text.end(), to);
}

// Copies a text that stands for itself, the last characters perhaps twice. False if a character of
// it does not, or does not seem to.
bool copyPlain(char* to, std::string_view text) {
    constexpr std::size_t half = sizeof(std::uint32_t);
    constexpr std::size_t whole = sizeof(std::uint64_t);
    const std::size_t size = text.size();
    if (size < half) {
        std::copy(text.begin(), text.end(), to);
        return plainLength(text) == size;
    }
    if (size < whole) {
        const std::uint64_t first = copyBytes<std::uint32_t>(to, text.data());
        const std::uint64_t last =
            copyBytes<std::uint32_t>(to + size - half, text.data() + size - half);
        return areEightPlain(first << 32 | last);
    }
    for (std::size_t at = 0; at < size - whole; at += whole) {
        if (!areEightPlain(copyBytes<std::uint64_t>(to + at, text.data() + at))) {
            return false;
        }
    }
    return areEightPlain(copyBytes<std::uint64_t>(to + size - whole, text.data() + size - whole));
}

void emptyRoom(JsonWriter& json) {
    json.text.append(json.room.data(), json.used);
    json.used = 0;
}

// The most that can be asked for is the whole room.
void makeRoom(JsonWriter& json, std::size_t more) {
    if (json.room.size() - json.used < more) {
        emptyRoom(json);
    }
}

void put(JsonWriter& json, std::string_view text) {
    makeRoom(json, text.size());
    if (text.size() > json.room.size()) {
        json.text += text;
        return;
    }
    std::copy(text.begin(), text.end(), json.room.data() + json.used);
    json.used += text.size();
}

void putEscape(JsonWriter& json, char character) {
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    constexpr std::string_view names = "\"\\bfnrt";
    put(json, "\\");
    if (const std::size_t at = named.find(character); at != std::string_view::npos) {
        put(json, names.substr(at, 1));
        return;
    }
    const auto code = static_cast<unsigned char>(character);
    put(json, "u00");
    put(json, HEX_DIGITS_LOWER.substr(code >> 4, 1));
    put(json, HEX_DIGITS_LOWER.substr(code & 15, 1));
}

// Puts a text of which some characters may have to be written otherwise.
void putEscaped(JsonWriter& json, std::string_view text) {
    while (!text.empty()) {
        const std::size_t plain = plainLength(text);
        put(json, text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        if (byteAt(text, 0) < 0x80) {
            putEscape(json, text.front());
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = utf8Length(text);
        put(json, length == 0 ? replacement : text.substr(0, length));
        text.remove_prefix(length == 0 ? 1 : length);
    }
}

// Where the next character goes. There is room for so many more.
char* roomFor(JsonWriter& json, std::size_t more) {
    makeRoom(json, more);
    return json.room.data() + json.used;
}

void endAt(JsonWriter& json, const char* end) {
    json.used = static_cast<std::size_t>(end - json.room.data());
}

// Puts a comma where one belongs.
char* putComma(JsonWriter& json, char* at) {
    *at = ',';
    return at + (json.needsComma ? 1 : 0);
}

// The signs around a key or a text.
constexpr std::size_t MOST_SIGNS = 4;

} // namespace

void jsonBegin(JsonWriter& json, char bracket) {
    char* at = putComma(json, roomFor(json, MOST_SIGNS));
    *at++ = bracket;
    endAt(json, at);
    json.needsComma = false;
    ++json.depth;
}

void jsonEnd(JsonWriter& json, char bracket) {
    put(json, {&bracket, 1});
    json.needsComma = true;
    if (--json.depth == 0) {
        emptyRoom(json);
    }
}

void jsonKey(JsonWriter& json, std::string_view key) {
    char* at = putComma(json, roomFor(json, key.size() + MOST_SIGNS));
    *at++ = '"';
    at = copyShort(at, key);
    *at++ = '"';
    *at++ = ':';
    endAt(json, at);
    json.needsComma = false;
}

void jsonText(JsonWriter& json, std::string_view text) {
    const bool fits = text.size() + MOST_SIGNS <= json.room.size();
    char* at = putComma(json, roomFor(json, MOST_SIGNS + (fits ? text.size() : 0)));
    *at++ = '"';
    endAt(json, at);
    json.needsComma = true;
    if (fits && copyPlain(at, text)) {
        at[text.size()] = '"';
        endAt(json, at + text.size() + 1);
        return;
    }
    putEscaped(json, text);
    put(json, "\"");
}

void jsonNumber(JsonWriter& json, std::uint64_t number) {
    constexpr std::size_t mostDigits = 20;
    char* const at = putComma(json, roomFor(json, mostDigits + MOST_SIGNS));
    endAt(json, std::to_chars(at, at + mostDigits, number).ptr);
    json.needsComma = true;
}

void jsonBool(JsonWriter& json, bool value) {
    endAt(json, putComma(json, roomFor(json, MOST_SIGNS)));
    put(json, value ? "true" : "false");
    json.needsComma = true;
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
