#include "recognise/plain_tag.h"

#include "core/hex_digits.h"
#include "core/hex_words.h"
#include "recognise/bank_words.h"
#include "tid/tid_layout.h"
#include "words/scheme_words.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::int32_t WORD_BITS = HEX_WORD_BITS;

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
static_assert(std::all_of(schemeRows.begin(), schemeRows.end(), [](const SchemeRow& row) {
    const std::int32_t words = wordsOf(row);
    return row.header != TID_CLASS && words * WORD_BITS <= EPC_MAX_BINARY_BITS &&
           (words == 0 || words * WORD_BITS >= 4 * std::int32_t{SHORTEST_PLAIN});
}));

// Whether a header belongs to values of so many words.
bool isShape(int header, std::size_t words) {
    return header >= 0 && words != 0 && plainShapes[static_cast<unsigned>(header)].words == words;
}

// Counts the bits. False if some follow the value that are not 0.
bool takeCount(TagBits& tag, std::size_t words) {
    tag.count = static_cast<std::int32_t>(words) * WORD_BITS;
    const auto last =
        static_cast<unsigned>(tag.bytes[2 * words - 2] << 8 | tag.bytes[2 * words - 1]);
    return (last & ((1U << plainShapes[tag.bytes[0]].unusedBits) - 1)) == 0;
}

} // namespace

bool plainTagOfHex(std::string_view digits, TagBits& tag) {
    const std::size_t words = digits.size() / HEX_WORD_DIGITS;
    return digits.size() % HEX_WORD_DIGITS == 0 && digits.size() >= SHORTEST_PLAIN &&
           isShape(hexPairValue(digits[0], digits[1]), words) &&
           hexToBytes(digits, tag.bytes.data()) == EPC_OK && takeCount(tag, words);
}

bool plainTagOfBytes(std::string_view bytes, TagBits& tag) {
    const std::size_t words = bytes.size() / 2;
    if (bytes.size() % 2 != 0 || bytes.empty() ||
        !isShape(static_cast<unsigned char>(bytes.front()), words)) {
        return false;
    }
    std::transform(bytes.begin(), bytes.end(), tag.bytes.begin(),
                   [](char byte) { return static_cast<std::uint8_t>(byte); });
    return takeCount(tag, words);
}

bool plainTagIsClear(const TagBits& tag, const ReadOptions& options) {
    const std::size_t words = static_cast<std::size_t>(tag.count / WORD_BITS);
    const bool mayBePc =
        mayBePcWord(tag.bytes[0], words - 1) || mayBePcWord(tag.bytes[2], words - 2);
    return options.bank == Bank::EPC || !mayBePc || !mayBeginWithBankWords(tag.bytes.data(), words);
}

} // namespace rosetag
