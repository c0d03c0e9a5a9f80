/*
 * A chunk of rows of DuckDB: its arguments, read where they are, and its results.
 *
 * DuckDB hands over flat vectors: constants and dictionaries have been written out before.
 *
 * Source: DuckDB: C API (Data Chunks, Vectors).
 */
#ifndef ROSETAG_BINDINGS_DUCKDB_CHUNK_H
#define ROSETAG_BINDINGS_DUCKDB_CHUNK_H

#include "sql_functions.h"

#include <duckdb_extension.h>

DUCKDB_EXTENSION_EXTERN

namespace rosetag {

// A column of an argument. Columns that were left out have no data.
struct InColumn {
    void* data = nullptr;
    std::uint64_t* validity = nullptr; // null: no row is NULL
};

// A column of results. No row is NULL unless it is set to be.
struct OutColumn {
    explicit OutColumn(duckdb_vector vector);

    duckdb_vector vector;
    void* data;
    std::uint64_t* validity = nullptr; // null: no row is NULL yet
};

struct Chunk {
    duckdb_function_info info;
    duckdb_data_chunk input;
    duckdb_vector output;
    idx_t rows;
    idx_t columns;
    bool isBinary; // of the first argument
    SqlRoom room;
};

InColumn inColumn(const Chunk& chunk, idx_t index);

inline bool isNull(const InColumn& column, idx_t row) {
    return column.validity != nullptr && (column.validity[row / 64] >> (row % 64) & 1) == 0;
}

// The bytes of a row that is not NULL.
std::string_view textOf(const InColumn& column, idx_t row);

// The integer of a row, nothing for NULL. A column that was left out has the given one.
std::optional<std::int64_t> integerOf(const InColumn& column, idx_t row,
                                      std::optional<std::int64_t> otherwise);

void putNull(OutColumn& column, idx_t row);
void putText(OutColumn& column, idx_t row, std::string_view text);
void putTextOrNull(OutColumn& column, idx_t row, std::string_view text);
void putNumberOrNull(OutColumn& column, idx_t row, std::optional<int> number);
void putFlag(OutColumn& column, idx_t row, bool flag);

// Ends the query.
void fail(const Chunk& chunk, const std::string& sentence);

// Runs work for each row whose first argument is not NULL; the others become NULL. work gives
// false to end the query.
// work: bool(idx_t row, SqlValue value)
template <typename Put, typename Work>
void forEachValue(const Chunk& chunk, Put putNullRow, Work work) {
    const InColumn values = inColumn(chunk, 0);
    for (idx_t row = 0; row < chunk.rows; ++row) {
        if (isNull(values, row)) {
            putNullRow(row);
        } else if (!work(row, SqlValue{textOf(values, row), chunk.isBinary})) {
            return;
        }
    }
}

} // namespace rosetag

#endif
