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
    face().result = {text.data(), text.size(), nullptr};
}

std::string& beginText() {
    face().text.clear();
    return face().text;
}

void giveText() {
    give(face().text);
}

void recordBegin() {
    face().text.clear();
    face().numbers.clear();
}

void recordNumber(std::size_t number) {
    face().numbers.push_back(static_cast<std::int32_t>(number));
}

void recordText(std::string_view text) {
    face().text += text;
    recordNumber(face().text.size());
}

void recordGive() {
    give(face().text);
    face().result.numbers = face().numbers.data();
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

// Where the address and the length of a result are.
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

namespace {

void recordNotes(const Rows<Note>& notes) {
    recordNumber(notes.size());
    for (const Note& note : notes) {
        recordNumber(static_cast<std::size_t>(note.kind));
        recordText(severityWord(note.severity));
        recordText(note.text);
        recordNumber(note.position);
        recordNumber(note.length);
        recordText(note.option);
    }
}

void recordItem(const Translation& item) {
    recordNumber(static_cast<std::size_t>(item.form));
    recordNumber(
        static_cast<std::size_t>(item.scheme == nullptr ? NOT_GIVEN : item.scheme->scheme));
    recordNumber(static_cast<std::size_t>(item.filter.value_or(NOT_GIVEN)));
    recordNumber(static_cast<std::size_t>(item.bits));
    for (const std::string* text :
         {&item.hex, &item.tagUri, &item.pureIdentity, &item.elementString, &item.barcodeString,
          &item.digitalLink, &item.gtin, &item.serial}) {
        recordText(*text);
    }
    recordNumber(item.ais.size());
    for (const AiValue& ai : item.ais) {
        recordText(ai.ai);
        recordText(ai.value);
    }
    recordNumber(item.fitsSchemes.size());
    for (const SchemeInfo* scheme : item.fitsSchemes) {
        recordNumber(static_cast<std::size_t>(scheme->scheme));
    }
    recordNotes(item.notes);
}

} // namespace

// The result is a record, in the order of recordItem.
ROSETAG_JS(rosetag_decode)
EpcStatus rosetag_decode(std::size_t length, std::uint32_t flags, int gcpLength) {
    Translation& item = face().item;
    translate(valueOf(length), readOptions(flags, gcpLength), ALL_FORMS, item);
    if (!isFailure(item.failure)) {
        recordBegin();
        recordItem(item);
        recordGive();
    }
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

// The failure of the last call: a record.
ROSETAG_JS(rosetag_failure) void rosetag_failure() {
    const Failure& failure = face().item.failure;
    recordBegin();
    recordNumber(static_cast<std::size_t>(failure.status));
    recordText(failureText(failure));
    recordText(failure.message);
    recordText(failure.remedy);
    recordNumber(failure.position);
    recordNumber(failure.length);
    recordText(failure.culprit);
    recordText(failure.option);
    recordGive();
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
    return {static_cast<std::uint8_t>(item.failure.status), NOT_GIVEN, NOT_GIVEN, 0};
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
            static_cast<std::int8_t>(filter), static_cast<std::uint8_t>(all.item.form)};
}

} // namespace

// The input holds where the text of each row ends, as 32-bit numbers, then the texts one after the
// other. details: schemes, filters and what each value is are wanted too.
ROSETAG_JS(rosetag_decodeMany)
void rosetag_decodeMany(std::size_t rows, std::uint32_t forms, int details, std::uint32_t flags,
                        int gcpLength) {
    Face& all = face();
    const char* const ends = all.input.data();
    const char* const text = ends + 4 * rows;
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

// The rows: four bytes each, laid out as Row.
ROSETAG_JS(rosetag_rows) const Row* rosetag_rows() {
    return face().rows.data();
}

// The texts of a form, back to back, as the result; returns where each ends.
ROSETAG_JS(rosetag_column) const std::uint32_t* rosetag_column(std::size_t form) {
    const Column& column = face().columns[form];
    give(column.texts);
    return column.ends.data();
}
