/*
 * Calls every export with inputs of doubling length, those that drive its loops furthest among
 * them. Under callgrind, scripts/growth.py counts the instructions of each call.
 */
#include "contract/exports.h"
#include "support/bits.h"

#include <valgrind/callgrind.h>

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

// An input of any length: a start, and a part that is repeated until the length is reached.
struct Shape {
    const char* name;
    std::string_view start;
    std::string_view repeated;
    EpcScheme scheme = EPC_SCHEME_SGTIN_96; // of the exports that take one
    std::string_view ai = "91";             // of the exports of one value
};

std::string grown(const Shape& shape, std::size_t length) {
    std::string text(shape.start);
    while (text.size() < length) {
        text += shape.repeated;
    }
    text.resize(length);
    return text;
}

// clang-format off
#define SGTIN_198 "urn:epc:tag:sgtin-198:3.0614141.812345."
#define GTIN_LINK "/01/80614141123458"
#define GTIN_TEXT "(01)80614141123458"
#define GTIN_BARE "0180614141123458"

constexpr Shape textShapes[] = {
    {"digits",                  "",                                 "1234567890"},
    {"number after an AI",      "",                                 "9",            EPC_SCHEME_GIAI_PLUS, "8004"},
    {"dates after an AI",       "",                                 "260630",       EPC_SCHEME_GIAI_PLUS, "7007"},
    {"letters",                 "",                                 "AbCdEfGhIj"},
    {"escapes",                 "",                                 "%41"},
    {"colons",                  "urn:epc:tag:",                     "s:"},
    {"scheme word",             "urn:epc:tag:",                     "s"},
    {"identity word",           "urn:epc:id:",                      "s"},
    {"tag URI, characters",     SGTIN_198,                          "A",            EPC_SCHEME_SGTIN_198},
    {"tag URI, escapes",        SGTIN_198,                          "%2F",          EPC_SCHEME_SGTIN_198},
    {"tag URI, zeros",          "urn:epc:tag:giai-96:3.",           "0"},
    {"tag URI, digits",         "urn:epc:tag:giai-96:3.0614141.",   "9"},
    {"tag URI, 6 bits",         "urn:epc:tag:adi-var:3.CAGEY.",     "%41"},
    {"tag URI, dots",           "urn:epc:tag:gid-96:1",             "."},
    {"identity, characters",    "urn:epc:id:giai:0614141.",         "A",            EPC_SCHEME_GIAI_202},
    {"identity, escapes",       "urn:epc:id:sgtin:0614141.812345.", "%2F",          EPC_SCHEME_SGTIN_198},
    {"identity, digits",        "urn:epc:id:sgtin:0614141.812345.", "9"},
    {"identity, 6 bits",        "urn:epc:id:cpi:0614141.",          "%41",          EPC_SCHEME_CPI_VAR},
    {"brackets",                "",                                 "("},
    {"AIs",                     "",                                 "(10)A",        EPC_SCHEME_GIAI_PLUS},
    {"keys",                    "",                                 GTIN_TEXT},
    {"key and AIs",             GTIN_TEXT "(21)6789",               "(10)A",        EPC_SCHEME_SGTIN_PLUS},
    {"key and empty AIs",       GTIN_TEXT "(21)6789",               "(8008)",       EPC_SCHEME_SGTIN_PLUS},
    {"key and a serial",        GTIN_TEXT "(21)",                   "A",            EPC_SCHEME_SGTIN_198},
    {"key and a long value",    GTIN_TEXT "(21)6789(8008)",         "A",            EPC_SCHEME_SGTIN_PLUS},
    {"key and long digits",     GTIN_TEXT "(21)6789(7007)",         "9",            EPC_SCHEME_SGTIN_PLUS},
    {"separators",              "]C1",                              "\x1D"},
    {"bare AIs",                "]C1",                              "10A\x1D",      EPC_SCHEME_GIAI_PLUS},
    {"bare key and AIs",        GTIN_BARE "216789",                 "\x1D" "10A",   EPC_SCHEME_SGTIN_PLUS},
    {"bare long value",         GTIN_BARE "216789\x1D" "8008",      "A",            EPC_SCHEME_SGTIN_PLUS},
    {"slashes",                 "",                                 "/"},
    {"host",                    "https://",                         "a"},
    {"path",                    "https://id.example",               "/10/A"},
    {"link, escapes",           GTIN_LINK "/21/",                   "%41",          EPC_SCHEME_SGTIN_198},
    {"link, long value",        GTIN_LINK "/21/1?8008=",            "A",            EPC_SCHEME_SGTIN_PLUS},
    {"link, escaped value",     GTIN_LINK "/21/1?7007=",            "%39",          EPC_SCHEME_SGTIN_PLUS},
    {"link, AIs",               GTIN_LINK "/21/1?",                 "10=A&",        EPC_SCHEME_SGTIN_PLUS},
    {"link, parameters",        GTIN_LINK "/21/1?",                 "a=b&",         EPC_SCHEME_SGTIN_PLUS},
    {"link, one parameter",     GTIN_LINK "/21/1?",                 "a",            EPC_SCHEME_SGTIN_PLUS},
    {"link, ampersands",        GTIN_LINK "/21/1?",                 "&",            EPC_SCHEME_SGTIN_PLUS},
    {"hex, digits of a GIAI",   "FA0614141",                        "1"},
    {"hex, data of an SSCC",    "F98106141412345678908",            "10210"},
};

// As hexadecimal digits; as binary values half as many bytes.
constexpr Shape bitShapes[] = {
    {"zeros",                   "",                                 "0"},
    {"ones",                    "",                                 "F"},
    {"characters",              "3674257BF7194E4",                  "3"},
    {"digits of a GIAI",        "FA0",                              "1",            0, "8004"},
    {"digits of a value",       "",                                 "1",            0, "8004"},
    {"text of a value",         "9FF",                              "1"},
    {"data of a GIAI",          "FA80614141F",                      "10210"},
    {"flags of an SSCC",        "F98106141412345678908",            "43210"},
    {"AI before digits",        "8004",                             "1"},
    {"TID",                     "E2812345FC00",                     "1"},
};
// clang-format on

// Above all the lengths at which a text changes to another path through the library.
constexpr std::size_t SHORTEST = 4096;
constexpr std::size_t LONGEST = 16384;

Arguments argumentsOf(const Export& row, const Shape& shape, std::size_t length) {
    Arguments arguments;
    arguments.scheme = shape.scheme;
    arguments.filter = 3;
    arguments.gcpLength = 7;
    arguments.ai = shape.ai;
    arguments.text = grown(shape, length);
    if (row.input == Input::BINARY || row.input == Input::WORDS) {
        const std::vector<std::uint8_t> bytes = bytesFromHex(arguments.text);
        arguments.binary = bytes;
        arguments.bits = static_cast<std::int32_t>(bytes.size() * 8);
    }
    return arguments;
}

void measure(ExportCaller& caller, const Export& row, const Shape& shape) {
    for (std::size_t length = SHORTEST; length <= LONGEST; length *= 2) {
        const Arguments arguments = argumentsOf(row, shape, length);
        const Call call = caller.lay(row, arguments, enoughRoom(row));
        const std::string label =
            std::string(row.name) + "\t" + shape.name + "\t" + std::to_string(length);
        CALLGRIND_ZERO_STATS;
        row.call(call);
        CALLGRIND_DUMP_STATS_AT(label.c_str());
    }
}

} // namespace

int main() {
    ExportCaller caller;
    for (const Export& row : allExports) {
        const bool readsText = row.input == Input::TEXT || row.input == Input::SCHEME;
        for (const Shape& shape :
             readsText ? std::span<const Shape>(textShapes) : std::span<const Shape>(bitShapes)) {
            measure(caller, row, shape);
        }
    }
    std::printf("%zu\n", allExports.size());
}
