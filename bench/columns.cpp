/*
 * A column of a million values against as many plain calls. One iteration is the whole column.
 */
#include "columns.h"

#include "rosetag/columns.h"
#include "rosetag/rosetag.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t ROWS = 1'000'000;
constexpr std::int32_t HEX_DIGITS = 24;

// SGTIN-96 values whose serials differ, as Arrow's utf8: each ends where the next begins.
struct Column {
    std::string data;
    std::vector<std::int32_t> offsets;
    const void* buffers[3] = {};
    ArrowSchema type{};
    ArrowArray values{};

    Column() {
        char hex[HEX_DIGITS + 1];
        for (std::int32_t row = 0; row < ROWS; ++row) {
            std::snprintf(hex, sizeof hex, "3074257BF7194E40%08X", static_cast<unsigned>(row));
            offsets.push_back(row * HEX_DIGITS);
            data += hex;
        }
        offsets.push_back(ROWS * HEX_DIGITS);
        buffers[1] = offsets.data();
        buffers[2] = data.data();
        type.format = "u";
        type.name = "";
        values.length = ROWS;
        values.n_buffers = 3;
        values.buffers = buffers;
    }
};

const Column& column() {
    static const Column values;
    return values;
}

void decodeColumn(benchmark::State& state) {
    const char* const outputs[] = {"element_string"};
    for (auto _ : state) {
        ArrowSchema type;
        ArrowArray rows;
        char error[ROSETAG_COLUMNS_ERROR_SIZE];
        if (rosetag_columnsDecode(&column().type, &column().values, outputs, 1, nullptr, &type,
                                  &rows, error) != ROSETAG_COLUMNS_OK) {
            state.SkipWithError(error);
            return;
        }
        if (rows.children[0]->null_count != 0) {
            state.SkipWithError("a row failed");
        }
        rows.release(&rows);
        type.release(&type);
    }
}

void callPlainly(benchmark::State& state) {
    char hex[HEX_DIGITS + 1] = {};
    char text[EPC_ELEMENT_STRING_SIZE];
    for (auto _ : state) {
        for (std::int32_t row = 0; row < ROWS; ++row) {
            column().data.copy(hex, HEX_DIGITS, static_cast<std::size_t>(row) * HEX_DIGITS);
            if (epc_hexToGs1ElementString(hex, sizeof text, text) != EPC_OK) {
                state.SkipWithError("a call failed");
                return;
            }
            benchmark::DoNotOptimize(text);
            benchmark::ClobberMemory();
        }
    }
}

} // namespace

void addColumns() {
    benchmark::RegisterBenchmark("columns/hex-to-element-string", decodeColumn);
    benchmark::RegisterBenchmark("columns/plain-calls", callPlainly);
}
