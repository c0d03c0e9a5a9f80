/*
 * The operations between binary and the GS1 texts that all plus schemes share. A list of AIs joins
 * their halves: the parsers and writers of texts on one side, the codec of the bits on the other.
 */
#ifndef ROSETAG_VALUES_PLUS_SLOTS_H
#define ROSETAG_VALUES_PLUS_SLOTS_H

#include "schemes/tag_scheme.h"

namespace rosetag {

EpcStatus plusBinaryToElementString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plusBinaryToBarcodeString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plusBinaryToDigitalLink(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plusBinaryToAIs(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows);
EpcStatus plusElementStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments);
EpcStatus plusBarcodeStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments);
EpcStatus plusDigitalLinkToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments);

} // namespace rosetag

#endif
