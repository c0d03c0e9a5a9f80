/*
 * The partition value, the GS1 company prefix and the reference. In text company prefix and
 * reference are joined by "."; the partition value is not written there, as it follows from the
 * number of digits of the company prefix.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 (encoding and decoding methods).
 */
#ifndef ROSETAG_SCHEMES_FIELD_PARTITION_H
#define ROSETAG_SCHEMES_FIELD_PARTITION_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "schemes/field_chars.h"
#include "schemes/partition.h"

namespace rosetag {

// The reference has exactly as many digits as the partition leaves it.
EpcStatus fieldReadPartition(BitBuffer& bits, TextBuffer& text, const PartitionTable& table);
EpcStatus fieldWritePartition(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table);

// The reference is a number without leading zeros that fits its bits.
EpcStatus fieldReadPartitionOpen(BitBuffer& bits, TextBuffer& text, const PartitionTable& table);
EpcStatus fieldWritePartitionOpen(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table);

// The reference is a string of 7-bit characters; the bits that they leave are zero.
EpcStatus fieldReadPartitionChars7(BitBuffer& bits, TextBuffer& text, const PartitionTable& table);
EpcStatus fieldWritePartitionChars7(TextCursor& cursor, BitBuffer& bits,
                                    const PartitionTable& table);

// The reference is a string of 6-bit characters. In text the terminator ends it, or the end.
EpcStatus fieldReadPartitionChars6(BitBuffer& bits, TextBuffer& text, const PartitionTable& table,
                                   HashRule hashRule);
EpcStatus fieldWritePartitionChars6(TextCursor& cursor, BitBuffer& bits,
                                    const PartitionTable& table, HashRule hashRule,
                                    char terminator);

} // namespace rosetag

#endif
