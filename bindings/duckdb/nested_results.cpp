#include "nested_results.h"

#include <algorithm>
#include <new>
#include <vector>

namespace rosetag {
namespace {

struct Field {
    const char* name;
    duckdb_type type;
};

// Those of epc_decode.
enum DecodeField { SCHEME, FILTER, FIRST_FORM };

// clang-format off
constexpr Field tidFields[] = {
    {"designer",       DUCKDB_TYPE_INTEGER},
    {"model",          DUCKDB_TYPE_INTEGER},
    {"xtid",           DUCKDB_TYPE_BOOLEAN},
    {"security",       DUCKDB_TYPE_BOOLEAN},
    {"file",           DUCKDB_TYPE_BOOLEAN},
    {"serial",         DUCKDB_TYPE_VARCHAR},
    {"serial_bits",    DUCKDB_TYPE_INTEGER},
};
// clang-format on

enum TidField { DESIGNER, MODEL, XTID, SECURITY, FILE_FLAG, SERIAL, SERIAL_BITS };

duckdb_logical_type structType(std::span<const Field> fields) {
    std::vector<duckdb_logical_type> types;
    std::vector<const char*> names;
    for (const Field& field : fields) {
        types.push_back(duckdb_create_logical_type(field.type));
        names.push_back(field.name);
    }
    duckdb_logical_type const type =
        duckdb_create_struct_type(types.data(), names.data(), fields.size());
    for (duckdb_logical_type& field : types) {
        duckdb_destroy_logical_type(&field);
    }
    return type;
}

// A column of structs and those of its fields.
struct StructColumn {
    StructColumn(duckdb_vector vector, std::size_t count) : whole(vector) {
        for (idx_t i = 0; i < count; ++i) {
            fields.emplace_back(duckdb_struct_vector_get_child(vector, i));
        }
    }

    OutColumn whole;
    std::vector<OutColumn> fields;
};

void putNull(StructColumn& column, idx_t row) {
    putNull(column.whole, row);
    for (OutColumn& field : column.fields) {
        putNull(field, row);
    }
}

// A struct that is NULL has fields that are NULL too.
template <typename Put>
void forEachStruct(Chunk& chunk, std::size_t fields,
                   bool (*read)(SqlRoom& room, const SqlValue& value), Put put) {
    StructColumn column(chunk.output, fields);
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            if (read(chunk.room, value)) {
                put(column.fields, row);
            } else {
                putNull(column, row);
            }
            return true;
        });
}

// The keys and values of the maps of a chunk, all in a row.
struct MapEntries {
    explicit MapEntries(duckdb_vector mapVector)
        : map(mapVector),
          keys(duckdb_struct_vector_get_child(duckdb_list_vector_get_child(map), 0)),
          values(duckdb_struct_vector_get_child(duckdb_list_vector_get_child(map), 1)) {}

    void add(std::string_view key, std::string_view value) {
        if (count == capacity) {
            capacity = std::max<idx_t>(2 * capacity, 2 * duckdb_vector_size());
            if (duckdb_list_vector_reserve(map, capacity) != DuckDBSuccess) {
                throw std::bad_alloc();
            }
        }
        duckdb_vector_assign_string_element_len(keys, count, key.data(), key.size());
        duckdb_vector_assign_string_element_len(values, count, value.data(), value.size());
        ++count;
    }

    duckdb_vector map;
    duckdb_vector keys;
    duckdb_vector values;
    idx_t count = 0;
    idx_t capacity = 0;
};

bool translateAll(SqlRoom& room, const SqlValue& value) {
    return sqlTranslate(room, value, sqlDecodeFormSet());
}

} // namespace

duckdb_logical_type decodeType() {
    std::vector<Field> fields = {{"scheme", DUCKDB_TYPE_VARCHAR}, {"filter", DUCKDB_TYPE_INTEGER}};
    for (const SqlDecodeForm& row : sqlDecodeForms) {
        fields.push_back({row.name, DUCKDB_TYPE_VARCHAR});
    }
    return structType(fields);
}

duckdb_logical_type tidType() {
    return structType(tidFields);
}

duckdb_logical_type aisType() {
    duckdb_logical_type text = duckdb_create_logical_type(DUCKDB_TYPE_VARCHAR);
    duckdb_logical_type const type = duckdb_create_map_type(text, text);
    duckdb_destroy_logical_type(&text);
    return type;
}

void runDecode(Chunk& chunk) {
    forEachStruct(
        chunk, FIRST_FORM + std::size(sqlDecodeForms), translateAll,
        [&](std::vector<OutColumn>& fields, idx_t row) {
            const Translation& item = chunk.room.item;
            putTextOrNull(fields[SCHEME], row,
                          item.scheme == nullptr ? std::string_view() : item.scheme->name);
            putNumberOrNull(fields[FILTER], row, item.filter);
            for (std::size_t i = 0; i < std::size(sqlDecodeForms); ++i) {
                putTextOrNull(fields[FIRST_FORM + i], row, formText(item, sqlDecodeForms[i].form));
            }
        });
}

void runTid(Chunk& chunk) {
    forEachStruct(chunk, std::size(tidFields), sqlTid,
                  [&](std::vector<OutColumn>& fields, idx_t row) {
                      const TidRecord& record = chunk.room.tid.record;
                      putNumberOrNull(fields[DESIGNER], row, record.mdid & TID_DESIGNER_MASK);
                      putNumberOrNull(fields[MODEL], row, record.tmid);
                      putFlag(fields[XTID], row, (record.mdid & TID_XTID_MASK) != 0);
                      putFlag(fields[SECURITY], row, (record.mdid & TID_SECURITY_MASK) != 0);
                      putFlag(fields[FILE_FLAG], row, (record.mdid & TID_FILE_MASK) != 0);
                      putTextOrNull(fields[SERIAL], row, record.serial);
                      putNumberOrNull(fields[SERIAL_BITS], row, record.serialBits);
                  });
}

void runAis(Chunk& chunk) {
    OutColumn column(chunk.output);
    MapEntries entries(chunk.output);
    auto* const maps = static_cast<duckdb_list_entry*>(column.data);
    const auto putNullMap = [&](idx_t row) {
        maps[row] = {entries.count, 0};
        putNull(column, row);
    };
    forEachValue(chunk, putNullMap, [&](idx_t row, const SqlValue& value) {
        if (!sqlTranslate(chunk.room, value, Form::AIS)) {
            putNullMap(row);
            return true;
        }
        maps[row] = {entries.count, chunk.room.item.ais.size()};
        for (const AiValue& ai : chunk.room.item.ais) {
            entries.add(ai.ai, ai.value);
        }
        return true;
    });
    duckdb_list_vector_set_size(chunk.output, entries.count);
}

} // namespace rosetag
