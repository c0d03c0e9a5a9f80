/*
 * What the exports that write and read the bits of values give.
 */
#ifndef ROSETAG_TESTS_VALUES_VALUE_BITS_H
#define ROSETAG_TESTS_VALUES_VALUE_BITS_H

#include "rosetag/rosetag.h"
#include "support/bits.h"
#include "support/bits_notation.h"
#include "support/text_result.h"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

// What is left in a room of so many bits when the next field did not fit.
inline std::string wholeFieldsOf(const std::string& pattern, std::size_t room) {
    std::string bits;
    for (const std::string& field : fieldsOf(pattern)) {
        if (bits.size() + field.size() > room) {
            break;
        }
        bits += field;
    }
    return bits;
}

// What an export that writes binary has given. Of a failure the bits end in the last 1, since all
// after it is cleared; before the call the storage was not.
struct BitsResult {
    BitsResult(EpcStatus ended, std::string left) : status(ended), bits(std::move(left)) {
        if (status != EPC_OK && bits != "untouched") {
            bits.erase(bits.find_last_not_of('0') + 1);
        }
    }

    EpcStatus status;
    std::string bits;

    bool operator==(const BitsResult&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const BitsResult& result) {
    return out << epc_statusName(result.status) << " with " << result.bits;
}

// work: EpcStatus(std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outCount)
// outCount comes in units of bitsPerUnit.
template <typename Work>
BitsResult bitsResult(std::int32_t maxBytes, std::int32_t bitsPerUnit, Work work) {
    constexpr std::int32_t untouched = 4711;
    std::vector<std::uint8_t> out(static_cast<std::size_t>(maxBytes) + 1, 0xA5);
    std::int32_t outCount = untouched;
    const EpcStatus status = work(maxBytes, out.data(), &outCount);
    if (out.back() != 0xA5 || (status != EPC_OK && outCount != untouched)) {
        return {status, "written beyond its end, or counted on failure"};
    }
    out.pop_back();
    if (std::all_of(out.begin(), out.end(), [](std::uint8_t byte) { return byte == 0xA5; })) {
        return {status, "untouched"};
    }
    std::string bits = bitsFromBytes(out);
    if (status == EPC_OK) {
        const auto count = static_cast<std::size_t>(outCount * bitsPerUnit);
        const bool isClear = bits.find('1', count) == std::string::npos;
        bits = isClear ? bits.substr(0, count) : "not cleared after its end";
    }
    return {status, bits};
}

inline BitsResult encodeValue(const std::string& ai, const std::string& value,
                              std::int32_t encoding = AI_ENC_AUTO, std::int32_t withCode = 0,
                              std::int32_t maxBytes = 120) {
    return bitsResult(maxBytes, 1,
                      [&](std::int32_t size, std::uint8_t* out, std::int32_t* outBits) {
                          return epc_AIToBinaryEnc(ai.c_str(), value.c_str(), withCode, encoding,
                                                   size, out, outBits);
                      });
}

inline TextResult decodeValue(const std::string& ai, const std::string& bits,
                              std::int32_t dstSize = 400) {
    const std::vector<std::uint8_t> bytes = bytesFromBits(bits);
    return textResult(
        [&](std::int32_t size, char* dst) {
            return epc_binaryValueToAI(static_cast<std::int32_t>(bits.size()), bytes.data(),
                                       ai.c_str(), size, dst);
        },
        dstSize);
}

#endif
