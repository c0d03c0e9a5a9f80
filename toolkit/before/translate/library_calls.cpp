#include "before/translate/library_calls.h"

#include "before/recognise/value_form.h"

namespace rosetag {
inline namespace before {

namespace {

constexpr std::int32_t maxAis = 20;
constexpr std::uint32_t valueSize = 1024;
constexpr std::size_t codeSize = 5;

// Runs an export that ends in (maxAIs, valueSize, aiCodes, aiValues, aiCount).
template <typename Call>
AiValues aiValuesFrom(Call call) {
    std::array<char, maxAis * codeSize> codes;
    std::array<char, std::size_t{maxAis} * valueSize> values;
    std::uint32_t count = 0;
    AiValues result;
    result.status = call(codes.data(), values.data(), &count);
    if (result.status == EPC_OK) {
        for (std::size_t i = 0; i < count; ++i) {
            result.ais.push_back({&codes[i * codeSize], &values[i * valueSize]});
        }
    }
    return result;
}

std::uint8_t digitValue(char digit) {
    const int value = isDigit(digit) ? digit - '0' : (digit | 32) - 'a' + 10;
    return static_cast<std::uint8_t>(value);
}

} // namespace

AiValues aiValuesOfHex(const std::string& hex) {
    return aiValuesFrom([&](char* codes, char* values, std::uint32_t* count) {
        return epc_hexToAIs(hex.c_str(), maxAis, valueSize, codes, values, count);
    });
}

AiValues aiValuesOfElementString(const std::string& text) {
    return aiValuesFrom([&](char* codes, char* values, std::uint32_t* count) {
        return epc_gs1ElementStringToAIs(text.c_str(), maxAis, valueSize, codes, values, count);
    });
}

AiValues aiValuesOfBarcode(const std::string& text) {
    return aiValuesFrom([&](char* codes, char* values, std::uint32_t* count) {
        return epc_barcodeStringToAIs(text.c_str(), GROUP_SEPARATOR, maxAis, valueSize, codes,
                                      values, count);
    });
}

AiValues aiValuesOfLink(const std::string& text) {
    return aiValuesFrom([&](char* codes, char* values, std::uint32_t* count) {
        return epc_digitalLinkToAIs(text.c_str(), maxAis, valueSize, codes, values, count);
    });
}

std::vector<std::uint8_t> bytesOfHex(std::string_view digits) {
    std::vector<std::uint8_t> bytes((digits.size() + 1) / 2);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const int shift = i % 2 == 0 ? 4 : 0;
        bytes[i / 2] = static_cast<std::uint8_t>(bytes[i / 2] | digitValue(digits[i]) << shift);
    }
    return bytes;
}

} // namespace before
} // namespace rosetag
