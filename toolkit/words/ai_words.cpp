#include "words/ai_words.h"

#include "gs1/ai_catalogue.h"
#include "words/shown_text.h"

#include <array>
#include <string>

namespace rosetag {

namespace {

// The row of each slot of the catalogue.
constexpr std::array<std::uint8_t, aiBlocks.back().firstSlot> rowsOfSlotsMake() {
    std::array<std::uint8_t, aiBlocks.back().firstSlot> rows{};
    for (std::size_t row = 0; row < aiTable.size(); ++row) {
        const std::size_t last = aiSlotOf(aiLastCode(aiTable[row]));
        for (std::size_t slot = aiSlotOf(aiFirstCode(aiTable[row])); slot <= last; ++slot) {
            rows[slot] = static_cast<std::uint8_t>(row);
        }
    }
    return rows;
}

constexpr auto rowsOfSlots = rowsOfSlotsMake();
static_assert(aiTable.size() < 256);

std::string componentText(const AiComponent& component) {
    const std::string count = std::to_string(component.digitCount);
    const std::string most = std::to_string(component.maxLength);
    switch (component.kind) {
    case AI_KIND_NUMERIC:
    case AI_KIND_DIGITS:
        return counted(component.digitCount, "digit");
    case AI_KIND_TEXT:
        return "1 to " + most + " characters";
    case AI_KIND_DIGITS_THEN_TEXT:
        return "up to " + most + " characters";
    case AI_KIND_VAR_NUMERIC:
        return "1 to " + most + " digits";
    case AI_KIND_FLAG:
        return "0 or 1";
    case AI_KIND_DATE:
        return "a date, YYMMDD";
    case AI_KIND_DATE_TIME:
        return "a date and time, YYMMDDHHMM";
    case AI_KIND_DATE_RANGE:
        return "a date, YYMMDD, or two";
    case AI_KIND_DATE_TIME_VAR:
        return "a date, YYMMDD, and up to six digits of a time, HHMMSS";
    case AI_KIND_LETTERS:
        return count + " upper-case letters";
    case AI_KIND_SIGN:
        return "a \"-\" or nothing";
    case AI_KIND_NONE:
    case AI_KIND_DATE_CODED:
        break;
    }
    return {};
}

} // namespace

std::string aiValueHint(std::string_view code) {
    const AiTableRow* const row = aiRowOf(code);
    if (row == nullptr) {
        return {};
    }
    std::string text = "AI " + std::string(code) + " holds ";
    const char* separator = "";
    for (const AiComponent& component : row->components) {
        if (component.kind != AI_KIND_NONE) {
            text += separator + componentText(component);
            separator = ", then ";
        }
    }
    return text;
}

const AiTableRow* aiRowOf(std::string_view code) {
    const AiDefinition* const ai = aiFind(code);
    return ai == nullptr ? nullptr
                         : &aiTable[rowsOfSlots[static_cast<std::size_t>(ai - aiCatalogue.data())]];
}

std::string_view aiTitle(std::string_view code) {
    const AiTableRow* const row = aiRowOf(code);
    return row == nullptr ? std::string_view() : row->title;
}

} // namespace rosetag
