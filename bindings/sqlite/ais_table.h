#ifndef ROSETAG_BINDINGS_SQLITE_AIS_TABLE_H
#define ROSETAG_BINDINGS_SQLITE_AIS_TABLE_H

#include "sql_functions.h"

#include <sqlite3ext.h>

namespace rosetag {

// The value of an argument. False for NULL. Numbers are taken as the text that they are written as.
bool sqliteValue(sqlite3_value* argument, SqlValue& value);

// epc_ais(x), a table with a row for each AI. A result code of SQLite.
int aisTableRegister(sqlite3* connection);

} // namespace rosetag

#endif
