/*
 * Three programs for sgtin-96 that the library is measured against. The straightforward one is what
 * one writes at first: bits as text, sscanf and snprintf. The hand-tuned one knows nothing but
 * sgtin-96 and leaves out whatever it can. The one called numbers takes eight digits at a time on
 * top of that, as the library does.
 *
 * All return true on success. They take what the library's own functions take.
 */
#ifndef ROSETAG_BENCH_BASELINES_H
#define ROSETAG_BENCH_BASELINES_H

#include <cstddef>

struct SgtinBaseline {
    const char* name;
    bool (*hexToTagUri)(const char* hex, char* out, std::size_t size);
    bool (*tagUriToHex)(const char* uri, char* out, std::size_t size);
    bool (*hexToElementString)(const char* hex, char* out, std::size_t size);
    bool (*elementStringToHex)(const char* text, int filter, int gcpLength, char* out,
                               std::size_t size);
};

extern const SgtinBaseline straightforwardBaseline;
extern const SgtinBaseline handTunedBaseline;
extern const SgtinBaseline numbersBaseline;

#endif
