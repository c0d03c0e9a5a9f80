/*
 * Tag values as readers deliver most of them: the hexadecimal digits of a scheme whose values have
 * one length, all of them and nothing else. One look shows that they are hex with nothing to note;
 * whatever is unusual is not plain.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_PLAIN_TAG_H
#define ROSETAG_TOOLKIT_RECOGNISE_PLAIN_TAG_H

#include <rosetag/toolkit.hpp>

#include <array>

namespace rosetag {

// A tag value in bytes.
struct TagBits {
    std::array<std::uint8_t, EPC_MAX_BINARY_BYTES> bytes;
    std::int32_t count; // of bits
};

// True if the value is plain: if it can be read at all, it is hex without a note.
bool plainTagRead(std::string_view value, const ReadOptions& options, TagBits& tag);

} // namespace rosetag

#endif
