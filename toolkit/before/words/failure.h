/*
 * Why a value could not be converted: a status, and a message that says what was wrong with this
 * value, and where.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_FAILURE_H
#define ROSETAG_TOOLKIT_WORDS_FAILURE_H

#include "before/recognise/value_form.h"
#include "before/words/scheme_dictionary.h"

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {
inline namespace before {

// All of these give no failure for EPC_OK.

// Of a value in any form that was read.
Failure failureOfReading(EpcStatus status, ValueForm form, const std::string& text);

// Of a text that was to become the bits of a scheme.
Failure failureOfEncoding(EpcStatus status, ValueForm form, const std::string& text,
                          const SchemeEntry& scheme, int filter);

// Of a single AI value as text, and as bits.
Failure failureOfAiValue(EpcStatus status, const std::string& code, const std::string& value);
Failure failureOfAiBits(EpcStatus status, const std::string& code, const std::string& hexDigits);

Failure failureOfTid(EpcStatus status, const std::string& hexDigits);

// Of a text that is to be hex, without what stands between its groups: a character that is no
// digit, none at all, or too many.
Failure failureOfHex(const std::string& hexDigits);

// The check digit that belongs behind the digits.
char checkDigitOf(std::string_view digits);

} // namespace before
} // namespace rosetag

#endif
