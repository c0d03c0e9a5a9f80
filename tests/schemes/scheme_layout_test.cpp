// Every plain scheme in both directions and in all forms, against the model and published values.
#include "schemes/scheme_model.h"
#include "schemes/tag_scheme.h"
#include "schemes/text_exports.h"
#include "support/bits.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

using namespace rosetag;

namespace {

constexpr std::int32_t UNTOUCHED = -7;
constexpr std::size_t PARTITIONS = 7;

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

Bytes paddedBytes(std::string bits) {
    bits.resize((bits.size() + 15) / 16 * 16, '0');
    return bytesFromBits(bits);
}

std::int32_t size32(std::size_t size) {
    return static_cast<std::int32_t>(size);
}

// Runs an export that gives bytes or words, with just enough room.
template <typename Element, typename Export>
void expectElements(const std::vector<Element>& expected, Export run) {
    std::vector<Element> out(expected.size());
    std::int32_t count = UNTOUCHED;
    EXPECT_STATUS(EPC_OK, run(size32(out.size()), out.data(), &count));
    EXPECT_EQ(size32(out.size()), count);
    EXPECT_EQ(expected, out);
    EXPECT_STATUS(EPC_OK, run(size32(out.size()), out.data(), nullptr));
    EXPECT_STATUS(EPC_ERR_NO_ROOM, run(size32(out.size()) - 1, out.data(), nullptr));
}

void expectEncodes(const ModelValue& value) {
    const Bytes bytes = paddedBytes(value.bits);
    const Words words = wordsFromBytes(bytes);
    const TextResult hex(EPC_OK, hexFromBytes(bytes));
    const char* const tagUri = value.tagUri.c_str();
    const char* const uri = value.uri.c_str();
    const auto filter = static_cast<std::int32_t>(value.filter);
    expectElements(bytes, [=](std::int32_t room, std::uint8_t* out, std::int32_t* count) {
        return epc_epcTagUriToBinary(tagUri, room, out, count);
    });
    expectElements(words, [=](std::int32_t room, std::uint16_t* out, std::int32_t* count) {
        return epc_epcTagUriToWords(tagUri, room, out, count);
    });
    expectElements(bytes, [=](std::int32_t room, std::uint8_t* out, std::int32_t* count) {
        return epc_epcUriToBinary(uri, value.scheme, filter, room, out, count);
    });
    expectElements(words, [=](std::int32_t room, std::uint16_t* out, std::int32_t* count) {
        return epc_epcUriToWords(uri, value.scheme, filter, room, out, count);
    });
    EXPECT_EQ(hex, textResult([=](std::int32_t dstSize, char* dst) {
                  return epc_epcTagUriToHex(tagUri, dstSize, dst);
              }));
    EXPECT_EQ(hex, textResult([=](std::int32_t dstSize, char* dst) {
                  return epc_epcUriToHex(uri, value.scheme, filter, dstSize, dst);
              }));
}

// The exact bits, without padding: no bit after the last field is needed.
void expectDecodes(const ModelValue& value) {
    const std::string hex = hexFromBytes(paddedBytes(value.bits));
    expectInAllForms({EPC_OK, value.tagUri}, tagUriExport, size32(value.bits.size()), hex);
    expectInAllForms({EPC_OK, value.uri}, uriExport, size32(value.bits.size()), hex);
}

// Both directions of every scheme, partition by partition. Returns how many values that were.
int expectModelHolds(Picker picker, bool highestFilter) {
    int count = 0;
    for (const SchemeModel& model : schemeModels) {
        const std::size_t partitions = model.hasPartition() ? PARTITIONS : 1;
        for (std::size_t partition = 0; partition < partitions; ++partition, ++count) {
            const ModelValue value =
                modelValue(model, highestFilter ? model.maxFilter : 0, partition, picker);
            SCOPED_TRACE(value.tagUri);
            expectEncodes(value);
            expectDecodes(value);
        }
    }
    return count;
}

TEST(SchemeLayout, HoldsAtBothEndsOfEveryField) {
    int values = 0;
    for (const SchemeRow& row : schemeRows) {
        const bool hasPartition = schemeHasField(row, FieldKind::PARTITION);
        values += schemeIsPlus(row) ? 0 : hasPartition ? static_cast<int>(PARTITIONS) : 1;
    }
    EXPECT_EQ(values, expectModelHolds(Picker::lowest(), false));
    EXPECT_EQ(values, expectModelHolds(Picker::largest(), true));
}

TEST(SchemeLayout, HoldsForRandomFields) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        expectModelHolds(Picker::random(seed), seed % 2 != 0);
    }
}

TEST(SchemeLayout, HoldsPublishedValues) {
    // Source: EPC Tag Data Standard, appendix E (examples).
    struct Row {
        const char* hex;
        const char* uri;
    };
    constexpr Row rows[] = {
        {"3074257BF7194E4000001A85", "urn:epc:tag:sgtin-96:3.0614141.812345.6789"},
        {"3174257BF4499602D2000000", "urn:epc:tag:sscc-96:3.0614141.1234567890"},
        {"3374257BF40C0E400000162E", "urn:epc:tag:grai-96:3.0614141.12345.5678"},
        {"3874257BF59B2C2BF10000000000000000000000000000000000",
         "urn:epc:tag:giai-202:3.0614141.32a%2Fb"},
        {"3E74F4E4E7039B061438997367D0C18B266D1AB66EE0",
         "urn:epc:tag:gdti-174:3.4012345.98765.ABCDefgh012345678"},
        {"3D74257BF75411DEF6B4CC00000003039000", "urn:epc:tag:cpi-var:3.0614141.5PQ7%2FZ43.12345"},
        {"350007AB70425D4000000586", "urn:epc:tag:gid-96:31415.271828.1414"},
        {"2F320434147455900000162E", "urn:epc:tag:usdod-96:3.CAGEY.5678"},
        {"4074F4E4E40C0E40820000000F54", "urn:epc:tag:itip-110:3.4012345.012345.01.02.981"},
    };
    for (const Row& row : rows) {
        const std::int32_t bits = size32(std::string_view(row.hex).size() * 4);
        expectInAllForms({EPC_OK, row.uri}, tagUriExport, bits, row.hex);
        EXPECT_EQ(TextResult(EPC_OK, row.hex), textResult([&row](std::int32_t dstSize, char* dst) {
                      return epc_epcTagUriToHex(row.uri, dstSize, dst);
                  }));
    }
}

// With too little room or too few bits, the output is the beginning of the whole.

TEST(SchemeLayout, LeavesTheBeginningOfAUri) {
    Picker picker = Picker::random(22);
    for (const SchemeModel& model : schemeModels) {
        const ModelValue value = modelValue(model, model.maxFilter, 5, picker);
        SCOPED_TRACE(value.tagUri);
        const Bytes bytes = paddedBytes(value.bits);
        const auto decode = [&](std::int32_t bits, std::int32_t dstSize) {
            return textResult(
                [&](std::int32_t size, char* dst) {
                    return epc_binaryToEpcTagUri(bits, bytes.data(), size, dst);
                },
                dstSize);
        };
        const std::int32_t wholeBits = size32(value.bits.size());
        const std::int32_t wholeSize = size32(value.tagUri.size()) + 1;
        EXPECT_EQ(TextResult(EPC_OK, value.tagUri), decode(wholeBits, wholeSize));
        for (std::int32_t dstSize = 0; dstSize < wholeSize; ++dstSize) {
            const TextResult result = decode(wholeBits, dstSize);
            EXPECT_STATUS(EPC_ERR_NO_ROOM, result.status) << dstSize;
            EXPECT_EQ(0U, value.tagUri.find(result.text)) << dstSize;
            EXPECT_LE(result.text.size(), static_cast<std::size_t>(std::max(dstSize - 1, 0)));
        }
        for (std::int32_t bits = 0; bits < wholeBits; ++bits) {
            const TextResult result = decode(bits, wholeSize);
            EXPECT_STATUS(EPC_ERR_TRUNCATED, result.status) << bits;
            EXPECT_EQ(0U, value.tagUri.find(result.text)) << bits;
        }
    }
}

TEST(SchemeLayout, LeavesTheBeginningOfABinaryValue) {
    constexpr std::uint8_t fill = 0xA5;
    Picker picker = Picker::random(33);
    for (const SchemeModel& model : schemeModels) {
        const ModelValue value = modelValue(model, model.maxFilter, 2, picker);
        SCOPED_TRACE(value.tagUri);
        const std::size_t wholeBytes = paddedBytes(value.bits).size();
        for (std::size_t maxBytes = 0; maxBytes < wholeBytes; ++maxBytes) {
            Bytes out(wholeBytes, fill);
            std::int32_t outBytes = UNTOUCHED;
            EXPECT_STATUS(EPC_ERR_NO_ROOM,
                          epc_epcTagUriToBinary(value.tagUri.c_str(), size32(maxBytes), out.data(),
                                                &outBytes))
                << maxBytes;
            EXPECT_EQ(UNTOUCHED, outBytes);
            std::string written = bitsFromBytes(out.data(), maxBytes * 8);
            written.resize(written.find_last_of('1') + 1);
            EXPECT_EQ(0U, value.bits.find(written)) << maxBytes;
            EXPECT_TRUE(maxBytes == 0 || out[0] == bytesFromBits(value.bits)[0]) << maxBytes;
            EXPECT_EQ(Bytes(wholeBytes - maxBytes, fill),
                      Bytes(out.begin() + size32(maxBytes), out.end()));
        }
    }
}

// Damaged values either have a URI that gives the same bits again, or none.

// What can be read but not written: the reserved filter of USDoD, pieces of three digits.
bool isReadOnly(EpcScheme scheme, EpcStatus status) {
    return (scheme == EPC_SCHEME_USDOD_96 && status == EPC_ERR_FILTER_FIELD) ||
           ((scheme == EPC_SCHEME_ITIP_110 || scheme == EPC_SCHEME_ITIP_212) &&
            status == EPC_ERR_OUT_OF_RANGE);
}

Bytes damaged(Bytes bytes, Random& random) {
    for (std::uint64_t flips = random.below(4); flips > 0; --flips) {
        const std::uint64_t bit = 8 + random.below(bytes.size() * 8 - 8);
        bytes[bit / 8] = static_cast<std::uint8_t>(bytes[bit / 8] ^ 0x80U >> bit % 8);
    }
    return bytes;
}

TEST(SchemeLayout, SurvivesDamagedBits) {
    Random random(44);
    Picker picker = Picker::random(55);
    int decoded = 0;
    int refused = 0;
    for (int i = 0; i < 4000; ++i) {
        const SchemeModel& model = schemeModels[random.below(schemeModels.size())];
        const ModelValue value = modelValue(model, 0, random.below(PARTITIONS), picker);
        const Bytes bytes = damaged(paddedBytes(value.bits), random);
        SCOPED_TRACE(hexFromBytes(bytes));
        BitBuffer bits = bitBufferForReading(bytes.data(), size32(bytes.size() * 8));
        char uri[256] = "urn:epc:tag:";
        TextBuffer text = textBufferOver(uri);
        ASSERT_STATUS(EPC_OK, textBufferPutString(text, "urn:epc:tag:"));
        ASSERT_STATUS(EPC_OK, textBufferPutString(text, model.name));
        ASSERT_STATUS(EPC_OK, textBufferPutChar(text, ':'));
        ASSERT_EQ(0, bitBufferSkip(bits, 8));
        if (tagSchemeTable[model.scheme].binaryToUriBody(bits, text, UriForm::TAG) != EPC_OK) {
            ++refused;
            continue;
        }
        ++decoded;
        Bytes again(bytes.size() + 2);
        std::int32_t outBytes = 0;
        const EpcStatus status =
            epc_epcTagUriToBinary(uri, size32(again.size()), again.data(), &outBytes);
        if (!isReadOnly(model.scheme, status)) {
            EXPECT_STATUS(EPC_OK, status) << uri;
            const auto read = static_cast<std::size_t>(bits.position);
            EXPECT_EQ(bitsFromBytes(bytes.data(), read), bitsFromBytes(again.data(), read)) << uri;
        }
    }
    EXPECT_GT(decoded, 1000);
    EXPECT_GT(refused, 500);
}

} // namespace
