#include "recognise/gtin_text.h"

#include "gs1/ai_catalogue.h"
#include "gs1/check_digit.h"
#include "recognise/look.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

// True for an AI whose value is a GTIN and nothing else.
bool aiHoldsGtin(std::string_view code) {
    const AiDefinition* const ai = aiFind(code);
    return ai != nullptr && ai->componentCount == 1 &&
           ai->components[0].checkKind == AI_CHECK_DIGIT &&
           ai->components[0].digitCount == GTIN_LENGTH;
}

} // namespace

bool isShortGtinLength(std::size_t length) {
    return std::find(std::begin(shortGtinLengths), std::end(shortGtinLengths), length) !=
           std::end(shortGtinLengths);
}

std::string shortGtinLengthsText() {
    std::string text;
    for (const std::size_t& length : shortGtinLengths) {
        const bool isLast = &length == std::end(shortGtinLengths) - 1;
        text += text.empty() ? "" : isLast ? " or " : ", ";
        text += std::to_string(length);
    }
    return text;
}

bool isGtin(std::string_view text) {
    const bool isLength = text.size() == GTIN_LENGTH || isShortGtinLength(text.size());
    return isLength && isAllDigits(text) &&
           gs1CheckDigit(text.substr(0, text.size() - 1)) == text.back();
}

bool isShortGtinOf(std::string_view ai, std::string_view value) {
    return value.size() != GTIN_LENGTH && isGtin(value) && aiHoldsGtin(ai);
}

void keepGtin(Reading& reading, std::string_view digits) {
    constexpr std::string_view zeros = "00000000000000";
    static_assert(zeros.size() == GTIN_LENGTH);
    const std::size_t missing = zeros.size() - digits.size();
    readingPut(reading, zeros.substr(0, missing), positionIn(reading, digits));
    readingKeep(reading, digits);
    if (missing > 0) {
        readingNote(reading, NoteKind::PADDED, digits, [&] {
            return "padded the GTIN " + std::string(digits) + " to " + std::to_string(GTIN_LENGTH) +
                   " digits";
        });
    }
}

} // namespace rosetag
