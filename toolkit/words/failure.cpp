#include "words/failure.h"

#include "core/hex_digits.h"
#include "explain/explain_epc.h"
#include "gs1/check_digit.h"
#include "recognise/bank_words.h"
#include "recognise/gtin_text.h"
#include "recognise/hex_text.h"
#include "recognise/look.h"
#include "tid/tid_layout.h"
#include "translate/parsed_ais.h"
#include "translate/translate.h"
#include "words/ai_words.h"
#include "words/finding_failure.h"
#include "words/scheme_words.h"
#include "words/shown_text.h"
#include "words/status_meaning.h"
#include "words/uri_fault.h"

#include <algorithm>

namespace rosetag {

namespace {

// Digits that are not a tag value may be something else that people scan.
Complaint hintForDigits(std::string_view digits) {
    constexpr std::size_t shortestBarcode = GTIN_AI.size() + GTIN_LENGTH;
    if (!isAllDigits(digits)) {
        return {};
    }
    ParsedAis ais;
    const std::string text(digits);
    if (digits.size() >= shortestBarcode && aisParse(Form::BARCODE_STRING, text, ais) == EPC_OK) {
        return {{}, "it can be read as a barcode string", "as_barcode"};
    }
    const std::string_view checked = digits.substr(0, digits.size() - 1);
    return isGtin(text.substr(0, checked.size()) + gs1CheckDigit(checked))
               ? Complaint{{},
                           "if it is a GTIN, its last digit must be " +
                               std::string(1, gs1CheckDigit(checked))}
               : Complaint{};
}

// Of the words that every TID has.
constexpr std::int32_t SHORTEST_TID_BITS = [] {
    std::int32_t bits = 0;
    for (const TidWord& word : tidSegments[0].words) {
        bits += tidWidth(word);
    }
    return bits;
}();

// An EPC that begins at a later word of hex.
std::string hintForLaterEpc(std::string_view digits) {
    constexpr std::size_t shortest = 16;
    for (std::size_t at = HEX_WORD_DIGITS; at + shortest <= digits.size(); at += HEX_WORD_DIGITS) {
        Translation tag;
        const std::string_view rest = digits.substr(at);
        if (formsOfHex(rest, {}, tag) == EPC_OK &&
            4 * rest.size() < tagValueBits(rest) + HEX_WORD_BITS) {
            return "from digit " + std::to_string(at + 1) + " on it is a value of " +
                   std::string(tag.scheme->name) + ": leave out what precedes it";
        }
    }
    return {};
}

std::string headerHint() {
    const SchemeInfo& scheme = schemes().front();
    return "an EPC begins with the header of its scheme, for example " +
           std::string(hexPairOf(scheme.header)) + " for " + std::string(scheme.name);
}

std::string missingBits(const Explanation& explanation) {
    if (explanation.scheme == nullptr) {
        return {};
    }
    const std::int32_t bits = schemeBits(schemeRowOf(*explanation.scheme));
    const auto given = static_cast<std::int32_t>(explanation.bits.size());
    if (bits == 0 || given >= bits) {
        return {};
    }
    return std::string(explanation.scheme->name) + " has " + std::to_string(bits) + " bits, not " +
           std::to_string(given) + ": read all of them";
}

} // namespace

bool failWordless(Reading& reading, EpcStatus status) {
    if (reading.options.wordless) {
        readingFail(reading, status, 0, 0, Complaint());
    }
    return reading.options.wordless;
}

void failBits(Reading& reading, EpcStatus status, const Explanation& explanation) {
    if (failWordless(reading, status)) {
        return;
    }
    if (explanation.fields.empty()) { // the bits end before a field does
        readingFail(reading, status, 0, reading.value.size(),
                    {statusMeaning(status, {StatusSource::BITS}), "read the tag again"});
        return;
    }
    const std::string& digits = reading.workspace.text;
    const ExplainedField& field = explanation.fields.back();
    const bool isUnknown = status == EPC_ERR_UNKNOWN_HEADER || field.isGood;
    Complaint complaint = hintForDigits(digits);
    complaint.message = isUnknown && !field.isGood ? field.meaning : explainedFault(explanation);
    if (field.isGood) {
        complaint.message = statusMeaning(status, {StatusSource::BITS});
    }
    if (status == EPC_ERR_TRUNCATED) {
        complaint.remedy = reading.form == Form::TID
                               ? "a TID has at least " + std::to_string(SHORTEST_TID_BITS) +
                                     " bits, and more with an extended part: read more words of "
                                     "the bank"
                               : missingBits(explanation);
    } else if (std::string later = hintForLaterEpc(digits);
               status == EPC_ERR_UNKNOWN_HEADER && !later.empty()) {
        complaint = {std::move(complaint.message), std::move(later)};
    } else if (status == EPC_ERR_UNKNOWN_HEADER && complaint.remedy.empty()) {
        complaint.remedy = hexIsTid(digits) ? "this is a TID: read it as one" : headerHint();
    }
    if (complaint.remedy.empty()) {
        complaint.remedy = "read the tag again";
    }
    if (reading.form != Form::HEX && reading.form != Form::TID) {
        readingFail(reading, status, 0, reading.value.size(), std::move(complaint));
        return;
    }
    const std::size_t before = explanation.hex.size() - digits.size(); // words before the EPC
    const std::size_t first = field.first / 4 - before;
    const std::size_t last =
        field.width == 0 ? first : (field.first + field.width - 1) / 4 + 1 - before;
    readingFailAt(reading, status, std::min(first, digits.size()),
                  std::min(last, digits.size()) - std::min(first, digits.size()),
                  std::move(complaint));
}

void failGs1Text(Reading& reading, EpcStatus status) {
    const std::string& text = reading.workspace.text;
    const bool isPath = text.starts_with('/') || text.starts_with('?');
    if (reading.form == Form::DIGITAL_LINK && reading.options.strict && !isPath) {
        readingFail(
            reading, status, 0, reading.value.size(),
            {"a link that is taken as it is begins with \"/\"", "remove its host", "strict"});
        return;
    }
    if (!failByFinding(reading, status, {})) {
        const bool isStrict = reading.form == Form::DIGITAL_LINK && reading.options.strict;
        Complaint complaint = {statusMeaning(status, {StatusSource::GS1_TEXT}),
                               status == EPC_ERR_TOO_MANY_AIS ? "divide it" : "correct the text"};
        if (isStrict) {
            complaint.remedy = "what is not an AI is left out if the link is not taken as it is";
            complaint.option = "strict";
        }
        readingFail(reading, status, 0, reading.value.size(), std::move(complaint));
    }
}

void failUri(Reading& reading, EpcStatus status, const SchemeInfo* scheme, int filter) {
    UriFault fault;
    if (uriFindFault(reading.workspace.text, scheme, fault)) {
        readingFailAt(reading, status, fault.position, fault.length, std::move(fault.complaint));
        return;
    }
    readingFail(reading, status, 0, reading.value.size(),
                {statusMeaning(status, {StatusSource::URI, scheme, filter}),
                 scheme == nullptr ? "correct the URI" : "choose a scheme that holds it",
                 scheme == nullptr ? "" : "scheme"});
}

void failReading(Reading& reading, EpcStatus status) {
    if (failWordless(reading, status)) {
        return;
    }
    switch (reading.form) {
    case Form::HEX:
    case Form::TID: {
        Explanation explanation;
        explainEpc({}, reading.workspace.text, explanation);
        return failBits(reading, status, explanation);
    }
    case Form::TAG_URI:
    case Form::PURE_IDENTITY:
        return failUri(reading, status, nullptr, 0);
    default:
        return failGs1Text(reading, status);
    }
}

void failAiValue(Reading& reading, EpcStatus status, std::string_view code,
                 std::string_view value) {
    const std::string ai = '(' + std::string(code) + ')';
    Rows<Finding> findings;
    check(ai + std::string(value), reading.options, findings);
    const Finding* const finding = findingOf(findings, status, code);
    if (finding != nullptr && finding->position >= ai.size()) {
        readingFail(reading, status, positionIn(reading, value) + finding->position - ai.size(),
                    finding->length, {finding->message});
        return;
    }
    readingFail(reading, status, positionIn(reading, value), value.size(),
                {"AI " + std::string(code) + " (" + std::string(aiTitle(code)) + ") cannot hold " +
                     quotedText(value) + ": " + statusMeaning(status, {StatusSource::AI_VALUE}),
                 aiValueHint(code)});
}

} // namespace rosetag
