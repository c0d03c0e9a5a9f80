// The exports from a text to AI rows, in the shape that the tables of these tests need.
#ifndef ROSETAG_TESTS_GS1_AI_EXPORTS_H
#define ROSETAG_TESTS_GS1_AI_EXPORTS_H

#include "support/ai_result.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct RowsCase {
    std::string text;
    std::string rows;
};

// Texts that fail and leave the rows untouched.
struct RefusedCase {
    EpcStatus status;
    std::vector<std::string> texts;
};

inline AiResult elementStringToRows(const std::string& text, std::int32_t maxAIs = 20,
                                    std::uint32_t valueSize = 91) {
    const auto work = [&](const AiArrays& out) {
        return epc_gs1ElementStringToAIs(text.c_str(), out.maxAIs, out.valueSize, out.aiCodes,
                                         out.aiValues, out.aiCount);
    };
    return aiResult(work, maxAIs, valueSize);
}

inline AiResult linkToRows(const std::string& text, std::int32_t maxAIs = 20) {
    const auto work = [&](const AiArrays& out) {
        return epc_digitalLinkToAIs(text.c_str(), out.maxAIs, out.valueSize, out.aiCodes,
                                    out.aiValues, out.aiCount);
    };
    return aiResult(work, maxAIs, 2000);
}

inline AiResult barcodeToRows(const std::string& text, std::int32_t separator) {
    return aiResult([&](const AiArrays& out) {
        return epc_barcodeStringToAIs(text.c_str(), separator, out.maxAIs, out.valueSize,
                                      out.aiCodes, out.aiValues, out.aiCount);
    });
}

// toRows: AiResult(const std::string& text)
template <typename ToRows>
void expectRows(const std::vector<RowsCase>& cases, ToRows toRows) {
    for (const RowsCase& row : cases) {
        EXPECT_EQ(AiResult(EPC_OK, row.rows), toRows(row.text)) << row.text;
    }
}

template <typename ToRows>
void expectRefused(const std::vector<RefusedCase>& cases, ToRows toRows) {
    for (const RefusedCase& row : cases) {
        for (const std::string& text : row.texts) {
            EXPECT_EQ(AiResult(row.status, ""), toRows(text)) << text;
        }
    }
}

#endif
