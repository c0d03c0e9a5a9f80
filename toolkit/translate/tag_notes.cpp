#include "translate/tag_notes.h"

#include "recognise/bank_words.h"
#include "recognise/hex_text.h"
#include "translate/translate.h"

#include <algorithm>

namespace rosetag {

namespace {

// The part of the value that holds digits of the prepared text, from one to the last.
std::string_view fromDigit(const Reading& reading, std::size_t digit) {
    const std::size_t last = reading.workspace.text.size() - 1;
    const std::size_t first = givenPosition(reading.workspace, digit);
    return reading.value.substr(first, givenPosition(reading.workspace, last) + 1 - first);
}

// tell: std::string()
template <typename Tell>
void warn(Reading& reading, NoteKind kind, std::size_t digit, Tell tell) {
    readingNote(reading, kind, fromDigit(reading, digit), tell).severity = Severity::WARNING;
}

std::string counts(std::size_t bits, std::size_t given) {
    return std::to_string(bits) + " bits, not " + std::to_string(given);
}

} // namespace

void noteTagBits(Reading& reading) {
    const std::string_view hex = reading.workspace.text;
    if (hex.size() % 2 != 0) {
        warn(reading, NoteKind::ODD_DIGITS, hex.size() - 1, [&] {
            return "an odd number of hexadecimal digits: one is missing, taken as a 0 at the end: "
                   "give "
                   "all "
                   "of them";
        });
    }
    const std::size_t bits = tagValueBits(hex);
    const std::size_t given = 4 * hex.size();
    if (given <= bits) {
        return;
    }
    if (const std::size_t bit = hexFindBit(hex, bits); bit < given) {
        warn(reading, NoteKind::TRAILING_BITS, bit / 4, [&] {
            return "bits other than 0 follow the value, which has " + counts(bits, given) +
                   ": leave out what does not belong to it";
        });
    } else if (given > (bits + HEX_WORD_BITS - 1) / HEX_WORD_BITS * HEX_WORD_BITS) {
        warn(reading, NoteKind::ODD_LENGTH,
             (bits + HEX_WORD_BITS - 1) / HEX_WORD_BITS * HEX_WORD_DIGITS, [&] {
                 return "no scheme has values of this length: this one has " + counts(bits, given) +
                        ": leave out the zeros after it";
             });
    }
}

} // namespace rosetag
