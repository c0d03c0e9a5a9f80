// Any lines as a column: each row has the status that it has by itself.
//
// Input: as in toolkit.h; each line of the value is a row.
#include "toolkit.h"

#include <rosetag/columns.h>

#include <array>

namespace {

struct Column {
    std::vector<std::string> values;
    std::vector<std::int32_t> offsets{0};
    std::string bytes;
};

Column columnOf(const std::string& text) {
    Column column;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        column.values.push_back(text.substr(begin, end - begin));
        column.bytes += column.values.back();
        column.offsets.push_back(static_cast<std::int32_t>(column.bytes.size()));
        begin = end + 1;
    }
    return column;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const rosetag::ReadOptions options = readOptionsOf(input);
    const Column column = columnOf(input.restAsBytes());
    const auto rows = static_cast<std::int64_t>(column.values.size());

    ArrowSchema type{};
    type.format = "u";
    std::array<const void*, 3> buffers{nullptr, column.offsets.data(), column.bytes.data()};
    ArrowArray values{};
    values.length = rows;
    values.n_buffers = 3;
    values.buffers = buffers.data();
    RosetagColumnsReadOptions read{};
    read.asBarcode = options.asBarcode ? 1 : 0;
    read.strict = options.strict ? 1 : 0;
    read.gcpLength = options.gcpLength.value_or(0);
    const std::array outputs{"status",         "hex",          "tag_uri", "bytes",
                             "element_string", "digital_link", "message", "ai_21",
                             "pure_identity",  "filter",       "gtin",    "serial"};
    ArrowSchema outType{};
    ArrowArray out{};
    std::array<char, ROSETAG_COLUMNS_ERROR_SIZE> error{};
    const std::int32_t result = rosetag_columnsDecode(&type, &values, outputs.data(),
                                                      static_cast<std::int32_t>(outputs.size()),
                                                      &read, &outType, &out, error.data());
    if (result != ROSETAG_COLUMNS_OK) {
        require(error.front() != '\0', "a call that fails says why");
        return 0;
    }
    require(out.length == rows, "there are as many rows as before");
    const auto* statuses = static_cast<const std::uint8_t*>(out.children[0]->buffers[1]);
    for (std::size_t i = 0; i < column.values.size(); ++i) {
        const rosetag::Translation item = rosetag::translate(column.values[i], options);
        require(statuses[i] == item.failure.status, "the status of a row: " + column.values[i]);
    }
    out.release(&out);
    outType.release(&outType);
    return 0;
}
