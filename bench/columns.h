#ifndef ROSETAG_BENCH_COLUMNS_H
#define ROSETAG_BENCH_COLUMNS_H

// Registers the benchmarks of columns.
void addColumns();

#endif
