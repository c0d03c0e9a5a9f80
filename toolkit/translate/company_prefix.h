/*
 * The length of the company prefix of a key, from the list that the options have.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_COMPANY_PREFIX_H
#define ROSETAG_TOOLKIT_TRANSLATE_COMPANY_PREFIX_H

#include "recognise/reading.h"
#include "translate/parsed_ais.h"

#include <optional>

namespace rosetag {

struct CompanyPrefix {
    std::optional<int> length; // as the options give it, or the list
    std::string problem;       // what the list says in its place; empty without a list or a key
    std::string_view ai;       // whose value that is about,
    std::string_view digits;   // and its digits from where the prefix begins
};

CompanyPrefix companyPrefixOf(const ReadOptions& options, const ParsedAis& ais);

} // namespace rosetag

#endif
