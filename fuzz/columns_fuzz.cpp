// Any lines as a column, decoded and checked: each row has the status that it has by itself, and
// the findings.
//
// Input: as in toolkit.h; each line of the value is a row.
#include "toolkit.h"

#include <rosetag/columns.h>

#include <array>
#include <span>

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

using ColumnCall = decltype(&rosetag_columnsDecode);

// Calls with a column of texts. False if the call refuses all of it.
bool callWith(ColumnCall call, const Column& column, std::span<const char* const> outputs,
              const RosetagColumnsReadOptions& read, ArrowSchema& outType, ArrowArray& out) {
    ArrowSchema type{};
    type.format = "u";
    std::array<const void*, 3> buffers{nullptr, column.offsets.data(), column.bytes.data()};
    ArrowArray values{};
    values.length = static_cast<std::int64_t>(column.values.size());
    values.n_buffers = 3;
    values.buffers = buffers.data();
    std::array<char, ROSETAG_COLUMNS_ERROR_SIZE> error{};
    const std::int32_t result =
        call(&type, &values, outputs.data(), static_cast<std::int32_t>(outputs.size()), &read,
             &outType, &out, error.data());
    if (result != ROSETAG_COLUMNS_OK) {
        require(error.front() != '\0', "a call that fails says why");
        return false;
    }
    require(out.length == values.length, "there are as many rows as before");
    return true;
}

void decodeColumn(const Column& column, const rosetag::ReadOptions& options,
                  const RosetagColumnsReadOptions& read) {
    const std::array outputs{"status",         "hex",          "tag_uri", "bytes",
                             "element_string", "digital_link", "message", "ai_21",
                             "pure_identity",  "filter",       "gtin",    "serial"};
    ArrowSchema type{};
    ArrowArray out{};
    if (!callWith(rosetag_columnsDecode, column, outputs, read, type, out)) {
        return;
    }
    const auto* statuses = static_cast<const std::uint8_t*>(out.children[0]->buffers[1]);
    for (std::size_t i = 0; i < column.values.size(); ++i) {
        const rosetag::Translation item = rosetag::translate(column.values[i], options);
        require(statuses[i] == item.failure.status, "the status of a row: " + column.values[i]);
    }
    out.release(&out);
    type.release(&type);
}

void checkColumn(const Column& column, const rosetag::ReadOptions& options,
                 const RosetagColumnsReadOptions& read) {
    const std::array outputs{"errors", "warnings", "is_valid", "severity",
                             "rule",   "message",  "findings"};
    ArrowSchema type{};
    ArrowArray out{};
    if (!callWith(rosetag_columnsCheck, column, outputs, read, type, out)) {
        return;
    }
    const auto* errors = static_cast<const std::int32_t*>(out.children[0]->buffers[1]);
    const auto* warnings = static_cast<const std::int32_t*>(out.children[1]->buffers[1]);
    const auto* valid = static_cast<const std::uint8_t*>(out.children[2]->buffers[1]);
    for (std::size_t i = 0; i < column.values.size(); ++i) {
        const rosetag::Rows<rosetag::Finding> findings = rosetag::check(column.values[i], options);
        require(errors[i] + warnings[i] == static_cast<std::int32_t>(findings.size()),
                "the findings of a row: " + column.values[i]);
        require((errors[i] > 0) == hasError(findings), "the errors of a row: " + column.values[i]);
        const bool isValid = (valid[i / 8] >> (i % 8) & 1) != 0;
        require(isValid == (errors[i] == 0), "a row is valid without errors");
    }
    out.release(&out);
    type.release(&type);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const rosetag::ReadOptions options = readOptionsOf(input);
    const Column column = columnOf(input.restAsBytes());
    RosetagColumnsReadOptions read{};
    read.asBarcode = options.asBarcode ? 1 : 0;
    read.strict = options.strict ? 1 : 0;
    read.gcpLength = options.gcpLength.value_or(0);
    decodeColumn(column, options, read);
    checkColumn(column, options, read);
    return 0;
}
