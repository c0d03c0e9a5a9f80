#include "check/assigned_codes.h"

#include "core/char_class.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace rosetag {

namespace {

// Letters and number of each country, sorted.
//
// Source: ISO 3166-1.
// clang-format off
constexpr std::string_view countries =
    "AD020 AE784 AF004 AG028 AI660 AL008 AM051 AO024 AQ010 AR032 AS016 AT040 AU036 "
    "AW533 AX248 AZ031 BA070 BB052 BD050 BE056 BF854 BG100 BH048 BI108 BJ204 BL652 "
    "BM060 BN096 BO068 BQ535 BR076 BS044 BT064 BV074 BW072 BY112 BZ084 CA124 CC166 "
    "CD180 CF140 CG178 CH756 CI384 CK184 CL152 CM120 CN156 CO170 CR188 CU192 CV132 "
    "CW531 CX162 CY196 CZ203 DE276 DJ262 DK208 DM212 DO214 DZ012 EC218 EE233 EG818 "
    "EH732 ER232 ES724 ET231 FI246 FJ242 FK238 FM583 FO234 FR250 GA266 GB826 GD308 "
    "GE268 GF254 GG831 GH288 GI292 GL304 GM270 GN324 GP312 GQ226 GR300 GS239 GT320 "
    "GU316 GW624 GY328 HK344 HM334 HN340 HR191 HT332 HU348 ID360 IE372 IL376 IM833 "
    "IN356 IO086 IQ368 IR364 IS352 IT380 JE832 JM388 JO400 JP392 KE404 KG417 KH116 "
    "KI296 KM174 KN659 KP408 KR410 KW414 KY136 KZ398 LA418 LB422 LC662 LI438 LK144 "
    "LR430 LS426 LT440 LU442 LV428 LY434 MA504 MC492 MD498 ME499 MF663 MG450 MH584 "
    "MK807 ML466 MM104 MN496 MO446 MP580 MQ474 MR478 MS500 MT470 MU480 MV462 MW454 "
    "MX484 MY458 MZ508 NA516 NC540 NE562 NF574 NG566 NI558 NL528 NO578 NP524 NR520 "
    "NU570 NZ554 OM512 PA591 PE604 PF258 PG598 PH608 PK586 PL616 PM666 PN612 PR630 "
    "PS275 PT620 PW585 PY600 QA634 RE638 RO642 RS688 RU643 RW646 SA682 SB090 SC690 "
    "SD729 SE752 SG702 SH654 SI705 SJ744 SK703 SL694 SM674 SN686 SO706 SR740 SS728 "
    "ST678 SV222 SX534 SY760 SZ748 TC796 TD148 TF260 TG768 TH764 TJ762 TK772 TL626 "
    "TM795 TN788 TO776 TR792 TT780 TV798 TW158 TZ834 UA804 UG800 UM581 US840 UY858 "
    "UZ860 VA336 VC670 VE862 VG092 VI850 VN704 VU548 WF876 WS882 YE887 YT175 ZA710 "
    "ZM894 ZW716 ";

// The numbers of all currencies and funds in use, and of those withdrawn since 2020, which labels
// still carry; sorted.
//
// Source: ISO 4217, list one.
constexpr std::string_view currencies =
    "008 012 032 036 044 048 050 051 052 060 064 068 072 084 090 096 104 108 116 124 "
    "132 136 144 152 156 170 174 188 191 192 203 208 214 222 230 232 238 242 262 270 "
    "292 320 324 328 332 340 344 348 352 356 360 364 368 376 388 392 398 400 404 408 "
    "410 414 417 418 422 426 430 434 446 454 458 462 480 484 496 498 504 512 516 524 "
    "532 533 548 554 558 566 578 586 590 598 600 604 608 634 643 646 654 682 690 694 "
    "702 704 706 710 728 748 752 756 760 764 776 780 784 788 800 807 818 826 834 840 "
    "858 860 882 886 901 924 925 926 927 928 929 930 931 932 933 934 936 938 940 941 "
    "943 944 946 947 948 949 950 951 952 953 955 956 957 958 959 960 961 962 963 964 "
    "965 967 968 969 970 971 972 973 975 976 977 978 979 980 981 984 985 986 990 994 "
    "997 999 ";
// clang-format on

constexpr std::size_t COUNTRY_SIZE = 6;  // "DE276 "
constexpr std::size_t CURRENCY_SIZE = 4; // "978 "
constexpr std::size_t NUMBER_DIGITS = 3;
constexpr std::size_t LETTERS_SIZE = 2;

static_assert(countries.size() == 249 * COUNTRY_SIZE);
static_assert(currencies.size() == 182 * CURRENCY_SIZE);

constexpr std::size_t NO_NUMBER = 1000;

constexpr std::size_t numberOf(std::string_view digits) {
    std::size_t number = 0;
    for (const char digit : digits) {
        if (!charIsDigit(digit)) {
            return NO_NUMBER;
        }
        number = number * 10 + static_cast<std::size_t>(digit - '0');
    }
    return digits.size() == NUMBER_DIGITS ? number : NO_NUMBER;
}

using Numbers = std::array<bool, NO_NUMBER + 1>;

// The numbers at the same place of each entry.
constexpr Numbers numbersOf(std::string_view entries, std::size_t entrySize, std::size_t place) {
    Numbers numbers{};
    for (std::size_t i = 0; i < entries.size(); i += entrySize) {
        numbers[numberOf({entries.data() + i + place, NUMBER_DIGITS})] = true;
    }
    return numbers;
}

constexpr Numbers countryNumbers = numbersOf(countries, COUNTRY_SIZE, LETTERS_SIZE);
constexpr Numbers currencyNumbers = numbersOf(currencies, CURRENCY_SIZE, 0);

// As many numbers as entries: all are numbers, and none appears twice.
static_assert(std::count(countryNumbers.begin(), countryNumbers.end() - 1, true) == 249);
static_assert(std::count(currencyNumbers.begin(), currencyNumbers.end() - 1, true) == 182);

} // namespace

bool isCountryNumber(std::string_view number) {
    return countryNumbers[numberOf(number)];
}

bool isCountryLetters(std::string_view letters) {
    if (letters.size() != LETTERS_SIZE) {
        return false;
    }
    for (std::size_t i = 0; i < countries.size(); i += COUNTRY_SIZE) {
        if (countries[i] == letters[0] && countries[i + 1] == letters[1]) {
            return true;
        }
    }
    return false;
}

bool isCurrencyNumber(std::string_view number) {
    return currencyNumbers[numberOf(number)];
}

} // namespace rosetag
