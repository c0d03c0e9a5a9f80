/*
 * What JavaScript calls: the toolkit's functions on single values and on many, with arguments and
 * results in memory that both sides see. Values go into the input, results come out of the result;
 * each stays in place until the next call that writes it.
 */
#include "face.h"

#include <bit>
#include <cstring>

using namespace rosetag;

namespace rosetag::js {

Face& face() {
    static Face only;
    return only;
}

void give(std::string_view text) {
    face().result = {text.data(), text.size()};
}

void beginJson() {
    face().json.clear();
}

void giveJson() {
    give(face().json);
}

std::string_view valueOf(std::size_t length) {
    return {face().input.data(), length};
}

ReadOptions readOptions(std::uint32_t flags, int gcpLength) {
    ReadOptions options;
    options.asBarcode = (flags & AS_BARCODE) != 0;
    options.strict = (flags & STRICT) != 0;
    if (gcpLength != NOT_GIVEN) {
        options.gcpLength = gcpLength;
    }
    return options;
}

} // namespace rosetag::js

using namespace rosetag::js;

/*
 * ---- Memory ----
 */

// Where values go in; what was there before is lost when it has to grow.
ROSETAG_JS(rosetag_input) char* rosetag_input(std::size_t bytes) {
    std::string& input = face().input;
    if (bytes > input.size()) {
        input.clear();
        input.resize(bytes);
    }
    return input.data();
}

ROSETAG_JS(rosetag_inputSize) std::size_t rosetag_inputSize() {
    return face().input.size();
}

// Where the address and the length of a result stand.
ROSETAG_JS(rosetag_result) const Result* rosetag_result() {
    return &face().result;
}

ROSETAG_JS(rosetag_largestValue) std::size_t rosetag_largestValue() {
    return MAX_VALUE_LENGTH;
}

/*
 * ---- Single values: each gives a status ----
 */

ROSETAG_JS(rosetag_convert)
EpcStatus rosetag_convert(std::size_t length, int form, std::uint32_t flags, int gcpLength) {
    Translation& item = face().item;
    give(convert(valueOf(length), readOptions(flags, gcpLength), static_cast<Form>(form), item));
    return item.failure.status;
}

ROSETAG_JS(rosetag_decode)
EpcStatus rosetag_decode(std::size_t length, std::uint32_t flags, int gcpLength) {
    Translation& item = face().item;
    translate(valueOf(length), readOptions(flags, gcpLength), ALL_FORMS, item);
    beginJson();
    appendJson(face().json, item, {});
    giveJson();
    return item.failure.status;
}

ROSETAG_JS(rosetag_encode)
EpcStatus rosetag_encode(std::size_t length, int scheme, int filter, int gcpLength, int encoding,
                         std::uint32_t flags) {
    Translation& item = face().item;
    EncodeOptions options;
    options.read = readOptions(flags, gcpLength);
    options.scheme = scheme == NOT_GIVEN ? nullptr : &schemes()[static_cast<std::size_t>(scheme)];
    if (filter != NOT_GIVEN) {
        options.filter = filter;
    }
    options.encoding = encoding;
    encode(valueOf(length), options, Form::HEX, item);
    give(item.hex);
    return item.failure.status;
}

ROSETAG_JS(rosetag_tid) EpcStatus rosetag_tid(std::size_t length) {
    Tid result;
    tid(valueOf(length), result);
    beginJson();
    appendJson(face().json, result, {});
    giveJson();
    face().item.failure = result.failure;
    return result.failure.status;
}

// The failure of the last call as a sentence.
ROSETAG_JS(rosetag_failureText) void rosetag_failureText() {
    beginJson();
    face().json = failureText(face().item.failure);
    giveJson();
}

// The same for programs, as members of an object.
ROSETAG_JS(rosetag_failure) void rosetag_failure() {
    beginJson();
    appendJson(face().json, face().item, {});
    giveJson();
}

/*
 * ---- Many values ----
 */

namespace {

std::uint32_t numberAt(const char* place) {
    std::uint32_t number = 0;
    std::memcpy(&number, place, sizeof number);
    return number;
}

void finish(Column& column, std::string_view text) {
    column.texts += text;
    column.ends.push_back(static_cast<std::uint32_t>(column.texts.size()));
}

// One form of each row, without its scheme and filter, which is quicker.
Row convertRow(std::string_view value, const ReadOptions& options, Form form) {
    Translation& item = face().item;
    finish(face().columns[static_cast<std::size_t>(form)], convert(value, options, form, item));
    return {static_cast<std::uint8_t>(item.failure.status), NOT_GIVEN, NOT_GIVEN};
}

Row translateRow(std::string_view value, const ReadOptions& options, FormSet wanted) {
    Face& all = face();
    translate(value, options, wanted, all.item);
    const bool isGood = !isFailure(all.item.failure);
    for (std::size_t form = 0; form < all.columns.size(); ++form) {
        if (wanted.has(static_cast<Form>(form))) {
            finish(all.columns[form],
                   isGood ? formText(all.item, static_cast<Form>(form)) : std::string_view());
        }
    }
    const bool hasScheme = isGood && all.item.scheme != nullptr;
    const int filter = isGood ? all.item.filter.value_or(NOT_GIVEN) : NOT_GIVEN;
    return {static_cast<std::uint8_t>(all.item.failure.status),
            static_cast<std::int8_t>(hasScheme ? all.item.scheme->scheme : NOT_GIVEN),
            static_cast<std::int8_t>(filter)};
}

} // namespace

// The input holds the texts of the rows one after the other, then, from a multiple of four on,
// where each ends, as 32-bit numbers. details: schemes and filters are wanted too.
ROSETAG_JS(rosetag_decodeMany)
void rosetag_decodeMany(std::size_t rows, std::size_t textLength, std::uint32_t forms, int details,
                        std::uint32_t flags, int gcpLength) {
    Face& all = face();
    const char* const text = all.input.data();
    const char* const ends = text + (textLength + 3) / 4 * 4;
    const ReadOptions options = readOptions(flags, gcpLength);
    FormSet wanted;
    for (std::size_t form = 0; form < all.columns.size(); ++form) {
        all.columns[form].texts.clear();
        all.columns[form].ends.clear();
        wanted = (forms >> form & 1U) != 0 ? wanted | static_cast<Form>(form) : wanted;
    }
    const auto only = static_cast<Form>(std::countr_zero(forms));
    const bool isOne = std::has_single_bit(forms) && details == 0;
    all.rows.clear();
    std::uint32_t first = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        const std::uint32_t end = numberAt(ends + 4 * row);
        const std::string_view value(text + first, end - first);
        all.rows.push_back(isOne ? convertRow(value, options, only)
                                 : translateRow(value, options, wanted));
        first = end;
    }
}

// The rows: three bytes each, status, scheme and filter.
ROSETAG_JS(rosetag_rows) const Row* rosetag_rows() {
    return face().rows.data();
}

// The texts of a form, one after the other, as the result; returns where each ends.
ROSETAG_JS(rosetag_column) const std::uint32_t* rosetag_column(std::size_t form) {
    const Column& column = face().columns[form];
    give(column.texts);
    return column.ends.data();
}

/*
 * ---- Names ----
 */

namespace {

void putKey(std::string& json, std::string_view key) {
    json += json.back() == '{' || json.back() == '[' ? "" : ",";
    if (!key.empty()) {
        json += '"';
        json += key;
        json += "\":";
    }
}

// Names need no escapes.
void putText(std::string& json, std::string_view key, std::string_view text) {
    putKey(json, key);
    json += '"';
    json += text;
    json += '"';
}

void putNumber(std::string& json, std::string_view key, int number) {
    putKey(json, key);
    json += std::to_string(number);
}

void putBool(std::string& json, std::string_view key, bool value) {
    putKey(json, key);
    json += value ? "true" : "false";
}

void putScheme(std::string& json, const SchemeInfo& scheme) {
    putKey(json, {});
    json += '{';
    putText(json, "name", scheme.name);
    putText(json, "family", scheme.family);
    putText(json, "thing", scheme.thing);
    putNumber(json, "header", scheme.header);
    putNumber(json, "filterLimit", scheme.filterLimit);
    putKey(json, "filters");
    json += '[';
    for (const FilterWord& row : filterWords(scheme)) {
        putKey(json, {});
        json += '{';
        putNumber(json, "filter", row.filter);
        putText(json, "word", row.word);
        putText(json, "name", row.name);
        json += '}';
    }
    json += ']';
    putBool(json, "hasUris", scheme.hasUris);
    putBool(json, "hasGs1Texts", scheme.hasGs1Texts);
    putBool(json, "isPlus", scheme.isPlus);
    json += '}';
}

// Those that a value can be given as.
constexpr FormSet givenForms = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY |
                               Form::ELEMENT_STRING | Form::BARCODE_STRING | Form::DIGITAL_LINK |
                               Form::GTIN | Form::TID | Form::UNKNOWN;

void putForms(std::string& json, std::string_view key, FormSet forms) {
    putKey(json, key);
    json += '[';
    for (int form = 0; form <= static_cast<int>(Form::UNKNOWN); ++form) {
        if (forms.has(static_cast<Form>(form))) {
            putText(json, {}, formWord(static_cast<Form>(form)));
        }
    }
    json += ']';
}

} // namespace

// Everything that has a name and a number, as an object; an element's place is its number.
ROSETAG_JS(rosetag_names) void rosetag_names() {
    beginJson();
    std::string& json = face().json;
    json += '{';
    putText(json, "version", version());
    putForms(json, "forms", ALL_FORMS | Form::FINDINGS | givenForms);
    putForms(json, "texts", ALL_FORMS.without(Form::AIS | Form::FITS_SCHEMES));
    putForms(json, "given", givenForms);
    putKey(json, "statuses");
    json += '[';
    const std::string_view none = epc_statusName(-1);
    for (EpcStatus status = EPC_OK; epc_statusName(status) != none; ++status) {
        putText(json, {}, epc_statusName(status));
    }
    json += ']';
    putKey(json, "encodings");
    json += '[';
    for (const std::string_view word : encodingWords()) {
        putText(json, {}, word);
    }
    json += ']';
    putKey(json, "notes");
    json += '[';
    for (int kind = 0; kind <= static_cast<int>(NoteKind::ODD_LENGTH); ++kind) {
        putText(json, {}, noteWord(static_cast<NoteKind>(kind)));
    }
    json += ']';
    putKey(json, "schemes");
    json += '[';
    for (const SchemeInfo& scheme : schemes()) {
        putScheme(json, scheme);
    }
    json += "]}";
    giveJson();
}
