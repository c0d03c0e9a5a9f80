/*
 * Builds an Arrow array row by row. Room for texts is reserved for the whole array at once and
 * grows rarely.
 */
#ifndef ROSETAG_TOOLKIT_COLUMNS_COLUMN_WRITER_H
#define ROSETAG_TOOLKIT_COLUMNS_COLUMN_WRITER_H

#include "rosetag/columns.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

enum class ColumnType : std::uint8_t { TEXT, BINARY, INT8, UINT8, UINT16, INT32, FLAG };

struct ColumnWriter {
    ColumnType type = ColumnType::TEXT;
    bool isLarge = false; // 64-bit offsets
    std::int64_t rows = 0;
    std::int64_t nulls = 0;
    std::uint8_t* validity = nullptr; // a bit a row, cleared: nothing is to be done for a null
    void* values = nullptr;           // offsets or numbers
    char* data = nullptr;
    std::size_t used = 0;
    std::size_t capacity = 0;
};

// Rows are put in order, from 0 on. False: there is no memory.
bool columnWriterOpen(ColumnWriter& writer, ColumnType type, bool isLarge, std::int64_t rows);
void columnWriterClose(ColumnWriter& writer);

// Room for one more text of up to size bytes, or null where there is no memory.
char* columnWriterRoom(ColumnWriter& writer, std::size_t size);

// The row holds the first size bytes of the room.
void columnWriterTake(ColumnWriter& writer, std::int64_t row, std::size_t size);

bool columnWriterPut(ColumnWriter& writer, std::int64_t row, std::string_view text);
void columnWriterPutNumber(ColumnWriter& writer, std::int64_t row, std::uint32_t number);
void columnWriterPutNull(ColumnWriter& writer, std::int64_t row);

// True where 32-bit offsets cannot reach what was put.
inline bool columnWriterIsTooLarge(const ColumnWriter& writer) {
    return !writer.isLarge && writer.used > 0x7FFFFFFF;
}

// Hands the columns on as the children of a struct array, and closes them. False: there is no
// memory.
bool columnWritersExport(ColumnWriter* writers, const char* const* names, std::int64_t count,
                         std::int64_t rows, ArrowSchema& type, ArrowArray& array);

} // namespace rosetag

#endif
