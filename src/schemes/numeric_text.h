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

// What is left to read of a text; the character at end can be looked at.
struct NumericReader {
    const char* current;
    const char* end;
};

template <std::size_t size>
ROSETAG_INLINE bool literalRead(NumericReader& reader, const Literal<size>& literal) {
    if (reader.end - reader.current < static_cast<std::ptrdiff_t>(size) ||
        std::memcmp(reader.current, literal.characters, size) != 0) {
        return false;
    }
    reader.current += size;
    return true;
}

// Reads exactly count digits, mostDigits at most.
template <std::int32_t mostDigits>
ROSETAG_INLINE bool numericReadDigits(NumericReader& reader, std::int32_t count,
                                      NumericPart& part) {
    if (count > reader.end - reader.current) {
        return false;
    }
    reader.current += count;
    part.digits = count;
    return digitsReadBefore<mostDigits>(reader.current, count, part.value);
}

enum class PrefixDigits : std::uint8_t { COUNTED, ASSUMED };

// Reads a company prefix of count digits, and decides on the partition; digits that were counted
// are known to be digits. The first ones are taken by themselves, as a whole word before the others
// may not belong to the text.
template <PrefixDigits digits>
ROSETAG_INLINE bool numericReadPrefix(NumericReader& reader, std::int32_t count,
                                      NumericIdentity& identity) {
    constexpr std::int32_t most = companyPrefixSizes.front().digits;
    const std::int32_t partition = partitionFindByDigits(count);
    const std::ptrdiff_t left = reader.end - reader.current;
    if (partition < 0 || left < WORD_DIGITS || (digits == PrefixDigits::ASSUMED && left < count)) {
        return false;
    }
    const std::uint64_t first = loadCharacters(reader.current) ^ DIGIT_CHARACTERS;
    const std::uint64_t high = (first & 0xFFFFFFFF) << (8 * (most - count)) << 32;
    reader.current += count;
    const std::uint64_t low = digitWordBefore(reader.current, count);
    identity.partition = static_cast<std::size_t>(partition);
    identity.parts[0] = {digitWordValue(high) * WORD_LIMIT + digitWordValue(low), count};
    return digits == PrefixDigits::COUNTED || (nonDigits(high) | nonDigits(low)) == 0;
}

// Reads the part of a field after the company prefix. The last one of a text takes what is left.
template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericReadPart(NumericReader& reader, NumericIdentity& identity) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr std::size_t partIndex = fieldPartIndex(schemeRows[scheme], index);
    constexpr std::int32_t most = fieldMostDigits(field);
    NumericPart& part = identity.parts[partIndex];
    if constexpr (field.kind == REFERENCE_DIGITS) {
        return numericReadDigits<most>(reader, field.size - identity.parts[0].digits, part);
    } else if constexpr (field.kind == PADDED_NUMBER) {
        return numericReadDigits<most>(reader, field.size, part);
    } else {
        constexpr bool isLast = partIndex + 1 == schemePartCount(schemeRows[scheme]);
        const char* const digits = reader.current;
        const std::ptrdiff_t left = reader.end - digits;
        const std::int32_t count =
            isLast ? static_cast<std::int32_t>(std::min<std::ptrdiff_t>(left, most + 1))
                   : digitsCount(digits, reader.end);
        const bool isWritten = field.kind == NUMBER_AFTER_ONE || count == 1 || *digits != '0';
        return count > 0 && count <= most && isWritten &&
               numericReadDigits<most>(reader, count, part);
    }
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
