#include "recognise/plain_tag.h"

#include "core/hex_digits.h"
#include "core/hex_words.h"
#include "recognise/bank_words.h"
#include "words/scheme_words.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::int32_t WORD_BITS = 16;

constexpr std::int32_t wordsOf(const SchemeRow& row) {
    return (schemeBits(row) + WORD_BITS - 1) / WORD_BITS;
}

// What the values of a scheme are like, by its header. Schemes of no fixed length have no words.
struct PlainShape {
    std::uint8_t words;
    std::uint8_t unusedBits; // at the end of the last word
};

constexpr std::array<PlainShape, 256> plainShapesMake() {
    std::array<PlainShape, 256> shapes{};
    for (const SchemeRow& row : schemeRows) {
        shapes[row.header] = {
            static_cast<std::uint8_t>(wordsOf(row)),
            static_cast<std::uint8_t>(wordsOf(row) * WORD_BITS - schemeBits(row))};
    }
    return shapes;
}

constexpr std::array<PlainShape, 256> plainShapes = plainShapesMake();

// Values of other lengths are distinguished by what they hold.
constexpr std::size_t SHORTEST_PLAIN = 16; // digits: more than a GTIN has
constexpr std::uint8_t TID_HEADER = 0xE2;
static_assert(std::all_of(schemeRows.begin(), schemeRows.end(), [](const SchemeRow& row) {
    const std::int32_t words = wordsOf(row);
    return row.header != TID_HEADER && words * WORD_BITS <= EPC_MAX_BINARY_BITS &&
           (words == 0 || words * WORD_BITS >= 4 * std::int32_t{SHORTEST_PLAIN});
}));

} // namespace

bool plainTagRead(std::string_view value, const ReadOptions& options, TagBits& tag) {
    const std::size_t words = value.size() / HEX_WORD_DIGITS;
    if (value.size() % HEX_WORD_DIGITS != 0 || value.size() < SHORTEST_PLAIN) {
        return false;
    }
    const int header = hexDigitValue(value[0]) << 4 | hexDigitValue(value[1]);
    const PlainShape shape = header < 0 ? PlainShape{} : plainShapes[static_cast<unsigned>(header)];
    if (shape.words != words || options.asBarcode || options.separator != '\0' ||
        hexToBytes(value, tag.bytes.data()) != EPC_OK) {
        return false;
    }
    tag.count = static_cast<std::int32_t>(words) * WORD_BITS;
    const auto last =
        static_cast<unsigned>(tag.bytes[2 * words - 2] << 8 | tag.bytes[2 * words - 1]);
    return (last & ((1U << shape.unusedBits) - 1)) == 0 &&
           (options.bank == Bank::EPC ||
            (options.bank == Bank::AUTO && !mayBeginWithBankWords(tag.bytes.data(), words)));
}

} // namespace rosetag
