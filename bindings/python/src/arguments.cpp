#include "arguments.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string>
#include <vector>

namespace rosetag::python {
namespace {

// In the order of Name.
constexpr const char* nameTexts[] = {
    "value",      "text",   "to",   "scheme",    "filter", "gcp_length", "encoding",
    "as_barcode", "strict", "bank", "separator", "ai",     "bits",       "with_code",
};
static_assert(std::size(nameTexts) == NAME_COUNT);

// The forms that are one text.
constexpr Form textForms[] = {
    Form::HEX,
    Form::TAG_URI,
    Form::PURE_IDENTITY,
    Form::ELEMENT_STRING,
    Form::BARCODE_STRING,
    Form::DIGITAL_LINK,
    Form::GTIN,
    Form::SERIAL,
};

// Names in a program are interned, so that most are found by their address.
PyObject* internedNames[NAME_COUNT];
PyObject* internedForms[std::size(textForms)];

template <std::size_t count>
std::size_t indexOf(PyObject* const (&interned)[count], PyObject* name) {
    const auto* const found = std::find(std::begin(interned), std::end(interned), name);
    if (found != std::end(interned)) {
        return static_cast<std::size_t>(found - interned);
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (PyUnicode_Compare(interned[i], name) == 0) {
            return i;
        }
    }
    return count;
}

bool takes(const Signature& signature, std::size_t name) {
    const auto* const end = signature.positional + signature.positionalCount;
    return (signature.options >> name & 1U) != 0 ||
           std::find(signature.positional, end, static_cast<Name>(name)) != end;
}

bool readNamed(const Signature& signature, PyObject* const* values, PyObject* names,
               Arguments& arguments) {
    const Py_ssize_t count = PyTuple_Size(names);
    for (Py_ssize_t i = 0; i < count; ++i) {
        PyObject* const word = PyTuple_GetItem(names, i);
        const std::size_t name = indexOf(internedNames, word);
        if (name == NAME_COUNT || !takes(signature, name)) {
            PyErr_Format(PyExc_TypeError, "%s() got an unexpected keyword argument '%U'",
                         signature.function, word);
            return false;
        }
        if (arguments.given[name] != nullptr) {
            PyErr_Format(PyExc_TypeError, "%s() got multiple values for argument '%U'",
                         signature.function, word);
            return false;
        }
        arguments.given[name] = values[i];
    }
    return true;
}

bool isThere(PyObject* given) {
    return given != nullptr && given != Py_None;
}

bool raiseType(const char* name, const char* wanted, PyObject* given) {
    PyErr_Format(PyExc_TypeError, "%s must be %s, not %R", name, wanted, Py_TYPE(given));
    return false;
}

// The place of a word; of words that are not there the error lists all.
template <typename Words>
bool readWord(PyObject* given, const char* name, const Words& words, int& place) {
    if (!PyUnicode_Check(given)) {
        return raiseType(name, "a str", given);
    }
    std::string all;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (PyUnicode_CompareWithASCIIString(given, std::string(words[i]).c_str()) == 0) {
            place = static_cast<int>(i);
            return true;
        }
        all += (i == 0 ? "" : ", ") + std::string(words[i]);
    }
    PyErr_Format(PyExc_ValueError, "there is no %s %R; there are %s", name, given, all.c_str());
    return false;
}

bool readSeparator(PyObject* given, char& separator) {
    if (!isThere(given)) {
        return true;
    }
    if (!PyUnicode_Check(given)) {
        return raiseType("separator", "a str or None", given);
    }
    Py_ssize_t size = 0;
    const char* const text = PyUnicode_AsUTF8AndSize(given, &size);
    if (text == nullptr) {
        return false;
    }
    if (size != 1 || *text == '\0') {
        PyErr_Format(PyExc_ValueError, "separator must be one ASCII character, not %R", given);
        return false;
    }
    separator = *text;
    return true;
}

bool readBank(PyObject* given, Bank& bank) {
    int place = 0;
    if (!isThere(given)) {
        return true;
    }
    const bool isRead = readWord(given, "bank", bankWords(), place);
    bank = static_cast<Bank>(place);
    return isRead;
}

bool raiseValue(PyObject* given) {
    if (PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_MemoryError) != 0) {
        return false;
    }
    PyErr_Clear();
    return raiseType("a value", "str, bytes, or a sequence of 16-bit words", given);
}

// What the items of a buffer are.
enum class ItemKind : std::uint8_t { BYTE, LITTLE_WORD, BIG_WORD, OTHER };

// By the format characters of the struct module; a machine has its own order if none is named.
ItemKind itemKindOf(const char* given) {
    const std::string_view format = given == nullptr ? "B" : given;
    if (format == "B" || format == "b" || format == "c") {
        return ItemKind::BYTE;
    }
    const bool hasOrder = std::string_view("@=<>!").find(format.front()) != format.npos;
    const std::string_view item = format.substr(hasOrder ? 1 : 0);
    if (item != "H" && item != "h") {
        return ItemKind::OTHER;
    }
    const char order = hasOrder ? format.front() : '@';
    const bool isBig =
        order == '@' || order == '=' ? std::endian::native == std::endian::big : order != '<';
    return isBig ? ItemKind::BIG_WORD : ItemKind::LITTLE_WORD;
}

void appendWord(std::string& hex, unsigned word) {
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(word >> 8),
                                  static_cast<std::uint8_t>(word & 0xFF)};
    appendHex(hex, bytes);
}

} // namespace

bool internNames() {
    for (std::size_t i = 0; i < NAME_COUNT; ++i) {
        internedNames[i] = PyUnicode_InternFromString(nameTexts[i]);
    }
    for (std::size_t i = 0; i < std::size(textForms); ++i) {
        internedForms[i] = PyUnicode_InternFromString(std::string(formWord(textForms[i])).c_str());
    }
    return PyErr_Occurred() == nullptr;
}

bool readArguments(const Signature& signature, PyObject* const* positional, Py_ssize_t count,
                   PyObject* names, Arguments& arguments) {
    if (count > signature.positionalCount) {
        PyErr_Format(PyExc_TypeError, "%s() takes %d positional arguments but %zd were given",
                     signature.function, signature.positionalCount, count);
        return false;
    }
    for (Py_ssize_t i = 0; i < count; ++i) {
        arguments.given[static_cast<std::size_t>(signature.positional[i])] = positional[i];
    }
    if (names != nullptr && !readNamed(signature, positional + count, names, arguments)) {
        return false;
    }
    for (int i = 0; i < signature.required; ++i) {
        if (arguments[signature.positional[i]] == nullptr) {
            PyErr_Format(PyExc_TypeError, "%s() is missing the argument '%s'", signature.function,
                         nameTexts[static_cast<std::size_t>(signature.positional[i])]);
            return false;
        }
    }
    return true;
}

bool Value::read(PyObject* given) {
    object = given;
    isText = PyUnicode_Check(given) != 0;
    if (isText) {
        Py_ssize_t size = 0;
        const char* const data = PyUnicode_AsUTF8AndSize(given, &size);
        text = {data, data == nullptr ? 0 : static_cast<std::size_t>(size)};
        return data != nullptr;
    }
    const bool isRead = PyObject_CheckBuffer(given) != 0 ? readBuffer() : readWords();
    text = text.empty() ? std::string_view(hex) : text;
    return isRead;
}

bool Value::readBuffer() {
    Py_buffer buffer;
    // Of rows that are not contiguous, a copy.
    if (PyObject_GetBuffer(object, &buffer, PyBUF_CONTIG_RO | PyBUF_FORMAT) != 0) {
        PyErr_Clear();
        copy = PyMemoryView_GetContiguous(object, PyBUF_READ, 'C');
        if (copy == nullptr || PyObject_GetBuffer(copy, &buffer, PyBUF_FULL_RO) != 0) {
            return false;
        }
    }
    const ItemKind kind = itemKindOf(buffer.format);
    const auto* const bytes = static_cast<const std::uint8_t*>(buffer.buf);
    const auto size = static_cast<std::size_t>(buffer.len);
    if (size > MAX_VALUE_LENGTH && kind != ItemKind::OTHER) {
        text = {static_cast<const char*>(buffer.buf), size}; // too long; nobody looks at it
    } else if (kind == ItemKind::BYTE) {
        appendHex(hex, {bytes, size});
    } else if (kind != ItemKind::OTHER) {
        const std::size_t high = kind == ItemKind::BIG_WORD ? 0 : 1;
        for (std::size_t i = 0; i < size; i += 2) {
            appendHex(hex, {bytes + i + high, 1});
            appendHex(hex, {bytes + i + 1 - high, 1});
        }
    }
    PyBuffer_Release(&buffer);
    return kind != ItemKind::OTHER || raiseValue(object);
}

bool Value::readWords() {
    const Ref words(PySequence_Check(object) != 0 ? PySequence_List(object) : nullptr);
    if (!words) {
        return raiseValue(object);
    }
    for (Py_ssize_t i = 0; i < PyList_Size(words.get()); ++i) {
        PyObject* const item = PyList_GetItem(words.get(), i);
        if (PyIndex_Check(item) == 0) {
            PyErr_Format(PyExc_TypeError,
                         "%R is not a value: its item %zd is %R, not a 16-bit word; "
                         "rosetag.columns takes many values",
                         Py_TYPE(object), i, Py_TYPE(item));
            return false;
        }
        const long word = PyLong_AsLong(item);
        if (word < 0 || word > 0xFFFF) {
            if (PyErr_Occurred() == nullptr || PyErr_ExceptionMatches(PyExc_OverflowError) != 0) {
                PyErr_Format(PyExc_ValueError, "word %zd is not between 0 and 65535", i);
            }
            return false;
        }
        appendWord(hex, static_cast<unsigned>(word));
    }
    return true;
}

bool readNumber(PyObject* given, const char* name, std::optional<int>& number) {
    if (!isThere(given)) {
        return true;
    }
    if (PyIndex_Check(given) == 0) {
        return raiseType(name, "an int or None", given);
    }
    const Ref integer(PyNumber_Index(given));
    if (!integer) {
        return false;
    }
    // Past these limits every number is equally wrong.
    int isBeyond = 0;
    const long value = PyLong_AsLongAndOverflow(integer.get(), &isBeyond);
    number = static_cast<int>(isBeyond != 0 ? isBeyond * 1000L : std::clamp(value, -1L, 1000L));
    return true;
}

bool readGcpLength(PyObject* given, ReadOptions& options) {
    if (!isThere(given) || PyIndex_Check(given) != 0) {
        return readNumber(given, "gcp_length", options.gcpLength);
    }
    const Ref capsule(PyObject_GetAttrString(given, "_capsule"));
    if (!capsule || PyCapsule_IsValid(capsule.get(), GCP_LIST_CAPSULE) == 0) {
        PyErr_Clear();
        return raiseType("gcp_length", "an int, a GcpLengths or None", given);
    }
    options.gcpList =
        static_cast<const GcpList*>(PyCapsule_GetPointer(capsule.get(), GCP_LIST_CAPSULE));
    return true;
}

bool readFlag(PyObject* given, bool& flag) {
    const int isTrue = given == nullptr ? 0 : PyObject_IsTrue(given);
    flag = isTrue > 0;
    return isTrue >= 0;
}

bool readReading(const Arguments& arguments, bool isText, ReadOptions& options) {
    const bool isRead = readFlag(arguments[Name::AS_BARCODE], options.asBarcode) &&
                        readFlag(arguments[Name::STRICT], options.strict) &&
                        readGcpLength(arguments[Name::GCP_LENGTH], options) &&
                        readBank(arguments[Name::BANK], options.bank) &&
                        readSeparator(arguments[Name::SEPARATOR], options.separator);
    options.isHex = !isText;
    return isRead;
}

bool readText(PyObject* given, const char* name, Value& value) {
    return PyUnicode_Check(given) != 0 ? value.read(given) : raiseType(name, "a str", given);
}

bool readScheme(PyObject* given, const SchemeInfo*& scheme) {
    if (!isThere(given)) {
        return true;
    }
    if (!PyUnicode_Check(given)) {
        return raiseType("scheme", "a str or None", given);
    }
    Py_ssize_t size = 0;
    const char* const name = PyUnicode_AsUTF8AndSize(given, &size);
    if (name == nullptr) {
        return false;
    }
    scheme = schemeByName({name, static_cast<std::size_t>(size)});
    if (scheme == nullptr) {
        PyErr_Format(PyExc_ValueError, "there is no scheme %R; rosetag.schemes() lists all", given);
    }
    return scheme != nullptr;
}

bool readEncoding(PyObject* given, int& encoding) {
    if (given == nullptr) {
        return true;
    }
    std::vector<std::string_view> words = {"auto"};
    words.insert(words.end(), encodingWords().begin(), encodingWords().end());
    int place = 0;
    const bool isRead = readWord(given, "encoding", words, place);
    encoding = place == 0 ? AI_ENC_AUTO : place - 1;
    return isRead;
}

Form readForm(PyObject* given) {
    if (!PyUnicode_Check(given)) {
        raiseType("to", "a str", given);
        return Form::UNKNOWN;
    }
    const std::size_t place = indexOf(internedForms, given);
    if (place < std::size(textForms)) {
        return textForms[place];
    }
    std::string all;
    for (const Form form : textForms) {
        all += (all.empty() ? "" : ", ") + std::string(formWord(form));
    }
    PyErr_Format(PyExc_ValueError, "there is no form %R; there are %s", given, all.c_str());
    return Form::UNKNOWN;
}

} // namespace rosetag::python
