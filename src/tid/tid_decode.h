/*
 * Decodes the TID memory bank of a Gen2 tag by the table of its layout.
 */
#ifndef ROSETAG_TID_TID_DECODE_H
#define ROSETAG_TID_TID_DECODE_H

#include "core/bit_buffer.h"

namespace rosetag {

// Clears the record and fills it up to the first word that fails. The bank begins at a byte.
EpcStatus tidDecode(BitBuffer& bits, TidRecord& record);

} // namespace rosetag

#endif
