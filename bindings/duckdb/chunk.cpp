#include "chunk.h"

#include <algorithm>

namespace rosetag {

// Texts of up to this length are in the vector itself. Reading and writing them without calls is
// faster.
constexpr std::size_t LONGEST_INLINED = sizeof(duckdb_string_t::value.inlined.inlined);

OutColumn::OutColumn(duckdb_vector outVector)
    : vector(outVector), data(duckdb_vector_get_data(outVector)) {}

InColumn inColumn(const Chunk& chunk, idx_t index) {
    if (index >= chunk.columns) {
        return {};
    }
    duckdb_vector const vector = duckdb_data_chunk_get_vector(chunk.input, index);
    return {duckdb_vector_get_data(vector), duckdb_vector_get_validity(vector)};
}

std::string_view textOf(const InColumn& column, idx_t row) {
    const duckdb_string_t& text = static_cast<const duckdb_string_t*>(column.data)[row];
    const std::uint32_t length = text.value.inlined.length;
    return {length <= LONGEST_INLINED ? text.value.inlined.inlined : text.value.pointer.ptr,
            length};
}

std::optional<std::int64_t> integerOf(const InColumn& column, idx_t row,
                                      std::optional<std::int64_t> otherwise) {
    if (column.data == nullptr) {
        return otherwise;
    }
    if (isNull(column, row)) {
        return std::nullopt;
    }
    return static_cast<const std::int64_t*>(column.data)[row];
}

void putNull(OutColumn& column, idx_t row) {
    if (column.validity == nullptr) {
        duckdb_vector_ensure_validity_writable(column.vector);
        column.validity = duckdb_vector_get_validity(column.vector);
    }
    column.validity[row / 64] &= ~(std::uint64_t{1} << (row % 64));
}

void putText(OutColumn& column, idx_t row, std::string_view text) {
    if (text.size() <= LONGEST_INLINED) {
        duckdb_string_t inlined{};
        inlined.value.inlined.length = static_cast<std::uint32_t>(text.size());
        std::copy(text.begin(), text.end(), inlined.value.inlined.inlined);
        static_cast<duckdb_string_t*>(column.data)[row] = inlined;
        return;
    }
    duckdb_vector_assign_string_element_len(column.vector, row, text.data(), text.size());
}

void putTextOrNull(OutColumn& column, idx_t row, std::string_view text) {
    if (text.empty()) {
        putNull(column, row);
    } else {
        putText(column, row, text);
    }
}

void putNumberOrNull(OutColumn& column, idx_t row, std::optional<int> number) {
    if (number.has_value()) {
        static_cast<std::int32_t*>(column.data)[row] = *number;
    } else {
        putNull(column, row);
    }
}

void putFlag(OutColumn& column, idx_t row, bool flag) {
    static_cast<bool*>(column.data)[row] = flag;
}

void fail(const Chunk& chunk, const std::string& sentence) {
    duckdb_scalar_function_set_error(chunk.info, sentence.c_str());
}

} // namespace rosetag
