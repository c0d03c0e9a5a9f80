#include "recognise/hex_text.h"

#include "core/hex_digits.h"
#include "core/hex_words.h"
#include "recognise/look.h"
#include "tid/tid_layout.h"
#include "words/shown_text.h"
#include "words/utf8.h"

#include <algorithm>

namespace rosetag {

namespace {

// Keeps the digits of a text that may have 0x before each byte or word. False at any other
// character: stranger is then that character. A comma belongs only after a byte or a word:
// elsewhere it separates values.
bool keepDigits(Reading& reading, std::string_view text, std::string_view& stranger) {
    std::size_t digits = 0; // since the last gap
    while (!text.empty()) {
        if (digits % 2 == 0 && beginsIgnoringCase(text, "0x")) {
            text.remove_prefix(2);
            digits = 0;
            continue;
        }
        const char character = text.front();
        const bool isGap = isHexGap(character) && (character != ',' || digits == 2 || digits == 4);
        if (!isGap && !isHexDigit(character)) {
            stranger = firstCharacter(text);
            return false;
        }
        if (!isGap) {
            readingKeep(reading, text.substr(0, 1));
        }
        digits = isGap ? 0 : digits + 1;
        text.remove_prefix(1);
    }
    return true;
}

} // namespace

bool hexIsTid(std::string_view value) {
    if (beginsIgnoringCase(value, "0x")) {
        value.remove_prefix(2);
    }
    return value.size() >= 2 && hexPairValue(value[0], value[1]) == static_cast<int>(TID_CLASS);
}

bool keepHex(Reading& reading, std::string_view value) {
    std::string_view stranger;
    readingClear(reading);
    if (std::all_of(value.begin(), value.end(), isHexDigit)) {
        readingKeep(reading, value);
    } else if (!keepDigits(reading, value, stranger)) {
        return readingFail(
            reading, EPC_ERR_BAD_CHARACTER, positionIn(reading, stranger), stranger.size(), [&] {
                return Complaint{quotedText(stranger) + " is not a hexadecimal digit",
                                 "hex has the digits 0 to 9 and A to F"};
            });
    }
    if (reading.workspace.text.empty()) {
        return readingFail(
            reading, EPC_ERR_TRUNCATED, positionIn(reading, value), value.size(), [&] {
                return Complaint{"there is no hexadecimal digit", "give the hex of a tag's memory"};
            });
    }
    return true;
}

bool hexFits(Reading& reading) {
    const std::size_t digits = reading.workspace.text.size();
    if (digits > MOST_HEX_DIGITS) {
        return readingFailAt(
            reading, EPC_ERR_TOO_LONG, MOST_HEX_DIGITS, digits - MOST_HEX_DIGITS, [&] {
                return Complaint{"a tag value has at most " + std::to_string(EPC_MAX_BINARY_BITS) +
                                     " bits, " + std::to_string(MOST_HEX_DIGITS) +
                                     " hexadecimal digits, not " + std::to_string(digits),
                                 "give one value at a time"};
            });
    }
    return true;
}

std::size_t hexFindBit(std::string_view digits, std::size_t bit) {
    for (; bit < 4 * digits.size(); ++bit) {
        if ((hexDigitValue(digits[bit / 4]) & 8 >> bit % 4) != 0) {
            break;
        }
    }
    return bit;
}

std::size_t bytesOfHex(std::string_view digits, std::uint8_t* room) {
    hexToBytes(digits, room);
    return (digits.size() + 1) / 2;
}

} // namespace rosetag
