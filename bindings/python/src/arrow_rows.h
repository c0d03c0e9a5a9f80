/*
 * Results as Arrow hands them on: any number of times, without a copy of their buffers.
 *
 * Source: The Arrow C data interface; The Arrow C stream interface.
 */
#ifndef ROSETAG_PYTHON_ARROW_ROWS_H
#define ROSETAG_PYTHON_ARROW_ROWS_H

#include <rosetag/columns.h>

#include <memory>
#include <vector>

#ifndef ARROW_C_STREAM_INTERFACE
#define ARROW_C_STREAM_INTERFACE

struct ArrowArrayStream {
    int (*get_schema)(ArrowArrayStream*, ArrowSchema* out);
    int (*get_next)(ArrowArrayStream*, ArrowArray* out);
    const char* (*get_last_error)(ArrowArrayStream*);
    void (*release)(ArrowArrayStream*);
    void* private_data;
};

#endif

namespace rosetag::python {

// A struct array and its type. They are released with the last that holds them.
struct Rows {
    ArrowSchema type{};
    ArrowArray array{};

    Rows() = default;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() {
        if (array.release != nullptr) {
            array.release(&array);
        }
        if (type.release != nullptr) {
            type.release(&type);
        }
    }
};

using SharedRows = std::shared_ptr<Rows>;

// Fill a struct of the caller's, which its final owner releases.
void shareType(const SharedRows& rows, ArrowSchema& type);
void shareArray(const SharedRows& rows, ArrowArray& array);

// All chunks have the type of the first; there is at least one.
void streamOf(std::vector<SharedRows> chunks, ArrowArrayStream& stream);

} // namespace rosetag::python

#endif
