/*
 * Identities that are numbers: what a plain scheme without character fields holds. Between bits and
 * texts such an identity is kept as numbers with their digits, and there is no text in between.
 *
 * This is a shortcut for what is usual. Whatever is not (a partition that does not exist, a number
 * that is too large, a missing bit, too little room) makes an operation return false with nothing
 * written: the general readers and writers then run, and they alone find out what is wrong.
 */
#ifndef ROSETAG_SCHEMES_NUMERIC_IDENTITY_H
#define ROSETAG_SCHEMES_NUMERIC_IDENTITY_H

#include "core/bit_buffer.h"
#include "core/digit_words.h"
#include "core/short_value.h"
#include "schemes/scheme_table.h"

#include <utility>

namespace rosetag {

// Built with ROSETAG_GENERAL_ROAD, the library takes no shortcut. To be smaller it can take fewer:
// with ROSETAG_GENERAL_WRITING none from texts to bits, with ROSETAG_FEW_SHORTCUTS only those of
// the most frequent scheme.
#ifdef ROSETAG_GENERAL_ROAD
constexpr bool NUMERIC_READING = false;
#else
constexpr bool NUMERIC_READING = true;
#endif
#ifdef ROSETAG_GENERAL_WRITING
constexpr bool NUMERIC_WRITING = false;
#else
constexpr bool NUMERIC_WRITING = NUMERIC_READING;
#endif

struct NumericPart {
    std::uint64_t value;
    std::int32_t digits; // in text
};

constexpr std::size_t MAX_NUMERIC_PARTS = 5; // company prefix, reference, piece, total, serial

struct NumericIdentity {
    std::uint32_t filter;
    std::size_t partition;
    NumericPart parts[MAX_NUMERIC_PARTS]; // one for each field with text, in their order
};

constexpr bool fieldIsNumeric(const SchemeField& field) {
    switch (field.kind) {
    case FieldKind::FILTER:
    case FieldKind::PARTITION:
    case FieldKind::COMPANY_PREFIX:
    case FieldKind::REFERENCE_DIGITS:
    case FieldKind::REFERENCE_OPEN:
    case FieldKind::NUMBER:
    case FieldKind::PADDED_NUMBER:
    case FieldKind::NUMBER_AFTER_ONE:
    case FieldKind::RESERVED:
        return true;
    default:
        return false;
    }
}

constexpr bool schemeIsNumeric(const SchemeRow& row) {
    const auto fields = schemeFields(row);
    return std::all_of(fields.begin(), fields.end(), fieldIsNumeric);
}

#ifdef ROSETAG_FEW_SHORTCUTS
constexpr bool schemeHasShortcuts(const SchemeRow& row) {
    return row.scheme == EPC_SCHEME_SGTIN_96;
}
#else
constexpr bool schemeHasShortcuts(const SchemeRow& row) {
    return schemeIsNumeric(row);
}
#endif

constexpr bool fieldIsPart(FieldKind kind) {
    return kind != FieldKind::FILTER && kind != FieldKind::PARTITION && kind != FieldKind::RESERVED;
}

// The parts of the fields before this one: the index of its own part.
constexpr std::size_t fieldPartIndex(const SchemeRow& row, std::size_t index) {
    std::size_t parts = 0;
    for (std::size_t i = 0; i < index; ++i) {
        parts += fieldIsPart(row.fields[i].kind) ? 1U : 0U;
    }
    return parts;
}

constexpr std::size_t schemePartCount(const SchemeRow& row) {
    return fieldPartIndex(row, schemeFields(row).size());
}

// The bit after a field. The company prefix has no width of its own here: what follows it counts
// its bits.
constexpr std::int32_t fieldEndBit(const SchemeRow& row, std::size_t index) {
    std::int32_t bits = TAG_HEADER_BITS;
    for (std::size_t i = 0; i <= index; ++i) {
        bits += row.fields[i].width;
    }
    return bits;
}

// A whole value of up to 128 bits, with zeros after its last one.
struct ValueBits {
    std::uint64_t high;
    std::uint64_t low;
};

constexpr std::int32_t WORD_BITS = 64;

constexpr std::uint64_t lowBitsMask(std::int32_t width) {
    return ~std::uint64_t{0} >> (WORD_BITS - width);
}

// The width bits before bit end; 1 to 64.
template <std::int32_t end>
ROSETAG_INLINE std::uint64_t valueBitsTake(const ValueBits& bits, std::int32_t width) {
    if constexpr (end <= WORD_BITS) {
        return bits.high >> (WORD_BITS - end) & lowBitsMask(width);
    } else if constexpr (end == 2 * WORD_BITS) {
        return bits.low & lowBitsMask(width);
    } else {
        return (bits.high << (end - WORD_BITS) | bits.low >> (2 * WORD_BITS - end)) &
               lowBitsMask(width);
    }
}

// Puts a number so that it ends before bit end. Its bits there are zero before.
template <std::int32_t end>
ROSETAG_INLINE void valueBitsPut(ValueBits& bits, std::uint64_t value) {
    if constexpr (end <= WORD_BITS) {
        bits.high |= value << (WORD_BITS - end);
    } else {
        bits.low |= value << (2 * WORD_BITS - end);
        if constexpr (end < 2 * WORD_BITS) {
            bits.high |= value >> (end - WORD_BITS);
        }
    }
}

template <EpcScheme scheme>
inline constexpr std::int32_t numericBits = schemeBits(schemeRows[scheme]);

// Loads byteCount bytes, 9 to 16.
template <std::int32_t byteCount>
ROSETAG_INLINE ValueBits valueBitsLoad(const std::uint8_t* bytes) {
    if constexpr (byteCount == 12) {
        const auto low = bytesLoad<std::endian::big, std::uint32_t>(bytes + 8);
        return {loadBigEndian(bytes), std::uint64_t{low} << 32};
    }
    return {loadBigEndian(bytes), loadBigEndian(bytes + byteCount - 8) << (128 - 8 * byteCount)};
}

template <std::int32_t byteCount>
ROSETAG_INLINE ValueEnds valueBitsEnds(const ValueBits& bits) {
    if constexpr (byteCount == 16) {
        return {bits.high, bits.low};
    } else {
        return {bits.high,
                bits.high << (8 * byteCount - WORD_BITS) | bits.low >> (128 - 8 * byteCount)};
    }
}

// The bits of the reference after a company prefix of this partition.
template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE std::int32_t referenceBits(const NumericIdentity& identity) {
    return schemeRows[scheme].fields[index].width - companyPrefixSizes[identity.partition].bits;
}

template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericTakeField(const ValueBits& bits, NumericIdentity& identity) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr std::int32_t end = fieldEndBit(schemeRows[scheme], index);
    NumericPart& part = identity.parts[fieldPartIndex(schemeRows[scheme], index)];
    if constexpr (field.kind == FILTER) {
        identity.filter = static_cast<std::uint32_t>(valueBitsTake<end>(bits, field.width));
        return true;
    } else if constexpr (field.kind == PARTITION) {
        identity.partition = static_cast<std::size_t>(valueBitsTake<end>(bits, field.width));
        return identity.partition < PARTITION_COUNT;
    } else if constexpr (field.kind == COMPANY_PREFIX) {
        const CompanyPrefixSize& size = companyPrefixSizes[identity.partition];
        part = {bits.high << end >> (WORD_BITS - size.bits), size.digits};
        return part.value < powerOfTen(part.digits);
    } else if constexpr (field.kind == REFERENCE_DIGITS) {
        part = {valueBitsTake<end>(bits, referenceBits<scheme, index>(identity)),
                field.size - companyPrefixSizes[identity.partition].digits};
        return part.value < powerOfTen(part.digits);
    } else if constexpr (field.kind == REFERENCE_OPEN) {
        const std::uint64_t value =
            valueBitsTake<end>(bits, referenceBits<scheme, index>(identity));
        part = {value, decimalDigitCount(value)};
        return true;
    } else {
        const std::uint64_t value = valueBitsTake<end>(bits, field.width);
        if constexpr (field.kind == NUMBER) {
            part = {value, decimalDigitCount(value)};
            return true;
        } else if constexpr (field.kind == PADDED_NUMBER) {
            part = {value, field.size};
            return value < powerOfTen(field.size);
        } else if constexpr (field.kind == NUMBER_AFTER_ONE) {
            const std::int32_t digits = decimalDigitCount(value) - 1;
            if (digits == 0) {
                return false;
            }
            part = {value - powerOfTen(digits), digits};
            return part.value < powerOfTen(digits);
        } else {
            static_assert(field.kind == RESERVED);
            return value == 0;
        }
    }
}

template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericPutField(ValueBits& bits, const NumericIdentity& identity) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr std::int32_t end = fieldEndBit(schemeRows[scheme], index);
    const NumericPart& part = identity.parts[fieldPartIndex(schemeRows[scheme], index)];
    if constexpr (field.kind == FILTER) {
        valueBitsPut<end>(bits, identity.filter);
        return identity.filter <= field.largest;
    } else if constexpr (field.kind == PARTITION) {
        valueBitsPut<end>(bits, identity.partition);
        return true;
    } else if constexpr (field.kind == COMPANY_PREFIX) {
        const std::int32_t prefixEnd = end + companyPrefixSizes[identity.partition].bits;
        bits.high |= part.value << (WORD_BITS - prefixEnd);
        return true;
    } else if constexpr (field.kind == REFERENCE_DIGITS) {
        valueBitsPut<end>(bits, part.value);
        return true;
    } else if constexpr (field.kind == REFERENCE_OPEN) {
        valueBitsPut<end>(bits, part.value);
        return fitsBits(part.value, referenceBits<scheme, index>(identity));
    } else if constexpr (field.kind == NUMBER || field.kind == PADDED_NUMBER) {
        valueBitsPut<end>(bits, part.value);
        return fitsBits(part.value, field.width);
    } else if constexpr (field.kind == NUMBER_AFTER_ONE) {
        const std::uint64_t value = powerOfTen(part.digits) + part.value;
        valueBitsPut<end>(bits, value);
        return fitsBits(value, field.width);
    } else {
        static_assert(field.kind == RESERVED);
        return true;
    }
}

template <EpcScheme scheme, std::size_t... index>
ROSETAG_INLINE bool numericTakeFields(const ValueBits& bits, NumericIdentity& identity,
                                      std::index_sequence<index...>) {
    return (numericTakeField<scheme, index>(bits, identity) && ...);
}

template <EpcScheme scheme, std::size_t... index>
ROSETAG_INLINE bool numericPutFields(ValueBits& bits, const NumericIdentity& identity,
                                     std::index_sequence<index...>) {
    return (numericPutField<scheme, index>(bits, identity) && ...);
}

template <EpcScheme scheme>
using NumericFieldSequence = std::make_index_sequence<schemeFields(schemeRows[scheme]).size()>;

// Reads a whole value, wherever the position is.
template <EpcScheme scheme>
ROSETAG_INLINE bool numericFromBits(const BitBuffer& bits, NumericIdentity& identity) {
    constexpr std::int32_t byteCount = (numericBits<scheme> + 7) / 8;
    if (bits.capacity < numericBits<scheme>) {
        return false;
    }
    return numericTakeFields<scheme>(valueBitsLoad<byteCount>(bits.bytes), identity,
                                     NumericFieldSequence<scheme>());
}

// The bytes of a value that is padded to a word.
template <EpcScheme scheme>
inline constexpr std::int32_t numericBytes = (numericBits<scheme> + 15) / 16 * 2;

// What a reader of text gives if it leaves the text to the general one. No header is 0.
constexpr ValueEnds NO_VALUE = {};

// Makes a whole value, padded to a word.
template <EpcScheme scheme>
ROSETAG_INLINE ValueEnds numericToValue(const NumericIdentity& identity) {
    static_assert(schemeRows[scheme].header != 0);
    ValueBits value = {std::uint64_t{schemeRows[scheme].header} << (WORD_BITS - TAG_HEADER_BITS),
                       0};
    return numericPutFields<scheme>(value, identity, NumericFieldSequence<scheme>())
               ? valueBitsEnds<numericBytes<scheme>>(value)
               : NO_VALUE;
}

} // namespace rosetag

#endif
