/*
 * Every family of exports over arrays of varied values. One iteration is one call.
 */
#include "baselines.h"
#include "columns.h"
#include "samples.h"

#include <rosetag/toolkit.hpp>

#include <benchmark/benchmark.h>

#include <cinttypes>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr int TEXT_SIZE = 512;

template <typename Samples>
using Shared = std::shared_ptr<const Samples>;

// Registers work(sample, out), which is called with the samples in turn.
template <typename Sample, typename Work>
benchmark::internal::Benchmark* add(const std::string& name, Shared<std::vector<Sample>> samples,
                                    Work work) {
    return benchmark::RegisterBenchmark(
        name.c_str(), [samples = std::move(samples), work](benchmark::State& state) {
            char out[TEXT_SIZE];
            std::size_t next = 0;
            for (auto _ : state) {
                if (!work((*samples)[next], out)) {
                    state.SkipWithError("a call failed");
                    break;
                }
                next = (next + 1) % SAMPLE_COUNT;
                benchmark::DoNotOptimize(out);
                benchmark::ClobberMemory();
            }
        });
}

template <typename Samples>
Shared<Samples> share(Samples samples) {
    return std::make_shared<const Samples>(std::move(samples));
}

std::string schemeName(EpcScheme scheme) {
    char name[32];
    epc_tagSchemeEnumToName(scheme, sizeof name, name);
    return name;
}

using Decode = EpcStatus (*)(const char*, std::int32_t, char*);
using Encode = EpcStatus (*)(const char*, EpcScheme, std::int32_t, std::int32_t, std::int32_t,
                             char*);

void addDecode(const std::string& name, const Shared<std::vector<TagSample>>& samples,
               std::string TagSample::*input, Decode decode) {
    add(name, samples, [input, decode](const TagSample& sample, char* out) {
        return decode((sample.*input).c_str(), TEXT_SIZE, out) == EPC_OK;
    });
}

void addEncode(const std::string& name, const Shared<std::vector<TagSample>>& samples,
               std::string TagSample::*input, Encode encode) {
    add(name, samples, [input, encode](const TagSample& sample, char* out) {
        return encode((sample.*input).c_str(), sample.scheme, sample.filter, sample.gcpLength,
                      TEXT_SIZE, out) == EPC_OK;
    });
}

void addScheme(EpcScheme scheme) {
    const auto samples = share(tagSamples(scheme));
    const std::string name = schemeName(scheme);
    const TagSample& first = samples->front();
    if (scheme < EPC_SCHEME_CPI_PLUS) {
        addDecode(name + "/hex-to-tag-uri", samples, &TagSample::hex, epc_hexToEpcTagUri);
        addDecode(name + "/tag-uri-to-hex", samples, &TagSample::tagUri, epc_epcTagUriToHex);
    }
    if (!first.elementString.empty()) {
        addDecode(name + "/hex-to-element-string", samples, &TagSample::hex,
                  epc_hexToGs1ElementString);
        addEncode(name + "/element-string-to-hex", samples, &TagSample::elementString,
                  epc_gs1ElementStringToHex);
        addDecode(name + "/hex-to-barcode-string", samples, &TagSample::hex,
                  epc_hexToBarcodeString);
        addEncode(name + "/barcode-string-to-hex", samples, &TagSample::barcodeString,
                  epc_barcodeStringToHex);
    }
    if (!first.digitalLink.empty()) {
        addDecode(name + "/hex-to-digital-link", samples, &TagSample::hex, epc_hexToDigitalLink);
        addEncode(name + "/digital-link-to-hex", samples, &TagSample::digitalLink,
                  epc_digitalLinkToHex);
    }
}

void addBaseline(const Shared<std::vector<TagSample>>& samples, const SgtinBaseline& baseline) {
    const std::string name = baseline.name;
    add(name + "/hex-to-tag-uri", samples, [&baseline](const TagSample& sample, char* out) {
        return baseline.hexToTagUri(sample.hex.c_str(), out, TEXT_SIZE);
    });
    add(name + "/tag-uri-to-hex", samples, [&baseline](const TagSample& sample, char* out) {
        return baseline.tagUriToHex(sample.tagUri.c_str(), out, TEXT_SIZE);
    });
    add(name + "/hex-to-element-string", samples, [&baseline](const TagSample& sample, char* out) {
        return baseline.hexToElementString(sample.hex.c_str(), out, TEXT_SIZE);
    });
    add(name + "/element-string-to-hex", samples, [&baseline](const TagSample& sample, char* out) {
        return baseline.elementStringToHex(sample.elementString.c_str(), sample.filter,
                                           sample.gcpLength, out, TEXT_SIZE);
    });
}

// The baselines must give what the library gives, or they do not measure it.
bool baselinesAgree(const std::vector<TagSample>& samples) {
    for (const SgtinBaseline* baseline :
         {&straightforwardBaseline, &handTunedBaseline, &numbersBaseline}) {
        for (const TagSample& sample : samples) {
            char out[TEXT_SIZE];
            const bool agrees =
                baseline->hexToTagUri(sample.hex.c_str(), out, sizeof out) &&
                out == sample.tagUri &&
                baseline->tagUriToHex(sample.tagUri.c_str(), out, sizeof out) &&
                out == sample.hex &&
                baseline->hexToElementString(sample.hex.c_str(), out, sizeof out) &&
                out == sample.elementString &&
                baseline->elementStringToHex(sample.elementString.c_str(), sample.filter,
                                             sample.gcpLength, out, sizeof out) &&
                out == sample.hex;
            if (!agrees) {
                std::fprintf(stderr, "the %s program differs at %s: %s\n", baseline->name,
                             sample.tagUri.c_str(), out);
                return false;
            }
        }
    }
    return true;
}

// One print of a tag URI from ready numbers: the unit of the table.
void addPrint() {
    add("snprintf/tag-uri", share(std::vector<int>(SAMPLE_COUNT, 0)), [](int, char* out) {
        static std::uint64_t serial = 6789;
        serial = serial * 6364136223846793005ULL + 1;
        const auto filter = static_cast<unsigned>(serial >> 61);
        return std::snprintf(out, TEXT_SIZE, "urn:epc:tag:sgtin-96:%u.%0*llu.%0*llu.%llu", filter,
                             7, static_cast<unsigned long long>(serial >> 41), 6,
                             static_cast<unsigned long long>(serial >> 45),
                             static_cast<unsigned long long>(serial >> 44 & 0xFFFFF)) > 0;
    });
}

void addFiveAis() {
    const auto samples = share(fiveAiSamples());
    addDecode("five-ais/element-string-to-digital-link", samples, &TagSample::elementString,
              epc_gs1ElementStringToDigitalLink);
    addEncode("five-ais/element-string-to-sgtin+-hex", samples, &TagSample::elementString,
              epc_gs1ElementStringToHex);
    addDecode("five-ais/sgtin+-hex-to-digital-link", samples, &TagSample::hex,
              epc_hexToDigitalLink);
    addDecode("five-ais/sgtin+-hex-to-element-string", samples, &TagSample::hex,
              epc_hexToGs1ElementString);
    add("five-ais/element-string-to-ais", samples, [](const TagSample& sample, char* out) {
        char codes[20][5];
        std::uint32_t count = 0;
        return epc_gs1ElementStringToAIs(sample.elementString.c_str(), 20, TEXT_SIZE / 20, codes[0],
                                         out, &count) == EPC_OK;
    });
}

void addAi(const std::string& name, const char* ai, Shared<std::vector<AiSample>> samples) {
    add("ai-" + name + "/to-hex", samples, [ai](const AiSample& sample, char* out) {
        return epc_AIToHex(ai, sample.value.c_str(), 0, TEXT_SIZE, out, nullptr) == EPC_OK;
    });
    add("ai-" + name + "/from-hex", samples, [ai](const AiSample& sample, char* out) {
        return epc_hexValueToAI(sample.hex.c_str(), ai, TEXT_SIZE, out) == EPC_OK;
    });
}

// Element strings of four AIs in which nothing is to be found.
void addCheck() {
    auto samples = fiveAiSamples();
    for (TagSample& sample : samples) {
        sample.elementString.resize(sample.elementString.find("(3103)"));
    }
    add("four-ais/check", share(std::move(samples)), [](const TagSample& sample, char* out) {
        static rosetag::Rows<rosetag::Finding> findings;
        rosetag::check(sample.elementString, {}, findings);
        out[0] = findings.empty() ? 'y' : 'n';
        return findings.empty();
    });
}

void addTid() {
    add("tid/decode", share(tidSamples()), [](const std::vector<unsigned char>& tid, char* out) {
        TidRecord record;
        const EpcStatus status =
            tid_binaryDecode(static_cast<std::int32_t>(tid.size() * 8), tid.data(), &record);
        out[0] = record.serial[0];
        return status == EPC_OK;
    });
}

template <typename Work>
void addThreads(const std::string& name, const Shared<std::vector<TagSample>>& samples, Work work) {
    for (const int threads : {1, 2}) {
        add("threads/" + name, samples, work)->Threads(threads)->UseRealTime();
    }
}

// The hand-tuned program shares nothing between its threads: it shows what two are worth here.
void addThreads(const Shared<std::vector<TagSample>>& samples) {
    addThreads("hex-to-tag-uri", samples, [](const TagSample& sample, char* out) {
        return epc_hexToEpcTagUri(sample.hex.c_str(), TEXT_SIZE, out) == EPC_OK;
    });
    addThreads("hand-tuned", samples, [](const TagSample& sample, char* out) {
        return handTunedBaseline.hexToTagUri(sample.hex.c_str(), out, TEXT_SIZE);
    });
}

} // namespace

int main(int argc, char** argv) {
    const auto sgtin = share(tagSamples(EPC_SCHEME_SGTIN_96));
    if (!baselinesAgree(*sgtin)) {
        return 1;
    }
    addPrint();
    addBaseline(sgtin, straightforwardBaseline);
    addBaseline(sgtin, handTunedBaseline);
    addBaseline(sgtin, numbersBaseline);
    for (EpcScheme scheme = 0; scheme < EPC_SCHEME_COUNT; ++scheme) {
        addScheme(scheme);
    }
    const auto longSerial = share(longSerialSamples());
    addDecode("sgtin-198-long/hex-to-tag-uri", longSerial, &TagSample::hex, epc_hexToEpcTagUri);
    addDecode("sgtin-198-long/tag-uri-to-hex", longSerial, &TagSample::tagUri, epc_epcTagUriToHex);
    addFiveAis();
    for (const char* ai : {"01", "3103", "17", "30", "8008", "10", "8004"}) {
        addAi(ai, ai, share(aiSamples(ai)));
    }
    for (const unsigned digits : {19U, 20U, 90U}) {
        addAi(std::to_string(digits) + "-digits", "91", share(longNumberSamples(digits)));
    }
    addCheck();
    addTid();
    addThreads(sgtin);
    addColumns();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
