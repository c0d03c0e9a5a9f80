/*
 * EPC URIs to and from binary: everything around the body, which each scheme reads and writes
 * itself.
 *
 * Source: EPC Tag Data Standard, sections 6 (pure identity) and 12 (tag URI).
 */
#ifndef ROSETAG_SCHEMES_EPC_URI_H
#define ROSETAG_SCHEMES_EPC_URI_H

#include "schemes/scheme_word.h"
#include "schemes/tag_scheme.h"

namespace rosetag {

inline constexpr std::string_view TAG_URI_PREFIX = "urn:epc:tag:";
inline constexpr std::string_view PURE_IDENTITY_URI_PREFIX = "urn:epc:id:";

// A scheme word has at most 255 characters.
constexpr std::int32_t SCHEME_WORD_SIZE = 256;

// A whole binary value to either URI. What was written before a failure stays in dst.
EpcStatus bitsPutEpcUri(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus bitsToEpcUri(BitBuffer& bits, std::int32_t dstSize, char* dst, UriForm form);

// A whole URI to a binary value, padded to a word. A negative filter becomes a large unsigned one.
EpcStatus tagUriToBits(BitBuffer& bits, std::string_view text);
EpcStatus pureIdentityUriToBits(BitBuffer& bits, std::string_view text, EpcScheme scheme,
                                std::int32_t filter);

// Reads the body of either URI, which is the rest of the text, and writes the whole value from
// position 0 on, padded to a word. Text that is left over is reported last.
EpcStatus epcUriBodyToBits(TextCursor& cursor, std::uint32_t filter, const TagSchemeOps& row,
                           BitBuffer& bits);

// The head of a tag URI in two steps, since its readers differ between them: the prefix and the
// scheme word, which leaves the cursor at the ":"; then the ":" and, if the scheme has one, the
// filter and its ".".
EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row);
EpcStatus tagUriReadFilter(TextCursor& cursor, const TagSchemeInfo& info, std::uint32_t& filter);

// What tagUriToBits does field by field.
EpcStatus tagUriToBitsByFields(BitBuffer& bits, std::string_view text);

// A usual tag URI of a numeric scheme.
ROSETAG_INLINE ShortValue tagUriToShortValue(std::string_view text) {
    constexpr std::size_t prefixSize = TAG_URI_PREFIX.size();
    if (text.size() >= prefixSize + SCAN_WIDTH) {
        const EpcScheme scheme = schemeGuess(loadCharacters(text.data() + prefixSize));
        const TagSchemeOps& row = tagSchemeTable[scheme];
        if (row.numericTagUriToValue != nullptr) {
            return {row.numericTagUriToValue(text), row.numericBytes};
        }
    }
    return {};
}

inline EpcStatus tagUriToBits(BitBuffer& bits, std::string_view text) {
    return shortValueToBits(tagUriToShortValue(text), bits) ? EPC_OK
                                                            : tagUriToBitsByFields(bits, text);
}

} // namespace rosetag

#endif
