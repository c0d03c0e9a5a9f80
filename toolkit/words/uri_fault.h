/*
 * What is wrong with an EPC URI, found by the fields of its scheme.
 *
 * Source: EPC Tag Data Standard, sections 6 (EPC URIs) and 12 (EPC tag URIs).
 */
#ifndef ROSETAG_TOOLKIT_WORDS_URI_FAULT_H
#define ROSETAG_TOOLKIT_WORDS_URI_FAULT_H

#include "recognise/reading.h"

namespace rosetag {

struct UriFault {
    std::size_t position = 0; // in the URI
    std::size_t length = 0;
    bool isInTail = false; // of the last field, rather than of what precedes it
    Complaint complaint;
};

// Finds the first fault of a tag URI, or of a pure identity URI that is to be a value of a scheme;
// null: of the scheme of its kind that holds most. False if none is found.
bool uriFindFault(std::string_view uri, const SchemeInfo* scheme, UriFault& fault);

// The form of the URIs of a scheme: "urn:epc:id:sgtin:COMPANY-PREFIX.ITEM-REFERENCE.SERIAL".
std::string uriShape(const SchemeInfo& scheme, Form form);

// "sgtin-198 can hold it", or the empty text if no scheme can.
std::string uriHolders(const std::string& pureIdentity);

} // namespace rosetag

#endif
