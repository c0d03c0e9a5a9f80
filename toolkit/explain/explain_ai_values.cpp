#include "explain/explain_ai_values.h"

#include "explain/explain_ai_text.h"
#include "gs1/ai_prefix.h"
#include "values/ai_code_bits.h"
#include "values/date_kinds.h"
#include "values/small_kinds.h"
#include "values/text_kinds.h"
#include "words/ai_words.h"

#include <array>

namespace rosetag {

namespace {

// Reads a digit of four bits. False if other, the four bits, is not a digit.
bool extendDigit(Walk& walk, std::string& digits, std::uint64_t& other) {
    const std::string_view bits = walkExtend(walk, DIGIT_BITS);
    other = numberOfBits(bits);
    if (!walk.isGood || other > 9) {
        return false;
    }
    digits += static_cast<char>('0' + other);
    return true;
}

void walkDigits(Walk& walk, const AiSubject& subject, std::size_t count) {
    walkTake(walk, fieldName(subject, "digits"), 0);
    walkGroup(walk, DIGIT_BITS);
    std::string digits;
    std::uint64_t other = 0;
    while (digits.size() < count) {
        if (!extendDigit(walk, digits, other)) {
            return walkFail(walk, std::to_string(other) + " is not a digit");
        }
    }
    meanValue(walk, subject, digits);
}

// Digits up to a mark: one that ends the value, or one that a text follows.
void walkDigitsThenText(Walk& walk, const AiSubject& subject, const AiComponent& component) {
    walkTake(walk, fieldName(subject, "digits"), 0);
    walkGroup(walk, DIGIT_BITS);
    std::string digits;
    std::uint64_t mark = 0;
    while (extendDigit(walk, digits, mark)) {
    }
    if (mark != SWITCH_TO_TEXT && mark != END_OF_DIGITS) {
        walkFail(walk, std::to_string(mark) + " is neither a digit nor an end");
    }
    meanValue(walk, subject, digits);
    if (walk.isGood && mark == SWITCH_TO_TEXT) {
        walkField(walk).meaning += ", then text";
        walkText(walk, subject, component);
    }
}

// Two digits of a date or a time, added to the last field.
bool extendDateField(Walk& walk, std::string& text, const DateField& field, std::string_view what,
                     std::uint64_t& number) {
    number = numberOfBits(walkExtend(walk, static_cast<std::size_t>(field.bits)));
    if (walk.isGood && (number < field.least || number > field.most)) {
        walkFail(walk, "there is no " + std::string(what) + ' ' + std::to_string(number));
    }
    text += zeroPadded(std::to_string(number), 2);
    return walk.isGood;
}

bool extendDate(Walk& walk, std::string& text) {
    std::uint64_t year = 0;
    std::uint64_t month = 0;
    std::uint64_t day = 0;
    if (!extendDateField(walk, text, DATE_YEAR, "year", year) ||
        !extendDateField(walk, text, DATE_MONTH, "month", month)) {
        return false;
    }
    const DateField dayOfMonth = {DATE_DAY.bits, DATE_DAY.least, daysOfMonth(year, month)};
    return extendDateField(walk, text, dayOfMonth, "day", day);
}

void walkDate(Walk& walk, const AiSubject& subject, std::size_t timeFieldCount) {
    static constexpr std::array<int, 6> groups = {DATE_YEAR.bits,   DATE_MONTH.bits,
                                                  DATE_DAY.bits,    TIME_HOUR.bits,
                                                  TIME_MINUTE.bits, TIME_SECOND.bits};
    constexpr std::array<std::string_view, 3> names = {"hour", "minute", "second"};
    walkTake(walk, fieldName(subject, timeFieldCount == 0 ? "date" : "date, time"), 0);
    walkField(walk).groups = groups;
    std::string text;
    std::uint64_t number = 0;
    bool isGood = extendDate(walk, text);
    for (std::size_t i = 0; isGood && i < timeFieldCount; ++i) {
        isGood = extendDateField(walk, text, timeFields[i], names[i], number);
    }
    if (isGood) {
        meanValue(walk, subject, text);
    }
}

void walkDateRange(Walk& walk, const AiSubject& subject) {
    const bool isPair = walkNumber(walk, fieldName(subject, "pair"), DATE_PAIR_BITS) != 0;
    walkMean(walk, isPair ? "two dates" : "one date");
    for (int date = 0; walk.isGood && date < (isPair ? 2 : 1); ++date) {
        walkDate(walk, subject, 0);
    }
}

void walkDateTimeVar(Walk& walk, const AiSubject& subject) {
    constexpr std::array<std::string_view, 4> precisions = {"hour", "minute", "second", "day"};
    const auto code = static_cast<std::size_t>(
        walkNumber(walk, fieldName(subject, "precision"), DATE_PRECISION_BITS));
    walkMean(walk, "to the " + std::string(precisions[code]));
    if (walk.isGood) {
        walkDate(walk, subject, code == DATE_PRECISION_DAY ? 0 : code + 1);
    }
}

void walkLetters(Walk& walk, const AiSubject& subject, std::size_t count) {
    walkTake(walk, fieldName(subject, "letters"), 0);
    walkGroup(walk, LETTER_BITS);
    std::string letters;
    while (letters.size() < count) {
        const std::uint64_t letter = numberOfBits(walkExtend(walk, LETTER_BITS));
        if (!walk.isGood || letter > 25) {
            return walkFail(walk, std::to_string(letter) + " is not a letter");
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
    walkField(walk).ai = subject.code;
}

void walkVarNumber(Walk& walk, const AiSubject& subject, const AiComponent& component) {
    const std::size_t length = walkLength(walk, subject, component, "digits");
    if (walk.isGood) {
        walkDigitsAsNumber(walk, subject, length);
    }
}

void walkComponent(Walk& walk, const AiSubject& subject, const AiComponent& component) {
    switch (component.kind) {
    case AI_KIND_NONE:
    case AI_KIND_DATE_CODED:
        return;
    case AI_KIND_NUMERIC:
        return walkDigitsAsNumber(walk, subject, component.digitCount);
    case AI_KIND_DIGITS:
        return walkDigits(walk, subject, component.digitCount);
    case AI_KIND_DIGITS_THEN_TEXT:
        return walkDigitsThenText(walk, subject, component);
    case AI_KIND_TEXT:
        return walkText(walk, subject, component);
    case AI_KIND_FLAG:
        return walkFlag(walk, subject);
    case AI_KIND_DATE:
        return walkDate(walk, subject, 0);
    case AI_KIND_DATE_TIME:
        return walkDate(walk, subject, 2);
    case AI_KIND_DATE_RANGE:
        return walkDateRange(walk, subject);
    case AI_KIND_DATE_TIME_VAR:
        return walkDateTimeVar(walk, subject);
    case AI_KIND_LETTERS:
        return walkLetters(walk, subject, component.digitCount);
    case AI_KIND_VAR_NUMERIC:
        return walkVarNumber(walk, subject, component);
    case AI_KIND_SIGN:
        return walkSign(walk, subject);
    }
}

std::string codeAndTitle(std::string_view code) {
    std::string text(code);
    text += ' ';
    text += aiTitle(code);
    return text;
}

std::string walkAiCode(Walk& walk) {
    walkTake(walk, "AI code", 0);
    walkGroup(walk, DIGIT_BITS);
    std::string code;
    std::size_t length = 2;
    std::uint64_t other = 0;
    while (code.size() < length) {
        if (!extendDigit(walk, code, other)) {
            walkFail(walk, std::to_string(other) + " is not a digit");
            return code;
        }
        if (code.size() == 2) {
            length = aiPrefixOf(code[0], code[1]).codeDigits;
        }
    }
    if (aiRowOf(code) == nullptr) {
        walkFail(walk, "GS1 has not assigned an AI " + code);
    }
    walkMean(walk, codeAndTitle(code));
    return code;
}

// The section ends where the rest cannot be an AI: 0000 0000 with too few bits after it for an SSCC
// is padding.
bool dataSectionEnds(const Walk& walk) {
    const std::size_t left = walkLeft(walk);
    if (left <= AI_PREFIX_BITS) {
        return true;
    }
    const std::string_view bits = walk.explanation.bits;
    return left < AI_PREFIX_BITS + AI_00_VALUE_BITS &&
           numberOfBits(bits.substr(walk.position, AI_PREFIX_BITS)) == 0;
}

} // namespace

void walkAiValue(Walk& walk, std::string_view code) {
    const AiTableRow& row = *aiRowOf(code);
    for (const AiComponent& component : row.components) {
        if (walk.isGood) {
            walkComponent(walk, {code, row.title}, component);
        }
    }
}

void walkDateCoded(Walk& walk) {
    const auto code = static_cast<std::size_t>(walkNumber(walk, "date code", DATE_CODE_BITS));
    if (walk.isGood && code >= dateKeyTable.size()) {
        walkFail(walk, "no date has the code " + std::to_string(code));
    }
    if (!walk.isGood) {
        return;
    }
    const std::string ai(dateKeyTable[code].ai);
    walkMean(walk, "AI " + codeAndTitle(ai));
    walkDate(walk, {ai, aiTitle(ai)}, 0);
}

void walkDataSection(Walk& walk, std::size_t otherAis) {
    for (std::size_t ais = otherAis; !dataSectionEnds(walk); ++ais) {
        const std::string code = walkAiCode(walk);
        if (walk.isGood) {
            walkAiValue(walk, code);
        }
        if (walk.isGood && ais == EPC_MAX_AIS) {
            walkFail(walk, "this is one AI more than the " + std::to_string(EPC_MAX_AIS) +
                               " that a value can hold");
        }
        if (!walk.isGood) {
            return;
        }
    }
}

} // namespace rosetag
