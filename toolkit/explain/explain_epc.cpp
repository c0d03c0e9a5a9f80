#include "explain/explain_epc.h"

#include "core/char_class.h"
#include "explain/explain_ai_values.h"
#include "recognise/bank_words.h"
#include "schemes/field_cage_code.h"
#include "schemes/field_chars.h"
#include "schemes/scheme_table.h"
#include "words/shown_text.h"

namespace rosetag {

namespace {

// The EPC begins at the third word of its memory bank.
constexpr std::size_t EPC_ADDRESS = 2 * HEX_WORD_BITS;

// What the fields so far say about those that follow.
struct LayoutState {
    bool hasData = false;
    CompanyPrefixSize prefix{};
    std::size_t keyAis = 0;
};

std::size_t widthOf(const SchemeField& field) {
    return static_cast<std::size_t>(field.width);
}

// The bits of a reference, and its digits or characters, after those of the company prefix.
std::size_t referenceWidth(const SchemeField& field, const LayoutState& state) {
    return static_cast<std::size_t>(field.width - state.prefix.bits);
}
std::size_t referenceSize(const SchemeField& field, const LayoutState& state) {
    return static_cast<std::size_t>(field.size - state.prefix.digits);
}

void meanText(Walk& walk, std::string_view text) {
    walkMean(walk, text.empty() ? "(empty)" : text, text);
}

// A number that is shown with leading zeros must not have more digits than that.
void walkPadded(Walk& walk, std::string_view name, std::size_t width, std::size_t digits) {
    const std::string number = zeroPadded(decimalOfBits(walkTake(walk, name, width)), digits);
    if (digits == 0 && number == "0") {
        return meanText(walk, {});
    }
    if (number.size() > digits) {
        walkFail(walk, number + " has more than " + counted(digits, "digit"));
    }
    meanText(walk, number);
}

void walkDecimal(Walk& walk, std::string_view name, std::size_t width, std::size_t digits) {
    meanText(walk, zeroPadded(decimalOfBits(walkTake(walk, name, width)), digits));
}

void walkNumberAfterOne(Walk& walk, const SchemeField& field) {
    const std::string number = decimalOfBits(walkTake(walk, field.name, widthOf(field)));
    if (!number.starts_with('1') || number.size() < 2) {
        walkFail(walk, number + " does not begin with a 1 and a digit");
    }
    meanText(walk, number.substr(1));
}

void walkChars7(Walk& walk, std::string_view name, std::size_t count) {
    const std::string_view bits = walkTake(walk, name, CHAR7_BITS * count);
    walkGroup(walk, CHAR7_BITS);
    std::string text;
    bool hasEnded = false;
    for (std::size_t i = 0; i < bits.size(); i += CHAR7_BITS) {
        const auto character = static_cast<char>(numberOfBits(bits.substr(i, CHAR7_BITS)));
        hasEnded = hasEnded || character == '\0';
        if (hasEnded ? character != '\0' : !charIsOfClass(character, CHAR_CLASS_AI82)) {
            return walkFail(walk, "character " + std::to_string(i / CHAR7_BITS + 1) +
                                      (hasEnded ? " follows the end of the text"
                                                : " is outside the GS1 character set 82"));
        }
        if (!hasEnded) {
            text += character;
        }
    }
    if (text.empty()) {
        walkFail(walk, "the text is empty");
    }
    meanText(walk, text);
}

bool isHashRefused(char character, HashRule rule, std::size_t position) {
    return character == '#' &&
           (rule == HashRule::HASH_NEVER || (rule == HashRule::HASH_FIRST_ONLY && position > 0));
}

// Characters of six bits up to a zero, which follows the longest text too.
void walkChars6(Walk& walk, const SchemeField& field, std::size_t most) {
    walkTake(walk, field.name, 0);
    walkGroup(walk, CHAR6_BITS);
    std::string text;
    for (;;) {
        const std::uint64_t value = numberOfBits(walkExtend(walk, CHAR6_BITS));
        if (!walk.isGood || value == 0) {
            break;
        }
        const char character = char6FromBits(value);
        if (!charIsOfClass(character, CHAR_CLASS_AI39) ||
            isHashRefused(character, field.hashRule, text.size())) {
            return walkFail(walk, "character " + std::to_string(text.size() + 1) +
                                      " is not allowed here");
        }
        text += character;
        if (text.size() > most) {
            return walkFail(walk, "no end within " + std::to_string(most) + " characters");
        }
    }
    if (text.size() < static_cast<std::size_t>(field.least)) {
        walkFail(walk, "the text is empty");
    }
    meanText(walk, text);
}

void walkCageCode(Walk& walk, const SchemeField& field) {
    const std::size_t charBits = widthOf(field) / CAGE_CODE_CHARS;
    walkTake(walk, field.name, 0);
    walkGroup(walk, charBits);
    std::string code;
    for (int i = 0; i < CAGE_CODE_CHARS; ++i) {
        const std::uint64_t value = numberOfBits(walkExtend(walk, charBits));
        const char character =
            charBits == CHAR6_BITS ? char6FromBits(value) : static_cast<char>(value);
        if (!walk.isGood || (i == 0 && character == ' ')) {
            continue;
        }
        if (!cageCodeHas(character)) {
            return walkFail(walk, "character " + std::to_string(i + 1) +
                                      " is neither a digit nor a letter other than I and O");
        }
        code += character;
    }
    meanText(walk, code);
}

void walkReserved(Walk& walk, std::string_view name, std::size_t width) {
    const std::string_view bits = walkTake(walk, name, width);
    if (bits.find('1') != std::string_view::npos) {
        return walkFail(walk, "must be zero");
    }
    walkMean(walk, "0");
}

void walkFilter(Walk& walk, const SchemeField& field) {
    const std::string filter = std::to_string(walkNumber(walk, field.name, widthOf(field)));
    walkMean(walk, filter, filter);
}

void walkToggle(Walk& walk, const SchemeField& field, LayoutState& state) {
    state.hasData = walkNumber(walk, field.name, widthOf(field)) != 0;
    walkMean(walk, state.hasData ? "further AIs after the key" : "the key alone");
}

void walkPartition(Walk& walk, const SchemeField& field, LayoutState& state) {
    const auto partition = static_cast<std::size_t>(walkNumber(walk, field.name, widthOf(field)));
    if (walk.isGood && partition >= companyPrefixSizes.size()) {
        walkFail(walk,
                 "no company prefix length has the partition value " + std::to_string(partition));
    }
    if (!walk.isGood) {
        return;
    }
    state.prefix = companyPrefixSizes[partition];
    walkMean(walk, std::to_string(partition) + ": a company prefix of " +
                       std::to_string(state.prefix.digits) + " digits");
}

void walkReferenceChars7(Walk& walk, const SchemeField& field, const LayoutState& state) {
    const std::size_t count = referenceSize(field, state);
    walkChars7(walk, field.name, count);
    const std::size_t rest = referenceWidth(field, state) - CHAR7_BITS * count;
    if (walk.isGood && rest > 0) {
        walkReserved(walk, "unused", rest);
    }
}

void walkLayoutField(Walk& walk, const SchemeField& field, LayoutState& state) {
    switch (field.kind) {
    case FieldKind::END:
        return;
    case FieldKind::FILTER:
        return walkFilter(walk, field);
    case FieldKind::PARTITION:
        return walkPartition(walk, field, state);
    case FieldKind::COMPANY_PREFIX:
        return walkPadded(walk, field.name, static_cast<std::size_t>(state.prefix.bits),
                          static_cast<std::size_t>(state.prefix.digits));
    case FieldKind::REFERENCE_DIGITS:
        return walkPadded(walk, field.name, referenceWidth(field, state),
                          referenceSize(field, state));
    case FieldKind::REFERENCE_OPEN:
        return walkDecimal(walk, field.name, referenceWidth(field, state), 0);
    case FieldKind::REFERENCE_CHARS7:
        return walkReferenceChars7(walk, field, state);
    case FieldKind::REFERENCE_CHARS6:
        return walkChars6(walk, field, referenceSize(field, state));
    case FieldKind::NUMBER:
        return walkDecimal(walk, field.name, widthOf(field), 0);
    case FieldKind::PADDED_NUMBER:
        return walkDecimal(walk, field.name, widthOf(field), static_cast<std::size_t>(field.size));
    case FieldKind::NUMBER_AFTER_ONE:
        return walkNumberAfterOne(walk, field);
    case FieldKind::CHARS7:
        return walkChars7(walk, field.name, static_cast<std::size_t>(field.size));
    case FieldKind::CHARS6:
        return walkChars6(walk, field, static_cast<std::size_t>(field.size));
    case FieldKind::CAGE_CODE:
        return walkCageCode(walk, field);
    case FieldKind::RESERVED:
        return walkReserved(walk, field.name, widthOf(field));
    case FieldKind::TOGGLE:
        return walkToggle(walk, field, state);
    case FieldKind::CODED_DATE:
        ++state.keyAis;
        return walkDateCoded(walk);
    case FieldKind::AI_VALUE:
        ++state.keyAis;
        return walkAiValue(walk, field.name);
    case FieldKind::DATA_SECTION:
        return state.hasData ? walkDataSection(walk, state.keyAis) : void();
    }
}

void walkRest(Walk& walk) {
    if (walkLeft(walk) == 0) {
        return;
    }
    const std::string_view bits = walkTake(walk, "after the value", walkLeft(walk));
    const bool isFilling = bits.size() < HEX_WORD_BITS && bits.find('1') == std::string_view::npos;
    walkMean(walk, isFilling ? "fills the last word" : "not part of the value");
}

// The CRC if there is one, the PC word, and its extensions. There is a CRC if more bits precede the
// EPC than the PC word accounts for.
void walkBankWords(Walk& walk, std::string_view words) {
    const std::size_t count = words.size() / HEX_WORD_DIGITS;
    if (count == 0) {
        return;
    }
    const bool hasCrc =
        count > 1 &&
        crc16Of(std::string_view(walk.explanation.hex).substr(HEX_WORD_DIGITS)) == wordAt(words, 0);
    if (hasCrc) {
        const std::string_view bits = walkTake(walk, "CRC", HEX_WORD_BITS);
        walkMean(walk, "0x" + hexOfBits(bits) + ", right");
    }
    const PcWord pc = pcWordOf(wordAt(words, hasCrc ? 1 : 0));
    walkTake(walk, "EPC length", PC_LENGTH_BITS);
    walkMean(walk, counted(pc.epcWords, "word") + ", " +
                       std::to_string(HEX_WORD_BITS * pc.epcWords) + " bits");
    walkTake(walk, "user memory", PC_FLAG_BITS);
    walkMean(walk, pc.hasUserMemory ? "holds something" : "empty");
    walkTake(walk, "extended PC", PC_FLAG_BITS);
    walkMean(walk, pc.hasExtension ? "follows the PC word" : "none");
    walkTake(walk, "toggle", PC_FLAG_BITS);
    walkMean(walk, pc.isOtherFamily ? "an application family of ISO" : "an EPC of GS1");
    const std::string_view last =
        walkTake(walk, pc.isOtherFamily ? "AFI" : "attribute bits", PC_LAST_BITS);
    walkMean(walk, "0x" + hexOfBits(last));
    for (std::size_t i = hasCrc ? 2 : 1; i < count; ++i) {
        walkMean(walk, "0x" + hexOfBits(walkTake(walk, "extended PC word", HEX_WORD_BITS)));
    }
}

const SchemeRow* walkHeader(Walk& walk) {
    const std::string_view bits = walkTake(walk, "header", TAG_HEADER_BITS);
    if (!walk.isGood) {
        return nullptr;
    }
    const std::string header = "0x" + hexOfBits(bits);
    for (const SchemeRow& row : schemeRows) {
        if (row.header == numberOfBits(bits)) {
            walkMean(walk, header + ": " + std::string(row.name));
            return &row;
        }
    }
    walkFail(walk, "no scheme has the header " + header);
    return nullptr;
}

} // namespace

bool explainEpc(std::string_view bankWords, std::string_view hexDigits, Explanation& explanation) {
    Walk walk = walkBegin(explanation, std::string(bankWords).append(hexDigits));
    walkBankWords(walk, bankWords);
    explanation.bankAddress = EPC_ADDRESS - 4 * bankWords.size();
    const SchemeRow* const row = walkHeader(walk);
    explanation.scheme =
        row == nullptr ? nullptr : &schemes()[static_cast<std::size_t>(row->scheme)];
    if (row == nullptr) {
        return false;
    }
    LayoutState state;
    for (const SchemeField& field : schemeFields(*row)) {
        walkLayoutField(walk, field, state);
        if (!walk.isGood) {
            return false;
        }
    }
    walkRest(walk);
    return true;
}

std::string explainedFault(const Explanation& explanation) {
    const ExplainedField& field = explanation.fields.back();
    std::string text = "bit " + std::to_string(field.first);
    if (field.width > 1) {
        text = "bits " + std::to_string(field.first) + " to " +
               std::to_string(field.first + field.width - 1);
    }
    return text + " (" + field.name + "): " + field.meaning;
}

} // namespace rosetag
