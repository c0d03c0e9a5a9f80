#include "check/check_text.h"
#include "check/check_value.h"
#include "core/char_class.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::size_t IDENTIFIER_SIZE = 3;

enum class SymbolData : std::uint8_t { AIS, GTIN, LINK };

struct Symbology {
    std::string_view identifier;
    SymbolData data;
};

// Source: GS1 General Specifications, section 5.1.2 (symbology identifiers); ISO/IEC 15424.
//
// clang-format off
constexpr Symbology symbologies[] = {
    {"]C1", SymbolData::AIS},  // GS1-128
    {"]e0", SymbolData::AIS},  // GS1 DataBar
    {"]d2", SymbolData::AIS},  // GS1 DataMatrix
    {"]Q3", SymbolData::AIS},  // GS1 QR Code
    {"]J1", SymbolData::AIS},  // GS1 DotCode
    {"]E0", SymbolData::GTIN}, // EAN-13, UPC-A, UPC-E
    {"]E1", SymbolData::GTIN}, // the same with an add-on symbol
    {"]E2", SymbolData::GTIN},
    {"]E3", SymbolData::GTIN},
    {"]E4", SymbolData::GTIN}, // EAN-8
    {"]I1", SymbolData::GTIN}, // ITF-14
    {"]Q1", SymbolData::LINK}, // QR Code
    {"]d1", SymbolData::LINK}, // Data Matrix
};

// How people write character 29, GS.
constexpr std::string_view separators[] = {
    "\x1d", "{GS}", "{gs}", "<GS>", "[GS]", "{FNC1}", "\\x1d", "\\x1D", "\\u001d", "\\u001D",
};
// clang-format on

// The length of the separator at the front of the text, or 0.
std::size_t separatorLength(std::string_view text) {
    const auto* const separator =
        std::find_if(std::begin(separators), std::end(separators),
                     [&](std::string_view spelling) { return text.starts_with(spelling); });
    return separator == std::end(separators) ? 0 : separator->size();
}

constexpr std::array<bool, 256> separatorBeginningsMake() {
    std::array<bool, 256> beginnings{};
    for (const std::string_view spelling : separators) {
        beginnings[static_cast<unsigned char>(spelling[0])] = true;
    }
    return beginnings;
}
constexpr std::array<bool, 256> separatorBeginnings = separatorBeginningsMake();

// Where the next separator begins, or the end.
std::size_t findSeparator(std::string_view text, std::size_t position) {
    while (position < text.size() &&
           !(separatorBeginnings[static_cast<unsigned char>(text[position])] &&
             separatorLength(text.substr(position)) != 0)) {
        ++position;
    }
    return position;
}

// A symbol that holds nothing but a GTIN, of whatever length.
void checkGtinAlone(CheckRun& run, std::size_t position, std::size_t end) {
    static constexpr std::string_view code = "01";
    const std::string_view digits = run.value.substr(position, end - position);
    KnownAi known = knownAiOf(code);
    if (digits.size() == 8 || digits.size() == 12 || digits.size() == 13) {
        known.parts[0].least = known.parts[0].most = static_cast<std::uint8_t>(digits.size());
    }
    checkAi(run, {code, known.rule, digits, position, 0}, known, {digits, position});
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

std::size_t separatorLengthAt(const AiRun& ais, std::size_t position) {
    return position == ais.separator ? separatorLength(ais.text.substr(position)) : 0;
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
        ais.position = ais.separator + separatorLengthAt(ais, ais.separator);
        return;
    }
    const std::size_t start = ais.position + codeLength;
    const std::string_view code = ais.text.substr(ais.position, codeLength);
    const std::size_t end = findValueEnd(run, ais, start, code, *known);
    const std::string_view value = ais.text.substr(start, end - start);
    checkAi(run, {code, known->rule, value, ais.position, codeLength}, *known, {value, start});
    const std::size_t next = end + separatorLengthAt(ais, end);
    ais.position = predefinedValueLength(code) == 0 && next < ais.text.size() ? next : end;
}

void checkAiRun(CheckRun& run, std::size_t position, std::size_t end) {
    AiRun ais = {run.value.substr(0, end), position,
                 findSeparator(run.value.substr(0, end), position)};
    // A scanner may deliver the FNC1 that begins the symbol.
    ais.position += separatorLengthAt(ais, position);
    while (ais.position < end) {
        if (ais.separator < ais.position) {
            ais.separator = findSeparator(ais.text, ais.position);
        }
        const std::size_t separator = separatorLengthAt(ais, ais.position);
        if (separator == 0) {
            checkElement(run, ais);
        } else {
            report(run, CheckRule::NEEDLESS_SEPARATOR, {}, {ais.position, separator},
                   "a separator ends a value of variable length that another AI follows");
            ais.position += separator;
        }
    }
}

} // namespace

void checkBarcodeString(CheckRun& run, std::size_t position, std::size_t end) {
    run.kind = TextKind::BARCODE_STRING;
    if (run.value[position] != ']') {
        checkAiRun(run, position, end);
        return;
    }
    const std::string_view identifier =
        run.value.substr(position, std::min(IDENTIFIER_SIZE, end - position));
    const auto* const symbology =
        std::find_if(std::begin(symbologies), std::end(symbologies),
                     [&](const Symbology& row) { return row.identifier == identifier; });
    const std::size_t data = position + identifier.size();
    const bool isKnown = symbology != std::end(symbologies);
    if (!isKnown) {
        report(run, CheckRule::SYMBOLOGY, {}, {position, identifier.size()},
               "symbols of GS1 data are announced by ]C1, ]e0, ]d2, ]Q3 or ]J1");
    }
    if (!isKnown || symbology->data == SymbolData::AIS) {
        checkAiRun(run, data, end);
    } else if (symbology->data == SymbolData::GTIN) {
        checkGtinAlone(run, data, end);
    } else {
        checkDigitalLink(run, data, end);
    }
}

} // namespace rosetag
