/*
 * The arguments of the functions: values in any of their types, and the options by their names.
 */
#ifndef ROSETAG_PYTHON_ARGUMENTS_H
#define ROSETAG_PYTHON_ARGUMENTS_H

#include "python_objects.h"

#include <rosetag/toolkit.hpp>

#include <cstdint>
#include <initializer_list>

namespace rosetag::python {

// The name of the capsule that holds a GcpList.
inline constexpr const char* GCP_LIST_CAPSULE = "rosetag.gcp_list";

// Every name that an argument can have, by its Python name in lower case.
enum class Name : std::uint8_t {
    VALUE,
    TEXT,
    TO,
    SCHEME,
    FILTER,
    GCP_LENGTH,
    ENCODING,
    AS_BARCODE,
    STRICT,
    BANK,
    SEPARATOR,
    AI,
    BITS,
    WITH_CODE,
};
inline constexpr std::size_t NAME_COUNT = 14;

constexpr unsigned bitsOf(std::initializer_list<Name> names) {
    unsigned bits = 0;
    for (const Name name : names) {
        bits |= 1U << static_cast<unsigned>(name);
    }
    return bits;
}

// How a value is to be read, as options of nearly every function.
inline constexpr unsigned READING_OPTIONS =
    bitsOf({Name::AS_BARCODE, Name::STRICT, Name::GCP_LENGTH, Name::BANK, Name::SEPARATOR});

// What a function takes.
struct Signature {
    const char* function;
    int required;        // of the positional
    int positionalCount; // of the following
    Name positional[2];
    unsigned options; // bits of names that are given by name only
};

// The arguments of a call by their names; null where there is none.
struct Arguments {
    PyObject* given[NAME_COUNT] = {};
    PyObject* operator[](Name name) const {
        return given[static_cast<std::size_t>(name)];
    }
};

// To be called once. False: an error is set, as with all that follow.
bool internNames();

bool readArguments(const Signature& signature, PyObject* const* positional, Py_ssize_t count,
                   PyObject* names, Arguments& arguments);

// A value as the toolkit takes it: a text, or the bits of a tag as hex.
class Value {
public:
    Value() = default;
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() {
        Py_XDECREF(copy);
    }
    bool read(PyObject* given);

    PyObject* object = nullptr;
    std::string_view text;
    bool isText = false; // rather than bytes or words

private:
    bool readBuffer();
    bool readWords();

    std::string hex;
    PyObject* copy = nullptr; // of a buffer that is not contiguous
};

// The options READING_OPTIONS for this value.
bool readReading(const Arguments& arguments, bool isText, ReadOptions& options);

// Each leaves what it reads into as it is where given is null or None.
bool readNumber(PyObject* given, const char* name, std::optional<int>& number);
bool readGcpLength(PyObject* given, ReadOptions& options);
bool readFlag(PyObject* given, bool& flag);
bool readText(PyObject* given, const char* name, Value& value); // one that is there
bool readScheme(PyObject* given, const SchemeInfo*& scheme);
bool readEncoding(PyObject* given, int& encoding);

// The forms that are one text; UNKNOWN with an error set for all others.
Form readForm(PyObject* given);

} // namespace rosetag::python

#endif
