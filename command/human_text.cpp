#include "human_text.h"

#include "before/recognise/barcode_text.h"
#include "before/words/ai_dictionary.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::size_t labelWidth = 16;
constexpr std::size_t rawWidth = 40;

// The characters of a UTF-8 text: its bytes but those that continue one.
std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string shown(const std::string& text, bool raw) {
    return raw ? text : groupSeparatorsSpelled(text);
}

std::string lineOf(std::string_view label, const std::string& text) {
    return text.empty() ? std::string() : labelled(label, text);
}

std::string aiLines(const std::vector<AiValue>& ais, bool raw) {
    std::size_t codeWidth = 0;
    std::size_t titleWidth = 0;
    for (const AiValue& ai : ais) {
        codeWidth = std::max(codeWidth, ai.ai.size() + 2);
        titleWidth = std::max(titleWidth, characterCount(aiTitle(ai.ai)) + 2);
    }
    std::string lines;
    for (const AiValue& ai : ais) {
        lines += labelled(lines.empty() ? "AIs" : "", padded(ai.ai, codeWidth) +
                                                          padded(aiTitle(ai.ai), titleWidth) +
                                                          shown(ai.value, raw));
    }
    return lines;
}

std::string fitsText(const Forms& forms) {
    std::string names;
    for (const SchemeEntry* scheme : forms.fits) {
        names += (names.empty() ? "" : ", ") + std::string(scheme->name);
    }
    return names;
}

// The bits of a field with a blank between their groups, in lines that fit their column.
std::vector<std::string> rawLines(std::string_view bits, std::span<const int> groups) {
    std::vector<std::string> lines(1);
    std::size_t group = 0;
    while (!bits.empty()) {
        const std::size_t wanted = groups.empty()
                                       ? bits.size()
                                       : static_cast<std::size_t>(groups[group++ % groups.size()]);
        const std::size_t width = std::min({wanted, bits.size(), rawWidth});
        if (!lines.back().empty() && lines.back().size() + 1 + width > rawWidth) {
            lines.emplace_back();
        }
        lines.back() += (lines.back().empty() ? "" : " ") + std::string(bits.substr(0, width));
        bits.remove_prefix(width);
    }
    return lines;
}

std::string rangeText(const ExplainedField& field) {
    if (field.width == 0) {
        return "-";
    }
    const std::size_t last = field.first + field.width - 1;
    return std::to_string(field.first) +
           (field.width == 1 ? std::string() : '-' + std::to_string(last));
}

std::string explainedRow(const std::string& bits, std::size_t nameWidth,
                         const ExplainedField& field) {
    constexpr std::size_t bitsWidth = 9;
    constexpr std::size_t widthWidth = 7;
    const std::vector<std::string> raw =
        rawLines(std::string_view(bits).substr(field.first, field.width), field.groups);
    std::string row =
        padded(rangeText(field), bitsWidth) + padded(std::to_string(field.width), widthWidth) +
        padded(field.name, nameWidth) + padded(raw.front(), rawWidth + 2) +
        (field.isGood ? "" : "WRONG: ") + groupSeparatorsSpelled(field.meaning) + '\n';
    for (std::size_t i = 1; i < raw.size(); ++i) {
        row += std::string(bitsWidth + widthWidth + nameWidth, ' ') + raw[i] + '\n';
    }
    return row;
}

} // namespace

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t characters = characterCount(text);
    return std::string(text) + std::string(width > characters ? width - characters : 0, ' ');
}

std::string labelled(std::string_view label, std::string_view text) {
    return padded(label, labelWidth) + std::string(text) + '\n';
}

std::string humanForms(const Result& result, bool raw) {
    const Forms& forms = result.forms;
    std::string text;
    if (forms.scheme != nullptr) {
        text += labelled("scheme", forms.scheme->name);
    }
    text += forms.filter.has_value() ? labelled("filter", std::to_string(*forms.filter)) : "";
    text += lineOf("tag URI", forms.tagUri);
    text += lineOf("pure identity", forms.pureUri);
    text += forms.lacksGcpLength ? labelled("pure identity", "(needs --gcp-length)") : "";
    text += lineOf("fits schemes", fitsText(forms));
    text += lineOf("element string", shown(forms.elementString, raw));
    text += lineOf("barcode string", shown(forms.barcodeString, raw));
    text += lineOf("Digital Link", shown(forms.link, raw));
    text += lineOf("hex", forms.hex);
    text += forms.bits == 0 ? "" : labelled("length", std::to_string(forms.bits) + " bits");
    return text + aiLines(forms.ais, raw);
}

std::string humanSentence(const Result& result) {
    const ValueForm form = result.prepared.form;
    std::string sentence = "This is " + std::string(valueFormName(form));
    if (result.forms.scheme != nullptr) {
        sentence += ", scheme " + std::string(result.forms.scheme->name);
    }
    return sentence + ".\n";
}

std::string humanExplanation(const WalkedBits& explanation) {
    const Walk& walk = explanation.walk;
    std::size_t nameWidth = 0;
    for (const ExplainedField& field : walk.fields) {
        nameWidth = std::max(nameWidth, field.name.size() + 2);
    }
    std::string text = padded("bits", 9) + padded("width", 7) + padded("field", nameWidth) +
                       padded("raw bits", rawWidth + 2) + "meaning\n";
    for (const ExplainedField& field : walk.fields) {
        text += explainedRow(walk.bits, nameWidth, field);
    }
    return text;
}

} // namespace rosetag
