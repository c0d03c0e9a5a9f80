/*
 * Counts the calls of the allocator. A program that asks for it links counted_allocations.cpp.
 */
#ifndef ROSETAG_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H
#define ROSETAG_TESTS_SUPPORT_COUNTED_ALLOCATIONS_H

#include "support/sanitizers.h"

#include <cstdlib> // __GLIBC__

// The sanitizers bring an allocator of their own, and only glibc gives access to the original one.
#if defined(__GLIBC__) && !BUILT_WITH_SANITIZER
#define COUNTS_ALLOCATIONS

extern thread_local bool isCountingAllocations;
extern thread_local int countedAllocations;

// How often work allocates and frees.
// work: void()
template <typename Work>
int allocationsOf(Work work) {
    countedAllocations = 0;
    isCountingAllocations = true;
    work();
    isCountingAllocations = false;
    return countedAllocations;
}

#endif

#endif
