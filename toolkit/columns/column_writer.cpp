#include "columns/column_writer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace rosetag {
namespace {

struct TypeRow {
    ColumnType type;
    const char* format;
    const char* largeFormat;
    std::size_t bytes; // a row, without the bytes of its text
};

// In the order of ColumnType.
// clang-format off
constexpr TypeRow typeRows[] = {
    // type                format  with 64-bit offsets  bytes
    {ColumnType::TEXT,     "u",    "U",                 0},
    {ColumnType::BINARY,   "z",    "Z",                 0},
    {ColumnType::INT8,     "c",    "c",                 1},
    {ColumnType::UINT8,    "C",    "C",                 1},
    {ColumnType::UINT16,   "S",    "S",                 2},
    {ColumnType::INT32,    "i",    "i",                 4},
    {ColumnType::FLAG,     "b",    "b",                 0},
};
// clang-format on

// About as many characters as a tag value of 96 bits takes in any form.
constexpr std::size_t USUAL_TEXT_BYTES = 40;
constexpr std::size_t SMALLEST_ROOM = 8192;

bool hasTexts(ColumnType type) {
    return type == ColumnType::TEXT || type == ColumnType::BINARY;
}

std::size_t bytesOfValues(const ColumnWriter& writer, std::size_t rows) {
    if (hasTexts(writer.type)) {
        return (rows + 1) * (writer.isLarge ? sizeof(std::int64_t) : sizeof(std::int32_t));
    }
    return writer.type == ColumnType::FLAG
               ? (rows + 7) / 8
               : rows * typeRows[static_cast<std::size_t>(writer.type)].bytes;
}

// What ends at used, after row - 1 or before row 0.
void putOffset(ColumnWriter& writer, std::int64_t row) {
    if (writer.isLarge) {
        static_cast<std::int64_t*>(writer.values)[row] = static_cast<std::int64_t>(writer.used);
    } else {
        static_cast<std::int32_t*>(writer.values)[row] = static_cast<std::int32_t>(writer.used);
    }
}

void markValid(ColumnWriter& writer, std::int64_t row) {
    writer.validity[row / 8] =
        static_cast<std::uint8_t>(writer.validity[row / 8] | 1U << (row % 8));
}

// All that an exported array or type holds, in one allocation.
struct ExportedArray {
    const void* buffers[3];
    ArrowArray* children;
    ArrowArray** childPointers;
};

struct ExportedType {
    ArrowSchema* children;
    ArrowSchema** childPointers;
};

void releaseColumn(ArrowArray* array) {
    auto* const held = static_cast<ExportedArray*>(array->private_data);
    for (const void* const buffer : held->buffers) {
        std::free(const_cast<void*>(buffer)); // NOLINT: Arrow's buffers are const to readers
    }
    std::free(held);
    array->release = nullptr;
}

void releaseRows(ArrowArray* array) {
    auto* const held = static_cast<ExportedArray*>(array->private_data);
    for (std::int64_t i = 0; i < array->n_children; ++i) {
        if (held->children[i].release != nullptr) {
            held->children[i].release(&held->children[i]);
        }
    }
    std::free(held->children);
    std::free(held->childPointers);
    std::free(held);
    array->release = nullptr;
}

void releaseColumnType(ArrowSchema* type) {
    std::free(type->private_data);
    type->release = nullptr;
}

void releaseRowsType(ArrowSchema* type) {
    auto* const held = static_cast<ExportedType*>(type->private_data);
    for (std::int64_t i = 0; i < type->n_children; ++i) {
        if (held->children[i].release != nullptr) {
            held->children[i].release(&held->children[i]);
        }
    }
    std::free(held->children);
    std::free(held->childPointers);
    std::free(held);
    type->release = nullptr;
}

template <typename Element>
Element* allocate(std::int64_t count) {
    constexpr std::size_t size = sizeof(Element); // NOLINT: of pointers, too
    return static_cast<Element*>(
        std::calloc(static_cast<std::size_t>(std::max<std::int64_t>(count, 1)), size));
}

bool exportColumn(ColumnWriter& writer, ArrowArray& array) {
    auto* const held = allocate<ExportedArray>(1);
    if (held == nullptr) {
        return false;
    }
    held->buffers[0] = writer.validity;
    held->buffers[1] = writer.values;
    held->buffers[2] = writer.data;
    array = {};
    array.length = writer.rows;
    array.null_count = writer.nulls;
    array.n_buffers = hasTexts(writer.type) ? 3 : 2;
    array.buffers = held->buffers;
    array.release = releaseColumn;
    array.private_data = held;
    writer = {};
    return true;
}

bool exportColumnType(const ColumnWriter& writer, const char* name, ArrowSchema& type) {
    const TypeRow& row = typeRows[static_cast<std::size_t>(writer.type)];
    char* const copy = allocate<char>(static_cast<std::int64_t>(std::strlen(name)) + 1);
    if (copy == nullptr) {
        return false;
    }
    std::strcpy(copy, name); // NOLINT: allocated for it
    type = {};
    type.format = writer.isLarge ? row.largeFormat : row.format;
    type.name = copy;
    type.flags = ARROW_FLAG_NULLABLE;
    type.release = releaseColumnType;
    type.private_data = copy;
    return true;
}

// A struct type and a struct array with places for their children, but no child yet.
bool exportRows(std::int64_t count, std::int64_t rows, ArrowSchema& type, ArrowArray& array) {
    auto* const heldType = allocate<ExportedType>(1);
    auto* const heldArray = allocate<ExportedArray>(1);
    type = {};
    array = {};
    if (heldType == nullptr || heldArray == nullptr) {
        std::free(heldType);
        std::free(heldArray);
        return false;
    }
    heldType->children = allocate<ArrowSchema>(count);
    heldType->childPointers = allocate<ArrowSchema*>(count);
    heldArray->children = allocate<ArrowArray>(count);
    heldArray->childPointers = allocate<ArrowArray*>(count);
    type.format = "+s";
    type.name = "";
    type.children = heldType->childPointers;
    type.release = releaseRowsType;
    type.private_data = heldType;
    array.length = rows;
    array.n_buffers = 1;
    array.buffers = heldArray->buffers;
    array.children = heldArray->childPointers;
    array.release = releaseRows;
    array.private_data = heldArray;
    return heldType->children != nullptr && heldType->childPointers != nullptr &&
           heldArray->children != nullptr && heldArray->childPointers != nullptr;
}

// Large buffers are filled from front to back, once. The system hands out large pages many times as
// fast; without them nothing else changes.
void adviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#if defined(MADV_HUGEPAGE)
    constexpr std::size_t worthwhile = std::size_t{1} << 22;
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto first = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) / page * page;
    if (memory != nullptr && size >= worthwhile) {
        madvise(reinterpret_cast<void*>(first), size - page, MADV_HUGEPAGE); // NOLINT: an address
    }
#endif
}

} // namespace

bool columnWriterOpen(ColumnWriter& writer, ColumnType type, bool isLarge, std::int64_t rows) {
    writer = {};
    writer.type = type;
    writer.isLarge = isLarge;
    writer.rows = rows;
    const auto count = static_cast<std::size_t>(rows);
    writer.validity = static_cast<std::uint8_t*>(std::calloc(count / 8 + 1, 1));
    writer.values = std::calloc(bytesOfValues(writer, count) + 1, 1);
    adviseLargePages(writer.values, bytesOfValues(writer, count));
    if (writer.validity == nullptr || writer.values == nullptr) {
        return false;
    }
    return !hasTexts(type) ||
           columnWriterRoom(writer, count * USUAL_TEXT_BYTES + SMALLEST_ROOM) != nullptr;
}

void columnWriterClose(ColumnWriter& writer) {
    std::free(writer.validity);
    std::free(writer.values);
    std::free(writer.data);
    writer = {};
}

char* columnWriterRoom(ColumnWriter& writer, std::size_t size) {
    if (size > writer.capacity - writer.used) {
        const std::size_t capacity = writer.used + size + writer.capacity / 2;
        auto* const data = static_cast<char*>(std::realloc(writer.data, capacity));
        if (data == nullptr) {
            return nullptr;
        }
        adviseLargePages(data, capacity);
        writer.data = data;
        writer.capacity = capacity;
    }
    return writer.data + writer.used;
}

void columnWriterTake(ColumnWriter& writer, std::int64_t row, std::size_t size) {
    writer.used += size;
    putOffset(writer, row + 1);
    markValid(writer, row);
}

bool columnWriterPut(ColumnWriter& writer, std::int64_t row, std::string_view text) {
    char* const room = columnWriterRoom(writer, text.size());
    if (room == nullptr) {
        return false;
    }
    std::copy(text.begin(), text.end(), room);
    columnWriterTake(writer, row, text.size());
    return true;
}

void columnWriterPutNumber(ColumnWriter& writer, std::int64_t row, std::uint32_t number) {
    markValid(writer, row);
    switch (writer.type) {
    case ColumnType::UINT16:
        static_cast<std::uint16_t*>(writer.values)[row] = static_cast<std::uint16_t>(number);
        break;
    case ColumnType::INT32:
        static_cast<std::int32_t*>(writer.values)[row] = static_cast<std::int32_t>(number);
        break;
    case ColumnType::FLAG: {
        auto& byte = static_cast<std::uint8_t*>(writer.values)[row / 8];
        byte = static_cast<std::uint8_t>(byte | number << (row % 8));
        break;
    }
    default:
        static_cast<std::uint8_t*>(writer.values)[row] = static_cast<std::uint8_t>(number);
    }
}

void columnWriterPutNull(ColumnWriter& writer, std::int64_t row) {
    ++writer.nulls;
    if (hasTexts(writer.type)) {
        putOffset(writer, row + 1);
    }
}

bool columnWritersExport(ColumnWriter* writers, const char* const* names, std::int64_t count,
                         std::int64_t rows, ArrowSchema& type, ArrowArray& array) {
    bool isDone = exportRows(count, rows, type, array);
    for (std::int64_t i = 0; isDone && i < count; ++i) {
        ArrowSchema& childType = static_cast<ExportedType*>(type.private_data)->children[i];
        ArrowArray& child = static_cast<ExportedArray*>(array.private_data)->children[i];
        isDone = exportColumnType(writers[i], names[i], childType);
        if (isDone) {
            type.children[type.n_children++] = &childType;
            isDone = exportColumn(writers[i], child);
        }
        if (isDone) {
            array.children[array.n_children++] = &child;
        }
    }
    if (!isDone && type.release != nullptr) {
        type.release(&type);
        array.release(&array);
    }
    return isDone;
}

} // namespace rosetag
