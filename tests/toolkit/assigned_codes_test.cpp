/*
 * The country and currency codes against a second witness, Debian's package iso-codes.
 */
#include "check/assigned_codes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

using namespace rosetag;

namespace {

// The texts that stand for a key anywhere in a file.
std::set<std::string> valuesOf(const std::string& standard, const std::string& key) {
    std::ifstream file("/usr/share/iso-codes/json/" + standard + ".json");
    std::stringstream text;
    text << file.rdbuf();
    const std::string json = text.str();
    const std::regex member('"' + key + "\": \"([^\"]*)\"");
    std::set<std::string> values;
    for (std::sregex_iterator match(json.begin(), json.end(), member), end; match != end; ++match) {
        values.insert((*match)[1]);
    }
    return values;
}

std::string threeDigits(int number) {
    return std::to_string(1000 + number).substr(1);
}

TEST(AssignedCodes, AreTheCountriesOfIso) {
    const std::set<std::string> numbers = valuesOf("iso_3166-1", "numeric");
    const std::set<std::string> letters = valuesOf("iso_3166-1", "alpha_2");
    ASSERT_EQ(249U, numbers.size()) << "is the package iso-codes installed?";
    for (int number = 0; number < 1000; ++number) {
        const std::string digits = threeDigits(number);
        EXPECT_EQ(numbers.contains(digits), isCountryNumber(digits)) << digits;
    }
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second) {
            const std::string pair = {first, second};
            EXPECT_EQ(letters.contains(pair), isCountryLetters(pair)) << pair;
        }
    }
}

TEST(AssignedCodes, AreTheCurrenciesOfIso) {
    std::set<std::string> numbers = valuesOf("iso_4217", "numeric");
    ASSERT_GE(numbers.size(), 178U) << "is the package iso-codes installed?";
    numbers.insert("924"); // Zimbabwe Gold, of 2024
    for (int number = 0; number < 1000; ++number) {
        const std::string digits = threeDigits(number);
        EXPECT_EQ(numbers.contains(digits), isCurrencyNumber(digits)) << digits;
    }
}

TEST(AssignedCodes, HaveNoOtherForm) {
    for (const char* text : {"", "27", "2760", "27A", "-01", "000", "de", "D", "DEU"}) {
        EXPECT_FALSE(isCountryNumber(text) || isCountryLetters(text) || isCurrencyNumber(text))
            << text;
    }
}

} // namespace
