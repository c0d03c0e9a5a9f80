#include "check/check_associations.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr char ANY_DIGIT = 'n';
constexpr std::string_view SAME_MEASURE = "=n";
constexpr std::size_t MEASURE_DIGITS = 3; // before the digit that places the decimal point

// Takes what is before the first separator off the text.
std::string_view takeUntil(std::string_view& text, char separator) {
    // The words are too short for find() to be fast.
    std::size_t end = 0;
    while (end < text.size() && text[end] != separator) {
        ++end;
    }
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

// True if a word in the row of an AI stands for the code.
bool isMeant(std::string_view word, std::string_view code, std::string_view ai) {
    if (word == SAME_MEASURE) {
        return code != ai && code.size() == ai.size() &&
               code.substr(0, MEASURE_DIGITS) == ai.substr(0, MEASURE_DIGITS);
    }
    return word.size() == code.size() &&
           std::equal(word.begin(), word.end(), code.begin(), [](char expected, char digit) {
               return expected == ANY_DIGIT || expected == digit;
           });
}

bool isPresent(const CheckRun& run, std::string_view word) {
    const auto ais = checkedAis(run);
    return std::any_of(ais.begin(), ais.end(),
                       [&](const CheckedAi& ai) { return isMeant(word, ai.code, {}); });
}

bool allStand(const CheckRun& run, std::string_view joined) {
    while (!joined.empty()) {
        if (!isPresent(run, takeUntil(joined, '+'))) {
            return false;
        }
    }
    return true;
}

bool hasCompanions(const CheckRun& run, const CheckedAi& ai) {
    for (std::string_view choices = ai.rule->needs; !choices.empty();) {
        if (allStand(run, takeUntil(choices, ','))) {
            return true;
        }
    }
    return false;
}

// "01+21,8006" in words: "AI 01 and 21, or 8006".
std::string describeNeeds(std::string_view needs) {
    std::string text = "AI ";
    const bool hasJoined = needs.find('+') != needs.npos;
    while (!needs.empty()) {
        const bool isFirst = text.size() == 3;
        std::string_view joined = takeUntil(needs, ',');
        text += isFirst ? "" : !needs.empty() ? ", " : hasJoined ? ", or " : " or ";
        text += takeUntil(joined, '+');
        while (!joined.empty()) {
            text += " and ";
            text += takeUntil(joined, '+');
        }
    }
    return text.find(", or ") == text.npos ? text : text + ',';
}

bool excludes(const CheckedAi& ai, const CheckedAi& other) {
    for (std::string_view words = ai.rule->excludes; !words.empty();) {
        if (isMeant(takeUntil(words, ','), other.code, ai.code)) {
            return true;
        }
    }
    return false;
}

} // namespace

void checkAssociations(CheckRun& run) {
    const auto ais = checkedAis(run);
    for (std::size_t i = 0; i < ais.size(); ++i) {
        const CheckedAi& ai = ais[i];
        if (!ai.rule->needs.empty() && !hasCompanions(run, ai)) {
            report(run, CheckRule::NEEDS, ai.code, {ai.position, ai.length},
                   describeNeeds(ai.rule->needs));
        }
        for (const CheckedAi& earlier : ais.first(i)) {
            if (excludes(ai, earlier) || excludes(earlier, ai)) {
                report(run, CheckRule::EXCLUDES, ai.code, {ai.position, ai.length}, earlier.code);
            }
        }
    }
}

} // namespace rosetag
