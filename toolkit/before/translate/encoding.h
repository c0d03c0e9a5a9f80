/*
 * From a text to the bits of a tag scheme.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_ENCODING_H
#define ROSETAG_TOOLKIT_TRANSLATE_ENCODING_H

#include "before/recognise/prepared_value.h"

#include <optional>

namespace rosetag {
inline namespace before {

struct EncodeRequest {
    const SchemeEntry* scheme = nullptr; // null: a tag URI names its own
    std::optional<int> filter;           // 0 where none is given
    std::optional<int> gcpLength;
    int encoding = AI_ENC_AUTO;
};

// Why a request cannot be tried for a form: what the caller must add or leave out. Empty if it can.
std::string encodeUsageError(const EncodeRequest& request, ValueForm form);

Failure encodeValue(const PreparedValue& value, const EncodeRequest& request, std::string& hex);

// Hex digits as 16-bit words of four digits, a space between them.
std::string wordsOfHex(std::string_view hexDigits);

} // namespace before
} // namespace rosetag

#endif
