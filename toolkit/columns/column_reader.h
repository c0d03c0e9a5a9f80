/*
 * Reads the rows of an Arrow array in place, whatever its layout.
 *
 * Source: Arrow Columnar Format; The Arrow C data interface (format strings).
 */
#ifndef ROSETAG_TOOLKIT_COLUMNS_COLUMN_READER_H
#define ROSETAG_TOOLKIT_COLUMNS_COLUMN_READER_H

#include "rosetag/columns.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

// How the rows of an array are stored.
enum class ColumnLayout : std::uint8_t {
    NONE,      // every row is null
    OFFSETS32, // bytes between two offsets
    OFFSETS64,
    VIEWS, // 16 bytes a row: short texts in place, longer ones in buffers
    FIXED, // the same number of bytes a row
    INTEGERS,
    FLAGS, // a bit a row
};

struct ColumnReader {
    ColumnLayout layout = ColumnLayout::NONE;
    bool isBinary = false;  // bytes rather than text
    bool isSigned = false;  // of INTEGERS
    std::int32_t width = 0; // bytes a row of FIXED and INTEGERS
    std::int64_t length = 0;
    std::int64_t offset = 0;
    const std::uint8_t* validity = nullptr;
    const void* rows = nullptr; // offsets, views, bytes or numbers
    const char* data = nullptr;
    const void* const* viewBuffers = nullptr;
    std::int64_t viewBufferCount = 0;
    const ColumnReader* dictionary = nullptr;    // rows are indexes into it
    const std::uint8_t* tableValidity = nullptr; // of the table whose only column this is
    std::int64_t tableOffset = 0;
};

// Lays a reader over an array; dictionary is where that of an encoded array goes. A code of
// RosetagColumnsResult, with a sentence in error.
std::int32_t columnReaderOpen(const ArrowSchema& type, const ArrowArray& values,
                              ColumnReader& reader, ColumnReader& dictionary, char* error);

// The Arrow type of a column, or of the only one of a table.
const char* columnFormat(const ArrowSchema& type);

inline bool columnBit(const std::uint8_t* bits, std::int64_t index) {
    return (bits[index / 8] >> (index % 8) & 1) != 0;
}

inline bool columnIsNull(const ColumnReader& reader, std::int64_t row) {
    return reader.layout == ColumnLayout::NONE ||
           (reader.validity != nullptr && !columnBit(reader.validity, reader.offset + row)) ||
           (reader.tableValidity != nullptr &&
            !columnBit(reader.tableValidity, reader.tableOffset + row));
}

// The bytes of a row of text or binary. False for a null.
bool columnText(const ColumnReader& reader, std::int64_t row, std::string_view& text);

// The number of a row of INTEGERS. False for a null.
bool columnInteger(const ColumnReader& reader, std::int64_t row, std::int64_t& number);

bool columnHoldsTexts(const ColumnReader& reader);

} // namespace rosetag

#endif
