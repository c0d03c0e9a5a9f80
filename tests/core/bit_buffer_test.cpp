// The bit buffer against bits as text, and the fields of more than 64 bits that are built on it.
#include "core/bit_buffer.h"

#include "core/long_field.h"
#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace rosetag;

namespace {

constexpr std::int32_t INT_LARGEST = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t INT_SMALLEST = std::numeric_limits<std::int32_t>::min();

// Storage of exactly the bytes that a capacity needs, against an unreadable page, with random bits.
struct Storage {
    GuardedArea area;
    std::vector<std::uint8_t> before;
    std::uint8_t* bytes = nullptr;

    BitBuffer lay(Random& random, std::int32_t capacity, std::int32_t position) {
        const auto side =
            random.flip() ? GuardedArea::Side::BEFORE_PAGE : GuardedArea::Side::BEHIND_PAGE;
        before = random.bytes(static_cast<std::size_t>((capacity + 7) / 8));
        bytes = area.placeCopy(before.data(), before.size(), side);
        return {bytes, capacity, position};
    }
    std::string bits() const {
        return bitsFromBytes(bytes, before.size() * 8);
    }
};

// Walks every capacity of interest, every position in it and every width that still fits.
template <typename Check>
void forEveryField(Check check) {
    for (const std::int32_t capacity : {0, 1, 7, 8, 9, 16, 57, 63, 64, 65, 72, 75, 96, 110, 131}) {
        for (std::int32_t position = 0; position <= capacity; ++position) {
            for (std::int32_t width = 0; width <= capacity - position; ++width) {
                SCOPED_TRACE(testing::Message() << "capacity " << capacity << " position "
                                                << position << " width " << width);
                ASSERT_NO_FATAL_FAILURE(check(capacity, position, width));
            }
        }
    }
}

TEST(BitBuffer, PutWritesExactlyTheBitsOfTheField) {
    Random random(1);
    Storage storage;
    forEveryField([&](std::int32_t capacity, std::int32_t position, std::int32_t width) {
        BitBuffer buffer = storage.lay(random, capacity, position);
        // In half the cases with bits above the field, which must not go anywhere.
        const std::uint64_t value = random.flip() || width >= 64 || width == 0
                                        ? random.next()
                                        : random.below(std::uint64_t{1} << width);
        std::string expected = bitsFromBytes(storage.before);
        const auto fieldWidth = static_cast<std::size_t>(width);
        expected.replace(static_cast<std::size_t>(position), fieldWidth,
                         bitsFromNumber(value, fieldWidth));
        ASSERT_EQ(0, bitBufferPut(buffer, value, width));
        ASSERT_EQ(expected, storage.bits());
        ASSERT_EQ(position + width, buffer.position);
    });
}

TEST(BitBuffer, GetReadsTheFieldAsANumber) {
    Random random(2);
    Storage storage;
    forEveryField([&](std::int32_t capacity, std::int32_t position, std::int32_t width) {
        BitBuffer buffer = storage.lay(random, capacity, position);
        const std::string field = storage.bits().substr(static_cast<std::size_t>(position),
                                                        static_cast<std::size_t>(width));
        if (width <= 64) {
            std::uint64_t value = random.next();
            ASSERT_EQ(0, bitBufferGet(buffer, width, value));
            ASSERT_EQ(numberFromBits(field), value);
            ASSERT_EQ(position + width, buffer.position);
        }
        BitBuffer skipped{storage.bytes, capacity, position};
        ASSERT_EQ(0, bitBufferSkip(skipped, width));
        ASSERT_EQ(position + width, skipped.position);
        ASSERT_EQ(bitsFromBytes(storage.before), storage.bits());
    });
}

TEST(BitBuffer, AFieldThatDoesNotFitChangesNothing) {
    struct {
        std::int32_t capacity, position, bitCount;
    } const rows[] = {
        {8, 8, 1},
        {8, 0, 9},
        {8, 0, -1},
        {8, 4, INT_SMALLEST},
        {8, 4, INT_LARGEST},
        {0, 0, 1},
        {0, 0, 65},
        {64, 7, 58},
        {64, 1, 64},
        {72, 72, 1},
        {128, 0, 129},
        {100, 1, 100},
        {100, 100, -100},
        {-1, 0, 0},
        {-8, 0, 1},
        {INT_SMALLEST, 0, 0},
        {INT_SMALLEST, 0, INT_LARGEST},
    };
    Random random(3);
    Storage storage;
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "capacity " << row.capacity << " position "
                                        << row.position << " bitCount " << row.bitCount);
        BitBuffer buffer = storage.lay(random, std::max(row.capacity, 0), row.position);
        buffer.capacity = row.capacity;
        std::uint64_t value = 77;
        EXPECT_EQ(-1, bitBufferPut(buffer, 0, row.bitCount));
        EXPECT_EQ(-1, bitBufferGet(buffer, row.bitCount, value));
        EXPECT_EQ(-1, bitBufferSkip(buffer, row.bitCount));
        EXPECT_STATUS(EPC_ERR_TRUNCATED, bitBufferRead(buffer, row.bitCount, value));
        EXPECT_STATUS(EPC_ERR_NO_ROOM, bitBufferWrite(buffer, 0, row.bitCount));
        EXPECT_EQ(77U, value);
        EXPECT_EQ(row.position, buffer.position);
        EXPECT_EQ(bitsFromBytes(storage.before), storage.bits());
    }
}

TEST(BitBuffer, ABufferForWritingBeginsCleared) {
    for (const std::int32_t maxBytes : {-1, INT_SMALLEST, 0, 1, 62}) {
        GuardedArea area;
        const auto size = static_cast<std::size_t>(std::max(maxBytes, 0));
        auto* bytes = area.place<std::uint8_t>(size, GuardedArea::Side::BEFORE_PAGE);
        const BitBuffer buffer = bitBufferForWriting(bytes, maxBytes);
        EXPECT_EQ(std::string(size * 8, '0'), bitsFromBytes(bytes, size * 8));
        EXPECT_TRUE(area.isUntouchedAround(bytes, size));
        EXPECT_EQ(static_cast<std::int32_t>(size) * 8, bitBufferLeft(buffer));
        EXPECT_EQ(0, buffer.position);
    }
}

TEST(BitBuffer, PaddingFillsTheLastWord) {
    for (std::int32_t position = 0; position <= 64; ++position) {
        std::uint8_t bytes[8];
        std::memset(bytes, 0xFF, sizeof bytes);
        const std::int32_t padded = (position + 15) / 16 * 16;
        BitBuffer full{bytes, padded - 1, position};
        const bool fits = padded == position;
        EXPECT_STATUS(fits ? EPC_OK : EPC_ERR_NO_ROOM, bitBufferPadToWord(full)) << position;
        EXPECT_EQ(std::string(64, '1'), bitsFromBytes(bytes, 64)) << position;
        BitBuffer buffer{bytes, padded, position};
        EXPECT_STATUS(EPC_OK, bitBufferPadToWord(buffer)) << position;
        EXPECT_EQ(padded, buffer.position);
        std::string expected(64, '1');
        expected.replace(static_cast<std::size_t>(position),
                         static_cast<std::size_t>(padded - position),
                         static_cast<std::size_t>(padded - position), '0');
        EXPECT_EQ(expected, bitsFromBytes(bytes, 64)) << position;
    }
}

TEST(BitBuffer, FitsBits) {
    EXPECT_TRUE(fitsBits(0, 0));
    EXPECT_FALSE(fitsBits(1, 0));
    EXPECT_TRUE(fitsBits(7, 3));
    EXPECT_FALSE(fitsBits(8, 3));
    EXPECT_FALSE(fitsBits(~std::uint64_t{0}, 63));
    EXPECT_TRUE(fitsBits(~std::uint64_t{0}, 64));
    EXPECT_TRUE(fitsBits(~std::uint64_t{0}, 65));
}

// Long fields

std::string hexOfField(std::string bits) {
    bits.insert(0, (4 - bits.size() % 4) % 4, '0');
    std::string hex;
    for (std::size_t i = 0; i < bits.size(); i += 4) {
        hex += "0123456789ABCDEF"[numberFromBits(bits.substr(i, 4))];
    }
    return hex;
}

TEST(LongField, GetHexIsTheRightAlignedNumber) {
    Random random(4);
    GuardedArea area;
    for (std::int32_t bitCount = 1; bitCount <= MAX_LONG_FIELD_BITS; ++bitCount) {
        const std::int32_t offset = random.between(0, 9);
        const std::vector<std::uint8_t> bytes = random.bytes(48);
        const std::string expected = hexOfField(bitsFromBytes(bytes).substr(
            static_cast<std::size_t>(offset), static_cast<std::size_t>(bitCount)));
        const auto evenDigits = static_cast<std::int32_t>((expected.size() + 1) / 2 * 2);
        for (const std::int32_t missing : {0, 1, 2, evenDigits}) {
            SCOPED_TRACE(testing::Message() << "bits " << bitCount << " missing " << missing);
            const std::int32_t size = evenDigits + 1 - missing;
            BitBuffer buffer{const_cast<std::uint8_t*>(bytes.data()), 384, offset};
            char* dst =
                area.place<char>(static_cast<std::size_t>(size), GuardedArea::Side::BEFORE_PAGE);
            const EpcStatus status = missing == 0 ? EPC_OK : EPC_ERR_NO_ROOM;
            ASSERT_STATUS(status, bitBufferGetHex(buffer, bitCount, size, dst));
            ASSERT_EQ(offset + bitCount, buffer.position);
            const std::string text = dst;
            if (status == EPC_OK) {
                ASSERT_EQ(expected, text);
            } else {
                ASSERT_EQ(static_cast<std::size_t>(size - 1), text.size());
                ASSERT_EQ(expected.substr(0, text.size()), text.substr(0, expected.size()));
            }
        }
    }
}

TEST(LongField, GetHexFailsBehindTheLastWholeChunk) {
    struct {
        const char* name;
        std::int32_t capacity, bitCount;
        EpcStatus status;
        std::int32_t position;
    } const rows[] = {
        {"source one bit short", 69, 70, EPC_ERR_TRUNCATED, 64},
        {"source short in the first chunk", 20, 21, EPC_ERR_TRUNCATED, 0},
        {"source short in the third chunk", 150, 151, EPC_ERR_TRUNCATED, 128},
        {"field above 368 bits", 400, 369, EPC_ERR_NO_ROOM, 369},
        {"field far above 368 bits", 800, 800, EPC_ERR_NO_ROOM, 384},
    };
    std::uint8_t bytes[100] = {};
    for (const auto& row : rows) {
        BitBuffer buffer{bytes, row.capacity, 0};
        char dst[120] = "kept";
        EXPECT_STATUS(row.status, bitBufferGetHex(buffer, row.bitCount, sizeof dst, dst))
            << row.name;
        EXPECT_EQ(row.position, buffer.position) << row.name;
        EXPECT_STREQ("kept", dst) << row.name;
    }
}

TEST(LongField, PaddedNumbers) {
    struct {
        const char* name;
        bool decimal;
        const char* bits; // the field ends at the end of the text
        std::int32_t width, capacity;
        EpcStatus status;
        const char* text;
    } const rows[] = {
        {"hex wider than its digits", false, "0001001000110100", 6, 20, EPC_OK, ">001234"},
        {"hex narrower is not cut", false, "0001001000110100", 2, 20, EPC_OK, ">1234"},
        {"hex of width 0", false, "11", 0, 20, EPC_OK, ">3"},
        {"hex keeps its leading zeros", false, "00000001", 0, 20, EPC_OK, ">01"},
        {"hex fits exactly", false, "00000001", 5, 7, EPC_OK, ">00001"},
        {"hex without room", false, "00000001", 5, 6, EPC_ERR_NO_ROOM, ">000"},
        {"padding without room", false, "00000001", 5, 4, EPC_ERR_NO_ROOM, ">"},
        {"decimal zero is its padding", true, "0000000", 3, 20, EPC_OK, ">000"},
        {"decimal zero of width 0", true, "0000000", 0, 20, EPC_OK, ">"},
        {"decimal wider", true, "11111111", 5, 20, EPC_OK, ">00255"},
        {"decimal narrower is not cut", true, "11111111", 2, 20, EPC_OK, ">255"},
        {"decimal fits exactly", true, "11111111", 3, 5, EPC_OK, ">255"},
        {"decimal without room", true, "11111111", 5, 6, EPC_ERR_NO_ROOM, ">00"},
    };
    for (const auto& row : rows) {
        const std::vector<std::uint8_t> bytes = bytesFromBits(row.bits);
        const auto bitCount = static_cast<std::int32_t>(std::strlen(row.bits));
        GuardedArea area;
        char* storage = area.place<char>(static_cast<std::size_t>(row.capacity),
                                         GuardedArea::Side::BEFORE_PAGE);
        TextBuffer text = textBufferOver(storage, row.capacity);
        EXPECT_STATUS(EPC_OK, textBufferPutChar(text, '>'));
        BitBuffer buffer = bitBufferForReading(bytes.data(), bitCount);
        const auto get = row.decimal ? bitBufferGetPaddedDecimal : bitBufferGetPaddedHex;
        EXPECT_STATUS(row.status, get(text, buffer, bitCount, row.width)) << row.name;
        EXPECT_STREQ(row.text, storage) << row.name;
        EXPECT_STATUS(EPC_ERR_TRUNCATED, get(text, buffer, 1, row.width)) << row.name;
    }
}

TEST(LongField, PaddedNumbersAtTheWidestFields) {
    struct {
        bool decimal;
        std::int32_t bitCount;
        EpcStatus status;
        std::size_t length;
    } const rows[] = {
        {false, 360, EPC_OK, 90},
        {false, 361, EPC_ERR_NO_ROOM, 0},
        // 2^299 - 1 has 91 digits, as many as 2^300 - 1: too many for the 90 that a number may
        // have.
        {true, 298, EPC_OK, 90},
        {true, 299, EPC_ERR_NO_ROOM, 0},
        {true, 300, EPC_ERR_NO_ROOM, 0},
        {true, 301, EPC_ERR_TOO_LONG, 0},
    };
    const std::vector<std::uint8_t> ones(48, 0xFF);
    for (const auto& row : rows) {
        char storage[100];
        TextBuffer text = textBufferOver(storage);
        BitBuffer buffer = bitBufferForReading(ones.data(), 384);
        const auto get = row.decimal ? bitBufferGetPaddedDecimal : bitBufferGetPaddedHex;
        EXPECT_STATUS(row.status, get(text, buffer, row.bitCount, 0)) << row.bitCount;
        EXPECT_EQ(row.length, std::strlen(storage)) << row.bitCount;
    }
}

TEST(LongField, PutHexBytesWritesTheNumberInTheWidth) {
    Random random(5);
    for (std::int32_t digits = 0; digits <= 75; ++digits) {
        const std::vector<std::uint8_t> bytes = random.bytes(38);
        const std::string number =
            bitsFromBytes(bytes.data(), static_cast<std::size_t>(digits) * 4);
        for (const std::int32_t more : {-300, -65, -64, -3, -1, 0, 1, 3, 64, 70}) {
            const std::int32_t bitCount = digits * 4 + more;
            SCOPED_TRACE(testing::Message() << "digits " << digits << " bits " << bitCount);
            const auto width = static_cast<std::size_t>(std::max(bitCount, 0));
            const std::string wide = std::string(400, '0') + number;
            std::vector<std::uint8_t> target(60, 0xFF);
            BitBuffer buffer{target.data(), 480, 5};
            ASSERT_EQ(0, bitBufferPutHexBytes(buffer, digits, bytes.data(), bitCount));
            ASSERT_EQ(std::string(5, '1') + wide.substr(wide.size() - width) +
                          std::string(475 - width, '1'),
                      bitsFromBytes(target));
            ASSERT_EQ(5 + static_cast<std::int32_t>(width), buffer.position);
            if (bitCount > 0) {
                BitBuffer full{target.data(), 4 + bitCount, 5};
                ASSERT_EQ(-1, bitBufferPutHexBytes(full, digits, bytes.data(), bitCount));
            }
        }
    }
}

} // namespace
