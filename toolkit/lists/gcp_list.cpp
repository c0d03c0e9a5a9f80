/*
 * Looks up the length of a GS1 company prefix.
 */
#include "lists/list_order.h"

#include "check/ai_rule.h"
#include "core/char_class.h"

namespace rosetag {

namespace {

const GcpListEntry* findEntry(const GcpList& list, std::uint64_t prefix, std::size_t digits) {
    const GcpListEntry wanted = {prefix, static_cast<std::uint8_t>(digits), 0};
    const auto entry =
        std::lower_bound(list.entries.begin(), list.entries.end(), wanted, gcpEntryIsBefore);
    const bool isThere = entry != list.entries.end() && !gcpEntryIsBefore(wanted, *entry);
    return isThere ? &*entry : nullptr;
}

} // namespace

GcpAnswer gcpLengthOf(const GcpList& list, std::string_view digits) {
    std::uint64_t prefix = 0;
    std::size_t count = 0;
    while (count < LONGEST_LISTED_PREFIX && count < digits.size() && charIsDigit(digits[count])) {
        prefix = prefix * 10 + static_cast<std::uint64_t>(digits[count++] - '0');
    }
    std::uint64_t unit = 1; // the value of the last digit that counts
    for (std::size_t i = count; i < LONGEST_LISTED_PREFIX; ++i) {
        prefix *= 10;
        unit *= 10;
    }
    for (; count >= SHORTEST_LISTED_PREFIX; --count, unit *= 10) {
        prefix -= prefix % unit;
        if (const GcpListEntry* const entry = findEntry(list, prefix, count); entry != nullptr) {
            return entry->gcpLength == 0 ? GcpAnswer{GcpAnswer::Kind::NO_PREFIX, 0}
                                         : GcpAnswer{GcpAnswer::Kind::LENGTH, entry->gcpLength};
        }
    }
    return {};
}

std::string_view companyPrefixOnwards(std::string_view ai, std::string_view value) {
    const AiRule* const rule = knownAiOf(ai).rule;
    const std::size_t place = rule == nullptr ? 0 : rule->companyPrefixAt;
    return place == 0 || value.size() < place ? std::string_view() : value.substr(place - 1);
}

} // namespace rosetag
