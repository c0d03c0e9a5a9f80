/*
 * What is wrong with a field of an EPC URI, by its kind.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_URI_FIELD_FAULT_H
#define ROSETAG_TOOLKIT_WORDS_URI_FIELD_FAULT_H

#include "schemes/partition.h"
#include "words/scheme_words.h"
#include "words/uri_fault.h"

namespace rosetag {

// The field that is looked at, and what the ones before it say.
struct UriFieldView {
    const SchemeInfo& scheme;
    const SchemeField& field;
    std::string_view text;
    CompanyPrefixSize prefix{};
};

// Finds the first fault of a field, with its position in the field. False if there is none; a
// company prefix sets the prefix of the view.
bool uriFieldFault(UriFault& fault, UriFieldView& view);

} // namespace rosetag

#endif
