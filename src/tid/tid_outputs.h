/*
 * A TID into the storage of a caller: as a record, or part by part.
 */
#ifndef ROSETAG_TID_TID_OUTPUTS_H
#define ROSETAG_TID_TID_OUTPUTS_H

#include "core/bit_buffer.h"

namespace rosetag {

// Where the parts of a record go. A null is an output that the caller does not want; serial may not
// be null.
struct TidOutputs {
    std::uint16_t* mdid;
    std::uint16_t* tmid;
    std::uint8_t* serialBits;
    std::uint32_t serialSize;
    char* serial;
    std::uint8_t* maxEpcSize = nullptr;
    std::uint8_t* optionalCommands = nullptr; // 9 bytes
    std::uint8_t* blockWrite = nullptr;       // 6 bytes
    std::uint8_t* blockErase = nullptr;       // 6 bytes
    std::uint16_t* userMemorySize = nullptr;
    std::uint16_t* blockPermaLockBlockSize = nullptr;
};

// EPC_ERR_NO_ROOM without a record.
EpcStatus bitsToTidRecord(BitBuffer& bits, TidRecord* record);

// The numbers up to serialBits are written before serial is known to have room, the others after.
EpcStatus bitsToTidOutputs(BitBuffer& bits, const TidOutputs& outputs);

} // namespace rosetag

#endif
