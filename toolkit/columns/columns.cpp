#include "columns/column_error.h"
#include "columns/column_reader.h"
#include "columns/column_table.h"

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
    if (const std::int32_t result = columnReaderOpen(*column.type, *column.values, argument.reader,
                                                     argument.dictionary, error);
        result != 0) {
        return result;
    }
    const bool isInteger =
        argument.reader.layout == ColumnLayout::INTEGERS && argument.reader.dictionary == nullptr;
    if (argument.reader.layout != ColumnLayout::NONE && isInteger == isText) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_TYPE, "the column %s must hold %s", name,
                           isText ? "texts" : "integers");
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
    // Beyond these limits every number is equally wrong.
    return static_cast<int>(std::clamp<std::int64_t>(number, -1, 1000));
}

struct Call {
    ColumnReader reader;
    ColumnReader dictionary;
    ColumnTable table;
    Translation result;
    std::string hex; // of a row of bytes
};

std::int32_t openCall(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                      std::int32_t outputCount, bool ofTid, Call& call, char* error) {
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
                           type->format);
    }
    return columnTableOpen(outputs, outputCount, ofTid, call.reader, call.table, error);
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
    appendHexDigits(call.hex, value);
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

ReadOptions readOptionsOf(const RosetagColumnsReadOptions& options) {
    ReadOptions read;
    read.asBarcode = options.asBarcode != 0;
    read.strict = options.strict != 0;
    if (options.gcpLength != 0) {
        read.gcpLength = options.gcpLength;
    }
    return read;
}

std::int32_t decode(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                    std::int32_t outputCount, const RosetagColumnsReadOptions& options,
                    ArrowSchema* outType, ArrowArray* out, char* error) {
    Call call;
    Argument gcpLengths;
    std::int32_t result = openCall(type, values, outputs, outputCount, false, call, error);
    if (result == 0) {
        result = openArgument(options.gcpLengths, call.reader.length, false, "gcp_length",
                              gcpLengths, error);
    }
    if (result != 0) {
        return result;
    }
    ReadOptions read = readOptionsOf(options);
    const std::optional<int> gcpLength = read.gcpLength;
    const bool isBinary = isBinaryColumn(call.reader);
    forEachValue(call, [&](std::int64_t row, std::string_view value) {
        if (call.table.isPlain && columnTablePutPlain(call.table, row, value, isBinary)) {
            return;
        }
        read.gcpLength = optionOfRow(gcpLengths, row, gcpLength);
        translate(valueText(call, value), read, call.table.wanted, call.result);
        columnTablePut(call.table, row, call.result);
    });
    return columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

// The arguments of an encoding that are columns.
struct EncodeArguments {
    Argument gcpLengths;
    Argument schemes;
    Argument filters;
};

std::int32_t openEncode(const RosetagColumnsEncodeOptions& options, std::int64_t rows,
                        EncodeOptions& encodeOptions, EncodeArguments& arguments, char* error) {
    encodeOptions.read = readOptionsOf(options.read);
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
    std::int32_t result = openArgument(options.read.gcpLengths, rows, false, "gcp_length",
                                       arguments.gcpLengths, error);
    if (result == 0) {
        result = openArgument(options.schemes, rows, true, "scheme", arguments.schemes, error);
    }
    if (result == 0) {
        result = openArgument(options.filters, rows, false, "filter", arguments.filters, error);
    }
    return result;
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
    std::int32_t result = openCall(type, values, outputs, outputCount, false, call, error);
    if (result == 0) {
        result = openEncode(options, call.reader.length, rowOptions, arguments, error);
    }
    if (result != 0) {
        return result;
    }
    const std::optional<int> gcpLength = rowOptions.read.gcpLength;
    const std::optional<int> filter = rowOptions.filter;
    forEachValue(call, [&](std::int64_t row, std::string_view value) {
        rowOptions.read.gcpLength = optionOfRow(arguments.gcpLengths, row, gcpLength);
        rowOptions.filter = optionOfRow(arguments.filters, row, filter);
        if (schemeOfRow(arguments.schemes, row, rowOptions)) {
            encode(valueText(call, value), rowOptions, call.table.wanted, call.result);
        } else {
            call.result.failure = {};
            call.result.failure.status = EPC_ERR_UNKNOWN_SCHEME;
            call.result.failure.message = "the row names a scheme that does not exist";
        }
        columnTablePut(call.table, row, call.result);
    });
    return columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

std::int32_t readTids(const ArrowSchema* type, const ArrowArray* values, const char* const* outputs,
                      std::int32_t outputCount, ArrowSchema* outType, ArrowArray* out,
                      char* error) {
    Call call;
    if (const std::int32_t result = openCall(type, values, outputs, outputCount, true, call, error);
        result != 0) {
        return result;
    }
    Tid memory;
    forEachValue(call, [&](std::int64_t row, std::string_view value) {
        tid(valueText(call, value), memory);
        columnTablePut(call.table, row, memory);
    });
    return columnTableClose(call.table, outputs, call.reader.length, *outType, *out, error);
}

// Strings and vectors throw when memory runs out; callers in C must not see that.
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
