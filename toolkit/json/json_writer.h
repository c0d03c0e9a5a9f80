/*
 * Writes JSON into a string, without white space. Commas are added automatically; the text is
 * complete when every object and array has ended.
 *
 * Source: RFC 8259.
 */
#ifndef ROSETAG_TOOLKIT_JSON_JSON_WRITER_H
#define ROSETAG_TOOLKIT_JSON_JSON_WRITER_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace rosetag {

// What is written collects in room until the outermost object or array ends: to append a few
// characters to a string takes longer than to convert them.
struct JsonWriter {
    explicit JsonWriter(std::string& target) : text(target) {}

    std::string& text;
    bool needsComma = false; // before the next key or element
    std::size_t depth = 0;   // of objects and arrays
    std::size_t used = 0;
    std::array<char, 2048> room; // without an initialiser, for its time
};

void jsonBegin(JsonWriter& json, char bracket);
void jsonEnd(JsonWriter& json, char bracket);

// Begins a member. key needs no escapes.
void jsonKey(JsonWriter& json, std::string_view key);

// Values. Bytes that are not UTF-8 become U+FFFD.
void jsonText(JsonWriter& json, std::string_view text);
void jsonNumber(JsonWriter& json, std::uint64_t number);
void jsonBool(JsonWriter& json, bool value);

// Members, and a member that is left out where the text is empty.
void jsonMember(JsonWriter& json, std::string_view key, std::string_view text);
void jsonMemberIfAny(JsonWriter& json, std::string_view key, std::string_view text);
void jsonMember(JsonWriter& json, std::string_view key, std::uint64_t number);
void jsonMemberBool(JsonWriter& json, std::string_view key, bool value);

} // namespace rosetag

#endif
