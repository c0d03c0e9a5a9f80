/*
 * The operations between binary and the GS1 texts that all plus schemes share. They meet in a list
 * of AIs: the parsers and writers of texts are on one side of it, the codec of the bits on the
 * other.
 */
#ifndef ROSETAG_VALUES_PLUS_SLOTS_H
#define ROSETAG_VALUES_PLUS_SLOTS_H

#include "schemes/tag_scheme.h"

namespace rosetag {

EpcStatus plusBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plusBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plusBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plusBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme);
EpcStatus plusElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments);
EpcStatus plusBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments);
EpcStatus plusDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments);

} // namespace rosetag

#endif
