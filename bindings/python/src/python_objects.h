/*
 * Python objects made of C++ values, and references that release themselves. All of it is in the
 * limited API, so that one module serves every Python from 3.11 on.
 */
#ifndef ROSETAG_PYTHON_PYTHON_OBJECTS_H
#define ROSETAG_PYTHON_PYTHON_OBJECTS_H

#define PY_SSIZE_T_CLEAN
#define Py_LIMITED_API 0x030B0000
#include <Python.h>

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace rosetag::python {

// A reference that is released when it goes out of scope.
class Ref {
public:
    explicit Ref(PyObject* given = nullptr) : object(given) {}
    Ref(const Ref&) = delete;
    Ref& operator=(const Ref&) = delete;
    ~Ref() {
        Py_XDECREF(object);
    }
    PyObject* get() const {
        return object;
    }
    PyObject* release() {
        return std::exchange(object, nullptr);
    }
    explicit operator bool() const {
        return object != nullptr;
    }

private:
    PyObject* object;
};

// Each gives a new reference, or null with an error set.

inline PyObject* toPython(std::string_view text) {
    return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
}

template <std::same_as<bool> Flag>
PyObject* toPython(Flag flag) {
    return PyBool_FromLong(flag ? 1 : 0);
}

template <std::integral Number>
requires(!std::same_as<Number, bool>) PyObject* toPython(Number number) {
    return PyLong_FromLongLong(static_cast<long long>(number));
}

inline PyObject* toPython(std::optional<int> number) {
    return number.has_value() ? toPython(*number) : Py_NewRef(Py_None);
}

// Gives the reference up.
inline PyObject* toPython(PyObject* object) {
    return object;
}

// A text that is empty where there is none.
inline PyObject* textOrNone(std::string_view text) {
    return text.empty() ? Py_NewRef(Py_None) : toPython(text);
}

template <typename... Parts>
PyObject* tupleOf(Parts&&... parts) {
    Ref tuple(PyTuple_New(sizeof...(parts)));
    Py_ssize_t place = 0;
    const auto add = [&](PyObject* part) {
        Ref held(part);
        return tuple && held && PyTuple_SetItem(tuple.get(), place++, held.release()) == 0;
    };
    const bool isDone = (add(toPython(std::forward<Parts>(parts))) & ...);
    return isDone ? tuple.release() : nullptr;
}

// A tuple of what make gives of each element: a new reference, or null.
template <typename Elements, typename Make>
PyObject* tupleOfEach(const Elements& elements, Make make) {
    Ref tuple(PyTuple_New(static_cast<Py_ssize_t>(elements.size())));
    Py_ssize_t place = 0;
    for (const auto& element : elements) {
        PyObject* const made = tuple ? make(element) : nullptr;
        if (made == nullptr || PyTuple_SetItem(tuple.get(), place++, made) != 0) {
            return nullptr;
        }
    }
    return tuple.release();
}

// A dictionary with names for keys, which fails as a whole.
class Dictionary {
public:
    template <typename Part>
    Dictionary& put(const char* key, Part&& part) {
        const Ref held(toPython(std::forward<Part>(part)));
        isGood = isGood && dictionary && held &&
                 PyDict_SetItemString(dictionary.get(), key, held.get()) == 0;
        return *this;
    }
    PyObject* release() {
        return isGood ? dictionary.release() : nullptr;
    }

private:
    Ref dictionary{PyDict_New()};
    bool isGood = true;
};

} // namespace rosetag::python

#endif
