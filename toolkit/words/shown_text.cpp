#include "words/shown_text.h"

#include "core/hex_digits.h"
#include "gs1/ai_list.h"
#include "words/utf8.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace rosetag {

namespace {

// Characters that cannot be seen, cannot be told from a blank, or change the order of others.
//
// Source: Unicode Character Database, general categories Cc, Cf, Zl, Zp and Zs.
struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
};

// clang-format off
constexpr CodeRange unseen[] = {
    {0x0080, 0x00A0}, {0x00AD, 0x00AD}, {0x0600, 0x0605}, {0x061C, 0x061C}, {0x06DD, 0x06DD},
    {0x070F, 0x070F}, {0x1680, 0x1680}, {0x180E, 0x180E}, {0x2000, 0x200F}, {0x2028, 0x202F},
    {0x205F, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB},
};
// clang-format on

bool isUnseen(std::uint32_t code) {
    return std::any_of(std::begin(unseen), std::end(unseen), [=](const CodeRange& range) {
        return code >= range.first && code <= range.last;
    });
}

void putBytes(std::string& shown, std::string_view bytes) {
    for (const char byte : bytes) {
        shown += "\\x";
        shown += hexPairOf(static_cast<unsigned char>(byte));
    }
}

void putCodePoint(std::string& shown, std::uint32_t code) {
    shown += "\\u";
    shown += hexPairOf(static_cast<std::uint8_t>(code >> 8));
    shown += hexPairOf(static_cast<std::uint8_t>(code & 0xFF));
}

void putCharacter(std::string& shown, std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.front() == GROUP_SEPARATOR) {
        shown += GROUP_SEPARATOR_SPELLED;
    } else if (first < 0x20 || first == 0x7F || utf8Length(character) == 0) {
        putBytes(shown, character);
    } else if (first >= 0x80 && isUnseen(utf8CodePoint(character))) {
        putCodePoint(shown, utf8CodePoint(character));
    } else {
        shown += character;
    }
}

} // namespace

std::string shownText(std::string_view text, std::size_t longest) {
    const std::string_view beginning = firstCharacters(text, longest);
    std::string shown;
    for (std::string_view rest = beginning; !rest.empty();) {
        const std::string_view character = firstCharacter(rest);
        putCharacter(shown, character);
        rest.remove_prefix(character.size());
    }
    if (beginning.size() < text.size()) {
        shown += "... (" + counted(characterCount(text), "character") + ')';
    }
    return shown;
}

std::string quotedText(std::string_view text) {
    return '"' + shownText(text) + '"';
}

std::string quotedBeginning(std::string_view text) {
    constexpr std::size_t longest = 24;
    const std::string_view beginning = firstCharacters(text, longest);
    return quotedText(beginning) + (beginning.size() < text.size() ? "..." : "");
}

std::string counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count);
    text += ' ';
    text += noun;
    return count == 1 ? text : text + 's';
}

} // namespace rosetag
