#include "words/status_meaning.h"

#include "words/scheme_words.h"
#include "words/uri_fault.h"

#include <algorithm>

namespace rosetag {

namespace {

using enum StatusSource;

// {scheme}, {limit}, {filter} and {key} stand for those of the case, {bits}, {prefix} and {ais} for
// what a tag value and a text can hold.
struct Meaning {
    EpcStatus status;
    StatusSource source;
    std::string_view text;
};

// clang-format off
constexpr Meaning meanings[] = {
    // status                   from      in words; the first row that fits is taken
    {EPC_ERR_NO_ROOM,           GS1_TEXT, "the text ends inside a value of fixed length"},
    {EPC_ERR_NO_ROOM,           GS1,      "the data takes more than the {bits} bits that a tag value can have"},
    {EPC_ERR_NO_ROOM,           GS1_PLUS, "the data takes more than the {bits} bits that a tag value can have"},
    {EPC_ERR_NO_ROOM,           AI_VALUE, "the value takes more than the {bits} bits that a tag value can have"},
    {EPC_ERR_NO_ROOM,           ANY,      "there is no room for the result"},
    {EPC_ERR_TRUNCATED,         URI,      "the URI ends too early"},
    {EPC_ERR_TRUNCATED,         GS1_TEXT, "the text ends too early"},
    {EPC_ERR_TRUNCATED,         GS1,      "a part of the key or its serial number is missing"},
    {EPC_ERR_TRUNCATED,         AI_VALUE, "the value is too short"},
    {EPC_ERR_TRUNCATED,         ANY,      "the bits end too early"},
    {EPC_ERR_OUT_OF_RANGE,      URI,      "a number is too large for {scheme}, or has too many or too few digits"},
    {EPC_ERR_OUT_OF_RANGE,      GS1,      "a number is too large for {scheme}, or the key is shorter than its company prefix"},
    {EPC_ERR_OUT_OF_RANGE,      ANY,      "a number is too large for its field"},
    {EPC_ERR_TOO_LONG,          URI,      "a part of the URI is too long"},
    {EPC_ERR_TOO_LONG,          ANY,      "a value is too long"},
    {EPC_ERR_UNKNOWN_HEADER,    ANY,      "no scheme has this header"},
    {EPC_ERR_BAD_PARTITION,     ANY,      "a GS1 company prefix has {prefix} digits"},
    {EPC_ERR_BAD_FORMAT,        URI,      "a number has a leading zero, or a text is too long for {scheme}"},
    {EPC_ERR_BAD_FORMAT,        GS1_TEXT, "the text cannot go on like this: a bracket or separator is missing, or the value before it is too long"},
    {EPC_ERR_BAD_FORMAT,        GS1,      "{scheme} cannot hold this serial number or reference"},
    {EPC_ERR_BAD_FORMAT,        GS1_PLUS, "a value does not match the format of its AI"},
    {EPC_ERR_BAD_FORMAT,        AI_VALUE, "the value does not match the format of the AI"},
    {EPC_ERR_BAD_FORMAT,        ANY,      "the layout does not match"},
    {EPC_ERR_FILTER_FIELD,      ANY,      "the filter {filter} does not fit {scheme}"},
    {EPC_ERR_SCHEME_MISMATCH,   URI,      "the URI names a kind of identity that {scheme} does not hold"},
    {EPC_ERR_SCHEME_MISMATCH,   ANY,      "{scheme} holds {key}, and the text has another key"},
    {EPC_ERR_FILTER_LIMIT,      ANY,      "the filter of {scheme} is a number from 0 to {limit}"},
    {EPC_ERR_UNKNOWN_SCHEME,    ANY,      "no tag scheme has this name"},
    {EPC_ERR_NO_KEY_DEFINITION, ANY,      "there is no such kind of identity, or it has no GS1 form"},
    {EPC_ERR_UNKNOWN_AI,        ANY,      "GS1 has not assigned this AI"},
    {EPC_ERR_SECOND_KEY,        ANY,      "the text holds more than one GS1 key, and {scheme} holds one"},
    {EPC_ERR_NO_KEY_AI,         GS1_TEXT, "the text holds no AI"},
    {EPC_ERR_NO_KEY_AI,         ANY,      "the text holds no GS1 key; {scheme} needs {key}"},
    {EPC_ERR_NO_SECONDARY_AI,   ANY,      "{scheme} needs {key}, and the last is missing"},
    {EPC_ERR_BAD_CHARACTER,     URI,      "a field cannot hold one of its characters"},
    {EPC_ERR_BAD_CHARACTER,     AI_VALUE, "the AI, or the encoding, cannot hold one of the characters"},
    {EPC_ERR_BAD_CHARACTER,     GS1_TEXT, "the digits of an AI are expected here"},
    {EPC_ERR_BAD_CHARACTER,     GS1_PLUS, "an AI, or the encoding, cannot hold one of its characters"},
    {EPC_ERR_BAD_CHARACTER,     ANY,      "a field cannot hold one of its characters"},
    {EPC_ERR_NOT_SUPPORTED,     URI,      "{scheme} has no URIs"},
    {EPC_ERR_NOT_SUPPORTED,     GS1,      "{scheme} has no GS1 key: its values come from EPC URIs"},
    {EPC_ERR_NOT_SUPPORTED,     ANY,      "the value has no such form"},
    {EPC_ERR_NO_KEY_FOR_SCHEME, ANY,      "no key is known for {scheme}"},
    {EPC_ERR_NO_PRIMARY_KEY,    ANY,      "{scheme} needs {key}"},
    {EPC_ERR_TOO_MANY_AIS,      ANY,      "there are more than {ais} AIs"},
    {EPC_ERR_KEY_CONFLICT,      ANY,      "the text holds two different keys"},
    {EPC_ERR_CHECK_DIGIT,       ANY,      "a check digit is wrong"},
    {EPC_ERR_BAD_TID,           ANY,      "this is not the layout of a TID"},
};
// clang-format on

void fill(std::string& text, std::string_view place, std::string_view with) {
    for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place)) {
        text.replace(at, place.size(), with);
    }
}

} // namespace

std::string statusMeaning(EpcStatus status, const StatusCase& statusCase) {
    const auto* const row =
        std::find_if(std::begin(meanings), std::end(meanings), [&](const Meaning& meaning) {
            return meaning.status == status &&
                   (meaning.source == statusCase.source || meaning.source == ANY);
        });
    const SchemeInfo* const scheme = statusCase.scheme;
    std::string text(row == std::end(meanings) ? epc_statusText(status) : row->text);
    fill(text, "{key}",
         scheme == nullptr ? "a key such as AI 01 or AI 00" : schemeKeyText(*scheme));
    fill(text, "{limit}", std::to_string(scheme == nullptr ? 7 : schemeLargestFilter(*scheme)));
    fill(text, "{bits}", std::to_string(8 * EPC_MAX_BINARY_BYTES));
    fill(text, "{prefix}", gcpLengthsText());
    fill(text, "{ais}", std::to_string(EPC_MAX_AIS));
    fill(text, "{filter}", std::to_string(statusCase.filter));
    fill(text, "{scheme}", scheme == nullptr ? "a tag" : scheme->name);
    return text;
}

} // namespace rosetag
