// Binary values as bytes, words and digits into every decoder of EPC values.
#include "decoders.h"

#include <string_view>

namespace {

// Those of TIDs and of single AI values are other fuzzers'.
bool decodesEpc(const Export& row) {
    const std::string_view name = row.name;
    return name.starts_with("epc_") && !name.ends_with("ToAI");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    callDecoders({data, size}, decodesEpc);
    return 0;
}
