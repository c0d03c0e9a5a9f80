/*
 * A light walk over the AIs of a GS1 text that goes by the two leading digits of each AI alone. It
 * verifies no check digit, compares no value with the syntax of its AI, and skips every AI but the
 * one it looks for. It reads no character after the end of the text.
 */
#ifndef ROSETAG_BRIDGE_AI_SCAN_H
#define ROSETAG_BRIDGE_AI_SCAN_H

#include "bridge/gs1_key_table.h"
#include "core/status.h"

#include <cstdint>
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

// Where the parts of an element are in the text, none of them past its end.
struct AiScan {
    std::string_view code; // may be cut off by the end of the text
    std::uint32_t codeEnd; // after the code
    std::uint32_t valueEnd;
    std::uint32_t next; // where the next element starts
};

struct AiKeyScan {
    const Gs1KeyDefinition* key;
    std::uint32_t codeEnd;
    std::uint32_t valueEnd;
};

// Skips the element at position, which is before the end of the text.
EpcStatus aiScanElement(std::string_view text, AiBrackets brackets, std::uint32_t position,
                        AiScan& scan);

// Walks the whole text and finds the one key in it.
EpcStatus aiScanForKey(std::string_view text, AiBrackets brackets, AiKeyScan& found);

// Finds the first element with exactly this code.
EpcStatus aiScanFind(std::string_view text, AiBrackets brackets, std::string_view code,
                     AiScan& found);

// Where the value starts, given where its code ends.
inline std::uint32_t aiValueStart(std::uint32_t codeEnd, AiBrackets brackets) {
    return codeEnd + (brackets.close != 0 ? 1 : 0);
}

} // namespace rosetag

#endif
