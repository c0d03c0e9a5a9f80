/*
 * Makes a prefix list from entries in any order.
 */
#include "core/char_class.h"
#include "lists/list_order.h"
#include "words/shown_text.h"

#include <charconv>

namespace rosetag {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), charIsDigit);
}

bool contradicts(const GcpListEntry& one, const GcpListEntry& other) {
    return one.prefix == other.prefix && one.digits == other.digits &&
           one.gcpLength != other.gcpLength;
}

} // namespace

std::string gcpListAdd(GcpList& list, std::string_view prefix, std::string_view gcpLength) {
    const bool isPrefix = isDigits(prefix) && prefix.size() >= SHORTEST_LISTED_PREFIX &&
                          prefix.size() <= LONGEST_LISTED_PREFIX;
    if (!isPrefix) {
        return "the prefix \"" + std::string(prefix) + "\" does not have " +
               std::to_string(SHORTEST_LISTED_PREFIX) + " to " +
               counted(LONGEST_LISTED_PREFIX, "digit");
    }
    std::uint8_t length = 0;
    const char* const end = gcpLength.data() + gcpLength.size();
    const auto [stop, error] = std::from_chars(gcpLength.data(), end, length);
    if (error != std::errc() || stop != end || length > LONGEST_LISTED_PREFIX) {
        return "the gcpLength \"" + std::string(gcpLength) + "\" of prefix " + std::string(prefix) +
               " is not a number from 0 to " + std::to_string(LONGEST_LISTED_PREFIX);
    }
    std::uint64_t digits = 0;
    for (std::size_t i = 0; i < LONGEST_LISTED_PREFIX; ++i) {
        digits =
            digits * 10 + (i < prefix.size() ? static_cast<std::uint64_t>(prefix[i] - '0') : 0U);
    }
    list.entries.push_back({digits, static_cast<std::uint8_t>(prefix.size()), length});
    return {};
}

std::string gcpListFinish(GcpList& list) {
    if (!std::is_sorted(list.entries.begin(), list.entries.end(), gcpEntryIsBefore)) {
        std::sort(list.entries.begin(), list.entries.end(), gcpEntryIsBefore);
    }
    const auto pair = std::adjacent_find(list.entries.begin(), list.entries.end(), contradicts);
    return pair == list.entries.end()
               ? std::string()
               : std::to_string(1000000000000 + pair->prefix).substr(1, pair->digits);
}

} // namespace rosetag
