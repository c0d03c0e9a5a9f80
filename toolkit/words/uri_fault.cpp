#include "words/uri_fault.h"

#include "schemes/epc_uri.h"
#include "translate/translate.h"
#include "words/scheme_words.h"
#include "words/shown_text.h"
#include "words/uri_field_fault.h"

#include <algorithm>
#include <vector>

namespace rosetag {

namespace {

bool isInUri(const SchemeField& field, Form form) {
    return field.kind != FieldKind::PARTITION && field.kind != FieldKind::RESERVED &&
           (field.kind != FieldKind::FILTER || form == Form::TAG_URI);
}

std::vector<const SchemeField*> uriFields(const SchemeInfo& scheme, Form form) {
    std::vector<const SchemeField*> fields;
    for (const SchemeField& field : schemeFields(schemeRowOf(scheme))) {
        if (isInUri(field, form)) {
            fields.push_back(&field);
        }
    }
    return fields;
}

// Walks the fields of a body, which is the rest of the URI.
bool faultOfBody(UriFault& fault, std::string_view body, const SchemeInfo& scheme, Form form) {
    const std::vector<const SchemeField*> fields = uriFields(scheme, form);
    CompanyPrefixSize prefix{};
    std::string_view rest = body;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isLast = i + 1 == fields.size();
        const std::size_t dot = isLast ? rest.size() : std::min(rest.find('.'), rest.size());
        UriFieldView view{scheme, *fields[i], rest.substr(0, dot), prefix};
        const auto position = static_cast<std::size_t>(rest.data() - body.data());
        if (uriFieldFault(fault, view)) {
            fault.position += position;
            fault.isInTail = isLast;
            return true;
        }
        prefix = view.prefix;
        if (!isLast && dot == rest.size()) {
            fault = {body.size(),
                     0,
                     true,
                     {"the URI ends before the " + std::string(fields[i + 1]->name),
                      "its form is " + uriShape(scheme, form)}};
            return true;
        }
        rest.remove_prefix(std::min(dot + 1, rest.size()));
    }
    return false;
}

std::string lowerCaseOf(std::string_view text) {
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character + ('a' - 'A'));
        }
    }
    return lower;
}

const SchemeInfo* schemeOfFamily(std::string_view family) {
    const SchemeInfo* found = nullptr;
    for (const SchemeInfo& scheme : schemes()) {
        found = scheme.hasUris && scheme.family == family ? &scheme : found;
    }
    return found;
}

bool faultOfSchemeName(UriFault& fault, std::string_view word) {
    const std::string lower = lowerCaseOf(word);
    fault.length = word.size();
    if (schemeByName(lower) != nullptr && lower != word) {
        fault.complaint = {"the names of tag schemes are lower case", "write " + shownText(lower)};
    } else {
        fault.complaint = {"there is no tag scheme " + quotedText(word),
                           "choose one of " + schemeNamesLike(lower)};
    }
    return true;
}

bool faultOfFamily(UriFault& fault, std::string_view word) {
    const std::string lower = lowerCaseOf(word);
    fault.length = word.size();
    if (lower != word) {
        fault.complaint = {"the names of kinds of identity are lower case",
                           "write " + shownText(lower)};
        return true;
    }
    fault.complaint = {"there is no kind of identity " + quotedText(word), "choose one of"};
    std::string_view last;
    for (const SchemeInfo& scheme : schemes()) {
        if (scheme.hasUris && scheme.family != last) {
            last = scheme.family;
            fault.complaint.remedy += ' ' + std::string(last);
        }
    }
    return true;
}

} // namespace

std::string uriShape(const SchemeInfo& scheme, Form form) {
    const bool isTagUri = form == Form::TAG_URI;
    std::string shape(isTagUri ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX);
    shape += isTagUri ? scheme.name : scheme.family;
    char separator = ':';
    for (const SchemeField* field : uriFields(scheme, form)) {
        shape += separator;
        for (const char character : field->name) {
            const bool isLower = character >= 'a' && character <= 'z';
            shape += character == ' ' ? '-' : static_cast<char>(character - (isLower ? 32 : 0));
        }
        separator = '.';
    }
    return shape;
}

std::string uriHolders(const std::string& pureIdentity) {
    Rows<const SchemeInfo*> fits;
    if (schemesThatFit(pureIdentity, HowMany::ALL, fits) != EPC_OK || fits.empty()) {
        return {};
    }
    std::string names;
    for (const SchemeInfo* scheme : fits) {
        names += names.empty() ? "" : " or ";
        names += scheme->name;
    }
    return names + " can hold it";
}

bool uriFindFault(std::string_view uri, const SchemeInfo* scheme, UriFault& fault) {
    const bool isTagUri = uri.starts_with(TAG_URI_PREFIX);
    const std::string_view prefix = isTagUri ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX;
    const std::string_view rest = uri.substr(prefix.size());
    const std::size_t colon = std::min(rest.find(':'), rest.size());
    const std::string_view word = rest.substr(0, colon);
    const SchemeInfo* const own = isTagUri ? schemeByName(word) : schemeOfFamily(word);
    fault = {};
    if (own == nullptr) {
        fault.position = prefix.size();
        return isTagUri ? faultOfSchemeName(fault, word) : faultOfFamily(fault, word);
    }
    if (colon == rest.size()) {
        fault = {uri.size(),
                 0,
                 false,
                 {"the URI ends after " + quotedText(word),
                  "its form is " + uriShape(*own, isTagUri ? Form::TAG_URI : Form::PURE_IDENTITY)}};
        return true;
    }
    const SchemeInfo& target = isTagUri || scheme == nullptr ? *own : *scheme;
    if (!target.hasUris || target.family != own->family) {
        return false;
    }
    const std::string_view body = rest.substr(colon + 1);
    const Form form = isTagUri ? Form::TAG_URI : Form::PURE_IDENTITY;
    if (!faultOfBody(fault, body, target, form)) {
        return false;
    }
    const bool isOfFilter = isTagUri && target.filterLimit > 0 && fault.position < body.find('.');
    if (fault.complaint.remedy.empty() && !isOfFilter) {
        std::string pure(PURE_IDENTITY_URI_PREFIX);
        pure += target.family;
        pure += ':';
        pure += isTagUri && target.filterLimit > 0
                    ? body.substr(std::min(body.find('.') + 1, body.size()))
                    : body;
        fault.complaint.remedy = uriHolders(pure);
    }
    if (fault.complaint.remedy.empty()) {
        fault.complaint.remedy = "the form is " + uriShape(target, form);
    }
    fault.position += prefix.size() + colon + 1;
    return true;
}

} // namespace rosetag
