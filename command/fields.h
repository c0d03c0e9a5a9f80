/*
 * The fields that can be written of a value.
 */
#ifndef ROSETAG_COMMAND_FIELDS_H
#define ROSETAG_COMMAND_FIELDS_H

#include <rosetag/toolkit.hpp>

#include <span>
#include <string>
#include <string_view>

namespace rosetag {

inline constexpr char groupSeparator = '\x1d';

// What fields are made of.
struct Item {
    std::string_view value; // as it was given
    std::uint64_t line = 0; // of the input; 0 for an argument
    Translation translation;
};

// A field's name is its column name and, where JSON has it too, its key there.
struct Field {
    std::string_view name;
    void (*append)(std::string& text, const Item& item);
    FormSet needs;       // the forms that must have been asked for
    Form text;           // the form whose text it is, UNKNOWN if it is made otherwise
    bool isForm;         // a form that a value may not have
    bool isOfFailure;    // a value that failed has it
    bool isNumber;       // its text is always a number
    bool holdsGivenText; // may hold any character
};

std::span<const Field> fields();

// The field of that name, in which "-" is taken for "_"; null for none.
const Field* fieldByName(std::string_view given);

// Spells the separators of barcode strings {GS}.
void spellSeparators(std::string& text);

// True of what a note about the value says already.
bool isToldByNote(const Finding& finding, const Rows<Note>& notes);

// " (see --gcp-length)": an option as the command spells it; empty for none.
std::string optionHint(std::string_view given);

// The message of a failure with the options that it names as the command spells them.
std::string failureMessage(const Failure& failure);

// A finding on one line, with the option that helps.
std::string findingMessage(const Finding& finding);

// The same of a failure of the options, which has no place in the value.
std::string optionsMessage(const Failure& failure);

} // namespace rosetag

#endif
