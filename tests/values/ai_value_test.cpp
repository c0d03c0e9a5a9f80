// Each kind of component: its bits in both directions, and what each failure leaves.
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string DIGITS_20 = "12345678901234567890";

TEST(AiValue, StandsInItsBitsAndComesBack) {
    const struct {
        const char* ai;
        std::string value;
        const char* bits;
    } cases[] = {
        {"20", "99", "99/7"}, // numeric
        {"20", "05", "5/7"},
        {"3103", "000189", "189/20"},
        {"8001", "99999999999999", "99999999999999/47"},
        {"4309", DIGITS_20, "0/3 12345678901234567890/64"}, // long: through hexadecimal digits
        {"4309", "00000000000000000007", "0/63 7/4"},
        {"01", "09506000134352", "`09506000134352`/4"},
        {"7241", "98", "9/4 8/4"},
        {"8006", "095060001343520412", "`095060001343520412`/4"},
        {"8004", "", "15/4"}, // digits, then text
        {"8004", "123", "1/4 2/4 3/4 15/4"},
        {"8004", "123A", "1/4 2/4 3/4 14/4 001 1/5 10/4"},
        {"8004", "A12", "14/4 001 3/5 10/4 1/4 2/4"},
        {"8004", "7a9", "7/4 14/4 010 2/5 10/4 9/4"},
        {"21", "ABCG", "011 4/5 0/6 1/6 2/6 6/6"}, // text
        {"10", "", "100 0/5"},
        {"21", "007", "000 3/5 7/10"},
        {"4321", "0", "0"}, // flag
        {"4321", "1", "1"},
        {"17", "240229", "24/7 2/4 29/5"}, // date
        {"17", "000229", "0/7 2/4 29/5"},
        {"17", "240100", "24/7 1/4 0/5"}, // day 00 in each month, short or long
        {"17", "240200", "24/7 2/4 0/5"},
        {"17", "240400", "24/7 4/4 0/5"},
        {"17", "241200", "24/7 12/4 0/5"},
        {"17", "991231", "99/7 12/4 31/5"},
        {"7003", "2412310830", "24/7 12/4 31/5 8/5 30/6"}, // date and time
        {"7003", "2412312359", "24/7 12/4 31/5 23/5 59/6"},
        {"7007", "240229", "0 24/7 2/4 29/5"}, // range
        {"7007", "240229230101", "1 24/7 2/4 29/5 23/7 1/4 1/5"},
        {"8008", "240229", "3/2 24/7 2/4 29/5"}, // variable precision
        {"8008", "24022923", "0/2 24/7 2/4 29/5 23/5"},
        {"8008", "2402290059", "1/2 24/7 2/4 29/5 0/5 59/6"},
        {"8008", "240229010203", "2/2 24/7 2/4 29/5 1/5 2/6 3/6"},
        {"4307", "AZ", "0/6 25/6"}, // letters
        {"30", "", "0/4"},          // variable numeric
        {"30", "007", "3/4 7/10"},
        {"3920", "999999999999999", "15/4 999999999999999/50"},
        {"4330", "000123", "123/20 0"}, // sign
        {"4330", "000123-", "123/20 1"},
        {"255", "9506000134376", "`95060001343760`/4"},
        {"253", "9506000134376X", "`9506000134376`/4 011 1/5 23/6"},
        {"3910", "978", "978/10 0/4"}, // a numeric one before another
        {"3910", "9780012", "978/10 4/4 12/14"},
        {"421", "528AB-", "528/10 101 3/4 1708/16"},
        {"7030", "528", "528/10 100 0/5"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(std::string(row.ai) + " " + row.value);
        const std::string bits = bitsOf(row.bits);
        EXPECT_EQ(BitsResult(EPC_OK, bits), encodeValue(row.ai, row.value));
        EXPECT_EQ(TextResult(EPC_OK, row.value), decodeValue(row.ai, bits));
        EXPECT_EQ(TextResult(EPC_OK, row.value), decodeValue(row.ai, bits + "1011"));
        // Room for all but the last bits: the fields that fit whole stay.
        for (std::size_t room = 0; room + 8 <= (bits.size() + 7) / 8 * 8; room += 8) {
            EXPECT_EQ(BitsResult(EPC_ERR_NO_ROOM,
                                 room == 0 ? "untouched" : wholeFieldsOf(row.bits, room)),
                      encodeValue(row.ai, row.value, AI_ENC_AUTO, 0,
                                  static_cast<std::int32_t>(room / 8)));
        }
        // Bits that end too early; only a sign may be missing.
        const bool mayEndEarly = std::string(row.ai) == "4330";
        for (std::size_t count = 0; count < bits.size() - (mayEndEarly ? 1 : 0); ++count) {
            const TextResult result = decodeValue(row.ai, bits.substr(0, count));
            EXPECT_STATUS(EPC_ERR_TRUNCATED, result.status) << count << " bits";
            EXPECT_EQ(0U, row.value.find(result.text)) << count << " bits: " << result.text;
        }
        // A text with too little room holds what fitted of whole fields.
        for (std::size_t room = 0; room < row.value.size(); ++room) {
            const TextResult result =
                decodeValue(row.ai, bits, static_cast<std::int32_t>(room + 1));
            EXPECT_STATUS(EPC_ERR_NO_ROOM, result.status) << "room " << room;
            EXPECT_EQ(0U, row.value.find(result.text)) << "room " << room << ": " << result.text;
        }
    }
    EXPECT_EQ(TextResult(EPC_OK, "000123"), decodeValue("4330", bitsOf("123/20")));
}

TEST(AiValue, IsRefusedByItsEncoder) {
    const struct {
        const char* ai;
        std::string value;
        EpcStatus status;
        const char* bits; // those left
    } cases[] = {
        {"20", "123", EPC_ERR_TOO_LONG, ""},
        {"20", "1", EPC_ERR_TRUNCATED, ""},
        {"20", "1A", EPC_ERR_BAD_CHARACTER, ""},
        {"20", "", EPC_ERR_TRUNCATED, ""},
        {"4309", DIGITS_20 + "1", EPC_ERR_TOO_LONG, ""},
        {"4309", "1234567890123456789", EPC_ERR_TRUNCATED, ""},
        {"4309", "1234567890123456789A", EPC_ERR_BAD_CHARACTER, ""},
        {"01", "0950600013435", EPC_ERR_TRUNCATED, ""},
        {"01", "9A506000134352", EPC_ERR_BAD_FORMAT, "9/4"},
        {"01", "9111111111111-", EPC_ERR_BAD_FORMAT, "9/4 286331153/32 4369/16"},
        {"00", "99999999999999999:", EPC_ERR_BAD_FORMAT, "`99999999999999999`/4"},
        {"8006", "09506000134352001", EPC_ERR_TRUNCATED, "`09506000134352`/4"},
        {"8004", "12A\x7F", EPC_ERR_BAD_CHARACTER, "1/4 2/4 14/4"},
        {"21", "AB ", EPC_ERR_BAD_CHARACTER, ""},
        {"21", "\xC3\x84", EPC_ERR_BAD_CHARACTER, ""},
        {"4321", "", EPC_ERR_TOO_LONG, ""},
        {"4321", "00", EPC_ERR_TOO_LONG, ""},
        {"4321", "2", EPC_ERR_BAD_CHARACTER, ""},
        {"17", "2402290", EPC_ERR_TOO_LONG, ""},
        {"17", "24022", EPC_ERR_TRUNCATED, ""},
        {"17", "2A0229", EPC_ERR_BAD_CHARACTER, ""},
        {"17", "24A229", EPC_ERR_BAD_CHARACTER, ""},
        {"17", "24022-", EPC_ERR_BAD_CHARACTER, ""},
        {"17", "241301", EPC_ERR_BAD_FORMAT, ""},
        {"17", "2400AA", EPC_ERR_BAD_FORMAT, ""}, // the month before the day is read
        {"17", "250229", EPC_ERR_BAD_FORMAT, ""},
        {"17", "240431", EPC_ERR_BAD_FORMAT, ""},
        {"7003", "24123108301", EPC_ERR_TOO_LONG, ""},
        {"7003", "241231", EPC_ERR_TRUNCATED, ""},
        {"7003", "2412310", EPC_ERR_TRUNCATED, ""},
        {"7003", "24123108", EPC_ERR_TRUNCATED, ""},
        {"7003", "241231083", EPC_ERR_BAD_FORMAT, ""},
        {"7003", "24123125", EPC_ERR_BAD_FORMAT, ""}, // the hour before the end
        {"7003", "2412312400", EPC_ERR_BAD_FORMAT, ""},
        {"7003", "2412312360", EPC_ERR_BAD_FORMAT, ""},
        {"7003", "24123108A0", EPC_ERR_BAD_FORMAT, ""},
        {"7007", "2402292", EPC_ERR_BAD_FORMAT, ""},
        {"7007", "", EPC_ERR_BAD_FORMAT, ""},
        {"7007", "250229", EPC_ERR_BAD_FORMAT, ""},
        {"7007", "240229250229", EPC_ERR_BAD_FORMAT, "1 24/7 2/4 29/5"},
        {"7007", "24022923A101", EPC_ERR_BAD_CHARACTER, "1 24/7 2/4 29/5"},
        {"8008", "2402291", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "240229111", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "24022911111111", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "2402", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "24022924", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "240229235960", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "24132923", EPC_ERR_BAD_FORMAT, ""},
        {"8008", "2402A923", EPC_ERR_BAD_CHARACTER, ""},
        {"4307", "ABC", EPC_ERR_TOO_LONG, ""},
        {"4307", "A", EPC_ERR_TRUNCATED, ""},
        {"4307", "", EPC_ERR_TRUNCATED, ""},
        {"4307", "Aa", EPC_ERR_BAD_FORMAT, ""},
        {"4307", "[A", EPC_ERR_BAD_FORMAT, ""},
        {"30", "12A", EPC_ERR_BAD_CHARACTER, "3/4"},
        {"30", "1234567890123456", EPC_ERR_TOO_LONG, ""},
        {"4330", "000123--", EPC_ERR_TOO_LONG, "123/20"},
        {"4330", "000123+", EPC_ERR_BAD_FORMAT, "123/20"},
        {"4330", "00012", EPC_ERR_TRUNCATED, ""},
        {"3910", "9A8123", EPC_ERR_BAD_CHARACTER, ""},
        {"3910", "978A", EPC_ERR_BAD_CHARACTER, "978/10 1/4"},
        {"7030", "52", EPC_ERR_TRUNCATED, ""},
        {"255", "950600013437", EPC_ERR_TRUNCATED, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(BitsResult(row.status, bitsOf(row.bits)), encodeValue(row.ai, row.value))
            << row.ai << " " << row.value;
    }
    // A digit is looked at before its room is.
    EXPECT_EQ(BitsResult(EPC_ERR_BAD_FORMAT, bitsOf("`9506`/4")),
              encodeValue("01", "9506X001343520", AI_ENC_AUTO, 0, 2));
    // Digits after the last component are not looked at.
    EXPECT_EQ(encodeValue("01", "09506000134352"), encodeValue("01", "09506000134352X"));
    EXPECT_EQ(encodeValue("8006", "095060001343520412"),
              encodeValue("8006", "0950600013435204121"));
}

TEST(AiValue, IsRefusedByItsDecoder) {
    const struct {
        const char* ai;
        const char* bits;
        EpcStatus status;
        const char* text; // what is left
    } cases[] = {
        {"20", "100/7", EPC_ERR_OUT_OF_RANGE, ""},
        {"3103", "1000000/20", EPC_ERR_OUT_OF_RANGE, ""},
        {"01", "1/4 2/4 10/4", EPC_ERR_BAD_FORMAT, "12"},
        {"00", "`12345678901234`/4 15/4 0/4 0/4 0/4", EPC_ERR_BAD_FORMAT, "12345678901234"},
        {"7241", "9/4 10/4", EPC_ERR_BAD_FORMAT, "9"},
        {"8004", "1/4 12/4", EPC_ERR_BAD_FORMAT, "1"},
        {"8004", "10/4", EPC_ERR_BAD_FORMAT, ""},
        {"8004", "13/4", EPC_ERR_BAD_FORMAT, ""},
        {"17", "100/7 1/4 1/5", EPC_ERR_OUT_OF_RANGE, ""},
        {"17", "24/7 0/4 1/5", EPC_ERR_BAD_FORMAT, "24"},
        {"17", "24/7 13/4", EPC_ERR_BAD_FORMAT, "24"},
        {"17", "25/7 2/4 29/5", EPC_ERR_BAD_FORMAT, "250229"},
        {"17", "24/7 4/4 31/5", EPC_ERR_BAD_FORMAT, "240431"},
        {"7003", "24/7 12/4 31/5 24/5 0/6", EPC_ERR_BAD_FORMAT, "241231"},
        {"7003", "24/7 12/4 31/5 23/5 60/6", EPC_ERR_BAD_FORMAT, "24123123"},
        {"7007", "1 24/7 2/4 29/5 25/7 2/4 29/5", EPC_ERR_BAD_FORMAT, "240229250229"},
        {"8008", "2/2 24/7 2/4 29/5 1/5 2/6 60/6", EPC_ERR_BAD_FORMAT, "2402290102"},
        {"4307", "0/6 26/6", EPC_ERR_BAD_FORMAT, "A"},
        {"30", "3/4 1000/10", EPC_ERR_OUT_OF_RANGE, ""},
        {"4330", "1000000/20 1", EPC_ERR_OUT_OF_RANGE, ""},
        {"8006", "`095060001343520`/4 10/4 0/4 0/4", EPC_ERR_BAD_FORMAT, "095060001343520"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(TextResult(row.status, row.text), decodeValue(row.ai, bitsOf(row.bits)))
            << row.ai << " " << row.bits;
    }
    // The long way does not hold a number to its digits: 2^67 - 1 has 21 of them.
    EXPECT_EQ(TextResult(EPC_OK, "147573952589676412927"),
              decodeValue("4309", std::string(67, '1')));
}

TEST(AiValue, KnowsTheCalendar) {
    for (int year = 0; year < 100; ++year) {
        for (int month = 0; month <= 15; ++month) {
            const bool isShort = month == 4 || month == 6 || month == 9 || month == 11;
            const int february = year % 4 == 0 ? 29 : 28;
            const int days = month == 2 ? february : isShort ? 30 : 31;
            for (const int day : {0, 1, 28, 29, 30, 31}) {
                char date[16];
                std::snprintf(date, sizeof date, "%02d%02d%02d", year, month, day);
                SCOPED_TRACE(date);
                const bool isMonth = month >= 1 && month <= 12;
                const EpcStatus status = isMonth && day <= days ? EPC_OK : EPC_ERR_BAD_FORMAT;
                const auto number = [](int value) { return static_cast<std::uint64_t>(value); };
                const std::string bits = bitsFromNumber(number(year), 7) +
                                         bitsFromNumber(number(month), 4) +
                                         bitsFromNumber(number(day), 5);
                EXPECT_EQ(BitsResult(status, status == EPC_OK ? bits : ""),
                          encodeValue("17", date));
                EXPECT_EQ(TextResult(status, std::string(date, isMonth ? 6 : 2)),
                          decodeValue("17", bits));
            }
            // The next day has no bits.
            const std::string day32 = std::to_string(100000 + month * 100 + 32);
            EXPECT_STATUS(EPC_ERR_BAD_FORMAT, encodeValue("17", day32).status) << day32;
        }
    }
}

} // namespace
