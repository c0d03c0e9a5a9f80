/*
 * The lists that users bring: what they say, and what is said of files that are not as they should
 * be.
 */
#include <rosetag/toolkit.hpp>

#include <gtest/gtest.h>

#include <optional>
#include <string>

using namespace rosetag;

namespace {

const std::string xmlList = R"(<?xml version="1.0" encoding="utf-8"?>
<!-- of GS1 -->
<GCPPrefixFormatList date="2026-01-01T00:00:00" further="x">
    <entry prefix="0000030" gcpLength="12"/>
    <entry prefix="9506" gcpLength="7" further="x"/>
    <entry prefix="95060001" gcpLength="9"/>
    <entry prefix="020" gcpLength="0"/>
    <entry prefix="950612345678" gcpLength="12"/>
</GCPPrefixFormatList>
)";

const std::string jsonList = R"({"_disclaimer": ["a", {"entry": [1]}], "GCPPrefixFormatList": {
    "date": "2026-01-01T00:00:00", "further": {"prefix": "999"}, "entry": [
    {"prefix": "0000030", "gcpLength": 12},
    {"prefix": "9506", "gcpLength": 7, "further": [null, true, 1.5, {"prefix": 1}]},
    {"gcpLength": 9, "prefix": "95060001"},
    {"prefix": "020", "gcpLength": 0},
    {"prefix": "950612345678", "gcpLength": "12"}]}}
)";

std::string answerText(const GcpAnswer& answer) {
    switch (answer.kind) {
    case GcpAnswer::Kind::LENGTH:
        return std::to_string(answer.length);
    case GcpAnswer::Kind::NO_PREFIX:
        return "none";
    case GcpAnswer::Kind::NOT_LISTED:
        return "not listed";
    }
    return {};
}

TEST(GcpList, AnswersWithTheLongestPrefix) {
    struct Row {
        std::string_view digits;
        const char* answer;
    };
    constexpr Row rows[] = {
        {"950600013435", "9"},
        {"95060001", "9"},
        {"9506000", "7"},
        {"9506", "7"},
        {"950", "not listed"},
        {"95", "not listed"},
        {"", "not listed"},
        {"9507123456789", "not listed"},
        {"0201234567890", "none"},
        {"020", "none"},
        {"0000030123456", "12"},
        {"000003", "not listed"},
        {"9506123456700", "7"},
        {"9506123456789", "12"},
        {"9506A", "7"},
        {"A506", "not listed"},
    };
    for (const std::string& text : {xmlList, "\xEF\xBB\xBF" + jsonList}) {
        GcpList list;
        const Failure failure = readGcpList(text, list);
        ASSERT_FALSE(isFailure(failure)) << failure.message;
        EXPECT_EQ("2026-01-01T00:00:00", list.date);
        EXPECT_EQ(5U, list.entries.size());
        for (const Row& row : rows) {
            EXPECT_EQ(row.answer, answerText(gcpLengthOf(list, row.digits))) << row.digits;
        }
    }
}

TEST(GcpList, IsAskedFromWhereThePrefixOfAKeyBegins) {
    struct Row {
        const char* ai;
        const char* value;
        const char* digits;
    };
    constexpr Row rows[] = {
        {"01", "19506000134359", "9506000134359"},
        {"00", "395060001343520007", "95060001343520007"},
        {"8003", "09506000134352A", "9506000134352A"},
        {"8006", "195060001343590102", "95060001343590102"},
        {"414", "9506000134352", "9506000134352"},
        {"8004", "9506000A", "9506000A"},
        {"253", "9506000134352A", "9506000134352A"},
        {"02", "19506000134359", "9506000134359"},
        {"10", "9506000", ""},
        {"01", "", ""},
        {"05", "9506000", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.digits, companyPrefixOnwards(row.ai, row.value)) << row.ai;
    }
}

TEST(GcpList, GivesTheLengthThatAKeyNeeds) {
    GcpList list;
    ASSERT_FALSE(isFailure(readGcpList(xmlList, list)));
    struct Row {
        const char* value;
        std::optional<int> gcpLength;
        const char* pureIdentity; // or what is said in its place
    };
    const Row rows[] = {
        {"(01)09506123434353(21)1", {}, "urn:epc:id:sgtin:9506123.043435.1"},
        {"(01)09506000134352(21)1", {}, "urn:epc:id:sgtin:950600013.0435.1"},
        {"(01)09506000134352(21)1", 8, "urn:epc:id:sgtin:95060001.03435.1"},
        {"/00/395060001343520001", {}, "urn:epc:id:sscc:950600013.34352000"},
        {"(01)00201234567899(21)1",
         {},
         "according to the prefix list of 2026-01-01T00:00:00, no GS1 company prefix begins like "
         "0201234567899"},
        {"(01)01234567890128(21)1",
         {},
         "the company prefix of 1234567890128 is not in the prefix list of 2026-01-01T00:00:00"},
        {"(01)00201234567899(21)1", 7, "urn:epc:id:sgtin:0201234.056789.1"},
    };
    for (const Row& row : rows) {
        ReadOptions read;
        read.gcpList = &list;
        read.gcpLength = row.gcpLength;
        const Translation item = translate(row.value, read);
        const std::string_view shown = item.pureIdentity.empty() && !item.notes.empty()
                                           ? std::string_view(item.notes.back().text)
                                           : std::string_view(item.pureIdentity);
        EXPECT_TRUE(shown.ends_with(row.pureIdentity)) << shown;
        EncodeOptions options;
        options.read = read;
        const bool isSscc = row.value[0] == '/';
        options.scheme = schemeByName(isSscc ? "sscc-96" : "sgtin-198");
        const Translation tag = encode(row.value, options, Form::PURE_IDENTITY);
        EXPECT_EQ(row.pureIdentity,
                  isFailure(tag.failure) ? tag.failure.message : tag.pureIdentity);
        if (isFailure(tag.failure)) {
            EXPECT_TRUE(tag.failure.message.find(tag.failure.culprit) != std::string::npos)
                << tag.failure.culprit;
            EXPECT_EQ(5U, tag.failure.position);
        }
    }
    // A value of a plus scheme says no more of its prefix than a text.
    EncodeOptions options;
    options.scheme = schemeByName("sgtin+");
    const std::string plus = encode("(01)09506000134352(21)1", options).hex;
    options.scheme = schemeByName("sgtin-96");
    options.read.gcpList = &list;
    EXPECT_EQ("urn:epc:id:sgtin:950600013.0435.1",
              encode(plus, options, Form::PURE_IDENTITY).pureIdentity);
}

const std::string designerList = R"({"name": "x", "version": "2026-01-01", "further": {"mdid": 1},
"registeredMaskDesigners": [
    {"mdid": "000000011", "manufacturer": "Zweite GmbH"},
    {"mdid": "000000001", "manufacturer": "Fa. Müller", "manufacturerUrl": "https://example.com/",
     "chips": [{"tmnHex": "107", "tmnBinary": "000100000111", "modelName": "B", "note": {"tmnBinary": null}},
               {"tmnBinary": "000100000101", "modelName": "A", "productUrl": "https://example.com/a"}]}
]})";

TEST(DesignerList, NamesDesignersAndTheirModels) {
    DesignerList list;
    const Failure failure = readDesignerList(designerList, list);
    ASSERT_FALSE(isFailure(failure)) << failure.message;
    EXPECT_EQ("2026-01-01", list.version);
    ASSERT_EQ(2U, list.designers.size());
    EXPECT_EQ(nullptr, designerOf(list, 2));
    ASSERT_NE(nullptr, designerOf(list, 3));
    EXPECT_EQ("Zweite GmbH", designerOf(list, 3)->name);
    EXPECT_EQ(nullptr, chipOf(*designerOf(list, 3), 0x105));
    // The bits beside the number say other things of the tag.
    const ChipDesigner* const first = designerOf(list, TID_XTID_MASK | 1U);
    ASSERT_NE(nullptr, first);
    EXPECT_EQ("Fa. M\xC3\xBCller", first->name);
    EXPECT_EQ("https://example.com/", first->url);
    EXPECT_EQ(nullptr, chipOf(*first, 0x106));
    ASSERT_NE(nullptr, chipOf(*first, 0x105));
    EXPECT_EQ("A", chipOf(*first, 0x105)->name);
    EXPECT_EQ("https://example.com/a", chipOf(*first, 0x105)->url);
    EXPECT_EQ("B", chipOf(*first, 0x107)->name);
}

struct BadFile {
    std::string text;
    const char* message; // the beginning
};

std::string xmlOf(const std::string& entries) {
    return "<GCPPrefixFormatList date=\"x\">\n" + entries + "\n</GCPPrefixFormatList>";
}

std::string jsonOf(const std::string& entries) {
    return "{\"GCPPrefixFormatList\": {\"entry\": [\n" + entries + "\n]}}";
}

TEST(GcpList, SaysWhereAFileIsNotAsItShouldBe) {
    const BadFile rows[] = {
        {"", "line 1, column 1: this is not JSON"},
        {"prefix;length\n", "line 1, column 1: this is not JSON"},
        {"{\n\"a\": [1,,2]}", "line 2, column 9: this is not JSON"},
        {"{\"a\": 1} x", "line 1, column 10: this is not JSON"},
        {"{}", "line 1, column 1: there is no entry"},
        {"<html></html>", "line 1, column 1: there is no entry"},
        {"<a>\n<b></a>", "line 2, column 6: this is not XML: "},
        {xmlOf("<entry prefix=\"95\" gcpLength=\"7\"/>"),
         "line 2, column 2: the prefix \"95\" does"},
        {xmlOf("<entry gcpLength=\"7\"/>"), "line 2, column 2: the prefix \"\" does"},
        {xmlOf("<entry prefix=\"950A\" gcpLength=\"7\"/>"),
         "line 2, column 2: the prefix \"950A\""},
        {xmlOf("<entry prefix=\"9506123456789\" gcpLength=\"7\"/>"),
         "line 2, column 2: the prefix"},
        {xmlOf("<entry prefix=\"950\" gcpLength=\"13\"/>"),
         "line 2, column 2: the gcpLength \"13\""},
        {xmlOf("<entry prefix=\"950\" gcpLength=\"-1\"/>"),
         "line 2, column 2: the gcpLength \"-1\""},
        {xmlOf("<entry prefix=\"950\"/>"), "line 2, column 2: the gcpLength \"\" of prefix 950"},
        {xmlOf("<entry prefix=\"020\" gcpLength=\"7\"/>\n<entry prefix=\"020\" gcpLength=\"8\"/>"),
         "line 1, column 1: prefix 020 has two lengths"},
        {jsonOf("{\"prefix\": \"950\", \"gcpLength\": 7},\n{\"prefix\": 95, \"gcpLength\": 7}"),
         "line 3, column 30: the prefix \"95\" does"},
        {jsonOf("{\"prefix\": \"950\", \"gcpLength\": 7.5}"),
         "line 2, column 35: the gcpLength \"7.5\""},
        {jsonOf("{\"prefix\": \"950\""), "line 3, column 1: this is not JSON"},
    };
    for (const BadFile& row : rows) {
        GcpList list;
        list.date = "of before";
        const Failure failure = readGcpList(row.text, list);
        EXPECT_EQ(EPC_ERR_BAD_FORMAT, failure.status) << row.text;
        EXPECT_EQ(row.message, failure.message.substr(0, std::string(row.message).size()))
            << row.text;
        EXPECT_TRUE(list.entries.empty() && list.date.empty());
    }
}

TEST(DesignerList, SaysWhereAFileIsNotAsItShouldBe) {
    const auto listOf = [](const std::string& designers) {
        return "{\"registeredMaskDesigners\": [\n" + designers + "\n]}";
    };
    const BadFile rows[] = {
        {"<xml/>", "line 1, column 1: this is not JSON"},
        {"{\"designers\": []}", "line 1, column 1: there is no entry"},
        {listOf(R"({"mdid": "00000001"})"), "line 2, column 20: the mdid \"00000001\" does not"},
        {listOf(R"({"mdid": "000000002"})"), "line 2, column 21: the mdid \"000000002\" does not"},
        {listOf(R"({"manufacturer": "x"})"), "line 2, column 21: the mdid \"\" does not"},
        {listOf(R"({"mdid": "000000001", "chips": [{"tmnBinary": "1"}]})"),
         "line 2, column 50: the tmnBinary \"1\" does not"},
    };
    for (const BadFile& row : rows) {
        DesignerList list;
        const Failure failure = readDesignerList(row.text, list);
        EXPECT_EQ(EPC_ERR_BAD_FORMAT, failure.status) << row.text;
        EXPECT_EQ(row.message, failure.message.substr(0, std::string(row.message).size()))
            << row.text;
        EXPECT_TRUE(list.designers.empty());
    }
}

} // namespace
