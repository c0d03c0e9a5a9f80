/*
 * The rules that a part of an AI's value must satisfy beyond its length and its characters.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_PART_RULES_H
#define ROSETAG_TOOLKIT_CHECK_PART_RULES_H

#include "check/ai_rule.h"

#include <rosetag/toolkit.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace rosetag {

// What breaks a rule, in the part; nothing does where length is 0.
struct Culprit {
    std::size_t at = 0;
    std::size_t length = 0;
};

struct PartRuleEntry {
    PartRule rule;
    CheckRule breaks;
    Culprit (*culpritOf)(std::string_view part);
    std::string (*rightOne)(std::string_view part); // what would be right in its place; may be null
};

const PartRuleEntry& partRule(PartRule rule);

} // namespace rosetag

#endif
