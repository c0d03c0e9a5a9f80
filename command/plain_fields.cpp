#include "plain_fields.h"

#include "csv_cells.h"

#include "translate/translate.h"

#include <algorithm>

namespace rosetag {

namespace {

// The most characters of a field without a form, the value apart.
constexpr std::size_t longestField = 255;

// Writes a form of the bits. False if they do not have it, or if it holds what cells cannot: of a
// scheme of digits it may be the separator of a barcode string.
bool writeForm(const PlainField& plain, const TagBits& tag, bool isOfDigits, char*& out) {
    TextBuffer text = textBufferOver(out, TAG_FORM_ROOM);
    if (!tagFormWrite(tag, plain.write, text)) {
        return false;
    }
    const bool isPlain =
        !plain.field->holdsGivenText || (isOfDigits && plain.field->text != Form::BARCODE_STRING);
    if (!isPlain && !isPlainCell(textBufferView(text))) {
        return false;
    }
    out = text.begin == out ? text.writePointer : std::copy(text.begin, text.writePointer, out);
    return true;
}

// Scheme and filter, which most lists of fields have, need no string in between.
bool writeField(const PlainField& plain, const Item& item, std::string& scratch, char*& out) {
    const Translation& tag = item.translation;
    if (plain.isScheme) {
        out = std::copy(tag.scheme->name.begin(), tag.scheme->name.end(), out);
        return true;
    }
    if (plain.isFilter && tag.filter.value_or(10) < 10) {
        *out++ = static_cast<char>('0' + *tag.filter);
        return true;
    }
    scratch.clear();
    plain.field->append(scratch, item);
    if (scratch.size() > longestField) {
        return false;
    }
    out = std::copy(scratch.begin(), scratch.end(), out);
    return true;
}

// There is nothing to tell about a plain tag value.
void clear(Translation& translation) {
    if (isFailure(translation.failure)) {
        failureClear(translation.failure);
    }
    translation.notes.clear();
    translation.findings.clear();
    translation.form = Form::HEX;
}

} // namespace

PlainFields plainFieldsOf(std::span<const Field* const> fields, std::string lineEnd) {
    PlainFields plain;
    bool hasForm = false; // which shows that the bits can be read
    for (const Field* field : fields) {
        const TagFormWriter write = tagFormWriterOf(field->text);
        if (write == nullptr && field->needs != FormSet()) {
            return {};
        }
        hasForm = hasForm || write != nullptr;
        plain.fields.push_back({field, write, field->name == "scheme", field->name == "filter", 0});
    }
    static_assert(longestField < TAG_FORM_ROOM);
    plain.text.resize(fields.size() * (TAG_FORM_ROOM + 1) + lineEnd.size());
    plain.lineEnd = std::move(lineEnd);
    return hasForm ? plain : PlainFields();
}

bool plainFieldsWrite(PlainFields& plain, const ReadOptions& options, Item& item) {
    TagBits tag;
    plain.isWritten = false;
    if (!plainTagRead(item.value, options, tag)) {
        return false;
    }
    clear(item.translation);
    describeTag(tag, item.translation);
    const bool isOfDigits = isNumericScheme(*item.translation.scheme);
    char* const begin = plain.text.data();
    char* out = begin;
    for (PlainField& field : plain.fields) {
        if (!(field.write == nullptr ? writeField(field, item, plain.scratch, out)
                                     : writeForm(field, tag, isOfDigits, out))) {
            return false;
        }
        field.end = static_cast<std::size_t>(out - begin);
        *out++ = '\t';
    }
    // The end of the line begins with what ends the last field.
    out = std::copy(plain.lineEnd.begin(), plain.lineEnd.end(), out - 1);
    plain.size = static_cast<std::size_t>(out - begin);
    plain.isWritten = true;
    return true;
}

std::string_view plainField(const PlainFields& plain, std::size_t index) {
    const std::size_t begin = index == 0 ? 0 : plain.fields[index - 1].end + 1;
    return {plain.text.data() + begin, plain.fields[index].end - begin};
}

} // namespace rosetag
