/*
 * From a prepared value to its forms.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TRANSLATE_H
#define ROSETAG_TOOLKIT_TRANSLATE_TRANSLATE_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "recognise/plain_tag.h"
#include "recognise/reading.h"

namespace rosetag {

// Clears a result but keeps its memory.
void translationClear(Translation& result, FormSet asked);

// Takes out what was only made on the way to something else.
void dropUnasked(FormSet asked, Translation& result);

// Finds out what is wrong with the AIs of a value that was read, which the result has. If reading
// is strict an error among it is a failure.
void findOut(Reading& reading, Translation& result);

// The same as encode, with room for the translation of a tag value that keeps its memory.
void encode(std::string_view value, const EncodeOptions& options, FormSet wanted,
            Translation& result, Translation* room);

// Sets text to all digits of hex, in upper case.
void hexInUpperCase(std::string_view hex, std::string& text);

// Fills length, scheme and filter. Bits without a header have no scheme.
void describeTag(const TagBits& tag, Translation& result);

// Fills the forms of a tag value, its scheme, filter and length. On failure they are as far as it
// could be read.
EpcStatus formsOfHex(std::string_view hex, FormSet wanted, Translation& result);

// Where bits come from: from a value, or from the library, which has just encoded them.
enum class TagOrigin : std::uint8_t { GIVEN, ENCODED };

// The same of bits, without their hex.
EpcStatus formsOfTag(const TagBits& tag, FormSet wanted, TagOrigin origin, Translation& result);

// The same of bits that were encoded, which are whole words.
EpcStatus formsOfEncoded(const TagBits& tag, FormSet wanted, Translation& result);

// Runs work on an empty buffer over the bits of a tag.
// work: EpcStatus(BitBuffer& bits)
template <typename Work>
EpcStatus tagBitsWrite(TagBits& tag, Work work) {
    BitBuffer bits = bitBufferForWriting(tag.bytes.data(), EPC_MAX_BINARY_BYTES);
    const EpcStatus status = work(bits);
    tag.count = bits.position;
    return status;
}

// True if the fields of a scheme are numbers: what was encoded for it can be read.
bool isNumericScheme(const SchemeInfo& scheme);

// EPC_OK if a tag value can be read, whatever forms it has.
EpcStatus readTagBits(const BitBuffer& bits);

// Writes the GTIN or the serial number of a tag value into an empty text of at least
// EPC_AI_VALUE_SIZE. It may stand anywhere there: text becomes no more than it.
// EPC_ERR_NOT_SUPPORTED if it has none.
EpcStatus numberOfBits(BitBuffer& bits, Form number, TextBuffer& text);

// The same for its AIs, as appendAis gives them.
EpcStatus aisOfBits(BitBuffer& bits, TextBuffer& text);

// The same for the value of an AI, which is empty if the tag value does not have it.
// EPC_ERR_NOT_SUPPORTED if the scheme is not one of numbers.
EpcStatus aiOfNumericBits(BitBuffer& bits, std::string_view code, TextBuffer& text);

// How many bits of a tag value its scheme takes, or 0 if it cannot be read.
std::size_t tagValueBits(std::string_view hex);

enum class HowMany : std::uint8_t { ALL, ONE };

// The schemes that can hold an identity, or one of them. Their status is that of the roomiest,
// EPC_OK if there is one.
EpcStatus schemesThatFit(const std::string& pureIdentity, HowMany howMany,
                         Rows<const SchemeInfo*>& fits);

} // namespace rosetag

#endif
