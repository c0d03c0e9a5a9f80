/*
 * What the command knows by itself, against the library.
 */
#include "explain/explain_ai_values.h"
#include "recognise/value_form.h"
#include "support/status.h"
#include "translate/library_calls.h"
#include "words/ai_dictionary.h"
#include "words/scheme_dictionary.h"

#include <gtest/gtest.h>

#include <string>

using namespace rosetag;

namespace {

std::string headerHex(int header) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    return {digits[static_cast<std::size_t>(header) / 16],
            digits[static_cast<std::size_t>(header) % 16]};
}

TEST(SchemeDictionary, HasTheHeadersOfTheLibrary) {
    for (int header = 0; header < 256; ++header) {
        std::string name;
        textFrom(name, [&](std::int32_t size, char* dst) {
            return epc_hexToTagSchemeName(headerHex(header).c_str(), size, dst);
        });
        const SchemeEntry* const entry = schemeByHeader(static_cast<std::uint8_t>(header));
        EXPECT_EQ(name, entry == nullptr ? "" : entry->name) << "header " << header;
    }
}

// The filter is tested before the body of a URI is read.
bool filterIsTaken(const SchemeEntry& entry, int filter) {
    const std::string uri =
        std::string(TAG_URI_PREFIX) + std::string(entry.name) + ':' + std::to_string(filter) + '.';
    std::string hex;
    return textFrom(hex, [&](std::int32_t size, char* dst) {
               return epc_epcTagUriToHex(uri.c_str(), size, dst);
           }) != EPC_ERR_FILTER_LIMIT;
}

TEST(SchemeDictionary, HasTheNamesLimitsAndReachOfTheLibrary) {
    for (const SchemeEntry& entry : schemes()) {
        SCOPED_TRACE(entry.name);
        EpcScheme scheme = -1;
        ASSERT_STATUS(EPC_OK, epc_tagSchemeNameToEnum(std::string(entry.name).c_str(), &scheme));
        EXPECT_EQ(entry.scheme, scheme);
        EXPECT_EQ(entry.filterLimit == 0, filterIsTaken(entry, 1000));
        if (entry.filterLimit > 0) {
            EXPECT_TRUE(filterIsTaken(entry, entry.filterLimit - 1));
            EXPECT_FALSE(filterIsTaken(entry, entry.filterLimit));
        }
        const std::string header = headerHex(entry.header);
        std::string text;
        const auto isSupported = [&](auto hexExport) {
            return textFrom(text, [&](std::int32_t size, char* dst) {
                       return hexExport(header.c_str(), size, dst);
                   }) != EPC_ERR_NOT_SUPPORTED;
        };
        EXPECT_EQ(entry.hasUris, isSupported(epc_hexToEpcTagUri));
        EXPECT_EQ(entry.hasGs1Texts, isSupported(epc_hexToGs1ElementString));
    }
}

bool libraryKnows(const std::string& ai) {
    return epc_AIToBinary(ai.c_str(), "", 0, 0, nullptr, nullptr) != EPC_ERR_UNKNOWN_AI;
}

TEST(AiDictionary, HasTheAisOfTheLibrary) {
    int known = 0;
    for (std::size_t length = 2, end = 100; length <= 4; ++length, end *= 10) {
        for (std::size_t number = 0; number < end; ++number) {
            const std::string code = zeroPadded(std::to_string(number), length);
            const AiEntry* const entry = aiEntryOf(code);
            ASSERT_EQ(libraryKnows(code), entry != nullptr) << "AI " << code;
            if (entry != nullptr) {
                ++known;
                EXPECT_FALSE(entry->title.empty()) << "AI " << code;
                EXPECT_EQ(length, aiCodeLength(code.substr(0, 2))) << "AI " << code;
            }
        }
    }
    EXPECT_EQ(520, known);
    for (const char* code : {"1", "012", "100", "0100", "01A", "3166", "99999", ""}) {
        EXPECT_EQ(nullptr, aiEntryOf(code)) << "AI " << code;
    }
}

// Text that a part can hold, long or short.
std::string sampleOf(const AiPart& part, bool isLong) {
    const auto size = static_cast<std::size_t>(part.size);
    constexpr std::string_view mixed = "7aB_9-cD";
    std::string text;
    switch (part.kind) {
    case AiPartKind::NONE:
        return {};
    case AiPartKind::SIGN:
        return isLong ? "-" : "";
    case AiPartKind::FLAG:
        return isLong ? "1" : "0";
    case AiPartKind::LETTERS:
        return isLong ? "ZA" : "DE";
    case AiPartKind::DATE:
        return isLong ? "991231" : "000229";
    case AiPartKind::DATE_TIME:
        return isLong ? "9912312359" : "0002290000";
    case AiPartKind::DATE_RANGE:
        return isLong ? "240229251231" : "240229";
    case AiPartKind::DATE_TIME_VAR:
        return isLong ? "240229235959" : "240229";
    case AiPartKind::TEXT:
    case AiPartKind::DIGITS_THEN_TEXT:
        for (std::size_t i = 0; i < (isLong ? std::min<std::size_t>(size, 60) : 1); ++i) {
            text += mixed[i % mixed.size()];
        }
        return text;
    case AiPartKind::VAR_NUMBER:
        return isLong ? std::string(size, '9') : "0";
    case AiPartKind::NUMBER:
    case AiPartKind::DIGITS:
        return std::string(size, isLong ? '9' : '0');
    }
    return {};
}

EpcStatus readElement(std::string_view ai, const std::string& value) {
    const std::string text = '(' + std::string(ai) + ')' + value;
    char code[5];
    char read[128];
    std::uint32_t count = 0;
    return epc_gs1ElementStringToAIs(text.c_str(), 1, sizeof read, code, read, &count);
}

// What a date or time of varying length may be, its own reader tells.
bool isVaryingDate(const AiEntry& entry) {
    return entry.parts[0].kind == AiPartKind::DATE_RANGE ||
           entry.parts[0].kind == AiPartKind::DATE_TIME_VAR;
}

TEST(AiDictionary, HasTheLongestValuesOfTheLibrary) {
    for (const AiEntry& entry : aiEntries()) {
        std::string value;
        for (const AiPart& part : entry.parts) {
            // Zeros are right with any check digit.
            value += part.size > 0 ? std::string(static_cast<std::size_t>(part.size), '0')
                                   : sampleOf(part, true);
        }
        SCOPED_TRACE("AI " + std::string(entry.last) + ", value " + value);
        EXPECT_STATUS(EPC_OK, readElement(entry.last, value));
        EXPECT_EQ(isVaryingDate(entry), readElement(entry.last, value + '1') == EPC_OK);
    }
}

// The bits that the library makes of a value are read back along the dictionary's parts.
TEST(AiDictionary, HasTheShapesOfTheLibrary) {
    for (const AiEntry& entry : aiEntries()) {
        for (const bool isLong : {false, true}) {
            const std::string code(entry.last);
            const std::string value =
                sampleOf(entry.parts[0], isLong) + sampleOf(entry.parts[1], isLong);
            SCOPED_TRACE("AI " + code + ", value " + value);
            std::string hex;
            std::int32_t bits = 0;
            ASSERT_STATUS(EPC_OK, textFrom(hex, [&](std::int32_t size, char* dst) {
                              return epc_AIToHex(code.c_str(), value.c_str(), 1, size, dst, &bits);
                          }));
            Walk walk{bitsOfHex(hex).substr(0, static_cast<std::size_t>(bits)), 0, {}, true};
            walkDataSection(walk, 0);
            std::string read;
            for (const ExplainedField& field : walk.fields) {
                read += field.value;
            }
            EXPECT_TRUE(walk.isGood);
            EXPECT_EQ(value, read);
            EXPECT_LE(walkLeft(walk), 0U);
        }
    }
}

} // namespace
