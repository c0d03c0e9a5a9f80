#include "recognise/link_text.h"

#include "gs1/ai_catalogue.h"
#include "gs1/digital_link_keys.h"
#include "recognise/gtin_text.h"
#include "recognise/look.h"
#include "translate/parsed_ais.h"
#include "values/text_encoding.h"
#include "words/shown_text.h"

#include <algorithm>

namespace rosetag {

namespace {

struct LinkName {
    std::string_view name;
    std::string_view ai;
};

// Names that early versions of the standard allowed in place of AIs.
//
// Source: GS1 Digital Link Standard 1.0 and 1.1, section 4.3 (convenience alphas).
//
// clang-format off
constexpr LinkName linkNames[] = {
    {"gtin",    "01"},   {"cpv",     "22"},   {"lot",     "10"},   {"ser",     "21"},
    {"sscc",    "00"},   {"itip",    "8006"}, {"gmn",     "8013"}, {"cpid",    "8010"},
    {"cpsn",    "8011"}, {"gln",     "414"},  {"glnx",    "254"},  {"payTo",   "415"},
    {"refno",   "8020"}, {"gsrnp",   "8017"}, {"gsrn",    "8018"}, {"srin",    "8019"},
    {"gcn",     "255"},  {"gdti",    "253"},  {"ginc",    "401"},  {"gsin",    "402"},
    {"grai",    "8003"}, {"giai",    "8004"},
};
// clang-format on
static_assert(std::all_of(std::begin(linkNames), std::end(linkNames), [](const LinkName& row) {
    return row.name.size() <= LONGEST_LINK_CODE && row.ai.size() <= LONGEST_LINK_CODE;
}));

// What is known of a link, each part a view of the value.
struct Link {
    std::string_view host; // with its scheme
    std::string_view path; // from its "/" on
    std::string_view query;
    std::string_view fragment; // with its "#"
    bool hasQuery = false;
};

// Cuts text at the first separator and gives what follows it; a view at its end if there is none.
std::string_view cutAt(std::string_view& text, char separator) {
    const std::size_t at = std::min(text.find(separator), text.size());
    const std::string_view rest = text.substr(std::min(at + 1, text.size()));
    text = text.substr(0, at);
    return rest;
}

Link linkSplit(std::string_view value) {
    Link link;
    if (!value.starts_with('/')) {
        const std::size_t scheme = value.find("://");
        const std::size_t start = scheme == std::string_view::npos ? 0 : scheme + 3;
        const std::size_t end = std::min(value.find_first_of("/?#", start), value.size());
        link.host = value.substr(0, end);
        value.remove_prefix(end);
    }
    const std::size_t hash = std::min(value.find('#'), value.size());
    link.fragment = value.substr(hash);
    link.path = value.substr(0, hash);
    link.hasQuery = link.path.find('?') != std::string_view::npos;
    link.query = cutAt(link.path, '?');
    return link;
}

} // namespace

std::string_view aiOfLinkName(std::string_view name) {
    const auto* const row =
        std::find_if(std::begin(linkNames), std::end(linkNames),
                     [&](const LinkName& candidate) { return candidate.name == name; });
    return row == std::end(linkNames) ? std::string_view() : row->ai;
}

namespace {

// The AI that a segment of a path is, by its digits or by an old name; empty if it is not one.
std::string_view aiOfSegment(std::string_view segment) {
    if (!segment.empty() && charIsDigit(segment.front())) {
        return aiFind(segment) != nullptr ? segment : std::string_view();
    }
    return aiOfLinkName(segment);
}

// True for a segment that is the key of a link.
bool isKeySegment(std::string_view segment) {
    const AiDefinition* const ai = aiFind(aiOfSegment(segment));
    return ai != nullptr && ai->linkKey != 0;
}

// A trial keeps the text, but makes no notes.
enum class Notes : bool { NO, YES };

// what: a text
template <typename What>
void leaveOut(Reading& reading, std::string_view part, What what) {
    readingNote(reading, NoteKind::LEFT_OUT, part,
                [&] { return "left out " + std::string(what()); });
}

void keepValue(Reading& reading, std::string_view ai, std::string_view value, Notes notes) {
    if (!isShortGtinOf(ai, value)) {
        return readingKeep(reading, value);
    }
    const std::size_t before = reading.notes.size();
    keepGtin(reading, value);
    while (notes == Notes::NO && reading.notes.size() > before) {
        reading.notes.removeLast();
    }
}

// Keeps the AI that an old name stands for.
void keepName(Reading& reading, std::string_view segment, std::string_view ai, Notes notes) {
    readingPut(reading, ai, positionIn(reading, segment));
    if (notes == Notes::YES) {
        Note& note = readingNote(reading, NoteKind::OLD_NAME, segment, [&] {
            return quotedText(segment) + " is an old name of AI " + std::string(ai) +
                   ", which links no longer have";
        });
        note.severity = Severity::WARNING;
    }
}

// A path without its trailing slashes, unless the last one is before the empty value of an AI.
std::string_view withoutTrailingSlashes(std::string_view path) {
    auto slashes = std::count(path.begin(), path.end(), '/');
    while (path.ends_with('/')) {
        const std::string_view before = path.substr(0, path.size() - 1);
        if (slashes % 2 == 0 && !before.ends_with('/')) {
            break;
        }
        path = before;
        --slashes;
    }
    return path;
}

// Keeps a path of codes and values.
void keepPath(Reading& reading, std::string_view path, Notes notes) {
    readingClear(reading);
    const std::string_view kept = withoutTrailingSlashes(path);
    if (kept.size() < path.size() && notes == Notes::YES) {
        leaveOut(reading, path.substr(kept.size()), [&] { return "a trailing \"/\""; });
    }
    std::size_t first = 0; // of what is not kept yet
    std::size_t at = 0;
    std::string_view ai;
    for (bool isCode = true; at < kept.size(); isCode = !isCode) {
        const std::size_t end = std::min(kept.find('/', at + 1), kept.size());
        const std::string_view segment = kept.substr(at + 1, end - at - 1);
        ai = isCode ? aiOfSegment(segment) : ai;
        const bool isName = isCode && !ai.empty() && ai.data() != segment.data();
        if (isName || (!isCode && isShortGtinOf(ai, segment))) {
            readingKeep(reading, kept.substr(first, at + 1 - first));
            isName ? keepName(reading, segment, ai, notes) : keepValue(reading, ai, segment, notes);
            first = end;
        }
        at = end;
    }
    if (first < kept.size()) {
        readingKeep(reading, kept.substr(first));
    }
}

bool isRead(const Reading& reading) {
    ParsedAis ais;
    return aisParse(Form::DIGITAL_LINK, reading.workspace.text, ais) == EPC_OK;
}

// A path up to the end of its second segment.
std::string_view firstPair(std::string_view path) {
    const std::size_t second = path.find('/', 1);
    const std::size_t end = second == std::string_view::npos ? second : path.find('/', second + 1);
    return path.substr(0, end);
}

// True if the path has more segments than codes and values that can be read.
bool hasTooManySegments(std::string_view path) {
    constexpr std::size_t most = std::size_t{2} * EPC_MAX_AIS;
    std::size_t segments = 0;
    for (std::size_t at = 0; at < path.size() && segments <= most; ++at) {
        const bool begins = path[at] != '/' && (at == 0 || path[at - 1] == '/');
        segments += begins ? std::size_t{1} : 0;
    }
    return segments > most;
}

struct KeyPlace {
    std::size_t start;   // the end of the path if there is none
    std::size_t choices; // places where it could begin
};

// The last place that looks like a key, and how many there are.
KeyPlace placesOfKeys(std::string_view path) {
    KeyPlace place = {path.size(), 0};
    std::size_t at = path.find('/');
    while (at != std::string_view::npos) {
        const std::size_t end = path.find('/', at + 1);
        if (end != std::string_view::npos && isKeySegment(path.substr(at + 1, end - at - 1))) {
            place = {at, place.choices + 1};
        }
        at = end;
    }
    return place;
}

// Where the key begins: the last place from which everything reads; otherwise the last whose key
// and check digit are right; otherwise the last that looks like a key; otherwise the end.
KeyPlace findKey(Reading& reading, std::string_view path) {
    const std::size_t none = path.size();
    if (const KeyPlace only = placesOfKeys(path); only.choices <= 1) {
        return only;
    }
    std::size_t looks = none;
    std::size_t holds = none;
    KeyPlace reads = {none, 0};
    for (std::size_t at = path.find('/'); at != std::string_view::npos;
         at = path.find('/', at + 1)) {
        const std::string_view tail = path.substr(at);
        const std::size_t end = tail.find('/', 1);
        if (end == std::string_view::npos || !isKeySegment(tail.substr(1, end - 1))) {
            continue;
        }
        looks = at;
        keepPath(reading, firstPair(tail), Notes::NO);
        holds = isRead(reading) ? at : holds;
        if (hasTooManySegments(tail)) {
            continue;
        }
        keepPath(reading, tail, Notes::NO);
        if (isRead(reading)) {
            reads = {at, reads.choices + 1};
        }
    }
    if (reads.choices > 0) {
        return reads;
    }
    return {holds != none ? holds : looks, 0};
}

bool queryHoldsKey(std::string_view query) {
    while (!query.empty()) {
        std::string_view parameter = query;
        query = cutAt(parameter, '&');
        cutAt(parameter, '=');
        if (aiIsLinkKey(parameter)) {
            return true;
        }
    }
    return false;
}

// A semicolon that is followed by what would be a parameter.
void noteSemicolon(Reading& reading, std::string_view value) {
    const std::size_t at = value.find(';');
    if (at == std::string_view::npos) {
        return;
    }
    const std::string_view rest = value.substr(at + 1);
    if (rest.find('=') != std::string_view::npos &&
        aiFind(rest.substr(0, rest.find('='))) != nullptr) {
        Note& note = readingNote(reading, NoteKind::SEMICOLON, value.substr(at, 1),
                                 "a semicolon does not separate parameters, so that it and what "
                                 "follows belong to the value; \"&\" does");
        note.severity = Severity::WARNING;
    }
}

void keepParameter(Reading& reading, std::string_view parameter, bool& isFirst) {
    std::string_view code = parameter;
    const std::string_view value = cutAt(code, '=');
    if (parameter.empty()) {
        return leaveOut(reading, parameter, [&] { return "an empty parameter"; });
    }
    if (aiFind(code) == nullptr || code.size() == parameter.size()) {
        return leaveOut(reading, parameter, [&] {
            return "the parameter " + quotedText(parameter) + ", which is not an AI";
        });
    }
    readingPut(reading, isFirst ? "?" : "&", positionIn(reading, code) - 1);
    readingKeep(reading, parameter.substr(0, code.size() + 1));
    keepValue(reading, code, value, Notes::YES);
    noteSemicolon(reading, value);
    isFirst = false;
}

void keepQuery(Reading& reading, const Link& link) {
    if (link.query.empty()) {
        return leaveOut(reading, link.query, [&] { return "a trailing \"?\""; });
    }
    bool isFirst = true;
    std::string_view rest = link.query;
    bool more = true;
    while (more) {
        more = rest.find('&') != std::string_view::npos;
        std::string_view parameter = rest;
        rest = cutAt(parameter, '&');
        keepParameter(reading, parameter, isFirst);
    }
}

// How much of the path precedes the key. Without a key in the path that is all of it, if the query
// has one.
std::size_t stemLength(Reading& reading, const Link& link, const KeyPlace& place) {
    if (place.start < link.path.size() || !queryHoldsKey(link.query)) {
        return place.start < link.path.size() ? place.start : 0;
    }
    keepPath(reading, link.path, Notes::NO);
    return isRead(reading) ? 0 : link.path.size();
}

// A single segment of many characters is how compressed links look.
bool looksCompressed(const Link& link, const KeyPlace& place) {
    constexpr std::size_t shortest = 10;
    const std::string_view segment = link.path.substr(std::min<std::size_t>(1, link.path.size()));
    const auto isBase64Url = [](char character) {
        return textEncodings[AI_ENC_BASE64URL].alphabet.find(character) != std::string_view::npos;
    };
    return place.start == link.path.size() && !link.host.empty() && link.query.empty() &&
           segment.size() >= shortest && std::all_of(segment.begin(), segment.end(), isBase64Url) &&
           std::any_of(segment.begin(), segment.end(), charIsDigit);
}

void noteHostAndStem(Reading& reading, const Link& link, std::size_t stem) {
    if (!link.host.empty()) {
        const bool hasScheme = link.host.find("://") != std::string_view::npos;
        leaveOut(reading, link.host, [&] {
            return (hasScheme ? "scheme and host " : "the host ") + quotedText(link.host);
        });
    }
    if (!link.fragment.empty()) {
        leaveOut(reading, link.fragment,
                 [&] { return "the fragment " + quotedText(link.fragment); });
    }
    if (stem > 1) {
        const std::string_view path = link.path.substr(0, stem);
        leaveOut(reading, path, [&] { return "the path " + quotedText(path) + " before the key"; });
    }
}

} // namespace

bool prepareLink(Reading& reading, std::string_view value) {
    if (reading.options.strict) {
        readingClear(reading);
        readingKeep(reading, value);
        return true;
    }
    const Link link = linkSplit(value);
    if (const std::size_t nul = value.find("%00"); nul != std::string_view::npos) {
        return readingFail(
            reading, EPC_ERR_BAD_CHARACTER, positionIn(reading, value) + nul, 3, [&] {
                return Complaint{"%00 stands for a NUL, the byte 0, which no value can hold",
                                 "leave it out"};
            });
    }
    const KeyPlace place = findKey(reading, link.path);
    if (looksCompressed(link, place)) {
        return readingFail(
            reading, EPC_ERR_NOT_SUPPORTED, positionIn(reading, link.path), link.path.size(), [&] {
                return Complaint{
                    "this looks like a compressed GS1 Digital Link, which is not supported",
                    "decompress it first"};
            });
    }
    const std::size_t stem = stemLength(reading, link, place);
    noteHostAndStem(reading, link, stem);
    const std::string_view tail = link.path.substr(stem);
    keepPath(reading, tail, Notes::YES);
    if (link.hasQuery) {
        keepQuery(reading, link);
    }
    if (place.choices > 1) {
        readingNote(reading, NoteKind::SEVERAL_KEYS, tail, [&] {
            return "a key could begin at " + std::to_string(place.choices) +
                   " places, took the last: " + quotedText(tail);
        });
    }
    return true;
}

} // namespace rosetag
