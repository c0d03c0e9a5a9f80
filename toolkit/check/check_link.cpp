#include "check/check_text.h"

#include "check/check_value.h"
#include "check/part_rules.h"
#include "core/char_class.h"
#include "core/hex_digits.h"
#include "gs1/digital_link_keys.h"
#include "recognise/link_text.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::size_t MAX_SEGMENTS = 64;
constexpr std::size_t MAX_LINK_VALUE = 255; // decoded; no AI takes as many

struct Segment {
    std::size_t position;
    std::size_t length;
};

// The segments of a path; of a longer one the last.
struct Path {
    std::array<Segment, MAX_SEGMENTS> segments;
    std::size_t count = 0;
};

std::string_view textOf(const CheckRun& run, const Segment& segment) {
    return run.value.substr(segment.position, segment.length);
}

void addSegment(Path& path, const Segment& segment) {
    if (path.count == MAX_SEGMENTS) {
        std::move(path.segments.begin() + 2, path.segments.end(), path.segments.begin());
        path.count -= 2;
    }
    path.segments[path.count++] = segment;
}

// position is that of the first "/", or at the end.
Path splitPath(const CheckRun& run, std::size_t position, std::size_t end) {
    Path path;
    while (position < end) {
        const std::size_t start = position + 1;
        position = std::min(run.value.find('/', start), end);
        addSegment(path, {start, position - start});
    }
    return path;
}

// The AI that a segment or the name of a parameter stands for.
std::string_view aiOfName(std::string_view name) {
    if (name.empty() || charIsDigit(name[0])) {
        return name;
    }
    const std::string_view ai = aiOfLinkName(name);
    return ai.empty() ? name : ai;
}

// True if the value of a key is as long as it should be and ends in its check digit.
bool keyFits(std::string_view code, std::string_view value) {
    const ValuePart& first = knownAiOf(code).parts[0];
    if (first.rules[0] != PartRule::CHECK_DIGIT) {
        return !value.empty();
    }
    return value.size() >= first.most &&
           partRule(PartRule::CHECK_DIGIT).culpritOf(value.substr(0, first.most)).length == 0;
}

// True if the segments from this one on are pairs of codes and values.
bool isPaired(const CheckRun& run, const Path& path, std::size_t first) {
    for (std::size_t i = first; i < path.count; i += 2) {
        const std::string_view name = textOf(run, path.segments[i]);
        if (knownAiOf(aiOfName(name)).rule == nullptr && !(name.empty() && i + 1 == path.count)) {
            return false;
        }
    }
    return true;
}

// Where the key begins: the first place from which codes and values come in pairs and whose value
// fits; else the last place whose value fits; else the first key; else the count of segments.
std::size_t findKey(const CheckRun& run, const Path& path) {
    std::size_t first = path.count;
    std::size_t fitting = path.count;
    for (std::size_t i = 0; i < path.count; ++i) {
        const std::string_view code = aiOfName(textOf(run, path.segments[i]));
        if (!aiIsLinkKey(code)) {
            continue;
        }
        first = std::min(first, i);
        if (i + 1 < path.count && keyFits(code, textOf(run, path.segments[i + 1]))) {
            if (isPaired(run, path, i)) {
                return i;
            }
            fitting = i;
        }
    }
    return fitting != path.count ? fitting : first;
}

// A value with its escapes resolved.
struct DecodedValue {
    char characters[MAX_LINK_VALUE];
    std::uint16_t offsets[MAX_LINK_VALUE + 1];
    std::size_t length = 0;
};

std::string escapesOf(std::string_view text) {
    std::string escapes;
    for (const char character : text) {
        escapes += '%';
        escapes += hexPairOf(static_cast<std::uint8_t>(character));
    }
    return escapes;
}

// Characters of AI values that a URI takes only as escapes and that do not end a segment.
//
// Source: RFC 3986, section 2.
constexpr bool isNotInUri(char character) {
    return character == '"' || character == '<' || character == '>';
}

void decodeValue(CheckRun& run, std::string_view code, const Segment& raw, DecodedValue& decoded) {
    const std::string_view text = textOf(run, raw);
    std::size_t at = 0;
    while (at < text.size() && decoded.length < MAX_LINK_VALUE) {
        const std::size_t left = std::min<std::size_t>(3, text.size() - at);
        std::size_t size = 1;
        char character = text[at];
        if (character == '%') {
            const std::int32_t escaped = left == 3 ? hexPairValue(text[at + 1], text[at + 2]) : -1;
            if (escaped >= 0) {
                character = static_cast<char>(escaped);
                size = 3;
            } else {
                report(run, CheckRule::LINK_ESCAPE, code, {raw.position + at, left});
            }
        } else if (isNotInUri(character)) {
            report(run, CheckRule::LINK_CHARACTER, code, {raw.position + at, 1},
                   escapesOf({&character, 1}));
        }
        decoded.offsets[decoded.length] = static_cast<std::uint16_t>(at);
        decoded.characters[decoded.length++] = character;
        at += size;
    }
    decoded.offsets[decoded.length] = static_cast<std::uint16_t>(at);
}

// Checks an AI and its value. Null if it is not assigned.
const KnownAi* checkLinkAi(CheckRun& run, const Segment& name, const Segment& value) {
    const std::string_view code = aiOfName(textOf(run, name));
    const bool isOldName = code.data() != textOf(run, name).data();
    const KnownAi* const known =
        isOldName ? &knownAiOf(code) : checkAiCode(run, name.position, name.length);
    if (isOldName) {
        report(run, CheckRule::LINK_NAME, code, {name.position, name.length});
    }
    if (known != nullptr) {
        DecodedValue decoded;
        decodeValue(run, code, value, decoded);
        checkAi(run, {code, known->rule, textOf(run, value), name.position, name.length}, *known,
                {{decoded.characters, decoded.length}, value.position, decoded.offsets});
    }
    return known;
}

bool isQualifierOf(const LinkKey& row, std::string_view code) {
    return !code.empty() &&
           std::find(row.qualifiers.begin(), row.qualifiers.end(), code) != row.qualifiers.end();
}

std::string qualifierText(const LinkKey& row) {
    std::string text;
    for (const std::string_view qualifier : row.qualifiers) {
        text += text.empty() || qualifier.empty() ? "" : ", ";
        text += qualifier;
    }
    return text;
}

// The qualifiers of a key in words: "22, 10, 21 or else 235".
std::string qualifiersOfKey(std::string_view key) {
    std::string text;
    for (const LinkKey& row : linkKeys()) {
        const std::string qualifiers = row.key == key ? qualifierText(row) : "";
        text += text.empty() || qualifiers.empty() ? "" : " or else ";
        text += qualifiers;
    }
    return text.empty() ? "no further AI" : text;
}

// The qualifiers that have been met in a path.
struct QualifierOrder {
    std::string_view key;
    const LinkKey* row = nullptr; // the choice that the first of them made
    std::size_t next = 0;         // place in the row after the last one
};

const LinkKey* choiceOf(std::string_view key, std::string_view code) {
    const auto rows = linkKeys();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const LinkKey& candidate) {
        return candidate.key == key && isQualifierOf(candidate, code);
    });
    return row == rows.end() ? nullptr : &*row;
}

void checkQualifier(CheckRun& run, QualifierOrder& order, std::string_view code,
                    const Segment& name) {
    const Place place = {name.position, name.length};
    const LinkKey* const choice = choiceOf(order.key, code);
    if (choice == nullptr) {
        report(run, CheckRule::LINK_QUALIFIER, code, place,
               "after AI " + std::string(order.key) + " the path of a link takes " +
                   qualifiersOfKey(order.key) +
                   (aiIsLinkKey(code) ? ": write a separate link for AI " + std::string(code)
                                      : ": move AI " + std::string(code) + " to the query"));
        return;
    }
    if (order.row != nullptr && choice != order.row) {
        report(run, CheckRule::LINK_QUALIFIER, code, place,
               "after AI " + std::string(order.key) + " the path of a link takes " +
                   qualifiersOfKey(order.key) + ", not both: leave out AI " + std::string(code));
        return;
    }
    order.row = choice;
    const auto at = static_cast<std::size_t>(
        std::find(choice->qualifiers.begin(), choice->qualifiers.end(), code) -
        choice->qualifiers.begin());
    if (at + 1 < order.next) {
        report(run, CheckRule::LINK_ORDER, code, place, qualifierText(*choice));
    }
    order.next = std::max(order.next, at + 1);
}

void checkPath(CheckRun& run, const Path& path, std::size_t first, QualifierOrder& order) {
    std::size_t count = path.count;
    // An empty segment where an AI would begin is a "/" at the end.
    while ((count - first) % 2 != 0 && path.segments[count - 1].length == 0) {
        --count;
    }
    for (std::size_t i = first; i < count; i += 2) {
        const Segment& name = path.segments[i];
        const Segment nothing = {name.position + name.length, 0};
        const KnownAi* const known =
            checkLinkAi(run, name, i + 1 < count ? path.segments[i + 1] : nothing);
        const std::string_view code = aiOfName(textOf(run, name));
        if (i == first) {
            order.key = code;
        } else if (known != nullptr) {
            checkQualifier(run, order, code, name);
        }
    }
}

// Where an AI that may not be in the query belongs.
std::string placeOutsideQuery(std::string_view code) {
    for (const LinkKey& row : linkKeys()) {
        if (isQualifierOf(row, code)) {
            return "it belongs in the path, after AI " + std::string(row.key);
        }
    }
    return "leave it out";
}

void checkParameter(CheckRun& run, std::size_t position, std::size_t end) {
    const std::size_t equals = run.value.find('=', position);
    const Segment name = {position, std::min(equals, end) - position};
    const std::string_view nameText = textOf(run, name);
    const bool isNumber =
        !nameText.empty() && std::all_of(nameText.begin(), nameText.end(), charIsDigit);
    const bool isOldName = aiOfName(nameText).data() != nameText.data();
    // Any other parameter belongs to the owner of the link.
    if (!isNumber && !isOldName) {
        return;
    }
    const std::size_t start = std::min(name.position + name.length + 1, end);
    const KnownAi* const known = checkLinkAi(run, name, {start, end - start});
    if (known != nullptr && known->rule->linkQuery == LinkQuery::NO) {
        const std::string_view code = aiOfName(nameText);
        report(run, CheckRule::LINK_QUERY, code, {name.position, name.length},
               placeOutsideQuery(code));
    }
}

// True if a ";" at position is followed by another parameter.
bool isOldSeparator(const CheckRun& run, std::size_t position, std::size_t end) {
    if (run.value[position] != ';') {
        return false;
    }
    const std::string_view rest = run.value.substr(position + 1, end - position - 1);
    const auto equals = std::find_if_not(rest.begin(), rest.end(), charIsDigit);
    return equals != rest.end() && equals - rest.begin() >= 2 && *equals == '=';
}

void checkQuery(CheckRun& run, std::size_t position, std::size_t end) {
    while (position < end) {
        std::size_t next = position;
        while (next < end && run.value[next] != '&' && !isOldSeparator(run, next, end)) {
            ++next;
        }
        checkParameter(run, position, next);
        if (next < end && run.value[next] == ';') {
            report(run, CheckRule::LINK_SEMICOLON, {}, {next, 1});
        }
        position = next + 1;
    }
}

// The first "/" after scheme and host.
std::size_t findPath(std::string_view value, std::size_t position, std::size_t end) {
    if (value[position] == '/') {
        return position;
    }
    const std::size_t scheme = value.find("://", position);
    const std::size_t host = scheme < end ? scheme + 3 : position;
    return std::min(value.find_first_of("/?#", host), end);
}

} // namespace

void checkDigitalLink(CheckRun& run, std::size_t position, std::size_t end) {
    run.kind = TextKind::DIGITAL_LINK;
    const std::size_t path = findPath(run.value, position, end);
    end = std::min(run.value.find('#', path), end);
    const std::size_t query = std::min(run.value.find('?', path), end);
    const Path segments = splitPath(run, path, query);
    const std::size_t key = findKey(run, segments);
    QualifierOrder order;
    if (key < segments.count) {
        checkPath(run, segments, key, order);
    } else {
        report(run, CheckRule::LINK_KEY, {}, {path, query - path},
               "the path of a link has a key and its value, as in /01/09506000134352: insert them, "
               "or decompress a compressed link first");
    }
    checkQuery(run, std::min(query + 1, end), end);
}

} // namespace rosetag
