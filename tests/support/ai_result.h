/*
 * What an export that writes AI rows has given: its status, the rows it left, and after them their
 * count if it wrote one.
 *
 *     EXPECT_EQ(AiResult(EPC_OK, "01=09506000134352 10=LOT7 #2"), aiResult([](const AiArrays& out)
 * { return epc_gs1ElementStringToAIs("(01)...", out.maxAIs, out.valueSize, out.aiCodes,
 *                                          out.aiValues, out.aiCount);
 *     })) << row.name;
 */
#ifndef ROSETAG_TESTS_SUPPORT_AI_RESULT_H
#define ROSETAG_TESTS_SUPPORT_AI_RESULT_H

#include "rosetag/rosetag.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

struct AiResult {
    AiResult(EpcStatus ended, std::string left) : status(ended), rows(std::move(left)) {}

    EpcStatus status;
    std::string rows;

    bool operator==(const AiResult&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const AiResult& result) {
    return out << epc_statusName(result.status) << " with \"" << result.rows << '"';
}

struct AiArrays {
    std::int32_t maxAIs;
    std::uint32_t valueSize;
    char* aiCodes;
    char* aiValues;
    std::uint32_t* aiCount;
};

// The text of a row, "?" if nothing was written to it, "!" if more than a text was.
inline std::string aiRowText(std::string_view row) {
    const std::size_t end = row.find('\0');
    if (end == std::string_view::npos) {
        return row.find_first_not_of('~') == std::string_view::npos ? "?" : "!";
    }
    const bool isRestUntouched = row.find_first_not_of('~', end + 1) == std::string_view::npos;
    return isRestUntouched ? std::string(row.substr(0, end)) : "!";
}

// work: EpcStatus(const AiArrays& out). The arrays have 21 rows, whatever maxAIs says.
template <typename Work>
AiResult aiResult(Work work, std::int32_t maxAIs = 20, std::uint32_t valueSize = 91) {
    constexpr std::size_t rows = 21;
    constexpr std::size_t codeSize = 5;
    constexpr std::uint32_t untouchedCount = 4711;
    std::string codes(rows * codeSize, '~');
    std::string values(rows * valueSize, '~');
    std::uint32_t count = untouchedCount;
    const EpcStatus status = work(AiArrays{maxAIs, valueSize, codes.data(), values.data(), &count});
    std::string text;
    for (std::size_t row = 0; row < rows; ++row) {
        const std::string code = aiRowText({codes.data() + row * codeSize, codeSize});
        const std::string value = aiRowText({values.data() + row * valueSize, valueSize});
        if (code != "?" || value != "?") {
            text += code + "=" + value + " ";
        }
    }
    text += count == untouchedCount ? "" : "#" + std::to_string(count);
    return {status, text};
}

#endif
