/*
 * From GS1 text to the URI of an EPC: the key is found, its value is cut after the company prefix,
 * and the pieces become the fields of a URI body, with the tail taken from the key's secondary AI.
 *
 * Source: EPC Tag Data Standard, section 7 (correspondence between EPCs and GS1 keys).
 */
#ifndef ROSETAG_BRIDGE_AIS_TO_IDENTITY_H
#define ROSETAG_BRIDGE_AIS_TO_IDENTITY_H

#include "bridge/ai_scan.h"
#include "core/text_buffer.h"
#include "schemes/tag_scheme.h"

#include <string_view>

namespace rosetag {

// What a tag URI needs besides the text.
struct TagUriArguments {
    EpcScheme scheme;
    std::int32_t filter;
    std::int32_t gcpLength;
};

// Converts a whole text to a URI. dst is untouched until the key is found and fits the arguments;
// what was written before a later failure stays.
EpcStatus gs1TextToTagUri(std::string_view text, AiBrackets brackets,
                          const TagUriArguments& arguments, std::int32_t dstSize, char* dst);
EpcStatus gs1TextToPureIdentityUri(std::string_view text, AiBrackets brackets,
                                   std::int32_t gcpLength, std::int32_t dstSize, char* dst);

// The steps that both take.
// EPC_ERR_FILTER_FIELD unless the company prefix has 6 to 12 digits.
EpcStatus gcpLengthCheck(std::int32_t gcpLength);

// Whether the scheme is one for the key and accepts the filter.
EpcStatus gs1KeyCheckScheme(const Gs1KeyDefinition& key, const TagSchemeOps& row,
                            std::int32_t filter);

// Appends the URI body of the key that was found in the text.
EpcStatus aiTextToUriBody(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                          const AiKeyScan& found, TextBuffer& dst);

} // namespace rosetag

#endif
