#include "words/finding_failure.h"

#include "check/check_text.h"

namespace rosetag {

const Finding* findingOf(const Rows<Finding>& findings, EpcStatus status, std::string_view ai) {
    const Finding* found = nullptr;
    int most = 0;
    for (const Finding& finding : findings) {
        const bool isRule =
            (status == EPC_ERR_CHECK_DIGIT) == (finding.rule == CheckRule::CHECK_DIGIT);
        const int cause = finding.severity == Severity::ERROR         ? 5
                          : finding.rule == CheckRule::LINK_SEMICOLON ? 3
                                                                      : 1;
        const int weight = cause + (isRule ? 1 : 0);
        const bool isOfValue =
            finding.rule != CheckRule::NEEDS && finding.rule != CheckRule::EXCLUDES;
        if (isOfValue && weight > most && (ai.empty() || finding.ai == ai)) {
            found = &finding;
            most = weight;
        }
    }
    return found;
}

bool failByFinding(Reading& reading, EpcStatus status, std::string_view ai) {
    Rows<Finding> findings;
    check(reading.value, reading.options, findings);
    const Finding* const finding = findingOf(findings, status, ai);
    if (finding == nullptr) {
        return false;
    }
    readingFail(reading, status, finding->position, finding->length, {finding->message});
    return true;
}

} // namespace rosetag
