#include "recognise/barcode_text.h"

#include "core/char_scan.h"
#include "gs1/ai_catalogue.h"
#include "gs1/ai_list.h"
#include "gs1/barcode_string.h"
#include "recognise/gtin_text.h"
#include "recognise/look.h"
#include "words/shown_text.h"
#include "words/utf8.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::string_view separator(&GROUP_SEPARATOR, 1);

// In lower case; any case is taken.
constexpr std::string_view spellings[] = {"{gs}", "<gs>", "[gs]", "\\x1d", "\\u001d", "{fnc1}"};

// Whether GS or a spelling of it begins with a character.
constexpr std::array<bool, 256> beginsSeparatorMake() {
    std::array<bool, 256> begins{};
    begins[static_cast<unsigned char>(GROUP_SEPARATOR)] = true;
    for (const std::string_view spelling : spellings) {
        begins[static_cast<unsigned char>(spelling.front())] = true;
    }
    return begins;
}

constexpr std::array<bool, 256> beginsSeparator = beginsSeparatorMake();

constexpr std::array<bool, 256> maySeparateMake() {
    std::array<bool, 256> may = beginsSeparator;
    for (const char likely : LIKELY_SEPARATORS) {
        may[static_cast<unsigned char>(likely)] = true;
    }
    return may;
}

constexpr std::array<bool, 256> maySeparate = maySeparateMake();

// Where the first separator of a text begins, or its end.
std::size_t findSeparator(std::string_view text, const ReadOptions& options) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isCandidate =
            beginsSeparator[static_cast<unsigned char>(text[at])] || text[at] == options.separator;
        if (isCandidate && separatorLength(text.substr(at), options) > 0) {
            return at;
        }
    }
    return text.size();
}

// Identifiers that the library leaves to others: of symbols that hold AIs or a GTIN as well.
//
// Source: GS1 General Specifications, section 5.1.2; ISO/IEC 15424.
constexpr SymbologyIdentifier furtherIdentifiers[] = {
    // clang-format off
    {"]E1", 13}, // add-on symbols of two digits, scanned with their EAN-13
    {"]E2", 13}, // of five digits
    {"]E3", 13}, // EAN-13 with an add-on
    {"]Q3",  0}, // GS1 QR Code
    {"]J1",  0}, // GS1 DotCode
    // clang-format on
};

} // namespace

std::size_t separatorLength(std::string_view text, const ReadOptions& options) {
    if (text.empty()) {
        return 0;
    }
    const char first = text.front();
    if (first == GROUP_SEPARATOR || (options.separator != '\0' && first == options.separator)) {
        return 1;
    }
    if (!beginsSeparator[static_cast<unsigned char>(first)]) {
        return 0;
    }
    for (const std::string_view spelling : spellings) {
        if (beginsIgnoringCase(text, spelling)) {
            return spelling.size();
        }
    }
    return 0;
}

const SymbologyIdentifier* symbologyOf(std::string_view text) {
    if (!text.starts_with(']')) {
        return nullptr;
    }
    const std::string_view identifier = text.substr(0, SYMBOLOGY_IDENTIFIER_LENGTH);
    const auto isSame = [&](const SymbologyIdentifier& row) {
        return row.identifier == identifier;
    };
    for (const auto& rows : {std::span<const SymbologyIdentifier>(symbologyIdentifiers),
                             std::span<const SymbologyIdentifier>(furtherIdentifiers)}) {
        const auto row = std::find_if(rows.begin(), rows.end(), isSame);
        if (row != rows.end()) {
            return &*row;
        }
    }
    return nullptr;
}

std::string knownIdentifiers() {
    std::string names;
    for (const SymbologyIdentifier& row : symbologyIdentifiers) {
        names += std::string(row.identifier) + ' ';
    }
    for (const SymbologyIdentifier& row : furtherIdentifiers) {
        names += std::string(row.identifier) + ' ';
    }
    names.pop_back();
    return names;
}

namespace {

// An EAN symbol holds a GTIN of any of three lengths; the zeros before it may be missing.
bool prepareGtinSymbol(Reading& reading, std::string_view data, const SymbologyIdentifier& row) {
    const bool isEan = row.identifier[1] == 'E';
    const bool isLength =
        data.size() == row.gtinDigits || (isEan && isShortGtinLength(data.size()));
    if (!isLength || !isAllDigits(data)) {
        const auto stranger = std::find_if_not(data.begin(), data.end(), charIsDigit);
        const bool isLong = stranger == data.end();
        const std::size_t at = isLong ? 0 : static_cast<std::size_t>(stranger - data.begin());
        return readingFail(
            reading, isLong ? EPC_ERR_BAD_FORMAT : EPC_ERR_BAD_CHARACTER,
            positionIn(reading, data) + at, isLong ? data.size() : 1, [&] {
                return Complaint{
                    std::string(row.identifier) + " is followed by " +
                        (isEan ? shortGtinLengthsText() : std::to_string(row.gtinDigits)) +
                        " digits, " +
                        (isLong ? "not " + std::to_string(data.size())
                                : "and " + quotedText(firstCharacter(data.substr(at))) +
                                      " is not one"),
                    "scan the symbol again"};
            });
    }
    const std::size_t before = reading.notes.size();
    keepGtin(reading, data);
    // The zeros of a whole symbol are part of how it is read.
    if (data.size() == row.gtinDigits && reading.notes.size() > before) {
        reading.notes.removeLast();
    }
    return true;
}

void keepRun(Reading& reading, std::string_view run) {
    // Whatever precedes a separator or the end.
    while (!run.empty()) {
        const std::size_t length = findSeparator(run, reading.options);
        const std::size_t mark = separatorLength(run.substr(length), reading.options);
        const std::string_view part = run.substr(0, length);
        // A GTIN at the end, or before a separator, may be short.
        const std::string_view ai = part.substr(0, GTIN_AI.size());
        if (isShortGtinOf(ai, part.substr(ai.size()))) {
            readingKeep(reading, ai);
            keepGtin(reading, part.substr(ai.size()));
        } else {
            readingKeep(reading, part);
        }
        if (mark > 0) {
            readingPut(reading, separator, positionIn(reading, run) + length);
        }
        run.remove_prefix(length + mark);
    }
}

// A character that some programs write in place of GS, before something that is an AI.
void noteLikelySeparator(Reading& reading, std::string_view run) {
    const auto isLikely = [](char character) {
        return std::any_of(LIKELY_SEPARATORS.begin(), LIKELY_SEPARATORS.end(),
                           [=](char likely) { return character == likely; });
    };
    for (auto next = std::find_if(run.begin(), run.end(), isLikely); next != run.end();
         next = std::find_if(next + 1, run.end(), isLikely)) {
        const auto at = static_cast<std::size_t>(next - run.begin());
        const std::string_view rest = run.substr(at + 1);
        const AiPrefix prefix = rest.size() < 2 ? AiPrefix{} : aiPrefixOf(rest[0], rest[1]);
        if (prefix.codeDigits == 0 || run[at] == reading.options.separator ||
            aiFind(rest.substr(0, prefix.codeDigits)) == nullptr) {
            continue;
        }
        Note& note = readingNote(reading, NoteKind::SEPARATOR, run.substr(at, 1), [&] {
            return quotedText(run.substr(at, 1)) +
                   " precedes what could be an AI, and may stand for GS";
        });
        note.severity = Severity::WARNING;
        note.option = "separator";
        return;
    }
}

} // namespace

bool takeOffIdentifier(Reading& reading, std::string_view& value) {
    if (!value.starts_with(']') || symbologyOf(value) != nullptr) {
        return true;
    }
    const std::string_view identifier = value.substr(0, SYMBOLOGY_IDENTIFIER_LENGTH);
    const std::string_view data = value.substr(identifier.size());
    constexpr FormSet marked =
        Form::ELEMENT_STRING | Form::DIGITAL_LINK | Form::TAG_URI | Form::PURE_IDENTITY;
    if (!marked.has(formByLook(data, reading.options))) {
        reading.form = Form::BARCODE_STRING;
        return readingFail(reading, EPC_ERR_BAD_CHARACTER, positionIn(reading, identifier),
                           identifier.size(), [&] {
                               return Complaint{
                                   quotedText(identifier) +
                                       " is not the symbology identifier of a symbol with GS1 data",
                                   "those are " + knownIdentifiers() +
                                       "; leave it out if AIs follow it"};
                           });
    }
    readingNote(reading, NoteKind::LEFT_OUT, identifier,
                [&] { return "left out the symbology identifier " + quotedText(identifier); });
    value = data;
    return true;
}

bool holdsSeparator(std::string_view text, const ReadOptions& options) {
    return findSeparator(text, options) < text.size();
}

bool mayHoldSeparator(std::string_view text, const ReadOptions& options) {
    while (text.size() >= SCAN_WIDTH && markNonDigits(loadCharacters(text.data())) == 0) {
        text.remove_prefix(SCAN_WIDTH);
    }
    return options.separator != '\0' || std::any_of(text.begin(), text.end(), [](char character) {
               return maySeparate[static_cast<unsigned char>(character)];
           });
}

bool prepareBarcode(Reading& reading, std::string_view value) {
    readingClear(reading);
    std::string_view run = value;
    if (const SymbologyIdentifier* const row = symbologyOf(value); row != nullptr) {
        run = value.substr(SYMBOLOGY_IDENTIFIER_LENGTH);
        if (row->gtinDigits != 0) {
            readingPut(reading, GTIN_AI, positionIn(reading, run));
            return prepareGtinSymbol(reading, run, *row);
        }
    }
    // FNC1 in the first place only says that AIs follow.
    if (const std::size_t mark = separatorLength(run, reading.options); mark > 0) {
        readingNote(reading, NoteKind::LEFT_OUT, run.substr(0, mark),
                    "left out the separator before the first AI");
        run.remove_prefix(mark);
    }
    noteLikelySeparator(reading, run);
    keepRun(reading, run);
    return true;
}

} // namespace rosetag
