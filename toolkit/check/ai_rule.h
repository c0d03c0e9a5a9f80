/*
 * What GS1 says of each AI beyond the shape of its value, which the AI table of the library holds:
 * of what parts the value is made and what each must satisfy, which other AIs it needs or
 * excludes, and where it may be in a Digital Link.
 *
 * Source: GS1 General Specifications, sections 3 (AIs) and 4.14 (associations); GS1 Digital Link
 * Standard, URI syntax.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_AI_RULE_H
#define ROSETAG_TOOLKIT_CHECK_AI_RULE_H

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace rosetag {

enum class CharacterSet : std::uint8_t { DIGITS, SET_82, SET_39, BASE64URL };

enum class PartRule : std::uint8_t {
    NONE,
    CHECK_DIGIT,
    CHECK_PAIR,
    NOT_ONLY_DIGITS,
    DATE,
    DATE_OR_MONTH, // day 00 stands for the month
    DATE_WITH_CENTURY,
    HOUR,
    HOUR_MINUTE,
    MINUTE_OR_SECOND,
    COUNTRY_NUMBER,
    COUNTRY_NUMBER_OR_999,
    COUNTRY_LETTERS,
    CURRENCY_NUMBER,
    FLAG,
    ZERO,
    NOT_ZERO,
    NO_LEADING_ZERO,
    MINUS,
    PIECE_OF_TOTAL,
    POSITION_OF_TOTAL,
    PERCENT_ESCAPES,
    LATITUDE,
    LONGITUDE,
    WINDING,
    SEX,
    IBAN,
    MEDIA_TYPE,
    PACKAGE_TYPE,
};
inline constexpr std::size_t PART_RULE_COUNT = 29;

struct ValuePart {
    CharacterSet set = CharacterSet::DIGITS;
    std::uint8_t least = 0; // characters
    std::uint8_t most = 0;  // 0: there is no such part
    bool optional = false;  // as are all parts after it
    std::array<PartRule, 2> rules{};
};

inline constexpr std::size_t MAX_VALUE_PARTS = 5;
using ValueParts = std::array<ValuePart, MAX_VALUE_PARTS>;

enum class LinkQuery : std::uint8_t { NO, YES };

// A row applies to each AI from the first code to the last.
struct AiRule {
    std::string_view first;
    std::string_view last;
    std::uint8_t companyPrefixAt; // character of the value, from 1, where a prefix begins; 0: none
    ValueParts parts;             // none where the AI table says it all; see secondOptional
    std::string_view needs;       // "01+21,8006": 01 and 21, or 8006; 31nn: any that begins so
    std::string_view excludes;    // "=n": any other code with the same first three digits
    LinkQuery linkQuery;          // whether it may be in the query of a link
};

// The digits of the shortest company prefix that GS1 assigns; those in a tag are longer.
inline constexpr std::size_t SHORTEST_COMPANY_PREFIX = 4;

// What is known of one AI.
struct KnownAi {
    const AiRule* rule = nullptr; // null: GS1 has not assigned it
    ValueParts parts{};
    std::string_view newerTitle; // of an AI that is newer than the AI table; else empty
};

const KnownAi& knownAiOf(std::string_view code);

// Digits of a code by its two leading characters, or 0 if no AI begins so.
std::size_t knownAiCodeLength(char first, char second);

// The length of a value that needs no separator after it in a barcode string, or 0.
std::size_t predefinedValueLength(std::string_view code);

// A key of a Digital Link and its qualifiers in order. Qualifiers that exclude each other are in
// separate rows.
struct LinkKey {
    std::string_view key;
    std::array<std::string_view, 3> qualifiers;
};

std::span<const LinkKey> linkKeys();

} // namespace rosetag

#endif
