/*
 * The AIs of a GS1 text, as the library reads them.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_PARSED_AIS_H
#define ROSETAG_TOOLKIT_TRANSLATE_PARSED_AIS_H

#include "gs1/ai_list.h"
#include "gs1/digital_link_parser.h"
#include "recognise/reading.h"
#include "translate/numbers.h"

#include <rosetag/toolkit.hpp>

namespace rosetag {

struct ParsedAis {
    AiList list;
    const char* base;                           // of the values
    std::array<char, LINK_VALUES_SIZE> decoded; // the values of a link
    bool isUnescaped;                           // a link that the library takes for too long

    AiText operator()(std::size_t index) const {
        const AiElement& element = list.elements[index];
        return {aiCodeOf(*element.ai), aiElementValue(element, base)};
    }
};

// Reads a prepared text of the form ELEMENT_STRING, BARCODE_STRING or DIGITAL_LINK, which ends in a
// NUL. ais must stay where it is, and so must the text.
EpcStatus aisParse(Form form, std::string_view text, ParsedAis& ais);

inline std::string_view aiValueAt(const ParsedAis& ais, std::size_t index) {
    return ais(index).value;
}

inline std::string_view aiCodeAt(const ParsedAis& ais, std::size_t index) {
    return ais(index).code;
}

// Reads the AIs of a text that plainTextPrepare has taken, if it needs no more than that: no value
// lacks zeros, holds a bracket or an escape, and a link has its one key in front. False if it does.
bool plainAisParse(const Reading& reading, ParsedAis& ais);

// True if a bracketed text of the AIs reads back as the same: a "(" in a value would begin another.
bool fitBrackets(const ParsedAis& ais);

// The AIs as a bracketed text, in their order.
std::string elementStringOf(const ParsedAis& ais);
void elementStringOf(const ParsedAis& ais, std::string& text);

} // namespace rosetag

#endif
