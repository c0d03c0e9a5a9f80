/*
 * The slots between binary and the GS1 texts that all plain schemes with a GS1 key share. Each is a
 * chain through a URI in a local text: binary to text through a pure identity URI, text to binary
 * through a tag URI.
 */
#ifndef ROSETAG_BRIDGE_PLAIN_SLOTS_H
#define ROSETAG_BRIDGE_PLAIN_SLOTS_H

#include "schemes/tag_scheme.h"

namespace rosetag {

EpcStatus plainBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plainBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plainBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme);
EpcStatus plainBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme);
EpcStatus plainElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments);
EpcStatus plainBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments);
EpcStatus plainDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                   const EncodeArguments& arguments);

} // namespace rosetag

#endif
