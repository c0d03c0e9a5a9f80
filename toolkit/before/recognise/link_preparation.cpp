#include "before/recognise/link_preparation.h"

#include "before/recognise/value_form.h"
#include "before/translate/library_calls.h"
#include "before/words/ai_dictionary.h"

#include <algorithm>
#include <span>
#include <vector>

namespace rosetag {
inline namespace before {

namespace {

using Segments = std::vector<std::string>;

// What was done to a link, in words.
struct Changes {
    std::string leftOut;
    std::string padded;
};

void add(std::string& notes, std::string_view note) {
    notes += (notes.empty() ? "" : ", ") + std::string(note);
}

std::string quoted(std::string_view text) {
    return '"' + textForMessage(text) + '"';
}

// Cuts text at the first separator and gives what stood behind it.
std::string_view cutAt(std::string_view& text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = text.substr(at + 1);
    text = text.substr(0, at);
    return rest;
}

Segments split(std::string_view text, char separator) {
    Segments parts;
    bool more = true;
    while (more) {
        more = text.find(separator) != std::string_view::npos;
        const std::string_view rest = cutAt(text, separator);
        parts.emplace_back(text);
        text = rest;
    }
    return parts;
}

std::string pathOf(std::span<const std::string> segments) {
    std::string path;
    for (const std::string& segment : segments) {
        path += '/' + segment;
    }
    return path;
}

bool isRead(std::span<const std::string> segments) {
    return aiValuesOfLink(pathOf(segments)).status == EPC_OK;
}

void leaveOutHost(std::string_view& link, Changes& changes) {
    if (link.starts_with('/')) {
        return;
    }
    const std::size_t scheme = link.find("://");
    const bool hasScheme = scheme != std::string_view::npos;
    const std::size_t end =
        std::min(link.find_first_of("/?#", hasScheme ? scheme + 3 : 0), link.size());
    add(changes.leftOut,
        (hasScheme ? "scheme and host " : "the host ") + quoted(link.substr(0, end)));
    link.remove_prefix(end);
}

void leaveOutFragment(std::string_view& link, Changes& changes) {
    const std::size_t at = link.find('#');
    if (at != std::string_view::npos) {
        add(changes.leftOut, "the fragment " + quoted(link.substr(at)));
        link = link.substr(0, at);
    }
}

// An empty last segment is a trailing slash, unless it is the empty value of an AI.
void leaveOutTrailingSlashes(Segments& segments, Changes& changes) {
    const std::size_t before = segments.size();
    while (!segments.empty() && segments.back().empty() &&
           (segments.size() % 2 != 0 || segments[segments.size() - 2].empty())) {
        segments.pop_back();
    }
    if (segments.size() < before) {
        add(changes.leftOut, "a trailing \"/\"");
    }
}

void padGtin(std::string_view code, std::string& value, Changes& changes) {
    const bool isShort = value.size() == 8 || value.size() == 12 || value.size() == 13;
    if (code == "01" && isShort && isAllDigits(value)) {
        add(changes.padded, "the GTIN " + value);
        value.insert(0, 14 - value.size(), '0');
    }
}

// The path from a segment on, as the library is to get it.
Segments tailFrom(const Segments& segments, std::size_t start, Changes& changes) {
    Segments tail(segments.begin() + static_cast<std::ptrdiff_t>(start), segments.end());
    leaveOutTrailingSlashes(tail, changes);
    for (std::size_t i = 0; i + 1 < tail.size(); i += 2) {
        padGtin(tail[i], tail[i + 1], changes);
    }
    return tail;
}

// Where the key begins: the last place from which everything reads; else the last whose key and
// check digit hold; else the last that looks like a key; else behind the path.
struct KeyPlace {
    std::size_t start;
    std::size_t choices; // places from which everything reads
};

KeyPlace findKey(const Segments& segments) {
    const std::size_t none = segments.size();
    std::size_t looks = none;
    std::size_t holds = none;
    std::size_t reads = none;
    std::size_t choices = 0;
    for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
        if (!aiIsLinkKey(segments[i])) {
            continue;
        }
        Changes ignored;
        const Segments tail = tailFrom(segments, i, ignored);
        looks = i;
        if (tail.size() >= 2 && isRead(std::span(tail).first(2))) {
            holds = i;
        }
        if (isRead(tail)) {
            reads = i;
            ++choices;
        }
    }
    if (reads != none) {
        return {reads, choices};
    }
    return {holds != none ? holds : looks, 0};
}

struct Query {
    std::string text; // with its "?", or empty
    bool holdsKey = false;
};

void addParameter(Query& query, std::string_view parameter, Changes& changes) {
    std::string_view code = parameter;
    std::string value(cutAt(code, '='));
    if (parameter.empty()) {
        add(changes.leftOut, "an empty parameter");
    } else if (aiEntryOf(code) == nullptr || code.size() == parameter.size()) {
        add(changes.leftOut, "the parameter " + quoted(parameter) + ", which is no AI");
    } else {
        padGtin(code, value, changes);
        query.holdsKey = query.holdsKey || aiIsLinkKey(code);
        query.text += (query.text.empty() ? '?' : '&') + std::string(code) + '=' + value;
    }
}

Query queryOf(std::string_view text, Changes& changes) {
    Query query;
    if (text.empty()) {
        add(changes.leftOut, "a trailing \"?\"");
        return query;
    }
    for (const std::string& parameter : split(text, '&')) {
        addParameter(query, parameter, changes);
    }
    return query;
}

// The segments of the owner's own path in front of the key. Where the path has no key all of it is
// that, if the query has one.
std::size_t stemLength(const Segments& segments, const KeyPlace& place, const Query& query) {
    if (place.start < segments.size()) {
        return place.start;
    }
    return query.holdsKey && !isRead(segments) ? segments.size() : 0;
}

std::string notesOf(const Changes& changes, const KeyPlace& place, std::string_view path) {
    std::string notes;
    const auto addSentence = [&](const std::string& sentence) {
        notes += (notes.empty() ? "" : "; ") + sentence;
    };
    if (!changes.leftOut.empty()) {
        addSentence("left out " + changes.leftOut);
    }
    if (!changes.padded.empty()) {
        addSentence("padded " + changes.padded + " to 14 digits");
    }
    if (place.choices > 1) {
        addSentence("a key could begin at " + std::to_string(place.choices) +
                    " places, took the last: " + quoted(path));
    }
    return notes;
}

} // namespace

PreparedLink linkPrepare(std::string_view link) {
    Changes changes;
    leaveOutHost(link, changes);
    leaveOutFragment(link, changes);
    std::string_view path = link;
    const bool hasQuery = link.find('?') != std::string_view::npos;
    const std::string_view queryText = cutAt(path, '?');
    const Segments segments = path.empty() ? Segments() : split(path.substr(1), '/');
    Changes queryChanges;
    const Query query = hasQuery ? queryOf(queryText, queryChanges) : Query();

    const KeyPlace place = findKey(segments);
    const std::size_t stem = stemLength(segments, place, query);
    const std::string stemPath = pathOf(std::span(segments).first(stem));
    if (stem > 0 && stemPath != "/") {
        add(changes.leftOut, "the path " + quoted(stemPath) + " in front of the key");
    }
    const std::string tail = pathOf(tailFrom(segments, stem, changes));
    for (auto part : {&Changes::leftOut, &Changes::padded}) {
        if (!(queryChanges.*part).empty()) {
            add(changes.*part, queryChanges.*part);
        }
    }
    return {tail + query.text, notesOf(changes, place, tail)};
}

} // namespace before
} // namespace rosetag
