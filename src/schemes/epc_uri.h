/*
 * Reads EPC URIs into binary: all but the body, which each scheme reads in its own way.
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

// Reads the body of either URI, which is the rest of the text, and writes the whole value, padded
// to a word, into bits at position 0. Text after the body is detected last.
EpcStatus epcUriBodyToBits(TextCursor& cursor, std::uint32_t filter, const TagSchemeOps& row,
                           BitBuffer& bits);

// Read a whole URI and write the value, padded to a word. A negative filter is passed on as an
// unsigned number.
EpcStatus tagUriToBits(TextCursor& cursor, BitBuffer& bits);
EpcStatus pureIdentityUriToBits(TextCursor& cursor, EpcScheme scheme, std::int32_t filter,
                                BitBuffer& bits);

// The head of a tag URI up to its body, in two steps: not all readers do the same between them.
// Reads prefix and scheme word and finds the row of the word; leaves the cursor at the ":".
EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row);

// Reads ":" and, if the scheme has one, the filter and its ".".
EpcStatus tagUriReadFilter(TextCursor& cursor, const TagSchemeInfo& info, std::uint32_t& filter);

} // namespace rosetag

#endif
