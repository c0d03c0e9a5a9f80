/*
 * Why a value could not be converted: what was wrong with it, where, and what to do.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_FAILURE_H
#define ROSETAG_TOOLKIT_WORDS_FAILURE_H

#include "recognise/reading.h"
#include "translate/company_prefix.h"

namespace rosetag {

// True if the caller wants the status alone: the failure is then complete. Each function below
// begins with this.
bool failWordless(Reading& reading, EpcStatus status);

// Of a prepared value in any form that could not be read.
void failReading(Reading& reading, EpcStatus status);

// Of a prepared GS1 text in any form that could not be parsed.
void failGs1Text(Reading& reading, EpcStatus status);

// Of a prepared URI that could not be read, or not as a value of a scheme, which may be null.
void failUri(Reading& reading, EpcStatus status, const SchemeInfo* scheme, int filter);

// Of a prepared value that could not become a value of the scheme.
void failEncoding(Reading& reading, EpcStatus status, const EncodeOptions& options);

// Of a key whose company prefix the list does not have.
void failCompanyPrefix(Reading& reading, const ParsedAis& ais, const CompanyPrefix& prefix);

// Of the bits of a tag value, of a TID or of AI values, after a walk that explains them.
void failBits(Reading& reading, EpcStatus status, const Explanation& explanation);

// Of the value of an AI, a part of the given one, that could not become bits.
void failAiValue(Reading& reading, EpcStatus status, std::string_view code, std::string_view value);

} // namespace rosetag

#endif
