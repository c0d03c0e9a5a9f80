#include "core/frames.h"
#include "tid/tid_decode.h"

#include <algorithm>

namespace rosetag {
namespace {

// Where a record's parts go. Of all but serial a null is an output that the caller does not want.
struct PartOutputs {
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

template <typename Number>
void put(Number* out, Number value) {
    if (out != nullptr) {
        *out = value;
    }
}

template <std::size_t count>
void putBytes(std::uint8_t* out, const std::uint8_t (&values)[count]) {
    if (out != nullptr) {
        std::copy_n(values, count, out);
    }
}

void putBlockInfo(std::uint8_t* out, const TidBlockInfo& info) {
    putBytes(out, {info.maxBlockSize, info.variableSize, info.epcAddressOffset, info.noEpcAlignment,
                   info.userAddressOffset, info.noUserAlignment});
}

EpcStatus putComponents(const TidRecord& record, const PartOutputs& outputs) {
    put(outputs.mdid, record.mdid);
    put(outputs.tmid, record.tmid);
    put(outputs.serialBits, record.serialBits);
    const std::uint32_t digits = record.serialBits / 4U;
    if (outputs.serialSize <= digits) {
        return EPC_ERR_NO_ROOM;
    }
    std::copy_n(record.serial, digits + 1, outputs.serial);
    return EPC_OK;
}

void putXtid(const TidRecord& record, const PartOutputs& outputs) {
    put(outputs.maxEpcSize, record.maxEpcSize);
    putBytes(outputs.optionalCommands,
             {record.hasOptionalCommands, record.recomSupport, record.accessSupport,
              record.separateLockbits, record.autoUmiSupport, record.pjmSupport,
              record.blockWriteSupported, record.blockEraseSupported,
              record.blockPermaLockSupported});
    putBlockInfo(outputs.blockWrite, record.blockWrite);
    putBlockInfo(outputs.blockErase, record.blockErase);
    put(outputs.userMemorySize, record.userMemorySize);
    put(outputs.blockPermaLockBlockSize, record.blockPermaLockBlockSize);
}

EpcStatus decodeRecord(std::int32_t bits, const std::uint8_t* binary, TidRecord* record) {
    if (record == nullptr) {
        return EPC_ERR_NO_ROOM;
    }
    BitBuffer buffer = bitBufferForReading(binary, bits);
    return tidDecode(buffer, *record);
}

EpcStatus decodeParts(std::int32_t bits, const std::uint8_t* binary, const PartOutputs& outputs) {
    TidRecord record;
    EPC_TRY(decodeRecord(bits, binary, &record));
    EPC_TRY(putComponents(record, outputs));
    putXtid(record, outputs);
    return EPC_OK;
}

EpcStatus decodeWordParts(std::int32_t bits, const std::uint16_t* words,
                          const PartOutputs& outputs) {
    return wordInputFrame(bits, words, [&](std::int32_t bitCount, const std::uint8_t* binary) {
        return decodeParts(bitCount, binary, outputs);
    });
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus tid_binaryDecode(int32_t bits, const uint8_t* binary, TidRecord* record) {
    return decodeRecord(bits, binary, record);
}

EpcStatus tid_wordsDecode(int32_t bits, const uint16_t* words, TidRecord* record) {
    return wordInputFrame(bits, words, [&](std::int32_t bitCount, const std::uint8_t* binary) {
        return decodeRecord(bitCount, binary, record);
    });
}

EpcStatus tid_binaryToComponents(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                 uint16_t* tmid, uint8_t* serialBits, uint32_t serialSize,
                                 char* serial) {
    return decodeParts(bits, binary, {mdid, tmid, serialBits, serialSize, serial});
}

EpcStatus tid_wordsToComponents(int32_t bits, const uint16_t* words, uint16_t* mdid, uint16_t* tmid,
                                uint8_t* serialBits, uint32_t serialSize, char* serial) {
    return decodeWordParts(bits, words, {mdid, tmid, serialBits, serialSize, serial});
}

EpcStatus tid_binaryToXtid(int32_t bits, const uint8_t* binary, uint16_t* mdid, uint16_t* tmid,
                           uint8_t* serialBits, uint32_t serialSize, char* serial,
                           uint8_t* maxEpcSize, uint8_t* optionalCommands, uint8_t* blockWrite,
                           uint8_t* blockErase, uint16_t* userMemorySize,
                           uint16_t* blockPermaLockBlockSize) {
    return decodeParts(bits, binary,
                       {mdid, tmid, serialBits, serialSize, serial, maxEpcSize, optionalCommands,
                        blockWrite, blockErase, userMemorySize, blockPermaLockBlockSize});
}

EpcStatus tid_wordsToXtid(int32_t bits, const uint16_t* words, uint16_t* mdid, uint16_t* tmid,
                          uint8_t* serialBits, uint32_t serialSize, char* serial,
                          uint8_t* maxEpcSize, uint8_t* optionalCommands, uint8_t* blockWrite,
                          uint8_t* blockErase, uint16_t* userMemorySize,
                          uint16_t* blockPermaLockBlockSize) {
    return decodeWordParts(bits, words,
                           {mdid, tmid, serialBits, serialSize, serial, maxEpcSize,
                            optionalCommands, blockWrite, blockErase, userMemorySize,
                            blockPermaLockBlockSize});
}
