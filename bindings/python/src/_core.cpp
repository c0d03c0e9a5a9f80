/*
 * The extension module below the Python package: the toolkit's functions on single values and on
 * columns. It builds on the limited API, so that one file serves every Python from 3.11 on; what is
 * written for people (classes, defaults, docs) is Python, in the package.
 */
#define PY_SSIZE_T_CLEAN
#define Py_LIMITED_API 0x030B0000
#include <Python.h>

#include "arrow_rows.h"

#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using rosetag::Failure;
using rosetag::Form;
using rosetag::FormSet;

// The class that failures are raised as; it comes from the package.
PyObject* errorClass = nullptr;

// A reference that is given back when it goes out of scope.
class Ref {
public:
    explicit Ref(PyObject* object = nullptr) : object(object) {}
    Ref(const Ref&) = delete;
    Ref& operator=(const Ref&) = delete;
    ~Ref() {
        Py_XDECREF(object);
    }
    PyObject* get() const {
        return object;
    }
    PyObject* release() {
        PyObject* const given = object;
        object = nullptr;
        return given;
    }
    explicit operator bool() const {
        return object != nullptr;
    }

private:
    PyObject* object;
};

PyObject* textOf(std::string_view text) {
    return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
}

PyObject* textOrNone(std::string_view text) {
    return text.empty() ? Py_NewRef(Py_None) : textOf(text);
}

// Adds a value that is given away to a dictionary. False: an error is set.
bool put(PyObject* dictionary, const char* key, PyObject* value) {
    const Ref held(value);
    return value != nullptr && PyDict_SetItemString(dictionary, key, value) == 0;
}

/*
 * ---- Values that come in ----
 */

void appendWord(std::string& hex, unsigned word) {
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(word >> 8),
                                  static_cast<std::uint8_t>(word & 0xFF)};
    rosetag::appendHex(hex, bytes);
}

// A value as the toolkit takes it: a text, or the bits of a tag as hex.
class Value {
public:
    // False: an error is set.
    bool read(PyObject* given) {
        object = given;
        if (PyUnicode_Check(given)) {
            Py_ssize_t size = 0;
            const char* const data = PyUnicode_AsUTF8AndSize(given, &size);
            text = {data, data == nullptr ? 0 : static_cast<std::size_t>(size)};
            return data != nullptr;
        }
        const bool isRead = PyObject_CheckBuffer(given) ? readBuffer() : readWords();
        text = hex;
        return isRead;
    }

    PyObject* object = nullptr;
    std::string_view text;

private:
    bool readBuffer() {
        Py_buffer buffer;
        if (PyObject_GetBuffer(object, &buffer, PyBUF_CONTIG_RO | PyBUF_FORMAT) != 0) {
            return false;
        }
        const bool areWords = buffer.itemsize == 2;
        const bool isGood = buffer.itemsize == 1 || areWords;
        const auto* const bytes = static_cast<const unsigned char*>(buffer.buf);
        for (Py_ssize_t i = 0; isGood && i < buffer.len; i += buffer.itemsize) {
            if (areWords) {
                std::uint16_t word = 0;
                std::memcpy(&word, bytes + i, sizeof word);
                appendWord(hex, word);
            } else {
                rosetag::appendHex(hex, {bytes + i, 1});
            }
        }
        PyBuffer_Release(&buffer);
        if (!isGood) {
            PyErr_SetString(PyExc_TypeError, "a buffer must hold bytes or 16-bit words");
        }
        return isGood;
    }

    bool readWords() {
        const Ref words(PySequence_Check(object) ? PySequence_List(object) : nullptr);
        if (!words) {
            if (!PyErr_Occurred()) {
                PyErr_Format(PyExc_TypeError,
                             "a value must be str, bytes, or a sequence of 16-bit words, not %R",
                             Py_TYPE(object));
            }
            return false;
        }
        for (Py_ssize_t i = 0; i < PyList_Size(words.get()); ++i) {
            const long word = PyLong_AsLong(PyList_GetItem(words.get(), i));
            if (word < 0 || word > 0xFFFF) {
                if (!PyErr_Occurred()) {
                    PyErr_Format(PyExc_ValueError, "word %zd is not between 0 and 65535", i);
                }
                return false;
            }
            appendWord(hex, static_cast<unsigned>(word));
        }
        return true;
    }

    std::string hex;
};

// Characters before a position that counts bytes.
Py_ssize_t charactersBefore(std::string_view text, std::size_t position) {
    Py_ssize_t count = 0;
    for (const char byte : text.substr(0, std::min(position, text.size()))) {
        count += (static_cast<unsigned char>(byte) & 0xC0) != 0x80 ? 1 : 0;
    }
    return count;
}

PyObject* raise(const Failure& failure, const Value& value) {
    const std::string sentence = rosetag::failureText(failure);
    const Py_ssize_t first = charactersBefore(value.text, failure.position);
    const Py_ssize_t end = charactersBefore(value.text, failure.position + failure.length);
    const Ref error(PyObject_CallFunction(
        errorClass, "s#iOnns#s#s#", sentence.data(), static_cast<Py_ssize_t>(sentence.size()),
        static_cast<int>(failure.status), value.object, first, end - first, failure.culprit.data(),
        static_cast<Py_ssize_t>(failure.culprit.size()), failure.message.data(),
        static_cast<Py_ssize_t>(failure.message.size()), failure.remedy.data(),
        static_cast<Py_ssize_t>(failure.remedy.size())));
    if (error) {
        PyErr_SetObject(errorClass, error.get());
    }
    return nullptr;
}

// None, or an int. False: an error is set.
bool readOptional(PyObject* given, const char* name, std::optional<int>& number) {
    if (given == nullptr || given == Py_None) {
        return true;
    }
    const long value = PyLong_AsLong(given);
    if (value == -1 && PyErr_Occurred()) {
        PyErr_Format(PyExc_TypeError, "%s must be an int or None, not %R", name, Py_TYPE(given));
        return false;
    }
    // Beyond these limits every number is equally wrong.
    number = static_cast<int>(value < -1 ? -1 : value > 1000 ? 1000 : value);
    return true;
}

bool readScheme(const char* name, const rosetag::SchemeInfo*& scheme) {
    if (name == nullptr) {
        return true;
    }
    scheme = rosetag::schemeByName(name);
    if (scheme == nullptr) {
        PyErr_Format(PyExc_ValueError, "there is no scheme \"%s\"; rosetag.schemes() lists all",
                     name);
    }
    return scheme != nullptr;
}

// How a value is to be read, as arguments of nearly every function.
struct Reading {
    int asBarcode = 0;
    int strict = 0;
    PyObject* gcpLength = nullptr;

    bool fill(rosetag::ReadOptions& options) const {
        options.asBarcode = asBarcode != 0;
        options.strict = strict != 0;
        return readOptional(gcpLength, "gcp_length", options.gcpLength);
    }
};

/*
 * ---- Results that go out ----
 */

PyObject* notesOf(const rosetag::Rows<rosetag::Note>& notes) {
    Ref list(PyList_New(0));
    for (const rosetag::Note& note : notes) {
        const std::string_view kind = rosetag::noteWord(note.kind);
        const std::string_view severity = rosetag::severityWord(note.severity);
        const Ref row(Py_BuildValue("(s#s#s#)", kind.data(), static_cast<Py_ssize_t>(kind.size()),
                                    severity.data(), static_cast<Py_ssize_t>(severity.size()),
                                    note.text.data(), static_cast<Py_ssize_t>(note.text.size())));
        if (!list || !row || PyList_Append(list.get(), row.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyObject* aisOf(const rosetag::Rows<rosetag::AiValue>& ais) {
    Ref list(PyList_New(0));
    for (const rosetag::AiValue& ai : ais) {
        const Ref row(Py_BuildValue("(s#s#s#)", ai.ai.data(), static_cast<Py_ssize_t>(ai.ai.size()),
                                    ai.value.data(), static_cast<Py_ssize_t>(ai.value.size()),
                                    ai.title.data(), static_cast<Py_ssize_t>(ai.title.size())));
        if (!list || !row || PyList_Append(list.get(), row.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyObject* numberOrNone(std::optional<int> number) {
    return number.has_value() ? PyLong_FromLong(*number) : Py_NewRef(Py_None);
}

PyObject* translationOf(const rosetag::Translation& item, PyObject* value) {
    Ref all(PyDict_New());
    Ref fits(PyList_New(0));
    for (const rosetag::SchemeInfo* const scheme : item.fitsSchemes) {
        const Ref name(textOf(scheme->name));
        if (!fits || !name || PyList_Append(fits.get(), name.get()) != 0) {
            return nullptr;
        }
    }
    const std::string_view scheme = item.scheme == nullptr ? "" : item.scheme->name;
    const bool isDone =
        all && put(all.get(), "value", Py_NewRef(value)) &&
        put(all.get(), "form", textOf(rosetag::formWord(item.form))) &&
        put(all.get(), "scheme", textOrNone(scheme)) &&
        put(all.get(), "filter", numberOrNone(item.filter)) &&
        put(all.get(), "bits", item.bits == 0 ? Py_NewRef(Py_None) : PyLong_FromLong(item.bits)) &&
        put(all.get(), "tag_uri", textOrNone(item.tagUri)) &&
        put(all.get(), "pure_identity", textOrNone(item.pureIdentity)) &&
        put(all.get(), "element_string", textOrNone(item.elementString)) &&
        put(all.get(), "barcode_string", textOrNone(item.barcodeString)) &&
        put(all.get(), "digital_link", textOrNone(item.digitalLink)) &&
        put(all.get(), "hex", textOrNone(item.hex)) &&
        put(all.get(), "gtin", textOrNone(item.gtin)) &&
        put(all.get(), "serial", textOrNone(item.serial)) &&
        put(all.get(), "ais", aisOf(item.ais)) && put(all.get(), "fits_schemes", fits.release()) &&
        put(all.get(), "notes", notesOf(item.notes));
    return isDone ? all.release() : nullptr;
}

/*
 * ---- Single values ----
 */

char** words(const char* const* names) {
    return const_cast<char**>(names); // NOLINT: as Python's C API takes them
}

PyObject* decode(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"", "as_barcode", "strict", "gcp_length", nullptr};
    PyObject* given = nullptr;
    Reading reading;
    Value value;
    rosetag::ReadOptions options;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "O|$ppO", words(names), &given,
                                     &reading.asBarcode, &reading.strict, &reading.gcpLength) ||
        !value.read(given) || !reading.fill(options)) {
        return nullptr;
    }
    const rosetag::Translation item = rosetag::translate(value.text, options);
    return rosetag::isFailure(item.failure) ? raise(item.failure, value)
                                            : translationOf(item, given);
}

// The options of a call without its tuple of arguments: most calls have none, and then there is
// nothing to parse.
bool readConvertOptions(PyObject* const* values, PyObject* names, rosetag::ReadOptions& options) {
    const Py_ssize_t count = names == nullptr ? 0 : PyTuple_Size(names);
    for (Py_ssize_t i = 0; i < count; ++i) {
        const char* const name = PyUnicode_AsUTF8AndSize(PyTuple_GetItem(names, i), nullptr);
        const std::string_view word = name == nullptr ? "" : name;
        if (word == "gcp_length") {
            if (!readOptional(values[i], name, options.gcpLength)) {
                return false;
            }
        } else if (word == "as_barcode" || word == "strict") {
            const int flag = PyObject_IsTrue(values[i]);
            if (flag < 0) {
                return false;
            }
            (word == "strict" ? options.strict : options.asBarcode) = flag != 0;
        } else if (word != "to") {
            PyErr_Format(PyExc_TypeError, "convert() got an unexpected keyword argument '%s'",
                         name);
            return false;
        }
    }
    return true;
}

PyObject* argumentNamed(PyObject* const* values, PyObject* names, std::string_view wanted) {
    const Py_ssize_t count = names == nullptr ? 0 : PyTuple_Size(names);
    for (Py_ssize_t i = 0; i < count; ++i) {
        const char* const name = PyUnicode_AsUTF8AndSize(PyTuple_GetItem(names, i), nullptr);
        if (name != nullptr && name == wanted) {
            return values[i];
        }
    }
    return nullptr;
}

Form formOf(PyObject* given) {
    const char* const word = PyUnicode_Check(given) ? PyUnicode_AsUTF8AndSize(given, nullptr) : "";
    const Form form = word == nullptr ? Form::UNKNOWN : rosetag::formByWord(word);
    constexpr FormSet texts = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY |
                              Form::ELEMENT_STRING | Form::BARCODE_STRING | Form::DIGITAL_LINK |
                              Form::GTIN | Form::SERIAL;
    if (!texts.has(form) && !PyErr_Occurred()) {
        PyErr_Format(PyExc_ValueError,
                     "there is no form %R; there are hex, tag_uri, pure_identity, element_string, "
                     "barcode_string, digital_link, gtin and serial",
                     given);
    }
    return form;
}

PyObject* convert(PyObject*, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
    PyObject* const to = count > 1 ? arguments[1] : argumentNamed(arguments + count, names, "to");
    if (count < 1 || count > 2 || to == nullptr) {
        PyErr_SetString(PyExc_TypeError, "convert() takes a value and the form to convert it to");
        return nullptr;
    }
    Value value;
    rosetag::ReadOptions options;
    const Form form = formOf(to);
    if (PyErr_Occurred() || !value.read(arguments[0]) ||
        !readConvertOptions(arguments + count, names, options)) {
        return nullptr;
    }
    // Keeps its memory from call to call.
    static thread_local rosetag::Translation item;
    rosetag::translate(value.text, options, form, item);
    return rosetag::isFailure(item.failure) ? raise(item.failure, value)
                                            : textOrNone(rosetag::formText(item, form));
}

PyObject* encode(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"",         "scheme", "filter",     "gcp_length",
                                        "encoding", "strict", "as_barcode", nullptr};
    PyObject* given = nullptr;
    PyObject* filter = nullptr;
    const char* scheme = nullptr;
    Reading reading;
    Value value;
    rosetag::EncodeOptions options;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "O|zOOipp", words(names), &given, &scheme,
                                     &filter, &reading.gcpLength, &options.encoding,
                                     &reading.strict, &reading.asBarcode) ||
        !value.read(given) || !reading.fill(options.read) ||
        !readOptional(filter, "filter", options.filter) || !readScheme(scheme, options.scheme)) {
        return nullptr;
    }
    static thread_local rosetag::Translation item;
    rosetag::encode(value.text, options, Form::HEX, item);
    return rosetag::isFailure(item.failure) ? raise(item.failure, value) : textOf(item.hex);
}

PyObject* fieldsOf(const rosetag::Explanation& explanation) {
    Ref list(PyList_New(0));
    for (const rosetag::ExplainedField& field : explanation.fields) {
        const std::string_view bits =
            std::string_view(explanation.bits).substr(field.first, field.width);
        const Ref row(Py_BuildValue("(nns#s#s#s#s#O)", static_cast<Py_ssize_t>(field.first),
                                    static_cast<Py_ssize_t>(field.width), field.name.data(),
                                    static_cast<Py_ssize_t>(field.name.size()), bits.data(),
                                    static_cast<Py_ssize_t>(bits.size()), field.meaning.data(),
                                    static_cast<Py_ssize_t>(field.meaning.size()),
                                    field.value.data(), static_cast<Py_ssize_t>(field.value.size()),
                                    field.ai.data(), static_cast<Py_ssize_t>(field.ai.size()),
                                    field.isGood ? Py_True : Py_False));
        if (!list || !row || PyList_Append(list.get(), row.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyObject* explain(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"", "as_barcode", "strict", "gcp_length", nullptr};
    PyObject* given = nullptr;
    Reading reading;
    Value value;
    rosetag::ReadOptions options;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "O|$ppO", words(names), &given,
                                     &reading.asBarcode, &reading.strict, &reading.gcpLength) ||
        !value.read(given) || !reading.fill(options)) {
        return nullptr;
    }
    const rosetag::Explanation explanation = rosetag::explain(value.text, options);
    // What broke in a field is part of an explanation; what has no fields at all is not one.
    if (rosetag::isFailure(explanation.failure) && explanation.fields.empty()) {
        return raise(explanation.failure, value);
    }
    Ref all(PyDict_New());
    const std::string_view scheme = explanation.scheme == nullptr ? "" : explanation.scheme->name;
    const bool isDone = all && put(all.get(), "value", Py_NewRef(given)) &&
                        put(all.get(), "form", textOf(rosetag::formWord(explanation.form))) &&
                        put(all.get(), "scheme", textOrNone(scheme)) &&
                        put(all.get(), "hex", textOf(explanation.hex)) &&
                        put(all.get(), "bits", textOf(explanation.bits)) &&
                        put(all.get(), "failure",
                            rosetag::isFailure(explanation.failure)
                                ? textOf(rosetag::failureText(explanation.failure))
                                : Py_NewRef(Py_None)) &&
                        put(all.get(), "fields", fieldsOf(explanation)) &&
                        put(all.get(), "notes", notesOf(explanation.notes));
    return isDone ? all.release() : nullptr;
}

PyObject* tid(PyObject*, PyObject* given) {
    Value value;
    if (!value.read(given)) {
        return nullptr;
    }
    const rosetag::Tid memory = rosetag::tid(value.text);
    if (rosetag::isFailure(memory.failure)) {
        return raise(memory.failure, value);
    }
    std::string json;
    rosetag::appendJson(json, memory, value.text);
    return textOf(json);
}

PyObject* encodeAi(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"", "", "with_code", "encoding", nullptr};
    const char* ai = nullptr;
    Py_ssize_t aiSize = 0;
    PyObject* given = nullptr;
    int withCode = 0;
    int encoding = AI_ENC_AUTO;
    Value value;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "s#U|$pi", words(names), &ai, &aiSize,
                                     &given, &withCode, &encoding) ||
        !value.read(given)) {
        return nullptr;
    }
    const rosetag::AiTranslation item = rosetag::encodeAi({ai, static_cast<std::size_t>(aiSize)},
                                                          value.text, withCode != 0, encoding);
    if (rosetag::isFailure(item.failure)) {
        return raise(item.failure, value);
    }
    return Py_BuildValue("s#i", item.hex.data(), static_cast<Py_ssize_t>(item.hex.size()),
                         item.bits);
}

PyObject* decodeAi(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"", "ai", nullptr};
    const char* ai = "";
    PyObject* given = nullptr;
    Value value;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "O|s", words(names), &given, &ai) ||
        !value.read(given)) {
        return nullptr;
    }
    const rosetag::AiTranslation item = rosetag::decodeAi(value.text, ai);
    if (rosetag::isFailure(item.failure)) {
        return raise(item.failure, value);
    }
    return Py_BuildValue("s#s#s#", item.ai.ai.data(), static_cast<Py_ssize_t>(item.ai.ai.size()),
                         item.ai.value.data(), static_cast<Py_ssize_t>(item.ai.value.size()),
                         item.ai.title.data(), static_cast<Py_ssize_t>(item.ai.title.size()));
}

PyObject* schemes(PyObject*, PyObject*) {
    Ref list(PyList_New(0));
    for (const rosetag::SchemeInfo& scheme : rosetag::schemes()) {
        const Ref row(Py_BuildValue(
            "(s#s#iiOOO)", scheme.name.data(), static_cast<Py_ssize_t>(scheme.name.size()),
            scheme.family.data(), static_cast<Py_ssize_t>(scheme.family.size()),
            static_cast<int>(scheme.header), scheme.filterLimit,
            scheme.hasUris ? Py_True : Py_False, scheme.hasGs1Texts ? Py_True : Py_False,
            scheme.isPlus ? Py_True : Py_False));
        if (!list || !row || PyList_Append(list.get(), row.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

// The words of the encodings, by AI_ENC_INTEGER and so on.
PyObject* encodings(PyObject*, PyObject*) {
    Ref list(PyList_New(0));
    for (const std::string_view word : rosetag::encodingWords()) {
        const Ref text(textOf(word));
        if (!list || !text || PyList_Append(list.get(), text.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyObject* findingsOf(const rosetag::Rows<rosetag::Finding>& findings, const Value& value) {
    Ref list(PyList_New(0));
    for (const rosetag::Finding& finding : findings) {
        const std::string_view severity = rosetag::severityWord(finding.severity);
        const std::string_view rule = rosetag::checkRuleWord(finding.rule);
        const Py_ssize_t first = charactersBefore(value.text, finding.position);
        const Py_ssize_t end = charactersBefore(value.text, finding.position + finding.length);
        const Ref culprit(textOf(finding.culprit));
        const Ref message(textOf(finding.message));
        const Ref row(Py_BuildValue("(s#s#s#nnOO)", severity.data(),
                                    static_cast<Py_ssize_t>(severity.size()), rule.data(),
                                    static_cast<Py_ssize_t>(rule.size()), finding.ai.data(),
                                    static_cast<Py_ssize_t>(finding.ai.size()), first, end - first,
                                    culprit.get(), message.get()));
        if (!list || !row || PyList_Append(list.get(), row.get()) != 0) {
            return nullptr;
        }
    }
    return list.release();
}

PyObject* check(PyObject*, PyObject* positional, PyObject* named) {
    static const char* const names[] = {"", "as_barcode", "strict", "gcp_length", nullptr};
    PyObject* given = nullptr;
    Reading reading;
    Value value;
    rosetag::ReadOptions options;
    if (!PyArg_ParseTupleAndKeywords(positional, named, "O|$ppO", words(names), &given,
                                     &reading.asBarcode, &reading.strict, &reading.gcpLength) ||
        !value.read(given) || !reading.fill(options)) {
        return nullptr;
    }
    rosetag::Rows<rosetag::Finding> findings;
    rosetag::check(value.text, options, findings);
    return findingsOf(findings, value);
}

PyObject* version(PyObject*, PyObject*) {
    return textOf(rosetag::version());
}

// (name, text) of a status, or None.
PyObject* statusWords(PyObject*, PyObject* given) {
    const long status = PyLong_AsLong(given);
    if (status == -1 && PyErr_Occurred()) {
        return nullptr;
    }
    if (status < EPC_OK || status > EPC_ERR_BAD_TID) {
        return Py_NewRef(Py_None);
    }
    return Py_BuildValue("ss", epc_statusName(static_cast<EpcStatus>(status)),
                         epc_statusText(static_cast<EpcStatus>(status)));
}

PyObject* setErrorClass(PyObject*, PyObject* given) {
    PyObject* const before = errorClass;
    errorClass = Py_NewRef(given);
    Py_XDECREF(before);
    return Py_NewRef(Py_None);
}

/*
 * ---- Columns ----
 */

using rosetag::python::Rows;
using rosetag::python::SharedRows;

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

// The capsules of a pair (schema, array). An empty pair, None, is no column. False: an error is
// set.
bool readColumn(PyObject* given, RosetagColumn& column) {
    if (given == nullptr || given == Py_None) {
        return true;
    }
    PyObject* schema = nullptr;
    PyObject* array = nullptr;
    if (!PyArg_ParseTuple(given, "OO", &schema, &array)) {
        return false;
    }
    column.type = static_cast<ArrowSchema*>(PyCapsule_GetPointer(schema, SCHEMA_CAPSULE));
    column.values = static_cast<ArrowArray*>(PyCapsule_GetPointer(array, ARRAY_CAPSULE));
    return column.type != nullptr && column.values != nullptr;
}

// The words of outputs. They live as long as the list that they come from.
class Outputs {
public:
    bool read(PyObject* given) {
        list = PySequence_List(given);
        for (Py_ssize_t i = 0; list != nullptr && i < PyList_Size(list); ++i) {
            names.push_back(PyUnicode_AsUTF8AndSize(PyList_GetItem(list, i), nullptr));
            if (names.back() == nullptr) {
                return false;
            }
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
    rosetag::python::shareType(*rows, *type);
    rosetag::python::shareArray(*rows, *array);
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
        rosetag::python::streamOf(std::move(chunks), *stream);
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

PyObject* columnsDecode(PyObject*, PyObject* arguments) {
    PyObject* column = nullptr;
    PyObject* to = nullptr;
    PyObject* gcpLengths = nullptr;
    RosetagColumnsReadOptions options{};
    RosetagColumn values{};
    Outputs outputs;
    if (!PyArg_ParseTuple(arguments, "OOppiO", &column, &to, &options.asBarcode, &options.strict,
                          &options.gcpLength, &gcpLengths) ||
        !readColumn(column, values) || !readColumn(gcpLengths, options.gcpLengths) ||
        !outputs.read(to)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsDecode(values.type, values.values, outputs.names.data(),
                                     static_cast<std::int32_t>(outputs.names.size()), &options,
                                     type, rows, error);
    });
}

PyObject* columnsEncode(PyObject*, PyObject* arguments) {
    PyObject* column = nullptr;
    PyObject* to = nullptr;
    PyObject* gcpLengths = nullptr;
    PyObject* schemeColumn = nullptr;
    PyObject* filters = nullptr;
    RosetagColumnsEncodeOptions options{};
    RosetagColumn values{};
    Outputs outputs;
    if (!PyArg_ParseTuple(arguments, "OOppiOzOiOi", &column, &to, &options.read.asBarcode,
                          &options.read.strict, &options.read.gcpLength, &gcpLengths,
                          &options.scheme, &schemeColumn, &options.filter, &filters,
                          &options.encoding) ||
        !readColumn(column, values) || !readColumn(gcpLengths, options.read.gcpLengths) ||
        !readColumn(schemeColumn, options.schemes) || !readColumn(filters, options.filters) ||
        !outputs.read(to)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsEncode(values.type, values.values, outputs.names.data(),
                                     static_cast<std::int32_t>(outputs.names.size()), &options,
                                     type, rows, error);
    });
}

PyObject* columnsTid(PyObject*, PyObject* arguments) {
    PyObject* column = nullptr;
    PyObject* to = nullptr;
    RosetagColumn values{};
    Outputs outputs;
    if (!PyArg_ParseTuple(arguments, "OO", &column, &to) || !readColumn(column, values) ||
        !outputs.read(to)) {
        return nullptr;
    }
    return columnsResult([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsTid(values.type, values.values, outputs.names.data(),
                                  static_cast<std::int32_t>(outputs.names.size()), type, rows,
                                  error);
    });
}

template <typename Function>
PyCFunction asFunction(Function function) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

PyMethodDef functions[] = {
    {"decode", asFunction(decode), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"convert", asFunction(convert), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"encode", asFunction(encode), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"explain", asFunction(explain), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"tid", tid, METH_O, nullptr},
    {"encode_ai", asFunction(encodeAi), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"decode_ai", asFunction(decodeAi), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"schemes", schemes, METH_NOARGS, nullptr},
    {"encodings", encodings, METH_NOARGS, nullptr},
    {"check", asFunction(check), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"version", version, METH_NOARGS, nullptr},
    {"status_words", statusWords, METH_O, nullptr},
    {"set_error_class", setErrorClass, METH_O, nullptr},
    {"columns_decode", columnsDecode, METH_VARARGS, nullptr},
    {"columns_encode", columnsEncode, METH_VARARGS, nullptr},
    {"columns_tid", columnsTid, METH_VARARGS, nullptr},
    {"columns_share", columnsShare, METH_O, nullptr},
    {"columns_stream", columnsStream, METH_O, nullptr},
    {"columns_of_stream", columnsOfStream, METH_O, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef module = {PyModuleDef_HEAD_INIT,
                      "rosetag._core",
                      nullptr,
                      0,
                      functions,
                      nullptr,
                      nullptr,
                      nullptr,
                      nullptr};

} // namespace

PyMODINIT_FUNC PyInit__core() {
    return PyModuleDef_Init(&module);
}
