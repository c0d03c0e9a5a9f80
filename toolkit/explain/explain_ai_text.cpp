#include "explain/explain_ai_text.h"

#include "core/bit_buffer.h"
#include "core/byte_order.h"
#include "core/long_decimal.h"
#include "core/text_buffer.h"
#include "values/text_encoding.h"
#include "words/shown_text.h"

#include <iterator>

namespace rosetag {

namespace {

// Appends the characters of a group as the library decodes it. False if it stands for none.
bool appendGroup(std::string& text, std::string_view bits, std::int32_t encoding) {
    std::uint8_t bytes[8];
    storeBigEndian(bytes, numberOfBits(bits) << (64 - bits.size()));
    BitBuffer group = bitBufferForReading(bytes, static_cast<std::int32_t>(bits.size()));
    char room[8];
    TextBuffer characters = textBufferOver(room);
    if (aiDecodePayload(group, characters, encoding, textEncodings[encoding].groupSize) != EPC_OK) {
        return false;
    }
    text += textBufferView(characters);
    return true;
}

void walkGroups(Walk& walk, const AiSubject& subject, std::int32_t encoding, std::size_t length) {
    const auto width = static_cast<std::size_t>(textEncodings[encoding].groupBits);
    const auto bitCount =
        static_cast<std::size_t>(textPayloadBits(encoding, static_cast<std::ptrdiff_t>(length)));
    const std::string_view bits = walkTake(walk, fieldName(subject, "text"), bitCount);
    walkGroup(walk, width);
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += width) {
        const std::string_view group = bits.substr(i, width);
        if (!appendGroup(text, group, encoding)) {
            return walkFail(walk, std::to_string(numberOfBits(group)) +
                                      " is not a character of the encoding " +
                                      std::string(textEncodings[encoding].name));
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
        return walkGroups(walk, subject, static_cast<std::int32_t>(encoding), length);
    }
    if (length > std::size_t{MAX_LONG_DIGITS}) {
        return walkFail(walk,
                        "a number has no more than " + std::to_string(MAX_LONG_DIGITS) + " digits");
    }
    walkDigitsAsNumber(walk, subject, length);
}

} // namespace rosetag
