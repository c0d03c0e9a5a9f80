/*
 * The slots between binary and the GS1 texts that all plain schemes with a GS1 key share. Each is a
 * chain through a URI in a local text: binary to text through a pure identity URI, text to binary
 * through a tag URI.
 */
#ifndef ROSETAG_BRIDGE_PLAIN_SLOTS_H
#define ROSETAG_BRIDGE_PLAIN_SLOTS_H

#include "schemes/tag_scheme.h"

namespace rosetag {

EpcStatus plainBinaryToElementString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plainBinaryToBarcodeString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plainBinaryToDigitalLink(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text);
EpcStatus plainBinaryToAIs(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows);
EpcStatus plainElementStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments);
EpcStatus plainBarcodeStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments);
EpcStatus plainDigitalLinkToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                   const EncodeArguments& arguments);

} // namespace rosetag

#endif
