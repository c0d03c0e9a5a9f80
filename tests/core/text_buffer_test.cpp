// The printer of texts: at every capacity from none to enough.
#include "core/text_buffer.h"

#include "support/guarded_area.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace rosetag;

namespace {

constexpr std::uint64_t LARGEST = std::numeric_limits<std::uint64_t>::max();

enum class Full { NOTHING, WHAT_FITS }; // what an operation without room leaves of its text

struct Operation {
    const char* name;
    EpcStatus (*append)(TextBuffer& buffer);
    const char* text;
    Full full;
};

const std::uint8_t someBytes[] = {0x00, 0x0F, 0xF0, 0xAB, 0xCD, 0xEF};

// clang-format off
const Operation operations[] = {
    // name                    operation                                                                         text                                         without room
    {"PutChar",                [](TextBuffer& b) { return textBufferPutChar(b, 'x'); },                          "x",                                         Full::NOTHING},
    {"PutString",              [](TextBuffer& b) { return textBufferPutString(b, "abcd"); },                     "abcd",                                      Full::NOTHING},
    {"PutString, empty",       [](TextBuffer& b) { return textBufferPutString(b, ""); },                         "",                                          Full::NOTHING},
    {"PutRange",               [](TextBuffer& b) { return textBufferPutRange(b, "abcdef", 2, 5); },              "cde",                                       Full::NOTHING},
    {"PutRange, empty",        [](TextBuffer& b) { return textBufferPutRange(b, "abcdef", 5, 5); },              "",                                          Full::NOTHING},
    {"PutRange, start > end",  [](TextBuffer& b) { return textBufferPutRange(b, "abcdef", 5, 2); },              "",                                          Full::NOTHING},
    {"PutDecimal 0",           [](TextBuffer& b) { return textBufferPutDecimal(b, 0); },                         "0",                                         Full::NOTHING},
    {"PutDecimal 10",          [](TextBuffer& b) { return textBufferPutDecimal(b, 10); },                        "10",                                        Full::NOTHING},
    {"PutDecimal, largest",    [](TextBuffer& b) { return textBufferPutDecimal(b, LARGEST); },                   "18446744073709551615",                      Full::NOTHING},
    {"PutPadded 0",            [](TextBuffer& b) { return textBufferPutPadded(b, 0, 3); },                       "000",                                       Full::NOTHING},
    {"PutPadded 0 in 0",       [](TextBuffer& b) { return textBufferPutPadded(b, 0, 0); },                       "",                                          Full::NOTHING},
    {"PutPadded 999",          [](TextBuffer& b) { return textBufferPutPadded(b, 999, 3); },                     "999",                                       Full::NOTHING},
    {"PutPadded, wide",        [](TextBuffer& b) { return textBufferPutPadded(b, 1234, 30); },                   "000000000000000000000000001234",            Full::NOTHING},
    {"PutHex",                 [](TextBuffer& b) { return textBufferPutHex(b, someBytes, 6); },                  "000FF0ABCDEF",                              Full::WHAT_FITS},
    {"PutHex, none",           [](TextBuffer& b) { return textBufferPutHex(b, someBytes, 0); },                  "",                                          Full::WHAT_FITS},
    {"PutHex, below none",     [](TextBuffer& b) { return textBufferPutHex(b, someBytes, -1); },                 "",                                          Full::WHAT_FITS},
    {"PutEscapedChar",         [](TextBuffer& b) { return textBufferPutEscapedChar(b, '/'); },                   "%2F",                                       Full::WHAT_FITS},
    {"PutEscapedChar, plain",  [](TextBuffer& b) { return textBufferPutEscapedChar(b, '!'); },                   "!",                                         Full::WHAT_FITS},
    {"PutEscapedRange",        [](TextBuffer& b) { return textBufferPutEscapedRange(b, "a b/c#\xFF", 1, 7); },   "%20b%2Fc%23\xFF",                           Full::WHAT_FITS},
    {"PutEscapedRange, empty", [](TextBuffer& b) { return textBufferPutEscapedRange(b, "ab", 1, 1); },           "",                                          Full::WHAT_FITS},
    {"PutEscapedRange, s > e", [](TextBuffer& b) { return textBufferPutEscapedRange(b, "ab", 2, 1); },           "",                                          Full::WHAT_FITS},
    {"PutLinkEscapedRange",    [](TextBuffer& b) { return textBufferPutLinkEscapedRange(b, "a b/c#\"+", 0, 8); }, "a b%2Fc%23\"%2B",                          Full::WHAT_FITS},
};
// clang-format on

TEST(TextBuffer, EveryOperationAtEveryCapacity) {
    for (const Operation& operation : operations) {
        const std::string text = operation.text;
        for (const std::string& before : {std::string(), std::string("ab")}) {
            const auto enough = static_cast<std::int32_t>(before.size() + text.size()) + 1;
            const std::int32_t least = before.empty() ? -1 : 3;
            for (std::int32_t capacity = least; capacity <= enough + 2; ++capacity) {
                SCOPED_TRACE(testing::Message() << operation.name << " after \"" << before
                                                << "\" in capacity " << capacity);
                GuardedArea area;
                const auto size = static_cast<std::size_t>(std::max(capacity, 1));
                char* storage = area.place<char>(size, GuardedArea::Side::BEFORE_PAGE);
                TextBuffer buffer = textBufferOver(storage, capacity);
                EXPECT_STATUS(EPC_OK, textBufferPutString(buffer, before));
                const std::size_t room = size - 1 - before.size();
                const bool fits = text.size() <= room;
                EXPECT_STATUS(fits ? EPC_OK : EPC_ERR_NO_ROOM, operation.append(buffer));
                const std::string kept = operation.full == Full::NOTHING && !fits ? "" : text;
                const std::string expected = before + kept.substr(0, room);
                EXPECT_EQ(expected, storage);
                EXPECT_EQ(expected, textBufferView(buffer));
                EXPECT_TRUE(area.isUntouchedAround(storage, size));
            }
        }
    }
}

TEST(TextBuffer, PaddedRefusesMoreDigitsThanTheWidth) {
    struct {
        std::uint64_t value;
        std::int32_t width;
    } const rows[] = {{1, 0}, {1000, 3}, {10, 1}, {0, -1}, {LARGEST, 19}};
    for (const auto& row : rows) {
        char storage[3]; // the width is looked at before the room
        TextBuffer buffer = textBufferOver(storage);
        EXPECT_STATUS(EPC_ERR_OUT_OF_RANGE, textBufferPutPadded(buffer, row.value, row.width))
            << row.value << " in " << row.width;
        EXPECT_STREQ("", storage);
    }
}

TEST(TextBuffer, DecimalDigitCount) {
    const auto expectCount = [](std::uint64_t value) {
        EXPECT_EQ(static_cast<std::int32_t>(std::to_string(value).size()), decimalDigitCount(value))
            << value;
    };
    std::uint64_t powerOfTen = 1;
    for (int i = 0; i < 20; ++i, powerOfTen *= 10) {
        for (const std::uint64_t value : {powerOfTen - 1, powerOfTen, powerOfTen + 1}) {
            expectCount(value);
        }
    }
    for (int i = 0; i < 64; ++i) {
        expectCount(std::uint64_t{1} << i);
        expectCount((std::uint64_t{1} << i) - 1);
    }
    expectCount(LARGEST);
}

} // namespace
