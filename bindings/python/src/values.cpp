/*
 * The functions on single values. What they give is plain: texts, tuples and dictionaries, of which
 * the package makes its classes.
 */
#include "arguments.h"
#include "functions.h"

#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <memory>

namespace rosetag::python {
namespace {

// The class that failures are raised as; it comes from the package.
PyObject* errorClass = nullptr;

// Characters before a position that counts bytes.
Py_ssize_t charactersBefore(std::string_view text, std::size_t position) {
    const std::string_view before = text.substr(0, position);
    return std::count_if(before.begin(), before.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    });
}

struct Span {
    Py_ssize_t first;
    Py_ssize_t length;
};

Span spanOf(const Value& value, std::size_t position, std::size_t length) {
    if (!value.isText) {
        return {static_cast<Py_ssize_t>(position), static_cast<Py_ssize_t>(length)};
    }
    const Py_ssize_t first = charactersBefore(value.text, position);
    return {first, charactersBefore(value.text, position + length) - first};
}

// Hex as text that was given as bytes, by a reader for example.
bool isTextInBytes(const Value& value) {
    constexpr std::size_t shortest = 16;
    const auto isCharacterOfHex = [&](std::size_t at) {
        const std::string_view byte = value.text.substr(at, 2);
        return (byte >= "30" && byte <= "39") || (byte >= "41" && byte <= "46") ||
               (byte >= "61" && byte <= "66");
    };
    bool isText = !value.isText && value.text.size() >= 2 * shortest;
    for (std::size_t at = 0; isText && at < value.text.size(); at += 2) {
        isText = isCharacterOfHex(at);
    }
    return isText;
}

PyObject* raise(const Failure& given, const Value& value) {
    Failure failure = given;
    if (isTextInBytes(value)) {
        failure.remedy = "these bytes are text, and bytes are taken for the bits of a tag: give "
                         "value.decode()";
    }
    const Span place = spanOf(value, failure.position, failure.length);
    const Ref arguments(tupleOf(failureText(failure), static_cast<int>(failure.status),
                                Py_NewRef(value.object), place.first, place.length, failure.culprit,
                                failure.message, failure.remedy));
    const Ref error(arguments ? PyObject_CallObject(errorClass, arguments.get()) : nullptr);
    if (error) {
        PyErr_SetObject(errorClass, error.get());
    }
    return nullptr;
}

constexpr Signature readingSignature(const char* function) {
    return {function, 1, 1, {Name::VALUE}, READING_OPTIONS};
}

// A value and how it is to be read: all that decode, check and explain take.
struct ValueCall {
    Value value;
    ReadOptions options;

    bool read(const char* function, PyObject* const* positional, Py_ssize_t count,
              PyObject* names) {
        Arguments arguments;
        return readArguments(readingSignature(function), positional, count, names, arguments) &&
               value.read(arguments[Name::VALUE]) && readReading(arguments, value.isText, options);
    }
};

// Keeps its memory from call to call.
Translation& workTranslation() {
    static thread_local Translation item;
    return item;
}

PyObject* notesOf(const rosetag::Rows<Note>& notes) {
    return tupleOfEach(notes, [](const Note& note) {
        return tupleOf(noteWord(note.kind), severityWord(note.severity), note.text);
    });
}

PyObject* aiOf(const AiValue& ai) {
    return tupleOf(ai.ai, ai.value, ai.title);
}

std::string_view schemeNameOf(const SchemeInfo* scheme) {
    return scheme == nullptr ? std::string_view() : scheme->name;
}

PyObject* decode(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    ValueCall call;
    if (!call.read("decode", positional, count, names)) {
        return nullptr;
    }
    Translation& item = workTranslation();
    translate(call.value.text, call.options, ALL_FORMS, item);
    if (isFailure(item.failure)) {
        return raise(item.failure, call.value);
    }
    return Dictionary()
        .put("value", Py_NewRef(call.value.object))
        .put("form", formWord(item.form))
        .put("scheme", textOrNone(schemeNameOf(item.scheme)))
        .put("filter", item.filter)
        .put("bits", item.bits == 0 ? std::nullopt : std::optional<int>(item.bits))
        .put("tag_uri", textOrNone(item.tagUri))
        .put("pure_identity", textOrNone(item.pureIdentity))
        .put("element_string", textOrNone(item.elementString))
        .put("barcode_string", textOrNone(item.barcodeString))
        .put("digital_link", textOrNone(item.digitalLink))
        .put("hex", textOrNone(item.hex))
        .put("gtin", textOrNone(item.gtin))
        .put("serial", textOrNone(item.serial))
        .put("ais", tupleOfEach(item.ais, aiOf))
        .put("fits_schemes",
             tupleOfEach(item.fitsSchemes,
                         [](const SchemeInfo* scheme) { return toPython(scheme->name); }))
        .put("notes", notesOf(item.notes))
        .release();
}

PyDoc_STRVAR(convertDoc,
             "convert(value, to, *, as_barcode=False, strict=False, gcp_length=None, "
             "bank='auto', separator=None)\n--\n\n"
             R"(Gives one form of a value, None where the value does not have it. The quickest.

Args:
    value: a text in any form, or the bits of a tag as bytes or 16-bit words.
    to: "hex", "tag_uri", "pure_identity", "element_string", "barcode_string",
        "digital_link", "gtin" or "serial".
    as_barcode, strict, gcp_length, bank, separator: as for decode.

Raises:
    RosetagError: the value cannot be read; the error says where and why.

>>> import rosetag
>>> rosetag.convert("3074257BF7194E4000001A85", to="digital_link")
'/01/80614141123458/21/6789'
)");

PyObject* convert(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = {"convert", 2, 2, {Name::VALUE, Name::TO}, READING_OPTIONS};
    Arguments arguments;
    Value value;
    ReadOptions options;
    if (!readArguments(signature, positional, count, names, arguments) ||
        !value.read(arguments[Name::VALUE]) || !readReading(arguments, value.isText, options)) {
        return nullptr;
    }
    const Form form = readForm(arguments[Name::TO]);
    if (form == Form::UNKNOWN) {
        return nullptr;
    }
    Translation& item = workTranslation();
    const std::string_view text = rosetag::convert(value.text, options, form, item);
    return isFailure(item.failure) ? raise(item.failure, value) : textOrNone(text);
}

// The bytes of hexadecimal digits; an odd last digit is the high half of its byte.
PyObject* bytesOf(std::string hex) {
    hex += hex.size() % 2 == 0 ? "" : "0";
    const Ref text(toPython(hex));
    return text ? PyObject_CallMethod(reinterpret_cast<PyObject*>(&PyBytes_Type), "fromhex", "O",
                                      text.get())
                : nullptr;
}

// False, with an error set, for what is neither hex nor bytes.
bool readEncodedType(PyObject* given, bool& asBytes) {
    asBytes = given != nullptr && PyUnicode_Check(given) != 0 &&
              PyUnicode_CompareWithASCIIString(given, "bytes") == 0;
    const bool isHex = given == nullptr || (PyUnicode_Check(given) != 0 &&
                                            PyUnicode_CompareWithASCIIString(given, "hex") == 0);
    if (!asBytes && !isHex) {
        PyErr_Format(PyExc_ValueError, "to must be 'hex' or 'bytes', not %R", given);
    }
    return asBytes || isHex;
}

PyDoc_STRVAR(encodeDoc,
             "encode(text, scheme=None, *, filter=None, gcp_length=None, encoding='auto', "
             "to='hex', as_barcode=False, strict=False, bank='auto', separator=None)\n--\n\n"
             R"(Makes the bits of a tag.

Args:
    text: a value in any form.
    scheme: the tag scheme, "sgtin-96" for example; a tag value may keep its own.
    filter: the filter value; None for that of a tag value, otherwise 0.
    gcp_length: digits of the GS1 company prefix, 6 to 12, or a GcpLengths; the plain schemes need
        it for GS1 texts.
    encoding: how texts are encoded in the bits of a plus scheme: "auto", "integer", "hex-upper",
        "hex-lower", "base64url", "iso646" or "code40".
    to: "hex" for upper-case digits, "bytes" for bytes.
    as_barcode, strict, bank, separator: as for decode.

Raises:
    RosetagError: the value cannot be encoded so.

>>> import rosetag
>>> rosetag.encode("(01)80614141123458(21)6789", "sgtin-96", filter=3, gcp_length=7)
'3074257BF7194E4000001A85'
)");

PyObject* encode(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = {"encode",
                                     1,
                                     2,
                                     {Name::TEXT, Name::SCHEME},
                                     READING_OPTIONS |
                                         bitsOf({Name::FILTER, Name::ENCODING, Name::TO})};
    Arguments arguments;
    Value value;
    EncodeOptions options;
    bool asBytes = false;
    if (!readArguments(signature, positional, count, names, arguments) ||
        !value.read(arguments[Name::TEXT]) || !readReading(arguments, value.isText, options.read) ||
        !readScheme(arguments[Name::SCHEME], options.scheme) ||
        !readNumber(arguments[Name::FILTER], "filter", options.filter) ||
        !readEncoding(arguments[Name::ENCODING], options.encoding) ||
        !readEncodedType(arguments[Name::TO], asBytes)) {
        return nullptr;
    }
    Translation& item = workTranslation();
    rosetag::encode(value.text, options, Form::HEX, item);
    if (isFailure(item.failure)) {
        return raise(item.failure, value);
    }
    return asBytes ? bytesOf(item.hex) : toPython(item.hex);
}

PyObject* explain(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    ValueCall call;
    if (!call.read("explain", positional, count, names)) {
        return nullptr;
    }
    const Explanation explanation = rosetag::explain(call.value.text, call.options);
    // What broke in a field is part of an explanation; what has no fields at all is not one.
    if (isFailure(explanation.failure) && explanation.fields.empty()) {
        return raise(explanation.failure, call.value);
    }
    const auto fieldOf = [&explanation](const ExplainedField& field) {
        const std::string_view bits = explanation.bits;
        return tupleOf(field.first, field.width, field.name, bits.substr(field.first, field.width),
                       field.meaning, field.value, field.ai, field.isGood);
    };
    return Dictionary()
        .put("value", Py_NewRef(call.value.object))
        .put("form", formWord(explanation.form))
        .put("scheme", textOrNone(schemeNameOf(explanation.scheme)))
        .put("hex", explanation.hex)
        .put("bits", explanation.bits)
        .put("failure", isFailure(explanation.failure) ? toPython(failureText(explanation.failure))
                                                       : Py_NewRef(Py_None))
        .put("fields", tupleOfEach(explanation.fields, fieldOf))
        .put("notes", notesOf(explanation.notes))
        .release();
}

PyObject* check(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    ValueCall call;
    if (!call.read("check", positional, count, names)) {
        return nullptr;
    }
    const auto findings = rosetag::check(call.value.text, call.options);
    return tupleOfEach(findings, [&call](const Finding& finding) {
        const Span place = spanOf(call.value, finding.position, finding.length);
        return tupleOf(severityWord(finding.severity), checkRuleWord(finding.rule), finding.ai,
                       place.first, place.length, finding.culprit, finding.message);
    });
}

// As JSON: a TID has many details.
PyObject* tid(PyObject*, PyObject* given) {
    Value value;
    if (!value.read(given)) {
        return nullptr;
    }
    const Tid memory = rosetag::tid(value.text);
    return isFailure(memory.failure) ? raise(memory.failure, value)
                                     : toPython(toJson(memory, value.text));
}

PyObject* encodeAi(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = {
        "encode_ai", 2, 2, {Name::AI, Name::VALUE}, bitsOf({Name::WITH_CODE, Name::ENCODING})};
    Arguments arguments;
    Value code;
    Value value;
    bool withCode = false;
    int encoding = AI_ENC_AUTO;
    if (!readArguments(signature, positional, count, names, arguments) ||
        !readText(arguments[Name::AI], "ai", code) ||
        !readText(arguments[Name::VALUE], "value", value) ||
        !readFlag(arguments[Name::WITH_CODE], withCode) ||
        !readEncoding(arguments[Name::ENCODING], encoding)) {
        return nullptr;
    }
    const AiTranslation item = rosetag::encodeAi(code.text, value.text, withCode, encoding);
    return isFailure(item.failure) ? raise(item.failure, value) : tupleOf(item.hex, item.bits);
}

PyObject* decodeAi(PyObject*, PyObject* const* positional, Py_ssize_t count, PyObject* names) {
    constexpr Signature signature = {"decode_ai", 2, 2, {Name::BITS, Name::AI}, 0};
    Arguments arguments;
    Value bits;
    Value code;
    if (!readArguments(signature, positional, count, names, arguments) ||
        !bits.read(arguments[Name::BITS]) || !readText(arguments[Name::AI], "ai", code)) {
        return nullptr;
    }
    const AiTranslation item = rosetag::decodeAi(bits.text, code.text);
    return isFailure(item.failure) ? raise(item.failure, bits) : aiOf(item.ai);
}

PyObject* schemes(PyObject*, PyObject*) {
    return tupleOfEach(rosetag::schemes(), [](const SchemeInfo& scheme) {
        return tupleOf(scheme.name, scheme.family, scheme.header, scheme.filterLimit,
                       scheme.hasUris, scheme.hasGs1Texts, scheme.isPlus);
    });
}

void releaseGcpList(PyObject* capsule) {
    delete static_cast<GcpList*>(PyCapsule_GetPointer(capsule, GCP_LIST_CAPSULE));
}

// Adds the entries, pairs of a prefix and a length as texts. False: an error is set.
bool addEntries(GcpList& list, PyObject* entries) {
    const Ref all(PySequence_List(entries));
    for (Py_ssize_t i = 0; all && i < PyList_Size(all.get()); ++i) {
        const char* prefix = nullptr;
        const char* length = nullptr;
        if (PyArg_ParseTuple(PyList_GetItem(all.get(), i), "ss", &prefix, &length) == 0) {
            return false;
        }
        if (const std::string fault = gcpListAdd(list, prefix, length); !fault.empty()) {
            PyErr_SetString(PyExc_ValueError, fault.c_str());
            return false;
        }
    }
    return static_cast<bool>(all);
}

// A capsule of the list of these entries.
PyObject* gcpList(PyObject*, PyObject* arguments) {
    const char* date = nullptr;
    PyObject* entries = nullptr;
    if (PyArg_ParseTuple(arguments, "sO", &date, &entries) == 0) {
        return nullptr;
    }
    auto list = std::make_unique<GcpList>();
    list->date = date;
    if (!addEntries(*list, entries)) {
        return nullptr;
    }
    if (const std::string prefix = gcpListFinish(*list); !prefix.empty()) {
        PyErr_Format(PyExc_ValueError, "prefix %s has two lengths", prefix.c_str());
        return nullptr;
    }
    PyObject* const capsule = PyCapsule_New(list.get(), GCP_LIST_CAPSULE, releaseGcpList);
    if (capsule != nullptr) {
        static_cast<void>(list.release());
    }
    return capsule;
}

PyObject* version(PyObject*, PyObject*) {
    return toPython(rosetag::version());
}

// The name of a status, or None.
PyObject* statusName(PyObject*, PyObject* given) {
    const long status = PyLong_AsLong(given);
    if (status == -1 && PyErr_Occurred() != nullptr) {
        return nullptr;
    }
    return status < EPC_OK || status > EPC_ERR_BAD_TID
               ? Py_NewRef(Py_None)
               : toPython(std::string_view(epc_statusName(static_cast<EpcStatus>(status))));
}

PyObject* setErrorClass(PyObject*, PyObject* given) {
    const Ref before(std::exchange(errorClass, Py_NewRef(given)));
    return Py_NewRef(Py_None);
}

} // namespace

PyMethodDef valueFunctions[] = {
    {"decode", asFunction(decode), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"convert", asFunction(convert), METH_FASTCALL | METH_KEYWORDS, convertDoc},
    {"encode", asFunction(encode), METH_FASTCALL | METH_KEYWORDS, encodeDoc},
    {"explain", asFunction(explain), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"check", asFunction(check), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"tid", tid, METH_O, nullptr},
    {"encode_ai", asFunction(encodeAi), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"decode_ai", asFunction(decodeAi), METH_FASTCALL | METH_KEYWORDS, nullptr},
    {"schemes", schemes, METH_NOARGS, nullptr},
    {"gcp_list", gcpList, METH_VARARGS, nullptr},
    {"version", version, METH_NOARGS, nullptr},
    {"status_name", statusName, METH_O, nullptr},
    {"set_error_class", setErrorClass, METH_O, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace rosetag::python
