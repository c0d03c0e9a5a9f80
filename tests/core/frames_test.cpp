// How binary values cross the boundary: what reaches the work, and what the caller finds.
#include "core/frames.h"

#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

using namespace rosetag;

namespace {

constexpr std::int32_t INT_LARGEST = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t INT_SMALLEST = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t NOT_CALLED = -12345;

// A work that remembers what it was given.
struct Given {
    std::int32_t bits = NOT_CALLED;
    std::string hex;

    EpcStatus operator()(std::int32_t bitCount, const std::uint8_t* binary) {
        bits = bitCount;
        hex = hexFromBytes(binary, static_cast<std::size_t>((std::max(bitCount, 0) + 7) / 8));
        return EPC_ERR_BAD_TID;
    }
};

TEST(Frames, HexInput) {
    const std::string most(124, 'F');
    const struct {
        const char* name;
        std::string hex;
        EpcStatus status;
        std::int32_t bits;
        std::string given;
    } rows[] = {
        {"one digit", "3", EPC_ERR_BAD_TID, 8, "30"},
        {"none", "", EPC_ERR_BAD_TID, 0, ""},
        {"odd", "30a", EPC_ERR_BAD_TID, 16, "30A0"},
        {"123 digits", most.substr(1), EPC_ERR_BAD_TID, 496, most.substr(1) + "0"},
        {"the most", most, EPC_ERR_BAD_TID, 496, most},
        {"one more", most + "F", EPC_ERR_TOO_LONG, NOT_CALLED, ""},
        {"too long before bad", most + "X", EPC_ERR_TOO_LONG, NOT_CALLED, ""},
        {"bad at the end", most.substr(1) + "X", EPC_ERR_NO_ROOM, NOT_CALLED, ""},
    };
    GuardedArea area;
    for (const auto& row : rows) {
        const char* hex =
            area.placeCopy(row.hex.c_str(), row.hex.size() + 1, GuardedArea::Side::BEFORE_PAGE);
        Given given;
        EXPECT_STATUS(row.status, hexInputFrame(hex, std::ref(given))) << row.name;
        EXPECT_EQ(row.bits, given.bits) << row.name;
        EXPECT_EQ(row.given, given.hex) << row.name;
    }
}

TEST(Frames, WordInput) {
    struct {
        std::int32_t bits;
        EpcStatus status;
        std::size_t words; // that may be read
    } const rows[] = {
        {0, EPC_ERR_BAD_TID, 0},
        {1, EPC_ERR_BAD_TID, 1},
        {16, EPC_ERR_BAD_TID, 1},
        {17, EPC_ERR_BAD_TID, 2},
        {496, EPC_ERR_BAD_TID, 31},
        {497, EPC_ERR_TOO_LONG, 0},
        {-1, EPC_ERR_BAD_TID, 0},
        {-30, EPC_ERR_BAD_TID, 0},
        {-31, EPC_ERR_TOO_LONG, 0},
        {INT_LARGEST, EPC_ERR_TOO_LONG, 0},
        {INT_SMALLEST, EPC_ERR_TOO_LONG, 0},
    };
    GuardedArea area;
    for (const auto& row : rows) {
        const std::vector<std::uint16_t> source(row.words, 0x1234);
        const std::uint16_t* words =
            area.placeCopy(source.data(), source.size(), GuardedArea::Side::BEFORE_PAGE);
        Given given;
        EXPECT_STATUS(row.status, wordInputFrame(row.bits, words, std::ref(given))) << row.bits;
        EXPECT_EQ(row.status == EPC_ERR_TOO_LONG ? NOT_CALLED : row.bits, given.bits);
        const auto bytes = static_cast<std::size_t>((std::max(given.bits, 0) + 7) / 8);
        std::string expected;
        while (expected.size() < bytes * 2) {
            expected += "1234";
        }
        EXPECT_EQ(expected.substr(0, bytes * 2), given.hex) << row.bits;
    }
}

// A work that gives the bytes 30 31 32 ...
struct Giver {
    std::int32_t byteCount;
    EpcStatus status = EPC_OK;

    EpcStatus operator()(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) const {
        EXPECT_EQ(62, maxBytes);
        for (std::int32_t i = 0; i < byteCount; ++i) {
            out[i] = static_cast<std::uint8_t>(0x30 + i);
        }
        *outBytes = byteCount;
        return status;
    }
};

TEST(Frames, HexOutput) {
    struct {
        std::int32_t dstSize;
        EpcStatus workStatus, status;
        const char* text;
    } const rows[] = {
        {7, EPC_OK, EPC_OK, "303132"},
        {6, EPC_OK, EPC_ERR_NO_ROOM, "30313"},
        {2, EPC_OK, EPC_ERR_NO_ROOM, "3"},
        {1, EPC_OK, EPC_ERR_NO_ROOM, ""},
        {0, EPC_OK, EPC_ERR_NO_ROOM, ""},
        {-1, EPC_OK, EPC_ERR_NO_ROOM, ""},
        {7, EPC_ERR_BAD_FORMAT, EPC_ERR_BAD_FORMAT, nullptr},
    };
    for (const auto& row : rows) {
        GuardedArea area;
        const auto size = static_cast<std::size_t>(std::max(row.dstSize, 1));
        char* dst = area.place<char>(size, GuardedArea::Side::BEFORE_PAGE);
        EXPECT_STATUS(row.status, hexOutputFrame(row.dstSize, dst, Giver{3, row.workStatus}))
            << row.dstSize;
        EXPECT_TRUE(area.isUntouchedAround(dst, row.text == nullptr ? 0 : size)) << row.dstSize;
        if (row.text != nullptr) {
            EXPECT_STREQ(row.text, dst);
        }
    }
}

TEST(Frames, WordOutput) {
    struct {
        std::int32_t byteCount, maxWords;
        EpcStatus workStatus, status;
    } const rows[] = {
        {4, 2, EPC_OK, EPC_OK},           {4, 3, EPC_OK, EPC_OK},
        {4, 1, EPC_OK, EPC_ERR_NO_ROOM},  {3, 2, EPC_OK, EPC_OK},
        {3, 1, EPC_OK, EPC_ERR_NO_ROOM},  {0, 0, EPC_OK, EPC_OK},
        {62, 31, EPC_OK, EPC_OK},         {62, 30, EPC_OK, EPC_ERR_NO_ROOM},
        {2, -1, EPC_OK, EPC_ERR_NO_ROOM}, {4, 2, EPC_ERR_BAD_FORMAT, EPC_ERR_BAD_FORMAT},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.byteCount << " bytes, " << row.maxWords << " words");
        GuardedArea area;
        const auto size = static_cast<std::size_t>(std::max(row.maxWords, 0));
        auto* words = area.place<std::uint16_t>(size, GuardedArea::Side::BEFORE_PAGE);
        const Giver work{row.byteCount, row.workStatus};
        std::int32_t count = -7;
        EXPECT_STATUS(row.status, wordOutputFrame(row.maxWords, words, &count, work));
        const bool written = row.status == EPC_OK;
        const std::int32_t wordCount = written ? (row.byteCount + 1) / 2 : 0;
        EXPECT_EQ(written ? wordCount : -7, count);
        EXPECT_TRUE(area.isUntouchedAround(words, static_cast<std::size_t>(wordCount)));
        for (std::int32_t i = 0; i < wordCount; ++i) {
            const int low = 2 * i + 1 < row.byteCount ? 0x31 + 2 * i : 0;
            EXPECT_EQ((0x30 + 2 * i) << 8 | low, words[i]);
        }
        EXPECT_STATUS(row.status, wordOutputFrame(row.maxWords, words, nullptr, work));
    }
}

} // namespace
