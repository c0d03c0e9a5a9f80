/*
 * Values that are as the library writes them take a shorter road than others. A blank in front of a
 * value takes it off that road and changes nothing but notes and places; to have an encoding
 * checked does the same. Both roads must tell the same of any value.
 */
#include "schemes/scheme_model.h"
#include "support/random.h"

#include <rosetag/toolkit.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace rosetag;

namespace {

constexpr Form textForms[] = {Form::HEX,          Form::TAG_URI,        Form::PURE_IDENTITY,
                              Form::GTIN,         Form::ELEMENT_STRING, Form::BARCODE_STRING,
                              Form::DIGITAL_LINK, Form::SERIAL,         Form::AIS};

// What is told of a value, on one line. The places are those without a blank in front.
struct Telling {
    std::string text;
    std::size_t shift = 0;

    void add(std::string_view name, std::string_view value) {
        text += value.empty() ? "" : std::string(name) + '=' + std::string(value) + "; ";
    }
    void addPlace(std::size_t position, std::size_t length) {
        const std::size_t begin = std::max(position, shift) - shift;
        const std::size_t end = std::max(position + length, shift) - shift;
        add("at", std::to_string(begin) + '-' + std::to_string(end));
    }
    void addNotes(const Rows<Note>& notes) {
        for (const Note& note : notes) {
            if (note.kind != NoteKind::BLANKS) {
                add("note", note.text);
                addPlace(note.position, note.length);
            }
        }
    }
    void addForms(const Translation& result) {
        add("status", epc_statusName(result.failure.status));
        add("message", result.failure.message);
        add("form", formWord(result.form));
        add("scheme", result.scheme == nullptr ? "" : result.scheme->name);
        add("filter", result.filter.has_value() ? std::to_string(*result.filter) : "");
        add("bits", std::to_string(result.bits));
        for (const Form form : textForms) {
            add(formWord(form), formText(result, form));
        }
        for (const AiValue& ai : result.ais) {
            add(ai.ai, ai.value);
            add("title", ai.title);
        }
        for (const SchemeInfo* scheme : result.fitsSchemes) {
            add("fits", scheme->name);
        }
        for (const Finding& finding : result.findings) {
            add("finding", finding.message);
        }
        addNotes(result.notes);
    }
};

std::string allOf(const Translation& result, std::size_t shift) {
    Telling telling{{}, shift};
    telling.addForms(result);
    return telling.text;
}

// The text of a form; that of the AIs has no member of its own.
std::string textOf(const Translation& result, Form form) {
    std::string text(formText(result, form));
    if (form == Form::AIS) {
        appendAis(text, result.ais);
    }
    return isFailure(result.failure) ? std::string() : text;
}

// What convert() tells: the text, or why there is none, and the notes.
std::string oneOf(const Translation& result, std::string_view text, std::size_t shift) {
    Telling telling{{}, shift};
    telling.add("text", text);
    telling.add("message", result.failure.message);
    telling.addNotes(result.notes);
    return telling.text;
}

struct Options {
    const char* name;
    ReadOptions read;
};

std::vector<Options> optionsToTry() {
    std::vector<Options> all = {{"none", {}},   {"barcode", {}}, {"gcp=7", {}}, {"separator", {}},
                                {"strict", {}}, {"epc", {}},     {"pc", {}}};
    all[1].read.asBarcode = true;
    all[2].read.gcpLength = 7;
    all[3].read.separator = '^';
    all[4].read.strict = true;
    all[5].read.bank = Bank::EPC;
    all[6].read.bank = Bank::PC;
    return all;
}

// A value of every scheme, and what its texts are without a tag.
std::vector<std::string> soundValues(Random& random) {
    std::vector<std::string> values = {"(01)80614141123458(21)6789(10)LOT7",
                                       "(21)6789(01)80614141123458",
                                       "(00)123456(01)12345670",
                                       "(01)12345670(21)1",
                                       "(01)80614141123458(21)A(01)12345670",
                                       "(10)A(B",
                                       "0112345670",
                                       "(8006)0401234512345602",
                                       "018061414112345821A<GS>10B",
                                       "8010061414100800(8011)1",
                                       "01806141411234582167^10B",
                                       "/01/80614141123458/21/01/10/A",
                                       "/01/80614141123458/10/lot/21/6",
                                       "/01/80614141123458/21/A%2FB?17=261231",
                                       "/01/80614141123458/22/gtin/10/x",
                                       "/01/80614141123458/10//21/6",
                                       "/8010/0614141A/8011/12",
                                       "urn:epc:id:sgtin:0614141.812345.",
                                       "urn:epc:id:gid:1..3",
                                       "urn:epc:id:gid:.2.3",
                                       "urn:epc:id:sgtin:0614141.812345.0012",
                                       "urn:epc:tag:sgtin+:3.x",
                                       "urn:epc:tag:sgtin-96:3.0614141.812345.",
                                       "3000307425",
                                       "18003074257BF7194E4000001A85",
                                       "3074257BF7194E4000001A8500000000"};
    for (const SchemeModel& model : schemeModels) {
        for (int i = 0; i < 6; ++i) {
            Picker picker = Picker::random(random.next());
            const ModelValue value =
                modelValue(model, static_cast<std::uint32_t>(random.below(model.maxFilter + 1)),
                           model.hasPartition() ? random.below(7) : 0, picker);
            values.push_back(value.tagUri);
        }
    }
    const std::size_t uris = values.size();
    for (std::size_t i = 0; i < uris; ++i) {
        const Translation all = translate(values[i]);
        const Translation tag = encode(values[i], {});
        for (const std::string* text : {&tag.hex, &all.pureIdentity, &all.elementString,
                                        &all.barcodeString, &all.digitalLink}) {
            values.insert(values.end(), text->empty() ? 0 : 1, *text);
        }
    }
    return values;
}

std::vector<std::uint8_t> bytesOf(const std::string& hex) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

// One character is lost, replaced or added.
std::string damaged(std::string value, Random& random) {
    constexpr std::string_view characters = "0123456789AFafz.:()/%&?#=+-~^|<{\x1d\x80";
    const std::size_t at = random.below(value.size());
    const char character = characters[random.below(characters.size())];
    switch (random.below(4)) {
    case 0:
        value.erase(at, 1);
        break;
    case 1:
        value[at] = character;
        break;
    case 2:
        value.insert(at, 1, character);
        break;
    default:
        value += character;
    }
    return value;
}

std::vector<std::string> valuesToTry() {
    Random random(20261123);
    std::vector<std::string> values = soundValues(random);
    const std::size_t sound = values.size();
    for (std::size_t i = 0; i < 3 * sound; ++i) {
        values.push_back(damaged(values[i % sound], random));
    }
    // Those that begin as a file does have another failure with a blank in front of them.
    const auto isFile = [](const std::string& value) {
        return value.empty() || std::string_view("{<P").find(value[0]) != std::string_view::npos;
    };
    values.erase(std::remove_if(values.begin(), values.end(), isFile), values.end());
    return values;
}

TEST(PlainRoads, TranslateAsTheGeneralOneDoes) {
    Translation plain;
    Translation general;
    std::map<Form, int> read;
    for (const auto& [name, options] : optionsToTry()) {
        for (const std::string& value : valuesToTry()) {
            SCOPED_TRACE(std::string(name) + ": " + value);
            for (const FormSet wanted :
                 {ALL_FORMS, ALL_FORMS | Form::FINDINGS, FormSet(Form::AIS), FormSet()}) {
                translate(value, options, wanted, plain);
                translate(' ' + value, options, wanted, general);
                ASSERT_EQ(allOf(general, 1), allOf(plain, 0));
            }
            read[plain.form] += isFailure(plain.failure) ? 0 : 1;
            for (const Form form : textForms) {
                const std::string_view text = convert(value, options, form, plain);
                translate(' ' + value, options, form, general);
                ASSERT_EQ(oneOf(general, textOf(general, form), 1), oneOf(plain, text, 0))
                    << formWord(form);
            }
        }
    }
    for (const Form form : {Form::HEX, Form::TAG_URI, Form::PURE_IDENTITY, Form::ELEMENT_STRING,
                            Form::BARCODE_STRING, Form::DIGITAL_LINK}) {
        EXPECT_GT(read[form], 200) << formWord(form);
    }
}

TEST(PlainRoads, ConvertBytesAsTheGeneralOneDoes) {
    Translation plain;
    Translation general;
    Random random(7);
    ReadOptions isHex;
    isHex.isHex = true;
    for (const std::string& value : soundValues(random)) {
        const std::vector<std::uint8_t> sound = bytesOf(encode(value, {}).hex);
        std::vector<std::uint8_t> longer = sound;
        longer.push_back(0);
        std::vector<std::uint8_t> flipped = sound;
        if (!flipped.empty()) {
            flipped[random.below(flipped.size())] ^= 1;
        }
        for (const std::vector<std::uint8_t>& bytes : {sound, longer, flipped}) {
            std::string digits = " ";
            appendHex(digits, bytes);
            for (const Form form : textForms) {
                const std::string_view text = convert(bytes, {}, form, plain);
                translate(digits, isHex, form, general);
                ASSERT_EQ(oneOf(general, textOf(general, form), 1), oneOf(plain, text, 0))
                    << digits << ' ' << formWord(form);
            }
        }
    }
}

TEST(PlainRoads, EncodeAsTheGeneralOneDoes) {
    Translation plain;
    Translation general;
    int encoded = 0;
    const std::vector<std::string> values = valuesToTry();
    for (const char* scheme : {"", "sgtin-96", "sgtin-198", "sscc-96", "sgln-96", "grai-96",
                               "giai-202", "gdti-113", "cpi-var", "itip-110", "gid-96", "sgtin+"}) {
        for (const int variant : {0, 1, 2}) {
            EncodeOptions options;
            options.scheme = schemeByName(scheme);
            options.read.asBarcode = variant == 1;
            options.read.gcpLength = variant == 2 ? std::nullopt : std::optional(7);
            options.filter = variant == 2 ? std::optional(5) : std::nullopt;
            for (const std::string& value : values) {
                SCOPED_TRACE(std::string(scheme) + ' ' + std::to_string(variant) + ": " + value);
                encode(value, options, Form::HEX | Form::TAG_URI, plain);
                encode(value, options, Form::HEX | Form::TAG_URI | Form::FINDINGS, general);
                general.findings.clear();
                ASSERT_EQ(allOf(general, 0), allOf(plain, 0));
                const std::string_view hex = encodeToHex(value, options, plain);
                ASSERT_EQ(oneOf(general, general.hex, 0), oneOf(plain, hex, 0));
                encoded += isFailure(plain.failure) ? 0 : 1;
            }
        }
    }
    EXPECT_GT(encoded, 3000);
}

} // namespace
