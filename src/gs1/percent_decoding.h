#ifndef ROSETAG_GS1_PERCENT_DECODING_H
#define ROSETAG_GS1_PERCENT_DECODING_H

#include "core/text_cursor.h"

namespace rosetag {

// The longest value of a Digital Link, decoded, and a NUL.
constexpr std::int32_t DECODED_VALUE_SIZE = 1024;

// Decodes a value of a Digital Link. decoded lies in out, of capacity characters, or is the raw
// value if that has no escape. An escape of character 0 ends the value: what follows it
// is read and dropped. More than capacity - 1 characters are EPC_ERR_TOO_LONG.
EpcStatus percentDecode(std::string_view raw, std::int32_t capacity, char* out,
                        std::string_view& decoded);

} // namespace rosetag

#endif
