/*
 * Which country and currency codes ISO has assigned.
 *
 * Source: ISO 3166-1 (countries), ISO 4217 (currencies).
 */
#ifndef ROSETAG_TOOLKIT_CHECK_ASSIGNED_CODES_H
#define ROSETAG_TOOLKIT_CHECK_ASSIGNED_CODES_H

#include <string_view>

namespace rosetag {

// Three digits: "276".
bool isCountryNumber(std::string_view number);

// Two capitals: "DE".
bool isCountryLetters(std::string_view letters);

// Three digits: "978".
bool isCurrencyNumber(std::string_view number);

} // namespace rosetag

#endif
