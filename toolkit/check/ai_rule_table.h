/*
 * The rows of what GS1 says of each AI beyond the shape of its value. Read by ai_rule.cpp alone.
 *
 * Source: GS1 General Specifications, sections 3 (AIs) and 4.14 (associations); GS1 Digital Link
 * Standard, URI syntax.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_AI_RULE_TABLE_H
#define ROSETAG_TOOLKIT_CHECK_AI_RULE_TABLE_H

#include "check/ai_rule.h"
#include "gs1/barcode_string.h"

namespace rosetag {

namespace ai_rules {

constexpr ValuePart fixed(CharacterSet set, std::uint8_t length, PartRule rule = PartRule::NONE) {
    return {set, length, length, false, {rule, PartRule::NONE}};
}

constexpr ValuePart upTo(CharacterSet set, std::uint8_t most, PartRule rule = PartRule::NONE,
                         PartRule further = PartRule::NONE) {
    return {set, 1, most, false, {rule, further}};
}

constexpr ValuePart optional(ValuePart part) {
    part.optional = true;
    return part;
}

// The letters of the General Specifications, and z for base64url.
inline constexpr auto n = CharacterSet::DIGITS;
inline constexpr auto x = CharacterSet::SET_82;
inline constexpr auto y = CharacterSet::SET_39;
inline constexpr auto z = CharacterSet::BASE64URL;

inline constexpr ValuePart gtin = fixed(n, GTIN_LENGTH, PartRule::CHECK_DIGIT);
inline constexpr ValuePart pieceOfTotal = fixed(n, 4, PartRule::PIECE_OF_TOTAL);
inline constexpr ValuePart date = fixed(n, 6, PartRule::DATE);
inline constexpr ValuePart dateOrMonth = fixed(n, 6, PartRule::DATE_OR_MONTH);
inline constexpr ValuePart birthDate = fixed(n, 8, PartRule::DATE_WITH_CENTURY);
inline constexpr ValuePart hour = fixed(n, 2, PartRule::HOUR);
inline constexpr ValuePart hourMinute = fixed(n, 4, PartRule::HOUR_MINUTE);
inline constexpr ValuePart minuteOrSecond = fixed(n, 2, PartRule::MINUTE_OR_SECOND);
inline constexpr ValuePart country = fixed(n, 3, PartRule::COUNTRY_NUMBER);
inline constexpr ValuePart countryOr999 = fixed(n, 3, PartRule::COUNTRY_NUMBER_OR_999);
inline constexpr ValuePart currency = fixed(n, 3, PartRule::CURRENCY_NUMBER);
inline constexpr ValuePart amount = upTo(n, 15);

constexpr ValuePart escaped(std::uint8_t most) {
    return upTo(x, most, PartRule::PERCENT_ESCAPES);
}

// The parts of the AI table, of which the second may be missing.
inline constexpr ValueParts secondOptional = {ValuePart{}, optional(ValuePart{})};

inline constexpr ValueParts countries = {country, optional(country), optional(country),
                                         optional(country), optional(country)};
inline constexpr ValueParts address35 = {escaped(35)};
inline constexpr ValueParts address70 = {escaped(70)};
inline constexpr ValueParts personName = {escaped(40)};

// What identifies a trade item, a piece of one, or the content of a logistic unit.
inline constexpr std::string_view anyItem = "01,02,03,8006,8026";
// What measures a trade item of variable quantity.
inline constexpr std::string_view anyMeasure = "30,31nn,32nn,35nn,36nn";

inline constexpr LinkQuery Q = LinkQuery::YES;
inline constexpr LinkQuery NO = LinkQuery::NO;

// Source: GS1 General Specifications, sections 3.2 to 3.9 (values), 4.14 (associations); GS1
// Digital Link Standard, URI syntax (attributes of the query).
//
// clang-format off
inline constexpr AiRule aiRuleRows[] = {
    //               com-
    //               pany    parts where the AI
    //               prefix  table does not                                                                in a
    // first   last  at      say it all                                   needs              excludes      query
    {"00",   "00",   2, {},                                               "",                "",           Q},
    {"01",   "01",   2, {},                                               "",                "255,37",     Q},
    {"02",   "02",   2, {},                                               "37",              "01,03",      Q},
    {"03",   "03",   2, {gtin},                                           "",                "01,02,37,235", NO},
    {"10",   "10",   0, {},                                               anyItem,           "",           Q},
    {"11",   "11",   0, {},                                               anyItem,           "",           Q},
    {"12",   "12",   0, {},                                               "8020",            "",           Q},
    {"13",   "13",   0, {},                                               anyItem,           "",           Q},
    {"15",   "16",   0, {},                                               anyItem,           "",           Q},
    {"17",   "17",   0, {},                                               "01,02,03,255,8006,8026", "",    Q},
    {"20",   "20",   0, {},                                               anyItem,           "",           Q},
    {"21",   "21",   0, {},                                               "01,03,8006",      "235",        NO},
    {"22",   "22",   0, {},                                               "01",              "",           NO},
    {"235",  "235",  0, {},                                               "01",              "",           NO},
    {"240",  "241",  0, {},                                               anyItem,           "",           Q},
    {"242",  "242",  0, {},                                               "01,02,8006,8026", "",           Q},
    {"243",  "243",  0, {},                                               "01,03",           "",           Q},
    {"250",  "250",  0, {},                                               "01+21,03+21,8006+21", "",       Q},
    {"251",  "251",  0, {},                                               "01,03,8006",      "",           Q},
    {"253",  "253",  1, secondOptional,                                   "",                "",           Q},
    {"254",  "254",  0, {},                                               "414",             "",           NO},
    {"255",  "255",  1, secondOptional,                                   "",                "01,02,415,8006,8020,8026", Q},
    {"30",   "30",   0, {},                                               "01,02",           "",           Q},
    {"3100", "3299", 0, {},                                               "01,02",           "=n",         Q},
    {"3300", "3369", 0, {},                                               "00,01",           "=n",         Q},
    {"3370", "3379", 0, {},                                               "01",              "=n",         Q},
    {"3400", "3499", 0, {},                                               "00,01",           "=n",         Q},
    {"3500", "3529", 0, {},                                               "01,02",           "=n",         Q},
    {"3530", "3559", 0, {},                                               "00,01",           "=n",         Q},
    {"3560", "3619", 0, {},                                               "01,02",           "=n",         Q},
    {"3620", "3639", 0, {},                                               "00,01",           "=n",         Q},
    {"3640", "3669", 0, {},                                               "01,02",           "=n",         Q},
    {"3670", "3699", 0, {},                                               "00,01",           "=n",         Q},
    {"37",   "37",   0, {},                                               "00+02,00+8026",   "",           Q},
    {"3900", "3909", 0, {},                                               "255,8020",        "=n,391n,394n,8111", Q},
    {"3910", "3919", 0, {currency, amount},                               "8020",            "=n",         Q},
    {"3920", "3929", 0, {},                                "01+30,01+31nn,01+32nn,01+35nn,01+36nn", "=n,393n", Q},
    {"3930", "3939", 0, {currency, amount},                               anyMeasure,        "=n",         Q},
    {"3940", "3943", 0, {},                                               "255",             "=n,8111",    Q},
    {"3950", "3953", 0, {},                                               anyMeasure,        "=n,392n,393n,8005", Q},
    {"3954", "3955", 0, {fixed(n, 6)},                                    anyMeasure,        "=n,392n,393n,8005", Q},
    {"400",  "400",  0, {},                                               "",                "",           Q},
    {"401",  "401",  1, {},                                               "",                "",           Q},
    {"402",  "402",  1, {},                                               "",                "",           Q},
    {"403",  "403",  0, {},                                               "00",              "",           Q},
    {"410",  "414",  1, {},                                               "",                "",           Q},
    {"415",  "415",  1, {},                                               "8020",            "",           Q},
    {"416",  "417",  1, {},                                               "",                "",           Q},
    {"420",  "420",  0, {},                                               "",                "421",        Q},
    {"421",  "421",  0, {country, upTo(x, 9)},                            "",                "4307",       Q},
    {"422",  "422",  0, {country},                                        anyItem,           "426",        Q},
    {"423",  "423",  0, countries,                                        "01,02,03",        "426",        Q},
    {"424",  "424",  0, {country},                                        "01,02,03",        "426",        Q},
    {"425",  "425",  0, countries,                                        "01,02,03",        "426",        Q},
    {"426",  "426",  0, {country},                                        "01,02,03",        "",           Q},
    {"427",  "427",  0, {},                                               "01+422,02+422,03+422", "",      Q},
    {"4300", "4301", 0, address35,                                        "00",              "",           Q},
    {"4302", "4302", 0, address70,                                        "00",              "",           Q},
    {"4303", "4303", 0, address70,                                        "4302",            "",           Q},
    {"4304", "4306", 0, address70,                                        "00",              "",           Q},
    {"4307", "4308", 0, {},                                               "00",              "",           Q},
    {"4309", "4309", 0, {fixed(n, 10, PartRule::LATITUDE),
                         fixed(n, 10, PartRule::LONGITUDE)},              "00",              "",           Q},
    {"4310", "4311", 0, address35,                                        "00",              "",           Q},
    {"4312", "4312", 0, address70,                                        "00",              "",           Q},
    {"4313", "4313", 0, address70,                                        "4312",            "",           Q},
    {"4314", "4316", 0, address70,                                        "00",              "",           Q},
    {"4317", "4319", 0, {},                                               "00",              "",           Q},
    {"4320", "4320", 0, address35,                                        "00",              "",           Q},
    {"4321", "4323", 0, {},                                               "00",              "",           Q},
    {"4324", "4325", 0, {dateOrMonth, hourMinute},                        "00",              "",           Q},
    {"4326", "4326", 0, {date},                                           "00",              "",           Q},
    {"4330", "4330", 0, {},                                               "00",              "4331",       Q},
    {"4331", "4331", 0, {},                                               "00",              "4330",       Q},
    {"4332", "4332", 0, {},                                               "00",              "4333",       Q},
    {"4333", "4333", 0, {},                                               "00",              "4332",       Q},
    {"7001", "7001", 0, {},                                               "01,02,8006,8026", "",           Q},
    {"7002", "7002", 0, {},                                               "01,02",           "",           Q},
    {"7003", "7003", 0, {date, hourMinute},                               "01,02,03",        "",           Q},
    {"7004", "7004", 0, {},                                               "01+10,03+10",     "",           Q},
    {"7005", "7005", 0, {},                                               "01,02",           "",           Q},
    {"7006", "7006", 0, {date},                                           "01,02",           "",           Q},
    {"7007", "7007", 0, {date, optional(date)},                           "01,02",           "",           Q},
    {"7008", "7009", 0, {},                                               "01,02",           "",           Q},
    {"7010", "7010", 0, {},                                               "01,02,03",        "",           Q},
    {"7011", "7011", 0, {date, optional(hourMinute)},                     "01,02,03",        "",           Q},
    {"7020", "7020", 0, {},                                               "01+416,03+416,8006+416", "",    Q},
    {"7021", "7021", 0, {},                                               "01,03,8006",      "",           Q},
    {"7022", "7022", 0, {},                                               "01+7021,03+7021,8006+7021", "", Q},
    {"7023", "7023", 1, {},                                               "",                "",           Q},
    {"7030", "7039", 0, {countryOr999, upTo(x, 27)},                      "01,02",           "",           Q},
    {"7040", "7040", 0, {fixed(n, 1), fixed(x, 2), fixed(z, 1)},          "",                "",           NO},
    {"7041", "7041", 0, {upTo(x, 4, PartRule::PACKAGE_TYPE)},             "00",              "",           NO},
    {"710",  "715",  0, {},                                               "01",              "",           Q},
    {"716",  "717",  0, {upTo(x, 20)},                                    "01",              "",           Q},
    {"7230", "7239", 0, {fixed(x, 2), upTo(x, 28)},                       "01,8004",         "",           Q},
    {"7240", "7240", 0, {},                                               "01,8006",         "03",         Q},
    {"7241", "7241", 0, {fixed(n, 2, PartRule::MEDIA_TYPE)},              "8017,8018",       "",           Q},
    {"7242", "7242", 0, {},                                               "8017,8018",       "",           Q},
    {"7250", "7250", 0, {birthDate},                                      "8018",            "7251",       Q},
    {"7251", "7251", 0, {birthDate, hourMinute},                          "8018",            "7250",       Q},
    {"7252", "7252", 0, {fixed(n, 1, PartRule::SEX)},                     "8018",            "",           Q},
    {"7253", "7254", 0, personName,                                       "8017,8018",       "7256,7259",  Q},
    {"7255", "7255", 0, {upTo(x, 10)},                                    "8017,8018",       "7256,7259",  Q},
    {"7256", "7256", 0, {escaped(90)},                                    "8017,8018",       "",           Q},
    {"7257", "7257", 0, {escaped(70)},                                    "8018",            "",           Q},
    {"7258", "7258", 0, {fixed(x, 3, PartRule::POSITION_OF_TOTAL)},       "8018+7259",       "",           Q},
    {"7259", "7259", 0, personName,                                       "8018",            "7256",       Q},
    {"8001", "8001", 0, {fixed(n, 4, PartRule::NOT_ZERO),
                         fixed(n, 5, PartRule::NOT_ZERO),
                         fixed(n, 3, PartRule::NOT_ZERO),
                         fixed(n, 1, PartRule::WINDING), fixed(n, 1)},    "01",              "",           Q},
    {"8002", "8002", 0, {},                                               "",                "",           Q},
    {"8003", "8003", 2, {fixed(n, 1, PartRule::ZERO),
                         fixed(n, 13, PartRule::CHECK_DIGIT),
                         optional(upTo(x, 16))},                          "",                "",           Q},
    {"8004", "8004", 1, {},                                               "",                "",           Q},
    {"8005", "8005", 0, {},                                               "01,02",           "",           Q},
    {"8006", "8006", 2, {gtin, pieceOfTotal},                             "",                "01,03,37",   Q},
    {"8007", "8007", 0, {upTo(x, 34, PartRule::IBAN)},                    "415",             "",           Q},
    {"8008", "8008", 0, {date, hour, optional(minuteOrSecond),
                         optional(minuteOrSecond)},                       "01,02,03",        "",           Q},
    {"8009", "8009", 0, {},                                               "00,01,03",        "",           Q},
    {"8010", "8010", 1, {upTo(y, 30)},                                    "",                "",           Q},
    {"8011", "8011", 0, {upTo(n, 12, PartRule::NO_LEADING_ZERO)},         "8010",            "",           NO},
    {"8012", "8012", 0, {},                                               "01,03,8006",      "",           Q},
    {"8013", "8013", 1, {},                                               "",                "",           Q},
    {"8014", "8014", 1, {upTo(x, 25, PartRule::CHECK_PAIR,
                              PartRule::NOT_ONLY_DIGITS)},                "01",              "",           NO},
    {"8017", "8017", 1, {},                                               "",                "8018",       Q},
    {"8018", "8018", 1, {},                                               "",                "8017",       Q},
    {"8019", "8019", 0, {},                                               "8017,8018",       "",           NO},
    {"8020", "8020", 0, {},                                               "415",             "",           NO},
    {"8026", "8026", 2, {gtin, pieceOfTotal},                             "37",              "02,03,8006", Q},
    {"8030", "8030", 0, {upTo(z, 90)},     "00,01+21,03+21,253,255,8003,8004,8006+21,8010+8011,8017,8018", "", Q},
    {"8040", "8040", 0, {fixed(n, 15)},                                   "01+21",           "",           NO},
    {"8041", "8041", 0, {fixed(n, 15)},                                   "01+21+8040",      "",           NO},
    {"8042", "8042", 0, {fixed(n, 32)},                                   "01+21+8040",      "",           NO},
    {"8043", "8043", 0, {fixed(n, 18), optional(upTo(n, 2))},             "01+21+8040",      "",           NO},
    {"8110", "8110", 0, {},                                               "",                "",           Q},
    {"8111", "8111", 0, {},                                               "255",             "",           Q},
    {"8112", "8112", 0, {},                                               "",                "",           Q},
    {"8200", "8200", 0, {},                                               "01",              "",           NO},
    {"90",   "99",   0, {},                                               "",                "",           Q},
};

// AIs that are newer than the AI table.
//
// Source: GS1 General Specifications, section 3.2.
struct NewerAi {
    std::string_view code;
    std::string_view title;
};
inline constexpr NewerAi newerAiRows[] = {
    // AI     title
    {"03",   "MTO GTIN"},
    {"3954", "PRICE/UoM"},
    {"3955", "PRICE/UoM"},
    {"7041", "UFRGT UNIT TYPE"},
    {"716",  "NHRN AIC"},
    {"717",  "NHRN SRN"},
    {"7250", "DOB"},
    {"7251", "DOB TIME"},
    {"7252", "BIO SEX"},
    {"7253", "FAMILY NAME"},
    {"7254", "GIVEN NAME"},
    {"7255", "SUFFIX"},
    {"7256", "FULL NAME"},
    {"7257", "PERSON ADDR"},
    {"7258", "BIRTH SEQUENCE"},
    {"7259", "BABY"},
    {"8014", "MUDI"},
    {"8040", "IMEI"},
    {"8041", "IMEI2"},
    {"8042", "ESIM"},
    {"8043", "PSIM"},
};

// Where the standard now has other qualifiers than the library writes.
//
// Source: GS1 Digital Link Standard, URI syntax (primary keys and key qualifiers).
struct NewerLinkKey {
    std::string_view key;
    std::string_view writtenQualifier; // the first one of the library's row; empty: it has none
    std::array<std::string_view, 3> qualifiers;
};
inline constexpr NewerLinkKey newerLinkKeyRows[] = {
    // key   written  today
    {"414",  "235",   {"7040"}},
    {"415",  "",      {"8020"}},
    {"8004", "",      {"7040"}},
};
// clang-format on

} // namespace ai_rules

} // namespace rosetag

#endif
