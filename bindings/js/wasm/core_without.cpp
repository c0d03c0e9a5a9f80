/*
 * What the core module leaves out. Where a value is wrong takes the rules and the walks over bits,
 * which the larger module has: a failure without a message is one of the value as a whole.
 */
#include "check/check_text.h"
#include "explain/explain_epc.h"
#include "translate/company_prefix.h"
#include "words/failure.h"

#include <cstdlib>

namespace rosetag {

namespace {

void failAsWhole(Reading& reading, EpcStatus status) {
    readingFail(reading, status, 0, reading.value.size(), {});
}

} // namespace

// The face leaves no words out.
bool failWordless(Reading&, EpcStatus) {
    return false;
}

void failReading(Reading& reading, EpcStatus status) {
    failAsWhole(reading, status);
}

void failEncoding(Reading& reading, EpcStatus status, const EncodeOptions& options) {
    failAsWhole(reading, status);
    reading.failure.isOfOptions = options.scheme != nullptr && status == EPC_ERR_FILTER_LIMIT;
}

void failBits(Reading& reading, EpcStatus status, const Explanation&) {
    failAsWhole(reading, status);
}

std::string failureText(const Failure&) {
    return {};
}

// Titles stand in the JavaScript.
std::string_view aiTitle(std::string_view) {
    return {};
}

void check(std::string_view, const ReadOptions&, Rows<Finding>&) {
    std::abort();
}

void checkAis(std::string_view, const ReadOptions&, const Translation&, Rows<Finding>&) {
    std::abort();
}

std::string_view checkRuleWord(CheckRule) {
    std::abort();
}

// Only failures walk over bits.
bool explainTid(std::string_view, Explanation&) {
    return false;
}

// The core has no prefix lists.
CompanyPrefix companyPrefixOf(const ReadOptions& options, const ParsedAis&) {
    return {options.gcpLength, {}, {}, {}};
}

void failCompanyPrefix(Reading&, const ParsedAis&, const CompanyPrefix&) {
    std::abort();
}

} // namespace rosetag
