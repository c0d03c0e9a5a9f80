#include "explain/explain_ai_text.h"

#include "core/long_decimal.h"
#include "values/text_encoding.h"
#include "words/shown_text.h"

#include <iterator>

namespace rosetag {

namespace {

// The characters of groups, by their values in the alphabet of an encoding. False at a value that
// stands for no character.
bool appendGroup(std::string& text, std::uint64_t group, const TextEncoding& encoding) {
    if (encoding.groupSize == 1) {
        text += encoding.alphabet[static_cast<std::size_t>(group)];
        return text.back() != '\0';
    }
    if (group == 0 || group > CODE40_LARGEST) {
        return false;
    }
    for (const std::uint32_t value : code40Values(static_cast<std::uint32_t>(group))) {
        if (encoding.alphabet[value] != '\0') {
            text += encoding.alphabet[value];
        }
    }
    return true;
}

void walkGroups(Walk& walk, const AiSubject& subject, std::size_t encodingNumber,
                std::size_t length) {
    const TextEncoding& encoding = textEncodings[encodingNumber];
    const auto width = static_cast<std::size_t>(encoding.groupBits);
    const auto bitCount = static_cast<std::size_t>(textPayloadBits(
        static_cast<std::int32_t>(encodingNumber), static_cast<std::ptrdiff_t>(length)));
    const std::string_view bits = walkTake(walk, fieldName(subject, "text"), bitCount);
    walkGroup(walk, width);
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += width) {
        const std::uint64_t group = numberOfBits(bits.substr(i, width));
        if (!appendGroup(text, group, encoding)) {
            return walkFail(walk, std::to_string(group) + " is not a character of the encoding " +
                                      std::string(encoding.name));
        }
    }
    meanValue(walk, subject, text);
}

} // namespace

std::string fieldName(const AiSubject& subject, std::string_view part) {
    std::string name = "AI ";
    name += subject.code;
    name += ' ';
    name += part;
    return name;
}

void meanValue(Walk& walk, const AiSubject& subject, std::string_view value) {
    std::string meaning(subject.title);
    meaning += ' ';
    meaning += value.empty() ? "(empty)" : value;
    walkMean(walk, meaning, value);
    walkField(walk).ai = subject.code;
}

// A number of up to 64 bits must not have more than that many digits; a longer one may.
void walkDigitsAsNumber(Walk& walk, const AiSubject& subject, std::size_t digits) {
    const auto width = static_cast<std::size_t>(aiDigitBits(static_cast<std::int32_t>(digits)));
    const std::string number =
        zeroPadded(decimalOfBits(walkTake(walk, fieldName(subject, "number"), width)), digits);
    if (width <= 64 && digits > 0 && number.size() > digits) {
        walkFail(walk, number + " has more than " + counted(digits, "digit"));
    }
    meanValue(walk, subject, digits == 0 ? std::string_view() : number);
}

std::size_t walkLength(Walk& walk, const AiSubject& subject, const AiComponent& component,
                       std::string_view counted) {
    const auto length = static_cast<std::size_t>(
        walkNumber(walk, fieldName(subject, "length"), component.lengthIndicatorBits));
    walkMean(walk, std::to_string(length) + ' ' + std::string(counted));
    return length;
}

void walkText(Walk& walk, const AiSubject& subject, const AiComponent& component) {
    const auto encoding = static_cast<std::size_t>(
        walkNumber(walk, fieldName(subject, "encoding"), ENCODING_INDICATOR_BITS));
    const bool isKnown = encoding < std::size(textEncodings);
    walkMean(walk, std::to_string(encoding) + ": " +
                       std::string(isKnown ? textEncodings[encoding].name : "reserved"));
    if (!walk.isGood) {
        return;
    }
    const std::size_t length = walkLength(walk, subject, component, "characters");
    if (!isKnown) {
        walkFail(walk, "the encoding " + std::to_string(encoding) + " is not assigned");
    }
    if (!walk.isGood) {
        return;
    }
    if (encoding != AI_ENC_INTEGER) {
        return walkGroups(walk, subject, encoding, length);
    }
    if (length > std::size_t{MAX_LONG_DIGITS}) {
        return walkFail(walk,
                        "a number has no more than " + std::to_string(MAX_LONG_DIGITS) + " digits");
    }
    walkDigitsAsNumber(walk, subject, length);
}

} // namespace rosetag
