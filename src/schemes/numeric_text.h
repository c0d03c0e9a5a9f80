/*
 * The numbers of an identity in text: what the URIs and the GS1 texts share. Texts are written from
 * their end to their beginning in whole words, each of which may run into what is before it and
 * is written later.
 */
#ifndef ROSETAG_SCHEMES_NUMERIC_TEXT_H
#define ROSETAG_SCHEMES_NUMERIC_TEXT_H

#include "core/text_cursor.h"
#include "schemes/numeric_identity.h"

#include <cstring>

namespace rosetag {

// The most digits of the part of a field.
constexpr std::int32_t fieldMostDigits(const SchemeField& field) {
    switch (field.kind) {
    case FieldKind::COMPANY_PREFIX:
        return companyPrefixSizes.front().digits;
    case FieldKind::REFERENCE_DIGITS:
        return field.size - companyPrefixSizes.back().digits;
    case FieldKind::REFERENCE_OPEN:
        return decimalDigitCount(lowBitsMask(field.width - companyPrefixSizes.back().bits));
    case FieldKind::PADDED_NUMBER:
        return field.size;
    case FieldKind::NUMBER_AFTER_ONE:
        return decimalDigitCount(lowBitsMask(field.width)) - 1;
    default:
        return decimalDigitCount(lowBitsMask(field.width));
    }
}

// A run of characters that is known while compiling.
template <std::size_t size>
struct Literal {
    char characters[size];
};

template <std::size_t size>
ROSETAG_INLINE void literalPut(char* out, const Literal<size>& literal) {
    std::memcpy(out, literal.characters, size);
}

// What is left to read of a text; the character at end can be looked at. Whether digits were digits
// is collected and asked once, at the end.
struct NumericReader {
    const char* current;
    const char* end;
    std::uint64_t strays = 0; // marks of what should have been a digit
};

ROSETAG_INLINE bool numericReadAll(const NumericReader& reader) {
    return reader.current == reader.end && (reader.strays & ALL_MARKS) == 0;
}

template <std::size_t size>
ROSETAG_INLINE bool literalRead(NumericReader& reader, const Literal<size>& literal) {
    if (reader.end - reader.current < static_cast<std::ptrdiff_t>(size) ||
        std::memcmp(reader.current, literal.characters, size) != 0) {
        return false;
    }
    reader.current += size;
    return true;
}

// Reads a company prefix of count digits, and decides on the partition. The text has at least
// eight characters left, and at least count. Its first digits are taken by themselves, as a whole
// word before the others may not belong to the text.
ROSETAG_INLINE bool numericReadPrefix(NumericReader& reader, std::ptrdiff_t count,
                                      NumericIdentity& identity) {
    constexpr std::ptrdiff_t most = companyPrefixSizes.front().digits;
    static_assert(most - WORD_DIGITS == 4, "the first digits are half a word");
    const auto partition = static_cast<std::size_t>(most - count);
    if (partition >= PARTITION_COUNT) {
        return false;
    }
    const std::uint64_t first = loadCharacters(reader.current) ^ DIGIT_CHARACTERS;
    const auto high = static_cast<std::uint32_t>(first << (8 * (most - count)));
    reader.current += count;
    const std::uint64_t low = digitWordBefore(reader.current, count);
    reader.strays |= strayMarks(high) | strayMarks(low);
    identity.partition = partition;
    identity.parts[0] = {digitHalfValue(high) * WORD_LIMIT + digitWordValue(low),
                         static_cast<std::int32_t>(count)};
    return true;
}

// Reads the digits of a reference: those that the company prefix leaves of size digits. They end at
// end.
template <std::int32_t size>
ROSETAG_INLINE void numericReadReference(NumericReader& reader, const char* end,
                                         NumericIdentity& identity) {
    constexpr std::int32_t most = size - companyPrefixSizes.back().digits;
    constexpr std::ptrdiff_t left = size - companyPrefixSizes.front().digits;
    const auto count = left + static_cast<std::ptrdiff_t>(identity.partition);
    identity.parts[1].digits = static_cast<std::int32_t>(count);
    reader.strays |= digitsReadEvenly<most>(end, count, identity.parts[1].value);
    reader.current = end;
}

// Reads the part of a field other than the key's. The last one of a text takes what is left.
template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericReadPart(NumericReader& reader, NumericIdentity& identity) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr std::size_t partIndex = fieldPartIndex(schemeRows[scheme], index);
    constexpr std::int32_t most = fieldMostDigits(field);
    NumericPart& part = identity.parts[partIndex];
    constexpr bool isLast = partIndex + 1 == schemePartCount(schemeRows[scheme]);
    static_assert(field.kind != REFERENCE_DIGITS);
    const char* const digits = reader.current;
    const std::ptrdiff_t left = reader.end - digits;
    std::ptrdiff_t count = field.size;
    if constexpr (field.kind == PADDED_NUMBER) {
        if (left < field.size) {
            return false;
        }
    } else {
        count = isLast ? left : digitsCount(digits, reader.end);
        if (count < 1 || count > most) {
            return false;
        }
        if (field.kind != NUMBER_AFTER_ONE && *digits == '0') [[unlikely]] {
            if (count > 1) {
                return false;
            }
        }
    }
    reader.current = digits + count;
    part.digits = static_cast<std::int32_t>(count);
    reader.strays |= digitsReadBefore<most>(reader.current, count, part.value);
    return true;
}

// Writes a company prefix before end without a word that begins more than two characters before it:
// its first four digits, then its last eight.
ROSETAG_INLINE void numericPutPrefix(char* end, const NumericPart& prefix) {
    const DigitWords words = digitWordsOf(prefix.value);
    const std::int32_t zeros = 2 * WORD_DIGITS - prefix.digits; // 4 to 10
    const std::uint64_t first =
        zeros < WORD_DIGITS ? words.high >> (8 * zeros) | words.low << (8 * (WORD_DIGITS - zeros))
                            : words.low >> (8 * (zeros - WORD_DIGITS));
    char characters[WORD_DIGITS];
    storeCharacters(characters, first | DIGIT_CHARACTERS);
    std::memcpy(end - prefix.digits, characters, 4);
    storeCharacters(end - WORD_DIGITS, words.low | DIGIT_CHARACTERS);
}

// Writes the part of a field before end and returns where it begins.
template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE char* numericPutPart(char* end, const NumericIdentity& identity) {
    constexpr std::int32_t most = fieldMostDigits(schemeRows[scheme].fields[index]);
    const NumericPart& part = identity.parts[fieldPartIndex(schemeRows[scheme], index)];
    digitsPutBefore<most>(end, part.digits, part.value);
    return end - part.digits;
}

} // namespace rosetag

#endif
