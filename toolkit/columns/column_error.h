/*
 * How a call on columns says that it cannot be done at all.
 */
#ifndef ROSETAG_TOOLKIT_COLUMNS_COLUMN_ERROR_H
#define ROSETAG_TOOLKIT_COLUMNS_COLUMN_ERROR_H

#include "rosetag/columns.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>

namespace rosetag {

// Writes the sentence and gives the code.
[[gnu::format(printf, 3, 4)]] inline std::int32_t columnsFail(char* error, std::int32_t code,
                                                              const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(error, ROSETAG_COLUMNS_ERROR_SIZE, format, arguments);
    va_end(arguments);
    return code;
}

inline std::int32_t columnsNoMemory(char* error) {
    return columnsFail(error, ROSETAG_COLUMNS_NO_MEMORY, "there is not enough memory");
}

} // namespace rosetag

#endif
