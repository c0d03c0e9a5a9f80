/*
 * The list of AIs that every GS1 text is read into and written from, and the one parser of the
 * three text syntaxes. A list copies no value: an element is a slice of a base text that the caller
 * keeps.
 */
#ifndef ROSETAG_GS1_AI_LIST_H
#define ROSETAG_GS1_AI_LIST_H

#include "core/text_cursor.h"
#include "gs1/ai_catalogue.h"
#include "schemes/tag_scheme.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::uint8_t MAX_AI_ELEMENTS = 20;

struct AiElement {
    char code[AI_CODE_SIZE];
    std::uint32_t valueOffset; // from the first character of the base text
    std::uint32_t valueLength; // of all components together
    std::uint32_t pass;        // 0 key, 1 date, 2 further data: the order of the text writers
    std::uint8_t consumed;     // 1: a writer has dealt with it
};

// Elements behind count hold nothing; an empty list is made by aiListClear.
struct AiList {
    AiElement elements[MAX_AI_ELEMENTS];
    std::uint8_t count;
};

inline void aiListClear(AiList& list) {
    list.count = 0;
}

// The punctuation of a GS1 text. A start or code delimiter of 0 stands for none.
struct AiSyntax {
    char startDelimiter; // before an AI code
    char codeDelimiter;  // between AI code and value
    char stopDelimiter;  // behind a value of variable length
    bool percentDecoding;
};

// Character 29, GS, which ends a value of variable length in a barcode string.
constexpr char GROUP_SEPARATOR = 29;

inline constexpr AiSyntax ELEMENT_STRING_SYNTAX = {'(', ')', '(', false};
inline constexpr AiSyntax BARCODE_STRING_SYNTAX = {0, 0, GROUP_SEPARATOR, false};

// Appends one element; its code, of four characters at most, need not be in the catalogue.
// EPC_ERR_TOO_MANY_AIS, with nothing changed, behind the twentieth.
EpcStatus aiListAdd(AiList& list, std::string_view code, std::uint32_t valueOffset,
                    std::uint32_t valueLength, std::uint32_t pass);

// Appends all elements of the text under the cursor, which ends up at its end. offsetBase is added
// to every offset, for a cursor whose span begins behind the start of the base text.
EpcStatus aiTextParse(AiList& list, TextCursor& cursor, const AiSyntax& syntax,
                      std::uint32_t offsetBase);

// The value of an element within its base text.
inline std::string_view aiElementValue(const AiElement& element, const char* baseText) {
    return {baseText + element.valueOffset, element.valueLength};
}

// Copies the list into the caller's rows. EPC_ERR_TOO_MANY_AIS before a row that the arrays do not
// have, EPC_ERR_NO_ROOM at a value that its row does not hold; the rows before it stay.
EpcStatus aiListCopyOut(const AiList& list, const char* baseText, const AiRows& rows);

} // namespace rosetag

#endif
