/*
 * The partition value with the GS1 company prefix behind it and, where it is a number, the
 * reference. In text company prefix and reference are joined by "."; the partition value is not
 * written there, it follows from the count of digits of the company prefix.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 (encoding and decoding methods).
 */
#ifndef ROSETAG_SCHEMES_FIELD_PARTITION_H
#define ROSETAG_SCHEMES_FIELD_PARTITION_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "schemes/partition.h"

namespace rosetag {

// Company prefix and reference, both of as many digits as the row tells.
EpcStatus fieldReadPartition(BitBuffer& bits, TextBuffer& text, const PartitionTable& table);
EpcStatus fieldWritePartition(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table);

// The reference is a number without leading zeros, bounded by its bits alone.
EpcStatus fieldReadPartitionOpenReference(BitBuffer& bits, TextBuffer& text,
                                          const PartitionTable& table);
EpcStatus fieldWritePartitionOpenReference(TextCursor& cursor, BitBuffer& bits,
                                           const PartitionTable& table);

// Up to and including the ".", for a reference that is a string; the row tells of its field.
EpcStatus fieldReadCompanyPrefix(BitBuffer& bits, TextBuffer& text, const PartitionTable& table,
                                 const PartitionRow*& row);
EpcStatus fieldWriteCompanyPrefix(TextCursor& cursor, BitBuffer& bits, const PartitionTable& table,
                                  const PartitionRow*& row);

} // namespace rosetag

#endif
