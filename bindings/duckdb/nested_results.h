/*
 * The functions whose results are structs and maps.
 */
#ifndef ROSETAG_BINDINGS_DUCKDB_NESTED_RESULTS_H
#define ROSETAG_BINDINGS_DUCKDB_NESTED_RESULTS_H

#include "chunk.h"

namespace rosetag {

// The types of the results, to be destroyed by the caller.
duckdb_logical_type decodeType();
duckdb_logical_type aisType();
duckdb_logical_type tidType();

void runDecode(Chunk& chunk);
void runAis(Chunk& chunk);
void runTid(Chunk& chunk);

} // namespace rosetag

#endif
