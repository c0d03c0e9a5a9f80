/*
 * What is written of a converted value: chosen fields, or a JSON object.
 */
#ifndef ROSETAG_COMMAND_RESULTS_H
#define ROSETAG_COMMAND_RESULTS_H

#include "before/translate/forms.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

struct Result {
    std::string_view value;
    std::uint64_t line = 0; // of the input; 0 for an argument
    PreparedValue prepared;
    Forms forms;
    Failure failure;
};

// Converts the value of a result into the rest of it.
using Convert = std::function<void(Result&)>;

struct ResultField {
    std::string_view name;
    std::string (*text)(const Result& result);
    bool isForm;      // a form that a value may not have
    bool isOfEncode;  // encode can write it; decode can write all
    bool isOfFailure; // a result that failed has it
};

// Throws UsageError for a name that is none, or none of the command.
const ResultField& resultField(std::string_view name, bool ofEncode);

// A value that is asked for a form that it does not have has failed.
void requireForm(const ResultField& field, Result& result);

// All names, in the order of their table.
std::vector<std::string> resultFieldNames(bool ofEncode);

// The text of a field as one cell: separators of barcodes spelled unless raw.
std::string resultText(const ResultField& field, const Result& result, bool raw);

// True for the fields whose text is always a number.
bool resultIsNumber(std::string_view name);

// Appends cells with tabs between them.
void appendTsvRow(std::string& line, const std::vector<const ResultField*>& fields,
                  const Result& result, bool raw);

// One JSON object without a line end.
std::string resultJson(const Result& result);

} // namespace rosetag

#endif
