/*
 * The functions of the module, as Python's C API calls them.
 */
#ifndef ROSETAG_PYTHON_FUNCTIONS_H
#define ROSETAG_PYTHON_FUNCTIONS_H

#include "python_objects.h"

namespace rosetag::python {

// Single values. Each entry of the tables is described in _core.pyi.
extern PyMethodDef valueFunctions[];

// Columns.
extern PyMethodDef columnFunctions[];

template <typename Function>
PyCFunction asFunction(Function function) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

} // namespace rosetag::python

#endif
