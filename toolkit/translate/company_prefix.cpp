#include "translate/company_prefix.h"

#include "bridge/gs1_key_table.h"

namespace rosetag {

namespace {

// From where the company prefix of the first key begins; empty if there is none.
std::string_view prefixDigitsOf(const ParsedAis& ais) {
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        const std::string_view code = aiCodeAt(ais, i);
        if (gs1KeyFindByAi(code) != nullptr) {
            return companyPrefixOnwards(code, aiValueAt(ais, i));
        }
    }
    return {};
}

} // namespace

CompanyPrefix companyPrefixOf(const ReadOptions& options, const ParsedAis& ais) {
    if (options.gcpLength.has_value() || options.gcpList == nullptr) {
        return {options.gcpLength, {}};
    }
    const std::string_view digits = prefixDigitsOf(ais);
    if (digits.empty()) {
        return {};
    }
    const GcpAnswer answer = gcpLengthOf(*options.gcpList, digits);
    const std::string list =
        "the prefix list" +
        (options.gcpList->date.empty() ? std::string() : " of " + options.gcpList->date);
    switch (answer.kind) {
    case GcpAnswer::Kind::LENGTH:
        return {answer.length, {}};
    case GcpAnswer::Kind::NO_PREFIX:
        return {{}, "no GS1 company prefix begins as " + std::string(digits) + ", says " + list};
    case GcpAnswer::Kind::NOT_LISTED:
        break;
    }
    return {{}, std::string(digits) + " begins with no prefix of " + list};
}

} // namespace rosetag
