#include "before/recognise/barcode_text.h"

#include "before/words/ai_dictionary.h"

#include <algorithm>
#include <array>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::array<std::string_view, 4> spellings = {"{GS}", "{gs}", "\\x1d", "\\x1D"};

void replaceAll(std::string& text, std::string_view what, std::string_view with) {
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

} // namespace

bool holdsGroupSeparator(std::string_view text) {
    if (text.find(GROUP_SEPARATOR) != std::string_view::npos) {
        return true;
    }
    for (const std::string_view spelling : spellings) {
        if (text.find(spelling) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

std::string groupSeparatorsRaw(std::string_view text) {
    std::string raw(text);
    for (const std::string_view spelling : spellings) {
        replaceAll(raw, spelling, std::string_view(&GROUP_SEPARATOR, 1));
    }
    return raw;
}

std::string groupSeparatorsSpelled(std::string_view text) {
    std::string spelled(text);
    replaceAll(spelled, std::string_view(&GROUP_SEPARATOR, 1), GROUP_SEPARATOR_SPELLED);
    return spelled;
}

std::string barcodeStringOf(const std::vector<AiValue>& ais) {
    std::string text;
    bool separatorDue = false;
    for (const AiValue& ai : ais) {
        if (separatorDue) {
            text += GROUP_SEPARATOR;
        }
        text += ai.ai + ai.value;
        separatorDue = aiNeedsSeparator(ai.ai);
    }
    return text;
}

std::string elementStringOf(const std::vector<AiValue>& ais) {
    std::string text;
    for (const AiValue& ai : ais) {
        text += '(' + ai.ai + ')' + ai.value;
    }
    return text;
}

bool canStandInBrackets(const std::vector<AiValue>& ais) {
    return std::ranges::all_of(
        ais, [](const AiValue& ai) { return ai.value.find('(') == std::string::npos; });
}

} // namespace before
} // namespace rosetag
