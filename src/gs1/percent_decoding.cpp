#include "gs1/percent_decoding.h"

#include <algorithm>

namespace rosetag {

EpcStatus percentDecode(std::string_view raw, std::int32_t capacity, char* out,
                        std::string_view& decoded) {
    std::string_view text = raw;
    if (raw.find('%') != std::string_view::npos ||
        raw.size() >= static_cast<std::size_t>(capacity)) {
        TextCursor cursor = textCursorOver(raw);
        std::int32_t count = 0;
        EPC_TRY(textCursorReadEscapedToEnd(cursor, capacity, out, count));
        text = {out, static_cast<std::size_t>(count)};
    }
    decoded = {text.data(), std::min(text.find('\0'), text.size())};
    return EPC_OK;
}

} // namespace rosetag
