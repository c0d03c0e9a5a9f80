// What passes eight characters at a time, against one by one, before an unreadable page.
#include "core/char_scan.h"
#include "core/digit_run.h"

#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace rosetag;

namespace {

TEST(CharScan, FindsWhatOneByOneFinds) {
    Random random(11);
    GuardedArea area;
    for (int i = 0; i < 20000; ++i) {
        std::string text = random.text(random.below(40), "0123456789ABCxyz-.");
        for (std::uint64_t more = random.below(3); more > 0; --more) {
            text.insert(random.below(text.size() + 1), 1, static_cast<char>(random.below(256)));
        }
        const char* const first =
            area.placeCopy(text.data(), text.size(), GuardedArea::Side::BEFORE_PAGE);
        const char* const last = first + text.size();
        const auto stop = static_cast<char>(random.below(256));
        const auto isStop = [stop](char c) { return c == stop || c == '\0'; };
        ASSERT_EQ(std::find_if(first, last, isStop), findStop(first, last, stop)) << text;
        for (const std::uint32_t escapes : {CHAR_CLASS_URI_ESCAPE, CHAR_CLASS_LINK_ESCAPE}) {
            const auto isEscaped = [escapes](char c) { return charIsOfClass(c, escapes); };
            ASSERT_EQ(std::find_if(first, last, isEscaped), findEscaped(first, last, escapes))
                << text;
        }
    }
}

// How far a run comes, and why it ends there.
struct RunEnd {
    std::size_t digits;
    EpcStatus status;
};

// A digit is looked at before its room is.
RunEnd runEnd(std::size_t count, std::size_t bad, std::size_t room) {
    if (bad < count && bad <= room) {
        return {bad, EPC_ERR_BAD_FORMAT};
    }
    return room < count ? RunEnd{room, EPC_ERR_NO_ROOM} : RunEnd{count, EPC_OK};
}

TEST(DigitRun, IsWrittenUpToWhatIsWrong) {
    Random random(12);
    GuardedArea area;
    for (std::size_t count = 0; count <= 26; ++count) {
        for (std::size_t bad = 0; bad <= count; ++bad) {
            for (std::size_t room = 0; room <= count + 1; ++room) {
                SCOPED_TRACE(testing::Message()
                             << count << " digits, bad " << bad << ", room " << room);
                std::string digits = random.digits(count);
                const std::string good = digits;
                if (bad < count) {
                    digits[bad] = "/:A\x7F\xB1"[random.below(5)];
                }
                const char* const text =
                    area.placeCopy(digits.data(), count, GuardedArea::Side::BEFORE_PAGE);
                std::uint8_t bytes[16] = {};
                const auto capacity = static_cast<std::int32_t>(room * 4 + random.below(4));
                BitBuffer out{bytes, capacity, 0};
                const RunEnd expected = runEnd(count, bad, room);
                ASSERT_STATUS(expected.status, digitRunPut(out, {text, count}));
                ASSERT_EQ(good.substr(0, expected.digits) + std::string(32 - expected.digits, '0'),
                          hexFromBytes(bytes, sizeof bytes));
                ASSERT_EQ(expected.digits * 4, static_cast<std::size_t>(out.position));
            }
        }
    }
}

TEST(DigitRun, IsReadUpToWhatIsWrong) {
    Random random(13);
    GuardedArea area;
    for (std::size_t count = 0; count <= 26; ++count) {
        for (std::size_t bad = 0; bad <= count; ++bad) {
            for (std::size_t room = 0; room <= count + 1; ++room) {
                const std::size_t there = random.flip() ? count : random.below(count + 1);
                SCOPED_TRACE(testing::Message() << count << " digits, bad " << bad << ", room "
                                                << room << ", there " << there);
                std::string digits = random.digits(count + 2);
                const std::string good = digits;
                if (bad < count) {
                    digits[bad] = "ABCDEF"[random.below(6)];
                }
                digits += count % 2 == 0 ? "" : "0";
                std::vector<std::uint8_t> bytes = bytesFromHex(digits);
                BitBuffer bits =
                    bitBufferForReading(bytes.data(), static_cast<std::int32_t>(there * 4));
                char* const dst = area.place<char>(room + 1, GuardedArea::Side::BEFORE_PAGE);
                TextBuffer text = textBufferOver(dst, static_cast<std::int32_t>(room + 1));
                RunEnd expected = runEnd(count, bad, room);
                if (there < count && there <= expected.digits) {
                    expected = {there, EPC_ERR_TRUNCATED};
                }
                ASSERT_STATUS(expected.status,
                              digitRunGet(bits, text, static_cast<std::int32_t>(count)));
                ASSERT_EQ(good.substr(0, expected.digits), dst);
                ASSERT_EQ(expected.digits, static_cast<std::size_t>(textBufferLength(text)));
            }
        }
    }
}

} // namespace
