#include "before/explain/explain_ai_text.h"

#include <array>
#include <cmath>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::size_t mostDigits = 90;
constexpr std::string_view base64UrlAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr std::string_view code40Alphabet = " ABCDEFGHIJKLMNOPQRSTUVWXYZ-.:0123456789";

std::size_t bitsOfDigits(std::size_t digits) {
    return static_cast<std::size_t>(std::ceil(static_cast<double>(digits) * std::log2(10.0)));
}

std::size_t lengthBits(int maxLength) {
    std::size_t bits = 2;
    while (maxLength >= 1 << bits) {
        ++bits;
    }
    return bits;
}

std::string charactersOf(std::string_view bits, std::size_t width, std::string_view alphabet) {
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += width) {
        text += alphabet[numberOfBits(bits.substr(i, width))];
    }
    return text;
}

void walkCharacters(Walk& walk, const AiSubject& subject, std::size_t count, std::size_t width,
                    std::string_view alphabet) {
    const std::string_view bits = walkTake(walk, fieldName(subject, "text"), count * width);
    walk.fields.back().groups = groupsOf(static_cast<std::size_t>(width));
    meanValue(walk, subject, charactersOf(bits, width, alphabet));
}

void walkIso646(Walk& walk, const AiSubject& subject, std::size_t count) {
    const std::string_view bits = walkTake(walk, fieldName(subject, "text"), count * 7);
    walk.fields.back().groups = groupsOf(7);
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += 7) {
        const auto character = static_cast<char>(numberOfBits(bits.substr(i, 7)));
        if (!isInCharacterSet82(character) && !isInCharacterSet39(character)) {
            walkFail(walk, "the code " + std::to_string(static_cast<int>(character)) +
                               " stands for no character that an AI may hold");
            return;
        }
        text += character;
    }
    meanValue(walk, subject, text);
}

void walkCode40(Walk& walk, const AiSubject& subject, std::size_t count) {
    const std::string_view bits = walkTake(walk, fieldName(subject, "text"), (count + 2) / 3 * 16);
    walk.fields.back().groups = groupsOf(16);
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += 16) {
        const std::uint64_t group = numberOfBits(bits.substr(i, 16));
        if (group == 0 || group > 64000) {
            walkFail(walk, std::to_string(group) + " is no group of three characters");
            return;
        }
        for (const std::uint64_t value :
             {(group - 1) / 1600, (group - 1) / 40 % 40, (group - 1) % 40}) {
            if (value != 0) {
                text += code40Alphabet[value];
            }
        }
    }
    meanValue(walk, subject, text);
}

void walkPayload(Walk& walk, const AiSubject& subject, std::uint64_t encoding, std::size_t length) {
    switch (encoding) {
    case 0:
        if (length > mostDigits) {
            walkFail(walk, "a number has no more than 90 digits");
            return;
        }
        return walkDigitsAsNumber(walk, subject, length);
    case 1:
        return walkCharacters(walk, subject, length, 4, "0123456789ABCDEF");
    case 2:
        return walkCharacters(walk, subject, length, 4, "0123456789abcdef");
    case 3:
        return walkCharacters(walk, subject, length, 6, base64UrlAlphabet);
    case 4:
        return walkIso646(walk, subject, length);
    default:
        return walkCode40(walk, subject, length);
    }
}

} // namespace

std::string fieldName(const AiSubject& subject, std::string_view part) {
    return "AI " + subject.code + ' ' + std::string(part);
}

void meanValue(Walk& walk, const AiSubject& subject, const std::string& value) {
    walkMean(walk, subject.title + ' ' + (value.empty() ? "(empty)" : value), value);
    walk.fields.back().ai = subject.code;
}

// A number of up to 64 bits must not have more digits than its place; a longer one may.
void walkDigitsAsNumber(Walk& walk, const AiSubject& subject, std::size_t digits) {
    const std::size_t width = bitsOfDigits(digits);
    const std::string number =
        zeroPadded(decimalOfBits(walkTake(walk, fieldName(subject, "number"), width)), digits);
    if (width <= 64 && digits > 0 && number.size() > digits) {
        walkFail(walk, number + " has more than " + std::to_string(digits) + " digits");
    }
    meanValue(walk, subject, digits == 0 ? std::string() : number);
}

std::size_t walkLength(Walk& walk, const AiSubject& subject, int maxLength,
                       std::string_view counted) {
    const std::size_t length =
        walkNumber(walk, fieldName(subject, "length"), lengthBits(maxLength));
    walkMean(walk, std::to_string(length) + ' ' + std::string(counted));
    return length;
}

void walkText(Walk& walk, const AiSubject& subject, int maxLength) {
    constexpr std::array<std::string_view, 6> encodings = {"integer",   "hex-upper", "hex-lower",
                                                           "base64url", "iso646",    "code40"};
    const std::uint64_t encoding = walkNumber(walk, fieldName(subject, "encoding"), 3);
    const bool isKnown = encoding < encodings.size();
    walkMean(walk, std::to_string(encoding) + ": " +
                       std::string(isKnown ? encodings[encoding] : "reserved"));
    if (!walk.isGood) {
        return;
    }
    const std::size_t length = walkLength(walk, subject, maxLength, "characters");
    if (!isKnown) {
        walkFail(walk, "the encoding " + std::to_string(encoding) + " in front is not assigned");
    }
    if (walk.isGood) {
        walkPayload(walk, subject, encoding, length);
    }
}

} // namespace before
} // namespace rosetag
