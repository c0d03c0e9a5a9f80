#include "words/shown_text.h"

#include "core/hex_digits.h"
#include "gs1/ai_list.h"

namespace rosetag {

std::string shownText(std::string_view text) {
    constexpr std::size_t longest = 100;
    std::string shown;
    for (const char character : text.substr(0, longest)) {
        const auto code = static_cast<unsigned char>(character);
        if (character == GROUP_SEPARATOR) {
            shown += GROUP_SEPARATOR_SPELLED;
        } else if (code < 32 || code == 127) {
            shown += "\\x";
            shown += hexPairOf(code);
        } else {
            shown += character;
        }
    }
    if (text.size() > longest) {
        shown += "... (" + std::to_string(text.size()) + " characters)";
    }
    return shown;
}

std::string quotedText(std::string_view text) {
    return '"' + shownText(text) + '"';
}

std::string quotedBeginning(std::string_view text) {
    constexpr std::size_t longest = 24;
    return quotedText(text.substr(0, longest)) + (text.size() > longest ? "..." : "");
}

std::string counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count);
    text += ' ';
    text += noun;
    return count == 1 ? text : text + 's';
}

} // namespace rosetag
