// The reader of texts: each rule at its borders, the text and the outputs against unreadable pages.
#include "core/hex_digits.h"
#include "core/text_cursor.h"

#include "support/guarded_area.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <string>

using namespace rosetag;

using namespace std::string_literals;

namespace {

constexpr std::uint32_t WHOLE = 0xFFFFFFFF;
constexpr std::int32_t NO_COUNT = -7;

// What a reader gave. out lies before an unreadable page.
struct Output {
    GuardedArea area;
    char* text = nullptr;
    std::int32_t count = NO_COUNT;

    char* lay(std::int32_t capacity) {
        text = area.place<char>(static_cast<std::size_t>(std::max(capacity, 0)),
                                GuardedArea::Side::BEFORE_PAGE);
        return text;
    }
};

template <char delimiter, std::int32_t capacity>
EpcStatus until(TextCursor& cursor, Output& out) {
    std::string_view text;
    EPC_TRY(textCursorReadUntil(cursor, delimiter, capacity, text));
    out.count = static_cast<std::int32_t>(text.size());
    *std::copy(text.begin(), text.end(), out.lay(out.count + 1)) = '\0';
    return EPC_OK;
}

template <char delimiter, std::int32_t capacity>
EpcStatus escapedUntil(TextCursor& cursor, Output& out) {
    return textCursorReadEscapedUntil(cursor, delimiter, capacity, out.lay(capacity), out.count);
}

template <std::int32_t capacity>
EpcStatus escapedToEnd(TextCursor& cursor, Output& out) {
    return textCursorReadEscapedToEnd(cursor, capacity, out.lay(capacity), out.count);
}

EpcStatus escapedChar(TextCursor& cursor, Output& out) {
    char character = '?';
    EPC_TRY(textCursorReadEscapedChar(cursor, character));
    out.lay(2)[0] = character;
    out.text[1] = '\0';
    out.count = 1;
    return EPC_OK;
}

template <std::int32_t maxDigits, std::int32_t stopAfter = 0>
EpcStatus digits(TextCursor& cursor, Output& out) {
    std::string_view text;
    EPC_TRY(textCursorReadDigits(cursor, maxDigits, text, stopAfter));
    out.count = static_cast<std::int32_t>(text.size());
    *std::copy(text.begin(), text.end(), out.lay(out.count + 1)) = '\0';
    return EPC_OK;
}

template <LeadingZeros leadingZeros, std::int32_t stopAfter = 0>
EpcStatus number(TextCursor& cursor, Output& out) {
    std::uint64_t value = 4711;
    const EpcStatus status =
        textCursorReadNumber(cursor, leadingZeros, value, &out.count, stopAfter);
    if (status != EPC_OK) {
        EXPECT_EQ(4711U, value);
        return status;
    }
    const std::string text = std::to_string(value);
    *std::copy(text.begin(), text.end(), out.lay(static_cast<std::int32_t>(text.size()) + 1)) =
        '\0';
    return EPC_OK;
}

constexpr auto ZEROS = LeadingZeros::ALLOW;
constexpr auto NO_ZEROS = LeadingZeros::REFUSE;

struct Row {
    const char* name;
    EpcStatus (*read)(TextCursor& cursor, Output& out);
    std::string text;
    std::uint32_t span; // WHOLE: to the end of the text
    EpcStatus status;
    std::string out;
    std::uint32_t consumed;
    std::int32_t count = -1; // -1: the length of out
};

// clang-format off
const Row rows[] = {
    // name                            operation                      text                    span   status                  out          consumed
    {"until, at once",                 until<'.', 7>,                 ".a",                   WHOLE, EPC_OK,                 "",          0},
    {"until, fills capacity",          until<'.', 7>,                 "abcdef.",              WHOLE, EPC_OK,                 "abcdef",    6},
    {"until, one too many",            until<'.', 7>,                 "abcdefg.",             WHOLE, EPC_ERR_TOO_LONG,       "",          6},
    {"until, no delimiter",            until<'.', 7>,                 "abc",                  WHOLE, EPC_ERR_TRUNCATED,      "",          3},
    {"until, text and room end",       until<'.', 7>,                 "abcdef",               WHOLE, EPC_ERR_TRUNCATED,      "",          6},
    {"until, span ends first",         until<'.', 7>,                 "abcdef.",              3,     EPC_ERR_TRUNCATED,      "",          3},
    {"until, delimiter after span",   until<'.', 7>,                 "abc.",                 3,     EPC_OK,                 "abc",       3},
    {"until, empty span",              until<'.', 7>,                 "abc.",                 0,     EPC_ERR_TRUNCATED,      "",          0},
    {"until, NUL in the span",         until<'.', 7>,                 "ab\0c."s,              WHOLE, EPC_ERR_TRUNCATED,      "",          2},
    {"until NUL",                      until<'\0', 7>,                "abc",                  WHOLE, EPC_OK,                 "abc",       3},
    {"until NUL, too long",            until<'\0', 4>,                "abcd",                 WHOLE, EPC_ERR_TOO_LONG,       "",          3},
    {"until, capacity 1",              until<'.', 1>,                 ".",                    WHOLE, EPC_OK,                 "",          0},
    {"escape",                         escapedChar,                   "%2f!",                 WHOLE, EPC_OK,                 "/",         3},
    {"escape, upper case",             escapedChar,                   "%2F",                  WHOLE, EPC_OK,                 "/",         3},
    {"escape, a plain character",      escapedChar,                   "\xFFz",                WHOLE, EPC_OK,                 "\xFF",      1},
    {"escape, code 255",               escapedChar,                   "%fF",                  WHOLE, EPC_OK,                 "\xFF",      3},
    {"escape, a NUL",                  escapedChar,                   "%00",                  WHOLE, EPC_OK,                 "",          3, 1},
    {"escape at the end",              escapedChar,                   "",                     WHOLE, EPC_ERR_TRUNCATED,      "",          0},
    {"escape without digits",          escapedChar,                   "%",                    WHOLE, EPC_ERR_TRUNCATED,      "",          1},
    {"escape of one digit",            escapedChar,                   "%4",                   WHOLE, EPC_ERR_TRUNCATED,      "",          2},
    {"escape cut by the span",         escapedChar,                   "%41",                  2,     EPC_ERR_TRUNCATED,      "",          2},
    {"escape, bad second digit",       escapedChar,                   "%4G",                  WHOLE, EPC_ERR_BAD_CHARACTER,  "",          3},
    {"escape, bad first digit",        escapedChar,                   "%G4",                  WHOLE, EPC_ERR_BAD_CHARACTER,  "",          3},
    {"escape, bad digit at the end",   escapedChar,                   "%G",                   WHOLE, EPC_ERR_TRUNCATED,      "",          2},
    {"escape of a percent",            escapedChar,                   "%%41",                 WHOLE, EPC_ERR_BAD_CHARACTER,  "",          3},
    {"escaped until",                  escapedUntil<'.', 4>,          "a%2Eb.c",              WHOLE, EPC_OK,                 "a.b",       5},
    {"escaped until, at once",         escapedUntil<'.', 1>,          ".",                    WHOLE, EPC_OK,                 "",          0},
    {"escaped until, one too many",    escapedUntil<'.', 4>,          "a%2Ebc.",              WHOLE, EPC_ERR_TOO_LONG,       "",          5},
    {"escaped until, both end",        escapedUntil<'.', 4>,          "abc",                  WHOLE, EPC_ERR_TOO_LONG,       "",          3},
    {"escaped until, no delimiter",    escapedUntil<'.', 5>,          "abc",                  WHOLE, EPC_ERR_TRUNCATED,      "",          3},
    {"escaped until, delimiter after",escapedUntil<'.', 5>,          "abc.",                 3,     EPC_OK,                 "abc",       3},
    {"escaped until, span ends first", escapedUntil<'.', 5>,          "abcd.",                3,     EPC_ERR_TRUNCATED,      "",          3},
    {"escaped until, bad escape",      escapedUntil<'.', 5>,          "a%x1.",                WHOLE, EPC_ERR_BAD_CHARACTER,  "",          4},
    {"escaped until NUL",              escapedUntil<'\0', 5>,         "a%20b",                WHOLE, EPC_OK,                 "a b",       5},
    {"escaped until, an escaped NUL",  escapedUntil<'\0', 5>,         "a%00b",                WHOLE, EPC_OK,                 "a",         5, 3},
    {"to the end, an escape",          escapedToEnd<5>,               "a%2Fb?",               WHOLE, EPC_OK,                 "a/b?",      6},
    {"to the end",                     escapedToEnd<4>,               "abc",                  WHOLE, EPC_OK,                 "abc",       3},
    {"to the end of the span",         escapedToEnd<4>,               "abcde",                3,     EPC_OK,                 "abc",       3},
    {"to the end, too long",           escapedToEnd<4>,               "abcd",                 WHOLE, EPC_ERR_TOO_LONG,       "",          3},
    {"to the end, empty span",         escapedToEnd<4>,               "abc",                  0,     EPC_OK,                 "",          0},
    {"to the end, cut escape",         escapedToEnd<4>,               "a%4",                  WHOLE, EPC_ERR_TRUNCATED,      "",          3},
    {"digits",                         digits<6>,                     "007a",                 WHOLE, EPC_OK,                 "007",       3},
    {"digits, none",                   digits<6>,                     "a",                    WHOLE, EPC_OK,                 "",          0},
    {"digits, none at the end",        digits<6>,                     "",                     WHOLE, EPC_OK,                 "",          0},
    {"digits, most",                   digits<3>,                     "123",                  WHOLE, EPC_OK,                 "123",       3},
    {"digits, one more",               digits<3>,                     "1234",                 WHOLE, EPC_ERR_OUT_OF_RANGE,   "",          3},
    {"digits, none allowed",           digits<0>,                     "1",                    WHOLE, EPC_ERR_OUT_OF_RANGE,   "",          0},
    {"digits, stop",                   digits<6, 3>,                  "12345",                WHOLE, EPC_OK,                 "123",       3},
    {"digits, stop at the most",       digits<3, 3>,                  "12345",                WHOLE, EPC_OK,                 "123",       3},
    {"digits, stop after the most",   digits<3, 4>,                  "12345",                WHOLE, EPC_ERR_OUT_OF_RANGE,   "",          3},
    {"digits, stop not reached",       digits<6, 3>,                  "12a",                  WHOLE, EPC_OK,                 "12",        2},
    {"digits pass the span",           digits<6>,                     "1234",                 2,     EPC_OK,                 "1234",      4},
    {"number",                         number<ZEROS>,                 "0042.",                WHOLE, EPC_OK,                 "42",        4, 4},
    {"number, none",                   number<NO_ZEROS>,              "x",                    WHOLE, EPC_OK,                 "0",         0, 0},
    {"number, a lone zero",            number<NO_ZEROS>,              "0",                    WHOLE, EPC_OK,                 "0",         1},
    {"number, leading zeros",          number<NO_ZEROS>,              "007",                  WHOLE, EPC_ERR_BAD_FORMAT,     "",          1},
    {"number, 19 nines",               number<NO_ZEROS>,              "9999999999999999999",  WHOLE, EPC_OK,                 "9999999999999999999", 19},
    {"number, 20 digits",              number<NO_ZEROS>,              "10000000000000000000", WHOLE, EPC_ERR_OUT_OF_RANGE,   "",          19},
    {"number, 20 zeros",               number<ZEROS>,                 "00000000000000000000", WHOLE, EPC_ERR_OUT_OF_RANGE,   "",          19},
    {"number, stop",                   number<ZEROS, 2>,              "0712",                 WHOLE, EPC_OK,                 "7",         2, 2},
    {"number, codes beside digits",    number<ZEROS>,                 "1:",                   WHOLE, EPC_OK,                 "1",         1},
    {"number, codes beside digits",    number<ZEROS>,                 "1/",                   WHOLE, EPC_OK,                 "1",         1},
    {"number, a byte above 0x80",      number<ZEROS>,                 "1\xB1",                WHOLE, EPC_OK,                 "1",         1},
};
// clang-format on

TEST(TextCursor, Readers) {
    GuardedArea area;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const char* text =
            area.placeCopy(row.text.c_str(), row.text.size() + 1, GuardedArea::Side::BEFORE_PAGE);
        const auto length = static_cast<std::uint32_t>(row.text.size());
        TextCursor cursor{text, text, std::min(row.span, length)};
        Output out;
        EXPECT_STATUS(row.status, row.read(cursor, out));
        EXPECT_EQ(row.consumed, static_cast<std::uint32_t>(cursor.current - text));
        if (row.status != EPC_OK) {
            EXPECT_EQ(NO_COUNT, out.count);
            continue;
        }
        EXPECT_STREQ(row.out.c_str(), out.text);
        const auto count = static_cast<std::int32_t>(row.out.size());
        EXPECT_EQ(row.count >= 0 ? row.count : count, out.count);
    }
}

// Digits are read many at a time. Against one by one: every count of them, and after them every
// other character and the end.
TEST(TextCursor, NumbersOfEveryLengthBeforeEveryCharacter) {
    Random random(8);
    GuardedArea area;
    for (std::size_t digits = 0; digits <= 20; ++digits) {
        for (int code = 0; code < 256; ++code) {
            const auto behind = static_cast<char>(code);
            const std::string number = random.digits(digits);
            const std::string text = number + behind + random.text(random.below(12), "09:/x");
            if (charIsDigit(behind)) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << number << " and code " << code);
            const char* at =
                area.placeCopy(text.c_str(), text.size() + 1, GuardedArea::Side::BEFORE_PAGE);
            TextCursor cursor{at, at, static_cast<std::uint32_t>(text.size())};
            std::uint64_t value = 4711;
            std::int32_t count = NO_COUNT;
            const EpcStatus status = textCursorReadNumber(cursor, ZEROS, value, &count);
            ASSERT_STATUS(digits < 20 ? EPC_OK : EPC_ERR_OUT_OF_RANGE, status);
            ASSERT_EQ(std::min(digits, std::size_t{19}),
                      static_cast<std::size_t>(cursor.current - at));
            if (status == EPC_OK) {
                ASSERT_EQ(digits == 0 ? 0 : std::stoull(number), value);
                ASSERT_EQ(static_cast<std::int32_t>(digits), count);
            }
        }
    }
}

TEST(TextCursor, Expect) {
    struct {
        const char *name, *text;
        std::uint32_t span;
        const char* literal;
        EpcStatus status;
        std::uint32_t consumed;
    } const expectRows[] = {
        {"whole", "urn:epc", WHOLE, "urn:", EPC_OK, 4},
        {"to the end", "urn:", WHOLE, "urn:", EPC_OK, 4},
        {"empty literal", "abc", WHOLE, "", EPC_OK, 0},
        {"empty literal at the end", "", WHOLE, "", EPC_OK, 0},
        {"text too short", "urn", WHOLE, "urn:", EPC_ERR_TRUNCATED, 3},
        {"span too short", "urn:", 3, "urn:", EPC_ERR_TRUNCATED, 3},
        {"empty", "", WHOLE, "u", EPC_ERR_TRUNCATED, 0},
        {"differs at once", "xrn:", WHOLE, "urn:", EPC_ERR_BAD_FORMAT, 0},
        {"differs at the end", "urn;", WHOLE, "urn:", EPC_ERR_BAD_FORMAT, 3},
        {"case differs", "urN:", WHOLE, "urn:", EPC_ERR_BAD_FORMAT, 2},
        {"differs before it ends", "ux", WHOLE, "urn:", EPC_ERR_BAD_FORMAT, 1},
    };
    GuardedArea area;
    for (const auto& row : expectRows) {
        const auto length = static_cast<std::uint32_t>(std::strlen(row.text));
        const char* text = area.placeCopy(row.text, length + 1, GuardedArea::Side::BEFORE_PAGE);
        TextCursor cursor{text, text, std::min(row.span, length)};
        EXPECT_STATUS(row.status, textCursorExpect(cursor, std::string_view(row.literal)))
            << row.name;
        EXPECT_EQ(row.consumed, static_cast<std::uint32_t>(cursor.current - text)) << row.name;
        if (std::strlen(row.literal) == 1) {
            EXPECT_STATUS(row.status, textCursorExpect(cursor, row.literal[0])) << row.name;
        }
    }
}

// Digits are read past the end of the span. What follows then sees the text up to its NUL, and no
// slice of it.
TEST(TextCursor, BehindTheEndOfTheSpan) {
    GuardedArea area;
    const char* text = area.placeCopy("1234ab", 7, GuardedArea::Side::BEFORE_PAGE);
    TextCursor cursor{text, text, 2};
    std::uint64_t value = 0;
    ASSERT_STATUS(EPC_OK, textCursorReadNumber(cursor, LeadingZeros::ALLOW, value));
    ASSERT_EQ(text + 4, cursor.current);
    EXPECT_FALSE(textCursorAtEnd(cursor));
    EXPECT_EQ(2U, textCursorCountTo(cursor, '.'));
    TextCursor slice{nullptr, nullptr, 9};
    EXPECT_STATUS(EPC_ERR_NO_ROOM, textCursorSlice(slice, cursor, 1));
    EXPECT_STATUS(EPC_ERR_NO_ROOM, textCursorSlice(slice, cursor, 0));
    EXPECT_EQ(9U, slice.length);
    TextCursor other = cursor;
    EXPECT_STATUS(EPC_OK, textCursorExpect(other, "ab"));
    std::string_view rest = "kept";
    TextCursor cut = cursor;
    EXPECT_STATUS(EPC_ERR_TOO_LONG, textCursorReadUntil(cut, '.', 2, rest));
    cut = cursor;
    EXPECT_STATUS(EPC_ERR_TRUNCATED, textCursorReadUntil(cut, '.', 9, rest));
    EXPECT_EQ("kept", rest);
    cut = cursor;
    EXPECT_STATUS(EPC_OK, textCursorReadUntil(cut, 'b', 2, rest));
    EXPECT_EQ("a", rest);
    EXPECT_STATUS(EPC_ERR_TRUNCATED, textCursorExpect(cursor, "abcdefghijkl"));
    EXPECT_TRUE(textCursorAtEnd(cursor));
}

TEST(TextCursor, CountAndSlice) {
    const char text[] = "ab.cd\0ef";
    TextCursor cursor{text, text + 1, 8};
    EXPECT_EQ(1U, textCursorCountTo(cursor, '.'));
    EXPECT_EQ(0U, textCursorCountTo(cursor, 'b'));
    EXPECT_EQ(4U, textCursorCountTo(cursor, 'x'));
    EXPECT_EQ(4U, textCursorCountTo(cursor, '\0'));
    EXPECT_EQ(text + 1, cursor.current);
    EXPECT_EQ(0U, textCursorCountTo({text, text + 5, 8}, 'e'));
    EXPECT_EQ(2U, textCursorCountTo({text, text, 2}, '.'));
    EXPECT_EQ(0U, textCursorCountTo({text, text, 0}, '.'));

    TextCursor slice = textCursorOver("kept");
    EXPECT_STATUS(EPC_ERR_NO_ROOM, textCursorSlice(slice, cursor, 8));
    EXPECT_EQ(4U, slice.length);
    EXPECT_STATUS(EPC_OK, textCursorSlice(slice, cursor, 7));
    EXPECT_EQ(text + 1, slice.begin);
    EXPECT_EQ(text + 1, slice.current);
    EXPECT_EQ(7U, slice.length);
    EXPECT_EQ(text + 1, cursor.current);
    EXPECT_STATUS(EPC_OK, textCursorSlice(slice, cursor, 0));
    EXPECT_TRUE(textCursorAtEnd(slice));
}

TEST(CharClass, EveryCode) {
    struct {
        std::uint32_t charClass;
        int members;
        const char *in, *notIn; // at the borders of the set
    } const classes[] = {
        {CHAR_CLASS_URI_ESCAPE, 11, " \"#%&()/<>?", "!$'*+,-.0:;=@A_a"},
        {CHAR_CLASS_AI82, 82, "!\"%&'()*+,-./09:;<=>?AZ_az", " #$@[\\]^`{|}~\x7F\x1F"},
        {CHAR_CLASS_AI39, 39, "#-/09AZ", " !\"$%,.:@[_a"},
        {CHAR_CLASS_LINK_ESCAPE, 17, "!#%&'()*+,/:;<=>?", " \"$-.09@A_a"},
        {1, 0, "", "0Aa /"},
    };
    for (const auto& row : classes) {
        int members = 0;
        for (int code = 0; code < 256; ++code) {
            members += charIsOfClass(static_cast<char>(code), row.charClass) ? 1 : 0;
        }
        EXPECT_EQ(row.members, members) << row.charClass;
        for (const char* character = row.in; *character != '\0'; ++character) {
            EXPECT_TRUE(charIsOfClass(*character, row.charClass)) << row.charClass << *character;
        }
        for (const char* character = row.notIn; *character != '\0'; ++character) {
            EXPECT_FALSE(charIsOfClass(*character, row.charClass)) << row.charClass << *character;
        }
    }
    for (int code = 0; code < 256; ++code) {
        const auto character = static_cast<char>(code);
        const std::string hex = "0123456789ABCDEF0123456789abcdef";
        const std::size_t at = code == 0 ? std::string::npos : hex.find(character);
        EXPECT_EQ(at == std::string::npos ? -1 : static_cast<std::int32_t>(at % 16),
                  hexDigitValue(character))
            << code;
        EXPECT_EQ(code >= '0' && code <= '9', charIsDigit(character)) << code;
        EXPECT_FALSE(code >= 0x80 && charIsOfClass(character, 0xFFFFFFFF)) << code;
    }
}

} // namespace
