/*
 * The functions of Rosetag for DuckDB.
 *
 * DuckDB calls them with chunks of rows, from any number of threads. Each call has its own room and
 * shares nothing.
 *
 * Source: DuckDB: C API (Scalar Functions), C extension template.
 */
#define DUCKDB_EXTENSION_NAME rosetag

#include "chunk.h"
#include "nested_results.h"

#include <exception>
#include <initializer_list>

namespace rosetag {
namespace {

// What DuckDB keeps with a function.
struct Function {
    void (*run)(Chunk& chunk);
    bool isBinary; // takes bytes
    SqlTextWork text = nullptr;
    SqlNumberWork number = nullptr;
};

const Function& functionOf(const Chunk& chunk) {
    return *static_cast<const Function*>(duckdb_scalar_function_get_extra_info(chunk.info));
}

void runText(Chunk& chunk) {
    OutColumn column(chunk.output);
    const SqlTextWork work = functionOf(chunk).text;
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            putTextOrNull(column, row, work(chunk.room, value));
            return true;
        });
}

void runNumber(Chunk& chunk) {
    OutColumn column(chunk.output);
    const SqlNumberWork work = functionOf(chunk).number;
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            putNumberOrNull(column, row, work(chunk.room, value));
            return true;
        });
}

void runCheck(Chunk& chunk) {
    OutColumn column(chunk.output);
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            if (const auto refusal = sqlRefusal(chunk.room, value); !refusal.empty()) {
                fail(chunk, std::string(refusal));
                return false;
            }
            putText(column, row, value.bytes);
            return true;
        });
}

void runAi(Chunk& chunk) {
    OutColumn column(chunk.output);
    const InColumn ais = inColumn(chunk, 1);
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            if (isNull(ais, row)) {
                putNull(column, row);
                return true;
            }
            const std::string_view ai = textOf(ais, row);
            if (const std::string fault = sqlAiFault(ai); !fault.empty()) {
                fail(chunk, fault);
                return false;
            }
            putTextOrNull(column, row, sqlAi(chunk.room, value, ai));
            return true;
        });
}

// put: void(idx_t row, std::string_view hex)
template <typename Put>
void encodeRows(Chunk& chunk, OutColumn& column, Put put) {
    const InColumn schemes = inColumn(chunk, 1);
    const InColumn filters = inColumn(chunk, 2);
    const InColumn gcpLengths = inColumn(chunk, 3);
    EncodeOptions options;
    forEachValue(
        chunk, [&](idx_t row) { putNull(column, row); },
        [&](idx_t row, const SqlValue& value) {
            if (isNull(schemes, row)) {
                putNull(column, row);
                return true;
            }
            const SqlEncodeArguments arguments{textOf(schemes, row), integerOf(filters, row, 0),
                                               integerOf(gcpLengths, row, std::nullopt)};
            if (const std::string fault = sqlReadEncodeArguments(arguments, options);
                !fault.empty()) {
                fail(chunk, fault);
                return false;
            }
            put(row, sqlEncode(chunk.room, value, options));
            return true;
        });
}

void runEncode(Chunk& chunk) {
    OutColumn column(chunk.output);
    encodeRows(chunk, column,
               [&](idx_t row, std::string_view hex) { putTextOrNull(column, row, hex); });
}

void runEncodeBytes(Chunk& chunk) {
    OutColumn column(chunk.output);
    encodeRows(chunk, column, [&](idx_t row, std::string_view hex) {
        putTextOrNull(column, row, sqlBytesOfHex(chunk.room, hex));
    });
}

void runVersion(Chunk& chunk) {
    OutColumn column(chunk.output);
    for (idx_t row = 0; row < chunk.rows; ++row) {
        putText(column, row, version());
    }
}

// No exception may pass through the C interface.
void callFunction(duckdb_function_info info, duckdb_data_chunk input, duckdb_vector output) {
    try {
        const auto& function =
            *static_cast<const Function*>(duckdb_scalar_function_get_extra_info(info));
        Chunk chunk{info,
                    input,
                    output,
                    duckdb_data_chunk_get_size(input),
                    duckdb_data_chunk_get_column_count(input),
                    function.isBinary,
                    {}};
        function.run(chunk);
    } catch (const std::exception&) {
        duckdb_scalar_function_set_error(info, "out of memory");
    }
}

using Types = std::initializer_list<duckdb_type>;

// Owns a type of DuckDB.
class Type {
public:
    Type(duckdb_type id) : type(duckdb_create_logical_type(id)) {} // NOLINT: meant
    Type(duckdb_logical_type made) : type(made) {}                 // NOLINT: meant
    Type(const Type&) = delete;
    Type& operator=(const Type&) = delete;
    ~Type() {
        duckdb_destroy_logical_type(&type);
    }
    duckdb_logical_type get() const {
        return type;
    }

private:
    duckdb_logical_type type;
};

// All functions of one name.
class FunctionSet {
public:
    explicit FunctionSet(const char* setName)
        : name(setName), set(duckdb_create_scalar_function_set(setName)) {}
    FunctionSet(const FunctionSet&) = delete;
    FunctionSet& operator=(const FunctionSet&) = delete;
    ~FunctionSet() {
        duckdb_destroy_scalar_function_set(&set);
    }

    void add(const Type& result, Types arguments, const Function& function) {
        duckdb_scalar_function made = duckdb_create_scalar_function();
        duckdb_scalar_function_set_name(made, name);
        for (const duckdb_type argument : arguments) {
            duckdb_scalar_function_add_parameter(made, Type(argument).get());
        }
        duckdb_scalar_function_set_return_type(made, result.get());
        // NULL is handled here: a filter that is NULL does not make the result NULL.
        duckdb_scalar_function_set_special_handling(made);
        duckdb_scalar_function_set_extra_info(
            made, new Function(function), [](void* data) { delete static_cast<Function*>(data); });
        duckdb_scalar_function_set_function(made, callFunction);
        duckdb_add_scalar_function_to_set(set, made);
        duckdb_destroy_scalar_function(&made);
    }

    bool registerAt(duckdb_connection connection) {
        return duckdb_register_scalar_function_set(connection, set) == DuckDBSuccess;
    }

private:
    const char* name;
    duckdb_scalar_function_set set;
};

constexpr duckdb_type TEXT = DUCKDB_TYPE_VARCHAR;
constexpr duckdb_type BYTES = DUCKDB_TYPE_BLOB;
constexpr duckdb_type INTEGER = DUCKDB_TYPE_BIGINT;

// A function of one value: a text or bytes.
bool addOfValue(duckdb_connection connection, const char* name, const Type& result,
                Function function) {
    FunctionSet set(name);
    for (const bool isBinary : {false, true}) {
        function.isBinary = isBinary;
        set.add(result, {isBinary ? BYTES : TEXT}, function);
    }
    return set.registerAt(connection);
}

bool addAi(duckdb_connection connection) {
    FunctionSet set("epc_ai");
    set.add(TEXT, {TEXT, TEXT}, {runAi, false});
    set.add(TEXT, {BYTES, TEXT}, {runAi, true});
    return set.registerAt(connection);
}

// The result has the type of the argument.
bool addCheck(duckdb_connection connection) {
    FunctionSet set("epc_check");
    set.add(TEXT, {TEXT}, {runCheck, false});
    set.add(BYTES, {BYTES}, {runCheck, true});
    return set.registerAt(connection);
}

bool addEncode(duckdb_connection connection, const char* name, duckdb_type result,
               void (*run)(Chunk& chunk)) {
    FunctionSet set(name);
    set.add(result, {TEXT, TEXT}, {run, false});
    set.add(result, {TEXT, TEXT, INTEGER}, {run, false});
    set.add(result, {TEXT, TEXT, INTEGER, INTEGER}, {run, false});
    return set.registerAt(connection);
}

bool addVersion(duckdb_connection connection) {
    FunctionSet set("rosetag_version");
    set.add(TEXT, {}, {runVersion, false});
    return set.registerAt(connection);
}

bool addAll(duckdb_connection connection) {
    bool isDone = true;
    for (const SqlTextFunction& row : sqlTextFunctions) {
        isDone = isDone && addOfValue(connection, row.name, TEXT, {runText, false, row.work});
    }
    for (const SqlNumberFunction& row : sqlNumberFunctions) {
        isDone = isDone && addOfValue(connection, row.name, DUCKDB_TYPE_INTEGER,
                                      {runNumber, false, nullptr, row.work});
    }
    return isDone && addOfValue(connection, "epc_decode", decodeType(), {runDecode, false}) &&
           addOfValue(connection, "epc_ais", aisType(), {runAis, false}) &&
           addOfValue(connection, "tid_decode", tidType(), {runTid, false}) && addAi(connection) &&
           addCheck(connection) && addVersion(connection) &&
           addEncode(connection, "epc_encode", TEXT, runEncode) &&
           addEncode(connection, "epc_encode_bytes", BYTES, runEncodeBytes);
}

} // namespace
} // namespace rosetag

DUCKDB_EXTENSION_ENTRYPOINT(duckdb_connection connection, duckdb_extension_info info,
                            struct duckdb_extension_access* access) {
    try {
        if (rosetag::addAll(connection)) {
            return true;
        }
        access->set_error(info, "rosetag could not register its functions");
    } catch (const std::exception&) {
        access->set_error(info, "out of memory");
    }
    return false;
}
