/*
 * The table that a call on columns builds: a column for each output, filled row by row.
 */
#ifndef ROSETAG_TOOLKIT_COLUMNS_COLUMN_TABLE_H
#define ROSETAG_TOOLKIT_COLUMNS_COLUMN_TABLE_H

#include "columns/column_reader.h"
#include "columns/column_writer.h"
#include "rosetag/toolkit.hpp"
#include "translate/tag_form_writers.h"

#include <vector>

namespace rosetag {

// What a column of a result holds.
enum class Output : std::uint8_t {
    FORM,
    BYTES,
    SCHEME,
    FILTER,
    AI,
    STATUS,
    STATUS_NAME,
    MESSAGE,
    DESIGNER,
    MODEL,
    XTID,
    SECURITY,
    FILE_FLAG,
    SERIAL,
    SERIAL_BITS,
    IS_VALID,
    SEVERITY,
    ERRORS,
    WARNINGS,
    RULE,
    FINDINGS,
};

// What is done to a column; each call has its own outputs.
enum class ColumnCall : std::uint8_t { TRANSLATE, TID, CHECK };

struct OutputColumn {
    Output output = Output::FORM;
    Form form = Form::UNKNOWN;
    std::string_view ai;
    TagFormWriter formWriter = nullptr; // of a form that plain tag values have
    std::size_t formLength = 0;         // in the row that is being put
    ColumnWriter writer;
};

// The columns of a result while they are built.
struct ColumnTable {
    std::vector<OutputColumn> columns;
    FormSet wanted;        // forms that the columns need
    bool isPlain = true;   // all of them can be had from the bits of a tag
    bool isLarge = false;  // texts have 64-bit offsets
    bool hasWords = false; // messages or findings are among them
    bool hasMemory = true; // false once it ran out
    std::string json;      // of a row

    ColumnTable() = default;
    ColumnTable(const ColumnTable&) = delete;
    ColumnTable& operator=(const ColumnTable&) = delete;
    ~ColumnTable() {
        for (OutputColumn& column : columns) {
            columnWriterClose(column.writer);
        }
    }
};

// Finds the outputs and makes room for their columns. A code of RosetagColumnsResult.
std::int32_t columnTableOpen(const char* const* outputs, std::int32_t outputCount, ColumnCall call,
                             const ColumnReader& reader, ColumnTable& table, char* error);

// Hands the table on as an Arrow array.
std::int32_t columnTableClose(ColumnTable& table, const char* const* outputs, std::int64_t rows,
                              ArrowSchema& type, ArrowArray& array, char* error);

// Each fills one row in all columns.
void columnTablePutNulls(ColumnTable& table, std::int64_t row);
void columnTablePut(ColumnTable& table, std::int64_t row, const Translation& result);
void columnTablePut(ColumnTable& table, std::int64_t row, const Tid& result);
void columnTablePut(ColumnTable& table, std::int64_t row, const Rows<Finding>& findings);

// Fills a row whose value is a plain tag. False where it is not, or where a form of it fails: then
// the row has not begun. No column shows notes, so none are looked for.
bool columnTablePutPlain(ColumnTable& table, std::int64_t row, std::string_view value,
                         bool isBinary);

} // namespace rosetag

#endif
