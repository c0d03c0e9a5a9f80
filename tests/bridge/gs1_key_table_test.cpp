#include "bridge/gs1_key_table.h"

#include "gs1/ai_catalogue.h"
#include "schemes/tag_scheme.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rosetag;

namespace {

TEST(Gs1KeyTable, FindsWholeNamesOnly) {
    for (const Gs1KeyDefinition& key : gs1KeyTable) {
        EXPECT_EQ(&key, gs1KeyFindByName(key.familyName)) << key.familyName;
    }
    for (const char* name : {"", "sgti", "sgtin-96", "SGTIN", "gsrnpp", "dsgtin", "gid", "adi"}) {
        EXPECT_EQ(nullptr, gs1KeyFindByName(name)) << name;
    }
}

TEST(Gs1KeyTable, FindsTheFirstKeyOfAnAi) {
    for (const Gs1KeyDefinition& key : gs1KeyTable) {
        const std::string_view expected = key.familyName == "upui" ? "sgtin" : key.familyName;
        EXPECT_EQ(gs1KeyFindByName(expected), gs1KeyFindByAi(key.primaryAi)) << key.familyName;
    }
    for (const char* code : {"", "0", "011", "21", "800", "80030"}) {
        EXPECT_EQ(nullptr, gs1KeyFindByAi(code)) << code;
    }
}

// The lengths of a key are those of its AIs.
TEST(Gs1KeyTable, AgreesWithTheAiCatalogue) {
    for (const Gs1KeyDefinition& key : gs1KeyTable) {
        const AiDefinition* const primary = aiFind(key.primaryAi);
        ASSERT_NE(nullptr, primary) << key.familyName;
        EXPECT_EQ(key.tailIsSecondaryAi == 1, aiFind(key.secondaryAi) != nullptr) << key.familyName;
        std::int32_t fixedLength = 0;
        for (const AiComponent& component : primary->components) {
            fixedLength += component.digitCount;
        }
        std::int32_t extraLength = 0;
        for (const std::int32_t length : key.extraFieldLengths) {
            extraLength += length;
        }
        const bool isGsin = key.familyName == "gsin"; // of 17 digits, but read like a variable one
        EXPECT_EQ(isGsin ? 17 : key.keyValueLength + extraLength, fixedLength) << key.familyName;
    }
}

TEST(Gs1KeyTable, HoldsTheKeyOfEachSchemeWithAGs1Form) {
    for (const TagSchemeOps& row : tagSchemeTable) {
        const bool isBridged = row.info.plus == 0 && row.binaryToElementString != nullptr;
        EXPECT_TRUE(!isBridged || gs1KeyFindByName(row.info.familyWord) != nullptr)
            << row.info.name;
    }
}

} // namespace
