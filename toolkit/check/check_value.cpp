#include "check/check_value.h"

#include "check/part_rules.h"
#include "core/char_class.h"
#include "recognise/barcode_text.h"
#include "recognise/gtin_text.h"
#include "values/text_encoding.h"
#include "words/shown_text.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

struct CharacterSetEntry {
    CharacterSet set;
    CheckRule breaks;
    bool (*holds)(char character);
};

bool isOfSet82(char character) {
    return charIsOfClass(character, CHAR_CLASS_AI82);
}

bool isOfSet39(char character) {
    return charIsOfClass(character, CHAR_CLASS_AI39);
}

// With the padding.
//
// Source: RFC 4648, section 5.
bool isBase64Url(char character) {
    constexpr std::string_view alphabet = textEncodings[AI_ENC_BASE64URL].alphabet;
    return character == '=' || alphabet.find(character) != alphabet.npos;
}

constexpr CharacterSetEntry characterSets[] = {
    {CharacterSet::DIGITS, CheckRule::DIGITS, charIsDigit},
    {CharacterSet::SET_82, CheckRule::CHARACTER_SET_82, isOfSet82},
    {CharacterSet::SET_39, CheckRule::CHARACTER_SET_39, isOfSet39},
    {CharacterSet::BASE64URL, CheckRule::BASE64URL, isBase64Url},
};

struct ValueCheck {
    CheckRun& run;
    std::string_view code;
    const KnownAi& ai;
    const CheckedText& value;
};

// A part and the characters that it got.
struct PartCheck {
    const ValuePart& part;
    std::size_t at;
    std::size_t length;
};

// Some programs write another character in place of the separator: an AI follows it.
bool isBeforeAi(std::string_view rest) {
    if (rest.size() < 3 || LIKELY_SEPARATORS.find(rest[0]) == rest.npos) {
        return false;
    }
    const std::size_t length = knownAiCodeLength(rest[1], rest[2]);
    return length != 0 && knownAiOf(rest.substr(1, length)).rule != nullptr;
}

// True if all characters are in the set of the part. A run of others is one finding.
bool checkCharacters(const ValueCheck& check, const PartCheck& part) {
    const CharacterSetEntry& set = characterSets[static_cast<std::size_t>(part.part.set)];
    const std::string_view characters = check.value.characters;
    const char* const end = characters.data() + part.at + part.length;
    const char* stranger = std::find_if_not(characters.data() + part.at, end, set.holds);
    const bool isRight = stranger == end;
    while (stranger != end) {
        const char* const next = std::find_if(stranger, end, set.holds);
        const auto at = static_cast<std::size_t>(stranger - characters.data());
        const bool maySeparate =
            check.run.kind == TextKind::BARCODE_STRING && isBeforeAi(characters.substr(at));
        reportIn(check.run, set.breaks, check.code, check.value, at,
                 static_cast<std::size_t>(next - stranger),
                 maySeparate ? ", or say that it separates two AIs" : "")
            .option = maySeparate ? "separator" : "";
        stranger = std::find_if_not(next, end, set.holds);
    }
    return isRight;
}

std::string_view dateFormat(PartRule rule) {
    return rule == PartRule::DATE_WITH_CENTURY ? "YYYYMMDD"
           : rule == PartRule::DATE            ? "YYMMDD"
                                               : "YYMMDD, DD 00 for a whole month";
}

void checkPartRules(const ValueCheck& check, const PartCheck& part) {
    const std::string_view characters = check.value.characters.substr(part.at, part.length);
    for (const PartRule rule : part.part.rules) {
        const PartRuleEntry& entry = partRule(rule);
        if (entry.culpritOf == nullptr) {
            break;
        }
        const Culprit culprit = entry.culpritOf(characters);
        if (culprit.length != 0) {
            const std::string detail = entry.rightOne != nullptr ? entry.rightOne(characters)
                                                                 : std::string(dateFormat(rule));
            reportIn(check.run, entry.breaks, check.code, check.value, part.at + culprit.at,
                     culprit.length, detail);
        }
    }
}

// True for fourteen digits with a check digit and nothing after them.
bool isGtinAlone(const ValueParts& parts) {
    return parts[0].least == GTIN_LENGTH && parts[0].rules[0] == PartRule::CHECK_DIGIT &&
           parts[1].most == 0;
}

// A GTIN as printed below the bars, without leading zeros.
bool checkShortGtin(const ValueCheck& check) {
    const std::string_view digits = check.value.characters;
    if (!isGtinAlone(check.ai.parts) || !isShortGtinLength(digits.size()) ||
        !std::all_of(digits.begin(), digits.end(), charIsDigit)) {
        return false;
    }
    const std::size_t zeros = GTIN_LENGTH - digits.size();
    Finding& finding =
        reportIn(check.run, CheckRule::SHORT_GTIN, check.code, check.value, 0, digits.size(),
                 "GTIN-" + std::to_string(digits.size()) + ": put " + std::string(zeros, '0') +
                     " in front of it");
    finding.severity =
        check.run.kind == TextKind::DIGITAL_LINK ? Severity::WARNING : Severity::ERROR;
    checkPartRules(check, {check.ai.parts[0], 0, digits.size()});
    return true;
}

// What the value takes and what it has, in words.
std::string lengthDetail(const ValueCheck& check) {
    return describeParts(check.ai.parts) + ", and this value has " +
           std::to_string(check.value.characters.size());
}

// Reports a value that is too short or too long, and returns how many of its parts are complete.
std::size_t splitIntoParts(const ValueCheck& check, std::size_t (&ends)[MAX_VALUE_PARTS]) {
    const std::size_t size = check.value.characters.size();
    std::size_t at = 0;
    std::size_t count = 0;
    for (const ValuePart& part : check.ai.parts) {
        const std::size_t left = size - at;
        if (part.most == 0 || (left == 0 && part.optional)) {
            break;
        }
        if (left < part.least) {
            reportIn(check.run, CheckRule::TOO_SHORT, check.code, check.value, 0, size,
                     lengthDetail(check));
            checkCharacters(check, {part, at, left});
            return count;
        }
        at += std::min<std::size_t>(left, part.most);
        ends[count++] = at;
    }
    if (at < size) {
        const bool isBarcode = check.run.kind == TextKind::BARCODE_STRING;
        reportIn(check.run, CheckRule::TOO_LONG, check.code, check.value, at, size - at,
                 lengthDetail(check) + (isBarcode ? ": shorten it, or end it with a separator, FNC1"
                                                  : ": shorten it"));
    }
    return count;
}

void checkParts(const ValueCheck& check) {
    std::size_t ends[MAX_VALUE_PARTS];
    const std::size_t before = check.run.findings.size();
    const std::size_t count = splitIntoParts(check, ends);
    const bool isOfRightLength = check.run.findings.size() == before;
    std::size_t at = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const PartCheck part = {check.ai.parts[i], at, ends[i] - at};
        // With a digit too many or too few, the last part would break its rules for no other
        // reason.
        if (checkCharacters(check, part) && (isOfRightLength || i + 1 < count)) {
            checkPartRules(check, part);
        }
        at = ends[i];
    }
}

void checkCompanyPrefix(const ValueCheck& check) {
    const std::size_t place = check.ai.rule->companyPrefixAt;
    const std::string_view characters = check.value.characters;
    if (place == 0 || characters.size() < place) {
        return;
    }
    const std::string_view prefix = characters.substr(place - 1, SHORTEST_COMPANY_PREFIX);
    const bool isDigits = std::all_of(prefix.begin(), prefix.end(), charIsDigit);
    if (!isDigits || prefix.size() < SHORTEST_COMPANY_PREFIX) {
        // In a number, other rules have already found that.
        if (check.ai.parts[0].set != CharacterSet::DIGITS) {
            reportIn(check.run, CheckRule::COMPANY_PREFIX, check.code, check.value, place - 1,
                     prefix.size(), std::to_string(SHORTEST_COMPANY_PREFIX));
        }
        return;
    }
    const GcpList* const list = check.run.options.gcpList;
    if (list != nullptr &&
        gcpLengthOf(*list, characters.substr(place - 1)).kind == GcpAnswer::Kind::NO_PREFIX) {
        reportIn(check.run, CheckRule::UNASSIGNED_PREFIX, check.code, check.value, place - 1,
                 prefix.size(), list->date.empty() ? "" : " of " + list->date);
    }
}

bool isDigitsThroughout(const ValueParts& parts) {
    return std::all_of(parts.begin(), parts.end(), [](const ValuePart& part) {
        return part.most == 0 || part.set == CharacterSet::DIGITS;
    });
}

bool isFixedThroughout(const ValueParts& parts) {
    return std::all_of(parts.begin(), parts.end(),
                       [](const ValuePart& part) { return part.least == part.most; });
}

// "6 or 10 digits": every length of a value whose parts are of fixed length.
std::string describeFixedParts(const ValueParts& parts) {
    std::string lengths;
    std::size_t length = 0;
    for (std::size_t i = 0; i < parts.size() && parts[i].most != 0; ++i) {
        if (parts[i].optional) {
            lengths += std::to_string(length) + " or ";
        }
        length += parts[i].most;
    }
    return lengths + counted(length, isDigitsThroughout(parts) ? "digit" : "character");
}

} // namespace

std::string describeParts(const ValueParts& parts) {
    if (isFixedThroughout(parts)) {
        return describeFixedParts(parts);
    }
    std::string text;
    for (const ValuePart& part : parts) {
        const bool isFixed = part.least == part.most;
        if (part.most != 0) {
            text += text.empty() ? "" : ", then ";
            text += isFixed ? "" : part.optional ? "0 to " : std::to_string(part.least) + " to ";
            text += counted(part.most, part.set == CharacterSet::DIGITS ? "digit" : "character");
        }
    }
    return text;
}

void checkAi(CheckRun& run, const CheckedAi& ai, const KnownAi& known, const CheckedText& value) {
    rememberAi(run, ai);
    if (!known.newerTitle.empty()) {
        report(run, CheckRule::NEWER_AI, ai.code, {ai.position, ai.length}, known.newerTitle);
    }
    const ValueCheck check = {run, ai.code, known, value};
    if (value.characters.empty()) {
        reportIn(run, CheckRule::EMPTY_VALUE, ai.code, value, 0, 0, describeParts(known.parts));
    } else if (!checkShortGtin(check)) {
        checkParts(check);
        checkCompanyPrefix(check);
    }
}

} // namespace rosetag
