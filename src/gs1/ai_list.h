/*
 * The list of AIs that every GS1 text is read into and written from, and the one parser of the
 * three text syntaxes. A list copies no value: an element is a slice of a base text that the caller
 * keeps.
 */
#ifndef ROSETAG_GS1_AI_LIST_H
#define ROSETAG_GS1_AI_LIST_H

#include "core/text_cursor.h"
#include "gs1/ai_catalogue.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::uint8_t MAX_AI_ELEMENTS = EPC_MAX_AIS;

// Room for the values of a list that becomes a GS1 text, all together, and a NUL.
constexpr std::int32_t AI_VALUES_SIZE = 1024;
static_assert(AI_VALUES_SIZE + MAX_AI_ELEMENTS * (AI_CODE_SIZE - 1 + 2) == EPC_ELEMENT_STRING_SIZE,
              "the values, and a code in brackets for each");

// The order in which the writers of element strings and barcode strings take the elements.
enum AiPass : std::uint8_t { KEY_PASS, DATE_PASS, DATA_PASS };

struct AiElement {
    const AiDefinition* ai;
    std::uint32_t valueOffset; // from the first character of the base text
    std::uint32_t valueLength; // of all components together
    AiPass pass;
    bool isConsumed; // a writer has taken it
};

// Elements from count on are not set. aiListClear makes a list empty.
struct AiList {
    AiElement elements[MAX_AI_ELEMENTS];
    std::uint8_t count;
};

inline void aiListClear(AiList& list) {
    list.count = 0;
}

// The punctuation of a GS1 text. A start or code delimiter of 0 means none.
struct AiSyntax {
    char startDelimiter; // before an AI code
    char codeDelimiter;  // between AI code and value
    char stopDelimiter;  // after a value of variable length
    bool percentDecoding;
};

// Character 29, GS, which ends a value of variable length in a barcode string.
constexpr char GROUP_SEPARATOR = 29;

inline constexpr AiSyntax ELEMENT_STRING_SYNTAX = {'(', ')', '(', false};
inline constexpr AiSyntax BARCODE_STRING_SYNTAX = {0, 0, GROUP_SEPARATOR, false};

// Appends one element. EPC_ERR_TOO_MANY_AIS, with nothing changed, if the list is full.
EpcStatus aiListAdd(AiList& list, const AiDefinition& ai, std::uint32_t valueOffset,
                    std::uint32_t valueLength, AiPass pass);

// Appends all elements of the text from the cursor to its end. offsetBase is added to every offset,
// for a cursor whose span begins after the start of the base text.
EpcStatus aiTextParse(AiList& list, TextCursor& cursor, const AiSyntax& syntax,
                      std::uint32_t offsetBase);

// The value of an element within its base text.
inline std::string_view aiElementValue(const AiElement& element, const char* baseText) {
    return {baseText + element.valueOffset, element.valueLength};
}

// Where the exports ending in ToAIs put their rows.
struct AiRows {
    std::int32_t maxAIs;     // rows of both arrays; below 0 sets no limit
    std::uint32_t valueSize; // characters of a row of aiValues
    char* aiCodes;           // rows of AI_CODE_SIZE characters
    char* aiValues;
    std::uint32_t* aiCount;
};

// Copies the list into the caller's rows. EPC_ERR_TOO_MANY_AIS if the arrays have too few rows,
// EPC_ERR_NO_ROOM at a value that its row cannot hold; the rows before it stay.
EpcStatus aiListCopyOut(const AiList& list, const char* baseText, const AiRows& rows);

} // namespace rosetag

#endif
