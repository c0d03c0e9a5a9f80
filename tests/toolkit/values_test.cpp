/*
 * Values as people have them: what the toolkit makes of them, what it notes, and what it says of
 * those that it cannot read.
 */
#include "recognise/bank_words.h"
#include "schemes/scheme_model.h"
#include "toolkit/rows_of_file.h"
#include "toolkit/value_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

using namespace rosetag;

namespace {

std::string placeOf(std::size_t position, std::size_t length) {
    return std::to_string(position) + '+' + std::to_string(length);
}

TEST(Values, FailWithPlaceRuleAndRemedy) {
    const RowsOfFile rows = rowsOfFile("failures.tsv");
    EXPECT_GT(rows.size(), 100U);
    for (const auto& row : rows) {
        ASSERT_EQ(5U, row.size()) << row[1];
        const std::string value = unescaped(row[1]);
        SCOPED_TRACE(row[0] + ": " + row[1]);
        const Failure failure = ask(row[0], value).failure;
        EXPECT_EQ(row[2], epc_statusName(failure.status));
        EXPECT_EQ(row[3], placeOf(failure.position, failure.length));
        ASSERT_LE(failure.position + failure.length, value.size());
        EXPECT_EQ(value.substr(failure.position, failure.length), failure.culprit);
        // A finding has its remedy after the rule.
        EXPECT_TRUE(!failure.remedy.empty() || failure.message.find(": ") != std::string::npos);
        const std::string said = failureText(failure) + " [" + std::string(failure.option) + ']';
        std::istringstream words(row[4]);
        for (std::string word; std::getline(words, word, '|');) {
            EXPECT_NE(std::string::npos, said.find(word)) << word << "\n" << said;
        }
    }
}

std::string shown(const Rows<Note>& notes) {
    std::string text;
    for (const Note& note : notes) {
        text += text.empty() ? "" : ", ";
        text += note.severity == Severity::WARNING ? "~" : "";
        text += std::string(noteWord(note.kind)) + ' ' + placeOf(note.position, note.length);
        EXPECT_FALSE(note.text.empty());
    }
    return text.empty() ? "-" : text;
}

TEST(Values, AreTakenAsPeopleHaveThem) {
    const RowsOfFile rows = rowsOfFile("values.tsv");
    EXPECT_GT(rows.size(), 50U);
    for (const auto& row : rows) {
        ASSERT_EQ(4U, row.size()) << row[1];
        SCOPED_TRACE(row[0] + ": " + row[1]);
        const Answer answer = ask(row[0], unescaped(row[1]));
        EXPECT_EQ("", answer.failure.status == EPC_OK ? "" : failureText(answer.failure));
        EXPECT_EQ(row[2], answer.result);
        EXPECT_EQ(row[3], shown(answer.notes));
    }
}

// What is said holds nothing that a terminal would not show.
void expectShowable(const std::string& text, const std::string& value) {
    EXPECT_EQ(shownText(text, text.size()), text) << "of " << shownText(value);
}

// Whatever it is given, the toolkit answers, and points into the value.
TEST(Values, AreNeverTooStrange) {
    const std::string pieces[] = {"(01)",
                                  "01",
                                  "]C1",
                                  "]E0",
                                  "\x1D",
                                  "{GS}",
                                  "/",
                                  "?",
                                  "&",
                                  "%",
                                  "%0",
                                  "urn:epc:tag:",
                                  "urn:epc:id:sgtin:",
                                  "sgtin-96:",
                                  ".",
                                  "3",
                                  "30742579",
                                  "0x",
                                  "E2",
                                  std::string(1, '\0'),
                                  "\xFF",
                                  "\xC3\xBC",
                                  "\xE2\x80\x8B",
                                  "\x1B[0m",
                                  "(",
                                  ")",
                                  "https://",
                                  "#",
                                  " ",
                                  std::string(300, '7'),
                                  "^",
                                  "(8004)",
                                  ";="};
    std::uint64_t state = 1;
    const auto next = [&state](std::uint64_t limit) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return (state >> 33) % limit;
    };
    Translation item;
    Explanation explanation;
    Rows<Finding> findings;
    EncodeOptions options;
    options.read.gcpLength = 7;
    for (int i = 0; i < 20000; ++i) {
        std::string value;
        for (std::uint64_t count = next(6); count > 0; --count) {
            value += pieces[next(std::size(pieces))];
        }
        options.read.asBarcode = next(4) == 0;
        options.read.bank = static_cast<Bank>(next(4));
        options.scheme = &schemes()[next(EPC_SCHEME_COUNT)];
        const auto expectInside = [&](const Failure& failure, const Rows<Note>& notes) {
            ASSERT_LE(failure.position + failure.length, value.size());
            expectShowable(failureText(failure), value);
            for (const Note& note : notes) {
                ASSERT_LE(note.position + note.length, value.size());
                expectShowable(note.text, value);
            }
        };
        translate(value, options.read, ALL_FORMS, item);
        expectInside(item.failure, item.notes);
        EXPECT_FALSE(toJson(item, value).empty());
        encode(value, options, ALL_FORMS, item);
        expectInside(item.failure, item.notes);
        explain(value, options.read, explanation);
        expectInside(explanation.failure, explanation.notes);
        check(value, options.read, findings);
        for (const Finding& finding : findings) {
            ASSERT_LE(finding.position + finding.length, value.size());
            expectShowable(findingText(finding), value);
        }
        expectInside(tid(value).failure, {});
    }
}

std::string wordText(std::size_t word) {
    std::string text;
    appendHex(text, std::array{static_cast<std::uint8_t>(word >> 8),
                               static_cast<std::uint8_t>(word & 0xFF)});
    return text;
}

// A value may be as long as its AI allows, whatever escapes a link needs for it.
TEST(Links, AreReadAsTheyAreWritten) {
    Translation written;
    Translation read;
    Random random(26);
    for (const SchemeModel& model : schemeModels) {
        for (int i = 0; i < 100; ++i) {
            Picker picker = i % 2 == 0 ? Picker::random(random.next()) : Picker::largest();
            const std::size_t partition = model.hasPartition() ? random.below(7) : 0;
            const ModelValue value = modelValue(model, 0, partition, picker);
            translate(value.tagUri, {}, ALL_FORMS, written);
            if (written.digitalLink.empty()) {
                continue;
            }
            const std::string link = written.digitalLink;
            translate(link, {}, ALL_FORMS, read);
            ASSERT_EQ(written.barcodeString, read.barcodeString) << link;
            ASSERT_EQ(link, read.digitalLink);
            EncodeOptions options;
            options.scheme = written.scheme;
            options.read.gcpLength = static_cast<int>(12 - partition);
            encode(value.tagUri, {}, Form::HEX, written);
            encode(link, options, Form::HEX, read);
            ASSERT_EQ(written.hex, read.hex) << value.tagUri;
        }
    }
}

// An EPC is found in the bank that it was read with, and one without a PC word is left whole.
TEST(Bank, GivesItsEpcWhateverSurroundsIt) {
    constexpr std::size_t pcFlags[] = {0, 1, 0x400, 0x401}; // hazardous material, user memory
    Random random(2026);
    Translation item;
    int ambiguous = 0;
    for (const SchemeModel& model : schemeModels) {
        for (int i = 0; i < 300; ++i) {
            Picker picker = Picker::random(random.next());
            const auto filter = static_cast<std::uint32_t>(random.below(model.maxFilter + 1));
            const std::size_t partition = model.hasPartition() ? random.below(7) : 0;
            const ModelValue value = modelValue(model, filter, partition, picker);
            encode(value.tagUri, {}, Form::HEX, item);
            const std::string epc = item.hex;
            const std::string pc = wordText(epc.size() / 4 << 11 | pcFlags[random.below(4)]);
            const std::string crc = wordText(crc16Of(pc + epc));
            const std::string zeros(4 * random.below(4), '0');
            for (const std::string& before : {std::string(), pc, crc + pc}) {
                if (before.empty() && filter == 0 && partition == 0) {
                    continue; // its first word could be a PC word
                }
                translate(before + epc + zeros, {}, Form::TAG_URI, item);
                if (before == pc && !item.notes.empty() &&
                    item.notes[0].kind == NoteKind::MAY_BE_PC_WORD) {
                    ++ambiguous; // it is an EPC without the PC word, too
                    continue;
                }
                ASSERT_EQ(value.tagUri, item.tagUri) << before << ' ' << epc << ' ' << zeros;
            }
        }
    }
    EXPECT_LT(ambiguous, 5);
}

} // namespace
