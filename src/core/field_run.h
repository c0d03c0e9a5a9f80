/*
 * A run of fields of one width, one per character: how characters are written in the bits. Many
 * fields are moved at a time; after a failure the output is what it would be had they been moved
 * one by one.
 */
#ifndef ROSETAG_CORE_FIELD_RUN_H
#define ROSETAG_CORE_FIELD_RUN_H

#include "core/bit_buffer.h"

#include <algorithm>
#include <cstdint>

namespace rosetag {

// The most fields of a width that the bit buffer takes in one load and store.
template <std::int32_t fieldBits>
inline constexpr std::int32_t FIELDS_AT_ONCE = 56 / fieldBits;

// Writes count fields, each as next gives it. If next fails, the fields before are written.
// next: EpcStatus(std::uint64_t& field)
template <std::int32_t fieldBits, typename Next>
EpcStatus fieldRunPut(BitBuffer& out, std::int32_t count, Next next) {
    const std::int32_t fitting = std::min(count, bitBufferLeft(out) / fieldBits);
    std::uint64_t field = 0;
    for (std::int32_t done = 0; done < fitting;) {
        const std::int32_t last = std::min(fitting, done + FIELDS_AT_ONCE<fieldBits>);
        std::uint64_t fields = 0;
        std::int32_t gatheredBits = 0;
        EpcStatus status = EPC_OK;
        for (; done < last && (status = next(field)) == EPC_OK; ++done) {
            fields = fields << fieldBits | field;
            gatheredBits += fieldBits;
        }
        EPC_TRY(bitBufferWrite(out, fields, gatheredBits));
        EPC_TRY(status);
    }
    if (fitting == count) {
        return EPC_OK;
    }
    EPC_TRY(next(field)); // a bad character counts before a lack of room
    return EPC_ERR_NO_ROOM;
}

// Reads count fields and hands each to take.
// take: EpcStatus(std::uint32_t field)
template <std::int32_t fieldBits, typename Take>
EpcStatus fieldRunGet(BitBuffer& bits, std::int32_t count, Take take) {
    constexpr std::uint64_t mask = (std::uint64_t{1} << fieldBits) - 1;
    const std::int32_t fitting = std::min(count, bitBufferLeft(bits) / fieldBits);
    for (std::int32_t done = 0; done < fitting;) {
        const std::int32_t batch = std::min(fitting - done, FIELDS_AT_ONCE<fieldBits>);
        std::uint64_t fields = 0;
        EPC_TRY(bitBufferRead(bits, batch * fieldBits, fields));
        for (std::int32_t shift = batch * fieldBits; shift > 0;) {
            shift -= fieldBits;
            EPC_TRY(take(static_cast<std::uint32_t>(fields >> shift & mask)));
        }
        done += batch;
    }
    return fitting == count ? EPC_OK : EPC_ERR_TRUNCATED;
}

} // namespace rosetag

#endif
