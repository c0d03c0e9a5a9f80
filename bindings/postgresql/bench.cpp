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

using Export = EpcStatus (*)(const char* hex, std::int32_t dstSize, char* dst);

double millisecondsOf(Export convert, const std::vector<std::string>& values) {
    std::array<char, EPC_ELEMENT_STRING_SIZE> text;
    std::size_t used = 0;
    const std::clock_t start = std::clock();
    for (const std::string& value : values) {
        used +=
            convert(value.c_str(), static_cast<std::int32_t>(text.size()), text.data()) == EPC_OK
                ? static_cast<unsigned char>(text[0])
                : 0;
    }
    const std::clock_t time = std::clock() - start;
    return used == 0 ? -1 : 1000.0 * static_cast<double>(time) / CLOCKS_PER_SEC;
}

} // namespace

int main(int, char** arguments) {
    std::ifstream file(arguments[1]);
    std::vector<std::string> values;
    for (std::string line; std::getline(file, line);) {
        values.push_back(line);
    }
    std::printf("tag_uri\t%.3f\n", millisecondsOf(epc_hexToEpcTagUri, values));
    std::printf("element_string\t%.3f\n", millisecondsOf(epc_hexToGs1ElementString, values));
    std::printf("digital_link\t%.3f\n", millisecondsOf(epc_hexToDigitalLink, values));
}
