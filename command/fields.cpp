#include "fields.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace rosetag {

namespace {

void appendNumber(std::string& text, std::uint64_t number) {
    std::array<char, 20> digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

void appendValue(std::string& text, const Item& item) {
    text += item.value;
}
void appendLine(std::string& text, const Item& item) {
    appendNumber(text, item.line);
}
void appendForm(std::string& text, const Item& item) {
    text += formWord(item.translation.form);
}
void appendScheme(std::string& text, const Item& item) {
    if (item.translation.scheme != nullptr) {
        text += item.translation.scheme->name;
    }
}
void appendFilter(std::string& text, const Item& item) {
    if (item.translation.filter.has_value()) {
        appendNumber(text, static_cast<std::uint64_t>(*item.translation.filter));
    }
}
template <Form form>
void appendText(std::string& text, const Item& item) {
    text += formText(item.translation, form);
}
void appendHexWords(std::string& text, const Item& item) {
    appendWords(text, item.translation.hex);
}
void appendBinary(std::string& text, const Item& item) {
    appendBits(text, item.translation.hex);
}
void appendLength(std::string& text, const Item& item) {
    if (item.translation.bits != 0) {
        appendNumber(text, static_cast<std::uint64_t>(item.translation.bits));
    }
}
void appendAiValues(std::string& text, const Item& item) {
    appendAis(text, item.translation.ais);
}
void appendSchemes(std::string& text, const Item& item) {
    std::string_view blank;
    for (const SchemeInfo* scheme : item.translation.fitsSchemes) {
        text += blank;
        text += scheme->name;
        blank = " ";
    }
}
void appendFindings(std::string& text, const Item& item) {
    std::string_view separator;
    for (const Finding& finding : item.translation.findings) {
        text += separator;
        text += findingMessage(finding);
        separator = "; ";
    }
}
void appendNotes(std::string& text, const Item& item) {
    std::string_view separator;
    for (const Note& note : item.translation.notes) {
        text += separator;
        text += note.text;
        separator = "; ";
    }
    for (const Finding& finding : item.translation.findings) {
        if (!isToldByNote(finding, item.translation.notes)) {
            text += separator;
            text += findingMessage(finding);
            separator = "; ";
        }
    }
}
void appendStatus(std::string& text, const Item& item) {
    text += epc_statusName(item.translation.failure.status);
}
void appendMessage(std::string& text, const Item& item) {
    if (isFailure(item.translation.failure)) {
        text += failureMessage(item.translation.failure);
    }
}

// clang-format off
constexpr std::array fieldTable = {
    // name                  append                             needs                 text of               form   failed number given
    Field{"value",          appendValue,                        {},                   Form::UNKNOWN,        false, true,  false, true},
    Field{"line",           appendLine,                         {},                   Form::UNKNOWN,        false, true,  true,  false},
    Field{"form",           appendForm,                         {},                   Form::UNKNOWN,        false, true,  false, false},
    Field{"scheme",         appendScheme,                       {},                   Form::UNKNOWN,        false, false, false, false},
    Field{"filter",         appendFilter,                       {},                   Form::UNKNOWN,        false, false, true,  false},
    Field{"tag_uri",        appendText<Form::TAG_URI>,          Form::TAG_URI,        Form::TAG_URI,        true,  false, false, false},
    Field{"pure_identity",  appendText<Form::PURE_IDENTITY>,    Form::PURE_IDENTITY,  Form::PURE_IDENTITY,  true,  false, false, false},
    Field{"element_string", appendText<Form::ELEMENT_STRING>,   Form::ELEMENT_STRING, Form::ELEMENT_STRING, true,  false, false, true},
    Field{"barcode_string", appendText<Form::BARCODE_STRING>,   Form::BARCODE_STRING, Form::BARCODE_STRING, true,  false, false, true},
    Field{"digital_link",   appendText<Form::DIGITAL_LINK>,     Form::DIGITAL_LINK,   Form::DIGITAL_LINK,   true,  false, false, true},
    Field{"gtin",           appendText<Form::GTIN>,             Form::GTIN,           Form::GTIN,           true,  false, false, false},
    Field{"serial",         appendText<Form::SERIAL>,           Form::SERIAL,         Form::SERIAL,         true,  false, false, true},
    Field{"hex",            appendText<Form::HEX>,              Form::HEX,            Form::HEX,            true,  false, false, false},
    Field{"words",          appendHexWords,                     Form::HEX,            Form::UNKNOWN,        true,  false, false, false},
    Field{"binary",         appendBinary,                       Form::HEX,            Form::UNKNOWN,        true,  false, false, false},
    Field{"bits",           appendLength,                       {},                   Form::UNKNOWN,        true,  false, true,  false},
    Field{"ais",            appendAiValues,                     Form::AIS,            Form::AIS,            true,  false, false, true},
    Field{"fits_schemes",   appendSchemes,                      Form::FITS_SCHEMES,   Form::UNKNOWN,        true,  false, false, false},
    Field{"notes",          appendNotes,                        Form::FINDINGS,       Form::UNKNOWN,        false, true,  false, true},
    Field{"findings",       appendFindings,                     Form::FINDINGS,       Form::UNKNOWN,        false, true,  false, true},
    Field{"status",         appendStatus,                       {},                   Form::UNKNOWN,        false, true,  false, false},
    Field{"message",        appendMessage,                      {},                   Form::UNKNOWN,        false, true,  false, true},
};
// clang-format on

// Former names of fields.
constexpr std::pair<std::string_view, std::string_view> formerNames[] = {
    {"pure_uri", "pure_identity"},
};

// What a note and a finding both say.
constexpr std::pair<NoteKind, CheckRule> toldTwice[] = {
    {NoteKind::PADDED, CheckRule::SHORT_GTIN},
    {NoteKind::OLD_NAME, CheckRule::LINK_NAME},
    {NoteKind::SEMICOLON, CheckRule::LINK_SEMICOLON},
};

} // namespace

std::span<const Field> fields() {
    return fieldTable;
}

const Field* fieldByName(std::string_view given) {
    std::string name(given);
    std::replace(name.begin(), name.end(), '-', '_');
    for (const auto& [former, now] : formerNames) {
        name = name == former ? now : name;
    }
    const auto* const field = std::ranges::find(fieldTable, name, &Field::name);
    return field == fieldTable.end() ? nullptr : field;
}

void spellSeparators(std::string& text) {
    for (std::size_t at = text.find(groupSeparator); at != std::string::npos;
         at = text.find(groupSeparator, at)) {
        text.replace(at, 1, "{GS}");
    }
}

bool isToldByNote(const Finding& finding, const Rows<Note>& notes) {
    return std::ranges::any_of(toldTwice, [&](const auto& both) {
        return both.second == finding.rule &&
               std::any_of(notes.begin(), notes.end(),
                           [&](const Note& note) { return note.kind == both.first; });
    });
}

std::string optionHint(std::string_view given) {
    if (given.empty()) {
        return {};
    }
    std::string option = given == "as_barcode" ? "barcode" : std::string(given);
    std::replace(option.begin(), option.end(), '_', '-');
    return " (see --" + option + ')';
}

std::string failureMessage(const Failure& failure) {
    return failureText(failure) + optionHint(failure.option);
}

std::string findingMessage(const Finding& finding) {
    return findingText(finding) + optionHint(finding.option);
}

std::string optionsMessage(const Failure& failure) {
    return failure.message + (failure.remedy.empty() ? "" : "; ") + failure.remedy +
           optionHint(failure.option);
}

} // namespace rosetag
