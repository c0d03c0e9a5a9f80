/*
 * Preloaded into the command, makes calls of the system fail. ROSETAG_FAULTS holds rules, each
 * "CALL:DESCRIPTOR:FIRST:LAST:FAULT", separated by blanks. The calls FIRST to LAST, counted for
 * each rule, of
 *
 *   read, write, close   on that descriptor
 *   thread               starting one (the descriptor is not looked at)
 *   malloc               of at least so many bytes as the descriptor says
 *
 * are short (at most 1001 bytes go through), zero (none do), slow (a third of a second) or fail
 * with the error of that number.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

enum { SHORT = -1, ZERO = -2, SLOW = -3, MOST_RULES = 8 };

struct rule {
    char call[16];
    long descriptor, first, last;
    int fault; /* SHORT, ZERO, SLOW or an error number */
    atomic_long count;
};

static struct rule rules[MOST_RULES];
static int rule_count;

__attribute__((constructor)) static void read_rules(void) {
    const char* text = getenv("ROSETAG_FAULTS");
    int length = 0;
    char fault[16];
    while (text != NULL && rule_count < MOST_RULES) {
        struct rule* const rule = &rules[rule_count];
        if (sscanf(text, " %15[a-z]:%ld:%ld:%ld:%15[a-z0-9]%n", rule->call, &rule->descriptor,
                   &rule->first, &rule->last, fault, &length) != 5) {
            break;
        }
        rule->fault = strcmp(fault, "short") == 0  ? SHORT
                      : strcmp(fault, "zero") == 0 ? ZERO
                      : strcmp(fault, "slow") == 0 ? SLOW
                                                   : atoi(fault);
        text += length;
        ++rule_count;
    }
}

/* The fault of this call, 0 for none. */
static int fault_of(const char* call, long descriptor) {
    const int is_malloc = strcmp(call, "malloc") == 0;
    for (int i = 0; i < rule_count; ++i) {
        struct rule* const rule = &rules[i];
        if (strcmp(rule->call, call) != 0 ||
            (is_malloc ? descriptor < rule->descriptor : descriptor != rule->descriptor)) {
            continue;
        }
        const long number = atomic_fetch_add(&rule->count, 1) + 1;
        if (number >= rule->first && number <= rule->last) {
            return rule->fault;
        }
    }
    return 0;
}

/* Carries out a fault of reading and writing, or gives the size that goes through. */
static ssize_t faulty_size(int fault, size_t size) {
    if (fault > 0) {
        errno = fault;
        return -1;
    }
    if (fault == SLOW) {
        const struct timespec third = {.tv_sec = 0, .tv_nsec = 333000000};
        nanosleep(&third, NULL);
    }
    return fault == ZERO ? 0 : fault == SHORT && size > 1001 ? 1001 : (ssize_t)size;
}

/* The function that a name stands for without this library. A pointer to a function goes through
 * void** as POSIX has it. */
static void find(void** next, const char* name) {
    if (*next == NULL) {
        *next = dlsym(RTLD_NEXT, name);
    }
}

ssize_t read(int descriptor, void* data, size_t size) {
    static ssize_t (*next)(int, void*, size_t);
    find((void**)&next, "read");
    const ssize_t allowed = faulty_size(fault_of("read", descriptor), size);
    return allowed <= 0 ? allowed : next(descriptor, data, (size_t)allowed);
}

ssize_t write(int descriptor, const void* data, size_t size) {
    static ssize_t (*next)(int, const void*, size_t);
    find((void**)&next, "write");
    const ssize_t allowed = faulty_size(fault_of("write", descriptor), size);
    return allowed <= 0 ? allowed : next(descriptor, data, (size_t)allowed);
}

int close(int descriptor) {
    static int (*next)(int);
    find((void**)&next, "close");
    const int fault = fault_of("close", descriptor);
    const int result = next(descriptor);
    if (fault > 0) {
        errno = fault;
        return -1;
    }
    return result;
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) {
    static int (*next)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    find((void**)&next, "pthread_create");
    const int fault = fault_of("thread", 0);
    return fault > 0 ? fault : next(thread, attributes, run, argument);
}

extern void* __libc_malloc(size_t size);

void* malloc(size_t size) {
    if (rule_count > 0 && fault_of("malloc", (long)size) > 0) {
        errno = ENOMEM;
        return NULL;
    }
    return __libc_malloc(size);
}
