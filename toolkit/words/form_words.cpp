/*
 * The words and names of forms, notes and severities.
 */
#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <array>

namespace rosetag {

namespace {

struct FormRow {
    Form form;
    std::string_view word;
    std::string_view name;
};

// clang-format off
constexpr std::array<FormRow, 13> forms = {{
    // form                  word              name
    {Form::HEX,             "hex",            "an EPC value in hex"},
    {Form::TAG_URI,         "tag_uri",        "an EPC tag URI"},
    {Form::PURE_IDENTITY,   "pure_identity",  "an EPC pure identity URI"},
    {Form::ELEMENT_STRING,  "element_string", "a GS1 element string"},
    {Form::BARCODE_STRING,  "barcode_string", "a barcode string"},
    {Form::DIGITAL_LINK,    "digital_link",   "a GS1 Digital Link"},
    {Form::GTIN,            "gtin",           "a GTIN"},
    {Form::AIS,             "ais",            "a list of AIs"},
    {Form::SERIAL,          "serial",         "a serial number"},
    {Form::FITS_SCHEMES,    "fits_schemes",   "a list of schemes"},
    {Form::FINDINGS,        "findings",       "a list of findings"},
    {Form::TID,             "tid",            "the TID of a Gen2 tag in hex"},
    {Form::UNKNOWN,         "unknown",        "nothing that is known here"},
}};

constexpr std::array<std::string_view, 14> notes = {
    "blanks",           "left_out",    "padded",    "several_keys", "old_name",
    "semicolon",        "needs_gcp_length", "not_encoded", "separator", "pc_word",
    "may_be_pc_word",   "trailing_bits", "odd_digits", "odd_length",
};
// clang-format on

constexpr bool formsStandAtTheirNumbers() {
    for (std::size_t i = 0; i < forms.size(); ++i) {
        if (forms[i].form != static_cast<Form>(i)) {
            return false;
        }
    }
    return forms.back().form == Form::UNKNOWN;
}
static_assert(formsStandAtTheirNumbers());
static_assert(notes.size() == static_cast<std::size_t>(NoteKind::ODD_LENGTH) + 1);

} // namespace

std::string_view version() {
    return ROSETAG_VERSION;
}

std::string_view formWord(Form form) {
    return forms[static_cast<std::size_t>(form)].word;
}

std::string_view formName(Form form) {
    return forms[static_cast<std::size_t>(form)].name;
}

Form formByWord(std::string_view word) {
    const auto isSame = [](char one, char other) {
        return one == other || (one == '_' && other == '-');
    };
    for (const FormRow& row : forms) {
        if (std::equal(row.word.begin(), row.word.end(), word.begin(), word.end(), isSame)) {
            return row.form;
        }
    }
    return Form::UNKNOWN;
}

std::string_view noteWord(NoteKind kind) {
    return notes[static_cast<std::size_t>(kind)];
}

std::string_view severityWord(Severity severity) {
    constexpr std::array<std::string_view, 3> words = {"note", "warning", "error"};
    return words[static_cast<std::size_t>(severity)];
}

} // namespace rosetag
