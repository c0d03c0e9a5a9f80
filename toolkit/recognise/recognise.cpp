/*
 * Makes a value ready for the library: what it is, and its text without what people and devices add
 * to it.
 */
#include "recognise/bank_words.h"
#include "recognise/barcode_text.h"
#include "recognise/gtin_text.h"
#include "recognise/hex_text.h"
#include "recognise/link_text.h"
#include "recognise/look.h"
#include "words/ai_words.h"
#include "words/shown_text.h"

#include <algorithm>

namespace rosetag {

namespace {

// Keeps the elements of a bracketed text, GTINs padded.
void prepareElementString(Reading& reading, std::string_view value) {
    readingClear(reading);
    std::size_t kept = 0;
    for (std::size_t at = 0; at < value.size();) {
        const std::size_t end = std::min(value.find('(', at + 1), value.size());
        const std::string_view element = value.substr(at, end - at);
        at = end;
        const std::size_t close = element.find(')');
        if (close == std::string_view::npos) {
            continue;
        }
        const std::string_view number = element.substr(close + 1);
        if (isShortGtinOf(element.substr(1, close - 1), number)) {
            readingKeep(reading, value.substr(kept, end - number.size() - kept));
            keepGtin(reading, number);
            kept = end;
        }
    }
    readingKeep(reading, value.substr(kept));
}

bool prepareUri(Reading& reading, std::string_view value) {
    const std::string_view prefix =
        reading.form == Form::TAG_URI ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX;
    if (!value.starts_with(prefix)) {
        return readingFail(reading, EPC_ERR_BAD_FORMAT, positionIn(reading, value), prefix.size(),
                           [&] {
                               return Complaint{"an EPC URI begins with lower-case letters",
                                                "write " + std::string(prefix)};
                           });
    }
    readingClear(reading);
    readingKeep(reading, value);
    return true;
}

bool prepareForm(Reading& reading, std::string_view value) {
    switch (reading.form) {
    case Form::HEX:
        return keepHex(reading, value) && takeOffBankWords(reading) && hexFits(reading);
    case Form::TID:
        if (!keepHex(reading, value)) {
            return false;
        }
        if (tidIsEpcBank(reading)) {
            reading.form = Form::HEX;
            return takeOffBankWords(reading) && hexFits(reading);
        }
        return hexFits(reading);
    case Form::TAG_URI:
    case Form::PURE_IDENTITY:
        return prepareUri(reading, value);
    case Form::ELEMENT_STRING:
        prepareElementString(reading, value);
        return true;
    case Form::BARCODE_STRING:
        return prepareBarcode(reading, value);
    case Form::DIGITAL_LINK:
        return prepareLink(reading, value);
    case Form::GTIN:
        readingClear(reading);
        readingPut(reading, '(' + std::string(GTIN_AI) + ')', positionIn(reading, value));
        keepGtin(reading, value);
        return true;
    case Form::AIS:
    case Form::SERIAL:
    case Form::FITS_SCHEMES:
    case Form::FINDINGS:
    case Form::UNKNOWN:
        break;
    }
    return failUnknown(reading, value);
}

// Every other byte of ASCII in UTF-16 is a NUL.
bool failNul(Reading& reading, std::size_t nul) {
    const std::string_view value = reading.value;
    const auto nuls = static_cast<std::size_t>(std::count(value.begin(), value.end(), '\0'));
    const bool isUtf16 = nuls > 1 && nuls >= value.size() / 2;
    return readingFail(reading, EPC_ERR_BAD_CHARACTER, nul, 1, [&] {
        return Complaint{
            "a value cannot hold a NUL, the byte 0",
            isUtf16 ? "this may be UTF-16 text: convert it to UTF-8 first: iconv -f UTF-16 -t UTF-8"
                    : "leave it out"};
    });
}

} // namespace

std::string_view withoutOuterBlanks(Reading& reading) {
    const std::string_view value = reading.value;
    if (!value.empty() && !isBlank(value.front()) && !isBlank(value.back())) {
        return value;
    }
    const std::size_t first = std::min(value.find_first_not_of(BLANKS), value.size());
    const std::size_t last = value.find_last_not_of(BLANKS);
    const std::string_view inner =
        first == value.size() ? value.substr(first) : value.substr(first, last + 1 - first);
    if (inner.size() < value.size() && !inner.empty()) {
        readingNote(reading, NoteKind::BLANKS,
                    first > 0 ? value.substr(0, first) : value.substr(inner.size()),
                    "removed the blanks around the value");
    }
    return inner;
}

bool readingPrepare(Reading& reading) {
    reading.notes.clear();
    failureClear(reading.failure);
    reading.workspace.bankWords.clear();
    readingClear(reading);
    if (reading.value.size() > MAX_VALUE_LENGTH) {
        return readingFail(reading, EPC_ERR_TOO_LONG, MAX_VALUE_LENGTH, 0, [&] {
            return Complaint{"a value has at most " + std::to_string(MAX_VALUE_LENGTH) +
                                 " bytes, and this has " + std::to_string(reading.value.size()),
                             "give one value at a time"};
        });
    }
    if (failIsFile(reading, reading.value)) {
        return false;
    }
    if (const std::size_t nul = reading.value.find('\0'); nul != std::string_view::npos) {
        return failNul(reading, nul);
    }
    std::string_view value = withoutOuterBlanks(reading);
    if (value.starts_with(']') && !takeOffIdentifier(reading, value)) {
        return false;
    }
    reading.form = formByLook(value, reading.options);
    return prepareForm(reading, value);
}

void recognise(std::string_view value, const ReadOptions& options, Recognition& result) {
    Reading reading{value, options, result.workspace, result.notes, result.failure};
    readingPrepare(reading);
    result.form = reading.form;
    result.text = isFailure(result.failure) ? std::string_view() : result.workspace.text;
}

Recognition recognise(std::string_view value, const ReadOptions& options) {
    Recognition result;
    recognise(value, options, result);
    return result;
}

} // namespace rosetag
