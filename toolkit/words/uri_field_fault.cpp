#include "words/uri_field_fault.h"

#include "core/char_class.h"
#include "core/hex_digits.h"
#include "schemes/field_cage_code.h"
#include "words/shown_text.h"
#include "words/utf8.h"

#include <algorithm>

namespace rosetag {

namespace {

std::string nameOf(const UriFieldView& view) {
    return "the " + std::string(view.field.name);
}

// Sets a fault at a part of the field.
bool faultAt(UriFault& fault, const UriFieldView& view, std::string_view part, std::string message,
             std::string remedy = {}) {
    fault.position = static_cast<std::size_t>(part.data() - view.text.data());
    fault.length = part.size();
    fault.complaint = {std::move(message), std::move(remedy)};
    return true;
}

bool faultOfDigits(UriFault& fault, const UriFieldView& view) {
    const auto stranger = std::find_if_not(view.text.begin(), view.text.end(), charIsDigit);
    if (stranger == view.text.end()) {
        return false;
    }
    const std::string_view rest =
        view.text.substr(static_cast<std::size_t>(stranger - view.text.begin()));
    const bool isEscape = rest.size() >= 3 && rest[0] == '%' && hexDigitValue(rest[1]) >= 0 &&
                          hexDigitValue(rest[2]) >= 0;
    const char escaped =
        isEscape ? static_cast<char>(hexDigitValue(rest[1]) * 16 + hexDigitValue(rest[2])) : '\0';
    return faultAt(fault, view, isEscape ? rest.substr(0, 3) : firstCharacter(rest),
                   nameOf(view) + " of " + std::string(view.scheme.name) +
                       " has digits only, and " +
                       quotedText(isEscape ? std::string_view(&escaped, 1) : firstCharacter(rest)) +
                       " is not one");
}

// A number below 2^bits, which no zero precedes.
bool faultOfNumber(UriFault& fault, const UriFieldView& view, std::int32_t bits) {
    if (view.text.empty()) {
        return faultAt(fault, view, view.text, nameOf(view) + " is empty");
    }
    if (faultOfDigits(fault, view)) {
        return true;
    }
    if (view.text.size() > 1 && view.text.front() == '0') {
        return faultAt(fault, view, view.text,
                       nameOf(view) + " of " + std::string(view.scheme.name) +
                           " is a number, which has no leading zero");
    }
    const std::uint64_t limit = std::uint64_t{1} << bits;
    std::uint64_t number = 0;
    bool isSmall = view.text.size() <= 19;
    for (const char digit : view.text) {
        number = isSmall ? number * 10 + static_cast<std::uint64_t>(digit - '0') : limit;
    }
    isSmall = isSmall && number < limit;
    return !isSmall && faultAt(fault, view, view.text,
                               nameOf(view) + " of " + std::string(view.scheme.name) +
                                   " is at most " + std::to_string(limit - 1));
}

bool faultOfFilter(UriFault& fault, const UriFieldView& view) {
    const auto most = static_cast<std::uint64_t>(view.field.largest);
    const bool isNumber = !view.text.empty() && view.text.size() < 4 &&
                          std::all_of(view.text.begin(), view.text.end(), charIsDigit);
    std::uint64_t number = 0;
    for (const char digit : isNumber ? view.text : std::string_view()) {
        number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    const bool isRight =
        isNumber && number <= most && (view.text.size() == 1 || view.text[0] != '0');
    return !isRight && faultAt(fault, view, view.text,
                               "the filter of " + std::string(view.scheme.name) +
                                   " is a number from 0 to " + std::to_string(most));
}

bool faultOfPrefix(UriFault& fault, UriFieldView& view) {
    if (faultOfDigits(fault, view)) {
        return true;
    }
    const std::int32_t partition = partitionFindByDigits(
        static_cast<std::int32_t>(std::min<std::size_t>(view.text.size(), 99)));
    if (partition < 0) {
        return faultAt(fault, view, view.text,
                       "a GS1 company prefix has " + gcpLengthsText() + " digits, and this has " +
                           std::to_string(view.text.size()));
    }
    view.prefix = companyPrefixSizes[static_cast<std::size_t>(partition)];
    return false;
}

bool faultOfReferenceDigits(UriFault& fault, const UriFieldView& view) {
    const auto wanted = static_cast<std::size_t>(view.field.size - view.prefix.digits);
    return faultOfDigits(fault, view) ||
           (view.text.size() != wanted &&
            faultAt(fault, view, view.text,
                    nameOf(view) + " has " + counted(wanted, "digit") +
                        " after a company prefix of " + std::to_string(view.prefix.digits) +
                        ", and this has " + std::to_string(view.text.size())));
}

// Characters of a set, some of which are escaped; counts them.
bool faultOfEscapes(UriFault& fault, const UriFieldView& view, std::uint32_t set,
                    std::size_t& count) {
    for (std::size_t i = 0; i < view.text.size(); ++count) {
        const std::string_view rest = view.text.substr(i);
        char character = rest.front();
        std::size_t length = firstCharacter(rest).size();
        if (character == '%') {
            length = std::min<std::size_t>(3, rest.size());
            if (length < 3 || hexPairValue(rest[1], rest[2]) < 0) {
                return faultAt(fault, view, rest.substr(0, length),
                               "two hexadecimal digits follow a \"%\"",
                               "write \"%\" itself as %25");
            }
            character = static_cast<char>(hexPairValue(rest[1], rest[2]));
        } else if (charIsOfClass(character, CHAR_CLASS_URI_ESCAPE) && character != ' ') {
            return faultAt(fault, view, rest.substr(0, 1),
                           quotedText(rest.substr(0, 1)) + " must be escaped in a URI",
                           "write %" +
                               std::string(hexPairOf(static_cast<std::uint8_t>(character))));
        }
        if (!charIsOfClass(character, set)) {
            return faultAt(fault, view, rest.substr(0, length),
                           nameOf(view) + " of " + std::string(view.scheme.name) + " cannot hold " +
                               quotedText(rest.substr(0, length)));
        }
        i += length;
    }
    return false;
}

bool faultOfChars(UriFault& fault, const UriFieldView& view, std::uint32_t set, std::size_t least,
                  std::size_t most) {
    std::size_t count = 0;
    if (faultOfEscapes(fault, view, set, count)) {
        return true;
    }
    if (count < least) {
        return faultAt(fault, view, view.text, nameOf(view) + " is empty");
    }
    return count > most &&
           faultAt(fault, view, view.text,
                   nameOf(view) + " of " + std::string(view.scheme.name) + " has at most " +
                       counted(most, "character") + ", and this has " + std::to_string(count));
}

bool faultOfCageCode(UriFault& fault, const UriFieldView& view) {
    if (view.text.size() < CAGE_CODE_CHARS - 1 || view.text.size() > CAGE_CODE_CHARS) {
        return faultAt(fault, view, view.text,
                       "a CAGE code has 5 characters and a DoDAAC 6, and this has " +
                           std::to_string(view.text.size()));
    }
    const auto stranger = std::find_if_not(view.text.begin(), view.text.end(), cageCodeHas);
    return stranger != view.text.end() &&
           faultAt(fault, view,
                   view.text.substr(static_cast<std::size_t>(stranger - view.text.begin()), 1),
                   nameOf(view) + " has digits and upper-case letters other than I and O");
}

bool faultOfReferenceOpen(UriFault& fault, const UriFieldView& view) {
    return faultOfNumber(fault, view, view.field.width - view.prefix.bits);
}

// Digits that have a 1 before them in the bits, so that their leading zeros count.
bool faultOfNumberAfterOne(UriFault& fault, const UriFieldView& view) {
    const std::uint64_t limit = std::uint64_t{1} << view.field.width;
    std::size_t most = 0;
    for (std::uint64_t power = 2; power * 10 <= limit; power *= 10) {
        ++most;
    }
    return faultOfDigits(fault, view) ||
           ((view.text.empty() || view.text.size() > most) &&
            faultAt(fault, view, view.text,
                    nameOf(view) + " of " + std::string(view.scheme.name) + " has 1 to " +
                        counted(most, "digit") + ", and this has " +
                        std::to_string(view.text.size())));
}

} // namespace

bool uriFieldFault(UriFault& fault, UriFieldView& view) {
    const auto size = static_cast<std::size_t>(view.field.size);
    const auto least = static_cast<std::size_t>(view.field.least);
    const auto rest = static_cast<std::size_t>(std::max(0, view.field.size - view.prefix.digits));
    switch (view.field.kind) {
    case FieldKind::FILTER:
        return faultOfFilter(fault, view);
    case FieldKind::COMPANY_PREFIX:
        return faultOfPrefix(fault, view);
    case FieldKind::REFERENCE_DIGITS:
        return faultOfReferenceDigits(fault, view);
    case FieldKind::REFERENCE_OPEN:
        return faultOfReferenceOpen(fault, view);
    case FieldKind::REFERENCE_CHARS7:
        return faultOfChars(fault, view, CHAR_CLASS_AI82, 1, rest);
    case FieldKind::REFERENCE_CHARS6:
        return faultOfChars(fault, view, CHAR_CLASS_AI39, 1, rest);
    case FieldKind::NUMBER:
        return faultOfNumber(fault, view, view.field.width);
    case FieldKind::PADDED_NUMBER:
        return faultOfDigits(fault, view) ||
               (view.text.size() != size &&
                faultAt(fault, view, view.text, nameOf(view) + " has " + counted(size, "digit")));
    case FieldKind::NUMBER_AFTER_ONE:
        return faultOfNumberAfterOne(fault, view);
    case FieldKind::CHARS7:
        return faultOfChars(fault, view, CHAR_CLASS_AI82, least, size);
    case FieldKind::CHARS6:
        return faultOfChars(fault, view, CHAR_CLASS_AI39, least, size);
    case FieldKind::CAGE_CODE:
        return faultOfCageCode(fault, view);
    default:
        return false;
    }
}

} // namespace rosetag
