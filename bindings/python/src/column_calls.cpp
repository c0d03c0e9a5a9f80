/*
 * The functions on columns. Arrays come and go as the capsules of the Arrow PyCapsule interface.
 */
#include "arguments.h"
#include "arrow_rows.h"
#include "functions.h"

#include <rosetag/columns.h>

#include <vector>

namespace rosetag::python {
namespace {

// The names that the Arrow PyCapsule interface gives its capsules, and one of our own.
constexpr const char* SCHEMA_CAPSULE = "arrow_schema";
constexpr const char* ARRAY_CAPSULE = "arrow_array";
constexpr const char* STREAM_CAPSULE = "arrow_array_stream";
constexpr const char* ROWS_CAPSULE = "rosetag.rows";

template <typename Struct>
constexpr const char* CAPSULE_OF = nullptr;
template <>
constexpr const char* CAPSULE_OF<ArrowSchema> = SCHEMA_CAPSULE;
template <>
constexpr const char* CAPSULE_OF<ArrowArray> = ARRAY_CAPSULE;
template <>
constexpr const char* CAPSULE_OF<ArrowArrayStream> = STREAM_CAPSULE;

template <typename Struct>
void releaseCapsule(PyObject* capsule) {
    auto* const held = static_cast<Struct*>(PyCapsule_GetPointer(capsule, CAPSULE_OF<Struct>));
    if (held->release != nullptr) {
        held->release(held);
    }
    delete held;
}

// A capsule of an empty struct, which is to be filled.
template <typename Struct>
PyObject* capsuleOf(Struct*& held) {
    held = new Struct{};
    PyObject* const capsule = PyCapsule_New(held, CAPSULE_OF<Struct>, releaseCapsule<Struct>);
    if (capsule == nullptr) {
        delete held;
    }
    return capsule;
}

void releaseRows(PyObject* capsule) {
    delete static_cast<SharedRows*>(PyCapsule_GetPointer(capsule, ROWS_CAPSULE));
}

// The capsules of a pair (schema, array). False: an error is set.
bool readColumn(PyObject* pair, RosetagColumn& column) {
    PyObject* schema = nullptr;
    PyObject* array = nullptr;
    if (PyArg_ParseTuple(pair, "OO", &schema, &array) == 0) {
        return false;
    }
    column.type = static_cast<ArrowSchema*>(PyCapsule_GetPointer(schema, SCHEMA_CAPSULE));
    column.values = static_cast<ArrowArray*>(PyCapsule_GetPointer(array, ARRAY_CAPSULE));
    return column.type != nullptr && column.values != nullptr;
}

bool isColumn(PyObject* given) {
    return given != nullptr && PyTuple_Check(given) != 0;
}

// The words of outputs. They live as long as the list that they come from.
class Outputs {
public:
    bool read(PyObject* given) {
        list = PySequence_List(given);
        for (Py_ssize_t i = 0; list != nullptr && i < PyList_Size(list); ++i) {
            PyObject* const word = PyList_GetItem(list, i);
            Value text;
            if (!readText(word, "an output", text)) {
                return false;
            }
            if (text.text.find('\0') != text.text.npos) {
                PyErr_Format(PyExc_ValueError, "there is no output %R", word);
                return false;
            }
            names.push_back(text.text.data());
        }
        return list != nullptr;
    }
    ~Outputs() {
        Py_XDECREF(list);
    }
    std::vector<const char*> names;

private:
    PyObject* list = nullptr;
};

PyObject* raiseColumns(std::int32_t code, const char* error) {
    PyErr_SetString(code == ROSETAG_COLUMNS_BAD_TYPE    ? PyExc_TypeError
                    : code == ROSETAG_COLUMNS_NO_MEMORY ? PyExc_MemoryError
                                                        : PyExc_ValueError,
                    error);
    return nullptr;
}

// Runs a call on columns with the interpreter released, and gives its rows.
// call: std::int32_t(ArrowSchema* type, ArrowArray* rows, char* error)
template <typename Call>
PyObject* columnsResult(Call call) {
    const auto rows = std::make_shared<Rows>();
    char error[ROSETAG_COLUMNS_ERROR_SIZE] = "";
    std::int32_t code = 0;
    Py_BEGIN_ALLOW_THREADS;
    code = call(&rows->type, &rows->array, error);
    Py_END_ALLOW_THREADS;
    if (code != 0) {
        return raiseColumns(code, error);
    }
    return PyCapsule_New(new SharedRows(rows), ROWS_CAPSULE, releaseRows);
}

// Rows as the capsules of a schema and of an array.
PyObject* columnsShare(PyObject*, PyObject* given) {
    const auto* const rows = static_cast<SharedRows*>(PyCapsule_GetPointer(given, ROWS_CAPSULE));
    if (rows == nullptr) {
        return nullptr;
    }
    ArrowSchema* type = nullptr;
    ArrowArray* array = nullptr;
    const Ref typeCapsule(capsuleOf(type));
    const Ref arrayCapsule(capsuleOf(array));
    if (!typeCapsule || !arrayCapsule) {
        return nullptr;
    }
    shareType(*rows, *type);
    shareArray(*rows, *array);
    return PyTuple_Pack(2, typeCapsule.get(), arrayCapsule.get());
}

// A list of rows as the capsule of a stream.
PyObject* columnsStream(PyObject*, PyObject* given) {
    std::vector<SharedRows> chunks;
    for (Py_ssize_t i = 0; i < PyList_Size(given); ++i) {
        const auto* const rows =
            static_cast<SharedRows*>(PyCapsule_GetPointer(PyList_GetItem(given, i), ROWS_CAPSULE));
        if (rows == nullptr) {
            return nullptr;
        }
        chunks.push_back(*rows);
    }
    ArrowArrayStream* stream = nullptr;
    PyObject* const capsule = capsuleOf(stream);
    if (capsule != nullptr) {
        streamOf(std::move(chunks), *stream);
    }
    return capsule;
}

PyObject* raiseStream(ArrowArrayStream& stream) {
    const char* const error = stream.get_last_error(&stream);
    PyErr_Format(PyExc_ValueError, "the column's stream failed: %s",
                 error == nullptr ? "it does not say why" : error);
    return nullptr;
}

// The chunks of a stream as a list of pairs (schema, array). A stream without chunks has one
// that is empty.
PyObject* columnsOfStream(PyObject*, PyObject* given) {
    auto* const stream =
        static_cast<ArrowArrayStream*>(PyCapsule_GetPointer(given, STREAM_CAPSULE));
    Ref list(PyList_New(0));
    while (stream != nullptr && list) {
        ArrowSchema* type = nullptr;
        ArrowArray* array = nullptr;
        const Ref typeCapsule(capsuleOf(type));
        const Ref arrayCapsule(capsuleOf(array));
        if (!typeCapsule || !arrayCapsule) {
            return nullptr;
        }
        if (stream->get_schema(stream, type) != 0 || stream->get_next(stream, array) != 0) {
            return raiseStream(*stream);
        }
        const bool hasEnded = array->release == nullptr;
        if (hasEnded && PyList_Size(list.get()) > 0) {
            return list.release();
        }
        if (hasEnded) {
            *array = {};
            array->n_buffers = 3;
            static const void* noBuffers[3] = {};
            array->buffers = noBuffers;
            array->release = [](ArrowArray* empty) { empty->release = nullptr; };
        }
        const Ref pair(PyTuple_Pack(2, typeCapsule.get(), arrayCapsule.get()));
        if (!pair || PyList_Append(list.get(), pair.get()) != 0 || hasEnded) {
            return pair ? list.release() : nullptr;
        }
    }
    return nullptr;
}

constexpr Signature columnsSignature(const char* function, unsigned options) {
    return {function, 2, 2, {Name::VALUE, Name::TO}, options};
}

// A column and what is to be made of it: all that every function takes.
struct ColumnsCall {
    Arguments arguments;
    RosetagColumn values{};
    Outputs outputs;

    bool read(const Signature& signature, PyObject* const* positional, Py_ssize_t count,
              PyObject* names) {
        return readArguments(signature, positional, count, names, arguments) &&
               readColumn(arguments[Name::VALUE], values) && outputs.read(arguments[Name::TO]);
    }
    std::int32_t outputCount() const {
        return static_cast<std::int32_t>(outputs.names.size());
    }
};

bool readOptions(const Arguments& given, RosetagColumnsReadOptions& options) {
    Arguments constants = given;
    PyObject*& length = constants.given[static_cast<std::size_t>(Name::GCP_LENGTH)];
    if (isColumn(length)) {
        if (!readColumn(std::exchange(length, nullptr), options.gcpLengths)) {
            return false;
        }
    }
    ReadOptions read;
    if (!readReading(constants, true, read)) {
        return false;
    }
    options.asBarcode = read.asBarcode ? 1 : 0;
    options.strict = read.strict ? 1 : 0;
    // There 0 means none; here it is an error.
    options.gcpLength = !read.gcpLength.has_value() ? 0
                        : *read.gcpLength == 0      ? -1
                                                    : *read.gcpLength;
    options.gcpList = read.gcpList;
    options.bank = static_cast<std::int32_t>(read.bank);
    options.separator = read.separator;
    return true;
}

PyObject* columnsDecode(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = columnsSignature("decode", READING_OPTIONS);
    ColumnsCall call;
    RosetagColumnsReadOptions options{};
    if (!call.read(signature, positional, count, names) || !readOptions(call.arguments, options)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsDecode(call.values.type, call.values.values,
                                     call.outputs.names.data(), call.outputCount(), &options, type,
                                     rows, error);
    });
}

PyObject* columnsCheck(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = columnsSignature("check", READING_OPTIONS);
    ColumnsCall call;
    RosetagColumnsReadOptions options{};
    if (!call.read(signature, positional, count, names) || !readOptions(call.arguments, options)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsCheck(call.values.type, call.values.values, call.outputs.names.data(),
                                    call.outputCount(), &options, type, rows, error);
    });
}

// scheme and filter, each one for all rows or a column.
bool readEncodeOptions(const Arguments& arguments, RosetagColumnsEncodeOptions& options) {
    PyObject* const scheme = arguments[Name::SCHEME];
    PyObject* const filter = arguments[Name::FILTER];
    const SchemeInfo* info = nullptr;
    std::optional<int> number;
    if (!(isColumn(scheme) ? readColumn(scheme, options.schemes) : readScheme(scheme, info)) ||
        !(isColumn(filter) ? readColumn(filter, options.filters)
                           : readNumber(filter, "filter", number))) {
        return false;
    }
    options.scheme = info == nullptr ? nullptr : info->name.data();
    // There a negative number means none; here it is an error, like one above the limit.
    options.filter = !number.has_value() ? -1 : *number < 0 ? 1000 : *number;
    options.encoding = AI_ENC_AUTO;
    return readEncoding(arguments[Name::ENCODING], options.encoding);
}

PyObject* columnsEncode(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = columnsSignature(
        "encode", READING_OPTIONS | bitsOf({Name::SCHEME, Name::FILTER, Name::ENCODING}));
    ColumnsCall call;
    RosetagColumnsEncodeOptions options{};
    if (!call.read(signature, positional, count, names) ||
        !readOptions(call.arguments, options.read) || !readEncodeOptions(call.arguments, options)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsEncode(call.values.type, call.values.values,
                                     call.outputs.names.data(), call.outputCount(), &options, type,
                                     rows, error);
    });
}

PyObject* columnsTid(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = columnsSignature("tid", 0);
    ColumnsCall call;
    if (!call.read(signature, positional, count, names)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsTid(call.values.type, call.values.values, call.outputs.names.data(),
                                  call.outputCount(), type, rows, error);
    });
}

} // namespace

PyMethodDef columnFunctions[] = {
    {"columns_decode", asFunction(columnsDecode), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"columns_encode", asFunction(columnsEncode), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"columns_check", asFunction(columnsCheck), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"columns_tid", asFunction(columnsTid), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"columns_share", columnsShare, METH_O, nullptr},
    {"columns_stream", columnsStream, METH_O, nullptr},
    {"columns_of_stream", columnsOfStream, METH_O, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace rosetag::python
