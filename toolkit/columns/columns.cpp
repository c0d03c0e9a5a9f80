#include "check/check_text.h"
#include "columns/column_error.h"
#include "columns/column_reader.h"
#include "columns/column_table.h"
#include "translate/translate.h"

#include <algorithm>
#include <new>
#include <optional>

namespace rosetag {
namespace {

// A column of options: its rows, or one value for all.
struct Argument {
    bool isThere = false;
    ColumnReader reader;
    ColumnReader dictionary;
};

std::int32_t openArgument(const RosetagColumn& column, std::int64_t rows, bool isText,
                          const char* name, Argument& argument, char* error) {
    if (column.type == nullptr) {
        return ROSETAG_COLUMNS_OK;
    }
    argument.isThere = true;
    const std::int32_t result =
        columnReaderOpen(*column.type, *column.values, argument.reader, argument.dictionary, error);
    const bool isInteger =
        argument.reader.layout == ColumnLayout::INTEGERS && argument.reader.dictionary == nullptr;
    const bool isOther = argument.reader.layout != ColumnLayout::NONE && isInteger == isText;
    if (result == ROSETAG_COLUMNS_BAD_TYPE || (result == ROSETAG_COLUMNS_OK && isOther)) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_TYPE,
                           "the column %s must hold %s, and is of the Arrow type \"%.40s\"%s", name,
                           isText ? "texts" : "integers", columnFormat(*column.type),
                           column.type->dictionary == nullptr ? "" : " with a dictionary");
    }
    if (result != ROSETAG_COLUMNS_OK) {
        return result;
    }
    if (argument.reader.length != rows) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_ARRAY,
                           "the column %s has %lld rows, and the values have %lld", name,
                           static_cast<long long>(argument.reader.length),
                           static_cast<long long>(rows));
    }
    return ROSETAG_COLUMNS_OK;
}

std::optional<int> optionOfRow(const Argument& argument, std::int64_t row,
                               std::optional<int> otherwise) {
    std::int64_t number = 0;
    if (!argument.isThere) {
        return otherwise;
    }
    if (!columnInteger(argument.reader, row, number)) {
        return std::nullopt;
    }
    // Past these limits every number is equally wrong.
    return static_cast<int>(std::clamp<std::int64_t>(number, -1, 1000));
}

struct Call {
    ColumnReader reader;
    ColumnReader dictionary;
    ColumnTable table;
    Translation result;
    Translation room;
    std::string hex; // of a row of bytes
};

std::int32_t openCall(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                      std::int32_t outputCount, ColumnCall kind, Call& call, char* error) {
    error[0] = '\0';
    if (const std::int32_t result =
            columnReaderOpen(*type, *values, call.reader, call.dictionary, error);
        result != 0) {
        return result;
    }
    if (!columnHoldsTexts(call.reader)) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_TYPE,
                           "a column of the Arrow type \"%.40s\" is not taken: give strings, or "
                           "the bytes of tag values as binary",
                           columnFormat(*type));
    }
    return columnTableOpen(outputs, outputCount, kind, call.reader, call.table, error);
}

bool isBinaryColumn(const ColumnReader& reader) {
    return reader.dictionary != nullptr ? reader.dictionary->isBinary : reader.isBinary;
}

// The value of a row as text: bytes become hex.
std::string_view valueText(Call& call, std::string_view value) {
    if (!isBinaryColumn(call.reader)) {
        return value;
    }
    call.hex.clear();
    // What is too long stays too long.
    value = value.substr(0, MAX_VALUE_LENGTH);
    appendHex(call.hex, {reinterpret_cast<const std::uint8_t*>(value.data()), value.size()});
    return call.hex;
}

// Runs work for each row that is not null.
// work: void(std::int64_t row, std::string_view value)
template <typename Work>
void forEachValue(Call& call, Work work) {
    std::string_view value;
    for (std::int64_t row = 0; row < call.reader.length && call.table.hasMemory; ++row) {
        if (columnText(call.reader, row, value)) {
            work(row, value);
        } else {
            columnTablePutNulls(call.table, row);
        }
    }
}

static_assert(static_cast<int>(Bank::AUTO) == ROSETAG_COLUMNS_BANK_AUTO);
static_assert(static_cast<int>(Bank::EPC) == ROSETAG_COLUMNS_BANK_EPC);
static_assert(static_cast<int>(Bank::PC) == ROSETAG_COLUMNS_BANK_PC);
static_assert(static_cast<int>(Bank::CRC_PC) == ROSETAG_COLUMNS_BANK_CRC_PC);

std::int32_t openReading(const Call& call, const RosetagColumnsReadOptions& options,
                         ReadOptions& read, Argument& gcpLengths, char* error) {
    if (options.bank < 0 || options.bank >= static_cast<std::int32_t>(bankWords().size())) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_OPTION, "there is no bank %d", options.bank);
    }
    if (options.separator < 0 || options.separator > 127) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_OPTION,
                           "the separator must be an ASCII character, not %d", options.separator);
    }
    read.asBarcode = options.asBarcode != 0;
    read.isHex = isBinaryColumn(call.reader);
    read.wordless = !call.table.hasWords;
    read.strict = options.strict != 0;
    if (options.gcpLength != 0) {
        read.gcpLength = options.gcpLength;
    }
    read.bank = static_cast<Bank>(options.bank);
    read.separator = static_cast<char>(options.separator);
    read.gcpList = static_cast<const GcpList*>(options.gcpList);
    return openArgument(options.gcpLengths, call.reader.length, false, "gcp_length", gcpLengths,
                        error);
}

// Runs work for each row that is not null, with the options that hold for it.
// work: void(std::int64_t row, std::string_view value, const ReadOptions& read)
template <typename Work>
std::int32_t readRows(Call& call, const RosetagColumnsReadOptions& options, char* error,
                      Work work) {
    ReadOptions read;
    Argument gcpLengths;
    const std::int32_t result = openReading(call, options, read, gcpLengths, error);
    if (result != 0) {
        return result;
    }
    const std::optional<int> gcpLength = read.gcpLength;
    forEachValue(call, [&](std::int64_t row, std::string_view value) {
        read.gcpLength = optionOfRow(gcpLengths, row, gcpLength);
        work(row, value, read);
    });
    return ROSETAG_COLUMNS_OK;
}

std::int32_t decode(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                    std::int32_t outputCount, const RosetagColumnsReadOptions& options,
                    ArrowSchema* outType, ArrowArray* out, char* error) {
    Call call;
    std::int32_t result =
        openCall(type, values, outputs, outputCount, ColumnCall::TRANSLATE, call, error);
    if (result != 0) {
        return result;
    }
    const bool isBinary = isBinaryColumn(call.reader);
    result = readRows(call, options, error,
                      [&](std::int64_t row, std::string_view value, const ReadOptions& read) {
                          if (call.table.isPlain && mayBePlainTags(read) &&
                              columnTablePutPlain(call.table, row, value, isBinary)) {
                              return;
                          }
                          translate(valueText(call, value), read, call.table.wanted, call.result);
                          columnTablePut(call.table, row, call.result);
                      });
    return result != 0
               ? result
               : columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

std::int32_t checkColumn(const ArrowSchema* type, const ArrowArray* values,
                         const char* const* outputs, std::int32_t outputCount,
                         const RosetagColumnsReadOptions& options, ArrowSchema* outType,
                         ArrowArray* out, char* error) {
    Call call;
    std::int32_t result =
        openCall(type, values, outputs, outputCount, ColumnCall::CHECK, call, error);
    if (result != 0) {
        return result;
    }
    Rows<Finding> findings;
    result = readRows(call, options, error,
                      [&](std::int64_t row, std::string_view value, const ReadOptions& read) {
                          check(valueText(call, value), read, findings, &call.result);
                          columnTablePut(call.table, row, findings);
                      });
    return result != 0
               ? result
               : columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

// The arguments of an encoding that are columns.
struct EncodeArguments {
    Argument schemes;
    Argument filters;
};

std::int32_t openEncode(const RosetagColumnsEncodeOptions& options, std::int64_t rows,
                        EncodeOptions& encodeOptions, EncodeArguments& arguments, char* error) {
    encodeOptions.encoding = options.encoding;
    if (options.filter >= 0) {
        encodeOptions.filter = options.filter;
    }
    if (options.scheme != nullptr) {
        encodeOptions.scheme = schemeByName(options.scheme);
        if (encodeOptions.scheme == nullptr) {
            return columnsFail(error, ROSETAG_COLUMNS_BAD_OPTION, "there is no scheme \"%.40s\"",
                               options.scheme);
        }
    }
    const std::int32_t result =
        openArgument(options.schemes, rows, true, "scheme", arguments.schemes, error);
    return result != 0
               ? result
               : openArgument(options.filters, rows, false, "filter", arguments.filters, error);
}

// False where the row names a scheme that does not exist.
bool schemeOfRow(const Argument& schemes, std::int64_t row, EncodeOptions& options) {
    std::string_view name;
    if (!schemes.isThere) {
        return true;
    }
    options.scheme = nullptr;
    if (!columnText(schemes.reader, row, name)) {
        return true;
    }
    options.scheme = schemeByName(name);
    return options.scheme != nullptr;
}

std::int32_t encodeColumn(const ArrowSchema* type, const ArrowArray* values,
                          const char* const* outputs, std::int32_t outputCount,
                          const RosetagColumnsEncodeOptions& options, ArrowSchema* outType,
                          ArrowArray* out, char* error) {
    Call call;
    EncodeOptions rowOptions;
    EncodeArguments arguments;
    std::int32_t result =
        openCall(type, values, outputs, outputCount, ColumnCall::TRANSLATE, call, error);
    if (result == 0) {
        result = openEncode(options, call.reader.length, rowOptions, arguments, error);
    }
    if (result != 0) {
        return result;
    }
    const std::optional<int> filter = rowOptions.filter;
    result = readRows(call, options.read, error,
                      [&](std::int64_t row, std::string_view value, const ReadOptions& read) {
                          rowOptions.read = read;
                          rowOptions.filter = optionOfRow(arguments.filters, row, filter);
                          if (schemeOfRow(arguments.schemes, row, rowOptions)) {
                              encode(valueText(call, value), rowOptions, call.table.wanted,
                                     call.result, &call.room);
                          } else {
                              failureClear(call.result.failure);
                              call.result.failure.status = EPC_ERR_UNKNOWN_SCHEME;
                              call.result.failure.message =
                                  "the row names a scheme that does not exist";
                          }
                          columnTablePut(call.table, row, call.result);
                      });
    return result != 0
               ? result
               : columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

std::int32_t readTids(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                      std::int32_t outputCount, ArrowSchema* outType, ArrowArray* out,
                      char* error) {
    Call call;
    if (const std::int32_t result =
            openCall(type, values, outputs, outputCount, ColumnCall::TID, call, error);
        result != 0) {
        return result;
    }
    Tid memory;
    ReadOptions read;
    read.wordless = !call.table.hasWords;
    forEachValue(call, [&](std::int64_t row, std::string_view value) {
        tid(valueText(call, value), read, memory);
        columnTablePut(call.table, row, memory);
    });
    return columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

// Strings and vectors throw when memory runs out; that must not reach callers in C.
template <typename Work>
std::int32_t withoutExceptions(char* error, Work work) {
#if defined(__cpp_exceptions)
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return columnsNoMemory(error);
    }
#else
    static_cast<void>(error);
    return work();
#endif
}

} // namespace
} // namespace rosetag

using namespace rosetag;

int32_t rosetag_columnsDecode(const struct ArrowSchema* type, const struct ArrowArray* values,
                              const char* const* outputs, int32_t outputCount,
                              const struct RosetagColumnsReadOptions* options,
                              struct ArrowSchema* outType, struct ArrowArray* out, char* error) {
    return withoutExceptions(error, [&] {
        return decode(type, values, outputs, outputCount,
                      options == nullptr ? RosetagColumnsReadOptions{} : *options, outType, out,
                      error);
    });
}

int32_t rosetag_columnsCheck(const struct ArrowSchema* type, const struct ArrowArray* values,
                             const char* const* outputs, int32_t outputCount,
                             const struct RosetagColumnsReadOptions* options,
                             struct ArrowSchema* outType, struct ArrowArray* out, char* error) {
    return withoutExceptions(error, [&] {
        return checkColumn(type, values, outputs, outputCount,
                           options == nullptr ? RosetagColumnsReadOptions{} : *options, outType,
                           out, error);
    });
}

int32_t rosetag_columnsEncode(const struct ArrowSchema* type, const struct ArrowArray* values,
                              const char* const* outputs, int32_t outputCount,
                              const struct RosetagColumnsEncodeOptions* options,
                              struct ArrowSchema* outType, struct ArrowArray* out, char* error) {
    return withoutExceptions(error, [&] {
        return encodeColumn(type, values, outputs, outputCount, *options, outType, out, error);
    });
}

int32_t rosetag_columnsTid(const struct ArrowSchema* type, const struct ArrowArray* values,
                           const char* const* outputs, int32_t outputCount,
                           struct ArrowSchema* outType, struct ArrowArray* out, char* error) {
    return withoutExceptions(
        error, [&] { return readTids(type, values, outputs, outputCount, outType, out, error); });
}
