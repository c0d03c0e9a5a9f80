/*
 * EPC URIs to and from binary: the part around the body, which is the scheme's own.
 *
 * Source: EPC Tag Data Standard, sections 6 (pure identity) and 12 (tag URI).
 */
#ifndef ROSETAG_SCHEMES_EPC_URI_H
#define ROSETAG_SCHEMES_EPC_URI_H

#include "schemes/tag_scheme.h"

namespace rosetag {

inline constexpr std::string_view TAG_URI_PREFIX = "urn:epc:tag:";
inline constexpr std::string_view PURE_IDENTITY_URI_PREFIX = "urn:epc:id:";

// A scheme word has at most 255 characters.
constexpr std::int32_t SCHEME_WORD_SIZE = 256;

// Reads the body of either URI, which is all that is left of the text, and writes the whole value,
// padded to a word, into bits at position 0. Text left over is found last.
EpcStatus epcUriBodyToBits(TextCursor& cursor, std::uint32_t filter, const TagSchemeOps& row,
                           BitBuffer& bits);

// Read a whole URI and write the value, padded to a word. A negative filter goes on as an unsigned
// number.
EpcStatus tagUriToBits(TextCursor& cursor, BitBuffer& bits);
EpcStatus pureIdentityUriToBits(TextCursor& cursor, EpcScheme scheme, std::int32_t filter,
                                BitBuffer& bits);

// The head of a tag URI up to its body, in the two steps between which its readers differ.
// Prefix and scheme word, with the row of the word. The cursor stands on the ":" then.
EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row);

// ":" and, where the scheme has one, the filter and its ".".
EpcStatus tagUriReadFilter(TextCursor& cursor, const TagSchemeInfo& info, std::uint32_t& filter);

} // namespace rosetag

#endif
