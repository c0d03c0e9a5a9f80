// Texts of every syntax into every export that reads one: parsers, translators and encoders.
//
// Input: a byte each for scheme, filter, gcpLength, encoding, separator and the size of the
// outputs; then the text.
#include "fuzz.h"

#include "support/bits.h"

#include <algorithm>

namespace {

bool readsText(const Export& row) {
    return row.input == Input::SCHEME || row.input == Input::TEXT || row.input == Input::HEX;
}

// The digits of a value are those of its bytes.
void requireSameDigits(const Export& bytesRow, const Arguments& arguments) {
    std::string digitsName = bytesRow.name;
    digitsName.replace(digitsName.find("ToBinary"), 8, "ToHex");
    const auto digitsRow = std::find_if(allExports.begin(), allExports.end(),
                                        [&](const Export& row) { return row.name == digitsName; });
    const Outcome bytes = checkedCall(bytesRow, arguments, {EPC_MAX_BINARY_BYTES});
    const Outcome digits = checkedCall(*digitsRow, arguments, {2 * EPC_MAX_BINARY_BYTES + 1});
    require(digits.status == bytes.status, digitsName + " has the status of the bytes");
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.block(MAIN).data());
    require(bytes.status != EPC_OK ||
                digits.text() == hexFromBytes(first, static_cast<std::size_t>(bytes.count())),
            digitsName + " has the bits of the bytes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    FuzzInput input(data, length);
    Arguments arguments;
    arguments.scheme = input.number();
    arguments.filter = input.number();
    arguments.gcpLength = input.number();
    arguments.encoding = input.number();
    arguments.separator = input.number();
    const std::int32_t size = input.size(8000);
    arguments.text = input.restAsText();
    for (const Export& row : allExports) {
        if (!readsText(row)) {
            continue;
        }
        checkedCall(row, arguments, roomOf(row, size));
        if (row.output == Output::BYTES) {
            requireSameDigits(row, arguments);
        }
    }
    return 0;
}
