/*
 * The extension module below the Python package: the toolkit's functions on single values and on
 * columns. What is written for people (classes, defaults, docs) is Python, in the package, but for
 * the two functions that are called most.
 */
#include "arguments.h"
#include "functions.h"

namespace {

using namespace rosetag::python;

int fill(PyObject* module) {
    return internNames() && PyModule_AddFunctions(module, valueFunctions) == 0 &&
                   PyModule_AddFunctions(module, columnFunctions) == 0
               ? 0
               : -1;
}

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(fill)},
    {0, nullptr},
};

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "rosetag._core", nullptr, 0, nullptr, slots, nullptr, nullptr, nullptr};

} // namespace

PyMODINIT_FUNC PyInit__core() {
    return PyModuleDef_Init(&definition);
}
