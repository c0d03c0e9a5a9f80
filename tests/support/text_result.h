/*
 * What an export that writes a text has given: its status, and the text it left. The storage held
 * "untouched" before.
 *
 *     EXPECT_EQ(TextResult(EPC_OK, "(00)..."), textResult([](std::int32_t dstSize, char* dst) {
 *         return epc_hexToGs1ElementString("31...", dstSize, dst);
 *     })) << row.name;
 */
#ifndef ROSETAG_TESTS_SUPPORT_TEXT_RESULT_H
#define ROSETAG_TESTS_SUPPORT_TEXT_RESULT_H

#include "rosetag/rosetag.h"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

struct TextResult {
    TextResult(EpcStatus ended, std::string left) : status(ended), text(std::move(left)) {}

    EpcStatus status;
    std::string text;

    bool operator==(const TextResult&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TextResult& result) {
    return out << epc_statusName(result.status) << " with \"" << result.text << '"';
}

// work: EpcStatus(std::int32_t dstSize, char* dst)
template <typename Work>
TextResult textResult(Work work, std::int32_t dstSize = 1200) {
    static constexpr char before[] = "untouched";
    std::vector<char> dst(std::max(static_cast<std::size_t>(dstSize), sizeof before));
    std::copy(std::begin(before), std::end(before), dst.begin());
    const EpcStatus status = work(dstSize, dst.data());
    return {status, dst.data()};
}

#endif
