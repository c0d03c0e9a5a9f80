/*
 * The front header as a program uses it: one call for whatever a value is, results as JSON, and
 * loops that allocate nothing.
 */
#include "support/counted_allocations.h"

#include <rosetag/rosetag.hpp>
#include <rosetag/toolkit.hpp>

#include <gtest/gtest.h>

#include <cstddef>

using namespace rosetag;

namespace {

TEST(Toolkit, SaysWhateverThisIs) {
    const Translation item = translate("3074257BF7194E4000001A85");
    EXPECT_EQ("an EPC value in hex, scheme sgtin-96", describe(item));
    EXPECT_EQ("urn:epc:tag:sgtin-96:3.0614141.812345.6789", item.tagUri);
    EXPECT_EQ("urn:epc:id:sgtin:0614141.812345.6789", item.pureIdentity);
    EXPECT_EQ("(01)80614141123458(21)6789", item.elementString);
    EXPECT_EQ("0180614141123458216789", item.barcodeString);
    EXPECT_EQ("/01/80614141123458/21/6789", item.digitalLink);
    EXPECT_EQ("80614141123458", item.gtin);
    EXPECT_EQ("6789", item.serial);
    EXPECT_EQ(3, item.filter);
    EXPECT_EQ(ROSETAG_VERSION, version());
}

// What distinguishes an object from others of its key, wherever its AIs have it.
TEST(Toolkit, FindsTheSerialNumber) {
    const char* const rows[][2] = {
        {"(01)80614141123458(21)6789", "6789"}, {"(414)0614141123452(254)32a", "32a"},
        {"(8003)00614141123452AB", "AB"},       {"(253)4012345987652X1", "X1"},
        {"(255)401234567890104711", "04711"},   {"(8010)06141415PQ7(8011)12345", "12345"},
        {"(8006)040123451234560204(21)9", "9"}, {"(00)106141412345678908", ""},
        {"(01)80614141123458(10)LOT7", ""},
    };
    for (const auto& [value, serial] : rows) {
        EXPECT_EQ(serial, translate(value, {}, Form::SERIAL).serial) << value;
    }
}

TEST(Toolkit, ComputesWhatIsAskedFor) {
    for (const char* const value :
         {"3074257BF7194E4000001A85", "(01)80614141123458(21)6789",
          "urn:epc:id:sgtin:0614141.812345.6789", "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
          "/01/80614141123458/21/6789", "F7380614141123458046A140"}) {
        ReadOptions options;
        options.gcpLength = 7;
        const Translation all = translate(value, options);
        for (const Form form :
             {Form::HEX, Form::TAG_URI, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
              Form::BARCODE_STRING, Form::DIGITAL_LINK, Form::GTIN, Form::SERIAL}) {
            const Translation one = translate(value, options, form);
            for (const Form other :
                 {Form::HEX, Form::TAG_URI, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
                  Form::BARCODE_STRING, Form::DIGITAL_LINK, Form::GTIN, Form::SERIAL}) {
                EXPECT_EQ(form == other ? formText(all, form) : "", formText(one, other))
                    << value << ' ' << formWord(form) << ' ' << formWord(other);
            }
            EXPECT_EQ(form, formByWord(formWord(form)));
        }
        EXPECT_FALSE(all.ais.empty());
    }
}

// The texts of a tag value become the same tag value again.
TEST(Toolkit, EncodesEveryFormOfATagValue) {
    const Translation item = translate("3074257BF7194E4000001A85");
    EncodeOptions options;
    options.scheme = item.scheme;
    options.filter = item.filter;
    options.read.gcpLength = 7;
    for (const Form form : {Form::HEX, Form::TAG_URI, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
                            Form::DIGITAL_LINK}) {
        EXPECT_EQ(item.hex, encode(formText(item, form), options).hex) << formWord(form);
    }
    options.read.asBarcode = true;
    EXPECT_EQ(item.hex, encode(item.barcodeString, options).hex);
}

struct CheckedValue {
    const char* value;
    const char* rules;  // that check finds broken, where the value can be read
    EpcStatus strictly; // what becomes of it if an error is a failure
};

TEST(Toolkit, TellsWhatCheckFindsIfAsked) {
    const CheckedValue rows[] = {
        {"(01)80614141123458(21)6789(17)251301", " date", EPC_ERR_BAD_FORMAT},
        {"]C1018061414112345821A^B", " character_set_82", EPC_ERR_BAD_FORMAT},
        {"(10)LOT7", " needs", EPC_OK},
        {"F7080614141123459046A140", " check_digit", EPC_ERR_CHECK_DIGIT},
        {"FA90614141E23ABC21625D83103000BD17305D00", " needs needs needs", EPC_OK},
        {"urn:epc:tag:sgtin-96:3.0614141.812345.6789", "", EPC_OK},
        {"(01)80614141123459(21)6789(17)251301", "", EPC_ERR_CHECK_DIGIT},
    };
    const auto rulesOf = [](const Translation& item) {
        std::string rules;
        for (const Finding& finding : item.findings) {
            rules += ' ' + std::string(checkRuleWord(finding.rule));
        }
        return rules;
    };
    ReadOptions strict;
    strict.strict = true;
    EncodeOptions options;
    options.scheme = schemeByName("sgtin-198");
    options.read.gcpLength = 7;
    for (const CheckedValue& row : rows) {
        const Translation item = translate(row.value, {}, Form::FINDINGS);
        EXPECT_EQ(row.rules, rulesOf(item)) << row.value;
        EXPECT_TRUE(item.ais.empty() && translate(row.value).findings.empty()) << row.value;
        EXPECT_EQ(row.strictly, translate(row.value, strict, Form::FINDINGS).failure.status)
            << row.value;
        const Translation tag = encode(row.value, options, Form::FINDINGS);
        EXPECT_EQ(isFailure(tag.failure) ? "" : row.rules, rulesOf(tag)) << row.value;
        EXPECT_TRUE(tag.ais.empty()) << row.value;
    }
}

TEST(Toolkit, WritesJson) {
    const std::string value = "]d201806141411234582167\x1d"
                              "10\xC3\xA4\xE0\x9F\xBF\xED\xA0\x80\"\\";
    EXPECT_EQ(R"({"line":7,"value":"]d201806141411234582167\u001d10ä)"
              "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
              R"(\"\\","form":"barcode_string","serial":"67"})",
              toJson(translate(value, {}, Form::SERIAL), value, 7U));
    EXPECT_EQ(
        R"({"value":"42","form":"hex","status":"EPC_ERR_UNKNOWN_HEADER",)"
        R"("message":"no scheme has the header 0x42","remedy":"an EPC begins with the header )"
        R"(of its scheme, for example 30 for sgtin-96","position":0,"length":2,"culprit":"42"})",
        toJson(translate("42"), "42"));
    EXPECT_EQ(R"({"ai":"21","title":"SERIAL","value":"ABCG","hex":"64001086","bits":32})",
              toJson(encodeAi("21", "ABCG")));
    EXPECT_EQ(R"({"number":17,"name":"gid-96","family":"gid",)"
              R"("thing":"an object with a general identifier","header":"0x35","filter_limit":0,)"
              R"("uri":true,"gs1":false,"further_ais":false})",
              toJson(schemes()[EPC_SCHEME_GID_96]));
}

TEST(Toolkit, AllocatesNothingOnceItsResultHasGrown) {
    const char* const values[] = {"3074257BF7194E4000001A85",
                                  "30 74 25 7B F7 19 4E 40 00 00 1A 85",
                                  "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
                                  "(01)80614141123458(21)6789(10)LOT7",
                                  "]C1018061414112345810LOT7{GS}216789",
                                  "/01/80614141123458/21/6789",
                                  "FA90614141E23ABC21625D83103000BD17305D00"};
    ReadOptions options;
    options.gcpLength = 7;
    Translation item;
    std::string json;
    const auto runAll = [&] {
        for (const char* const value : values) {
            translate(value, options, ALL_FORMS, item);
            EXPECT_EQ(EPC_OK, item.failure.status) << value;
            json.clear();
            appendJson(json, item, value);
        }
    };
#ifdef COUNTS_ALLOCATIONS
    EXPECT_LT(0, allocationsOf(runAll)) << "the allocator of this program is not in use";
    runAll();
    EXPECT_EQ(0, allocationsOf(runAll));
#else
    runAll();
    GTEST_SKIP() << "the allocator of this build cannot be replaced";
#endif
}

TEST(Toolkit, KnowsFiltersByTheirWords) {
    const SchemeInfo& sgtin = *schemeByName("sgtin-96");
    EXPECT_EQ(1, filterByWord(sgtin, "POS"));
    EXPECT_EQ(4, filterByWord(sgtin, "inner pack"));
    EXPECT_EQ(4, filterByWord(sgtin, "inner-pack"));
    EXPECT_EQ(std::nullopt, filterByWord(sgtin, "pallet"));
    EXPECT_EQ(0, filterByWord(*schemeByName("usdod-96"), "pallet"));
    EXPECT_TRUE(filterWords(*schemeByName("gid-96")).empty());
    for (const SchemeInfo& scheme : schemes()) {
        for (const FilterWord& word : filterWords(scheme)) {
            EXPECT_LT(word.filter, scheme.filterLimit) << scheme.name;
            EXPECT_EQ(word.filter, filterByWord(scheme, word.word));
        }
    }
}

// The PC word and the CRC are shown in front of the fields of the EPC.
TEST(Toolkit, ExplainsTheWordsBeforeTheEpc) {
    const Explanation plain = explain("3074257BF7194E4000001A85");
    const Explanation bank = explain("AAF930003074257BF7194E4000001A85");
    EXPECT_EQ(32U, plain.bankAddress);
    EXPECT_EQ(0U, bank.bankAddress);
    const char* const names[] = {"CRC",         "EPC length", "user memory",
                                 "extended PC", "toggle",     "attribute bits"};
    ASSERT_EQ(plain.fields.size() + std::size(names), bank.fields.size());
    for (std::size_t i = 0; i < bank.fields.size(); ++i) {
        EXPECT_EQ(i < std::size(names) ? names[i] : plain.fields[i - std::size(names)].name,
                  bank.fields[i].name);
    }
}

// The shortcut for tag values of 96 bits gives what the usual way gives.
TEST(Convert, GivesWhatTranslateGives) {
    const std::string values[] = {"30FFFFFFFFFFFFFFFFFFFFFF",
                                  "3074257BF7194E4000001A85",
                                  "3114257BF4499602D2000000",
                                  "3174257BF4499602D2000001",
                                  "3214257BF460720000000190",
                                  "3214257BF460720000000000",
                                  "3314257BF40C0E4000000190",
                                  "3414257BF400000000BC6038",
                                  "2C14257BF460720000000190",
                                  "3C14257BF400026900000190",
                                  "3F14257BF460720000000578",
                                  "350000001000002000000003",
                                  "3A14257BF46072000000000002BC0000",
                                  "2F0000000000000000000000",
                                  "3074257bf7194e4000001a85",
                                  "3074257BF7194E40000000000",
                                  "F774257BF7194E4000001A85",
                                  "36300000000000000000000000",
                                  "(01)80614141123458(21)6789",
                                  "https://example.com/01/9506000134352",
                                  "",
                                  "urn:epc:id:sgtin:0614141.812345.6789"};
    Translation room;
    int texts = 0;
    int aiValues = 0;
    for (const std::string& value : values) {
        std::string bytes;
        for (std::size_t i = 0; i + 1 < value.size(); i += 2) {
            bytes += static_cast<char>(std::strtol(value.substr(i, 2).c_str(), nullptr, 16));
        }
        const std::span<const std::uint8_t> span(
            reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        const Translation ais = translate(value, {}, Form::AIS);
        const bool isTag =
            ais.form == Form::HEX && value.size() % 2 == 0 && value.find('f') == std::string::npos;
        for (const char* const ai :
             {"00", "01", "21", "254", "255", "414", "8003", "8004", "8011"}) {
            SCOPED_TRACE(value + " as the AI " + ai);
            const std::string_view expected =
                isFailure(ais.failure) ? std::string_view() : aiValueOf(ais, ai);
            EXPECT_EQ(expected, convertToAi(value, {}, ai, room));
            EXPECT_EQ(ais.failure.status, room.failure.status);
            aiValues += expected.empty() ? 0 : 1;
            if (isTag) {
                EXPECT_EQ(expected, convertToAi(span, {}, ai, room));
            }
        }
        for (const Form form :
             {Form::TAG_URI, Form::HEX, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
              Form::BARCODE_STRING, Form::DIGITAL_LINK, Form::GTIN, Form::SERIAL}) {
            SCOPED_TRACE(value + " as " + std::string(formWord(form)));
            const Translation expected = translate(value, {}, form);
            const std::string_view text =
                isFailure(expected.failure) ? std::string_view() : formText(expected, form);
            EXPECT_EQ(text, convert(value, {}, form, room));
            EXPECT_EQ(expected.failure.status, room.failure.status);
            texts += text.empty() ? 0 : 1;
            if (isTag) {
                EXPECT_EQ(text, convert(span, {}, form, room));
                EXPECT_EQ(expected.failure.status, room.failure.status);
            }
        }
    }
    EXPECT_GT(texts, 60);
    EXPECT_GT(aiValues, 12);
    const std::vector<std::uint8_t> likeGtin = {0x30, 0x50, 0x60, 0x00, 0x13, 0x43, 0x52};
    EXPECT_EQ("", convert(likeGtin, {}, Form::GTIN, room));
    EXPECT_EQ(EPC_ERR_TRUNCATED, room.failure.status);
    EXPECT_EQ("30506000134352", convert("30506000134352", {}, Form::GTIN, room));
    EXPECT_EQ(EPC_OK, recognise("(10)" + std::string(MAX_VALUE_LENGTH - 4, 'A')).failure.status);
    const std::vector<std::uint8_t> tooLong(MAX_VALUE_LENGTH + 1);
    EXPECT_EQ("", convert(tooLong, {}, Form::HEX, room));
    EXPECT_EQ(EPC_ERR_TOO_LONG, room.failure.status);
}

} // namespace
