/*
 * The fields of plain tag values, all written from the bits at once. Whatever is unusual about a
 * value is left to a translation.
 */
#ifndef ROSETAG_COMMAND_PLAIN_FIELDS_H
#define ROSETAG_COMMAND_PLAIN_FIELDS_H

#include "fields.h"

#include "translate/tag_form_writers.h"

#include <vector>

namespace rosetag {

struct PlainField {
    const Field* field;
    TagFormWriter write; // of the form that the field is; null: the field does it itself
    bool isScheme;
    bool isFilter;
    std::size_t end; // in the text
};

struct PlainFields {
    std::vector<PlainField> fields; // none: these fields are not written from bits
    std::string lineEnd;
    std::vector<char> text; // the fields with a tab between them, and the end of the line
    std::size_t size = 0;
    std::string scratch;
    bool isWritten = false;
};

PlainFields plainFieldsOf(std::span<const Field* const> fields, std::string lineEnd);

// Writes all fields. False if the value is not a plain tag value or a field takes more than its
// bits; item.translation must then be made. Otherwise item.translation has only what fields
// without a form are made of.
bool plainFieldsWrite(PlainFields& plain, const ReadOptions& options, Item& item);

// What was written last: all of it with the end of the line, and one field of it.
inline std::string_view plainFieldsLine(const PlainFields& plain) {
    return {plain.text.data(), plain.size};
}
std::string_view plainField(const PlainFields& plain, std::size_t index);

} // namespace rosetag

#endif
