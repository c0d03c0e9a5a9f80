/*
 * Tag values as readers deliver most of them: the hexadecimal digits, or the bytes, of a scheme
 * whose values have one length, all of them and nothing else. Whatever is unusual is not plain.
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

// False where hexadecimal digits may be something else than the bits of a tag from the EPC on.
inline bool mayBePlainTags(const ReadOptions& options) {
    return !options.asBarcode && options.separator == '\0' && options.bank <= Bank::EPC;
}

// Reads the digits, or the bytes, of a value that may be plain. False if it is not.
bool plainTagOfHex(std::string_view digits, TagBits& tag);
bool plainTagOfBytes(std::string_view bytes, TagBits& tag);

// True if there is nothing to note about a plain value: none of it could be words before the EPC.
bool plainTagIsClear(const TagBits& tag, const ReadOptions& options);

// All of it, for hex: if the value can be read at all, it is a tag value without a note.
inline bool plainTagRead(std::string_view value, const ReadOptions& options, TagBits& tag) {
    return mayBePlainTags(options) && plainTagOfHex(value, tag) && plainTagIsClear(tag, options);
}

} // namespace rosetag

#endif
