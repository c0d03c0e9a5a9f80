/*
 * The values that the benchmarks run over: varied, so that neither branch predictor nor cache
 * learns one value by heart, and the same in every run.
 */
#ifndef ROSETAG_BENCH_SAMPLES_H
#define ROSETAG_BENCH_SAMPLES_H

#include <rosetag/rosetag.h>

#include <cstddef>
#include <string>
#include <vector>

constexpr std::size_t SAMPLE_COUNT = 1024; // a power of two

// A tag value in all its forms. Forms that a scheme does not have are empty.
struct TagSample {
    std::string tagUri;
    std::string hex;
    std::string elementString;
    std::string barcodeString;
    std::string digitalLink;
    std::vector<unsigned char> binary;
    EpcScheme scheme;
    int filter;
    int gcpLength;
};

// SAMPLE_COUNT values of the scheme, made of random identities.
std::vector<TagSample> tagSamples(EpcScheme scheme);

// sgtin-198 with the longest serial: 20 characters.
std::vector<TagSample> longSerialSamples();

// Element strings of the five AIs 01, 21, 10, 17 and 3103, and their sgtin+ values.
std::vector<TagSample> fiveAiSamples();

// TID banks with a serial number and all segments, 62 bytes at most.
std::vector<std::vector<unsigned char>> tidSamples();

struct AiSample {
    std::string value;
    std::string hex;
};

// Values of one AI, and what they are in bits without the code.
std::vector<AiSample> aiSamples(const char* ai);

// Numbers of that many digits.
std::vector<AiSample> longNumberSamples(std::size_t digitCount);

#endif
