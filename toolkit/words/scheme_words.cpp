#include "words/scheme_words.h"

#include "bridge/gs1_key_table.h"
#include "schemes/partition.h"
#include "values/date_kinds.h"

#include <algorithm>
#include <array>

namespace rosetag {

namespace {

struct FamilyThing {
    std::string_view family;
    std::string_view thing;
};

// What the EPC Tag Data Standard, section 6, says that each kind of EPC identifies.
// clang-format off
constexpr FamilyThing familyThings[] = {
    // family   what it identifies
    {"sgtin",   "a trade item with a serial number"},
    {"sscc",    "a logistic unit"},
    {"sgln",    "a location"},
    {"grai",    "a returnable asset"},
    {"giai",    "an individual asset"},
    {"gsrn",    "a recipient of a service"},
    {"gsrnp",   "a provider of a service"},
    {"gdti",    "a document"},
    {"cpi",     "a component or part with a serial number"},
    {"sgcn",    "a coupon with a serial number"},
    {"gid",     "an object with a general identifier"},
    {"usdod",   "an object shipped to the US Department of Defense"},
    {"adi",     "an aerospace or defense part"},
    {"itip",    "a piece of a trade item"},
    {"dsgtin",  "a dated trade item with a serial number"},
};
// clang-format on

constexpr std::string_view thingOf(std::string_view family) {
    const auto* const row =
        std::find_if(std::begin(familyThings), std::end(familyThings),
                     [=](const FamilyThing& other) { return other.family == family; });
    return row == std::end(familyThings) ? std::string_view() : row->thing;
}

constexpr std::array<SchemeInfo, EPC_SCHEME_COUNT> infosMake() {
    std::array<SchemeInfo, EPC_SCHEME_COUNT> infos{};
    for (const SchemeRow& row : schemeRows) {
        const bool isPlus = schemeIsPlus(row);
        infos[static_cast<std::size_t>(row.scheme)] = {row.scheme,
                                                       row.name,
                                                       row.familyWord,
                                                       row.header,
                                                       schemeFilterLimit(row),
                                                       !isPlus,
                                                       schemeHasGs1Key(row),
                                                       isPlus,
                                                       thingOf(row.familyWord)};
    }
    return infos;
}

constexpr std::array<SchemeInfo, EPC_SCHEME_COUNT> infos = infosMake();
static_assert(std::none_of(infos.begin(), infos.end(),
                           [](const SchemeInfo& info) { return info.thing.empty(); }));

// By the header: the number of the scheme and one more, 0 for none.
constexpr std::array<std::uint8_t, 256> byHeaderMake() {
    std::array<std::uint8_t, 256> numbers{};
    for (const SchemeInfo& info : infos) {
        numbers[info.header] = static_cast<std::uint8_t>(info.scheme + 1);
    }
    return numbers;
}

constexpr std::array<std::uint8_t, 256> byHeader = byHeaderMake();

// Where the filter of a scheme is in the byte after the header, and the largest.
struct FilterPlace {
    std::uint8_t shift;
    std::uint8_t mask;
    std::uint8_t largest;
};

constexpr std::array<FilterPlace, EPC_SCHEME_COUNT> filterPlacesMake() {
    std::array<FilterPlace, EPC_SCHEME_COUNT> places{};
    for (const SchemeRow& row : schemeRows) {
        const int bits = schemeFilterBits(row);
        int start = 0;
        std::uint32_t largest = 0;
        for (const SchemeField& field : schemeFields(row)) {
            if (field.kind == FieldKind::FILTER) {
                largest = field.largest;
                break;
            }
            start += field.width;
        }
        places[static_cast<std::size_t>(row.scheme)] = {static_cast<std::uint8_t>(8 - start - bits),
                                                        static_cast<std::uint8_t>((1 << bits) - 1),
                                                        static_cast<std::uint8_t>(largest)};
    }
    return places;
}

constexpr std::array<FilterPlace, EPC_SCHEME_COUNT> filterPlaces = filterPlacesMake();

std::string dateAis() {
    std::string text = "a date (AI ";
    for (const DateKeyRow& row : dateKeyTable) {
        text += row.dateCode == 0 ? "" : row.dateCode + 1 == dateKeyTable.size() ? " or " : ", ";
        text += row.ai;
    }
    return text + ')';
}

} // namespace

std::span<const SchemeInfo> schemes() {
    return infos;
}

const SchemeInfo* schemeByName(std::string_view name) {
    const auto* const info = std::find_if(infos.begin(), infos.end(),
                                          [&](const SchemeInfo& row) { return row.name == name; });
    return info == infos.end() ? nullptr : info;
}

const SchemeInfo* schemeByHeader(std::uint8_t header) {
    return byHeader[header] == 0 ? nullptr : &infos[byHeader[header] - std::size_t{1}];
}

std::uint8_t schemeFilterOf(const SchemeInfo& info, const std::uint8_t* bytes) {
    const FilterPlace place = filterPlaces[static_cast<std::size_t>(info.scheme)];
    return static_cast<std::uint8_t>(bytes[1] >> place.shift & place.mask);
}

std::uint32_t schemeLargestFilter(const SchemeInfo& info) {
    return filterPlaces[static_cast<std::size_t>(info.scheme)].largest;
}

std::string schemeKeyText(const SchemeInfo& info) {
    const SchemeRow& row = schemeRowOf(info);
    const Gs1KeyDefinition* const key = gs1KeyFindByName(info.family);
    std::array<std::string_view, MAX_KEY_AIS> ais = schemeKeyAis(row);
    if (!info.isPlus && key != nullptr) {
        ais = {key->primaryAi, key->secondaryAi};
    }
    const bool hasDate = schemeHasCodedDate(row);
    std::string text = "AI ";
    text += ais[0];
    if (!ais[1].empty()) {
        text += hasDate ? ", AI " : " and AI ";
        text += ais[1];
    }
    return hasDate ? text + " and " + dateAis() : text;
}

std::string gcpLengthsText() {
    static_assert(MIN_GCP_LENGTH == companyPrefixSizes.back().digits &&
                  MAX_GCP_LENGTH == companyPrefixSizes.front().digits);
    return std::to_string(MIN_GCP_LENGTH) + " to " + std::to_string(MAX_GCP_LENGTH);
}

std::string schemeNamesLike(std::string_view name) {
    const std::string_view stem = name.substr(0, name.find_first_of("-+0123456789"));
    const auto isLike = [&](const SchemeInfo& info) { return info.family == stem; };
    const bool anyLike = std::any_of(infos.begin(), infos.end(), isLike);
    std::string names;
    for (const SchemeInfo& info : infos) {
        if (!anyLike || isLike(info)) {
            names += names.empty() ? "" : ", ";
            names += info.name;
        }
    }
    return names;
}

} // namespace rosetag
