/*
 * One check under way: the value, the AIs that were met in it, and what was found. Nothing is
 * allocated before something is found.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_CHECK_RUN_H
#define ROSETAG_TOOLKIT_CHECK_CHECK_RUN_H

#include "check/ai_rule.h"

#include <rosetag/toolkit.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace rosetag {

// Characters and where they are in the value. Where escapes were resolved, offsets says where each
// began and where the last one ended.
struct CheckedText {
    std::string_view characters;
    std::size_t position;
    const std::uint16_t* offsets = nullptr; // from position; null: each character is itself
    std::size_t wholeLength = 0;            // not 0: the characters cannot be found in the value
};

struct CheckedAi {
    std::string_view code;
    const AiRule* rule;
    std::string_view value; // as it is in the text
    std::size_t position;   // of the code
    std::size_t length;
};

enum class TextKind : std::uint8_t { ELEMENT_STRING, BARCODE_STRING, DIGITAL_LINK, TAG_VALUE };

// More than any symbol holds.
inline constexpr std::size_t MAX_CHECKED_AIS = 32;

struct CheckRun {
    std::string_view value;
    const ReadOptions& options;
    Rows<Finding>& findings;
    Translation* room = nullptr; // for values that are not texts; null: the run has its own
    TextKind kind = TextKind::ELEMENT_STRING;
    std::size_t count = 0;
    std::array<CheckedAi, MAX_CHECKED_AIS> ais{}; // the first count are filled
};

inline std::span<const CheckedAi> checkedAis(const CheckRun& run) {
    return {run.ais.data(), run.count};
}

// The place of some characters of a text in the value.
struct Place {
    std::size_t position;
    std::size_t length;
};
Place placeOf(const CheckedText& text, std::size_t at, std::size_t length);

// Adds a finding. detail goes into the sentence of the rule; its culprit is what is at the
// place.
Finding& report(CheckRun& run, CheckRule rule, std::string_view ai, Place place,
                std::string_view detail = {});

// The same for characters of a text.
Finding& reportIn(CheckRun& run, CheckRule rule, std::string_view ai, const CheckedText& text,
                  std::size_t at, std::size_t length, std::string_view detail = {});

// Remembers an AI, and reports it if it is a repetition or one too many.
void rememberAi(CheckRun& run, const CheckedAi& ai);

} // namespace rosetag

#endif
