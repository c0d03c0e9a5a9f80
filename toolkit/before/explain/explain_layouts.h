/*
 * The layouts of the tag values as data: which fields stand behind the header of each scheme, and
 * which in a TID. explain_walk reads a value along one of them.
 *
 * Source: EPC Tag Data Standard, section 14 (EPC binary encodings) and section 16 (TID).
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_LAYOUTS_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_LAYOUTS_H

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace rosetag {
inline namespace before {

enum class FieldKind {
    END, // behind the last field of a layout
    FILTER,
    TOGGLE,            // of a plus scheme: 1 where a data section follows the key
    PARTITION,         // how many digits the company prefix has
    COMPANY_PREFIX,    // width by the partition
    REFERENCE_DIGITS,  // size digits together with the company prefix, width bits together
    REFERENCE_OPEN,    // a number of any digits, width bits together with the company prefix
    REFERENCE_CHARS7,  // 7-bit characters, width bits together with the company prefix
    REFERENCE_CHARS6,  // 6-bit characters up to a zero
    NUMBER,            // width bits
    NUMBER_TWO_DIGITS, // width bits, at least two digits
    NUMBER_BEHIND_ONE, // width bits, digits behind a leading 1
    CHARS7,            // size characters of 7 bits, zeros behind the text
    CHARS6,            // up to size characters of 6 bits and a zero
    CHARS6_EMPTY,      // the same, and none is allowed
    CODE_CHARS8,       // six characters, five behind a space
    CODE_CHARS6,       // the same in 6 bits
    RESERVED,          // width zero bits
    DATE_CODED,        // which date, and the date
    AI_VALUE,          // the value of an AI, by its parts
    DATA_SECTION,      // AIs with their codes, up to the end
};

struct LayoutField {
    FieldKind kind = FieldKind::END;
    std::string_view name; // of AI_VALUE the AI
    int width = 0;
    int size = 0;
};

struct SchemeLayout {
    std::string_view scheme;
    std::array<LayoutField, 8> fields;
};

// The fields behind the header, or null.
const SchemeLayout* layoutOfScheme(std::string_view scheme);

// Digits and bits of the company prefix by the partition value, 0 to 6.
constexpr int companyPrefixDigits(int partition) {
    return 12 - partition;
}
int companyPrefixBits(int partitionValue);

// Characters of a reference by the partition value, where it is a text.
constexpr int referenceCharacters(int partition) {
    return 18 + partition;
}

// What a field of a TID tells.
enum class TidMeaning {
    HEX,
    CLASS, // must be E2
    MUST_BE_ZERO,
    YES_NO,
    SERIAL_LENGTH, // 0: no serial; else 16 bits for each, and 32 more
    SERIAL,        // as long as SERIAL_LENGTH told
    WORDS,         // a count of 16-bit words
};

struct TidField {
    std::string_view name;
    int width;
    TidMeaning meaning;
};

// A run of fields that is there if the bit of an earlier field is set.
struct TidSegment {
    std::string_view presentIf; // the name of that field; empty: always
    std::span<const TidField> fields;
};

std::span<const TidSegment> tidLayout();

} // namespace before
} // namespace rosetag

#endif
