/*
 * From GS1 text to the URI of an EPC. The text is walked AI by AI, the key is found, its value is
 * cut behind the company prefix, and the pieces go out as a URI body, with the tail fetched from
 * the key's secondary AI.
 *
 * The walk is a light one: of an AI it knows what the two leading digits tell. No check digit is
 * verified, no value is held against its AI's syntax, and every AI beside the key and its secondary
 * AI is stepped over. No character behind the end of the text is ever read.
 *
 * Source: EPC Tag Data Standard, section 7 (correspondence between EPCs and GS1 keys).
 */
#ifndef ROSETAG_BRIDGE_AIS_TO_IDENTITY_H
#define ROSETAG_BRIDGE_AIS_TO_IDENTITY_H

#include "bridge/gs1_key_table.h"
#include "core/text_buffer.h"

#include <string_view>

namespace rosetag {

// The characters around an AI code: both of a bracketed element string, or both 0 in the bare run
// of AIs of a barcode string.
struct AiBrackets {
    char open;
    char close;
};

inline constexpr AiBrackets AI_BRACKETED = {'(', ')'};
inline constexpr AiBrackets AI_BARE = {0, 0};

// Where the parts of an element stand in the text; none lies behind its end.
struct AiScan {
    std::uint32_t codeEnd;  // behind the code
    std::uint32_t valueEnd; // behind the value
    std::uint32_t next;     // where the next element starts
};

struct AiKeyScan {
    const Gs1KeyDefinition* key;
    std::uint32_t codeEnd;
    std::uint32_t valueEnd;
};

// Steps over the element whose code begins at position.
EpcStatus aiScanElement(std::string_view text, std::uint32_t position, AiBrackets brackets,
                        AiScan& scan);

// Walks the whole text and finds the one key in it.
EpcStatus aiScanForKey(std::string_view text, AiBrackets brackets, AiKeyScan& found);

// Finds the first element with exactly this code.
EpcStatus aiScanFind(std::string_view text, std::string_view code, AiBrackets brackets,
                     AiScan& found);

// Appends the URI body of the key that was found in the text.
EpcStatus aiTextToUriBody(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                          const AiKeyScan& found, TextBuffer& dst);

// What a tag URI is made of beside the text.
struct TagUriArguments {
    EpcScheme scheme;
    std::int32_t filter;
    std::int32_t gcpLength;
};

// Tests the length of the company prefix and finds the key.
EpcStatus aiTextFindKey(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                        AiKeyScan& found);

// The same, and tests whether the arguments go with the key.
EpcStatus aiTextFindKeyOfScheme(std::string_view text, AiBrackets brackets,
                                const TagUriArguments& arguments, AiKeyScan& found);

// Characters of the tag URI before its body, of arguments that have passed that test.
std::int32_t tagUriHeadLength(const TagUriArguments& arguments);

} // namespace rosetag

#endif
