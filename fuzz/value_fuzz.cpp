// Single AI values as text and as bits.
//
// Input: a byte each for withCode, encoding and the size of the outputs; an AI up to "|"; then the
// value as a text, and the same bytes as bits.
#include "fuzz.h"

#include "support/bits.h"

#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    FuzzInput input(data, length);
    Arguments arguments;
    arguments.withCode = input.number() & 1;
    arguments.encoding = input.number();
    const std::int32_t size = input.size(2000);
    arguments.ai = input.textUntil('|');
    arguments.binary = input.rest();
    arguments.bits =
        static_cast<std::int32_t>(arguments.binary.size()) * 8 - (arguments.encoding & 7);
    const std::string value = input.restAsText();
    const std::string digits = hexFromBytes(arguments.binary);
    for (const Export& row : allExports) {
        const std::string_view name = row.name;
        if (name.find("AITo") == std::string_view::npos && !name.ends_with("ToAI")) {
            continue;
        }
        arguments.text = row.input == Input::HEX ? digits : value;
        checkedCall(row, arguments, roomOf(row, size));
    }
    return 0;
}
