#include "before/recognise/value_form.h"

#include "before/recognise/barcode_text.h"

#include <algorithm>
#include <array>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::size_t longestInMessage = 100;

bool beginsWithIgnoringCase(std::string_view text, std::string_view lowerCasePrefix) {
    return text.size() >= lowerCasePrefix.size() &&
           std::ranges::equal(text.substr(0, lowerCasePrefix.size()), lowerCasePrefix,
                              [](char left, char right) {
                                  return (left >= 'A' && left <= 'Z' ? left + 32 : left) == right;
                              });
}

bool isHexOrGap(char character) {
    return isHexDigit(character) || character == ' ' || character == '-';
}

bool looksLikeHex(std::string_view value) {
    return value.starts_with("0x") || value.starts_with("0X") ||
           (std::ranges::all_of(value, isHexOrGap) && std::ranges::any_of(value, isHexDigit));
}

// A Web address without its scheme: a host with a dot in front of the first "/".
bool looksLikeHostAndPath(std::string_view value) {
    const std::string_view host = value.substr(0, value.find('/'));
    const auto isHostCharacter = [](char character) {
        return isDigit(character) || (character >= 'a' && character <= 'z') ||
               (character >= 'A' && character <= 'Z') || character == '.' || character == '-' ||
               character == ':';
    };
    return host.size() < value.size() && host.find('.') != std::string_view::npos &&
           std::ranges::all_of(host, isHostCharacter);
}

std::size_t commonLength(std::string_view left, std::string_view right) {
    return static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
}

struct Stop {
    std::size_t position; // characters understood
    std::string expected; // what would have been taken behind them
};

Stop stopOf(std::string_view value) {
    const std::size_t tag = commonLength(value, TAG_URI_PREFIX);
    const std::size_t pure = commonLength(value, PURE_URI_PREFIX);
    constexpr std::size_t common = std::string_view("urn:epc:").size();
    const std::size_t uri = std::max(tag, pure);
    if (uri >= common) {
        return {common, R"("tag:" or "id:")"};
    }
    if (uri > 0) {
        return {uri, '"' + std::string(TAG_URI_PREFIX.substr(uri, common - uri)) + '"'};
    }
    const auto notHex = std::ranges::find_if_not(value, isHexOrGap);
    return {static_cast<std::size_t>(notHex - value.begin()), "a hexadecimal digit"};
}

} // namespace

ValueForm valueFormOf(std::string_view value, bool asBarcode) {
    if (value.starts_with(TAG_URI_PREFIX)) {
        return ValueForm::TAG_URI;
    }
    if (value.starts_with(PURE_URI_PREFIX)) {
        return ValueForm::PURE_URI;
    }
    if (value.starts_with('(')) {
        return ValueForm::ELEMENT_STRING;
    }
    if (value.starts_with('/') || beginsWithIgnoringCase(value, "https://") ||
        beginsWithIgnoringCase(value, "http://")) {
        return ValueForm::LINK;
    }
    if (asBarcode || value.starts_with(']') || holdsGroupSeparator(value)) {
        return ValueForm::BARCODE;
    }
    if (looksLikeHex(value)) {
        return ValueForm::HEX;
    }
    return looksLikeHostAndPath(value) ? ValueForm::LINK : ValueForm::UNKNOWN;
}

std::string_view valueFormName(ValueForm form) {
    constexpr std::array<std::string_view, 7> names = {
        "an EPC value in hex",       "an EPC tag URI",   "an EPC pure identity URI",
        "a GS1 element string",      "a barcode string", "a GS1 Digital Link",
        "nothing that is known here"};
    return names[static_cast<std::size_t>(form)];
}

std::string valueFormUnknown(std::string_view value) {
    if (value.empty()) {
        return "the value is empty";
    }
    const Stop stop = stopOf(value);
    std::string text;
    if (stop.position == 0) {
        text = "no form of a value begins with \"" + textForMessage(value.substr(0, 1)) + '"';
    } else {
        text = "understood \"" + textForMessage(value.substr(0, stop.position)) + "\", then ";
        text += stop.position < value.size()
                    ? "stopped at character " + std::to_string(stop.position + 1) + ", \"" +
                          textForMessage(value.substr(stop.position, 12)) + '"'
                    : "the text ended";
        text += ", where " + stop.expected + " would have been taken";
    }
    return text +
           "\n  A value is one of:"
           "\n    hex of a tag's EPC or TID memory    3074257BF7194E4000001A85"
           "\n    an EPC URI                          urn:epc:tag:... or urn:epc:id:..."
           "\n    a GS1 element string                (01)80614141123458(21)6789"
           "\n    a barcode string                    ]C1..., or any with --barcode"
           "\n    a GS1 Digital Link                  /01/80614141123458/21/6789 or https://...";
}

std::string hexDigitsOf(std::string_view value) {
    if (value.starts_with("0x") || value.starts_with("0X")) {
        value.remove_prefix(2);
    }
    std::string digits(value);
    std::erase_if(digits, [](char character) { return character == ' ' || character == '-'; });
    return digits;
}

bool hexIsTid(std::string_view hexDigits) {
    return hexDigits.starts_with("E2") || hexDigits.starts_with("e2");
}

std::string textForMessage(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string shown;
    for (const char character : text.substr(0, longestInMessage)) {
        const auto code = static_cast<unsigned char>(character);
        if (character == GROUP_SEPARATOR) {
            shown += GROUP_SEPARATOR_SPELLED;
        } else if (code < 32 || code == 127) {
            shown += std::string("\\x") + digits[code >> 4] + digits[code & 15];
        } else {
            shown += character;
        }
    }
    if (text.size() > longestInMessage) {
        shown += "... (" + std::to_string(text.size()) + " characters)";
    }
    return shown;
}

bool isAllDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

} // namespace before
} // namespace rosetag
