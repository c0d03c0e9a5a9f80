/*
 * The operations of each tag scheme. An empty slot means that the scheme has no such operation.
 */
#ifndef ROSETAG_SCHEMES_TAG_SCHEME_H
#define ROSETAG_SCHEMES_TAG_SCHEME_H

#include "core/short_value.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "schemes/tag_scheme_info.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace rosetag {

// Which of the two URIs a body is written for: only a tag URI has a filter.
enum class UriForm : std::uint8_t { PURE_IDENTITY, TAG };

struct AiRows;

// What the slots from text to binary need besides the text.
struct EncodeArguments {
    std::int32_t filter;
    std::int32_t gcpLength; // used by the plain schemes only
    std::int32_t encoding;  // used by the plus schemes only
    // Only a text of the key of a numeric scheme, what belongs to it and nothing else is taken:
    // EPC_ERR_NOT_SUPPORTED for any other that a plain scheme would take.
    bool isKeyAlone = false;
};

struct Gs1KeyDefinition;
struct TagSchemeOps;

// The slots of a row. All but those of URI bodies are passed their own row, so that it is looked up
// only once. Binary slots start after the header.
using NumericBitsToUri = bool (*)(BitBuffer& bits, TextBuffer& text, UriForm form);
using NumericTagUriToValue = ValueEnds (*)(std::string_view text);
using BinaryToUriBody = EpcStatus (*)(BitBuffer& bits, TextBuffer& text, UriForm form);
using BinaryToText = EpcStatus (*)(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
using BinaryToAIs = EpcStatus (*)(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows);

// Text slots write from position 0 on, header included, and leave the cursor after what they have
// consumed. The cursor of a URI body starts after the filter, that of a GS1 text at its beginning.
using UriBodyToBinary = EpcStatus (*)(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
using GeneralTextToBinary = EpcStatus (*)(const TagSchemeOps& row, TextCursor& cursor,
                                          BitBuffer& bits, const EncodeArguments& arguments);

// Reads a usual text as a whole, in numeric schemes. {} if the general slot has to.
using NumericTextToValue = ValueEnds (*)(std::string_view text, std::int32_t filter,
                                         std::int32_t gcpLength);

struct TextToBinary {
    GeneralTextToBinary general = nullptr;
    NumericTextToValue numeric = nullptr; // tried first
};

struct TagSchemeOps {
    const TagSchemeInfo& info;
    const Gs1KeyDefinition* key; // of the family, or null if it has none
    // Numeric schemes only; the operations are tried first.
    std::int32_t numericBytes = 0; // of a whole value
    NumericBitsToUri numericBitsToUri = nullptr;
    NumericTagUriToValue numericTagUriToValue = nullptr;
    // All of them.
    BinaryToUriBody binaryToUriBody = nullptr;
    UriBodyToBinary uriBodyToBinary = nullptr;
    BinaryToText binaryToElementString = nullptr;
    BinaryToAIs binaryToAIs = nullptr;
    TextToBinary elementStringToBinary = {};
    BinaryToText binaryToBarcodeString = nullptr;
    TextToBinary barcodeStringToBinary = {};
    BinaryToText binaryToDigitalLink = nullptr;
    TextToBinary digitalLinkToBinary = {};
};

extern const SchemeArray<TagSchemeOps> tagSchemeTable;

// The EpcScheme of each header byte, or -1.
extern const std::array<EpcScheme, 256> tagSchemeByHeader;

// The row with exactly this name, or null.
const TagSchemeOps* tagSchemeFindByName(std::string_view name);

// True if scheme is the index of a row.
inline bool tagSchemeIsKnown(EpcScheme scheme) {
    return scheme >= 0 && scheme < EPC_SCHEME_COUNT;
}

// Reads the header that a buffer begins with and finds its row. EPC_ERR_TRUNCATED below eight bits,
// EPC_ERR_UNKNOWN_HEADER; row is null then.
inline EpcStatus tagSchemeReadHeader(BitBuffer& bits, const TagSchemeOps*& row) {
    row = nullptr;
    if (bits.capacity < TAG_HEADER_BITS) {
        return EPC_ERR_TRUNCATED;
    }
    const EpcScheme scheme = tagSchemeByHeader[bits.bytes[0]];
    if (scheme < 0) {
        return EPC_ERR_UNKNOWN_HEADER;
    }
    bits.position = TAG_HEADER_BITS;
    row = &tagSchemeTable[scheme];
    return EPC_OK;
}

// The number of the scheme with exactly this name; outScheme may be null.
EpcStatus tagSchemeNameToNumber(std::string_view name, EpcScheme* outScheme);

// Copies the name of a scheme. A dst that cannot hold it is untouched.
EpcStatus tagSchemeCopyName(const TagSchemeInfo& info, std::int32_t dstSize, char* dst);

// The name of the scheme of a binary value, copied the same way.
EpcStatus bitsToSchemeName(BitBuffer& bits, std::int32_t dstSize, char* dst);

} // namespace rosetag

#endif
