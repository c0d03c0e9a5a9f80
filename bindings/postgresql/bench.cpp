// Calls exports over the lines of a file, and prints the milliseconds of processor time of each
// loop.
#include <rosetag/rosetag.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace {

// Of a value, the first character of what it gives.
using Call = char (*)(const char* hex);

template <auto convert>
char textOf(const char* hex) {
    std::array<char, EPC_ELEMENT_STRING_SIZE> text;
    return convert(hex, static_cast<std::int32_t>(text.size()), text.data()) == EPC_OK ? text[0]
                                                                                       : '\0';
}

char aisOf(const char* hex) {
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_CODE_SIZE> codes;
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_VALUE_SIZE> values;
    std::uint32_t count = 0;
    return epc_hexToAIs(hex, EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes.data(), values.data(), &count) ==
                   EPC_OK
               ? values[0]
               : '\0';
}

char formsOf(const char* hex) {
    return static_cast<char>(
        textOf<epc_hexToEpcTagUri>(hex) & textOf<epc_hexToEpcUri>(hex) &
        textOf<epc_hexToGs1ElementString>(hex) & textOf<epc_hexToBarcodeString>(hex) &
        textOf<epc_hexToDigitalLink>(hex) & textOf<epc_hexToTagSchemeName>(hex) & aisOf(hex));
}

double millisecondsOf(Call call, const std::vector<std::string>& values) {
    std::size_t used = 0;
    const std::clock_t start = std::clock();
    for (const std::string& value : values) {
        used += static_cast<unsigned char>(call(value.c_str()));
    }
    const std::clock_t time = std::clock() - start;
    return used == 0 ? -1 : 1000.0 * static_cast<double>(time) / CLOCKS_PER_SEC;
}

struct Loop {
    const char* name;
    Call call;
};

constexpr Loop loops[] = {
    {"tag_uri", textOf<epc_hexToEpcTagUri>},
    {"pure_identity", textOf<epc_hexToEpcUri>},
    {"element_string", textOf<epc_hexToGs1ElementString>},
    {"digital_link", textOf<epc_hexToDigitalLink>},
    {"scheme", textOf<epc_hexToTagSchemeName>},
    {"ais", aisOf},
    {"forms", formsOf},
};

} // namespace

int main(int, char** arguments) {
    std::ifstream file(arguments[1]);
    std::vector<std::string> values;
    for (std::string line; std::getline(file, line);) {
        values.push_back(line);
    }
    for (const Loop& loop : loops) {
        std::printf("%s\t%.3f\n", loop.name, millisecondsOf(loop.call, values));
    }
}
