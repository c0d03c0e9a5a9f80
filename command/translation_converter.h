/*
 * decode and encode: the forms of a value, as chosen fields, as JSON, or for a person.
 */
#ifndef ROSETAG_COMMAND_TRANSLATION_CONVERTER_H
#define ROSETAG_COMMAND_TRANSLATION_CONVERTER_H

#include "converter.h"
#include "fields.h"
#include "table.h"
#include "template.h"

namespace rosetag {

enum class Writing { FIELDS, JSON, HUMAN };

// The words of the options of encode, which may name columns of a table.
struct EncodeWords {
    Template scheme;
    Template filter;
    Template gcpLength;
};

struct TranslationSettings {
    bool isEncode = false;
    EncodeOptions options; // options.read is that of decode too
    Writing writing = Writing::FIELDS;
    std::vector<const Field*> fields;
    const Field* required = nullptr; // a value without this form has failed
    FormSet wanted;
    bool isRaw = false;
    bool hasStatus = true;    // the status of a line that failed follows its result
    bool hasHeader = false;   // every line has a status then
    bool hasSentence = false; // a sentence says what the value is
    Template text;            // makes the value from a row; empty: its first cell
    EncodeWords words;
    bool hasWordsOfRows = false; // words hold columns
};

// Sets the options from words without columns. Says what is wrong with them; empty if nothing is.
std::string encodeOptionsOf(const EncodeWords& words, std::span<const std::string> cells,
                            EncodeOptions& options);

// The columns that are added to a table.
std::vector<AddedColumn> addedColumns(const TranslationSettings& settings);

// settings must outlive the converter.
std::unique_ptr<Converter> translationConverter(const TranslationSettings& settings);

} // namespace rosetag

#endif
