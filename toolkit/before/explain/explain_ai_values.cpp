#include "before/explain/explain_ai_values.h"

#include "before/explain/explain_ai_text.h"
#include "before/words/ai_dictionary.h"

#include <array>

namespace rosetag {
inline namespace before {

namespace {

constexpr std::size_t mostAis = 20;

void walkDigits(Walk& walk, const AiSubject& subject, std::size_t count) {
    walkTake(walk, fieldName(subject, "digits"), 0);
    walk.fields.back().groups = groupsOf(4);
    std::string digits;
    while (digits.size() < count && walkExtend(walk, 4)) {
        const std::string_view bits = walkLastBits(walk);
        const std::uint64_t digit = numberOfBits(bits.substr(bits.size() - 4));
        if (digit > 9) {
            walkFail(walk, std::to_string(digit) + " is no digit");
            return;
        }
        digits += static_cast<char>('0' + digit);
    }
    meanValue(walk, subject, digits);
}

void walkDigitsThenText(Walk& walk, const AiSubject& subject, int maxLength) {
    constexpr std::uint64_t switchCode = 14;
    constexpr std::uint64_t endCode = 15;
    walkTake(walk, fieldName(subject, "digits"), 0);
    walk.fields.back().groups = groupsOf(4);
    std::string digits;
    std::uint64_t code = 0;
    while (walkExtend(walk, 4)) {
        const std::string_view bits = walkLastBits(walk);
        code = numberOfBits(bits.substr(bits.size() - 4));
        if (code > 9) {
            break;
        }
        digits += static_cast<char>('0' + code);
    }
    if (walk.isGood && code != switchCode && code != endCode) {
        walkFail(walk, std::to_string(code) + " is neither a digit nor an end");
    }
    meanValue(walk, subject, digits);
    walk.fields.back().meaning += walk.isGood && code == switchCode ? ", then text" : "";
    if (walk.isGood && code == switchCode) {
        walkText(walk, subject, maxLength);
    }
}

// Reads one two-digit field behind the last field's bits.
bool extendTwoDigits(Walk& walk, std::string& text, std::size_t width, std::uint64_t least,
                     std::uint64_t most, std::string_view what) {
    if (!walkExtend(walk, width)) {
        return false;
    }
    const std::string_view bits = walkLastBits(walk);
    const std::uint64_t number = numberOfBits(bits.substr(bits.size() - width));
    if (number < least || number > most) {
        walkFail(walk, std::to_string(number) + " is no " + std::string(what));
        return false;
    }
    text += zeroPadded(std::to_string(number), 2);
    return true;
}

std::uint64_t lastDayOf(std::uint64_t month, std::uint64_t year) {
    if (month == 2) {
        return year % 4 == 0 ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

bool extendDate(Walk& walk, std::string& text) {
    std::string date;
    if (!extendTwoDigits(walk, date, 7, 0, 99, "year") ||
        !extendTwoDigits(walk, date, 4, 1, 12, "month")) {
        return false;
    }
    const std::uint64_t year = std::stoull(date.substr(0, 2));
    const std::uint64_t month = std::stoull(date.substr(2, 2));
    const bool isGood =
        extendTwoDigits(walk, date, 5, 0, lastDayOf(month, year), "day of that month");
    text += date;
    return isGood;
}

bool extendTime(Walk& walk, std::string& text, std::size_t fields) {
    return extendTwoDigits(walk, text, 5, 0, 23, "hour") &&
           (fields < 2 || extendTwoDigits(walk, text, 6, 0, 59, "minute")) &&
           (fields < 3 || extendTwoDigits(walk, text, 6, 0, 59, "second"));
}

void walkDate(Walk& walk, const AiSubject& subject, std::size_t timeFields) {
    walkTake(walk, fieldName(subject, timeFields == 0 ? "date" : "date, time"), 0);
    walk.fields.back().groups = groupsOfDate;
    std::string text;
    if (extendDate(walk, text) && (timeFields == 0 || extendTime(walk, text, timeFields))) {
        meanValue(walk, subject, text);
    }
}

void walkDateRange(Walk& walk, const AiSubject& subject) {
    const bool isPair = walkNumber(walk, fieldName(subject, "pair"), 1) != 0;
    walkMean(walk, isPair ? "two dates" : "one date");
    if (!walk.isGood) {
        return;
    }
    walkDate(walk, subject, 0);
    if (walk.isGood && isPair) {
        walkDate(walk, subject, 0);
    }
}

void walkDateTimeVar(Walk& walk, const AiSubject& subject) {
    constexpr std::array<std::string_view, 4> precisions = {"hour", "minute", "second", "day"};
    const std::uint64_t code = walkNumber(walk, fieldName(subject, "precision"), 2);
    walkMean(walk, "to the " + std::string(precisions[code]));
    if (walk.isGood) {
        walkDate(walk, subject, code == 3 ? 0 : code + 1);
    }
}

void walkLetters(Walk& walk, const AiSubject& subject) {
    walkTake(walk, fieldName(subject, "letters"), 0);
    walk.fields.back().groups = groupsOf(6);
    std::string letters;
    while (letters.size() < 2 && walkExtend(walk, 6)) {
        const std::string_view bits = walkLastBits(walk);
        const std::uint64_t letter = numberOfBits(bits.substr(bits.size() - 6));
        if (letter > 25) {
            walkFail(walk, std::to_string(letter) + " is no letter");
            return;
        }
        letters += static_cast<char>('A' + letter);
    }
    meanValue(walk, subject, letters);
}

void walkFlag(Walk& walk, const AiSubject& subject) {
    const std::uint64_t flag = walkNumber(walk, fieldName(subject, "flag"), 1);
    meanValue(walk, subject, std::to_string(flag));
}

// A sign at the very end of the bits may be missing.
void walkSign(Walk& walk, const AiSubject& subject) {
    if (walkLeft(walk) == 0) {
        return;
    }
    const bool isMinus = walkNumber(walk, fieldName(subject, "sign"), 1) != 0;
    walkMean(walk, isMinus ? "minus" : "no sign", isMinus ? "-" : "");
    walk.fields.back().ai = subject.code;
}

void walkVarNumber(Walk& walk, const AiSubject& subject, int maxDigits) {
    const std::size_t length = walkLength(walk, subject, maxDigits, "digits");
    if (walk.isGood) {
        walkDigitsAsNumber(walk, subject, length);
    }
}

void walkPart(Walk& walk, const AiSubject& subject, const AiPart& part) {
    const auto size = static_cast<std::size_t>(part.size);
    switch (part.kind) {
    case AiPartKind::NONE:
        return;
    case AiPartKind::NUMBER:
        return walkDigitsAsNumber(walk, subject, size);
    case AiPartKind::DIGITS:
        return walkDigits(walk, subject, size);
    case AiPartKind::DIGITS_THEN_TEXT:
        return walkDigitsThenText(walk, subject, part.size);
    case AiPartKind::TEXT:
        return walkText(walk, subject, part.size);
    case AiPartKind::FLAG:
        return walkFlag(walk, subject);
    case AiPartKind::DATE:
        return walkDate(walk, subject, 0);
    case AiPartKind::DATE_TIME:
        return walkDate(walk, subject, 2);
    case AiPartKind::DATE_RANGE:
        return walkDateRange(walk, subject);
    case AiPartKind::DATE_TIME_VAR:
        return walkDateTimeVar(walk, subject);
    case AiPartKind::LETTERS:
        return walkLetters(walk, subject);
    case AiPartKind::VAR_NUMBER:
        return walkVarNumber(walk, subject, part.size);
    case AiPartKind::SIGN:
        return walkSign(walk, subject);
    }
}

// Reads the code of an AI, or nothing where the section has ended: by its rule, 0000 0000 with too
// few bits behind it for an SSCC is filling.
std::string walkAiCode(Walk& walk) {
    walkTake(walk, "AI code", 0);
    walk.fields.back().groups = groupsOf(4);
    std::string code;
    std::size_t length = 2;
    while (code.size() < length && walkExtend(walk, 4)) {
        const std::string_view bits = walkLastBits(walk);
        const std::uint64_t digit = numberOfBits(bits.substr(bits.size() - 4));
        if (digit > 9) {
            walkFail(walk, std::to_string(digit) + " is no digit");
            return {};
        }
        code += static_cast<char>('0' + digit);
        if (code.size() == 2) {
            length = aiCodeLength(code);
        }
    }
    if (walk.isGood && aiEntryOf(code) == nullptr) {
        walkFail(walk, "no AI has the code " + code);
    }
    walkMean(walk, code + ' ' + std::string(aiTitle(code)));
    return code;
}

bool dataSectionEnds(const Walk& walk) {
    constexpr std::size_t bitsOfTwoDigits = 8;
    constexpr std::size_t bitsOfSscc = 72;
    const std::size_t left = walkLeft(walk);
    return left <= bitsOfTwoDigits ||
           (left - bitsOfTwoDigits < bitsOfSscc &&
            numberOfBits(std::string_view(walk.bits).substr(walk.position, bitsOfTwoDigits)) == 0);
}

} // namespace

void walkAiValue(Walk& walk, std::string_view code) {
    const AiEntry* const entry = aiEntryOf(code);
    const AiSubject subject = {std::string(code), std::string(entry->title)};
    for (const AiPart& part : entry->parts) {
        if (walk.isGood) {
            walkPart(walk, subject, part);
        }
    }
}

void walkDateCoded(Walk& walk) {
    constexpr std::array<std::string_view, 7> ais = {"11", "13", "15", "16", "17", "7006", "7007"};
    const std::uint64_t code = walkNumber(walk, "date code", 4);
    if (walk.isGood && code >= ais.size()) {
        walkFail(walk, std::to_string(code) + " stands for no date");
    }
    if (!walk.isGood) {
        return;
    }
    const std::string_view ai = ais[code];
    walkMean(walk, "AI " + std::string(ai) + ' ' + std::string(aiTitle(ai)));
    walkDate(walk, {std::string(ai), std::string(aiTitle(ai))}, 0);
}

void walkDataSection(Walk& walk, std::size_t otherAis) {
    for (std::size_t ais = otherAis; !dataSectionEnds(walk); ++ais) {
        const std::string code = walkAiCode(walk);
        if (walk.isGood) {
            walkAiValue(walk, code);
        }
        if (walk.isGood && ais == mostAis) {
            walkFail(walk, "this is one AI more than the 20 that a value can hold");
        }
        if (!walk.isGood) {
            return;
        }
    }
}

} // namespace before
} // namespace rosetag
