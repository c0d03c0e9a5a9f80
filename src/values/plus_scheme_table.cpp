#include "values/plus_scheme_table.h"

#include "schemes/tag_scheme_info.h"

#include <iterator>

namespace rosetag {

namespace {

constexpr std::span<const DateKeyRow> DATE_KEYS = dateKeyTable;

// In the order of EpcScheme, from the first plus scheme on.
// clang-format off
constexpr PlusSchemeRow plusSchemeTable[] = {
    // name     header  key AIs           date
    {"cpi+",    0xF0,   {"8010", "8011"}, {},        AI_KIND_NONE},
    {"grai+",   0xF1,   {"8003"},         {},        AI_KIND_NONE},
    {"sgln+",   0xF2,   {"414", "254"},   {},        AI_KIND_NONE},
    {"itip+",   0xF3,   {"8006", "21"},   {},        AI_KIND_NONE},
    {"gsrn+",   0xF4,   {"8018"},         {},        AI_KIND_NONE},
    {"gsrnp+",  0xF5,   {"8017"},         {},        AI_KIND_NONE},
    {"gdti+",   0xF6,   {"253"},          {},        AI_KIND_NONE},
    {"sgtin+",  0xF7,   {"01", "21"},     {},        AI_KIND_NONE},
    {"sgcn+",   0xF8,   {"255"},          {},        AI_KIND_NONE},
    {"sscc+",   0xF9,   {"00"},           {},        AI_KIND_NONE},
    {"giai+",   0xFA,   {"8004"},         {},        AI_KIND_NONE},
    {"dsgtin+", 0xFB,   {"01", "21"},     DATE_KEYS, AI_KIND_DATE_CODED},
};
// clang-format on

static_assert(std::size(plusSchemeTable) == EPC_SCHEME_COUNT - EPC_SCHEME_CPI_PLUS);
static_assert(
    [] {
        const TagSchemeInfo* info = tagSchemeInfos.begin() + EPC_SCHEME_CPI_PLUS;
        for (const PlusSchemeRow& row : plusSchemeTable) {
            if (row.name != info->name || row.header != info->header) {
                return false;
            }
            ++info;
        }
        return true;
    }(),
    "the rows are those of the table of schemes");

} // namespace

const PlusSchemeRow* plusSchemeFind(std::string_view name) {
    for (const PlusSchemeRow& row : plusSchemeTable) {
        if (row.name == name) {
            return &row;
        }
    }
    return nullptr;
}

const PlusSchemeRow* plusSchemeByNumber(EpcScheme scheme) {
    if (scheme < EPC_SCHEME_CPI_PLUS || scheme >= EPC_SCHEME_COUNT) {
        return nullptr;
    }
    return &plusSchemeTable[scheme - EPC_SCHEME_CPI_PLUS];
}

} // namespace rosetag
