/*
 * The functions of Rosetag for SQLite.
 *
 * All functions of a connection share one room for their work: SQLite lets only one thread at a
 * time into a connection. No exception may pass through SQLite, which is written in C.
 *
 * Source: SQLite: Run-Time Loadable Extensions; Application-Defined SQL Functions.
 */
#include "ais_table.h"

#include <memory>
#include <new>

SQLITE_EXTENSION_INIT1

namespace rosetag {

bool sqliteValue(sqlite3_value* argument, SqlValue& value) {
    const int type = sqlite3_value_type(argument);
    if (type == SQLITE_NULL) {
        return false;
    }
    value.isBinary = type == SQLITE_BLOB;
    // The bytes first: to ask for them may convert the value, and change their count.
    const void* const bytes =
        value.isBinary ? sqlite3_value_blob(argument) : sqlite3_value_text(argument);
    const auto count = static_cast<std::size_t>(sqlite3_value_bytes(argument));
    if (bytes == nullptr && !(value.isBinary && count == 0)) {
        throw std::bad_alloc();
    }
    value.bytes = {static_cast<const char*>(bytes), count};
    return true;
}

namespace {

constexpr int FLAGS = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

struct Call {
    sqlite3_context* context;
    sqlite3_value** arguments;
    int count;
    SqlRoom& room;
};

using Work = void (*)(Call& call, const SqlValue& value);

// What SQLite keeps with a function: its work, and the room that it shares with the others.
struct Function {
    std::shared_ptr<SqlRoom> room;
    Work work;
    SqlTextWork text = nullptr;
    SqlNumberWork number = nullptr;
};

const Function& functionOf(sqlite3_context* context) {
    return *static_cast<const Function*>(sqlite3_user_data(context));
}

void fail(const Call& call, std::string_view sentence) {
    sqlite3_result_error(call.context, sentence.data(), static_cast<int>(sentence.size()));
}

// Texts are copied: the room is used again before SQLite has done with them.
void giveText(const Call& call, std::string_view text) {
    if (!text.empty()) {
        sqlite3_result_text(call.context, text.data(), static_cast<int>(text.size()),
                            SQLITE_TRANSIENT);
    }
}

// A text argument after the first. False for NULL.
bool textArgument(const Call& call, int index, std::string_view& text) {
    SqlValue value;
    const bool isThere = sqliteValue(call.arguments[index], value);
    text = value.bytes;
    return isThere;
}

// An integer argument; unchanged if left out. False: it is not an integer, and the call has
// failed.
bool integerArgument(const Call& call, int index, const char* name,
                     std::optional<std::int64_t>& number) {
    if (index >= call.count) {
        return true;
    }
    switch (sqlite3_value_numeric_type(call.arguments[index])) {
    case SQLITE_NULL:
        number.reset();
        return true;
    case SQLITE_INTEGER:
        number = sqlite3_value_int64(call.arguments[index]);
        return true;
    default:
        fail(call, std::string(name) + " must be an integer");
        return false;
    }
}

void runText(Call& call, const SqlValue& value) {
    giveText(call, functionOf(call.context).text(call.room, value));
}

void runNumber(Call& call, const SqlValue& value) {
    if (const auto number = functionOf(call.context).number(call.room, value)) {
        sqlite3_result_int(call.context, *number);
    }
}

void runAi(Call& call, const SqlValue& value) {
    std::string_view ai;
    if (!textArgument(call, 1, ai)) {
        return;
    }
    if (const std::string fault = sqlAiFault(ai); !fault.empty()) {
        return fail(call, fault);
    }
    giveText(call, sqlAi(call.room, value, ai));
}

void runCheck(Call& call, const SqlValue& value) {
    if (const std::string_view refusal = sqlRefusal(call.room, value); !refusal.empty()) {
        return fail(call, refusal);
    }
    sqlite3_result_value(call.context, call.arguments[0]);
}

// The hex of a tag value; empty after a failure and for NULL.
std::string_view encodedHex(Call& call, const SqlValue& value) {
    SqlEncodeArguments arguments;
    EncodeOptions options;
    if (!textArgument(call, 1, arguments.scheme) ||
        !integerArgument(call, 2, "filter", arguments.filter) ||
        !integerArgument(call, 3, "gcp_length", arguments.gcpLength)) {
        return {};
    }
    if (const std::string fault = sqlReadEncodeArguments(arguments, options); !fault.empty()) {
        fail(call, fault);
        return {};
    }
    return sqlEncode(call.room, value, options);
}

void runEncode(Call& call, const SqlValue& value) {
    giveText(call, encodedHex(call, value));
}

void runEncodeBytes(Call& call, const SqlValue& value) {
    if (const std::string_view hex = encodedHex(call, value); !hex.empty()) {
        const std::string_view bytes = sqlBytesOfHex(call.room, hex);
        sqlite3_result_blob(call.context, bytes.data(), static_cast<int>(bytes.size()),
                            SQLITE_TRANSIENT);
    }
}

void callFunction(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const Function& function = functionOf(context);
    try {
        Call call{context, arguments, count, *function.room};
        SqlValue value;
        if (sqliteValue(arguments[0], value)) {
            function.work(call, value);
        }
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void callVersion(sqlite3_context* context, int, sqlite3_value**) {
    sqlite3_result_text(context, version().data(), static_cast<int>(version().size()),
                        SQLITE_STATIC);
}

int add(sqlite3* connection, const char* name, int arguments, const Function& function) {
    return sqlite3_create_function_v2(connection, name, arguments, FLAGS, new Function(function),
                                      callFunction, nullptr, nullptr,
                                      [](void* data) { delete static_cast<Function*>(data); });
}

struct OwnFunction {
    const char* name;
    int fewest, most; // arguments
    Work work;
};

// clang-format off
constexpr OwnFunction ownFunctions[] = {
    {"epc_ai",           2, 2, runAi},
    {"epc_check",        1, 1, runCheck},
    {"epc_encode",       2, 4, runEncode},
    {"epc_encode_bytes", 2, 4, runEncodeBytes},
};

constexpr SqlTextFunction jsonFunctions[] = {
    {"epc_decode", sqlDecodeJson},
    {"tid_decode", sqlTidJson},
};
// clang-format on

int addAll(sqlite3* connection) {
    const auto room = std::make_shared<SqlRoom>();
    int result = SQLITE_OK;
    const auto addOne = [&](const char* name, int arguments, const Function& function) {
        if (result == SQLITE_OK) {
            result = add(connection, name, arguments, function);
        }
    };
    for (const SqlTextFunction& row : sqlTextFunctions) {
        addOne(row.name, 1, {room, runText, row.work});
    }
    for (const SqlTextFunction& row : jsonFunctions) {
        addOne(row.name, 1, {room, runText, row.work});
    }
    for (const SqlNumberFunction& row : sqlNumberFunctions) {
        addOne(row.name, 1, {room, runNumber, nullptr, row.work});
    }
    for (const OwnFunction& row : ownFunctions) {
        for (int arguments = row.fewest; arguments <= row.most; ++arguments) {
            addOne(row.name, arguments, {room, row.work});
        }
    }
    if (result == SQLITE_OK) {
        result = sqlite3_create_function_v2(connection, "rosetag_version", 0, FLAGS, nullptr,
                                            callVersion, nullptr, nullptr, nullptr);
    }
    return result == SQLITE_OK ? aisTableRegister(connection) : result;
}

} // namespace
} // namespace rosetag

extern "C" __attribute__((visibility("default"))) int
sqlite3_modrosetag_init(sqlite3* connection, char** error, const sqlite3_api_routines* api) {
    SQLITE_EXTENSION_INIT2(api)
    (void)error;
    try {
        return rosetag::addAll(connection);
    } catch (const std::bad_alloc&) {
        return SQLITE_NOMEM;
    }
}
