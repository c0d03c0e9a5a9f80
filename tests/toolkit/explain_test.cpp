/*
 * Every value that is explained, against the library's own decoding: sound values of every scheme,
 * and the same with bits flipped, bytes changed and ends cut off; and a value of every AI.
 */
#include "gs1/ai_table.h"
#include "schemes/scheme_model.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>
#include <rosetag/toolkit.hpp>

#include <map>
#include <set>
#include <string>

using namespace rosetag;

namespace {

// What an explanation says of the AIs: "21=A 10=B". The bits of a code begin a new one.
std::string explainedAis(const Explanation& explanation) {
    std::string text;
    std::string current;
    for (const ExplainedField& field : explanation.fields) {
        if (field.name == "AI code") {
            current.clear();
        }
        if (field.ai.empty()) {
            continue;
        }
        if (field.ai != current) {
            text += (text.empty() ? "" : " ") + field.ai + '=';
            current = field.ai;
        }
        text += field.value;
    }
    return text;
}

std::string libraryAis(const Translation& forms) {
    std::string text;
    for (const AiValue& ai : forms.ais) {
        text += (text.empty() ? "" : " ") + ai.ai + '=' + ai.value;
    }
    return text;
}

std::string uriEscaped(const std::string& text) {
    constexpr std::string_view escaped = " \"#%&()/<>?";
    std::string result;
    for (const char character : text) {
        if (escaped.find(character) == std::string_view::npos) {
            result += character;
        } else {
            result += '%';
            result += "0123456789ABCDEF"[static_cast<unsigned char>(character) / 16];
            result += "0123456789ABCDEF"[static_cast<unsigned char>(character) % 16];
        }
    }
    return result;
}

// The tag URI that the fields of a plain scheme make up.
std::string explainedUri(const Explanation& explanation) {
    const std::set<std::string> notInUri = {"header", "partition", "unused", "reserved",
                                            "after the value"};
    std::string uri = "urn:epc:tag:";
    uri += explanation.scheme->name;
    char separator = ':';
    for (const ExplainedField& field : explanation.fields) {
        if (notInUri.count(field.name) == 0) {
            uri += separator + uriEscaped(field.value);
            separator = '.';
        }
    }
    return uri;
}

std::string withoutEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            plain += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

// Each form shows the characters of a field where its places say, in the order of the text except
// that the first digit of a reference may come before the company prefix.
void checkPlaces(const Explanation& explanation, const Translation& forms) {
    for (const Form form : {Form::TAG_URI, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
                            Form::BARCODE_STRING, Form::DIGITAL_LINK}) {
        const std::string_view text = formText(forms, form);
        if (text.empty()) {
            continue;
        }
        const bool isEscaped = form != Form::ELEMENT_STRING && form != Form::BARCODE_STRING;
        std::map<std::size_t, std::string> shown;
        for (const FieldPlace& place : explanation.places) {
            if (place.form == form) {
                ASSERT_LE(place.position + place.length, text.size());
                const std::string_view part = text.substr(place.position, place.length);
                if (explanation.fields[place.field].name == "header") {
                    EXPECT_EQ(forms.scheme->name, part);
                    continue;
                }
                shown[place.field] += isEscaped ? withoutEscapes(part) : std::string(part);
            }
        }
        for (std::size_t i = 0; i < explanation.fields.size(); ++i) {
            const ExplainedField& field = explanation.fields[i];
            if (field.name == "AI code" || field.name == "date code") {
                EXPECT_NE(std::string::npos, field.meaning.find(shown[i] + ' ')) << text;
            } else if (form == Form::TAG_URI || field.name != "filter") {
                EXPECT_EQ(field.value, shown[i]) << field.name << " in " << text;
            }
        }
    }
}

// True if the library reads the value. In either case the explanation must agree.
bool checkAgainstLibrary(const std::string& hex) {
    SCOPED_TRACE(hex);
    const Explanation explanation = explain(hex);
    const Translation forms = translate(hex);
    const bool isExplained = !explanation.fields.empty() && explanation.fields.back().isGood;
    EXPECT_EQ(!isFailure(forms.failure), isExplained) << failureText(forms.failure);
    EXPECT_EQ(forms.failure.status, explanation.failure.status);
    if (isFailure(forms.failure) || !isExplained) {
        return false;
    }
    const ExplainedField& last = explanation.fields.back();
    EXPECT_EQ(explanation.bits.size(), last.first + last.width);
    if (forms.scheme->isPlus) {
        EXPECT_EQ(libraryAis(forms), explainedAis(explanation));
    } else {
        EXPECT_EQ(forms.tagUri, explainedUri(explanation));
    }
    checkPlaces(explanation, forms);
    return true;
}

constexpr std::size_t headerBits = 8;

std::string flipped(std::string hex, std::size_t bit) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    char& digit = hex[bit / 4];
    digit = digits[digits.find(digit) ^ std::size_t{8} >> bit % 4];
    return hex;
}

// The header stays, so that the scheme does.
std::string flippedAnywhere(std::string hex, Random& random) {
    for (std::uint64_t flips = random.below(4); flips > 0; --flips) {
        hex = flipped(hex, headerBits + random.below(4 * hex.size() - headerBits));
    }
    return hex;
}

// clang-format off
constexpr const char* soundUris[] = {
    "urn:epc:tag:sgtin-96:3.0614141.812345.6789", "urn:epc:tag:sgtin-198:1.614141.7123456.A%2FB-1",
    "urn:epc:tag:sscc-96:0.061414112345.61234", "urn:epc:tag:sgln-96:7.061414112345..400",
    "urn:epc:tag:sgln-195:3.0614141.12345.32a%2Fb", "urn:epc:tag:grai-96:3.061414112345..274877906943",
    "urn:epc:tag:grai-170:3.0614141.12345.32a%2Fb", "urn:epc:tag:giai-96:3.0614141.5678901234",
    "urn:epc:tag:giai-202:3.0614141.32a%2Fb", "urn:epc:tag:giai-202:3.614141.abcdefghijklmnopqrstuvwx",
    "urn:epc:tag:gsrn-96:3.0614141.1234567890", "urn:epc:tag:gsrnp-96:3.0614141.1234567890",
    "urn:epc:tag:gdti-96:3.0614141.12345.5678", "urn:epc:tag:gdti-113:3.0614141.12345.00012",
    "urn:epc:tag:gdti-174:3.4012345.98765.ABCDefgh012345678", "urn:epc:tag:cpi-96:3.0614141.98765.12345",
    "urn:epc:tag:cpi-var:3.0614141.5PQ7%2FZ43.12345", "urn:epc:tag:sgcn-96:3.4012345.67890.04711",
    "urn:epc:tag:gid-96:31415.271828.1414", "urn:epc:tag:usdod-96:3.CAGEY.5678",
    "urn:epc:tag:adi-var:3.35962.PQ7VZ4.M37GXB92", "urn:epc:tag:adi-var:63.CAGEYY..%23A",
    "urn:epc:tag:adi-var:0.35962.ABCDEFGHIJKLMNOPQRSTUVWXYZ012345.ABCDEFGHIJKLMNOPQRSTUVWXYZ0123",
    "urn:epc:tag:itip-110:3.4012345.012345.01.02.981", "urn:epc:tag:itip-212:3.4012345.012345.04.04.mw133",
};

struct PlusRow {
    const char* scheme;
    const char* text;
};
constexpr PlusRow soundPlusValues[] = {
    {"cpi+", "(8010)06141415PQ7-Z43(8011)12345"}, {"grai+", "(8003)00614141123452AbC_d"},
    {"sgln+", "(414)0614141123452(254)32a.b"}, {"itip+", "(8006)040123451234560204(21)12AB"},
    {"gsrn+", "(8018)061414112345678902(4330)000123-(4307)DE"}, {"gsrnp+", "(8017)061414112345678902"},
    {"gdti+", "(253)4012345987652ABC(7007)240229240301"}, {"sgtin+", "(01)80614141123458(21)6789"},
    {"sgtin+", "(01)80614141123458(21)abcdef(10)LOT-7.5(17)251231(3103)000189(3913)978099"},
    {"sgcn+", "(255)401234567890104711"}, {"sscc+", "(00)106141412345678908(37)12(4321)1"},
    {"giai+", "(8004)0614141ABC(21)XY(3103)000189(17)240229"},
    {"dsgtin+", "(01)80614141123458(21)6789(15)240229(7011)2402291530"},
    {"sgtin+", "(01)80614141123458(21)12345678901234567890(4309)02790858483015297971"},
    {"sscc+", "(00)106141412345678908(10)GHI999"},
    {"sscc+", "(00)106141412345678908(91)123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890"},
};
// clang-format on

TEST(Explain, AgreesWithTheLibraryOnEveryScheme) {
    Random random(1);
    std::set<std::string_view> names;
    const auto checkAround = [&](const Translation& tag) {
        const std::string& sound = tag.hex;
        ASSERT_TRUE(checkAgainstLibrary(sound)) << failureText(tag.failure);
        names.insert(tag.scheme->name);
        for (std::size_t bit = headerBits; bit < 4 * sound.size(); ++bit) {
            checkAgainstLibrary(flipped(sound, bit));
        }
        int read = 0;
        for (int i = 0; i < 200; ++i) {
            read += checkAgainstLibrary(flippedAnywhere(sound, random)) ? 1 : 0;
        }
        EXPECT_GT(read, 10) << sound;
        for (std::size_t length = 2; length < sound.size(); length += 2) {
            checkAgainstLibrary(sound.substr(0, length));
        }
    };
    for (const char* uri : soundUris) {
        checkAround(encode(uri, {}));
    }
    for (const SchemeModel& model : schemeModels) {
        Picker picker = Picker::random(1);
        checkAround(encode(modelValue(model, 0, 5, picker).tagUri, {}));
    }
    for (const PlusRow& row : soundPlusValues) {
        EncodeOptions options;
        options.scheme = schemeByName(row.scheme);
        options.filter = 3;
        checkAround(encode(row.text, options));
    }
    EXPECT_EQ(std::size_t{EPC_SCHEME_COUNT}, names.size());
}

// A value that each component can hold, long or short.
std::string sampleOf(const AiComponent& component, bool isLong) {
    constexpr std::string_view mixed = "7aB_9-cD";
    const std::size_t most = component.maxLength;
    switch (component.kind) {
    case AI_KIND_NONE:
    case AI_KIND_DATE_CODED:
        return {};
    case AI_KIND_SIGN:
        return isLong ? "-" : "";
    case AI_KIND_LETTERS:
        return isLong ? "ZA" : "DE";
    case AI_KIND_DATE:
        return isLong ? "991231" : "000229";
    case AI_KIND_DATE_TIME:
        return isLong ? "9912312359" : "0002290000";
    case AI_KIND_DATE_RANGE:
        return isLong ? "240229251231" : "240229";
    case AI_KIND_DATE_TIME_VAR:
        return isLong ? "240229235959" : "240229";
    case AI_KIND_VAR_NUMERIC:
        return isLong ? std::string(most, '9') : "0";
    case AI_KIND_FLAG:
    case AI_KIND_NUMERIC:
    case AI_KIND_DIGITS:
        return std::string(component.digitCount,
                           isLong && component.kind != AI_KIND_FLAG ? '9' : '0');
    case AI_KIND_TEXT:
    case AI_KIND_DIGITS_THEN_TEXT:
        break;
    }
    std::string text;
    for (std::size_t i = 0; i < (isLong ? std::min<std::size_t>(most, 60) : 1); ++i) {
        text += mixed[i % mixed.size()];
    }
    return text;
}

// The bits of each AI in the data section of a plus scheme are explained as the value they hold.
TEST(Explain, ReadsEveryAi) {
    for (const AiTableRow& row : aiTable) {
        for (const bool isLong : {false, true}) {
            const std::string code(aiLastCode(row));
            const std::string value =
                sampleOf(row.components[0], isLong) + sampleOf(row.components[1], isLong);
            SCOPED_TRACE("AI " + code + ", value " + value);
            const AiTranslation bits = encodeAi(code, value, true);
            ASSERT_STATUS(EPC_OK, bits.failure.status);
            const AiTranslation back = decodeAi(bits.hex);
            EXPECT_EQ(code, back.ai.ai);
            EXPECT_EQ(value, back.ai.value);
            EXPECT_EQ(row.title, back.ai.title);
            std::string explained;
            for (const ExplainedField& field : explainAi(bits.hex).fields) {
                explained += field.value;
            }
            EXPECT_EQ(value, explained.substr(0, value.size()));
        }
    }
}

// The values of a TID by the names of their fields.
std::uint64_t tidValue(const Explanation& explanation, const std::string& name) {
    for (const ExplainedField& field : explanation.fields) {
        if (field.name == name) {
            return field.value.empty() ? 0 : std::stoull(field.value);
        }
    }
    return 0;
}

void checkTidRecord(const Explanation& explanation, const TidRecord& record) {
    EXPECT_EQ(record.tmid, tidValue(explanation, "model (TMN)"));
    EXPECT_EQ(record.mdid & 0x1FF, tidValue(explanation, "designer (MDID)"));
    EXPECT_EQ(record.maxEpcSize, tidValue(explanation, "largest EPC"));
    EXPECT_EQ(record.recomSupport, tidValue(explanation, "recommission"));
    EXPECT_EQ(record.blockWriteSupported, tidValue(explanation, "BlockWrite"));
    EXPECT_EQ(record.blockEraseSupported, tidValue(explanation, "BlockErase"));
    EXPECT_EQ(record.blockErase.maxBlockSize, tidValue(explanation, "erase: largest block"));
    EXPECT_EQ(record.blockWrite.epcAddressOffset, tidValue(explanation, "write: EPC offset"));
    EXPECT_EQ(record.blockWrite.noUserAlignment, tidValue(explanation, "write: user unaligned"));
    EXPECT_EQ(record.blockPermaLockBlockSize, tidValue(explanation, "perma-lock block"));
    EXPECT_EQ(record.userMemorySize, tidValue(explanation, "user memory"));
    for (const ExplainedField& field : explanation.fields) {
        if (field.name == "serial") {
            EXPECT_EQ(record.serial, field.value);
        }
    }
}

TEST(Explain, AgreesWithTheLibraryOnTids) {
    Random random(2);
    const std::string everything = "E2801130"
                                   "3C00" // serial of 48 bits and every segment
                                   "123456789ABC"
                                   "1C63"             // optional commands
                                   "04061908041E0D10" // block commands
                                   "00040020";        // user memory
    for (const std::string& sound : {everything, std::string("E2003412")}) {
        for (int i = 0; i < 500; ++i) {
            std::string hex = i == 0 ? sound : flippedAnywhere(sound, random);
            hex.resize(hex.size() - (i % 3 == 2 ? 2 * random.below(hex.size() / 2) : 0));
            SCOPED_TRACE(hex);
            const Tid decoded = tid(hex);
            const Explanation explanation = explain(hex);
            ASSERT_EQ(!isFailure(decoded.failure), explanation.fields.back().isGood)
                << failureText(decoded.failure);
            ASSERT_TRUE(i > 0 || !isFailure(decoded.failure));
            if (!isFailure(decoded.failure)) {
                checkTidRecord(explanation, decoded.record);
            }
        }
    }
}

} // namespace
