/*
 * What filter values mean.
 *
 * Source: EPC Tag Data Standard, section 10 (filter values), by scheme.
 */
#include <rosetag/toolkit.hpp>

#include <algorithm>

namespace rosetag {

namespace {

// clang-format off
constexpr FilterWord tradeItem[] = {
    {0, "all_others",  "none of the others"},
    {1, "pos",         "item for the point of sale"},
    {2, "case",        "full case for transport"},
    {4, "inner_pack",  "inner pack: trade items grouped for handling"},
    {6, "unit_load",   "unit load"},
    {7, "component",   "unit inside a trade item, not sold by itself"},
};

constexpr FilterWord logisticUnit[] = {
    {0, "all_others",  "none of the others"},
    {2, "case",        "full case for transport"},
    {6, "unit_load",   "unit load"},
};

constexpr FilterWord asset[] = {
    {0, "all_others",  "none of the others"},
    {1, "rail_vehicle", "rail vehicle"},
};

constexpr FilterWord defence[] = {
    {0, "pallet",      "pallet"},
    {1, "case",        "case"},
    {2, "unit_pack",   "unit pack"},
};

constexpr FilterWord aerospace[] = {
    {0, "all_others",    "none of the others"},
    {1, "item",          "item other than those of 8 to 63"},
    {2, "carton",        "carton"},
    {6, "pallet",        "pallet"},
    {8, "seat_cushion",  "seat cushion"},
    {9, "seat_cover",    "seat cover"},
    {10, "seat_belt",    "seat belt"},
    {11, "galley_cart",  "galley cart"},
    {12, "unit_load",    "unit load device, cargo container"},
    {13, "security",     "aircraft security item"},
    {14, "life_vest",    "life vest"},
    {15, "oxygen",       "oxygen generator, oxygen cylinder"},
    {16, "engine",       "engine, engine component"},
    {17, "avionics",     "avionics"},
    {18, "flight_test",  "experimental (flight test) equipment"},
    {19, "emergency",    "other emergency equipment"},
    {20, "rotable",      "other rotable"},
    {21, "repairable",   "other repairable"},
    {22, "cabin",        "other cabin interior"},
    {23, "repair",       "other repair, not of a component"},
    {24, "passenger_seat", "passenger seat (structure)"},
    {25, "ife",          "in-flight entertainment system"},
    {56, "location",     "location identifier"},
    {57, "documentation", "documentation"},
    {58, "tool",         "tool"},
    {59, "ground_support", "ground support equipment"},
    {60, "non_flyable",  "other non-flyable equipment"},
};

constexpr FilterWord document[] = {
    {0, "all_others",      "none of the others"},
    {1, "travel_document", "travel document"},
};

constexpr FilterWord others[] = {
    {0, "all_others",  "none of the others"},
};

struct FamilyFilters {
    std::string_view family;
    std::span<const FilterWord> words;
};

constexpr FamilyFilters families[] = {
    {"sgtin",  tradeItem},
    {"dsgtin", tradeItem},
    {"sscc",   logisticUnit},
    {"giai",   asset},
    {"gdti",   document},
    {"usdod",  defence},
    {"adi",    aerospace},
};
// clang-format on

} // namespace

std::span<const FilterWord> filterWords(const SchemeInfo& scheme) {
    if (scheme.filterLimit == 0) {
        return {};
    }
    const auto* const row =
        std::find_if(std::begin(families), std::end(families),
                     [&](const FamilyFilters& filters) { return filters.family == scheme.family; });
    return row == std::end(families) ? std::span<const FilterWord>(others) : row->words;
}

std::optional<int> filterByWord(const SchemeInfo& scheme, std::string_view word) {
    const auto isSame = [](char one, char other) {
        return one == other || (one == '_' && (other == '-' || other == ' ')) ||
               (other >= 'A' && other <= 'Z' && one == other + ('a' - 'A'));
    };
    for (const FilterWord& row : filterWords(scheme)) {
        if (std::equal(row.word.begin(), row.word.end(), word.begin(), word.end(), isSame)) {
            return row.filter;
        }
    }
    return std::nullopt;
}

} // namespace rosetag
