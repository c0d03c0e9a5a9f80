#include "tid/tid_outputs.h"

#include "tid/tid_decode.h"

#include <algorithm>

namespace rosetag {

namespace {

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

EpcStatus putComponents(const TidRecord& record, const TidOutputs& outputs) {
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

void putXtid(const TidRecord& record, const TidOutputs& outputs) {
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

} // namespace

EpcStatus bitsToTidRecord(BitBuffer& bits, TidRecord* record) {
    return record != nullptr ? tidDecode(bits, *record) : EPC_ERR_NO_ROOM;
}

EpcStatus bitsToTidOutputs(BitBuffer& bits, const TidOutputs& outputs) {
    TidRecord record;
    EPC_TRY(tidDecode(bits, record));
    EPC_TRY(putComponents(record, outputs));
    putXtid(record, outputs);
    return EPC_OK;
}

} // namespace rosetag
