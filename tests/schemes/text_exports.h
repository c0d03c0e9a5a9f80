/*
 * An export from a binary value to a text, in its three forms.
 */
#ifndef ROSETAG_TESTS_SCHEMES_TEXT_EXPORTS_H
#define ROSETAG_TESTS_SCHEMES_TEXT_EXPORTS_H

#include "support/bits.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

struct TextExport {
    EpcStatus (*binary)(std::int32_t bits, const std::uint8_t* binary, std::int32_t dstSize,
                        char* dst);
    EpcStatus (*hex)(const char* hex, std::int32_t dstSize, char* dst);
    EpcStatus (*words)(std::int32_t bits, const std::uint16_t* words, std::int32_t dstSize,
                       char* dst);
};

inline constexpr TextExport tagUriExport = {epc_binaryToEpcTagUri, epc_hexToEpcTagUri,
                                            epc_wordsToEpcTagUri};
inline constexpr TextExport uriExport = {epc_binaryToEpcUri, epc_hexToEpcUri, epc_wordsToEpcUri};

// bits counts those of binary and words; hexadecimal digits are always read whole.
inline void expectInAllForms(const TextResult& expected, const TextExport& run, std::int32_t bits,
                             const std::string& hex) {
    const std::vector<std::uint8_t> bytes = bytesFromHex(hex);
    const std::vector<std::uint16_t> words = wordsFromBytes(bytes);
    const auto binaryForm = [&](std::int32_t dstSize, char* dst) {
        return run.binary(bits, bytes.data(), dstSize, dst);
    };
    const auto hexForm = [&](std::int32_t dstSize, char* dst) {
        return run.hex(hex.c_str(), dstSize, dst);
    };
    const auto wordForm = [&](std::int32_t dstSize, char* dst) {
        return run.words(bits, words.data(), dstSize, dst);
    };
    EXPECT_EQ(expected, textResult(binaryForm)) << hex;
    EXPECT_EQ(expected, textResult(hexForm)) << hex;
    EXPECT_EQ(expected, textResult(wordForm)) << hex;
}

#endif
