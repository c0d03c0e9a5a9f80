#include "before/words/status_meaning.h"

#include "before/explain/explain_layouts.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

using enum StatusSource;

// {scheme}, {limit}, {filter}, {form} and {key} stand for those of the case.
struct Meaning {
    EpcStatus status;
    StatusSource source;
    std::string_view text;
};

// clang-format off
constexpr Meaning meanings[] = {
    // status                   from      in words; the first row that fits is taken
    {EPC_ERR_NO_ROOM,           GS1_TEXT, "the text ends inside a value of fixed length"},
    {EPC_ERR_NO_ROOM,           GS1,      "the data takes more than the 496 bits that a value can have"},
    {EPC_ERR_NO_ROOM,           GS1_PLUS, "the data takes more than the 496 bits that a value can have"},
    {EPC_ERR_NO_ROOM,           AI_VALUE, "the value takes more than 496 bits"},
    {EPC_ERR_NO_ROOM,           ANY,      "there is no room for the result"},
    {EPC_ERR_TRUNCATED,         URI,      "the URI ends too early; its form is {form}"},
    {EPC_ERR_TRUNCATED,         GS1_TEXT, "the text ends where more is due"},
    {EPC_ERR_TRUNCATED,         GS1,      "a part of the key or its serial is missing"},
    {EPC_ERR_TRUNCATED,         AI_VALUE, "the value is too short for this AI"},
    {EPC_ERR_TRUNCATED,         ANY,      "the bits end too early"},
    {EPC_ERR_OUT_OF_RANGE,      URI,      "a number is too large for {scheme} or has the wrong count of digits; the form is {form}"},
    {EPC_ERR_OUT_OF_RANGE,      GS1,      "a number is too large for {scheme}, or the key is shorter than its company prefix"},
    {EPC_ERR_OUT_OF_RANGE,      ANY,      "a number is too large for its place"},
    {EPC_ERR_TOO_LONG,          URI,      "a part of the URI is longer than any may be"},
    {EPC_ERR_TOO_LONG,          AI_VALUE, "the value is too long for this AI"},
    {EPC_ERR_TOO_LONG,          BITS,     "a value has at most 496 bits, 124 hexadecimal digits"},
    {EPC_ERR_TOO_LONG,          ANY,      "a value is longer than it may be"},
    {EPC_ERR_UNKNOWN_HEADER,    ANY,      "no scheme has this header"},
    {EPC_ERR_BAD_PARTITION,     ANY,      "a company prefix has 6 to 12 digits"},
    {EPC_ERR_BAD_FORMAT,        URI,      "it has not the form {form}, or a number has a leading zero, or a text is too long for {scheme}"},
    {EPC_ERR_BAD_FORMAT,        GS1_TEXT, "this is not how the text can go on: the punctuation is wrong, or the value before it is too long"},
    {EPC_ERR_BAD_FORMAT,        GS1,      "{scheme} cannot hold a serial or reference with a leading zero, with a letter, or of this length; a longer scheme of its family may, or the plus scheme"},
    {EPC_ERR_BAD_FORMAT,        GS1_PLUS, "a value has not the form of its AI, such as a date that there is not"},
    {EPC_ERR_BAD_FORMAT,        AI_VALUE, "the value has not the form of this AI"},
    {EPC_ERR_BAD_FORMAT,        ANY,      "the layout is broken"},
    {EPC_ERR_FILTER_FIELD,      ANY,      "the filter {filter} does not fit {scheme}"},
    {EPC_ERR_SCHEME_MISMATCH,   URI,      "the URI names another kind of identity than {scheme} holds"},
    {EPC_ERR_SCHEME_MISMATCH,   ANY,      "{scheme} holds {key}, and the key of the text is another"},
    {EPC_ERR_FILTER_LIMIT,      ANY,      "the filter of {scheme} is a number from 0 to {limit}"},
    {EPC_ERR_UNKNOWN_SCHEME,    ANY,      "no scheme has this name; rosetag schemes lists all"},
    {EPC_ERR_NO_KEY_DEFINITION, ANY,      "no kind of identity has this name, or it has no GS1 form"},
    {EPC_ERR_UNKNOWN_AI,        ANY,      "GS1 has assigned no such AI"},
    {EPC_ERR_SECOND_KEY,        ANY,      "the text holds more than one GS1 key, and {scheme} holds one"},
    {EPC_ERR_NO_KEY_AI,         GS1_TEXT, "the text holds no AI"},
    {EPC_ERR_NO_KEY_AI,         ANY,      "the text holds no GS1 key; {scheme} needs {key}"},
    {EPC_ERR_NO_SECONDARY_AI,   ANY,      "{scheme} needs {key}, the second behind the first"},
    {EPC_ERR_BAD_CHARACTER,     URI,      "a character is outside those that its field may hold"},
    {EPC_ERR_BAD_CHARACTER,     AI_VALUE, "a character is outside those that this AI, or the encoding, may hold"},
    {EPC_ERR_BAD_CHARACTER,     GS1_TEXT, "the digits of an AI are due here, or, in a link, two hexadecimal digits behind a percent sign"},
    {EPC_ERR_BAD_CHARACTER,     GS1_PLUS, "a character is one that its AI, or the encoding, cannot hold"},
    {EPC_ERR_BAD_CHARACTER,     ANY,      "a character is outside the set that its field may hold"},
    {EPC_ERR_NOT_SUPPORTED,     URI,      "{scheme} has no URI form"},
    {EPC_ERR_NOT_SUPPORTED,     GS1,      "{scheme} has no GS1 form, its identities are URIs"},
    {EPC_ERR_NOT_SUPPORTED,     ANY,      "the value has no such form"},
    {EPC_ERR_NO_KEY_FOR_SCHEME, ANY,      "no key is known for {scheme}"},
    {EPC_ERR_NO_PRIMARY_KEY,    ANY,      "{scheme} needs {key}"},
    {EPC_ERR_TOO_MANY_AIS,      ANY,      "there are more than 20 AIs"},
    {EPC_ERR_KEY_CONFLICT,      ANY,      "the text holds two different keys"},
    {EPC_ERR_CHECK_DIGIT,       ANY,      "a check digit is wrong"},
    {EPC_ERR_BAD_TID,           ANY,      "this is not the layout of a TID"},
};

struct FamilyKey {
    std::string_view family;
    std::string_view ais;
};

constexpr FamilyKey familyKeys[] = {
    {"sgtin",  "AI 01 and AI 21"},
    {"sscc",   "AI 00"},
    {"sgln",   "AI 414 and AI 254"},
    {"grai",   "AI 8003"},
    {"giai",   "AI 8004"},
    {"gsrn",   "AI 8018"},
    {"gsrnp",  "AI 8017"},
    {"gdti",   "AI 253"},
    {"cpi",    "AI 8010 and AI 8011"},
    {"sgcn",   "AI 255"},
    {"itip",   "AI 8006 and AI 21"},
    {"dsgtin", "AI 01, AI 21 and a date (AI 11, 13, 15, 16, 17, 7006 or 7007)"},
};
// clang-format on

std::string_view keyOf(const SchemeEntry* scheme) {
    if (scheme != nullptr) {
        for (const FamilyKey& key : familyKeys) {
            if (key.family == scheme->family) {
                return key.ais;
            }
        }
    }
    return "a key such as AI 01 or AI 00";
}

bool standsInUri(FieldKind kind) {
    return kind != FieldKind::END && kind != FieldKind::PARTITION && kind != FieldKind::RESERVED;
}

// The form of a URI by its fields: urn:epc:id:sgtin:COMPANY-PREFIX.ITEM-REFERENCE.SERIAL.
std::string uriForm(const StatusCase& statusCase) {
    if (statusCase.scheme == nullptr || schemeIsPlus(*statusCase.scheme)) {
        return "urn:epc:...";
    }
    const SchemeEntry& scheme = *statusCase.scheme;
    const bool isTagUri = statusCase.form == ValueForm::TAG_URI;
    std::string form(isTagUri ? TAG_URI_PREFIX : PURE_URI_PREFIX);
    form += isTagUri ? scheme.name : scheme.family;
    char separator = ':';
    for (const LayoutField& field : layoutOfScheme(scheme.name)->fields) {
        if (standsInUri(field.kind) && (isTagUri || field.kind != FieldKind::FILTER)) {
            form += separator;
            for (const char character : field.name) {
                const bool isLower = character >= 'a' && character <= 'z';
                form += character == ' ' ? '-' : static_cast<char>(character - (isLower ? 32 : 0));
            }
            separator = '.';
        }
    }
    return form;
}

void fill(std::string& text, std::string_view place, std::string_view with) {
    for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place)) {
        text.replace(at, place.size(), with);
    }
}

} // namespace

std::string statusMeaning(EpcStatus status, const StatusCase& statusCase) {
    const auto* const row = std::ranges::find_if(meanings, [&](const Meaning& meaning) {
        return meaning.status == status &&
               (meaning.source == statusCase.source || meaning.source == ANY);
    });
    const SchemeEntry* const scheme = statusCase.scheme;
    std::string text(row == std::end(meanings) ? epc_statusText(status) : row->text);
    fill(text, "{form}", uriForm(statusCase));
    fill(text, "{key}", keyOf(scheme));
    fill(text, "{limit}", std::to_string(scheme == nullptr ? 7 : scheme->filterLimit - 1));
    fill(text, "{filter}", std::to_string(statusCase.filter));
    fill(text, "{scheme}", scheme == nullptr ? "a tag" : scheme->name);
    return text;
}

} // namespace before
} // namespace rosetag
