#include "check/check_run.h"

#include "words/shown_text.h"
#include "words/utf8.h"

#include <algorithm>

namespace rosetag {

namespace {

// Replaces each {word} of the sentence by what it stands for.
void fillIn(std::string& message, std::string_view sentence, const Finding& finding,
            std::string_view detail) {
    while (!sentence.empty()) {
        const std::size_t open = std::min(sentence.find('{'), sentence.size());
        message += sentence.substr(0, open);
        sentence.remove_prefix(open);
        const std::size_t close = std::min(sentence.find('}'), sentence.size());
        const std::string_view word = sentence.substr(0, close);
        if (word == "{ai") {
            message += finding.ai;
        } else if (word == "{culprit") {
            message += shownText(finding.culprit);
        } else if (word == "{detail") {
            message += detail;
        }
        sentence.remove_prefix(std::min(close + 1, sentence.size()));
    }
}

Finding& add(CheckRun& run, CheckRule rule, std::string_view ai, Place place,
             std::string_view culprit, std::string_view detail) {
    const CheckRuleInfo& entry = checkRules()[static_cast<std::size_t>(rule)];
    Finding& finding = run.findings.add();
    finding.severity = entry.severity;
    finding.rule = rule;
    finding.status = rule == CheckRule::CHECK_DIGIT ? EPC_ERR_CHECK_DIGIT : EPC_ERR_BAD_FORMAT;
    finding.ai = ai;
    finding.position = place.position;
    finding.length = place.length;
    finding.culprit = culprit;
    finding.option = {};
    finding.message.clear();
    fillIn(finding.message, entry.sentence, finding, detail);
    return finding;
}

} // namespace

Place placeOf(const CheckedText& text, std::size_t at, std::size_t length) {
    if (text.wholeLength != 0) {
        return {text.position, text.wholeLength};
    }
    if (text.offsets == nullptr) {
        return {text.position + at, length};
    }
    return {text.position + text.offsets[at],
            static_cast<std::size_t>(text.offsets[at + length] - text.offsets[at])};
}

Finding& report(CheckRun& run, CheckRule rule, std::string_view ai, Place place,
                std::string_view detail) {
    const std::string_view culprit = wholeCharacters(run.value, place.position, place.length);
    const auto position = static_cast<std::size_t>(culprit.data() - run.value.data());
    return add(run, rule, ai, {position, culprit.size()}, culprit, detail);
}

Finding& reportIn(CheckRun& run, CheckRule rule, std::string_view ai, const CheckedText& text,
                  std::size_t at, std::size_t length, std::string_view detail) {
    const std::string_view culprit = wholeCharacters(text.characters, at, length);
    const auto first = static_cast<std::size_t>(culprit.data() - text.characters.data());
    return add(run, rule, ai, placeOf(text, first, culprit.size()), culprit, detail);
}

void rememberAi(CheckRun& run, const CheckedAi& ai) {
    const auto earlier =
        std::find_if(run.ais.begin(), run.ais.begin() + run.count,
                     [&](const CheckedAi& candidate) { return candidate.code == ai.code; });
    if (earlier != run.ais.begin() + run.count) {
        const bool isSame = earlier->value == ai.value;
        Finding& finding = report(run, CheckRule::REPEATED_AI, ai.code, {ai.position, ai.length},
                                  isSame ? "the same" : "another");
        finding.severity = isSame ? Severity::WARNING : Severity::ERROR;
    }
    if (run.count == EPC_MAX_AIS) {
        report(run, CheckRule::TOO_MANY_AIS, ai.code, {ai.position, ai.length},
               std::to_string(EPC_MAX_AIS));
    }
    if (run.count < MAX_CHECKED_AIS) {
        run.ais[run.count++] = ai;
    }
}

} // namespace rosetag
