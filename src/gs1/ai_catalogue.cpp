#include "gs1/ai_catalogue.h"

#include "core/long_decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::size_t AI_COUNT = 520;
constexpr std::size_t AI_SLOTS = 10000;

// The components, by what their characters are. Numbers are digits of a fixed length, or the most
// characters of a variable one.
constexpr AiComponent fixed(AiKind kind, std::int32_t digitCount, std::int32_t bitWidth) {
    return {kind,
            static_cast<std::uint8_t>(digitCount),
            static_cast<std::uint8_t>(bitWidth),
            0,
            0,
            0,
            AI_CHECK_NONE};
}

constexpr AiComponent variable(AiKind kind, std::uint8_t encodingIndicatorBits,
                               std::uint8_t maxLength) {
    const auto lengthIndicatorBits = static_cast<std::uint8_t>(std::bit_width(maxLength));
    return {kind, 0, 0, encodingIndicatorBits, lengthIndicatorBits, maxLength, AI_CHECK_NONE};
}

// One number, in as many bits as its digits need.
constexpr AiComponent numeric(std::int32_t digitCount) {
    return fixed(AI_KIND_NUMERIC, digitCount, aiDigitBits(digitCount));
}

// Four bits a digit.
constexpr AiComponent digits(std::int32_t digitCount) {
    return fixed(AI_KIND_DIGITS, digitCount, 4 * digitCount);
}

constexpr AiComponent varNumeric(std::uint8_t maxLength) {
    return variable(AI_KIND_VAR_NUMERIC, 0, maxLength);
}

constexpr AiComponent text(std::uint8_t maxLength) {
    return variable(AI_KIND_TEXT, 3, maxLength);
}

constexpr AiComponent digitsThenText(std::uint8_t maxLength) {
    return variable(AI_KIND_DIGITS_THEN_TEXT, 3, maxLength);
}

constexpr AiComponent checked(AiComponent component, AiCheckKind checkKind = AI_CHECK_DIGIT) {
    component.checkKind = checkKind;
    return component;
}

constexpr AiComponent flag = fixed(AI_KIND_FLAG, 1, 1);
constexpr AiComponent letters = fixed(AI_KIND_LETTERS, 2, 2 * 6);
constexpr AiComponent date = fixed(AI_KIND_DATE, 6, 7 + 4 + 5);
constexpr AiComponent dateTime = fixed(AI_KIND_DATE_TIME, 10, 7 + 4 + 5 + 5 + 6);
constexpr AiComponent dateRange = variable(AI_KIND_DATE_RANGE, 0, 0);
constexpr AiComponent dateTimeVar = variable(AI_KIND_DATE_TIME_VAR, 0, 0);
constexpr AiComponent sign = {AI_KIND_SIGN, 0, 1, 0, 0, 1, AI_CHECK_NONE};

struct AiShape {
    std::string_view codes;
    AiComponent first;
    AiComponent second; // of kind AI_KIND_NONE where the value is one component
};

// A range is every code from the first to the last; y takes each of the digits in the brackets.
//
// Source: GS1 General Specifications, section 3.2; EPC Tag Data Standard, table F.
constexpr AiShape aiShapes[] = {
    // clang-format off
    // AIs                                            first component          second component
    {"00, 8017-8018",                                 checked(digits(18)),     {}},
    {"01-02",                                         checked(digits(14)),     {}},
    {"10, 21-22, 243, 254, 420, 4318, 7020-7022, "
     "710-715, 7240, 8002, 8012",                     text(20),                {}},
    {"11-13, 15-17, 4326, 7006",                      date,                    {}},
    {"20",                                            numeric(2),              {}},
    {"235",                                           text(28),                {}},
    {"240-241, 250-251, 400-401, 403, 4308, 4319, "
     "7002, 7230-7239, 90",                           text(30),                {}},
    {"242",                                           varNumeric(6),           {}},
    {"253",                                           checked(digits(13)),     text(17)},
    {"255",                                           checked(digits(13)),     varNumeric(12)},
    {"30, 37",                                        varNumeric(8),           {}},
    {"31y0-31y5 (y 0-6), 32y0-32y5 (y 0-9), "
     "33y0-33y5 (y 0-7), 34y0-34y5 (y 0-9), "
     "35y0-35y5 (y 0-7), 36y0-36y5 (y 0-9), "
     "3950-3953, 8005",                               numeric(6),              {}},
    {"3900-3909, 3920-3929, 423, 425",                varNumeric(15),          {}},
    {"3910-3919, 3930-3939",                          numeric(3),              varNumeric(15)},
    {"3940-3943, 8111",                               numeric(4),              {}},
    {"402",                                           checked(numeric(17)),    {}},
    {"410-417",                                       checked(digits(13)),     {}},
    {"421",                                           numeric(3),              text(9)},
    {"422, 424, 426",                                 numeric(3),              {}},
    {"427, 7008",                                     text(3),                 {}},
    {"4300-4301, 4310-4311, 4320",                    text(35),                {}},
    {"4302-4306, 4312-4316, 8110, 8112, 8200",        text(70),                {}},
    {"4307, 4317",                                    letters,                 {}},
    {"4309",                                          numeric(20),             {}},
    {"4321-4323",                                     flag,                    {}},
    {"4324-4325, 7003",                               dateTime,                {}},
    {"4330-4333",                                     numeric(6),              sign},
    {"7001",                                          numeric(13),             {}},
    {"7004",                                          varNumeric(4),           {}},
    {"7005",                                          text(12),                {}},
    {"7007",                                          dateRange,               {}},
    {"7009",                                          text(10),                {}},
    {"7010",                                          text(2),                 {}},
    {"7011, 8008",                                    dateTimeVar,             {}},
    {"7023, 8004, 8010",                              digitsThenText(30),      {}},
    {"7030-7039",                                     numeric(3),              text(27)},
    {"7040",                                          text(4),                 {}},
    {"7241",                                          digits(2),               {}},
    {"7242, 8020",                                    text(25),                {}},
    {"8001",                                          numeric(14),             {}},
    {"8003",                                          checked(digits(14)),     text(16)},
    {"8006, 8026",                                    checked(digits(14)),     digits(4)},
    {"8007",                                          text(24),                {}},
    {"8009",                                          text(50),                {}},
    {"8011",                                          varNumeric(12),          {}},
    {"8013",                                          checked(text(25), AI_CHECK_PAIR), {}},
    {"8019",                                          varNumeric(10),          {}},
    {"8030, 91-99",                                   text(90),                {}},
    // clang-format on
};
static_assert(std::size(aiShapes) == 48);

struct AiCodeLength {
    std::uint8_t length;
    std::string_view prefixes;
};

// Source: EPC Tag Data Standard, table K.
constexpr AiCodeLength aiCodeLengthRows[] = {
    // digits of the code, its two leading digits
    {2, "00-02, 10-13, 15-17, 20-22, 30, 37, 90-99"},
    {3, "23-25, 40-42, 71"},
    {4, "31-36, 39, 43, 70, 72, 80-82"},
};

constexpr bool takeLiteral(std::string_view& rest, std::string_view literal) {
    const bool isThere = rest.starts_with(literal);
    if (isThere) {
        rest.remove_prefix(literal.size());
    }
    return isThere;
}

// The digits, and the y that stands for one, at the front.
constexpr std::string_view takeDigits(std::string_view& rest) {
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return !charIsDigit(c) && c != 'y'; });
    const std::string_view taken(rest.begin(), end);
    rest.remove_prefix(taken.size());
    return taken;
}

constexpr std::size_t codeNumber(std::string_view code, char y) {
    std::size_t number = 0;
    for (const char character : code) {
        number = number * 10 + static_cast<std::size_t>((character == 'y' ? y : character) - '0');
    }
    return number;
}

// Calls visit with each code of a row, as a number and its count of digits.
template <typename Visit>
constexpr void forEachCode(std::string_view codes, Visit visit) {
    do {
        const std::string_view first = takeDigits(codes);
        const std::string_view last = takeLiteral(codes, "-") ? takeDigits(codes) : first;
        std::string_view yRange = "0-0";
        if (takeLiteral(codes, " (y ")) {
            yRange = {codes.data(), yRange.size()};
            codes.remove_prefix(yRange.size() + 1);
        }
        for (char y = yRange.front(); y <= yRange.back(); ++y) {
            for (std::size_t code = codeNumber(first, y); code <= codeNumber(last, y); ++code) {
                visit(code, first.size());
            }
        }
    } while (takeLiteral(codes, ", "));
}

constexpr std::array<std::uint8_t, 100> aiCodeLengthsMake() {
    std::array<std::uint8_t, 100> lengths{};
    for (const AiCodeLength& row : aiCodeLengthRows) {
        forEachCode(row.prefixes,
                    [&](std::size_t prefix, std::size_t) { lengths[prefix] = row.length; });
    }
    return lengths;
}

// The length of a code by its two leading digits as a number; 0 where no AI begins so.
constexpr std::array<std::uint8_t, 100> aiCodeLengths = aiCodeLengthsMake();
static_assert(std::count(aiCodeLengths.begin(), aiCodeLengths.end(), 0) == 100 - 45);

// Digits at the left of four places, the places behind them 0: AI 01 is slot 100.
constexpr std::size_t slotOf(std::size_t code, std::size_t length) {
    for (; length < AI_CODE_SIZE - 1; ++length) {
        code *= 10;
    }
    return code;
}

constexpr AiDefinition definitionOf(std::size_t code, std::size_t length, const AiShape& shape) {
    const bool hasSecond = shape.second.kind != AI_KIND_NONE;
    AiDefinition definition = {
        {}, hasSecond ? std::uint8_t{2} : std::uint8_t{1}, {shape.first, shape.second}};
    for (std::size_t place = length; place > 0; --place, code /= 10) {
        definition.code[place - 1] = static_cast<char>('0' + code % 10);
    }
    return definition;
}

constexpr std::array<AiDefinition, AI_SLOTS> aiCatalogueMake() {
    std::array<AiDefinition, AI_SLOTS> catalogue{};
    for (const AiShape& shape : aiShapes) {
        forEachCode(shape.codes, [&](std::size_t code, std::size_t length) {
            catalogue[slotOf(code, length)] = definitionOf(code, length, shape);
        });
    }
    return catalogue;
}

constexpr std::array<AiDefinition, AI_SLOTS> aiCatalogue = aiCatalogueMake();

// Codes in the rows whose length is the one that their leading digits tell.
constexpr std::size_t codesOfRightLength() {
    std::size_t count = 0;
    for (const AiShape& shape : aiShapes) {
        forEachCode(shape.codes, [&](std::size_t code, std::size_t length) {
            count += aiCodeLengths[slotOf(code, length) / 100] == length;
        });
    }
    return count;
}

constexpr std::size_t filledSlots() {
    std::size_t count = 0;
    for (const AiDefinition& definition : aiCatalogue) {
        count += definition.componentCount != 0;
    }
    return count;
}

// As many slots as codes: no two rows claim one slot.
static_assert(codesOfRightLength() == AI_COUNT && filledSlots() == AI_COUNT);

EpcStatus readCodeDigit(TextCursor& cursor, char& digit) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    digit = *cursor.current++;
    return charIsDigit(digit) ? EPC_OK : EPC_ERR_BAD_CHARACTER;
}

} // namespace

const AiDefinition* aiFind(std::string_view code) {
    if (code.size() < 2 || code.size() >= AI_CODE_SIZE) {
        return nullptr;
    }
    std::size_t slot = 0;
    for (std::size_t place = 0; place < AI_CODE_SIZE - 1; ++place) {
        const char digit = place < code.size() ? code[place] : '0';
        if (!charIsDigit(digit)) {
            return nullptr;
        }
        slot = slot * 10 + static_cast<std::size_t>(digit - '0');
    }
    // The slot settles the digits. What is left to compare is where the code ends.
    const AiDefinition& definition = aiCatalogue[slot];
    const bool isSame =
        definition.code[code.size() - 1] != '\0' && definition.code[code.size()] == '\0';
    return isSame ? &definition : nullptr;
}

std::int32_t aiCodeLength(char first, char second) {
    if (!charIsDigit(first) || !charIsDigit(second)) {
        return 0;
    }
    return aiCodeLengths[static_cast<std::size_t>((first - '0') * 10 + (second - '0'))];
}

EpcStatus aiReadCode(TextCursor& cursor, char (&code)[AI_CODE_SIZE]) {
    EPC_TRY(readCodeDigit(cursor, code[0]));
    EPC_TRY(readCodeDigit(cursor, code[1]));
    const std::int32_t length = aiCodeLength(code[0], code[1]);
    if (length == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    for (std::int32_t i = 2; i < length; ++i) {
        EPC_TRY(readCodeDigit(cursor, code[i]));
    }
    code[4] = '\0';
    code[3] = length > 3 ? code[3] : '\0';
    code[2] = length > 2 ? code[2] : '\0';
    return EPC_OK;
}

} // namespace rosetag
