/*
 * Random inputs for every export: valid values of all schemes, AIs and TIDs in all their forms,
 * the same values damaged, and noise.
 */
#ifndef ROSETAG_TESTS_WITNESS_INPUTS_H
#define ROSETAG_TESTS_WITNESS_INPUTS_H

#include "contract/exports.h"
#include "support/random.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What an export reads.
enum class Kind : std::uint8_t {
    SCHEME_NAME,
    EPC,
    TID,
    TAG_URI,
    URI,
    ELEMENT_STRING,
    BARCODE_STRING,
    DIGITAL_LINK,
    AI_VALUE,
    AI_VALUE_BITS,
    PLUS_AIDC,
};

class Inputs {
public:
    explicit Inputs(std::uint64_t seed);

    Arguments next(Kind kind);

    Random random;

private:
    // A value of a scheme in all its forms; those it does not have are empty.
    struct Sample {
        EpcScheme scheme = 0;
        std::int32_t filter = 0;
        std::int32_t gcpLength = 7;
        std::vector<std::uint8_t> epc;
        std::string tagUri, uri, elementString, barcodeString, digitalLink;
    };
    struct AiValue {
        std::string ai, value;
    };

    void collectAi(const std::string& ai);
    std::vector<std::string> candidateValues();
    AiValue anyAiValue();
    std::string valueOf(std::string_view ai);
    std::string elementString(const std::vector<AiValue>& ais) const;
    std::string barcodeString(const std::vector<AiValue>& ais);

    Sample plainSample();
    Sample plusSample();
    void addGs1Texts(Sample& sample);
    const Sample& anySample();

    std::string noise();
    std::string textOf(Kind kind, const Sample& sample);
    std::size_t runLength();
    std::string damaged(std::string text);
    void layBits(Arguments& arguments, std::vector<std::uint8_t> bytes);
    void damageNumbers(Arguments& arguments);
    std::vector<std::uint8_t> tid();
    std::vector<std::uint8_t> bytesOf(const AiValue& ai, std::int32_t withCode);

    std::vector<std::string> aiCodes;
    std::vector<std::vector<std::string>> aiValues;   // mostly valid ones of each code
    std::vector<std::vector<std::string>> aisOfShape; // those that take the same values
    std::vector<Sample> samples;
};

#endif
