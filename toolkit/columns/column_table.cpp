#include "columns/column_table.h"

#include "columns/column_error.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace rosetag {
namespace {

struct OutputWord {
    std::string_view word;
    Output output;
    ColumnType type;
};

// clang-format off
constexpr OutputWord ofEveryCall[] = {
    {"status",      Output::STATUS,      ColumnType::UINT8},
    {"status_name", Output::STATUS_NAME, ColumnType::TEXT},
    {"message",     Output::MESSAGE,     ColumnType::TEXT},
};

constexpr OutputWord ofValues[] = {
    {"scheme",      Output::SCHEME,      ColumnType::TEXT},
    {"filter",      Output::FILTER,      ColumnType::INT8},
    {"bytes",       Output::BYTES,       ColumnType::BINARY},
};

constexpr OutputWord ofTids[] = {
    {"designer",    Output::DESIGNER,    ColumnType::UINT16},
    {"model",       Output::MODEL,       ColumnType::UINT16},
    {"xtid",        Output::XTID,        ColumnType::FLAG},
    {"security",    Output::SECURITY,    ColumnType::FLAG},
    {"file",        Output::FILE_FLAG,   ColumnType::FLAG},
    {"serial",      Output::SERIAL,      ColumnType::TEXT},
    {"serial_bits", Output::SERIAL_BITS, ColumnType::UINT8},
};
// clang-format on

constexpr FormSet FORMS_OF_ONE_TEXT = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY |
                                      Form::ELEMENT_STRING | Form::BARCODE_STRING |
                                      Form::DIGITAL_LINK | Form::GTIN | Form::SERIAL;

constexpr std::string_view AI_PREFIX = "ai_";

template <std::size_t count>
const OutputWord* findWord(const OutputWord (&words)[count], std::string_view word) {
    const auto* const found =
        std::find_if(std::begin(words), std::end(words),
                     [word](const OutputWord& row) { return row.word == word; });
    return found == std::end(words) ? nullptr : found;
}

// Finds out what a word of outputs stands for. False for a word that is none.
bool readOutput(std::string_view word, bool ofTid, OutputColumn& column, ColumnType& type,
                FormSet& wanted) {
    const OutputWord* row = findWord(ofEveryCall, word);
    if (row == nullptr) {
        row = ofTid ? findWord(ofTids, word) : findWord(ofValues, word);
    }
    if (row != nullptr) {
        column.output = row->output;
        type = row->type;
        wanted = row->output == Output::BYTES ? wanted | Form::HEX : wanted;
        return true;
    }
    type = ColumnType::TEXT;
    if (!ofTid && word.starts_with(AI_PREFIX)) {
        column.output = Output::AI;
        column.ai = word.substr(AI_PREFIX.size());
        wanted = wanted | Form::AIS;
        return !aiTitle(column.ai).empty();
    }
    column.form = formByWord(word);
    wanted = wanted | column.form;
    return !ofTid && column.form != Form::UNKNOWN && FORMS_OF_ONE_TEXT.has(column.form);
}

void put(ColumnTable& table, OutputColumn& column, std::int64_t row, std::string_view text) {
    table.hasMemory = columnWriterPut(column.writer, row, text) && table.hasMemory;
}

// An empty text is a form that the value does not have.
void putOrNull(ColumnTable& table, OutputColumn& column, std::int64_t row, std::string_view text) {
    if (text.empty()) {
        columnWriterPutNull(column.writer, row);
    } else {
        put(table, column, row, text);
    }
}

// What a row that failed has. False for all other outputs.
bool putStatus(ColumnTable& table, OutputColumn& column, std::int64_t row, const Failure& failure) {
    switch (column.output) {
    case Output::STATUS:
        columnWriterPutNumber(column.writer, row, static_cast<std::uint32_t>(failure.status));
        return true;
    case Output::STATUS_NAME:
        put(table, column, row, epc_statusName(failure.status));
        return true;
    case Output::MESSAGE:
        if (isFailure(failure)) {
            put(table, column, row, failureText(failure));
        } else {
            columnWriterPutNull(column.writer, row);
        }
        return true;
    default:
        return false;
    }
}

void putBytes(ColumnTable& table, OutputColumn& column, std::int64_t row, std::string_view hex) {
    char* const room = columnWriterRoom(column.writer, hex.size() / 2);
    if (room == nullptr) {
        table.hasMemory = false;
        return;
    }
    columnWriterTake(column.writer, row, bytesOfHexDigits(hex, room));
}

void putTranslation(ColumnTable& table, OutputColumn& column, std::int64_t row,
                    const Translation& result) {
    switch (column.output) {
    case Output::FORM:
        return putOrNull(table, column, row, formText(result, column.form));
    case Output::AI:
        return putOrNull(table, column, row, aiValueOf(result, column.ai));
    case Output::SCHEME:
        return putOrNull(table, column, row,
                         result.scheme == nullptr ? std::string_view() : result.scheme->name);
    case Output::FILTER:
        return result.filter.has_value()
                   ? columnWriterPutNumber(column.writer, row,
                                           static_cast<std::uint32_t>(*result.filter))
                   : columnWriterPutNull(column.writer, row);
    default:
        return result.hex.empty() ? columnWriterPutNull(column.writer, row)
                                  : putBytes(table, column, row, result.hex);
    }
}

void putTid(ColumnTable& table, OutputColumn& column, std::int64_t row, const TidRecord& record) {
    const auto flag = [&](unsigned mask) {
        columnWriterPutNumber(column.writer, row, (record.mdid & mask) != 0 ? 1 : 0);
    };
    switch (column.output) {
    case Output::DESIGNER:
        return columnWriterPutNumber(column.writer, row, record.mdid & TID_DESIGNER_MASK);
    case Output::MODEL:
        return columnWriterPutNumber(column.writer, row, record.tmid);
    case Output::XTID:
        return flag(TID_XTID_MASK);
    case Output::SECURITY:
        return flag(TID_SECURITY_MASK);
    case Output::FILE_FLAG:
        return flag(TID_FILE_MASK);
    case Output::SERIAL:
        return putOrNull(table, column, row, record.serial);
    default:
        return columnWriterPutNumber(column.writer, row, record.serialBits);
    }
}

} // namespace

std::int32_t columnTableOpen(const char* const* outputs, std::int32_t outputCount, bool ofTid,
                             const ColumnReader& reader, ColumnTable& table, char* error) {
    if (outputCount < 1) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_OUTPUT, "no output is asked for");
    }
    table.isLarge = reader.layout == ColumnLayout::OFFSETS64;
    table.columns.resize(static_cast<std::size_t>(outputCount));
    for (std::int32_t i = 0; i < outputCount; ++i) {
        OutputColumn& column = table.columns[static_cast<std::size_t>(i)];
        ColumnType type = ColumnType::TEXT;
        if (!readOutput(outputs[i], ofTid, column, type, table.wanted)) {
            return columnsFail(error, ROSETAG_COLUMNS_BAD_OUTPUT,
                               "there is no output \"%.40s\" here", outputs[i]);
        }
        column.plainExport = plainRowExportOf(column.form);
        const bool isPlain = column.output == Output::STATUS || column.plainExport != nullptr;
        table.isPlain = table.isPlain && isPlain;
        if (!columnWriterOpen(column.writer, type, table.isLarge, reader.length)) {
            return columnsNoMemory(error);
        }
    }
    return ROSETAG_COLUMNS_OK;
}

std::int32_t columnTableClose(ColumnTable& table, const char* const* outputs, std::int64_t rows,
                              ArrowSchema& type, ArrowArray& array, char* error) {
    std::vector<ColumnWriter> writers;
    for (OutputColumn& column : table.columns) {
        if (columnWriterIsTooLarge(column.writer)) {
            return columnsFail(error, ROSETAG_COLUMNS_TOO_LARGE,
                               "a column of results takes more than 2^31 - 1 bytes: pass smaller "
                               "chunks, or large_utf8");
        }
        writers.push_back(column.writer);
        column.writer = {};
    }
    const bool isDone =
        table.hasMemory &&
        columnWritersExport(writers.data(), outputs, static_cast<std::int64_t>(writers.size()),
                            rows, type, array);
    for (ColumnWriter& writer : writers) {
        columnWriterClose(writer);
    }
    return isDone ? ROSETAG_COLUMNS_OK : columnsNoMemory(error);
}

void columnTablePutNulls(ColumnTable& table, std::int64_t row) {
    for (OutputColumn& column : table.columns) {
        columnWriterPutNull(column.writer, row);
    }
}

void columnTablePut(ColumnTable& table, std::int64_t row, const Translation& result) {
    for (OutputColumn& column : table.columns) {
        if (putStatus(table, column, row, result.failure)) {
            continue;
        }
        if (isFailure(result.failure)) {
            columnWriterPutNull(column.writer, row);
        } else {
            putTranslation(table, column, row, result);
        }
    }
}

void columnTablePut(ColumnTable& table, std::int64_t row, const Tid& result) {
    for (OutputColumn& column : table.columns) {
        if (putStatus(table, column, row, result.failure)) {
            continue;
        }
        if (isFailure(result.failure)) {
            columnWriterPutNull(column.writer, row);
        } else {
            putTid(table, column, row, result.record);
        }
    }
}

bool columnTablePutPlain(ColumnTable& table, std::int64_t row, std::string_view value,
                         bool isBinary) {
    PlainRow plain;
    if (!plainRowRead(value, isBinary, plain)) {
        return false;
    }
    for (OutputColumn& column : table.columns) {
        if (column.output != Output::FORM) {
            continue;
        }
        char* const room = columnWriterRoom(column.writer, PLAIN_ROW_ROOM);
        if (room == nullptr || !plainRowForm(plain, column.plainExport, room)) {
            return false;
        }
    }
    for (OutputColumn& column : table.columns) {
        if (column.output == Output::FORM) {
            const char* const text = column.writer.data + column.writer.used;
            columnWriterTake(column.writer, row, std::strlen(text));
        } else {
            columnWriterPutNumber(column.writer, row, EPC_OK);
        }
    }
    return true;
}

} // namespace rosetag
