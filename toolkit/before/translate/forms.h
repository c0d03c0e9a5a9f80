/*
 * All the forms that a value has.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_FORMS_H
#define ROSETAG_TOOLKIT_TRANSLATE_FORMS_H

#include "before/recognise/prepared_value.h"
#include "before/translate/library_calls.h"

#include <optional>
#include <string>
#include <vector>

namespace rosetag {
inline namespace before {

// A form that a value does not have is empty.
struct Forms {
    const SchemeEntry* scheme = nullptr;
    std::optional<int> filter;
    std::string tagUri;
    std::string pureUri;
    std::string elementString;
    std::string barcodeString;
    std::string link;
    std::string hex;
    int bits = 0;
    std::vector<AiValue> ais;
    std::vector<const SchemeEntry*> fits; // the schemes that could hold a pure identity
    bool lacksGcpLength = false;          // with it there would be a pure identity URI
};

// gcpLength gives the GS1 texts their pure identity URI. A value that is not read leaves forms as
// far as it was.
Failure formsOf(const PreparedValue& value, std::optional<int> gcpLength, Forms& forms);

// Fills what the hex of forms alone tells: the scheme, the filter and the length.
EpcStatus addTagFacts(Forms& forms);

// The AIs of a text that is made of them.
AiValues aiValuesOf(const PreparedValue& value);

} // namespace before
} // namespace rosetag

#endif
