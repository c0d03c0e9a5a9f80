/*
 * The library's calls with C++ texts: what they read, what they write, and their status.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_LIBRARY_CALLS_H
#define ROSETAG_TOOLKIT_TRANSLATE_LIBRARY_CALLS_H

#include "before/recognise/barcode_text.h"

#include <rosetag/rosetag.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {
inline namespace before {

// Holds every text that the library writes: a value of 1023 characters, each escaped, with codes.
inline constexpr std::int32_t TEXT_SIZE = 4096;

// Runs an export that ends in (dstSize, dst). text is left alone on failure.
template <typename Call>
EpcStatus textFrom(std::string& text, Call call) {
    std::array<char, TEXT_SIZE> dst;
    const EpcStatus status = call(TEXT_SIZE, dst.data());
    if (status == EPC_OK) {
        text = dst.data();
    }
    return status;
}

struct AiValues {
    EpcStatus status = EPC_OK;
    std::vector<AiValue> ais;
};

AiValues aiValuesOfHex(const std::string& hex);
AiValues aiValuesOfElementString(const std::string& text);
AiValues aiValuesOfBarcode(const std::string& text);
AiValues aiValuesOfLink(const std::string& text);

// The bytes of hex digits; an odd last digit fills the high half of its byte.
std::vector<std::uint8_t> bytesOfHex(std::string_view digits);

} // namespace before
} // namespace rosetag

#endif
