#ifndef ROSETAG_GS1_CHECK_DIGIT_H
#define ROSETAG_GS1_CHECK_DIGIT_H

#include <string_view>

namespace rosetag {

// The GS1 modulo 10 check digit, '0' to '9', over the characters before it, up to a NUL. A
// character that is no digit goes into the sum by its code less that of '0'.
//
// Source: GS1 General Specifications, section 7.9.
char gs1CheckDigit(std::string_view digits);

} // namespace rosetag

#endif
