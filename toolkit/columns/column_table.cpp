#include "columns/column_table.h"

#include "columns/column_error.h"
#include "recognise/hex_text.h"
#include "translate/translate.h"

#include <algorithm>
#include <iterator>

namespace rosetag {
namespace {

constexpr unsigned callBit(ColumnCall call) {
    return 1U << static_cast<unsigned>(call);
}

constexpr unsigned TRANSLATE = callBit(ColumnCall::TRANSLATE);
constexpr unsigned TID = callBit(ColumnCall::TID);
constexpr unsigned CHECK = callBit(ColumnCall::CHECK);

struct OutputWord {
    std::string_view word;
    Output output;
    ColumnType type;
    unsigned calls;
};

// Besides the forms and the AIs.
// clang-format off
constexpr OutputWord outputWords[] = {
    // word         output               type                calls that have it
    {"status",      Output::STATUS,      ColumnType::UINT8,  TRANSLATE | TID | CHECK},
    {"status_name", Output::STATUS_NAME, ColumnType::TEXT,   TRANSLATE | TID | CHECK},
    {"message",     Output::MESSAGE,     ColumnType::TEXT,   TRANSLATE | TID | CHECK},
    {"scheme",      Output::SCHEME,      ColumnType::TEXT,   TRANSLATE},
    {"filter",      Output::FILTER,      ColumnType::INT8,   TRANSLATE},
    {"bytes",       Output::BYTES,       ColumnType::BINARY, TRANSLATE},
    {"designer",    Output::DESIGNER,    ColumnType::UINT16, TID},
    {"model",       Output::MODEL,       ColumnType::UINT16, TID},
    {"xtid",        Output::XTID,        ColumnType::FLAG,   TID},
    {"security",    Output::SECURITY,    ColumnType::FLAG,   TID},
    {"file",        Output::FILE_FLAG,   ColumnType::FLAG,   TID},
    {"serial",      Output::SERIAL,      ColumnType::TEXT,   TID},
    {"serial_bits", Output::SERIAL_BITS, ColumnType::UINT8,  TID},
    {"is_valid",    Output::IS_VALID,    ColumnType::FLAG,   CHECK},
    {"severity",    Output::SEVERITY,    ColumnType::TEXT,   CHECK},
    {"errors",      Output::ERRORS,      ColumnType::INT32,  CHECK},
    {"warnings",    Output::WARNINGS,    ColumnType::INT32,  CHECK},
    {"rule",        Output::RULE,        ColumnType::TEXT,   CHECK},
    {"findings",    Output::FINDINGS,    ColumnType::TEXT,   CHECK},
};
// clang-format on

constexpr FormSet FORMS_OF_ONE_TEXT = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY |
                                      Form::ELEMENT_STRING | Form::BARCODE_STRING |
                                      Form::DIGITAL_LINK | Form::GTIN | Form::SERIAL;

constexpr std::string_view AI_PREFIX = "ai_";

const OutputWord* findWord(std::string_view word, ColumnCall call) {
    const auto* const found = std::find_if(
        std::begin(outputWords), std::end(outputWords), [word, call](const OutputWord& row) {
            return row.word == word && (row.calls & callBit(call)) != 0;
        });
    return found == std::end(outputWords) ? nullptr : found;
}

// Finds what a word of outputs stands for. False for any other word.
bool readOutput(std::string_view word, ColumnCall call, OutputColumn& column, ColumnType& type,
                FormSet& wanted) {
    if (const OutputWord* const row = findWord(word, call); row != nullptr) {
        column.output = row->output;
        type = row->type;
        wanted = row->output == Output::BYTES ? wanted | Form::HEX : wanted;
        return true;
    }
    if (call != ColumnCall::TRANSLATE) {
        return false;
    }
    type = ColumnType::TEXT;
    if (word.starts_with(AI_PREFIX)) {
        column.output = Output::AI;
        column.ai = word.substr(AI_PREFIX.size());
        wanted = wanted | Form::AIS;
        return !aiTitle(column.ai).empty();
    }
    column.form = formByWord(word);
    wanted = wanted | column.form;
    return column.form != Form::UNKNOWN && FORMS_OF_ONE_TEXT.has(column.form);
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
    char* const room = columnWriterRoom(column.writer, (hex.size() + 1) / 2);
    if (room == nullptr) {
        table.hasMemory = false;
        return;
    }
    const std::size_t count = bytesOfHex(hex, reinterpret_cast<std::uint8_t*>(room));
    columnWriterTake(column.writer, row, count);
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

std::uint32_t countOf(const Rows<Finding>& findings, Severity severity) {
    return static_cast<std::uint32_t>(
        std::count_if(findings.begin(), findings.end(),
                      [severity](const Finding& finding) { return finding.severity == severity; }));
}

// The first of the worst, or null.
const Finding* worstOf(const Rows<Finding>& findings) {
    const auto* const worst = std::max_element(
        findings.begin(), findings.end(),
        [](const Finding& one, const Finding& other) { return one.severity < other.severity; });
    return worst == findings.end() ? nullptr : worst;
}

void putFindings(ColumnTable& table, OutputColumn& column, std::int64_t row,
                 const Rows<Finding>& findings) {
    const Finding* const worst = worstOf(findings);
    switch (column.output) {
    case Output::STATUS:
        return columnWriterPutNumber(column.writer, row,
                                     static_cast<std::uint32_t>(statusOf(findings)));
    case Output::STATUS_NAME:
        return put(table, column, row, epc_statusName(statusOf(findings)));
    case Output::IS_VALID:
        return columnWriterPutNumber(column.writer, row, hasError(findings) ? 0 : 1);
    case Output::SEVERITY:
        return putOrNull(table, column, row,
                         worst == nullptr ? std::string_view() : severityWord(worst->severity));
    case Output::ERRORS:
        return columnWriterPutNumber(column.writer, row, countOf(findings, Severity::ERROR));
    case Output::WARNINGS:
        return columnWriterPutNumber(column.writer, row, countOf(findings, Severity::WARNING));
    case Output::RULE:
        return putOrNull(table, column, row,
                         worst == nullptr ? std::string_view() : checkRuleWord(worst->rule));
    case Output::MESSAGE:
        return worst == nullptr ? columnWriterPutNull(column.writer, row)
                                : put(table, column, row, findingText(*worst));
    default:
        table.json.clear();
        appendJson(table.json, findings);
        put(table, column, row, table.json);
    }
}

} // namespace

std::int32_t columnTableOpen(const char* const* outputs, std::int32_t outputCount, ColumnCall call,
                             const ColumnReader& reader, ColumnTable& table, char* error) {
    if (outputCount < 1) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_OUTPUT, "no output is asked for");
    }
    const ColumnReader& texts = reader.dictionary != nullptr ? *reader.dictionary : reader;
    table.isLarge = texts.layout == ColumnLayout::OFFSETS64;
    table.columns.resize(static_cast<std::size_t>(outputCount));
    for (std::int32_t i = 0; i < outputCount; ++i) {
        OutputColumn& column = table.columns[static_cast<std::size_t>(i)];
        ColumnType type = ColumnType::TEXT;
        if (!readOutput(outputs[i], call, column, type, table.wanted)) {
            return columnsFail(error, ROSETAG_COLUMNS_BAD_OUTPUT,
                               "there is no output \"%.40s\" here", outputs[i]);
        }
        column.formWriter = tagFormWriterOf(column.form);
        const bool isPlain = column.output == Output::STATUS || column.formWriter != nullptr;
        table.isPlain = table.isPlain && isPlain;
        table.hasWords =
            table.hasWords || column.output == Output::MESSAGE || column.output == Output::FINDINGS;
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

// put: void(OutputColumn& column), for a row that did not fail.
template <typename Put>
static void putRow(ColumnTable& table, std::int64_t row, const Failure& failure, Put put) {
    for (OutputColumn& column : table.columns) {
        if (putStatus(table, column, row, failure)) {
            continue;
        }
        if (isFailure(failure)) {
            columnWriterPutNull(column.writer, row);
        } else {
            put(column);
        }
    }
}

void columnTablePut(ColumnTable& table, std::int64_t row, const Translation& result) {
    putRow(table, row, result.failure,
           [&](OutputColumn& column) { putTranslation(table, column, row, result); });
}

void columnTablePut(ColumnTable& table, std::int64_t row, const Tid& result) {
    putRow(table, row, result.failure,
           [&](OutputColumn& column) { putTid(table, column, row, result.record); });
}

void columnTablePut(ColumnTable& table, std::int64_t row, const Rows<Finding>& findings) {
    for (OutputColumn& column : table.columns) {
        putFindings(table, column, row, findings);
    }
}

bool columnTablePutPlain(ColumnTable& table, std::int64_t row, std::string_view value,
                         bool isBinary) {
    TagBits tag;
    if (isBinary ? !plainTagOfBytes(value, tag) : !plainTagOfHex(value, tag)) {
        return false;
    }
    bool isRead = false;
    for (OutputColumn& column : table.columns) {
        if (column.output != Output::FORM) {
            continue;
        }
        isRead = true;
        char* const room = columnWriterRoom(column.writer, TAG_FORM_ROOM);
        if (room == nullptr) {
            return false;
        }
        TextBuffer text = textBufferOver(room, TAG_FORM_ROOM);
        if (!tagFormWrite(tag, column.formWriter, text)) {
            return false;
        }
        column.formLength = textBufferView(text).size();
        if (text.begin != room) {
            std::copy(text.begin, text.writePointer, room);
        }
    }
    if (!isRead && readTagBits(bitBufferForReading(tag.bytes.data(), tag.count)) != EPC_OK) {
        return false;
    }
    for (OutputColumn& column : table.columns) {
        if (column.output == Output::FORM) {
            columnWriterTake(column.writer, row, column.formLength);
        } else {
            columnWriterPutNumber(column.writer, row, EPC_OK);
        }
    }
    return true;
}

} // namespace rosetag
