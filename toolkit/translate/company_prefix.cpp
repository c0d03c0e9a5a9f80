#include "translate/company_prefix.h"

#include "bridge/gs1_key_table.h"

namespace rosetag {

namespace {

// The first key, from where its company prefix begins; no digits if there is none.
CompanyPrefix prefixPlaceOf(const ParsedAis& ais) {
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        const std::string_view code = aiCodeAt(ais, i);
        if (gs1KeyFindByAi(code) != nullptr) {
            return {{}, {}, code, companyPrefixOnwards(code, aiValueAt(ais, i))};
        }
    }
    return {};
}

} // namespace

CompanyPrefix companyPrefixOf(const ReadOptions& options, const ParsedAis& ais) {
    if (options.gcpLength.has_value() || options.gcpList == nullptr) {
        return {options.gcpLength, {}, {}, {}};
    }
    CompanyPrefix prefix = prefixPlaceOf(ais);
    if (prefix.digits.empty()) {
        return {};
    }
    const std::string digits(prefix.digits);
    const GcpAnswer answer = gcpLengthOf(*options.gcpList, digits);
    if (answer.kind == GcpAnswer::Kind::LENGTH) {
        prefix.length = answer.length;
        return prefix;
    }
    if (options.wordless) {
        prefix.problem = "not listed";
        return prefix;
    }
    const std::string list =
        "the prefix list" +
        (options.gcpList->date.empty() ? std::string() : " of " + options.gcpList->date);
    switch (answer.kind) {
    case GcpAnswer::Kind::LENGTH:
        break;
    case GcpAnswer::Kind::NO_PREFIX:
        prefix.problem = "according to " + list + ", no GS1 company prefix begins like " + digits;
        break;
    case GcpAnswer::Kind::NOT_LISTED:
        prefix.problem = "the company prefix of " + digits + " is not in " + list;
        break;
    }
    return prefix;
}

} // namespace rosetag
