/*
 * epc_ais(x), a table-valued function: a virtual table whose rows are the AIs of its argument,
 * which is a hidden column.
 *
 * Source: SQLite: The Virtual Table Mechanism of SQLite (table-valued functions).
 */
#include "ais_table.h"

#include <new>

SQLITE_EXTENSION_INIT3

namespace rosetag {
namespace {

enum Column { AI, VALUE, TITLE, ARGUMENT };

struct Cursor {
    sqlite3_vtab_cursor base{};
    SqlRoom room;
    sqlite3_value* argument = nullptr;
    std::size_t row = 0;

    Cursor() = default;
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    ~Cursor() {
        sqlite3_value_free(argument);
    }
};

Cursor& cursorOf(sqlite3_vtab_cursor* base) {
    return *reinterpret_cast<Cursor*>(base);
}

int connect(sqlite3* connection, void*, int, const char* const*, sqlite3_vtab** table, char**) {
    const int result = sqlite3_declare_vtab(
        connection, "CREATE TABLE x(ai TEXT, value TEXT, title TEXT, x HIDDEN)");
    if (result != SQLITE_OK) {
        return result;
    }
    sqlite3_vtab_config(connection, SQLITE_VTAB_INNOCUOUS);
    *table = new (std::nothrow) sqlite3_vtab{};
    return *table == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int disconnect(sqlite3_vtab* table) {
    delete table;
    return SQLITE_OK;
}

// There is one way to read the table: with its argument known.
int bestIndex(sqlite3_vtab* table, sqlite3_index_info* info) {
    int result = SQLITE_ERROR;
    for (int i = 0; i < info->nConstraint; ++i) {
        const auto& constraint = info->aConstraint[i];
        if (constraint.iColumn != ARGUMENT || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) {
            continue;
        }
        if (constraint.usable != 0) {
            info->aConstraintUsage[i].argvIndex = 1;
            info->aConstraintUsage[i].omit = 1;
            info->estimatedCost = 1;
            info->estimatedRows = 3;
            return SQLITE_OK;
        }
        result = SQLITE_CONSTRAINT; // not known in this order of the tables
    }
    if (result == SQLITE_ERROR) {
        table->zErrMsg = sqlite3_mprintf("epc_ais needs a value: epc_ais(x)");
    }
    return result;
}

int open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    auto* const made = new (std::nothrow) Cursor;
    if (made == nullptr) {
        return SQLITE_NOMEM;
    }
    *cursor = &made->base;
    return SQLITE_OK;
}

int close(sqlite3_vtab_cursor* base) {
    delete &cursorOf(base);
    return SQLITE_OK;
}

int filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value** arguments) {
    Cursor& cursor = cursorOf(base);
    cursor.row = 0;
    cursor.room.item.ais.clear();
    sqlite3_value_free(cursor.argument);
    cursor.argument = sqlite3_value_dup(arguments[0]);
    try {
        SqlValue value;
        if (cursor.argument == nullptr) {
            return SQLITE_NOMEM;
        }
        if (sqliteValue(cursor.argument, value) && !sqlTranslate(cursor.room, value, Form::AIS)) {
            cursor.room.item.ais.clear();
        }
        return SQLITE_OK;
    } catch (const std::bad_alloc&) {
        return SQLITE_NOMEM;
    }
}

int next(sqlite3_vtab_cursor* base) {
    ++cursorOf(base).row;
    return SQLITE_OK;
}

int isAtEnd(sqlite3_vtab_cursor* base) {
    const Cursor& cursor = cursorOf(base);
    return cursor.row >= cursor.room.item.ais.size() ? 1 : 0;
}

int column(sqlite3_vtab_cursor* base, sqlite3_context* context, int index) {
    const Cursor& cursor = cursorOf(base);
    if (index == ARGUMENT) {
        sqlite3_result_value(context, cursor.argument);
        return SQLITE_OK;
    }
    const AiValue& row = cursor.room.item.ais[cursor.row];
    const std::string_view text = index == AI      ? std::string_view(row.ai)
                                  : index == VALUE ? std::string_view(row.value)
                                                   : row.title;
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return SQLITE_OK;
}

int rowNumber(sqlite3_vtab_cursor* base, sqlite3_int64* number) {
    *number = static_cast<sqlite3_int64>(cursorOf(base).row) + 1;
    return SQLITE_OK;
}

// Without xCreate the table exists under its own name, and CREATE VIRTUAL TABLE makes no other.
constexpr sqlite3_module moduleMake() {
    sqlite3_module module{};
    module.xConnect = connect;
    module.xBestIndex = bestIndex;
    module.xDisconnect = disconnect;
    module.xOpen = open;
    module.xClose = close;
    module.xFilter = filter;
    module.xNext = next;
    module.xEof = isAtEnd;
    module.xColumn = column;
    module.xRowid = rowNumber;
    return module;
}

constexpr sqlite3_module module = moduleMake();

} // namespace

int aisTableRegister(sqlite3* connection) {
    return sqlite3_create_module_v2(connection, "epc_ais", &module, nullptr, nullptr);
}

} // namespace rosetag
