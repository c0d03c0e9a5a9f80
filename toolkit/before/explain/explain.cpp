#include "before/explain/explain.h"

#include "before/explain/explain_ai_values.h"
#include "before/explain/explain_layouts.h"
#include "before/words/scheme_dictionary.h"

#include <algorithm>

namespace rosetag {
inline namespace before {

namespace {

// What the fields read so far say of those that follow.
struct LayoutState {
    bool hasData = false;
    std::size_t partition = 0;
    std::size_t prefixBits = 0;
    std::size_t prefixDigits = 0;
    std::size_t keyAis = 0;
};

enum class HashRule { ANYWHERE, NEVER, FIRST_ONLY };

void meanDigits(Walk& walk, const std::string& digits) {
    walkMean(walk, digits, digits);
}

// A number that is shown at a width must not have more digits.
void walkPaddedNumber(Walk& walk, std::string_view name, std::size_t width, std::size_t digits) {
    const std::string number =
        zeroPadded(decimalOfBits(walkTake(walk, std::string(name), width)), digits);
    if (digits == 0 && number == "0") {
        return walkMean(walk, "(empty)");
    }
    if (number.size() > digits) {
        walkFail(walk, number + " has more than " + std::to_string(digits) + " digits");
    }
    meanDigits(walk, number);
}

void walkPlainNumber(Walk& walk, const LayoutField& field, std::size_t width, std::size_t digits) {
    meanDigits(walk,
               zeroPadded(decimalOfBits(walkTake(walk, std::string(field.name), width)), digits));
}

void walkNumberBehindOne(Walk& walk, const LayoutField& field) {
    const std::string number = decimalOfBits(
        walkTake(walk, std::string(field.name), static_cast<std::size_t>(field.width)));
    if (!number.starts_with('1') || number.size() < 2) {
        walkFail(walk, number + " is not a serial behind a leading 1");
    }
    meanDigits(walk, number.substr(1));
}

void walkChars7(Walk& walk, const LayoutField& field, std::size_t count) {
    const std::string_view bits = walkTake(walk, std::string(field.name), 7 * count);
    walk.fields.back().groups = groupsOf(7);
    std::string text;
    bool hasEnded = false;
    for (std::size_t i = 0; i < bits.size(); i += 7) {
        const auto character = static_cast<char>(numberOfBits(bits.substr(i, 7)));
        hasEnded = hasEnded || character == '\0';
        if (hasEnded ? character != '\0' : !isInCharacterSet82(character)) {
            return walkFail(walk, "character " + std::to_string(i / 7 + 1) +
                                      (hasEnded ? " stands behind the end of the text"
                                                : " is outside the GS1 character set"));
        }
        if (!hasEnded) {
            text += character;
        }
    }
    if (walk.isGood && text.empty()) {
        walkFail(walk, "the text is empty");
    }
    meanDigits(walk, text);
}

char characterOf6Bits(std::uint64_t value) {
    return static_cast<char>(value < 32 ? value + 64 : value);
}

bool isHashRefused(char character, HashRule rule, std::size_t position) {
    return character == '#' &&
           (rule == HashRule::NEVER || (rule == HashRule::FIRST_ONLY && position > 0));
}

// Six bits a character, up to a zero that must come behind most characters at the latest.
void walkChars6(Walk& walk, const LayoutField& field, std::size_t most, HashRule rule) {
    walkTake(walk, std::string(field.name), 0);
    walk.fields.back().groups = groupsOf(6);
    std::string text;
    while (walkExtend(walk, 6)) {
        const std::string_view bits = walkLastBits(walk);
        const std::uint64_t value = numberOfBits(bits.substr(bits.size() - 6));
        if (value == 0) {
            break;
        }
        const char character = characterOf6Bits(value);
        if (!isInCharacterSet39(character) || isHashRefused(character, rule, text.size())) {
            return walkFail(walk, "character " + std::to_string(text.size() + 1) +
                                      " is none that may stand here");
        }
        text += character;
        if (text.size() > most) {
            return walkFail(walk, "no end within " + std::to_string(most) + " characters");
        }
    }
    if (walk.isGood && text.empty() && field.kind != FieldKind::CHARS6_EMPTY) {
        walkFail(walk, "the text is empty");
    }
    walkMean(walk, text.empty() ? "(empty)" : text, text);
}

void walkCode(Walk& walk, const LayoutField& field, std::size_t charBits) {
    constexpr std::string_view alphabet = "ABCDEFGHJKLMNPQRSTUVWXYZ0123456789";
    walkTake(walk, std::string(field.name), 0);
    walk.fields.back().groups = groupsOf(static_cast<std::size_t>(charBits));
    std::string code;
    for (int i = 0; i < 6 && walkExtend(walk, charBits); ++i) {
        const std::string_view bits = walkLastBits(walk);
        const std::uint64_t value = numberOfBits(bits.substr(bits.size() - charBits));
        if (i == 0 && value == ' ') {
            continue;
        }
        const char character = charBits == 6 ? characterOf6Bits(value) : static_cast<char>(value);
        if (alphabet.find(character) == std::string_view::npos) {
            return walkFail(walk, "character " + std::to_string(i + 1) +
                                      " is neither a digit nor a letter other than I and O");
        }
        code += character;
    }
    meanDigits(walk, code);
}

void walkReserved(Walk& walk, std::string_view name, std::size_t width) {
    const std::string_view bits = walkTake(walk, std::string(name), width);
    if (bits.find('1') != std::string_view::npos) {
        return walkFail(walk, "must be zero");
    }
    walkMean(walk, "0");
}

void walkFilter(Walk& walk, const LayoutField& field) {
    const std::uint64_t filter =
        walkNumber(walk, std::string(field.name), static_cast<std::size_t>(field.width));
    walkMean(walk, std::to_string(filter), std::to_string(filter));
}

void walkToggle(Walk& walk, const LayoutField& field, LayoutState& state) {
    state.hasData = walkNumber(walk, std::string(field.name), 1) != 0;
    walkMean(walk, state.hasData ? "further AIs behind the key" : "the key alone");
}

void walkPartition(Walk& walk, const LayoutField& field, LayoutState& state) {
    const auto partition = static_cast<int>(walkNumber(walk, std::string(field.name), 3));
    if (partition > 6) {
        walkFail(walk, "7 stands for no company prefix length");
    }
    if (!walk.isGood) {
        return;
    }
    state.partition = static_cast<std::size_t>(partition);
    state.prefixBits = static_cast<std::size_t>(companyPrefixBits(partition));
    state.prefixDigits = static_cast<std::size_t>(companyPrefixDigits(partition));
    walkMean(walk, std::to_string(partition) + ": a company prefix of " +
                       std::to_string(state.prefixDigits) + " digits");
}

void walkReference(Walk& walk, const LayoutField& field, const LayoutState& state) {
    const auto characters =
        static_cast<std::size_t>(referenceCharacters(static_cast<int>(state.partition)));
    const std::size_t width = static_cast<std::size_t>(field.width) - state.prefixBits;
    switch (field.kind) {
    case FieldKind::REFERENCE_DIGITS:
        return walkPaddedNumber(walk, field.name, width,
                                static_cast<std::size_t>(field.size) - state.prefixDigits);
    case FieldKind::REFERENCE_OPEN:
        return walkPlainNumber(walk, field, width, 0);
    case FieldKind::REFERENCE_CHARS6:
        return walkChars6(walk, field, characters, HashRule::ANYWHERE);
    default:
        walkChars7(walk, field, characters);
        if (walk.isGood && width > 7 * characters) {
            walkReserved(walk, "unused", width - 7 * characters);
        }
    }
}

void walkKeyAi(Walk& walk, const LayoutField& field, LayoutState& state) {
    ++state.keyAis;
    walkAiValue(walk, field.name);
}

void walkField(Walk& walk, const LayoutField& field, LayoutState& state) {
    const auto width = static_cast<std::size_t>(field.width);
    const auto size = static_cast<std::size_t>(field.size);
    switch (field.kind) {
    case FieldKind::END:
        return;
    case FieldKind::FILTER:
        return walkFilter(walk, field);
    case FieldKind::TOGGLE:
        return walkToggle(walk, field, state);
    case FieldKind::PARTITION:
        return walkPartition(walk, field, state);
    case FieldKind::COMPANY_PREFIX:
        return walkPaddedNumber(walk, field.name, state.prefixBits, state.prefixDigits);
    case FieldKind::REFERENCE_DIGITS:
    case FieldKind::REFERENCE_OPEN:
    case FieldKind::REFERENCE_CHARS7:
    case FieldKind::REFERENCE_CHARS6:
        return walkReference(walk, field, state);
    case FieldKind::NUMBER:
        return walkPlainNumber(walk, field, width, 0);
    case FieldKind::NUMBER_TWO_DIGITS:
        return walkPlainNumber(walk, field, width, 2);
    case FieldKind::NUMBER_BEHIND_ONE:
        return walkNumberBehindOne(walk, field);
    case FieldKind::CHARS7:
        return walkChars7(walk, field, size);
    case FieldKind::CHARS6:
        return walkChars6(walk, field, size, HashRule::FIRST_ONLY);
    case FieldKind::CHARS6_EMPTY:
        return walkChars6(walk, field, size, HashRule::NEVER);
    case FieldKind::CODE_CHARS8:
        return walkCode(walk, field, 8);
    case FieldKind::CODE_CHARS6:
        return walkCode(walk, field, 6);
    case FieldKind::RESERVED:
        return walkReserved(walk, field.name, width);
    case FieldKind::DATE_CODED:
        ++state.keyAis;
        return walkDateCoded(walk);
    case FieldKind::AI_VALUE:
        return walkKeyAi(walk, field, state);
    case FieldKind::DATA_SECTION:
        return state.hasData ? walkDataSection(walk, state.keyAis) : void();
    }
}

void walkRest(Walk& walk) {
    if (walkLeft(walk) == 0) {
        return;
    }
    const std::string_view bits = walkTake(walk, "behind the value", walkLeft(walk));
    const bool isFilling = bits.size() < 16 && bits.find('1') == std::string_view::npos;
    walkMean(walk, isFilling ? "fills the last word" : "not looked at");
}

const SchemeEntry* walkHeader(Walk& walk) {
    const std::string_view bits = walkTake(walk, "header", 8);
    if (!walk.isGood) {
        return nullptr;
    }
    const std::string header = "0x" + hexOfBits(bits);
    const SchemeEntry* const scheme = schemeByHeader(static_cast<std::uint8_t>(numberOfBits(bits)));
    if (scheme == nullptr) {
        walkFail(walk, "no scheme has the header " + header);
    } else {
        walkMean(walk, header + ": " + std::string(scheme->name));
    }
    return scheme;
}

} // namespace

WalkedBits explainEpc(std::string_view hexDigits) {
    WalkedBits explanation{"", {bitsOfHex(hexDigits), 0, {}, true}};
    Walk& walk = explanation.walk;
    const SchemeEntry* const scheme = walkHeader(walk);
    if (scheme == nullptr) {
        return explanation;
    }
    explanation.subject = scheme->name;
    LayoutState state;
    for (const LayoutField& field : layoutOfScheme(scheme->name)->fields) {
        walkField(walk, field, state);
        if (!walk.isGood) {
            return explanation;
        }
    }
    walkRest(walk);
    return explanation;
}

std::string explainFailure(const WalkedBits& explanation) {
    const Walk& walk = explanation.walk;
    if (walk.isGood || walk.fields.empty()) {
        return {};
    }
    const ExplainedField& field = walk.fields.back();
    std::string place = "bit " + std::to_string(field.first);
    if (field.width > 1) {
        place = "bits " + std::to_string(field.first) + " to " +
                std::to_string(field.first + field.width - 1);
    }
    return place + " (" + field.name + "): " + field.meaning;
}

} // namespace before
} // namespace rosetag
