/*
 * Between binary and the GS1 texts: the header or the caller names the scheme, and the slot of its
 * row does the rest.
 */
#ifndef ROSETAG_BRIDGE_GS1_CONVERSIONS_H
#define ROSETAG_BRIDGE_GS1_CONVERSIONS_H

#include "schemes/tag_scheme.h"

#include <string_view>

namespace rosetag {

// A binary value to the text of the slot. What was written before a failure stays there.
EpcStatus bitsPutGs1Text(BitBuffer& bits, TextBuffer& text, BinaryToText TagSchemeOps::*slot);
EpcStatus bitsToGs1Text(BitBuffer& bits, std::int32_t dstSize, char* dst,
                        BinaryToText TagSchemeOps::*slot);

EpcStatus bitsToAIs(BitBuffer& bits, const AiRows& rows);

// The text of the slot to a binary value, padded to a word.
EpcStatus gs1TextToBits(BitBuffer& bits, TextToBinary TagSchemeOps::*slot, std::string_view text,
                        EpcScheme scheme, const EncodeArguments& arguments);

} // namespace rosetag

#endif
