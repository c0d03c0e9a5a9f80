#include "check/check_text.h"
#include "check/check_value.h"
#include "recognise/barcode_text.h"
#include "recognise/gtin_text.h"

#include <algorithm>

namespace rosetag {

namespace {

// Where the next separator begins, or the end.
std::size_t findSeparator(const CheckRun& run, std::string_view text, std::size_t position) {
    while (position < text.size() && separatorLength(text.substr(position), run.options) == 0) {
        ++position;
    }
    return position;
}

// True if the text begins with an AI that GS1 has assigned.
bool beginsWithAi(std::string_view text) {
    return text.size() >= 2 &&
           knownAiOf(text.substr(0, knownAiCodeLength(text[0], text[1]))).rule != nullptr;
}

// The length of a value, or 0 if it varies.
std::size_t fixedLengthOf(const ValueParts& parts) {
    std::size_t length = 0;
    for (const ValuePart& part : parts) {
        if (part.least != part.most || part.optional) {
            return 0;
        }
        length += part.most;
    }
    return length;
}

// How far a run of AIs has been read.
struct AiRun {
    std::string_view text; // the value up to the end of the run
    std::size_t position;
    std::size_t separator; // where the next one begins, or the end
};

std::size_t separatorLengthAt(const CheckRun& run, const AiRun& ais, std::size_t position) {
    return position == ais.separator ? separatorLength(ais.text.substr(position), run.options) : 0;
}

// The end of a value that begins at position: at the next separator, or before that where its
// length is known.
std::size_t findValueEnd(CheckRun& run, const AiRun& ais, std::size_t position,
                         std::string_view code, const KnownAi& known) {
    const std::size_t separator = ais.separator;
    const std::size_t predefined = predefinedValueLength(code);
    if (predefined != 0) {
        return std::min(position + predefined, separator);
    }
    const std::size_t fixed = fixedLengthOf(known.parts);
    const std::size_t end = position + fixed;
    if (fixed == 0 || separator <= end || !beginsWithAi(ais.text.substr(end))) {
        return separator;
    }
    report(run, CheckRule::MISSING_SEPARATOR, code, {end, 0}, describeParts(known.parts));
    return end;
}

// Checks one AI and its value, and moves on to the next. After a code that is not assigned, that is
// what follows the next separator.
void checkElement(CheckRun& run, AiRun& ais) {
    const std::size_t left = ais.separator - ais.position;
    const std::size_t digits =
        left < 2 ? 0 : knownAiCodeLength(ais.text[ais.position], ais.text[ais.position + 1]);
    const std::size_t codeLength = std::min(digits != 0 ? digits : 2, left);
    const KnownAi* const known = checkAiCode(run, ais.position, codeLength);
    if (known == nullptr) {
        ais.position = ais.separator + separatorLengthAt(run, ais, ais.separator);
        return;
    }
    const std::size_t start = ais.position + codeLength;
    const std::string_view code = ais.text.substr(ais.position, codeLength);
    const std::size_t end = findValueEnd(run, ais, start, code, *known);
    const std::string_view value = ais.text.substr(start, end - start);
    checkAi(run, {code, known->rule, value, ais.position, codeLength}, *known, {value, start});
    const std::size_t next = end + separatorLengthAt(run, ais, end);
    ais.position = predefinedValueLength(code) == 0 && next < ais.text.size() ? next : end;
}

void checkAiRun(CheckRun& run, std::size_t position, std::size_t end) {
    AiRun ais = {run.value.substr(0, end), position,
                 findSeparator(run, run.value.substr(0, end), position)};
    // A scanner may deliver the FNC1 that begins the symbol.
    ais.position += separatorLengthAt(run, ais, position);
    while (ais.position < end) {
        if (ais.separator < ais.position) {
            ais.separator = findSeparator(run, ais.text, ais.position);
        }
        const std::size_t separator = separatorLengthAt(run, ais, ais.position);
        if (separator == 0) {
            checkElement(run, ais);
        } else {
            report(run, CheckRule::NEEDLESS_SEPARATOR, {}, {ais.position, separator},
                   "a separator is needed only between a value of variable length and the next AI");
            ais.position += separator;
        }
    }
}

} // namespace

void checkGtinAlone(CheckRun& run, std::size_t position, std::size_t end) {
    const std::string_view digits = run.value.substr(position, end - position);
    KnownAi known = knownAiOf(GTIN_AI);
    if (isShortGtinLength(digits.size())) {
        known.parts[0].least = known.parts[0].most = static_cast<std::uint8_t>(digits.size());
    }
    checkAi(run, {GTIN_AI, known.rule, digits, position, 0}, known, {digits, position});
}

void checkBarcodeString(CheckRun& run, std::size_t position, std::size_t end) {
    run.kind = TextKind::BARCODE_STRING;
    const std::string_view value = run.value.substr(position, end - position);
    if (value.front() != ']') {
        checkAiRun(run, position, end);
        return;
    }
    const SymbologyIdentifier* const symbology = symbologyOf(value);
    const std::size_t data =
        position + std::min<std::size_t>(SYMBOLOGY_IDENTIFIER_LENGTH, value.size());
    if (symbology == nullptr) {
        report(run, CheckRule::SYMBOLOGY, {}, {position, data - position}, knownIdentifiers());
        if (!beginsWithAi(run.value.substr(data, end - data))) {
            return;
        }
    }
    if (symbology != nullptr && symbology->gtinDigits != 0) {
        checkGtinAlone(run, data, end);
    } else {
        checkAiRun(run, data, end);
    }
}

} // namespace rosetag
