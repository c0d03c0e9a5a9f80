#include "core/hex_digits.h"
#include "explain/explain_epc.h"
#include "recognise/bank_words.h"
#include "tid/tid_layout.h"
#include "words/shown_text.h"

#include <span>

namespace rosetag {

namespace {

// A mask of a field of the designer's word within TidRecord::mdid.
constexpr unsigned designerMask(std::size_t index) {
    std::int32_t after = 0;
    for (const TidField& field : std::span(tidDesigner).subspan(index + 1)) {
        after += field.width;
    }
    return ((1U << tidDesigner[index].width) - 1) << after;
}
static_assert(designerMask(0) == TID_XTID_MASK && designerMask(1) == TID_SECURITY_MASK &&
              designerMask(2) == TID_FILE_MASK && designerMask(3) == TID_DESIGNER_MASK);

constexpr std::string_view TID_CLASS_DIGITS = hexPairOf(std::uint8_t{TID_CLASS});

void meanNumber(Walk& walk, const TidField& field, std::uint64_t number) {
    const std::string digits = std::to_string(number);
    switch (field.meaning) {
    case TidMeaning::CLASS:
        return number == TID_CLASS
                   ? walkMean(walk, "0x" + std::string(TID_CLASS_DIGITS) + ", GS1 EPC Gen2")
                   : walkFail(walk,
                              "a TID of this kind begins with 0x" + std::string(TID_CLASS_DIGITS));
    case TidMeaning::RESERVED:
        return number == 0 ? walkMean(walk, "0") : walkFail(walk, "must be zero");
    case TidMeaning::FLAG:
        return walkMean(walk, number != 0 ? "yes" : "no", digits);
    case TidMeaning::SERIAL_LENGTH:
        return walkMean(walk, number == 0 ? "0: no serial number"
                                          : digits + ": a serial number of " +
                                                std::to_string(tidSerialBits(number)) + " bits");
    case TidMeaning::WORDS:
    case TidMeaning::LARGEST_BLOCK:
        return walkMean(walk, counted(static_cast<std::size_t>(number), "word"), digits);
    case TidMeaning::NUMBER:
    case TidMeaning::SERIAL:
        return walkMean(walk, "0x" + hexOfBits(walkLastBits(walk)), digits);
    }
}

void walkSerial(Walk& walk, const TidField& field, std::uint64_t length) {
    if (length == 0) {
        return;
    }
    const std::string_view bits =
        walkTake(walk, field.name, static_cast<std::size_t>(tidSerialBits(length)));
    walkGroup(walk, HEX_WORD_BITS);
    walkMean(walk, hexOfBits(bits), hexOfBits(bits));
}

// Reads the fields of a word. serialLength is the value of the field of that meaning.
void walkWord(Walk& walk, TidWord word, std::uint64_t& serialLength) {
    const std::size_t first = walk.position;
    for (const TidField& field : word) {
        if (field.meaning == TidMeaning::SERIAL) {
            return walkSerial(walk, field, serialLength);
        }
        const std::uint64_t number =
            walkNumber(walk, field.name, static_cast<std::size_t>(field.width));
        meanNumber(walk, field, number);
        if (!walk.isGood) {
            return;
        }
        if (field.meaning == TidMeaning::SERIAL_LENGTH) {
            serialLength = number;
        }
        const std::string_view bits = walk.explanation.bits;
        if (field.meaning == TidMeaning::LARGEST_BLOCK && number == 0 &&
            bits.substr(first, walk.position - first).find('1') != std::string_view::npos) {
            walkFail(walk, "the command is described, but has no block size");
        }
    }
}

bool isPresent(const Explanation& explanation, const TidSegment& segment) {
    for (const ExplainedField& field : explanation.fields) {
        if (field.name == segment.presentIf) {
            return field.value == "1";
        }
    }
    return segment.presentIf.empty();
}

} // namespace

bool explainTid(std::string_view hexDigits, Explanation& explanation) {
    Walk walk = walkBegin(explanation, hexDigits);
    explanation.scheme = nullptr;
    explanation.bankAddress = 0;
    std::uint64_t serialLength = 0;
    for (const TidSegment& segment : tidSegments) {
        if (!isPresent(explanation, segment)) {
            continue;
        }
        for (const TidWord& word : segment.words) {
            walkWord(walk, word, serialLength);
            if (!walk.isGood) {
                return false;
            }
        }
    }
    if (walkLeft(walk) > 0) {
        walkTake(walk, "after the TID", walkLeft(walk));
        walkMean(walk, "not part of the TID");
    }
    return true;
}

} // namespace rosetag
