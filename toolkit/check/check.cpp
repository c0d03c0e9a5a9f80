/*
 * What is wrong with a value.
 */
#include "check/check_associations.h"
#include "check/check_text.h"
#include "check/check_value.h"
#include "recognise/barcode_text.h"
#include "recognise/look.h"
#include "words/shown_text.h"

#include <algorithm>

namespace rosetag {

namespace {

// A value that cannot be read is one finding, at the place of the failure within the given one.
void reportFailure(CheckRun& run, Place place, const Translation& translation) {
    const Failure& failure = translation.failure;
    const CheckRule rule =
        translation.form == Form::UNKNOWN ? CheckRule::UNKNOWN_FORM : CheckRule::TAG_VALUE;
    const bool hasPlace = failure.position + failure.length <= place.length;
    const Place culprit = {place.position + failure.position, failure.length};
    // One line: the rest shows what a value may look like.
    std::string detail = failure.message.substr(0, failure.message.find('\n'));
    if (!failure.remedy.empty()) {
        detail += ": " + failure.remedy;
    }
    report(run, rule, {}, hasPlace ? culprit : place, detail).status = failure.status;
}

// What looks wrong in the bits of a tag value although they can be read.
void reportWarnings(CheckRun& run, Place place, const Translation& translation) {
    for (const Note& note : translation.notes) {
        if (note.severity == Severity::WARNING) {
            const Place culprit = {place.position + note.position, note.length};
            report(run, CheckRule::TAG_VALUE, {}, culprit, note.text).severity = note.severity;
        }
    }
}

// For a value whose AIs are not text: each has the place of the whole.
void checkTranslation(CheckRun& run, Place place, const Translation& translation) {
    run.kind = TextKind::TAG_VALUE;
    for (const AiValue& ai : translation.ais) {
        const KnownAi& known = knownAiOf(ai.ai);
        checkAi(run, {ai.ai, known.rule, ai.value, place.position, place.length}, known,
                {ai.value, place.position, nullptr, place.length});
    }
    checkAssociations(run);
}

void checkTranslated(CheckRun& run, Place place) {
    Translation own;
    Translation& translation = run.room == nullptr ? own : *run.room;
    translate(run.value.substr(place.position, place.length), run.options, Form::AIS, translation);
    if (isFailure(translation.failure)) {
        reportFailure(run, place, translation);
        return;
    }
    reportWarnings(run, place, translation);
    checkTranslation(run, place, translation);
}

bool isBefore(const Finding& one, const Finding& other) {
    return one.position != other.position ? one.position < other.position : one.rule < other.rule;
}

// Takes the identifier off what a plain 2D code holds: a link, or whatever else has a mark.
Form formOf(const CheckRun& run, Place& place) {
    const std::string_view value = run.value.substr(place.position, place.length);
    const Form form = formByLook(value, run.options);
    if (form != Form::BARCODE_STRING || value.front() != ']' || symbologyOf(value) != nullptr ||
        value.size() <= SYMBOLOGY_IDENTIFIER_LENGTH) {
        return form;
    }
    const Form inner = formByLook(value.substr(SYMBOLOGY_IDENTIFIER_LENGTH), run.options);
    constexpr FormSet marked =
        Form::ELEMENT_STRING | Form::DIGITAL_LINK | Form::TAG_URI | Form::PURE_IDENTITY;
    if (!marked.has(inner)) {
        return form;
    }
    place.position += SYMBOLOGY_IDENTIFIER_LENGTH;
    place.length -= SYMBOLOGY_IDENTIFIER_LENGTH;
    return inner;
}

void checkPlace(CheckRun& run, Place place) {
    const std::size_t end = place.position + place.length;
    switch (formOf(run, place)) {
    case Form::ELEMENT_STRING:
        checkElementString(run, place.position, end);
        break;
    case Form::BARCODE_STRING:
        checkBarcodeString(run, place.position, end);
        break;
    case Form::GTIN:
        checkGtinAlone(run, place.position, end);
        break;
    case Form::DIGITAL_LINK:
        checkDigitalLink(run, place.position, end);
        break;
    default:
        checkTranslated(run, place);
        return;
    }
    if (run.count == 0 && run.findings.empty()) {
        report(run, CheckRule::UNKNOWN_FORM, {}, place, "there is no AI in it: give one");
    }
    std::sort(run.findings.begin(), run.findings.end(), isBefore);
    checkAssociations(run);
}

} // namespace

void checkAis(std::string_view value, const ReadOptions& options, const Translation& translation,
              Rows<Finding>& findings) {
    findings.clear();
    CheckRun run = {value, options, findings};
    checkTranslation(run, {0, value.size()}, translation);
}

void check(std::string_view value, const ReadOptions& options, Rows<Finding>& findings) {
    check(value, options, findings, nullptr);
}

void check(std::string_view value, const ReadOptions& options, Rows<Finding>& findings,
           Translation* room) {
    findings.clear();
    CheckRun run = {value, options, findings, room};
    const std::size_t first = std::min(value.find_first_not_of(BLANKS), value.size());
    const std::size_t last = value.find_last_not_of(BLANKS);
    const std::size_t end = last == value.npos ? first : last + 1;
    if (value.size() > MAX_VALUE_LENGTH) {
        report(run, CheckRule::UNKNOWN_FORM, {}, {0, value.size()},
               "a value of more than " + std::to_string(MAX_VALUE_LENGTH) +
                   " bytes is not looked at: give one value at a time")
            .status = EPC_ERR_TOO_LONG;
    } else if (first == end) {
        report(run, CheckRule::UNKNOWN_FORM, {}, {end, 0}, "the value is empty: give one");
    } else {
        checkPlace(run, {first, end - first});
    }
}

Rows<Finding> check(std::string_view value, const ReadOptions& options) {
    Rows<Finding> findings;
    check(value, options, findings);
    return findings;
}

std::string findingText(const Finding& finding) {
    std::string text = "at character " + std::to_string(finding.position + 1);
    if (!finding.culprit.empty()) {
        text += ", " + quotedBeginning(finding.culprit);
    }
    return text + ": " + finding.message;
}

} // namespace rosetag
