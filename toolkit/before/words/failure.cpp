#include "before/words/failure.h"

#include "before/explain/explain.h"
#include "before/explain/explain_ai_values.h"
#include "before/translate/library_calls.h"
#include "before/words/ai_dictionary.h"
#include "before/words/status_meaning.h"

#include <algorithm>
#include <array>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::size_t mostHexDigits = std::size_t{2} * EPC_MAX_BINARY_BYTES;
constexpr std::size_t longestSearched = 400;

EpcStatus statusOfAis(ValueForm form, const std::string& text) {
    switch (form) {
    case ValueForm::ELEMENT_STRING:
        return aiValuesOfElementString(text).status;
    case ValueForm::BARCODE:
        return aiValuesOfBarcode(text).status;
    default:
        return aiValuesOfLink(text).status;
    }
}

// The longest beginning of a text that is a text of its own.
std::size_t readableLength(ValueForm form, const std::string& text) {
    std::size_t length = std::min(text.size(), longestSearched);
    while (length > 0 && statusOfAis(form, text.substr(0, length)) != EPC_OK) {
        --length;
    }
    return length;
}

std::string placeText(const std::string& text, std::size_t position) {
    constexpr std::size_t shown = 24;
    if (position >= text.size()) {
        return "at the end: ";
    }
    const std::string_view rest = std::string_view(text).substr(position);
    return "at character " + std::to_string(position + 1) + ", \"" +
           textForMessage(rest.substr(0, shown)) + (rest.size() > shown ? "...\": " : "\": ");
}

// The digits at the beginning of a text that have a check digit, and their AI, which a symbology of
// GTINs alone does not write.
struct CheckedDigits {
    std::string_view code;
    std::string_view digits;
};

CheckedDigits checkedDigitsOf(std::string_view rest) {
    if (rest.starts_with("]E") || rest.starts_with("]I")) {
        return {"01", rest.substr(std::min<std::size_t>(3, rest.size()))};
    }
    const auto skip = [&](std::size_t most) {
        while (most-- > 0 && !rest.empty() && !isDigit(rest.front())) {
            rest.remove_prefix(1);
        }
    };
    rest.remove_prefix(rest.starts_with(']') ? std::min<std::size_t>(3, rest.size()) : 0);
    skip(1);
    const std::string_view code = rest.substr(0, aiCodeLength(rest.substr(0, 2)));
    rest.remove_prefix(code.size());
    skip(1);
    const AiEntry* const entry = aiEntryOf(code);
    return {code,
            rest.substr(0, entry == nullptr ? 0 : static_cast<std::size_t>(entry->parts[0].size))};
}

std::string checkDigitMessage(std::string_view rest) {
    const auto [code, digits] = checkedDigitsOf(rest);
    if (!isAllDigits(digits)) {
        return "the value of AI " + std::string(code) + " must be digits, the last the check digit";
    }
    return "the check digit of AI " + std::string(code) + " is " + digits.back() + ", and behind " +
           std::string(digits.substr(0, digits.size() - 1)) + " it must be " +
           checkDigitOf(digits.substr(0, digits.size() - 1));
}

// What a scanner puts in front of its data, and how many digits that has where it is a GTIN alone.
struct Symbology {
    std::string_view identifier;
    std::size_t digits;
};
constexpr std::array<Symbology, 6> symbologies = {
    {{"]E0", 13}, {"]E4", 8}, {"]I1", 14}, {"]C1", 0}, {"]e0", 0}, {"]d2", 0}}};

// What is wrong with the beginning of a barcode string, or the empty text.
std::string symbologyMessage(ValueForm form, const std::string& text) {
    if (form != ValueForm::BARCODE || !text.starts_with(']')) {
        return {};
    }
    const std::string identifier = text.substr(0, 3);
    const auto* const symbology =
        std::ranges::find(symbologies, identifier, &Symbology::identifier);
    if (symbology == symbologies.end()) {
        return '"' + textForMessage(identifier) +
               "\" is none of the symbology identifiers ]E0 ]E4 ]I1 ]C1 ]e0 ]d2";
    }
    if (symbology->digits != 0 && text.size() != identifier.size() + symbology->digits) {
        return "behind " + identifier + " stand " + std::to_string(symbology->digits) +
               " digits, and these are " + std::to_string(text.size() - identifier.size());
    }
    return {};
}

// gs1 is the case of a text that reads, and does not fit.
std::string gs1Message(EpcStatus status, ValueForm form, const std::string& text,
                       const StatusCase& gs1) {
    if (statusOfAis(form, text) != status) {
        return statusMeaning(status, gs1);
    }
    if (std::string message = symbologyMessage(form, text); !message.empty()) {
        return message;
    }
    if (form == ValueForm::LINK && !text.starts_with('/') && !text.starts_with('?')) {
        return "a link as it stands begins with \"/\"; without --strict the host is left out";
    }
    const std::size_t position = readableLength(form, text);
    return placeText(text, position) +
           (status == EPC_ERR_CHECK_DIGIT
                ? checkDigitMessage(std::string_view(text).substr(position))
                : statusMeaning(status, {StatusSource::GS1_TEXT, gs1.scheme, form, gs1.filter}));
}

// Digits that are no tag value may be something else that people scan.
std::string hintForDigits(const std::string& digits) {
    constexpr std::size_t shortestBarcode = 16; // AI 01 and a GTIN
    if (!isAllDigits(digits)) {
        return {};
    }
    const bool isGtinLength = digits.size() == 8 || (digits.size() >= 12 && digits.size() <= 14);
    const std::string_view checked = std::string_view(digits).substr(0, digits.size() - 1);
    if (isGtinLength && checkDigitOf(checked) == digits.back()) {
        return "; if it is a GTIN, write (01)" + std::string(14 - digits.size(), '0') + digits;
    }
    const bool isBarcode =
        digits.size() >= shortestBarcode && aiValuesOfBarcode(digits).status == EPC_OK;
    return isBarcode ? "; as a barcode string it reads: --barcode" : "";
}

Failure failureOfBits(EpcStatus status, const std::string& digits) {
    if (status == EPC_ERR_TOO_LONG) {
        return failureOfHex(digits);
    }
    const WalkedBits explanation = explainEpc(digits);
    std::string message = explainFailure(explanation);
    if (message.empty()) {
        message = statusMeaning(status, {StatusSource::BITS});
    } else if (status == EPC_ERR_UNKNOWN_HEADER) {
        message = explanation.walk.fields.back().meaning;
        message += hexIsTid(digits) ? "; a TID begins so, and rosetag tid reads it" : "";
    }
    return {status, message + hintForDigits(digits)};
}

const SchemeEntry* schemeOfUri(ValueForm form, const std::string& text) {
    const bool isTagUri = form == ValueForm::TAG_URI;
    std::string_view rest = text;
    rest.remove_prefix((isTagUri ? TAG_URI_PREFIX : PURE_URI_PREFIX).size());
    const std::string_view word = rest.substr(0, rest.find(':'));
    if (isTagUri) {
        return schemeByName(word);
    }
    const std::vector<const SchemeEntry*> schemes = plainSchemesOfFamily(word);
    return schemes.empty() ? nullptr : schemes.back();
}

} // namespace

Failure failureOfReading(EpcStatus status, ValueForm form, const std::string& text) {
    if (status == EPC_OK) {
        return {};
    }
    if (form == ValueForm::HEX) {
        return failureOfBits(status, text);
    }
    if (valueFormIsGs1(form)) {
        return {status, gs1Message(status, form, text, {StatusSource::GS1_TEXT, nullptr, form, 0})};
    }
    return {status, statusMeaning(status, {StatusSource::URI, schemeOfUri(form, text), form, 0})};
}

Failure failureOfEncoding(EpcStatus status, ValueForm form, const std::string& text,
                          const SchemeEntry& scheme, int filter) {
    if (status == EPC_OK) {
        return {};
    }
    if (!valueFormIsGs1(form)) {
        return {status, statusMeaning(status, {StatusSource::URI, &scheme, form, filter})};
    }
    const StatusSource source = schemeIsPlus(scheme) ? StatusSource::GS1_PLUS : StatusSource::GS1;
    return {status, gs1Message(status, form, text, {source, &scheme, form, filter})};
}

Failure failureOfAiValue(EpcStatus status, const std::string& code, const std::string& value) {
    if (status == EPC_OK) {
        return {};
    }
    if (status == EPC_ERR_UNKNOWN_AI) {
        return {status, "GS1 has assigned no AI " + textForMessage(code)};
    }
    return {status, "AI " + code + " (" + std::string(aiTitle(code)) + ") cannot hold \"" +
                        textForMessage(value) +
                        "\": " + statusMeaning(status, {StatusSource::AI_VALUE})};
}

Failure failureOfAiBits(EpcStatus status, const std::string& code, const std::string& hexDigits) {
    if (status == EPC_OK) {
        return {};
    }
    if (!code.empty() && aiEntryOf(code) == nullptr) {
        return {status, "GS1 has assigned no AI " + textForMessage(code)};
    }
    WalkedBits explanation{"", {bitsOfHex(hexDigits), 0, {}, true}};
    if (code.empty()) {
        walkDataSection(explanation.walk, 0);
    } else {
        walkAiValue(explanation.walk, code);
    }
    const std::string message = explainFailure(explanation);
    return {status, message.empty() ? statusMeaning(status, {StatusSource::BITS}) : message};
}

Failure failureOfTid(EpcStatus status, const std::string& hexDigits) {
    if (status == EPC_OK) {
        return {};
    }
    const std::string message = explainFailure(explainTid(hexDigits));
    return {status, message.empty() ? statusMeaning(status, {StatusSource::BITS}) : message};
}

Failure failureOfHex(const std::string& hexDigits) {
    if (hexDigits.empty()) {
        return {EPC_ERR_TRUNCATED, "there is no hexadecimal digit"};
    }
    const auto stranger = std::ranges::find_if_not(hexDigits, isHexDigit);
    if (stranger != hexDigits.end()) {
        return {EPC_ERR_BAD_CHARACTER, "digit " + std::to_string(stranger - hexDigits.begin() + 1) +
                                           ", \"" +
                                           textForMessage(std::string_view(&*stranger, 1)) +
                                           "\", is no hexadecimal digit"};
    }
    if (hexDigits.size() > mostHexDigits) {
        return {EPC_ERR_TOO_LONG, statusMeaning(EPC_ERR_TOO_LONG, {StatusSource::BITS}) +
                                      ", and these are " + std::to_string(hexDigits.size()) +
                                      " digits"};
    }
    return {};
}

char checkDigitOf(std::string_view digits) {
    int sum = 0;
    int weight = digits.size() % 2 == 0 ? 1 : 3;
    for (const char digit : digits) {
        sum += (digit - '0') * weight;
        weight = 4 - weight;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

} // namespace before
} // namespace rosetag
