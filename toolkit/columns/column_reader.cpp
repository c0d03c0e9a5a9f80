#include "columns/column_reader.h"

#include "columns/column_error.h"

#include <charconv>
#include <cstring>
#include <iterator>
#include <string>

namespace rosetag {
namespace {

struct Format {
    std::string_view format;
    ColumnLayout layout;
    bool isBinary;
    bool isSigned;
    std::int32_t width;
    std::int64_t buffers; // at least
};

// clang-format off
constexpr Format formats[] = {
    // format  layout                    binary  signed  width  buffers
    {"n",      ColumnLayout::NONE,       false,  false,  0,     0},
    {"u",      ColumnLayout::OFFSETS32,  false,  false,  0,     3},
    {"U",      ColumnLayout::OFFSETS64,  false,  false,  0,     3},
    {"vu",     ColumnLayout::VIEWS,      false,  false,  0,     3},
    {"z",      ColumnLayout::OFFSETS32,  true,   false,  0,     3},
    {"Z",      ColumnLayout::OFFSETS64,  true,   false,  0,     3},
    {"vz",     ColumnLayout::VIEWS,      true,   false,  0,     3},
    {"w:",     ColumnLayout::FIXED,      true,   false,  0,     2},
    {"c",      ColumnLayout::INTEGERS,   false,  true,   1,     2},
    {"C",      ColumnLayout::INTEGERS,   false,  false,  1,     2},
    {"s",      ColumnLayout::INTEGERS,   false,  true,   2,     2},
    {"S",      ColumnLayout::INTEGERS,   false,  false,  2,     2},
    {"i",      ColumnLayout::INTEGERS,   false,  true,   4,     2},
    {"I",      ColumnLayout::INTEGERS,   false,  false,  4,     2},
    {"l",      ColumnLayout::INTEGERS,   false,  true,   8,     2},
    {"L",      ColumnLayout::INTEGERS,   false,  false,  8,     2},
};
// clang-format on

const Format* formatFind(std::string_view name) {
    for (const Format& format : formats) {
        const bool hasWidth = format.format.back() == ':';
        if (hasWidth ? name.starts_with(format.format) : name == format.format) {
            return &format;
        }
    }
    return nullptr;
}

// A view: the length, then the text itself, or its first four bytes, its buffer and its offset.
constexpr std::int32_t VIEW_BYTES = 16;
constexpr std::int32_t VIEW_INLINE_BYTES = 12;

struct ViewParts {
    std::int32_t length;
    std::int32_t prefix;
    std::int32_t buffer;
    std::int32_t offset;
};
static_assert(sizeof(ViewParts) == VIEW_BYTES);

template <typename Number>
Number numberAt(const void* numbers, std::int64_t index) {
    Number number;
    std::memcpy(&number, static_cast<const char*>(numbers) + index * std::int64_t{sizeof(Number)},
                sizeof number);
    return number;
}

template <typename Offset>
std::string_view textBetweenOffsets(const ColumnReader& reader, std::int64_t index) {
    const auto first = numberAt<Offset>(reader.rows, index);
    const auto end = numberAt<Offset>(reader.rows, index + 1);
    return {reader.data + first, static_cast<std::size_t>(end - first)};
}

std::string_view textOfView(const ColumnReader& reader, std::int64_t index) {
    const char* const view = static_cast<const char*>(reader.rows) + index * VIEW_BYTES;
    ViewParts parts;
    std::memcpy(&parts, view, sizeof parts);
    const auto length = static_cast<std::size_t>(parts.length);
    if (parts.length <= VIEW_INLINE_BYTES) {
        return {view + sizeof parts.length, length};
    }
    return {static_cast<const char*>(reader.viewBuffers[parts.buffer]) + parts.offset, length};
}

std::int64_t integerAt(const ColumnReader& reader, std::int64_t index) {
    switch (reader.isSigned ? reader.width : -reader.width) {
    case 1:
        return numberAt<std::int8_t>(reader.rows, index);
    case -1:
        return numberAt<std::uint8_t>(reader.rows, index);
    case 2:
        return numberAt<std::int16_t>(reader.rows, index);
    case -2:
        return numberAt<std::uint16_t>(reader.rows, index);
    case 4:
        return numberAt<std::int32_t>(reader.rows, index);
    case -4:
        return numberAt<std::uint32_t>(reader.rows, index);
    default:
        return numberAt<std::int64_t>(reader.rows, index);
    }
}

// Of a reader without a dictionary.
std::string_view textAt(const ColumnReader& reader, std::int64_t index) {
    switch (reader.layout) {
    case ColumnLayout::OFFSETS32:
        return textBetweenOffsets<std::int32_t>(reader, index);
    case ColumnLayout::OFFSETS64:
        return textBetweenOffsets<std::int64_t>(reader, index);
    case ColumnLayout::VIEWS:
        return textOfView(reader, index);
    default:
        return {static_cast<const char*>(reader.rows) + index * reader.width,
                static_cast<std::size_t>(reader.width)};
    }
}

std::int32_t readLayout(const ArrowSchema& type, const ArrowArray& values, ColumnReader& reader,
                        char* error) {
    const std::string_view name = type.format;
    const Format* const format = formatFind(name);
    if (format == nullptr) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_TYPE,
                           "a column of the Arrow type \"%.40s\" is not taken: give strings, or "
                           "the bytes of tag values as binary",
                           type.format);
    }
    reader.layout = format->layout;
    reader.isBinary = format->isBinary;
    reader.isSigned = format->isSigned;
    reader.width = format->width;
    reader.length = values.length;
    reader.offset = values.offset;
    if (format->layout == ColumnLayout::FIXED) {
        const char* const digits = type.format + format->format.size();
        std::from_chars(digits, type.format + name.size(), reader.width);
    }
    if (values.length < 0 || values.offset < 0 || values.n_buffers < format->buffers) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_ARRAY,
                           "an array of the Arrow type \"%.40s\" lacks buffers", type.format);
    }
    if (format->layout == ColumnLayout::NONE) {
        return ROSETAG_COLUMNS_OK;
    }
    if (values.null_count != 0) {
        reader.validity = static_cast<const std::uint8_t*>(values.buffers[0]);
    }
    reader.rows = values.buffers[1];
    if (format->layout == ColumnLayout::VIEWS) {
        reader.viewBuffers = values.buffers + 2;
        reader.viewBufferCount = values.n_buffers - 3;
    } else if (format->buffers > 2) {
        reader.data = static_cast<const char*>(values.buffers[2]);
    }
    // An array without rows need not have its buffers.
    if (reader.rows == nullptr && reader.length > 0 && reader.width + reader.length > 0) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_ARRAY, "an array has rows and no buffers");
    }
    return ROSETAG_COLUMNS_OK;
}

std::int32_t openColumn(const ArrowSchema& type, const ArrowArray& values, ColumnReader& reader,
                        ColumnReader& dictionary, char* error) {
    if (const std::int32_t result = readLayout(type, values, reader, error); result != 0) {
        return result;
    }
    if (type.dictionary == nullptr) {
        return ROSETAG_COLUMNS_OK;
    }
    if (values.length == 0) {
        reader.layout = ColumnLayout::NONE;
        return ROSETAG_COLUMNS_OK;
    }
    if (values.dictionary == nullptr || reader.layout != ColumnLayout::INTEGERS) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_ARRAY,
                           "a dictionary-encoded array has no dictionary");
    }
    reader.dictionary = &dictionary;
    return readLayout(*type.dictionary, *values.dictionary, dictionary, error);
}

bool isTable(const ArrowSchema& type) {
    return std::string_view(type.format) == "+s";
}

std::int32_t failTable(const ArrowSchema& type, char* error) {
    std::string names;
    for (std::int64_t i = 0; i < type.n_children; ++i) {
        const char* const name = type.children[i]->name;
        names += (i == 0 ? "" : ", ") + std::string(name == nullptr ? "" : name);
    }
    return columnsFail(error, ROSETAG_COLUMNS_BAD_TYPE,
                       type.n_children == 0
                           ? "a column is expected, and this table has none%s"
                           : "one column is expected: choose among those of the table: %.180s",
                       names.c_str());
}

// A table is a struct; it stands for its column if it has just one.
std::int32_t openTable(const ArrowSchema& type, const ArrowArray& values, ColumnReader& reader,
                       ColumnReader& dictionary, char* error) {
    if (type.n_children != 1) {
        return failTable(type, error);
    }
    // A table without rows may do without its column.
    static const void* const noBuffers[3] = {};
    ArrowArray column{};
    column.n_buffers = std::size(noBuffers);
    column.buffers = const_cast<const void**>(noBuffers); // NOLINT: Arrow has it so; it is read
    if (values.n_children == 1) {
        column = *values.children[0];
    }
    if (values.offset < 0 || column.length < values.offset + values.length) {
        return columnsFail(error, ROSETAG_COLUMNS_BAD_ARRAY, "a table lacks rows of its column");
    }
    column.offset += values.offset;
    column.length = values.length;
    if (values.null_count != 0 && values.n_buffers > 0) {
        reader.tableValidity = static_cast<const std::uint8_t*>(values.buffers[0]);
        reader.tableOffset = values.offset;
    }
    return openColumn(*type.children[0], column, reader, dictionary, error);
}

} // namespace

std::int32_t columnReaderOpen(const ArrowSchema& type, const ArrowArray& values,
                              ColumnReader& reader, ColumnReader& dictionary, char* error) {
    reader = {};
    dictionary = {};
    return isTable(type) ? openTable(type, values, reader, dictionary, error)
                         : openColumn(type, values, reader, dictionary, error);
}

const char* columnFormat(const ArrowSchema& type) {
    return isTable(type) && type.n_children == 1 ? type.children[0]->format : type.format;
}

bool columnHoldsTexts(const ColumnReader& reader) {
    const ColumnReader& texts = reader.dictionary != nullptr ? *reader.dictionary : reader;
    return texts.layout != ColumnLayout::INTEGERS && texts.layout != ColumnLayout::FLAGS;
}

bool columnText(const ColumnReader& reader, std::int64_t row, std::string_view& text) {
    if (columnIsNull(reader, row)) {
        return false;
    }
    if (reader.dictionary == nullptr) {
        text = textAt(reader, reader.offset + row);
        return true;
    }
    const ColumnReader& dictionary = *reader.dictionary;
    const std::int64_t key = integerAt(reader, reader.offset + row);
    if (key < 0 || key >= dictionary.length || columnIsNull(dictionary, key)) {
        return false;
    }
    text = textAt(dictionary, dictionary.offset + key);
    return true;
}

bool columnInteger(const ColumnReader& reader, std::int64_t row, std::int64_t& number) {
    if (columnIsNull(reader, row)) {
        return false;
    }
    number = integerAt(reader, reader.offset + row);
    return true;
}

} // namespace rosetag
