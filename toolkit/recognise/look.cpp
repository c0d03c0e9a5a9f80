#include "recognise/look.h"

#include "core/char_class.h"
#include "gs1/ai_prefix.h"
#include "recognise/barcode_text.h"
#include "recognise/gtin_text.h"
#include "recognise/hex_text.h"
#include "words/shown_text.h"
#include "words/utf8.h"

#include <algorithm>
#include <array>

namespace rosetag {

namespace {

constexpr char lowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

bool isLetter(char character) {
    return lowerCase(character) >= 'a' && lowerCase(character) <= 'z';
}

bool looksLikeHex(std::string_view value) {
    return beginsIgnoringCase(value, "0x") ||
           (std::all_of(value.begin(), value.end(), isHexOrGap) &&
            std::any_of(value.begin(), value.end(), isHexDigit));
}

// A name that ends as those of files do.
bool looksLikeFileName(std::string_view value) {
    constexpr std::string_view endings[] = {".csv", ".tsv", ".txt",  ".json", ".jsonl", ".ndjson",
                                            ".xml", ".log", ".xlsx", ".zip",  ".gz"};
    return value.find("://") == std::string_view::npos &&
           std::any_of(std::begin(endings), std::end(endings), [&](std::string_view ending) {
               return value.size() > ending.size() &&
                      beginsIgnoringCase(value.substr(value.size() - ending.size()), ending);
           });
}

// A Web address without its scheme: a host with a dot before the first "/".
bool looksLikeHostAndPath(std::string_view value) {
    if (looksLikeFileName(value)) {
        return false;
    }
    const std::string_view host = value.substr(0, value.find('/'));
    const auto isHostCharacter = [](char character) {
        return charIsDigit(character) || isLetter(character) || character == '.' ||
               character == '-' || character == ':';
    };
    return host.size() < value.size() && host.find('.') != std::string_view::npos &&
           std::all_of(host.begin(), host.end(), isHostCharacter);
}

std::size_t commonLength(std::string_view value, std::string_view prefix) {
    std::size_t length = 0;
    while (length < std::min(value.size(), prefix.size()) &&
           lowerCase(value[length]) == prefix[length]) {
        ++length;
    }
    return length;
}

// Files that are not text at all, or not in UTF-8.
struct FileMark {
    std::string_view bytes;
    std::string_view message;
    std::string_view remedy;
};

// clang-format off
constexpr FileMark fileMarks[] = {
    {{"\xFF\xFE", 2}, "this is UTF-16 text",         "convert it to UTF-8 first: iconv -f UTF-16 -t UTF-8"},
    {{"\xFE\xFF", 2}, "this is UTF-16 text",         "convert it to UTF-8 first: iconv -f UTF-16 -t UTF-8"},
    {{"\x1F\x8B", 2}, "this is a gzip file",         "decompress it first: gzip -dc"},
    {{"PK\x03\x04", 4}, "this is a zip file",        "extract the text first"},
    {{"<?xml", 5},    "this is XML",                 "give the values in it"},
    {{"{\"", 2},      "this is JSON",                "give the values in it"},
};
// clang-format on

constexpr std::array<bool, 256> firstsOfFilesMake() {
    std::array<bool, 256> firsts{};
    for (const FileMark& mark : fileMarks) {
        firsts[static_cast<unsigned char>(mark.bytes.front())] = true;
    }
    return firsts;
}

constexpr std::array<bool, 256> firstsOfFiles = firstsOfFilesMake();

constexpr std::string_view forms =
    "a value is hex of a tag's memory (3074257BF7194E4000001A85), an EPC URI (urn:epc:tag:... or "
    "urn:epc:id:...), a GS1 element string ((01)80614141123458(21)6789), a barcode string "
    "(]C1...), a GS1 Digital Link (https://example.com/01/...), or a GTIN";

bool failAfterUrn(Reading& reading, std::string_view value, std::size_t length) {
    constexpr std::string_view common = "urn:epc:";
    const std::size_t known = std::min(length, common.size());
    const std::string expected =
        known < common.size() ? std::string(common.substr(known)) : std::string("tag:\" or \"id:");
    const std::string_view rest = value.substr(known);
    return readingFail(reading, EPC_ERR_BAD_FORMAT, positionIn(reading, rest), rest.size(), [&] {
        return Complaint{"an EPC URI continues with \"" + expected + "\" after \"" +
                             std::string(value.substr(0, known)) + '"',
                         "write urn:epc:tag: and a tag scheme, or urn:epc:id: and a kind of "
                         "identity"};
    });
}

} // namespace

bool beginsIgnoringCase(std::string_view text, std::string_view lowerCasePrefix) {
    return text.starts_with(lowerCasePrefix) ||
           commonLength(text, lowerCasePrefix) == lowerCasePrefix.size();
}

bool isAllDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), charIsDigit);
}

Form formByLook(std::string_view value, const ReadOptions& options) {
    if (value.empty()) {
        return Form::UNKNOWN;
    }
    if (options.isHex) {
        return hexIsTid(value) ? Form::TID : Form::HEX;
    }
    if (value.front() == '(') {
        return Form::ELEMENT_STRING;
    }
    if (beginsIgnoringCase(value, TAG_URI_PREFIX)) {
        return Form::TAG_URI;
    }
    if (beginsIgnoringCase(value, PURE_IDENTITY_URI_PREFIX)) {
        return Form::PURE_IDENTITY;
    }
    if (value.front() == '/' || beginsIgnoringCase(value, "https://") ||
        beginsIgnoringCase(value, "http://")) {
        return Form::DIGITAL_LINK;
    }
    if (options.asBarcode || value.front() == ']' || holdsSeparator(value, options)) {
        return Form::BARCODE_STRING;
    }
    if (isGtin(value)) {
        return Form::GTIN;
    }
    if (looksLikeHex(value)) {
        return hexIsTid(value) ? Form::TID : Form::HEX;
    }
    return looksLikeHostAndPath(value) ? Form::DIGITAL_LINK : Form::UNKNOWN;
}

bool failIsFile(Reading& reading, std::string_view value) {
    if (value.empty() || !firstsOfFiles[static_cast<unsigned char>(value.front())]) {
        return false;
    }
    for (const FileMark& mark : fileMarks) {
        if (value.starts_with(mark.bytes)) {
            readingFail(reading, EPC_ERR_BAD_FORMAT, positionIn(reading, value), mark.bytes.size(),
                        [&] {
                            return Complaint{std::string(mark.message), std::string(mark.remedy)};
                        });
            return true;
        }
    }
    return false;
}

bool failIsFileName(Reading& reading, std::string_view value) {
    if (looksLikeFileName(value)) {
        readingFail(reading, EPC_ERR_BAD_FORMAT, positionIn(reading, value), value.size(), [&] {
            return Complaint{"this looks like the name of a file, and a value is expected",
                             "give what is in the file", "input"};
        });
        return true;
    }
    return false;
}

bool failUnknown(Reading& reading, std::string_view value) {
    if (value.empty()) {
        return readingFail(reading, EPC_ERR_BAD_FORMAT, 0, reading.value.size(), [&] {
            return Complaint{"the value is empty", std::string(forms)};
        });
    }
    if (failIsFileName(reading, value)) {
        return false;
    }
    const std::size_t urn = std::max(commonLength(value, TAG_URI_PREFIX),
                                     commonLength(value, PURE_IDENTITY_URI_PREFIX));
    if (urn >= std::string_view("ur").size()) {
        return failAfterUrn(reading, value, urn);
    }
    const auto notHex = std::find_if_not(value.begin(), value.end(), isHexOrGap);
    const std::string_view rest = value.substr(static_cast<std::size_t>(notHex - value.begin()));
    const std::size_t position = positionIn(reading, rest);
    if (rest.size() == value.size()) {
        return readingFail(reading, EPC_ERR_BAD_FORMAT, position, 1, [&] {
            return Complaint{"no form of a value begins with " + quotedText(firstCharacter(value)),
                             std::string(forms)};
        });
    }
    const bool maySeparate = LIKELY_SEPARATORS.find(rest.front()) != std::string_view::npos &&
                             value.size() > 1 && aiPrefixOf(value[0], value[1]).codeDigits != 0;
    return readingFail(reading, EPC_ERR_BAD_FORMAT, position, 1, [&] {
        return Complaint{"this begins like hex, but " + quotedText(firstCharacter(rest)) +
                             " is not a hexadecimal digit",
                         maySeparate ? "if it separates the AIs of a barcode string, say so"
                                     : std::string(forms),
                         maySeparate ? "separator" : ""};
    });
}

} // namespace rosetag
