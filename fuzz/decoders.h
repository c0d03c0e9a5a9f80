/*
 * A binary value into all exports of a kind that read one.
 *
 * Input: a byte for the size of the outputs, one for the bits that the last byte lacks, the value.
 */
#ifndef ROSETAG_FUZZ_DECODERS_H
#define ROSETAG_FUZZ_DECODERS_H

#include "fuzz.h"

#include "support/bits.h"

#include <algorithm>

inline void callDecoders(FuzzInput input, bool (*isWanted)(const Export& row)) {
    const std::int32_t size = input.size(8000);
    const std::int32_t missingBits = input.number() & 7;
    Arguments arguments;
    arguments.binary = input.rest();
    arguments.bits = static_cast<std::int32_t>(arguments.binary.size()) * 8 - missingBits;
    arguments.text = hexFromBytes(arguments.binary);
    for (const Export& row : allExports) {
        if (row.input == Input::TEXT || row.input == Input::SCHEME || !isWanted(row)) {
            continue;
        }
        checkedCall(row, arguments, roomOf(row, size));
    }
}

#endif
