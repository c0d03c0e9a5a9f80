/*
 * The slots between binary and the GS1 texts of numeric identities: the numbers go from bits to
 * text, or back, without a URI in between. A text is only read here if it consists of the key and
 * what belongs to it, in the order in which they are written. Everything else is left to the slots
 * of all plain schemes.
 *
 * Source: EPC Tag Data Standard, section 7 (correspondence between EPCs and GS1 keys).
 */
#ifndef ROSETAG_BRIDGE_NUMERIC_SLOTS_H
#define ROSETAG_BRIDGE_NUMERIC_SLOTS_H

#include "bridge/gs1_key_table.h"
#include "bridge/plain_slots.h"
#include "gs1/ai_list.h"
#include "gs1/check_digit.h"
#include "schemes/numeric_text.h"

namespace rosetag {

enum class Gs1Syntax : std::uint8_t { ELEMENT_STRING, BARCODE_STRING, DIGITAL_LINK };

template <EpcScheme scheme>
inline constexpr const Gs1KeyDefinition&
    numericKey = *gs1KeyFindByName(schemeRows[scheme].familyWord);

template <EpcScheme scheme>
inline constexpr bool keyIsFixed = numericKey<scheme>.keyValueLength > 0;

// The index of the reference in the row of the scheme.
constexpr std::size_t REFERENCE_INDEX = 3;

// The digits of company prefix and reference together, in a key of fixed length.
template <EpcScheme scheme>
inline constexpr std::int32_t keyDigits = schemeRows[scheme].fields[REFERENCE_INDEX].size;

template <EpcScheme scheme>
inline constexpr std::int32_t leadingDigits =
    numericKey<scheme>.digitArrangement == KEY_DIGITS_AS_IS ? 0 : 1;

// ---- What precedes the values ----

template <EpcScheme scheme, Gs1Syntax syntax, bool isKey>
constexpr auto aiLiteralMake() {
    constexpr std::string_view code =
        isKey ? numericKey<scheme>.primaryAi : numericKey<scheme>.secondaryAi;
    constexpr bool hasSeparator =
        syntax == Gs1Syntax::BARCODE_STRING && !isKey && !keyIsFixed<scheme>;
    constexpr std::size_t marks = syntax != Gs1Syntax::BARCODE_STRING ? 2 : (hasSeparator ? 1 : 0);
    Literal<code.size() + marks> literal{};
    char* out = literal.characters;
    if (syntax != Gs1Syntax::BARCODE_STRING) {
        *out++ = syntax == Gs1Syntax::ELEMENT_STRING ? '(' : '/';
    } else if (hasSeparator) {
        *out++ = GROUP_SEPARATOR;
    }
    out = std::copy(code.begin(), code.end(), out);
    if (syntax != Gs1Syntax::BARCODE_STRING) {
        *out = syntax == Gs1Syntax::ELEMENT_STRING ? ')' : '/';
    }
    return literal;
}

template <EpcScheme scheme, Gs1Syntax syntax>
inline constexpr auto keyLiteral = aiLiteralMake<scheme, syntax, true>();

template <EpcScheme scheme, Gs1Syntax syntax>
inline constexpr auto secondaryLiteral = aiLiteralMake<scheme, syntax, false>();

// True for the part that has the secondary AI.
template <EpcScheme scheme, std::size_t index>
inline constexpr bool isSecondary = numericKey<scheme>.tailIsSecondaryAi != 0 &&
                                    fieldPartIndex(schemeRows[scheme], index) + 1 ==
                                        schemePartCount(schemeRows[scheme]);

// ---- Keys of fixed length ----

constexpr std::uint64_t TWO_WORDS_LIMIT = WORD_LIMIT * WORD_LIMIT;

// The digits of the key, in their order there, without a check digit.
template <EpcScheme scheme>
ROSETAG_INLINE std::uint64_t keyNumber(const NumericIdentity& identity) {
    const NumericPart& prefix = identity.parts[0];
    const NumericPart& reference = identity.parts[1];
    if constexpr (numericKey<scheme>.digitArrangement != KEY_DIGITS_FIRST_MOVES) {
        return prefix.value * powerOfTen(reference.digits) + reference.value;
    } else {
        using Number = std::conditional_t<keyDigits<scheme> - 6 <= 9, std::uint32_t, std::uint64_t>;
        const std::uint64_t power = powerOfTen(reference.digits - 1);
        const std::uint64_t first =
            static_cast<Number>(reference.value) / static_cast<Number>(power);
        return first * powerOfTen(keyDigits<scheme> - 1) + prefix.value * power +
               (reference.value - first * power);
    }
}

// The digits of a key: two words, and perhaps one digit before them.
struct KeyDigits {
    std::uint64_t first;
    DigitWords words;
    std::uint64_t check;
};

constexpr KeyDigits keyDigitsOf(std::uint64_t number) {
    const std::uint64_t first = number / TWO_WORDS_LIMIT;
    const DigitWords words = digitWordsOf(number % TWO_WORDS_LIMIT);
    return {first, words, (10 - (first * 3 + weightedSumOf(words.high, words.low)) % 10) % 10};
}
// Source: GS1 General Specifications, section 7.9.
static_assert(keyDigitsOf(629104150021).check == 3 && keyDigitsOf(37610425002123456).check == 9);

// Writes the key in two words and its check digit; a key of 18 digits has one more before them.
template <EpcScheme scheme>
ROSETAG_INLINE void keyPut(char* end, const NumericIdentity& identity) {
    constexpr std::int32_t length = numericKey<scheme>.keyValueLength;
    static_assert(length <= 2 * WORD_DIGITS || length == 2 * WORD_DIGITS + 2);
    const auto [first, words, check] = keyDigitsOf(keyNumber<scheme>(identity));
    if constexpr (length > 2 * WORD_DIGITS) {
        end[-length] = static_cast<char>('0' + first);
        *--end = static_cast<char>('0' + check);
        storeCharacters(end - 2 * WORD_DIGITS, words.high | DIGIT_CHARACTERS);
        storeCharacters(end - WORD_DIGITS, words.low | DIGIT_CHARACTERS);
    } else {
        storeCharacters(end - 2 * WORD_DIGITS,
                        (words.high >> 8 | words.low << 56) | DIGIT_CHARACTERS);
        storeCharacters(end - WORD_DIGITS, (words.low >> 8 | check << 56) | DIGIT_CHARACTERS);
    }
}

// Reads a key whose company prefix has prefixDigits digits. The check digit of a link is verified;
// in the other texts any digit is accepted.
template <EpcScheme scheme, Gs1Syntax syntax>
ROSETAG_INLINE bool keyRead(NumericReader& reader, std::int32_t prefixDigits,
                            NumericIdentity& identity) {
    constexpr std::int32_t length = numericKey<scheme>.keyValueLength;
    constexpr bool isMoved = numericKey<scheme>.digitArrangement == KEY_DIGITS_FIRST_MOVES;
    static_assert(length == keyDigits<scheme> + leadingDigits<scheme> - (isMoved ? 1 : 0) + 1);
    if (reader.end - reader.current < length) {
        return false;
    }
    const char* const start = reader.current;
    const char check = start[length - 1];
    const char lead = start[0];
    NumericPart& reference = identity.parts[1];
    reader.current += leadingDigits<scheme>;
    if (!numericReadPrefix(reader, prefixDigits, identity) || !charIsDigit(check)) {
        return false;
    }
    numericReadReference<keyDigits<scheme> - (isMoved ? 1 : 0)>(reader, start + length - 1,
                                                                identity);
    ++reader.current;
    if constexpr (isMoved) {
        reference.value += static_cast<std::uint64_t>(lead - '0') * powerOfTen(reference.digits);
        ++reference.digits;
    }
    const bool isLed = leadingDigits<scheme> == 0 || (isMoved ? charIsDigit(lead) : lead == '0');
    return isLed &&
           (syntax != Gs1Syntax::DIGITAL_LINK || keyDigitsOf(keyNumber<scheme>(identity)).check ==
                                                     static_cast<std::uint64_t>(check - '0'));
}

// ---- Whole texts ----

template <EpcScheme scheme, Gs1Syntax syntax, std::size_t index>
ROSETAG_INLINE void numericPutGs1Field(char*& end, const NumericIdentity& identity) {
    constexpr FieldKind kind = schemeRows[scheme].fields[index].kind;
    if constexpr (index > REFERENCE_INDEX && fieldIsPart(kind)) {
        end = numericPutPart<scheme, index>(end, identity);
        if constexpr (isSecondary<scheme, index>) {
            end -= sizeof(secondaryLiteral<scheme, syntax>);
            literalPut(end, secondaryLiteral<scheme, syntax>);
        }
    } else if constexpr (index == REFERENCE_INDEX && keyIsFixed<scheme>) {
        keyPut<scheme>(end, identity);
    } else if constexpr (index == REFERENCE_INDEX) {
        end = numericPutPart<scheme, index>(end, identity);
    } else if constexpr (kind == FieldKind::COMPANY_PREFIX && !keyIsFixed<scheme>) {
        numericPutPrefix(end, identity.parts[0]);
    }
}

template <EpcScheme scheme, Gs1Syntax syntax, std::size_t... index>
ROSETAG_INLINE void numericPutGs1Fields(char* end, const NumericIdentity& identity,
                                        std::index_sequence<index...>) {
    (numericPutGs1Field<scheme, syntax, sizeof...(index) - 1 - index>(end, identity), ...);
}

// The characters of the key's value, and those of the parts after it.
template <EpcScheme scheme>
ROSETAG_INLINE std::int32_t keyLength(const NumericIdentity& identity) {
    return (keyIsFixed<scheme>) ? numericKey<scheme>.keyValueLength
                                : identity.parts[0].digits + identity.parts[1].digits;
}

template <EpcScheme scheme>
ROSETAG_INLINE std::int32_t restLength(const NumericIdentity& identity) {
    std::int32_t length = 0;
    for (std::size_t i = 2; i < schemePartCount(schemeRows[scheme]); ++i) {
        length += identity.parts[i].digits;
    }
    return length;
}

template <EpcScheme scheme, Gs1Syntax syntax>
ROSETAG_INLINE std::int32_t gs1TextLength(const NumericIdentity& identity) {
    std::size_t length = sizeof(keyLiteral<scheme, syntax>);
    if constexpr (numericKey<scheme>.tailIsSecondaryAi != 0) {
        length += sizeof(secondaryLiteral<scheme, syntax>);
    }
    return static_cast<std::int32_t>(length) + keyLength<scheme>(identity) +
           restLength<scheme>(identity);
}

// Writes the text and its NUL.
template <EpcScheme scheme, Gs1Syntax syntax>
ROSETAG_INLINE void numericPutGs1Text(char* out, std::int32_t length,
                                      const NumericIdentity& identity) {
    static_assert(fieldIsReference(schemeRows[scheme].fields[REFERENCE_INDEX].kind));
    static_assert(!keyIsFixed<scheme> ||
                      sizeof(keyLiteral<scheme, syntax>) + numericKey<scheme>.keyValueLength >=
                          2 * WORD_DIGITS,
                  "both words of the key begin within the text");
    out[length] = '\0';
    numericPutGs1Fields<scheme, syntax>(out + length, identity, NumericFieldSequence<scheme>());
    literalPut(out, keyLiteral<scheme, syntax>);
}

template <EpcScheme scheme, Gs1Syntax syntax>
ROSETAG_INLINE bool numericBitsToGs1Text(const BitBuffer& bits, TextBuffer& text) {
    NumericIdentity identity;
    if (!numericFromBits<scheme>(bits, identity)) {
        return false;
    }
    const std::int32_t length = gs1TextLength<scheme, syntax>(identity);
    if (length > textBufferRoom(text)) {
        return false;
    }
    numericPutGs1Text<scheme, syntax>(text.begin, length, identity);
    text.writePointer = text.begin + length;
    return true;
}

// The longest barcode string: a key of 25 digits, or one of 14 with a serial of 17.
constexpr std::int32_t NUMERIC_BARCODE_SIZE = 64;

ROSETAG_INLINE void aiRowPut(const AiRows& rows, std::size_t row, std::string_view code,
                             std::string_view value) {
    char* const codeEnd = std::copy(code.begin(), code.end(), rows.aiCodes + row * AI_CODE_SIZE);
    char* const valueEnd =
        std::copy(value.begin(), value.end(), rows.aiValues + row * rows.valueSize);
    *codeEnd = '\0';
    *valueEnd = '\0';
}

// The values of the rows come from a barcode string.
template <EpcScheme scheme>
ROSETAG_INLINE bool numericBitsToAIs(const BitBuffer& bits, const AiRows& rows) {
    constexpr Gs1Syntax syntax = Gs1Syntax::BARCODE_STRING;
    constexpr bool hasSecondary = numericKey<scheme>.tailIsSecondaryAi != 0;
    constexpr std::uint32_t count = hasSecondary ? 2 : 1;
    NumericIdentity identity;
    if (!numericFromBits<scheme>(bits, identity)) {
        return false;
    }
    const std::int32_t length = gs1TextLength<scheme, syntax>(identity);
    const std::int32_t tail =
        hasSecondary ? identity.parts[schemePartCount(schemeRows[scheme]) - 1].digits : 0;
    const auto keySize =
        static_cast<std::size_t>(keyLength<scheme>(identity) + restLength<scheme>(identity) - tail);
    const auto tailSize = static_cast<std::size_t>(tail);
    if (std::max(keySize, tailSize) >= rows.valueSize ||
        (rows.maxAIs >= 0 && rows.maxAIs < static_cast<std::int32_t>(count))) {
        return false;
    }
    char text[NUMERIC_BARCODE_SIZE];
    numericPutGs1Text<scheme, syntax>(text, length, identity);
    aiRowPut(rows, 0, numericKey<scheme>.primaryAi,
             {text + sizeof(keyLiteral<scheme, syntax>), keySize});
    if constexpr (hasSecondary) {
        aiRowPut(rows, 1, numericKey<scheme>.secondaryAi, {text + length - tail, tailSize});
    }
    *rows.aiCount = count;
    return true;
}

template <EpcScheme scheme, Gs1Syntax syntax, std::size_t index>
ROSETAG_INLINE bool numericReadGs1Field(NumericReader& reader, std::int32_t prefixDigits,
                                        NumericIdentity& identity) {
    constexpr FieldKind kind = schemeRows[scheme].fields[index].kind;
    if constexpr (kind == FieldKind::COMPANY_PREFIX && keyIsFixed<scheme>) {
        return keyRead<scheme, syntax>(reader, prefixDigits, identity);
    } else if constexpr (kind == FieldKind::COMPANY_PREFIX) {
        const std::ptrdiff_t left = reader.end - reader.current;
        return left >= WORD_DIGITS && left >= prefixDigits &&
               numericReadPrefix(reader, prefixDigits, identity);
    } else if constexpr (!fieldIsPart(kind) || (index == REFERENCE_INDEX && keyIsFixed<scheme>)) {
        return true;
    } else {
        if constexpr (isSecondary<scheme, index>) {
            if (!literalRead(reader, secondaryLiteral<scheme, syntax>)) {
                return false;
            }
        }
        return numericReadPart<scheme, index>(reader, identity);
    }
}

template <EpcScheme scheme, Gs1Syntax syntax, std::size_t... index>
ROSETAG_INLINE bool numericReadGs1Fields(NumericReader& reader, std::int32_t prefixDigits,
                                         NumericIdentity& identity, std::index_sequence<index...>) {
    return (numericReadGs1Field<scheme, syntax, index>(reader, prefixDigits, identity) && ...);
}

// The slot that reads a whole text.
template <EpcScheme scheme, Gs1Syntax syntax>
ValueEnds numericGs1TextToValue(std::string_view text, std::int32_t filter,
                                std::int32_t gcpLength) {
    NumericReader reader = {text.data(), text.data() + text.size()};
    NumericIdentity identity;
    identity.filter = static_cast<std::uint32_t>(filter);
    return literalRead(reader, keyLiteral<scheme, syntax>) &&
                   numericReadGs1Fields<scheme, syntax>(reader, gcpLength, identity,
                                                        NumericFieldSequence<scheme>()) &&
                   numericReadAll(reader)
               ? numericToValue<scheme>(identity)
               : NO_VALUE;
}

// ---- The slots to texts, each with the general one that takes what is unusual ----

template <EpcScheme scheme, Gs1Syntax syntax, BinaryToText general>
EpcStatus numericBinaryToGs1Text(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    return numericBitsToGs1Text<scheme, syntax>(bits, text) ? EPC_OK : general(row, bits, text);
}

template <EpcScheme scheme>
EpcStatus numericBinaryToAIs(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows) {
    return numericBitsToAIs<scheme>(bits, rows) ? EPC_OK : plainBinaryToAIs(row, bits, rows);
}

} // namespace rosetag

#endif
