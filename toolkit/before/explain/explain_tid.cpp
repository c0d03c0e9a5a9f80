#include "before/explain/explain.h"
#include "before/explain/explain_layouts.h"

namespace rosetag {
inline namespace before {

namespace {

// What the fields read so far say of those that follow.
struct TidState {
    std::uint64_t serialization = 0;
    std::size_t blockWordStart = 0;
};

std::string wordsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " word" : " words");
}

void walkSerial(Walk& walk, std::string_view name, const TidState& state) {
    if (state.serialization == 0) {
        return;
    }
    const std::string_view bits = walkTake(walk, std::string(name), (state.serialization + 2) * 16);
    walk.fields.back().groups = groupsOf(16);
    walkMean(walk, hexOfBits(bits), hexOfBits(bits));
}

void meanNumber(Walk& walk, const TidField& field, std::uint64_t number) {
    switch (field.meaning) {
    case TidMeaning::CLASS:
        return number == 0xE2 ? walkMean(walk, "0xE2, GS1 EPC Gen2")
                              : walkFail(walk, "a TID of this kind begins with 0xE2");
    case TidMeaning::MUST_BE_ZERO:
        return number == 0 ? walkMean(walk, "0") : walkFail(walk, "must be zero");
    case TidMeaning::YES_NO:
        return walkMean(walk, number != 0 ? "yes" : "no", std::to_string(number));
    case TidMeaning::SERIAL_LENGTH:
        return walkMean(walk, number == 0 ? "0: no serial number"
                                          : std::to_string(number) + ": a serial number of " +
                                                std::to_string((number + 2) * 16) + " bits");
    case TidMeaning::WORDS:
        return walkMean(walk, wordsText(number), std::to_string(number));
    case TidMeaning::HEX:
    case TidMeaning::SERIAL:
        return walkMean(walk, "0x" + hexOfBits(walkLastBits(walk)), std::to_string(number));
    }
}

// A block word describes nothing where all of it is zero; else it needs a largest block.
void checkBlockWord(Walk& walk, std::string_view name, std::uint64_t number, TidState& state) {
    if (name == "reserved") {
        state.blockWordStart = walk.position - 5;
    } else if (name.ends_with("largest block") && number == 0) {
        const std::string_view word = std::string_view(walk.bits).substr(state.blockWordStart, 32);
        if (word.find('1') != std::string_view::npos) {
            walkFail(walk, "no block size, and yet the command is described");
        }
    }
}

void walkField(Walk& walk, const TidField& field, TidState& state) {
    if (field.meaning == TidMeaning::SERIAL) {
        return walkSerial(walk, field.name, state);
    }
    const std::uint64_t number =
        walkNumber(walk, std::string(field.name), static_cast<std::size_t>(field.width));
    if (!walk.isGood) {
        return;
    }
    meanNumber(walk, field, number);
    checkBlockWord(walk, field.name, number, state);
    if (field.meaning == TidMeaning::SERIAL_LENGTH) {
        state.serialization = number;
    }
}

bool isPresent(const Walk& walk, const TidSegment& segment) {
    for (const ExplainedField& field : walk.fields) {
        if (field.name == segment.presentIf) {
            return field.value == "1";
        }
    }
    return segment.presentIf.empty();
}

} // namespace

WalkedBits explainTid(std::string_view hexDigits) {
    WalkedBits explanation{"TID", {bitsOfHex(hexDigits), 0, {}, true}};
    Walk& walk = explanation.walk;
    for (const TidSegment& segment : tidLayout()) {
        if (!isPresent(walk, segment)) {
            continue;
        }
        TidState state;
        for (const TidField& field : segment.fields) {
            walkField(walk, field, state);
            if (!walk.isGood) {
                return explanation;
            }
        }
    }
    if (walkLeft(walk) > 0) {
        walkTake(walk, "behind the TID", walkLeft(walk));
        walkMean(walk, "not looked at");
    }
    return explanation;
}

} // namespace before
} // namespace rosetag
