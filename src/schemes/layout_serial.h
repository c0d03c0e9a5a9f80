/*
 * The layouts of the GS1 keys of which company prefix and reference are numbers. They differ in the
 * partition table and in the serial behind it, so that a scheme is one row of constants.
 *
 * Body: company prefix "." reference ["." serial], for an ITIP
 *       company prefix "." reference "." piece "." total "." serial
 *
 * Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables).
 */
#ifndef ROSETAG_SCHEMES_LAYOUT_SERIAL_H
#define ROSETAG_SCHEMES_LAYOUT_SERIAL_H

#include "schemes/field_chars.h"
#include "schemes/field_number.h"
#include "schemes/field_partition.h"
#include "schemes/layout.h"

namespace rosetag {

// How a serial is stored. size is what both operations take: bits or characters.
struct SerialField {
    EpcStatus (*read)(BitBuffer& bits, TextBuffer& text, std::int32_t size);
    EpcStatus (*write)(TextCursor& cursor, BitBuffer& bits, std::int32_t size);
    std::int32_t bitsPerSize;
};

inline constexpr SerialField numericSerial = {fieldReadDecimal, fieldWriteDecimal, 1};
inline constexpr SerialField stringSerial = {fieldReadChars7, fieldWriteChars7, CHAR7_BITS};
inline constexpr SerialField leadingOneSerial = {fieldReadLeadingOneNumber,
                                                 fieldWriteLeadingOneNumber, 1};

inline EpcStatus layoutReadKey(BitBuffer& bits, TextBuffer& text, UriForm form, EpcScheme scheme,
                               const PartitionTable& table) {
    EPC_TRY(fieldReadFilter(bits, text, form, scheme));
    return fieldReadPartition(bits, text, table);
}

inline EpcStatus layoutWriteKey(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits,
                                EpcScheme scheme, const PartitionTable& table) {
    EPC_TRY(fieldWriteHead(filter, bits, scheme));
    return fieldWritePartition(cursor, bits, table);
}

// A key with a serial.
template <EpcScheme scheme, const PartitionTable& table, const SerialField& serial,
          std::int32_t size>
EpcStatus layoutSerialRead(BitBuffer& bits, TextBuffer& text, UriForm form) {
    static_assert(layoutKeyBits(scheme, table) + size * serial.bitsPerSize ==
                  tagSchemeBits(scheme));
    EPC_TRY(layoutReadKey(bits, text, form, scheme, table));
    EPC_TRY(textBufferPutChar(text, '.'));
    return serial.read(bits, text, size);
}

template <EpcScheme scheme, const PartitionTable& table, const SerialField& serial,
          std::int32_t size>
EpcStatus layoutSerialWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(layoutWriteKey(cursor, filter, bits, scheme, table));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return serial.write(cursor, bits, size);
}

// A key alone, with reserved bits behind it.
template <EpcScheme scheme, const PartitionTable& table, std::int32_t width>
EpcStatus layoutReservedRead(BitBuffer& bits, TextBuffer& text, UriForm form) {
    static_assert(layoutKeyBits(scheme, table) + width == tagSchemeBits(scheme));
    EPC_TRY(layoutReadKey(bits, text, form, scheme, table));
    return fieldReadZeros(bits, width);
}

template <EpcScheme scheme, const PartitionTable& table, std::int32_t width>
EpcStatus layoutReservedWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(layoutWriteKey(cursor, filter, bits, scheme, table));
    return fieldWriteZeros(bits, width);
}

// A piece of a trade item: which piece of how many stands before the serial.
constexpr std::int32_t PIECE_BITS = 7;

template <EpcScheme scheme, const SerialField& serial, std::int32_t size>
EpcStatus layoutItipRead(BitBuffer& bits, TextBuffer& text, UriForm form) {
    static_assert(layoutKeyBits(scheme, partitionTableSgtin) + 2 * PIECE_BITS +
                      size * serial.bitsPerSize ==
                  tagSchemeBits(scheme));
    EPC_TRY(layoutReadKey(bits, text, form, scheme, partitionTableSgtin));
    EPC_TRY(textBufferPutChar(text, '.'));
    EPC_TRY(fieldReadSmallNumber(bits, text, PIECE_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    EPC_TRY(fieldReadSmallNumber(bits, text, PIECE_BITS));
    EPC_TRY(textBufferPutChar(text, '.'));
    return serial.read(bits, text, size);
}

template <EpcScheme scheme, const SerialField& serial, std::int32_t size>
EpcStatus layoutItipWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    EPC_TRY(layoutWriteKey(cursor, filter, bits, scheme, partitionTableSgtin));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(fieldWriteSmallNumber(cursor, bits, PIECE_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    EPC_TRY(fieldWriteSmallNumber(cursor, bits, PIECE_BITS));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return serial.write(cursor, bits, size);
}

// The families, with the width of what stands behind the key in bits or characters.
template <EpcScheme scheme, const PartitionTable& table, std::int32_t width>
inline constexpr Layout layoutNumericSerial = {
    scheme, layoutSerialRead<scheme, table, numericSerial, width>,
    layoutSerialWrite<scheme, table, numericSerial, width>};

template <EpcScheme scheme, const PartitionTable& table, std::int32_t maxChars>
inline constexpr Layout layoutStringSerial = {
    scheme, layoutSerialRead<scheme, table, stringSerial, maxChars>,
    layoutSerialWrite<scheme, table, stringSerial, maxChars>};

template <EpcScheme scheme, const PartitionTable& table, std::int32_t width>
inline constexpr Layout layoutLeadingOneSerial = {
    scheme, layoutSerialRead<scheme, table, leadingOneSerial, width>,
    layoutSerialWrite<scheme, table, leadingOneSerial, width>};

template <EpcScheme scheme, const PartitionTable& table, std::int32_t width>
inline constexpr Layout layoutReserved = {scheme, layoutReservedRead<scheme, table, width>,
                                          layoutReservedWrite<scheme, table, width>};

template <EpcScheme scheme, const SerialField& serial, std::int32_t size>
inline constexpr Layout layoutItip = {scheme, layoutItipRead<scheme, serial, size>,
                                      layoutItipWrite<scheme, serial, size>};

} // namespace rosetag

#endif
