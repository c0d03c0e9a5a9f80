/*
 * What the same calls take natively, in nanoseconds of processor time: the library's export, and
 * the toolkit's functions that the package calls.
 */
#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace {

constexpr int CALLS = 200000;
constexpr int RUNS = 9;

// The same values as in bench.mjs.
std::vector<std::string> values() {
    std::vector<std::string> all;
    for (int serial = 0; serial < 4096; ++serial) {
        std::array<char, 25> hex;
        std::snprintf(hex.data(), hex.size(), "3074257BF7194E4000%06X", 7 * serial);
        all.emplace_back(hex.data());
    }
    return all;
}

template <typename Call>
double nanoseconds(Call call) {
    static const std::vector<std::string> all = values();
    std::array<double, RUNS> runs;
    for (double& run : runs) {
        const std::clock_t start = std::clock();
        for (int i = 0; i < CALLS; ++i) {
            call(all[static_cast<std::size_t>(i) % all.size()]);
        }
        run = 1e9 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / CALLS;
    }
    std::sort(runs.begin(), runs.end());
    return runs[RUNS / 2];
}

} // namespace

int main() {
    rosetag::Translation room;
    const double library = nanoseconds([](const std::string& value) {
        std::array<char, EPC_URI_SIZE> uri;
        return epc_hexToEpcTagUri(value.c_str(), EPC_URI_SIZE, uri.data());
    });
    const double convert = nanoseconds([&](const std::string& value) {
        return rosetag::convert(value, {}, rosetag::Form::TAG_URI, room).size();
    });
    const double decode = nanoseconds([&](const std::string& value) {
        rosetag::translate(value, {}, rosetag::ALL_FORMS, room);
        return room.hex.size();
    });
    std::printf("{\"library\": %.1f, \"convert\": %.1f, \"decode\": %.1f}\n", library, convert,
                decode);
}
