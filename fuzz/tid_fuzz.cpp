// TID memory as bytes and words into every decoder of TIDs.
#include "decoders.h"

#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    callDecoders({data, size},
                 [](const Export& row) { return std::string_view(row.name).starts_with("tid_"); });
    return 0;
}
