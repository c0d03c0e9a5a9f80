/*
 * What a value is by its appearance: every form has its own beginning.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_LOOK_H
#define ROSETAG_TOOLKIT_RECOGNISE_LOOK_H

#include "recognise/reading.h"
#include "schemes/epc_uri.h"

namespace rosetag {

// The form that a value seems to have. A value without a mark is hex or, asBarcode, a barcode
// string.
Form formByLook(std::string_view value, const ReadOptions& options);

// Sets the failure of a file that is not text in UTF-8. False if it is not the beginning of one.
bool failIsFile(Reading& reading, std::string_view value);

// Sets the failure of what is the name of a file. False if it does not look like one.
bool failIsFileName(Reading& reading, std::string_view value);

// Says where a value of no known form stopped making sense, and what could have followed there.
// Always false.
bool failUnknown(Reading& reading, std::string_view value);

// True if text begins with a prefix in lower case, whatever its own case.
bool beginsIgnoringCase(std::string_view text, std::string_view lowerCasePrefix);

bool isAllDigits(std::string_view text);

} // namespace rosetag

#endif
