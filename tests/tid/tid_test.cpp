// The TID bank and its six exports, by rows of banks.
#include "rosetag/rosetag.h"
#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The fields that are not 0, by name and in the order of the bank.
std::string textOf(const TidRecord& record) {
    static_assert(sizeof(TidRecord) == 68 && sizeof(TidBlockInfo) == 6, "no padding");
    std::ostringstream text;
    const auto put = [&text](const std::string& name, unsigned value) {
        if (value != 0) {
            text << name << '=' << std::hex << value << ' ';
        }
    };
    const auto putBlock = [&put](const std::string& name, const TidBlockInfo& info) {
        put(name + "Size", info.maxBlockSize);
        put(name + "Variable", info.variableSize);
        put(name + "EpcOffset", info.epcAddressOffset);
        put(name + "NoEpcAlignment", info.noEpcAlignment);
        put(name + "UserOffset", info.userAddressOffset);
        put(name + "NoUserAlignment", info.noUserAlignment);
    };
    put("mdid", record.mdid);
    put("tmid", record.tmid);
    put("bits", record.serialBits);
    text << record.serial << (*record.serial != '\0' ? " " : "");
    put("commands", record.hasOptionalCommands);
    put("epcSize", record.maxEpcSize);
    put("recom", record.recomSupport);
    put("access", record.accessSupport);
    put("lockbits", record.separateLockbits);
    put("umi", record.autoUmiSupport);
    put("pjm", record.pjmSupport);
    put("erase", record.blockEraseSupported);
    put("write", record.blockWriteSupported);
    put("permalock", record.blockPermaLockSupported);
    putBlock("erase", record.blockErase);
    putBlock("write", record.blockWrite);
    put("permalockSize", record.blockPermaLockBlockSize);
    put("userSize", record.userMemorySize);
    return text.str();
}

// Decodes a bank that lies against an unreadable page, into a record that is full of old bits.
EpcStatus decode(const std::vector<std::uint8_t>& bank, std::int32_t bits, TidRecord& record) {
    GuardedArea area;
    std::memset(&record, 0x55, sizeof record);
    return tid_binaryDecode(
        bits, area.placeCopy(bank.data(), bank.size(), GuardedArea::Side::BEFORE_PAGE), &record);
}

constexpr char SHORT_TID[] = "E2 012 345";
constexpr char ALL_SEGMENTS[] = "E2 812 345 5C00 AABBCCDDEEFF0123 0ABF 07FFFF01 01020408 BEEF CAFE";

TEST(Tid, DecodesEachSegmentAndRefusesWhatTheLayoutForbids) {
    const struct {
        const char* name;
        const char* bank;
        EpcStatus status;
        const char* record;
    } rows[] = {
        {"no bits", "", EPC_ERR_TRUNCATED, ""},
        {"another class", "E3", EPC_ERR_BAD_TID, ""},
        {"class alone", "E2", EPC_ERR_TRUNCATED, ""},
        {"short TID", SHORT_TID, EPC_OK, "mdid=12 tmid=345 "},
        {"short TID, bits after it", "E2 7FF FFF FFFF", EPC_OK, "mdid=7ff tmid=fff "},
        {"no XTID header", "E2 800 001", EPC_ERR_TRUNCATED, "mdid=800 tmid=1 "},
        {"no segments", "E2 800 001 0000", EPC_OK, "mdid=800 tmid=1 "},
        {"no segments, bits after them", "E2 800 001 0000 FFFF", EPC_OK, "mdid=800 tmid=1 "},
        {"extended header", "E2 800 001 0001", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"lowest reserved bit", "E2 800 001 0002", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"highest reserved bit", "E2 800 001 0200", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"reserved bit and a serial", "E2 800 001 2200", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"serial of 48 bits", "E2 800 001 2000 0123456789AB", EPC_OK,
         "mdid=800 tmid=1 bits=30 0123456789AB "},
        {"serial of 144 bits", "E2 800 001 E000 0123456789ABCDEF0123456789ABCDEF0123", EPC_OK,
         "mdid=800 tmid=1 bits=90 0123456789ABCDEF0123456789ABCDEF0123 "},
        {"serial cut", "E2 800 001 2000 01234567", EPC_ERR_TRUNCATED, "mdid=800 tmid=1 bits=30 "},
        {"commands, none", "E2 800 001 0400 0000", EPC_OK, "mdid=800 tmid=1 commands=1 "},
        {"EPC size", "E2 800 001 0400 001F", EPC_OK, "mdid=800 tmid=1 commands=1 epcSize=1f "},
        {"recom", "E2 800 001 0400 0020", EPC_OK, "mdid=800 tmid=1 commands=1 recom=1 "},
        {"access", "E2 800 001 0400 0040", EPC_OK, "mdid=800 tmid=1 commands=1 access=1 "},
        {"lock bits", "E2 800 001 0400 0080", EPC_OK, "mdid=800 tmid=1 commands=1 lockbits=1 "},
        {"UMI", "E2 800 001 0400 0100", EPC_OK, "mdid=800 tmid=1 commands=1 umi=1 "},
        {"PJM", "E2 800 001 0400 0200", EPC_OK, "mdid=800 tmid=1 commands=1 pjm=1 "},
        {"BlockErase", "E2 800 001 0400 0400", EPC_OK, "mdid=800 tmid=1 commands=1 erase=1 "},
        {"BlockWrite", "E2 800 001 0400 0800", EPC_OK, "mdid=800 tmid=1 commands=1 write=1 "},
        {"permalock", "E2 800 001 0400 1000", EPC_OK, "mdid=800 tmid=1 commands=1 permalock=1 "},
        {"commands, first reserved", "E2 800 001 0400 8FFF", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"commands, last reserved", "E2 800 001 0400 2FFF", EPC_ERR_BAD_TID, "mdid=800 tmid=1 "},
        {"blocks not described", "E2 800 001 0800 00000000 00000000", EPC_OK, "mdid=800 tmid=1 "},
        {"block sizes", "E2 800 001 0800 00000108 00000009", EPC_OK,
         "mdid=800 tmid=1 eraseSize=8 eraseVariable=1 writeSize=9 "},
        {"block offsets", "E2 800 001 0800 0001FE01 03FC0001", EPC_OK,
         "mdid=800 tmid=1 eraseSize=1 eraseEpcOffset=ff writeSize=1 writeUserOffset=ff "},
        {"block alignments", "E2 800 001 0800 00020001 04000001", EPC_OK,
         "mdid=800 tmid=1 eraseSize=1 eraseNoEpcAlignment=1 writeSize=1 writeNoUserAlignment=1 "},
        {"erase of size 0", "E2 800 001 0800 00000100 00000009", EPC_ERR_BAD_TID,
         "mdid=800 tmid=1 "},
        {"write of size 0", "E2 800 001 0800 00000108 04000000", EPC_ERR_BAD_TID,
         "mdid=800 tmid=1 eraseSize=8 eraseVariable=1 "},
        {"block, last reserved", "E2 800 001 0800 08000001 00000009", EPC_ERR_BAD_TID,
         "mdid=800 tmid=1 "},
        {"block, first reserved", "E2 800 001 0800 00000001 80000001", EPC_ERR_BAD_TID,
         "mdid=800 tmid=1 eraseSize=1 "},
        {"user memory", "E2 800 001 1000 0102 0304", EPC_OK,
         "mdid=800 tmid=1 permalockSize=102 userSize=304 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::vector<std::uint8_t> bank = bytesFromHex(row.bank);
        const auto bits = static_cast<std::int32_t>(bank.size() * 8);
        TidRecord record;
        EXPECT_STATUS(row.status, decode(bank, bits, record));
        EXPECT_EQ(row.record, textOf(record));
        std::memset(&record, 0x55, sizeof record);
        EXPECT_STATUS(row.status, tid_wordsDecode(bits, wordsFromBytes(bank).data(), &record));
        EXPECT_EQ(row.record, textOf(record));
    }
}

TEST(Tid, KeepsTheFieldsBeforeTheBitWhereTheBankEnds) {
    const struct {
        std::size_t end; // the bit with which the fields are complete
        const char* fields;
    } rows[] = {
        {20, "mdid=812 "},
        {32, "tmid=345 "},
        {48, "bits=40 "},
        {112, "AABBCCDDEEFF0123 "},
        {128, "commands=1 epcSize=1f recom=1 lockbits=1 pjm=1 write=1 "},
        {160, "eraseSize=1 eraseVariable=1 eraseEpcOffset=ff eraseNoEpcAlignment=1 "
              "eraseUserOffset=ff eraseNoUserAlignment=1 "},
        {192, "writeSize=8 writeEpcOffset=2 writeNoEpcAlignment=1 writeUserOffset=40 "},
        {208, "permalockSize=beef "},
        {224, "userSize=cafe "},
    };
    const std::string bank = bitsFromBytes(bytesFromHex(ALL_SEGMENTS));
    ASSERT_EQ(224U, bank.size());
    for (std::size_t bits = 0; bits <= bank.size(); ++bits) {
        SCOPED_TRACE(bits);
        std::string expected;
        for (const auto& row : rows) {
            expected += bits >= row.end ? row.fields : "";
        }
        TidRecord record;
        EXPECT_STATUS(
            bits < bank.size() ? EPC_ERR_TRUNCATED : EPC_OK,
            decode(bytesFromBits(bank.substr(0, bits)), static_cast<std::int32_t>(bits), record));
        EXPECT_EQ(expected, textOf(record));
    }
}

// All outputs of the Xtid exports, filled with a byte that no bank of these tests yields.
struct Parts {
    std::uint16_t mdid = 0x5555;
    std::uint16_t tmid = 0x5555;
    std::uint8_t serialBits = 0x55;
    char serial[37] = "untouched";
    std::uint8_t maxEpcSize = 0x55;
    std::uint8_t optionalCommands[9] = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    std::uint8_t blockWrite[6] = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    std::uint8_t blockErase[6] = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    std::uint16_t userMemorySize = 0x5555;
    std::uint16_t blockPermaLockBlockSize = 0x5555;
};

std::string textOf(const Parts& parts) {
    const auto hex = [](const auto& bytes) { return hexFromBytes(bytes, sizeof bytes); };
    std::ostringstream text;
    text << std::hex << parts.mdid << ' ' << parts.tmid << ' ' << +parts.serialBits << ' '
         << parts.serial << ' ' << +parts.maxEpcSize << ' ' << hex(parts.optionalCommands) << ' '
         << hex(parts.blockWrite) << ' ' << hex(parts.blockErase) << ' ' << parts.userMemorySize
         << ' ' << parts.blockPermaLockBlockSize;
    return text.str();
}

EpcStatus binaryParts(const std::vector<std::uint8_t>& bank, std::uint32_t serialSize, Parts& p) {
    return tid_binaryToXtid(static_cast<std::int32_t>(bank.size() * 8), bank.data(), &p.mdid,
                            &p.tmid, &p.serialBits, serialSize, p.serial, &p.maxEpcSize,
                            p.optionalCommands, p.blockWrite, p.blockErase, &p.userMemorySize,
                            &p.blockPermaLockBlockSize);
}

EpcStatus wordParts(const std::vector<std::uint8_t>& bank, std::uint32_t serialSize, Parts& p) {
    return tid_wordsToXtid(static_cast<std::int32_t>(bank.size() * 8), wordsFromBytes(bank).data(),
                           &p.mdid, &p.tmid, &p.serialBits, serialSize, p.serial, &p.maxEpcSize,
                           p.optionalCommands, p.blockWrite, p.blockErase, &p.userMemorySize,
                           &p.blockPermaLockBlockSize);
}

EpcStatus binaryComponents(const std::vector<std::uint8_t>& bank, std::uint32_t serialSize,
                           Parts& p) {
    return tid_binaryToComponents(static_cast<std::int32_t>(bank.size() * 8), bank.data(), &p.mdid,
                                  &p.tmid, &p.serialBits, serialSize, p.serial);
}

EpcStatus wordComponents(const std::vector<std::uint8_t>& bank, std::uint32_t serialSize,
                         Parts& p) {
    return tid_wordsToComponents(static_cast<std::int32_t>(bank.size() * 8),
                                 wordsFromBytes(bank).data(), &p.mdid, &p.tmid, &p.serialBits,
                                 serialSize, p.serial);
}

// The same with no output but the serial number.
EpcStatus binaryNulls(const std::vector<std::uint8_t>& bank, std::uint32_t serialSize, Parts& p) {
    return tid_binaryToXtid(static_cast<std::int32_t>(bank.size() * 8), bank.data(), nullptr,
                            nullptr, nullptr, serialSize, p.serial, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr);
}

TEST(TidParts, EachExportWritesItsOutputsAndNoOther) {
    constexpr char untouched[] = " 55 555555555555555555 555555555555 555555555555 5555 5555";
    constexpr char all[] = " 1f 010100010001010000 080002014000 0101FF01FF01 cafe beef";
    constexpr char zeros[] = " 0 000000000000000000 000000000000 000000000000 0 0";
    const std::string nothing = std::string("5555 5555 55 untouched") + untouched;
    const struct {
        const char* name;
        const char* bank;
        std::uint32_t serialSize;
        EpcStatus status;
        const char* components; // "" where nothing may be written
        const char* extended;
        const char* serial;
    } rows[] = {
        {"all segments", ALL_SEGMENTS, 37, EPC_OK, "812 345 40 AABBCCDDEEFF0123", all,
         "AABBCCDDEEFF0123"},
        {"room for digits and NUL", ALL_SEGMENTS, 17, EPC_OK, "812 345 40 AABBCCDDEEFF0123", all,
         "AABBCCDDEEFF0123"},
        {"room for the digits alone", ALL_SEGMENTS, 16, EPC_ERR_NO_ROOM, "812 345 40 untouched",
         untouched, "untouched"},
        {"no serial number", SHORT_TID, 1, EPC_OK, "12 345 0 ", zeros, ""},
        {"no room for a NUL", SHORT_TID, 0, EPC_ERR_NO_ROOM, "12 345 0 untouched", untouched,
         "untouched"},
        {"bank fails in its last segment", "E2 800 001 1000 0102", 37, EPC_ERR_TRUNCATED, "",
         untouched, "untouched"},
        {"bank fails before the room", "E3 800 001", 0, EPC_ERR_BAD_TID, "", untouched,
         "untouched"},
    };
    for (const auto& row : rows) {
        const std::vector<std::uint8_t> bank = bytesFromHex(row.bank);
        const bool writes = *row.components != '\0';
        const std::string extended = writes ? std::string(row.components) + row.extended : nothing;
        const std::string components = writes ? std::string(row.components) + untouched : nothing;
        const std::string nulls = std::string("5555 5555 55 ") + row.serial + untouched;
        const struct {
            const char* name;
            EpcStatus (*call)(const std::vector<std::uint8_t>&, std::uint32_t, Parts&);
            const std::string& expected;
        } calls[] = {
            {"binaryToXtid", binaryParts, extended},
            {"wordsToXtid", wordParts, extended},
            {"binaryToComponents", binaryComponents, components},
            {"wordsToComponents", wordComponents, components},
            {"binaryToXtid with nulls", binaryNulls, nulls},
        };
        for (const auto& call : calls) {
            SCOPED_TRACE(std::string(row.name) + ", " + call.name);
            Parts parts;
            EXPECT_STATUS(row.status, call.call(bank, row.serialSize, parts));
            EXPECT_EQ(call.expected, textOf(parts));
        }
    }
}

TEST(TidRecord, NullIsNoRoomButAfterTheCountOfWords) {
    const std::uint16_t words[31] = {0xE201, 0x2345};
    const std::uint8_t bank[] = {0xE2, 0x01, 0x23, 0x45};
    TidRecord record;
    EXPECT_STATUS(EPC_ERR_NO_ROOM, tid_binaryDecode(32, bank, nullptr));
    EXPECT_STATUS(EPC_ERR_NO_ROOM, tid_wordsDecode(32, words, nullptr));
    EXPECT_STATUS(EPC_OK, tid_wordsDecode(496, words, &record));
    EXPECT_STATUS(EPC_ERR_TOO_LONG, tid_wordsDecode(497, words, nullptr));
    EXPECT_STATUS(EPC_ERR_TRUNCATED, tid_binaryDecode(-1, bank, &record));
}

} // namespace
