/*
 * Checking values: everything that is wrong is found, at its place, and nothing else is.
 */
#include "check/ai_rule.h"
#include "check/check_pair.h"
#include "gs1/ai_catalogue.h"
#include "toolkit/rows_of_file.h"

#include <rosetag/toolkit.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

using namespace rosetag;

namespace {

// As a row of the table of wrong texts writes it.
std::string shown(const Finding& finding) {
    return (finding.severity == Severity::WARNING ? "~" : "") +
           std::string(checkRuleWord(finding.rule)) + ' ' +
           (finding.ai.empty() ? "-" : finding.ai) + ' ' + std::to_string(finding.position) + '+' +
           std::to_string(finding.length);
}

std::string shown(const Rows<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += (text.empty() ? "" : ", ") + shown(finding);
    }
    return text;
}

struct Given {
    std::string text;
    ReadOptions options;
};

Given givenOf(const std::string& field) {
    Given given = {field, {}};
    if (field.starts_with('!')) {
        given.text.erase(0, 1);
        given.options.asBarcode = true;
    }
    return given;
}

// A prefix list is needed to break it.
constexpr CheckRule brokenElsewhere = CheckRule::UNASSIGNED_PREFIX;

TEST(Check, FindsAllThatIsWrong) {
    std::set<CheckRule> broken = {brokenElsewhere};
    const RowsOfFile rows = rowsOfFile("check_wrong.tsv");
    for (const auto& row : rows) {
        ASSERT_EQ(2U, row.size());
        const Given given = givenOf(row[0]);
        const Rows<Finding> findings = check(given.text, given.options);
        EXPECT_EQ(row[1], shown(findings)) << row[0];
        for (const Finding& finding : findings) {
            broken.insert(finding.rule);
            for (const char* word : {"{ai}", "{culprit}", "{detail}", "\n"}) {
                EXPECT_EQ(std::string::npos, finding.message.find(word)) << finding.message;
            }
            EXPECT_LE(finding.position + finding.length, given.text.size());
        }
    }
    EXPECT_GE(rows.size(), 200U);
    for (const CheckRuleInfo& rule : checkRules()) {
        EXPECT_TRUE(broken.contains(rule.rule)) << "no row breaks " << rule.word;
    }
}

std::string withCode(std::string text, const std::string& code) {
    const std::size_t at = text.find("(%)");
    return at == std::string::npos ? text : text.replace(at + 1, 1, code);
}

// The codes of "3100-3105".
std::vector<std::string> codesOf(const std::string& range) {
    const std::string first = range.substr(0, range.find('-'));
    std::vector<std::string> codes;
    for (std::string code = first;;) {
        codes.push_back(code);
        if (range.ends_with(code)) {
            return codes;
        }
        const std::string next = std::to_string(std::stoi(code) + 1);
        code = std::string(first.size() - next.size(), '0') + next;
    }
}

// What is found beside that an AI is new.
std::string faultsIn(const Given& given) {
    std::string text;
    for (const Finding& finding : check(given.text, given.options)) {
        if (finding.rule != CheckRule::NEWER_AI) {
            text += shown(finding) + ' ';
        }
    }
    return text;
}

TEST(Check, FindsNothingInWhatIsRight) {
    std::set<std::string> codes;
    std::size_t count = 0;
    for (const auto& row : rowsOfFile("check_right.tsv")) {
        ASSERT_EQ(2U, row.size());
        for (const std::string& code : row[0] == "-" ? std::vector{row[0]} : codesOf(row[0])) {
            const Given given = givenOf(withCode(row[1], code));
            EXPECT_EQ("", faultsIn(given)) << given.text;
            codes.insert(code);
            ++count;
        }
    }
    EXPECT_GE(count, 600U);
    for (std::size_t length = 2, end = 100; length < AI_CODE_SIZE; ++length, end *= 10) {
        for (std::size_t number = 0; number < end; ++number) {
            const std::string code = std::to_string(end + number).substr(1);
            EXPECT_EQ(knownAiOf(code).rule != nullptr, codes.contains(code)) << "AI " << code;
        }
    }
}

// Between blanks, and after the mark of a symbol.
TEST(Check, CountsPlacesInTheValueAsGiven) {
    const struct {
        const char* value;
        const char* findings;
    } cases[] = {
        {" ]E09506000134353 ", "check_digit 01 16+1"},
        {" ]C10109506000134353 ", "check_digit 01 19+1"},
        {" ]E ", "symbology - 1+2"},
        {" ]X90109506000134353 ", "symbology - 1+3, check_digit 01 19+1"},
        {" /01/09506000134353 ", "check_digit 01 18+1"},
        {" urn:epc:tag:sgtin-96:3.0614141.8123455.6789 ", "tag_value - 32+7"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.findings, shown(check(row.value))) << row.value;
    }
}

TEST(Check, TellsThePlaceInTheValueAsGiven) {
    const Rows<Finding> blanks = check("  (01)09506000134353\n");
    ASSERT_EQ(1U, blanks.size());
    EXPECT_EQ(19U, blanks[0].position);
    EXPECT_EQ("3", blanks[0].culprit);
    EXPECT_EQ(
        "at character 20, \"3\": the check digit of AI 01 must be 2 after these digits, not 3: "
        "look for a mistyped digit, or end with 2",
        findingText(blanks[0]));
}

TEST(Check, HasItsRulesInTheDocuments) {
    std::ifstream file(std::string(ROSETAG_TEST_TABLES) + "/../../docs/check.md");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (const CheckRuleInfo& rule : checkRules()) {
        EXPECT_NE(text.npos, text.find('`' + std::string(rule.word) + '`')) << rule.word;
    }
}

TEST(Check, GivesItsFindingsAsJson) {
    std::string json;
    appendJson(json, check("(01)09506000134353"), "(01)09506000134353", 7);
    EXPECT_EQ(
        R"({"line":7,"value":"(01)09506000134353","findings":[{"severity":"error",)"
        R"("rule":"check_digit","ai":"01","position":17,"length":1,"culprit":"3",)"
        R"("message":"the check digit of AI 01 must be 2 after these digits, not 3: look for a )"
        R"(mistyped digit, or end with 2"}]})",
        json);
}

TEST(Check, LooksUpCompanyPrefixesInAList) {
    GcpList list;
    list.date = "2026-01-01";
    list.entries = {{950000000000, 3, 0}, {950600000000, 4, 7}};
    ReadOptions options;
    options.gcpList = &list;
    EXPECT_EQ("", shown(check("(01)09506000134352", options)));
    EXPECT_EQ("unassigned_prefix 01 5+4", shown(check("(01)09501000134357", options)));
    EXPECT_EQ("", shown(check("(01)00012000161155", options)));
}

// The AIs whose value has a company prefix, and after how many characters.
// Source: GS1 General Specifications, section 3.
constexpr const char* prefixPlaces[] = {
    "00 1",   "01 1",   "02 1",   "03 1",   "253 0",  "255 0",  "401 0",  "402 0",  "410 0",
    "411 0",  "412 0",  "413 0",  "414 0",  "415 0",  "416 0",  "417 0",  "7023 0", "8003 1",
    "8004 0", "8006 1", "8010 0", "8013 0", "8014 0", "8017 0", "8018 0", "8026 1",
};

TEST(Check, LooksUpThePrefixOfEachKeyAndOfNothingElse) {
    GcpList list;
    for (int prefix = 0; prefix < 1000; ++prefix) {
        EXPECT_EQ("", gcpListAdd(list, std::to_string(1000 + prefix).substr(1), "0"));
    }
    std::set<std::string> found;
    for (const auto& row : rowsOfFile("check_right.tsv")) {
        for (const std::string& code :
             row[0] == "-" ? std::vector<std::string>() : codesOf(row[0])) {
            Given given = givenOf(withCode(row[1], code));
            given.options.gcpList = &list;
            const std::size_t value = given.text.find('(' + code + ')') + code.size() + 2;
            for (const Finding& finding : check(given.text, given.options)) {
                if (finding.rule == CheckRule::UNASSIGNED_PREFIX && finding.ai == code) {
                    found.insert(code + ' ' + std::to_string(finding.position - value));
                }
            }
        }
    }
    EXPECT_EQ(std::set<std::string>(std::begin(prefixPlaces), std::end(prefixPlaces)), found);
}

// Source of the example: GS1 General Specifications, section 7.9.5.
TEST(CheckPair, IsThatOfTheStandard) {
    const auto pair = checkPairOf("1987654Ad4X4bL5ttr2310c");
    EXPECT_EQ("2K", std::string(pair.begin(), pair.end()));
}

} // namespace
