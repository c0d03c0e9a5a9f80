/*
 * Why a value could not become one of a scheme.
 */
#include "bridge/gs1_key_table.h"
#include "translate/parsed_ais.h"
#include "translate/text_room.h"
#include "words/ai_words.h"
#include "words/failure.h"
#include "words/finding_failure.h"
#include "words/scheme_words.h"
#include "words/shown_text.h"
#include "words/status_meaning.h"
#include "words/uri_fault.h"

#include <algorithm>

namespace rosetag {

namespace {

// Where the value of an AI is in the prepared text.
struct ValuePlace {
    std::size_t position = 0;
    std::size_t length = 0;
};

ValuePlace placeOfValue(const Reading& reading, const ParsedAis& ais, std::string_view code) {
    const std::string& text = reading.workspace.text;
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        const AiElement& element = ais.list.elements[i];
        if (aiCodeOf(*element.ai) != code) {
            continue;
        }
        if (ais.base == text.data()) {
            return {element.valueOffset, element.valueLength};
        }
        for (const char before : {'/', '?', '&'}) {
            const std::string delimited = before + std::string(code);
            const std::size_t at = text.find(delimited);
            if (at != std::string::npos) {
                const std::size_t start = at + delimited.size() + 1;
                return {start, std::min(text.find_first_of("/?&", start), text.size()) - start};
            }
        }
    }
    return {0, text.size()};
}

// Text fields of a URI count their characters without escapes; a fault in the tail of the URI is
// one of the serial number, any other one of the key.
void failAsUri(Reading& reading, EpcStatus status, const SchemeInfo& scheme, const ParsedAis& ais,
               UriFault& fault) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(scheme.family);
    if (key == nullptr) {
        readingFail(reading, status, 0, reading.value.size(), std::move(fault.complaint));
        return;
    }
    const bool isSecondary = fault.isInTail && !key->secondaryAi.empty();
    const std::string_view code = isSecondary ? key->secondaryAi : key->primaryAi;
    ValuePlace place = placeOfValue(reading, ais, code);
    if (fault.isInTail && !isSecondary) {
        const auto keyLength =
            std::min(static_cast<std::size_t>(key->keyValueLength), place.length);
        place = {place.position + keyLength, place.length - keyLength};
    }
    fault.complaint.message = "AI " + std::string(code) + " (" + std::string(aiTitle(code)) +
                              "): " + fault.complaint.message;
    readingFailAt(reading, status, place.position, place.length, std::move(fault.complaint));
}

bool hasAi(const ParsedAis& ais, std::string_view code) {
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        if (aiCodeAt(ais, i) == code) {
            return true;
        }
    }
    return false;
}

Complaint missingKey(EpcStatus status, const SchemeInfo& scheme, const ParsedAis& ais) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(scheme.family);
    const StatusSource source = scheme.isPlus ? StatusSource::GS1_PLUS : StatusSource::GS1;
    Complaint complaint = {statusMeaning(status, {source, &scheme}),
                           "choose a scheme that holds the AIs of the text, or add what is missing",
                           "scheme"};
    if (status == EPC_ERR_SECOND_KEY) {
        complaint.remedy = "give one key";
    } else if (status == EPC_ERR_NO_SECONDARY_AI && hasAi(ais, key->secondaryAi)) {
        complaint = {std::string(scheme.name) + " needs " + schemeKeyText(scheme) +
                         " in this order",
                     "put AI " + std::string(key->secondaryAi) + " last"};
    } else if (scheme.family == "sgln" && hasAi(ais, key->primaryAi)) {
        complaint.remedy =
            "add (" + std::string(key->secondaryAi) + ")0 for a location without an extension";
    }
    return complaint;
}

// What is missing belongs at the end; anything else is about the text as a whole.
void failMissingKey(Reading& reading, EpcStatus status, const SchemeInfo& scheme,
                    const ParsedAis& ais) {
    const bool isMissing = status == EPC_ERR_NO_SECONDARY_AI || status == EPC_ERR_NO_PRIMARY_KEY;
    readingFail(reading, status, isMissing ? reading.value.size() : 0,
                isMissing ? 0 : reading.value.size(), missingKey(status, scheme, ais));
}

// An identity that its URI form cannot hold either: the key does not reach beyond its prefix.
void failShortKey(Reading& reading, EpcStatus status, const SchemeInfo& scheme,
                  const ParsedAis& ais, int gcpLength) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(scheme.family);
    const ValuePlace place = placeOfValue(reading, ais, key->primaryAi);
    readingFailAt(reading, status, place.position, place.length,
                  {"AI " + std::string(key->primaryAi) + " (" +
                       std::string(aiTitle(key->primaryAi)) + ") has " +
                       counted(place.length, "character") +
                       ", too few for a GS1 company prefix of " + std::to_string(gcpLength) +
                       " digits and a reference",
                   "give the right length of the company prefix", "gcp_length"});
}

// The AI of a text that its bits cannot hold.
bool failAnyAi(Reading& reading, const ParsedAis& ais, int encoding) {
    std::array<char, EPC_HEX_SIZE> hex;
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        const std::string code(aiCodeAt(ais, i));
        const std::string value(aiValueAt(ais, i));
        const EpcStatus status =
            epc_AIToHexEnc(code.c_str(), value.c_str(), 0, encoding,
                           static_cast<std::int32_t>(hex.size()), hex.data(), nullptr);
        if (status == EPC_OK || status == EPC_ERR_NO_ROOM) {
            continue;
        }
        if (failByFinding(reading, status, code)) {
            return true;
        }
        const ValuePlace place = placeOfValue(reading, ais, code);
        readingFailAt(reading, status, place.position, place.length,
                      {"AI " + code + " (" + std::string(aiTitle(code)) + ") cannot hold " +
                           quotedText(value) + ": " +
                           statusMeaning(status, {StatusSource::AI_VALUE}),
                       aiValueHint(code)});
        return true;
    }
    return false;
}

// What check calls an error in the AIs that a plain scheme holds.
bool failByErrorInKey(Reading& reading, EpcStatus status, const SchemeInfo& scheme) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(scheme.family);
    if (key == nullptr) {
        return false;
    }
    Rows<Finding> findings;
    check(reading.value, reading.options, findings);
    for (const std::string_view ai : {key->primaryAi, key->secondaryAi}) {
        const Finding* const finding = ai.empty() ? nullptr : findingOf(findings, status, ai);
        if (finding != nullptr && finding->severity == Severity::ERROR) {
            readingFail(reading, status, finding->position, finding->length, {finding->message});
            return true;
        }
    }
    return false;
}

void failGs1Encoding(Reading& reading, EpcStatus status, const EncodeOptions& options,
                     const ParsedAis& ais) {
    const SchemeInfo& scheme = *options.scheme;
    const int gcpLength = options.read.gcpLength.value_or(0);
    std::string uri;
    UriFault fault;
    const bool isAboutKey = status == EPC_ERR_SCHEME_MISMATCH || status == EPC_ERR_SECOND_KEY ||
                            status == EPC_ERR_NO_KEY_AI || status == EPC_ERR_NO_SECONDARY_AI ||
                            status == EPC_ERR_NO_PRIMARY_KEY;
    if (isAboutKey) {
        return failMissingKey(reading, status, scheme, ais);
    }
    if (!scheme.isPlus && failByErrorInKey(reading, status, scheme)) {
        return;
    }
    if (scheme.isPlus && failAnyAi(reading, ais, options.encoding)) {
        return;
    }
    if (!scheme.isPlus && scheme.hasGs1Texts) {
        const EpcStatus uriStatus = textFrom<EPC_URI_SIZE>(uri, [&](std::int32_t size, char* dst) {
            return epc_gs1ElementStringToEpcUri(elementStringOf(ais).c_str(), gcpLength, size, dst);
        });
        if (uriStatus == EPC_OK && uriFindFault(uri, &scheme, fault)) {
            return failAsUri(reading, status, scheme, ais, fault);
        }
        if (uriStatus == EPC_ERR_OUT_OF_RANGE || uriStatus == EPC_ERR_TRUNCATED) {
            return failShortKey(reading, status, scheme, ais, gcpLength);
        }
    }
    const StatusSource source = scheme.isPlus ? StatusSource::GS1_PLUS : StatusSource::GS1;
    readingFail(reading, status, 0, reading.value.size(),
                {statusMeaning(status, {source, &scheme, options.filter.value_or(0)}),
                 "choose another scheme", "scheme"});
}

void failFilter(Reading& reading, EpcStatus status, const EncodeOptions& options) {
    readingFail(reading, status, 0, reading.value.size(),
                {"the filter of " + std::string(options.scheme->name) + " is a number from 0 to " +
                     std::to_string(schemeLargestFilter(*options.scheme)) + ", and " +
                     std::to_string(options.filter.value_or(0)) + " is not",
                 "give another filter", "filter"});
    reading.failure.isOfOptions = true;
}

} // namespace

void failEncoding(Reading& reading, EpcStatus status, const EncodeOptions& options) {
    if (failWordless(reading, status)) {
        return;
    }
    if (status == EPC_ERR_FILTER_LIMIT || status == EPC_ERR_FILTER_FIELD) {
        return failFilter(reading, status, options);
    }
    if (reading.form == Form::TAG_URI || reading.form == Form::PURE_IDENTITY) {
        return failUri(reading, status, options.scheme, options.filter.value_or(0));
    }
    ParsedAis ais;
    const Form form = reading.form == Form::GTIN ? Form::ELEMENT_STRING : reading.form;
    if (aisParse(form, reading.workspace.text, ais) != EPC_OK || status == EPC_ERR_CHECK_DIGIT) {
        return failGs1Text(reading, status);
    }
    failGs1Encoding(reading, status, options, ais);
}

void failCompanyPrefix(Reading& reading, const ParsedAis& ais, const CompanyPrefix& prefix) {
    const ValuePlace place = placeOfValue(reading, ais, prefix.ai);
    const std::size_t length = std::min(prefix.digits.size(), place.length);
    readingFailAt(
        reading, EPC_ERR_BAD_PARTITION, place.position + place.length - length, length,
        {prefix.problem, "correct the key, take a newer list, or give the length", "gcp_length"});
}

} // namespace rosetag
