/*
 * What does a text look like? Every form that the command takes is found by how it begins.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_VALUE_FORM_H
#define ROSETAG_TOOLKIT_RECOGNISE_VALUE_FORM_H

#include <string>
#include <string_view>

namespace rosetag {
inline namespace before {

enum class ValueForm { HEX, TAG_URI, PURE_URI, ELEMENT_STRING, BARCODE, LINK, UNKNOWN };

inline constexpr std::string_view TAG_URI_PREFIX = "urn:epc:tag:";
inline constexpr std::string_view PURE_URI_PREFIX = "urn:epc:id:";

// asBarcode: a text that nothing else marks is a barcode string, not hex.
ValueForm valueFormOf(std::string_view value, bool asBarcode);

// The form in words, with its article: "a GS1 element string".
std::string_view valueFormName(ValueForm form);

// True for the three forms that are made of AIs.
inline bool valueFormIsGs1(ValueForm form) {
    return form == ValueForm::ELEMENT_STRING || form == ValueForm::BARCODE ||
           form == ValueForm::LINK;
}

// Where the look of a text stopped to make sense, and what would have been taken there.
std::string valueFormUnknown(std::string_view value);

// The digits of a hex text: without 0x in front and without spaces and dashes between groups.
std::string hexDigitsOf(std::string_view value);

// True for hex of a tag's TID memory, which begins with E2.
bool hexIsTid(std::string_view hexDigits);

// A text as a message shows it: control characters spelled out, a long one cut.
std::string textForMessage(std::string_view text);

inline bool isHexDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'F') ||
           (character >= 'a' && character <= 'f');
}

inline bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isAllDigits(std::string_view text);

} // namespace before
} // namespace rosetag

#endif
