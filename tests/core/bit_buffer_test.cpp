// The bit buffer against bits as text.
#include "core/bit_buffer.h"

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
            random.flip() ? GuardedArea::Side::BEFORE_PAGE : GuardedArea::Side::AFTER_PAGE;
        before = random.bytes(static_cast<std::size_t>((capacity + 7) / 8));
        bytes = area.placeCopy(before.data(), before.size(), side);
        return {bytes, capacity, position};
    }
    // The same with zeros from position on, as a buffer that is written has them.
    BitBuffer layForWriting(Random& random, std::int32_t capacity, std::int32_t position) {
        const BitBuffer buffer = lay(random, capacity, position);
        std::string bits = bitsFromBytes(before);
        std::fill(bits.begin() + position, bits.end(), '0');
        before = bytesFromBits(bits);
        std::copy(before.begin(), before.end(), bytes);
        return buffer;
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
        BitBuffer buffer = storage.layForWriting(random, capacity, position);
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
        std::uint8_t bytes[8] = {};
        const std::int32_t padded = (position + 15) / 16 * 16;
        BitBuffer full{bytes, padded - 1, position};
        const bool fits = padded == position;
        EXPECT_STATUS(fits ? EPC_OK : EPC_ERR_NO_ROOM, bitBufferPadToWord(full)) << position;
        BitBuffer buffer{bytes, padded, position};
        EXPECT_STATUS(EPC_OK, bitBufferPadToWord(buffer)) << position;
        EXPECT_EQ(padded, buffer.position);
        EXPECT_EQ(std::string(64, '0'), bitsFromBytes(bytes, 64)) << position;
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

} // namespace
