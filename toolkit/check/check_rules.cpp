
#include "core/char_class.h"

#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <array>
#include <iterator>

namespace rosetag {

namespace {

constexpr Severity WRONG = Severity::ERROR;
constexpr Severity WARN = Severity::WARNING;

constexpr CheckRuleInfo entries[] = {
    // clang-format off
    // rule, its word, severity
    //     what it says and how to mend what breaks it
    {CheckRule::UNKNOWN_FORM, "unknown_form", WRONG,
        "{detail}"},
    {CheckRule::TAG_VALUE, "tag_value", WRONG,
        "{detail}"},
    {CheckRule::SYMBOLOGY, "symbology", WRONG,
        "\"{culprit}\" does not announce GS1 data, as {detail} do: correct it, or leave it out where AIs follow"},
    {CheckRule::BRACKETS, "brackets", WRONG,
        "an element string has each AI between \"(\" and \")\": {detail}"},
    {CheckRule::AI_CODE, "ai_code", WRONG,
        "\"{culprit}\" is not an AI of two to four digits: correct it{detail}"},
    {CheckRule::UNKNOWN_AI, "unknown_ai", WRONG,
        "GS1 has not assigned AI {ai}: correct its digits{detail}"},
    {CheckRule::NEWER_AI, "newer_ai", WARN,
        "AI {ai} ({detail}) is newer than this version: its value was checked, but leave it out where the text is to be converted"},
    {CheckRule::REPEATED_AI, "repeated_ai", WRONG,
        "an AI appears once in a text, and AI {ai} appears here again with {detail} value: leave one of them out"},
    {CheckRule::TOO_MANY_AIS, "too_many_ais", WARN,
        "only texts of up to {detail} AIs can be converted: divide this one"},
    {CheckRule::MISSING_SEPARATOR, "missing_separator", WRONG,
        "the value of AI {ai} ends after {detail}, and a separator must follow it: insert FNC1, character 29"},
    {CheckRule::NEEDLESS_SEPARATOR, "needless_separator", WARN,
        "{detail}: leave the separator out"},

    {CheckRule::EMPTY_VALUE, "empty_value", WRONG,
        "AI {ai} takes {detail}, and its value is empty: fill it in, or leave the AI out"},
    {CheckRule::TOO_SHORT, "too_short", WRONG,
        "AI {ai} takes {detail}: add what is missing"},
    {CheckRule::TOO_LONG, "too_long", WRONG,
        "AI {ai} takes {detail}"},
    {CheckRule::SHORT_GTIN, "short_gtin", WRONG,
        "AI {ai} takes 14 digits, and this is a {detail}"},
    {CheckRule::DIGITS, "digits", WRONG,
        "AI {ai} takes only digits here, and \"{culprit}\" is something else: replace it"},
    {CheckRule::CHARACTER_SET_82, "character_set_82", WRONG,
        "AI {ai} takes letters, digits and any of !\"%&'()*+,-./:;<=>?_, and \"{culprit}\" is something else: replace it{detail}"},
    {CheckRule::CHARACTER_SET_39, "character_set_39", WRONG,
        "AI {ai} takes capitals, digits and any of #-/, and \"{culprit}\" is something else: replace it"},
    {CheckRule::BASE64URL, "base64url", WRONG,
        "AI {ai} takes base64url here (letters, digits, - and _), and \"{culprit}\" is something else: encode it again"},
    {CheckRule::CHECK_DIGIT, "check_digit", WRONG,
        "the check digit of AI {ai} must be {detail} after these digits, not {culprit}: look for a mistyped digit, or end with {detail}"},
    {CheckRule::CHECK_PAIR, "check_pair", WRONG,
        "the check characters of AI {ai} must be {detail} after this text, not {culprit}: look for a mistyped character, or end with {detail}"},
    {CheckRule::ONLY_DIGITS, "only_digits", WRONG,
        "AI {ai} holds at least one character that is not a digit: take the number as it was issued"},
    {CheckRule::COMPANY_PREFIX, "company_prefix", WRONG,
        "a GS1 company prefix of at least {detail} digits begins here in AI {ai}: put yours in place of \"{culprit}\""},
    {CheckRule::UNASSIGNED_PREFIX, "unassigned_prefix", WRONG,
        "no GS1 company prefix begins with these digits of AI {ai}, says the prefix list{detail}: take the prefix that GS1 has given you"},
    {CheckRule::DATE, "date", WRONG,
        "AI {ai} holds a date as {detail}, and no date has \"{culprit}\" here: correct it"},
    {CheckRule::TIME, "time", WRONG,
        "AI {ai} holds a time of 00 to 23 hours and 00 to 59 minutes and seconds: correct \"{culprit}\""},
    {CheckRule::COUNTRY_NUMBER, "country_number", WRONG,
        "AI {ai} holds country numbers of ISO 3166-1 here, three digits such as 276, and {culprit} is not assigned: correct it"},
    {CheckRule::COUNTRY_LETTERS, "country_letters", WRONG,
        "AI {ai} holds a country code of ISO 3166-1, two capitals such as DE, and \"{culprit}\" is not assigned: correct it"},
    {CheckRule::CURRENCY_NUMBER, "currency_number", WRONG,
        "AI {ai} begins with a currency number of ISO 4217, three digits such as 978, and {culprit} is not assigned: correct it"},
    {CheckRule::FLAG, "flag", WRONG,
        "AI {ai} is 1 for yes or 0 for no: replace {culprit}"},
    {CheckRule::ZERO, "zero", WRONG,
        "the value of AI {ai} begins with the digit 0: put it in place of {culprit}, or in front of the number"},
    {CheckRule::NOT_ZERO, "not_zero", WRONG,
        "a dimension of AI {ai} is not zero: give the real one"},
    {CheckRule::LEADING_ZERO, "leading_zero", WRONG,
        "AI {ai} has no leading zeros: leave them out"},
    {CheckRule::MINUS, "minus", WRONG,
        "the digits of AI {ai} are followed by \"-\" below zero and by nothing above it: replace \"{culprit}\""},
    {CheckRule::PIECE_OF_TOTAL, "piece_of_total", WRONG,
        "AI {ai} ends with the number of the piece, from 01, and the total, which is not below it: correct {culprit}"},
    {CheckRule::POSITION_OF_TOTAL, "position_of_total", WRONG,
        "AI {ai} is a number from 1, \"/\" and the total, which is not below it, as in 1/2: correct \"{culprit}\""},
    {CheckRule::PERCENT_ESCAPE, "percent_escape", WRONG,
        "in AI {ai} each % is followed by the two hexadecimal digits of a character, as in %20: correct \"{culprit}\", or write %25 for the sign"},
    {CheckRule::LATITUDE, "latitude", WRONG,
        "the latitude of AI {ai} is (degrees + 90) * 10000000, at most {detail}: compute it again"},
    {CheckRule::LONGITUDE, "longitude", WRONG,
        "the longitude of AI {ai} is degrees east * 10000000, at most {detail}: compute it again"},
    {CheckRule::WINDING, "winding", WRONG,
        "the winding direction of AI {ai} is 0 (face out), 1 (face in) or 9 (undefined): replace {culprit}"},
    {CheckRule::SEX, "sex", WRONG,
        "AI {ai} is 0 (not known), 1 (male), 2 (female) or 9 (not applicable): replace {culprit}"},
    {CheckRule::IBAN, "iban", WRONG,
        "AI {ai} is an IBAN: two capitals, two check digits and the account, whose remainder by 97 is 1: look for a mistyped character"},
    {CheckRule::MEDIA_TYPE, "media_type", WRONG,
        "AI {ai} is a media type, 01 to 10 or 80 to 99: replace {culprit}"},
    {CheckRule::PACKAGE_TYPE, "package_type", WRONG,
        "AI {ai} is a package type of UN/ECE recommendation 21, capitals and digits: replace \"{culprit}\""},

    {CheckRule::NEEDS, "needs", WARN,
        "AI {ai} goes with {detail} on the same item: add it, unless another symbol of the item holds it"},
    {CheckRule::EXCLUDES, "excludes", WRONG,
        "AI {ai} does not go with AI {detail} on one item: leave one of them out"},

    {CheckRule::LINK_KEY, "link_key", WRONG,
        "{detail}"},
    {CheckRule::LINK_QUALIFIER, "link_qualifier", WRONG,
        "{detail}"},
    {CheckRule::LINK_ORDER, "link_order", WRONG,
        "after the key of a link the qualifiers come in the order {detail}: move AI {ai} to its place"},
    {CheckRule::LINK_QUERY, "link_query", WRONG,
        "AI {ai} does not belong in the query of a link: {detail}"},
    {CheckRule::LINK_CHARACTER, "link_character", WRONG,
        "\"{culprit}\" must be escaped in a link: write {detail}"},
    {CheckRule::LINK_ESCAPE, "link_escape", WRONG,
        "in a link each % is followed by the two hexadecimal digits of a character, as in %2F: correct \"{culprit}\", or write %25 for the sign"},
    {CheckRule::LINK_NAME, "link_name", WARN,
        "the name \"{culprit}\" for AI {ai} is no longer part of the standard: write {ai}"},
    {CheckRule::LINK_SEMICOLON, "link_semicolon", WARN,
        "\"&\" separates the parameters of a link, and \";\" no longer does: write \"&\""},
    // clang-format on
};

constexpr bool entriesAreIndexes() {
    for (std::size_t i = 0; i < std::size(entries); ++i) {
        if (entries[i].rule != static_cast<CheckRule>(i)) {
            return false;
        }
    }
    return std::size(entries) == CHECK_RULE_COUNT;
}
static_assert(entriesAreIndexes());

// True if the sentence of a rule lists the characters of a set that are neither letters nor digits.
constexpr bool listsMarksOf(CheckRule rule, std::uint32_t charClass) {
    std::array<char, 128> marks{};
    std::size_t count = 0;
    for (char mark = '!'; mark <= '~'; ++mark) {
        const bool isLetter = (mark >= 'A' && mark <= 'Z') || (mark >= 'a' && mark <= 'z');
        if (charIsOfClass(mark, charClass) && !isLetter && !charIsDigit(mark)) {
            marks[count++] = mark;
        }
    }
    const std::string_view sentence = entries[static_cast<std::size_t>(rule)].sentence;
    return sentence.find(std::string_view(marks.data(), count)) != sentence.npos;
}
static_assert(listsMarksOf(CheckRule::CHARACTER_SET_82, CHAR_CLASS_AI82));
static_assert(listsMarksOf(CheckRule::CHARACTER_SET_39, CHAR_CLASS_AI39));

} // namespace

std::span<const CheckRuleInfo> checkRules() {
    return entries;
}

std::string_view checkRuleWord(CheckRule rule) {
    return entries[static_cast<std::size_t>(rule)].word;
}

bool hasError(const Rows<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::ERROR; });
}

EpcStatus statusOf(const Rows<Finding>& findings) {
    const auto* const error =
        std::find_if(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.severity == Severity::ERROR; });
    return error == findings.end() ? EPC_OK : error->status;
}

} // namespace rosetag
