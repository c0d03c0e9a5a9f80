/*
 * What differs between the plus schemes: the AIs of their key, and whether they carry a date.
 *
 * Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables of the "+" schemes).
 */
#ifndef ROSETAG_VALUES_PLUS_SCHEME_TABLE_H
#define ROSETAG_VALUES_PLUS_SCHEME_TABLE_H

#include "gs1/ai_catalogue.h"
#include "schemes/scheme_table.h"
#include "values/date_kinds.h"

#include <span>
#include <string_view>

namespace rosetag {

struct PlusSchemeRow {
    std::string_view name; // as in the table of tag schemes
    std::uint8_t header;
    char keyAis[MAX_KEY_AIS][AI_CODE_SIZE]; // in writing order; empty behind the last one
    std::span<const DateKeyRow> dateKeys;   // the AIs of which one is the date; most have none
    AiKind dateKind;                        // in place of the AI's own kind
};

// The row with exactly this name, or null.
const PlusSchemeRow* plusSchemeFind(std::string_view name);

// The row of a scheme, or null for one that is no plus scheme.
const PlusSchemeRow* plusSchemeByNumber(EpcScheme scheme);

inline std::span<const char[AI_CODE_SIZE]> keyAisOf(const PlusSchemeRow& row) {
    std::size_t count = 0;
    while (count < MAX_KEY_AIS && row.keyAis[count][0] != '\0') {
        ++count;
    }
    return {row.keyAis, count};
}

} // namespace rosetag

#endif
