#include "check/part_rules.h"

#include "check/assigned_codes.h"
#include "check/check_pair.h"
#include "core/char_class.h"
#include "core/hex_digits.h"
#include "gs1/check_digit.h"
#include "values/date_kinds.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

constexpr Culprit nothing = {};

Culprit wholeUnless(bool holds, std::string_view part) {
    return holds ? nothing : Culprit{0, part.size()};
}

// At most 19 characters, known to be digits.
std::uint64_t numberOf(std::string_view digits) {
    std::uint64_t number = 0;
    for (const char digit : digits) {
        number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    return number;
}

bool isAllDigitsOrEmpty(std::string_view text) {
    return std::all_of(text.begin(), text.end(), charIsDigit);
}

std::string rightCheckDigit(std::string_view part) {
    part.remove_suffix(1);
    return {gs1CheckDigit(part)};
}

Culprit badCheckDigit(std::string_view part) {
    const std::string_view checked = {part.data(), part.size() - 1};
    return part.back() == gs1CheckDigit(checked) ? nothing : Culprit{checked.size(), 1};
}

std::string rightCheckPair(std::string_view part) {
    part.remove_suffix(std::min(part.size(), CHECK_PAIR_SIZE));
    const auto pair = checkPairOf(part);
    return {pair.begin(), pair.end()};
}

Culprit badCheckPair(std::string_view part) {
    if (part.size() <= CHECK_PAIR_SIZE) {
        return {0, part.size()};
    }
    const std::size_t at = part.size() - CHECK_PAIR_SIZE;
    const auto pair = checkPairOf({part.data(), at});
    const bool isRight = part[at] == pair[0] && part[at + 1] == pair[1];
    return isRight ? nothing : Culprit{at, CHECK_PAIR_SIZE};
}

Culprit onlyDigits(std::string_view part) {
    return wholeUnless(!isAllDigitsOrEmpty(part), part);
}

enum class Day00 : std::uint8_t { REFUSE, ALLOW };

// The month or the day of a date that does not exist. at is the place of the month.
Culprit badMonthOrDay(std::string_view part, std::size_t at, bool isLeapYear, Day00 day00) {
    const std::uint64_t month = numberOf({part.data() + at, 2});
    const std::uint64_t day = numberOf({part.data() + at + 2, 2});
    if (month < DATE_MONTH.least || month > DATE_MONTH.most) {
        return {at, 2};
    }
    const bool isDay =
        day == 0 ? day00 == Day00::ALLOW : day <= daysOfMonth(isLeapYear ? 0 : 1, month);
    return isDay ? nothing : Culprit{at + 2, 2};
}

// Year 00 is 2000, a leap year: 1900 and 2100 are outside the sliding window.
bool isLeapYearOfTwoDigits(std::string_view part) {
    return numberOf({part.data(), 2}) % 4 == 0;
}

Culprit badDate(std::string_view part) {
    return badMonthOrDay(part, 2, isLeapYearOfTwoDigits(part), Day00::REFUSE);
}

Culprit badDateOrMonth(std::string_view part) {
    return badMonthOrDay(part, 2, isLeapYearOfTwoDigits(part), Day00::ALLOW);
}

Culprit badDateWithCentury(std::string_view part) {
    const std::uint64_t year = numberOf({part.data(), 4});
    const bool isLeapYear = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return badMonthOrDay(part, 4, isLeapYear, Day00::REFUSE);
}

Culprit badHour(std::string_view part) {
    return numberOf({part.data(), 2}) <= TIME_HOUR.most ? nothing : Culprit{0, 2};
}

Culprit badMinuteOrSecond(std::string_view part) {
    return wholeUnless(numberOf(part) <= TIME_MINUTE.most, part);
}

Culprit badHourMinute(std::string_view part) {
    const Culprit hour = badHour(part);
    const bool isMinute = numberOf({part.data() + 2, 2}) <= TIME_MINUTE.most;
    return hour.length != 0 || isMinute ? hour : Culprit{2, 2};
}

Culprit badCountryNumber(std::string_view part) {
    return wholeUnless(isCountryNumber(part), part);
}

Culprit badCountryNumberOr999(std::string_view part) {
    return wholeUnless(isCountryNumber(part) || part == "999", part);
}

Culprit badCountryLetters(std::string_view part) {
    return wholeUnless(isCountryLetters(part), part);
}

Culprit badCurrencyNumber(std::string_view part) {
    return wholeUnless(isCurrencyNumber(part), part);
}

Culprit badFlag(std::string_view part) {
    return wholeUnless(part == "0" || part == "1", part);
}

Culprit notZero(std::string_view part) {
    return wholeUnless(part == "0", part);
}

Culprit allZeros(std::string_view part) {
    return wholeUnless(part.find_first_not_of('0') != std::string_view::npos, part);
}

Culprit leadingZero(std::string_view part) {
    return part.size() > 1 && part.front() == '0' ? Culprit{0, 1} : nothing;
}

Culprit notMinus(std::string_view part) {
    return wholeUnless(part == "-", part);
}

bool isPlaceAmong(std::string_view place, std::string_view total) {
    return numberOf(place) > 0 && numberOf(place) <= numberOf(total);
}

Culprit badPieceOfTotal(std::string_view part) {
    const std::size_t half = part.size() / 2;
    return wholeUnless(isPlaceAmong({part.data(), half}, {part.data() + half, half}), part);
}

Culprit badPositionOfTotal(std::string_view part) {
    const std::size_t slash = std::min(part.find('/'), part.size());
    const std::string_view place = {part.data(), slash};
    const std::string_view total = {part.begin() + std::min(slash + 1, part.size()), part.end()};
    const auto isNumber = [](std::string_view text) {
        return !text.empty() && text.front() != '0' && isAllDigitsOrEmpty(text);
    };
    return wholeUnless(isNumber(place) && isNumber(total) && isPlaceAmong(place, total), part);
}

Culprit badPercentEscape(std::string_view part) {
    for (std::size_t at = part.find('%'); at != std::string_view::npos; at = part.find('%', at)) {
        const std::size_t length = std::min<std::size_t>(3, part.size() - at);
        if (length < 3 || hexPairValue(part[at + 1], part[at + 2]) < 0) {
            return {at, length};
        }
        at += length;
    }
    return nothing;
}

// Coordinates are counted in ten-millionths of a degree: from the South Pole, and eastward.
constexpr std::uint64_t DEGREE = 10000000;
constexpr std::uint64_t LARGEST_LATITUDE = 180 * DEGREE;
constexpr std::uint64_t LARGEST_LONGITUDE = 360 * DEGREE;

Culprit badLatitude(std::string_view part) {
    return wholeUnless(numberOf(part) <= LARGEST_LATITUDE, part);
}

std::string largestLatitude(std::string_view) {
    return std::to_string(LARGEST_LATITUDE);
}

Culprit badLongitude(std::string_view part) {
    return wholeUnless(numberOf(part) <= LARGEST_LONGITUDE, part);
}

std::string largestLongitude(std::string_view) {
    return std::to_string(LARGEST_LONGITUDE);
}

bool isOneOf(std::string_view part, std::string_view characters) {
    return part.size() == 1 && characters.find(part.front()) != std::string_view::npos;
}

Culprit badWinding(std::string_view part) {
    return wholeUnless(isOneOf(part, "019"), part);
}

Culprit badSex(std::string_view part) {
    return wholeUnless(isOneOf(part, "0129"), part);
}

constexpr bool isCapital(char character) {
    return character >= 'A' && character <= 'Z';
}

// The remainder by 97, the first four characters moved to the end, a letter counted as two digits.
//
// Source: ISO 13616-1; ISO/IEC 7064, MOD 97-10.
Culprit badIban(std::string_view part) {
    constexpr std::size_t head = 4;
    constexpr std::uint32_t modulus = 97;
    const bool hasHead = part.size() > head && isCapital(part[0]) && isCapital(part[1]) &&
                         charIsDigit(part[2]) && charIsDigit(part[3]);
    std::uint32_t remainder = 0;
    for (std::size_t i = 0; hasHead && i < part.size(); ++i) {
        const char character = part[(i + head) % part.size()];
        if (charIsDigit(character)) {
            remainder = (remainder * 10 + static_cast<std::uint32_t>(character - '0')) % modulus;
        } else if (isCapital(character)) {
            remainder =
                (remainder * 100 + static_cast<std::uint32_t>(character - 'A' + 10)) % modulus;
        } else {
            return {(i + head) % part.size(), 1};
        }
    }
    return wholeUnless(remainder == 1, part);
}

Culprit badMediaType(std::string_view part) {
    const std::uint64_t type = numberOf(part);
    return wholeUnless((type >= 1 && type <= 10) || type >= 80, part);
}

// Tests the form alone: the list of codes is not known here.
//
// Source: UN/ECE Recommendation 21.
Culprit badPackageType(std::string_view part) {
    const auto stranger = std::find_if_not(part.begin(), part.end(), [](char character) {
        return charIsDigit(character) || isCapital(character);
    });
    return stranger == part.end() ? nothing
                                  : Culprit{static_cast<std::size_t>(stranger - part.begin()), 1};
}

constexpr PartRuleEntry entries[] =
    {
        // clang-format off
    // rule                            what it breaks                culprit                 what is right
    {PartRule::NONE,                  CheckRule::UNKNOWN_FORM,      nullptr,                nullptr},
    {PartRule::CHECK_DIGIT,           CheckRule::CHECK_DIGIT,       badCheckDigit,          rightCheckDigit},
    {PartRule::CHECK_PAIR,            CheckRule::CHECK_PAIR,        badCheckPair,           rightCheckPair},
    {PartRule::NOT_ONLY_DIGITS,       CheckRule::ONLY_DIGITS,       onlyDigits,             nullptr},
    {PartRule::DATE,                  CheckRule::DATE,              badDate,                nullptr},
    {PartRule::DATE_OR_MONTH,         CheckRule::DATE,              badDateOrMonth,         nullptr},
    {PartRule::DATE_WITH_CENTURY,     CheckRule::DATE,              badDateWithCentury,     nullptr},
    {PartRule::HOUR,                  CheckRule::TIME,              badHour,                nullptr},
    {PartRule::HOUR_MINUTE,           CheckRule::TIME,              badHourMinute,          nullptr},
    {PartRule::MINUTE_OR_SECOND,      CheckRule::TIME,              badMinuteOrSecond,      nullptr},
    {PartRule::COUNTRY_NUMBER,        CheckRule::COUNTRY_NUMBER,    badCountryNumber,       nullptr},
    {PartRule::COUNTRY_NUMBER_OR_999, CheckRule::COUNTRY_NUMBER,    badCountryNumberOr999,  nullptr},
    {PartRule::COUNTRY_LETTERS,       CheckRule::COUNTRY_LETTERS,   badCountryLetters,      nullptr},
    {PartRule::CURRENCY_NUMBER,       CheckRule::CURRENCY_NUMBER,   badCurrencyNumber,      nullptr},
    {PartRule::FLAG,                  CheckRule::FLAG,              badFlag,                nullptr},
    {PartRule::ZERO,                  CheckRule::ZERO,              notZero,                nullptr},
    {PartRule::NOT_ZERO,              CheckRule::NOT_ZERO,          allZeros,               nullptr},
    {PartRule::NO_LEADING_ZERO,       CheckRule::LEADING_ZERO,      leadingZero,            nullptr},
    {PartRule::MINUS,                 CheckRule::MINUS,             notMinus,               nullptr},
    {PartRule::PIECE_OF_TOTAL,        CheckRule::PIECE_OF_TOTAL,    badPieceOfTotal,        nullptr},
    {PartRule::POSITION_OF_TOTAL,     CheckRule::POSITION_OF_TOTAL, badPositionOfTotal,     nullptr},
    {PartRule::PERCENT_ESCAPES,       CheckRule::PERCENT_ESCAPE,    badPercentEscape,       nullptr},
    {PartRule::LATITUDE,              CheckRule::LATITUDE,          badLatitude,            largestLatitude},
    {PartRule::LONGITUDE,             CheckRule::LONGITUDE,         badLongitude,           largestLongitude},
    {PartRule::WINDING,               CheckRule::WINDING,           badWinding,             nullptr},
    {PartRule::SEX,                   CheckRule::SEX,               badSex,                 nullptr},
    {PartRule::IBAN,                  CheckRule::IBAN,              badIban,                nullptr},
    {PartRule::MEDIA_TYPE,            CheckRule::MEDIA_TYPE,        badMediaType,           nullptr},
    {PartRule::PACKAGE_TYPE,          CheckRule::PACKAGE_TYPE,      badPackageType,         nullptr},
        // clang-format on
};

constexpr bool entriesAreIndexes() {
    for (std::size_t i = 0; i < std::size(entries); ++i) {
        if (entries[i].rule != static_cast<PartRule>(i)) {
            return false;
        }
    }
    return std::size(entries) == PART_RULE_COUNT;
}
static_assert(entriesAreIndexes());

} // namespace

const PartRuleEntry& partRule(PartRule rule) {
    return entries[static_cast<std::size_t>(rule)];
}

} // namespace rosetag
