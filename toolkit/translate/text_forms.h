/*
 * The forms of GS1 texts and of URIs that are not tag values.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TEXT_FORMS_H
#define ROSETAG_TOOLKIT_TRANSLATE_TEXT_FORMS_H

#include "translate/parsed_ais.h"

namespace rosetag {

// Of a text of AIs, which ends in a NUL, in the syntax of a form.
EpcStatus formsOfGs1Text(Reading& reading, Form form, const std::string& text, FormSet wanted,
                         Translation& result);

// Of AIs that were read.
EpcStatus formsOfAis(Reading& reading, ParsedAis& ais, FormSet wanted, Translation& result);

EpcStatus formsOfPureIdentity(Reading& reading, FormSet wanted, Translation& result);

// Of a tag URI with the name of a plus scheme, which has the GS1 texts and no binary value.
EpcStatus formsOfPlusTagUri(const std::string& uri, FormSet wanted, Translation& result);

} // namespace rosetag

#endif
