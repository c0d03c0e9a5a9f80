// What holds for every export: no byte outside its arguments is read or written, inputs are left
// alone, a second call gives the same result, and what a caller finds after a failure.
#include "contract/cases.h"
#include "contract/exports.h"
#include "support/bits.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>

namespace {

using Side = GuardedArea::Side;

// Runs a case in both layouts and returns what both gave.
class Checked {
public:
    Outcome run(const Case& c, Room room) {
        room.side = Side::BEFORE_PAGE;
        const Outcome outcome = caller.call(*c.row, c.arguments, room);
        EXPECT_TRUE(outcome.isInBounds);
        EXPECT_TRUE(outcome.isInputUntouched);
        room.side = Side::AFTER_PAGE;
        const Outcome again = caller.call(*c.row, c.arguments, room);
        EXPECT_STATUS(outcome.status, again.status);
        EXPECT_TRUE(outcome == again) << "a second call gives another result";
        return outcome;
    }

private:
    ExportCaller caller;
};

std::string bitsOf(std::string_view bytes) {
    return bitsFromBytes(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size() * 8);
}

bool writesUri(const Export& row) {
    const std::string name = row.name;
    return name.ends_with("Uri");
}

// ---- What a failure leaves, with enough room ----

void expectLeftText(const Case& c, const Outcome& outcome) {
    if (c.left == nullptr) {
        EXPECT_TRUE(outcome.isUntouched(MAIN));
        EXPECT_TRUE(outcome.isUntouched(AI_OUT));
        return;
    }
    ASSERT_TRUE(outcome.isTerminated());
    if (writesUri(*c.row)) {
        EXPECT_TRUE(outcome.text().starts_with("urn:epc:")) << outcome.text();
        EXPECT_TRUE(outcome.text().ends_with(c.left)) << outcome.text();
    } else {
        EXPECT_EQ(c.left, outcome.text());
    }
}

void expectLeft(const Case& c, const Outcome& outcome) {
    EXPECT_TRUE(outcome.isUntouched(COUNT));
    switch (c.row->output) {
    case Output::TEXT:
    case Output::TEXT_AND_AI:
    case Output::TAG_URI:
        expectLeftText(c, outcome);
        break;
    case Output::BYTES:
        EXPECT_FALSE(outcome.isUntouched(MAIN));
        break;
    case Output::BITS:
        EXPECT_EQ(c.status == EPC_ERR_UNKNOWN_AI, outcome.isUntouched(MAIN));
        break;
    case Output::RECORD:
        EXPECT_EQ(c.status == EPC_ERR_TOO_LONG, outcome.isUntouched(MAIN));
        break;
    default:
        for (std::size_t block = MAIN; block < BLOCK_COUNT; ++block) {
            EXPECT_TRUE(outcome.isUntouched(block)) << block;
        }
    }
}

TEST(Contract, EveryCaseWithEnoughRoom) {
    Checked checked;
    for (const Case& c : allCases()) {
        SCOPED_TRACE(std::string(c.row->name) + ", " + c.name);
        const Outcome outcome = checked.run(c, enoughRoom(*c.row));
        EXPECT_STATUS(c.status, outcome.status);
        if (c.status != EPC_OK) {
            expectLeft(c, outcome);
        }
    }
}

TEST(Contract, OptionalOutputsChangeNothingElse) {
    Checked checked;
    for (const Case& c : allCases()) {
        SCOPED_TRACE(std::string(c.row->name) + ", " + c.name);
        Room room = enoughRoom(*c.row);
        Outcome with = checked.run(c, room);
        room.optionals = false;
        const Outcome without = checked.run(c, room);
        if (c.row->output == Output::RECORD) {
            // A missing record is reported before the bits are decoded.
            const bool isTooLong = c.status == EPC_ERR_TOO_LONG;
            EXPECT_STATUS(isTooLong ? EPC_ERR_TOO_LONG : EPC_ERR_NO_ROOM, without.status);
            continue;
        }
        EXPECT_STATUS(with.status, without.status);
        if (c.row->output != Output::SCHEME) {
            EXPECT_EQ(with.block(MAIN), without.block(MAIN));
        }
    }
}

// ---- What an output holds at every size ----

// A text: all of it, or as many characters as fit.
void expectTextAtSize(const Outcome& full, const Outcome& outcome, std::int32_t size) {
    const std::string text = full.text();
    const auto room = static_cast<std::size_t>(std::max(size - 1, 0));
    EXPECT_STATUS(text.size() <= room ? full.status : EPC_ERR_NO_ROOM, outcome.status);
    ASSERT_TRUE(outcome.isTerminated());
    EXPECT_EQ(text.substr(0, outcome.text().size()), outcome.text());
    EXPECT_LE(outcome.text().size(), room);
    EXPECT_TRUE(text.size() > room || outcome.text() == text);
}

void expectNameAtSize(const Outcome& full, const Outcome& outcome, std::int32_t size) {
    const bool fits = full.text().size() < static_cast<std::size_t>(std::max(size, 0));
    EXPECT_STATUS(fits ? EPC_OK : EPC_ERR_NO_ROOM, outcome.status);
    EXPECT_EQ(fits ? full.text() : "", fits ? outcome.text() : "");
    EXPECT_TRUE(fits || outcome.isUntouched(MAIN));
}

void expectWordsAtSize(const Outcome& full, const Outcome& outcome, std::int32_t needed,
                       std::int32_t size) {
    const bool fits = needed <= size;
    EXPECT_STATUS(fits ? EPC_OK : EPC_ERR_NO_ROOM, outcome.status);
    if (fits) {
        EXPECT_EQ(full.block(MAIN).substr(0, outcome.block(MAIN).size()), outcome.block(MAIN));
        EXPECT_EQ(full.block(COUNT), outcome.block(COUNT));
    } else {
        EXPECT_TRUE(outcome.isUntouched(MAIN));
        EXPECT_TRUE(outcome.isUntouched(COUNT));
    }
}

class Sizes : public Checked {
public:
    void check(const Case& c) {
        Room room = enoughRoom(*c.row);
        const Outcome full = run(c, room);
        switch (c.row->output) {
        case Output::NAME:
        case Output::TEXT:
        case Output::TEXT_AND_AI:
        case Output::TAG_URI:
        case Output::HEX:
        case Output::HEX_AND_BITS:
            checkText(c, full);
            break;
        case Output::BYTES:
        case Output::BITS:
            checkBytes(c, full);
            break;
        case Output::WORDS:
        case Output::FEW_WORDS:
            checkWords(c, full);
            break;
        case Output::AIS:
            checkAIs(c, full);
            break;
        case Output::COMPONENTS:
        case Output::XTID:
            checkSerial(c, full);
            break;
        case Output::SCHEME:
        case Output::RECORD:
            break;
        }
    }

private:
    void checkText(const Case& c, const Outcome& full) {
        const auto enough = static_cast<std::int32_t>(full.text().size()) + 1;
        const bool isUntouched = full.isUntouched(MAIN);
        for (std::int32_t size = -1; size <= (isUntouched ? 3 : enough + 1); ++size) {
            SCOPED_TRACE(size);
            const Outcome outcome = run(c, {size});
            if (isUntouched) {
                EXPECT_STATUS(full.status, outcome.status);
                EXPECT_TRUE(outcome.isUntouched(MAIN));
            } else if (c.row->output == Output::NAME) {
                expectNameAtSize(full, outcome, size);
            } else {
                expectTextAtSize(full, outcome, size);
                EXPECT_EQ(full.block(COUNT), outcome.block(COUNT));
                EXPECT_EQ(full.block(AI_OUT), outcome.block(AI_OUT));
            }
        }
    }

    void checkBytes(const Case& c, const Outcome& full) {
        const std::int32_t needed =
            c.row->output == Output::BITS ? (full.count() + 7) / 8 : full.count();
        const std::int32_t last = full.status == EPC_OK ? needed + 2 : 64;
        for (std::int32_t size = -1; size <= last; ++size) {
            SCOPED_TRACE(size);
            const Outcome outcome = run(c, {size});
            if (full.isUntouched(MAIN)) {
                EXPECT_STATUS(full.status, outcome.status);
                EXPECT_TRUE(outcome.isUntouched(MAIN));
                continue;
            }
            expectBytesAtSize(full, outcome);
            if (full.status == EPC_OK) {
                EXPECT_EQ(size >= needed, outcome.status == EPC_OK);
            }
        }
    }

    void checkWords(const Case& c, const Outcome& full) {
        const bool isFew = c.row->output == Output::FEW_WORDS;
        const std::int32_t needed = isFew ? (full.count() + 15) / 16 : full.count();
        for (std::int32_t size = -1; size <= (full.status == EPC_OK ? needed + 1 : 2); ++size) {
            SCOPED_TRACE(size);
            const Outcome outcome = run(c, {size});
            if (isFew && size < 0) {
                EXPECT_STATUS(EPC_ERR_TOO_LONG, outcome.status);
            } else if (full.status == EPC_OK) {
                expectWordsAtSize(full, outcome, needed, size);
                continue;
            } else {
                EXPECT_STATUS(full.status, outcome.status);
            }
            EXPECT_TRUE(outcome.isUntouched(MAIN));
            EXPECT_TRUE(outcome.isUntouched(COUNT));
        }
        if (isFew) {
            EXPECT_STATUS(EPC_ERR_TOO_LONG, run(c, {32}).status);
        }
    }

    void checkAIs(const Case& c, const Outcome& full) {
        if (full.status != EPC_OK) {
            for (const Room& room : {Room{0, 0}, Room{1, 1}, Room{-1, 90}}) {
                const Outcome outcome = run(c, room);
                EXPECT_STATUS(full.status, outcome.status);
                EXPECT_TRUE(outcome.isUntouched(MAIN) && outcome.isUntouched(AI_CODES));
                EXPECT_TRUE(outcome.isUntouched(COUNT));
            }
            return;
        }
        const std::uint32_t valueSize = enoughRoom(*c.row).valueSize;
        for (std::int32_t maxAIs = -1; maxAIs <= full.count() + 1; ++maxAIs) {
            expectRows(full, run(c, {maxAIs, valueSize}), maxAIs, valueSize);
        }
        for (std::uint32_t size = 0; size <= 24; ++size) {
            expectRows(full, run(c, {20, size}), 20, size);
        }
    }

    // The rows in list order, up to the one that does not fit.
    static void expectRows(const Outcome& full, const Outcome& outcome, std::int32_t maxAIs,
                           std::uint32_t valueSize) {
        SCOPED_TRACE(testing::Message() << maxAIs << " rows of " << valueSize);
        const std::size_t fullSize = full.block(MAIN).size() / 20;
        EpcStatus expected = EPC_OK;
        std::int32_t row = 0;
        for (; row < full.count() && expected == EPC_OK; ++row) {
            const auto index = static_cast<std::size_t>(row);
            const std::string value = full.block(MAIN).data() + index * fullSize;
            if (row == maxAIs || value.size() >= valueSize) {
                expected = row == maxAIs ? EPC_ERR_TOO_MANY_AIS : EPC_ERR_NO_ROOM;
                break;
            }
            EXPECT_STREQ(value.c_str(), outcome.block(MAIN).data() + index * valueSize);
            EXPECT_STREQ(full.block(AI_CODES).data() + index * 5,
                         outcome.block(AI_CODES).data() + index * 5);
        }
        EXPECT_STATUS(expected, outcome.status);
        EXPECT_EQ(expected != EPC_OK, outcome.isUntouched(COUNT));
        const std::string_view values = outcome.block(MAIN);
        const auto written = static_cast<std::size_t>(row) * valueSize;
        EXPECT_EQ(std::string::npos, values.find_first_not_of(static_cast<char>(GuardedArea::FILL),
                                                              std::min(written, values.size())))
            << "a row after the last one was written";
    }

    void checkSerial(const Case& c, const Outcome& full) {
        const auto enough = static_cast<std::int32_t>(full.text().size()) + 1;
        for (std::int32_t size = 0; size <= (full.status == EPC_OK ? enough + 1 : 2); ++size) {
            SCOPED_TRACE(size);
            const Outcome outcome = run(c, {size});
            const bool fits = size >= enough;
            EXPECT_STATUS(full.status != EPC_OK || fits ? full.status : EPC_ERR_NO_ROOM,
                          outcome.status);
            for (const Block block : {MDID, TMID, SERIAL_BITS}) {
                EXPECT_EQ(full.block(block), outcome.block(block));
            }
            if (full.status == EPC_OK && fits) {
                EXPECT_EQ(full.text(), outcome.text());
            } else {
                EXPECT_TRUE(outcome.isUntouched(MAIN) && outcome.isUntouched(COMMANDS) &&
                            outcome.isUntouched(PERMA_LOCK));
            }
        }
    }

    static void expectBytesAtSize(const Outcome& full, const Outcome& outcome) {
        // The bits of the full value up to the failure, and zeros after them.
        const std::string bits = bitsOf(outcome.block(MAIN));
        const std::string fullBits = bitsOf(full.block(MAIN)).substr(0, bits.size());
        const auto differing = std::mismatch(bits.begin(), bits.end(), fullBits.begin()).first;
        EXPECT_EQ(bits.end(), std::find(differing, bits.end(), '1')) << bits << "\n" << fullBits;
        const bool isKnown = outcome.status == full.status || outcome.status == EPC_ERR_NO_ROOM;
        EXPECT_TRUE(isKnown) << epc_statusName(outcome.status);
        EXPECT_EQ(outcome.status != EPC_OK, outcome.isUntouched(COUNT));
    }
};

TEST(Contract, EveryCaseAtEverySize) {
    Sizes sizes;
    for (const Case& c : allCases()) {
        SCOPED_TRACE(std::string(c.row->name) + ", " + c.name);
        sizes.check(c);
        if (testing::Test::HasFailure()) {
            return; // the fault of one export is easier to see without all others
        }
    }
}

// ---- The table itself ----

TEST(Contract, EveryExportReturnsEveryStatusOfItsOwnAndNoOther) {
    Checked checked;
    for (const Export& row : allExports) {
        StatusSet seen = 0;
        for (const Case& c : allCases()) {
            if (c.row != &row) {
                continue;
            }
            const Room enough = enoughRoom(row);
            for (const Room& room : {enough, Room{1, 1}, Room{1, enough.valueSize}, Room{32}}) {
                seen |= StatusSet{1} << checked.run(c, room).status;
            }
            Room withoutRecord = enough;
            withoutRecord.optionals = row.output != Output::RECORD;
            seen |= StatusSet{1} << checked.run(c, withoutRecord).status;
        }
        for (EpcStatus status = EPC_ERR_NO_ROOM; status <= EPC_ERR_BAD_TID; ++status) {
            EXPECT_EQ(row.statuses >> status & 1, seen >> status & 1)
                << row.name << ", " << epc_statusName(status);
        }
        EXPECT_EQ(1U, seen & 1U) << row.name << " never succeeds";
    }
}

TEST(Contract, EveryExportIsListedOnce) {
    std::multiset<std::string> listed;
    for (const Export& row : allExports) {
        listed.insert(row.name);
    }
    std::multiset<std::string> exported;
    std::ifstream symbols(ROSETAG_SYMBOLS);
    for (std::string line; std::getline(symbols, line);) {
        if (line.starts_with(" epc_") || line.starts_with(" tid_")) {
            exported.insert(line.substr(1, line.find('@') - 1));
        }
    }
    EXPECT_EQ(exported, listed);
}

// A plain export is its twin with the encoding left to the library.
TEST(Contract, PlainExportsAreTheirTwinsWithoutEncoding) {
    ExportCaller caller;
    int twins = 0;
    for (const Case& c : allCases()) {
        const std::string name = std::string(c.row->name) + "Enc";
        const auto twin = std::find_if(allExports.begin(), allExports.end(),
                                       [&](const Export& row) { return row.name == name; });
        if (twin == allExports.end()) {
            continue;
        }
        ++twins;
        const Room room = enoughRoom(*c.row);
        const Outcome plain = caller.call(*c.row, c.arguments, room);
        EXPECT_TRUE(plain == caller.call(*twin, c.arguments, room)) << name << ", " << c.name;
    }
    EXPECT_GT(twins, 300);
}

} // namespace
