/*
 * Decodes the TID memory bank of a Gen2 tag: allocation class 0xE2 with its extended part, the
 * XTID.
 *
 * Source: EPC Tag Data Standard, section 16 (tag identification memory bank contents).
 */
#ifndef ROSETAG_TID_TID_DECODE_H
#define ROSETAG_TID_TID_DECODE_H

#include "core/bit_buffer.h"

namespace rosetag {

// Reads one half of the BlockWrite and BlockErase segment.
EpcStatus tidReadBlockWord(BitBuffer& buffer, TidBlockInfo& info);

// Clears the record and fills it, up to the first field that fails. The bank begins at a byte.
EpcStatus tidDecode(BitBuffer& buffer, TidRecord& record);

} // namespace rosetag

#endif
