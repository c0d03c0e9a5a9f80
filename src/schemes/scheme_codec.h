/*
 * Reads and writes the URI body of a plain scheme. Both are unrolled over the fields of the
 * scheme's row: nothing looks at the row while the library runs.
 *
 * Body: the text of the fields, joined by "."
 *
 * Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables).
 */
#ifndef ROSETAG_SCHEMES_SCHEME_CODEC_H
#define ROSETAG_SCHEMES_SCHEME_CODEC_H

#include "schemes/field_cage_code.h"
#include "schemes/field_chars.h"
#include "schemes/field_head.h"
#include "schemes/field_number.h"
#include "schemes/field_partition.h"
#include "schemes/scheme_table.h"

#include <utility>

namespace rosetag {

// Partition and company prefix are read and written with the reference that follows them.
constexpr bool fieldHasText(FieldKind kind) {
    return kind != FieldKind::FILTER && kind != FieldKind::PARTITION &&
           kind != FieldKind::COMPANY_PREFIX && kind != FieldKind::RESERVED;
}

constexpr bool fieldHasTerminator(FieldKind kind) {
    return kind == FieldKind::REFERENCE_CHARS6 || kind == FieldKind::CHARS6;
}

// True if a "." joins the field to text before it.
constexpr bool fieldIsJoined(const SchemeRow& row, std::size_t index) {
    const auto fields = schemeFields(row);
    return fieldHasText(fields[index].kind) &&
           std::any_of(fields.begin(), fields.begin() + static_cast<std::ptrdiff_t>(index),
                       [](const SchemeField& field) { return fieldHasText(field.kind); });
}

// What ends the text of 6-bit characters: the "." before the next field, or the end.
constexpr char fieldTerminator(const SchemeRow& row, std::size_t index) {
    return index + 1 < schemeFields(row).size() ? '.' : '\0';
}

constexpr Chars6Rule fieldChars6Rule(const SchemeField& field) {
    return {.maxChars = field.size, .allowEmpty = field.least == 0, .hashRule = field.hashRule};
}

template <EpcScheme scheme, std::size_t index>
EpcStatus schemeReadField(BitBuffer& bits, TextBuffer& text, UriForm form) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr const PartitionTable& table = partitionTable<field.width, field.size>;
    if constexpr (fieldIsJoined(schemeRows[scheme], index)) {
        EPC_TRY(textBufferPutChar(text, '.'));
    }
    if constexpr (field.kind == FILTER) {
        return fieldReadFilter(bits, text, form, field.width);
    } else if constexpr (field.kind == REFERENCE_DIGITS) {
        return fieldReadPartition(bits, text, table);
    } else if constexpr (field.kind == REFERENCE_OPEN) {
        return fieldReadPartitionOpen(bits, text, table);
    } else if constexpr (field.kind == REFERENCE_CHARS7) {
        return fieldReadPartitionChars7(bits, text, table);
    } else if constexpr (field.kind == REFERENCE_CHARS6) {
        return fieldReadPartitionChars6(bits, text, table, field.hashRule);
    } else if constexpr (field.kind == NUMBER) {
        return fieldReadDecimal(bits, text, field.width);
    } else if constexpr (field.kind == PADDED_NUMBER) {
        return fieldReadPaddedNumber(bits, text, field.width, field.size);
    } else if constexpr (field.kind == NUMBER_AFTER_ONE) {
        return fieldReadNumberAfterOne(bits, text, field.width);
    } else if constexpr (field.kind == CHARS7) {
        return fieldReadChars7(bits, text, field.size);
    } else if constexpr (field.kind == CHARS6) {
        return fieldReadChars6(bits, text, fieldChars6Rule(field));
    } else if constexpr (field.kind == CAGE_CODE) {
        return fieldReadCageCode(bits, text, field.width / CAGE_CODE_CHARS);
    } else if constexpr (field.kind == RESERVED) {
        return fieldReadZeros(bits, field.width);
    } else {
        static_assert(field.kind == PARTITION || field.kind == COMPANY_PREFIX);
        return EPC_OK;
    }
}

template <EpcScheme scheme, std::size_t index>
EpcStatus schemeWriteField(TextCursor& cursor, BitBuffer& bits) {
    using enum FieldKind;
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    constexpr const PartitionTable& table = partitionTable<field.width, field.size>;
    constexpr char terminator = fieldTerminator(schemeRows[scheme], index);
    if constexpr (fieldIsJoined(schemeRows[scheme], index) &&
                  !fieldHasTerminator(schemeRows[scheme].fields[index - 1].kind)) {
        EPC_TRY(textCursorExpect(cursor, '.'));
    }
    if constexpr (field.kind == REFERENCE_DIGITS) {
        return fieldWritePartition(cursor, bits, table);
    } else if constexpr (field.kind == REFERENCE_OPEN) {
        return fieldWritePartitionOpen(cursor, bits, table);
    } else if constexpr (field.kind == REFERENCE_CHARS7) {
        return fieldWritePartitionChars7(cursor, bits, table);
    } else if constexpr (field.kind == REFERENCE_CHARS6) {
        return fieldWritePartitionChars6(cursor, bits, table, field.hashRule, terminator);
    } else if constexpr (field.kind == NUMBER) {
        return fieldWriteDecimal(cursor, bits, field.width);
    } else if constexpr (field.kind == PADDED_NUMBER) {
        return fieldWritePaddedNumber(cursor, bits, field.width, field.size);
    } else if constexpr (field.kind == NUMBER_AFTER_ONE) {
        return fieldWriteNumberAfterOne(cursor, bits, field.width);
    } else if constexpr (field.kind == CHARS7) {
        return fieldWriteChars7(cursor, bits, field.size);
    } else if constexpr (field.kind == CHARS6) {
        return fieldWriteChars6(cursor, bits, fieldChars6Rule(field), terminator);
    } else if constexpr (field.kind == CAGE_CODE) {
        return fieldWriteCageCode(cursor, bits, field.width / CAGE_CODE_CHARS);
    } else if constexpr (field.kind == RESERVED) {
        return fieldWriteZeros(bits, field.width);
    } else {
        static_assert(field.kind == FILTER || field.kind == PARTITION ||
                      field.kind == COMPANY_PREFIX);
        return EPC_OK;
    }
}

template <EpcScheme scheme, std::size_t... index>
EpcStatus schemeReadFields(BitBuffer& bits, TextBuffer& text, UriForm form,
                           std::index_sequence<index...>) {
    EpcStatus status = EPC_OK;
    static_cast<void>(
        (((status = schemeReadField<scheme, index>(bits, text, form)) == EPC_OK) && ...));
    return status;
}

template <EpcScheme scheme, std::size_t... index>
EpcStatus schemeWriteFields(TextCursor& cursor, BitBuffer& bits, std::index_sequence<index...>) {
    EpcStatus status = EPC_OK;
    static_cast<void>(
        (((status = schemeWriteField<scheme, index>(cursor, bits)) == EPC_OK) && ...));
    return status;
}

template <EpcScheme scheme>
using SchemeFieldSequence = std::make_index_sequence<schemeFields(schemeRows[scheme]).size()>;

// The slots of a plain scheme between its bits after the header and its URI body.

template <EpcScheme scheme>
EpcStatus schemeReadBody(BitBuffer& bits, TextBuffer& text, UriForm form) {
    return schemeReadFields<scheme>(bits, text, form, SchemeFieldSequence<scheme>());
}

template <EpcScheme scheme>
EpcStatus schemeWriteBody(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    constexpr SchemeRow row = schemeRows[scheme];
    if constexpr (schemeHasField(row, FieldKind::FILTER)) {
        constexpr SchemeField field = *schemeFindField(schemeRows[scheme], FieldKind::FILTER);
        EPC_TRY(fieldWriteHead(bits, row.header, filter, field.width, field.largest));
    } else {
        EPC_TRY(bitBufferWrite(bits, row.header, TAG_HEADER_BITS));
    }
    return schemeWriteFields<scheme>(cursor, bits, SchemeFieldSequence<scheme>());
}

} // namespace rosetag

#endif
