/*
 * The shape of an AI value: one component or two, each with its characters and its bits.
 *
 * Source: GS1 General Specifications, section 3; EPC Tag Data Standard, section 15.3 and table F
 * (the bit form of each AI).
 */
#ifndef ROSETAG_GS1_AI_SHAPE_H
#define ROSETAG_GS1_AI_SHAPE_H

#include <bit>
#include <cstddef>
#include <cstdint>

namespace rosetag {

enum AiKind : std::uint8_t {
    AI_KIND_NONE = 0, // an empty component; as kindOverride: no override
    AI_KIND_NUMERIC = 2,
    AI_KIND_DATE_CODED = 3,
    AI_KIND_DIGITS = 4,
    AI_KIND_DIGITS_THEN_TEXT = 5,
    AI_KIND_TEXT = 6,
    AI_KIND_FLAG = 7,
    AI_KIND_DATE = 8,
    AI_KIND_DATE_TIME = 9,
    AI_KIND_DATE_RANGE = 10,
    AI_KIND_DATE_TIME_VAR = 11,
    AI_KIND_LETTERS = 12,
    AI_KIND_VAR_NUMERIC = 13,
    AI_KIND_SIGN = 14,
};

enum AiCheckKind : std::uint8_t {
    AI_CHECK_NONE = 0,
    AI_CHECK_DIGIT = 1, // the last character is a GS1 check digit over those before it
    AI_CHECK_PAIR = 2,  // AI 8013: nothing is verified
};

struct AiComponent {
    AiKind kind;
    std::uint8_t digitCount;          // characters of a fixed-length component; 0: variable
    std::uint8_t lengthIndicatorBits; // 0: the bits hold no length
    std::uint8_t maxLength;           // of a variable component; 0: no limit is given
    AiCheckKind checkKind;
};

constexpr std::size_t AI_MAX_COMPONENTS = 2;

// The components by name, for the rows of the table of AIs.
namespace ai_shapes {

constexpr AiComponent fixed(AiKind kind, std::uint8_t digitCount) {
    return {kind, digitCount, 0, 0, AI_CHECK_NONE};
}

constexpr AiComponent variable(AiKind kind, std::uint8_t maxLength) {
    const auto lengthIndicatorBits = static_cast<std::uint8_t>(std::bit_width(maxLength));
    return {kind, 0, lengthIndicatorBits, maxLength, AI_CHECK_NONE};
}

constexpr AiComponent checked(AiComponent component, AiCheckKind checkKind = AI_CHECK_DIGIT) {
    component.checkKind = checkKind;
    return component;
}

// One number, in as many bits as its digits need.
constexpr AiComponent numeric(std::uint8_t digitCount) {
    return fixed(AI_KIND_NUMERIC, digitCount);
}

// Four bits a digit.
constexpr AiComponent digits(std::uint8_t digitCount) {
    return fixed(AI_KIND_DIGITS, digitCount);
}

constexpr AiComponent varNumeric(std::uint8_t maxLength) {
    return variable(AI_KIND_VAR_NUMERIC, maxLength);
}

constexpr AiComponent text(std::uint8_t maxLength) {
    return variable(AI_KIND_TEXT, maxLength);
}

constexpr AiComponent digitsThenText(std::uint8_t maxLength) {
    return variable(AI_KIND_DIGITS_THEN_TEXT, maxLength);
}

inline constexpr AiComponent flag = fixed(AI_KIND_FLAG, 1);
inline constexpr AiComponent letters = fixed(AI_KIND_LETTERS, 2);
inline constexpr AiComponent date = fixed(AI_KIND_DATE, 6);
inline constexpr AiComponent dateTime = fixed(AI_KIND_DATE_TIME, 10);
inline constexpr AiComponent dateRange = variable(AI_KIND_DATE_RANGE, 0);
inline constexpr AiComponent dateTimeVar = variable(AI_KIND_DATE_TIME_VAR, 0);
inline constexpr AiComponent sign = {AI_KIND_SIGN, 0, 0, 1, AI_CHECK_NONE};

} // namespace ai_shapes

} // namespace rosetag

#endif
