#include "commands.h"
#include "human_text.h"
#include "wrapped_text.h"

namespace rosetag {

namespace {

std::string_view reachText(const SchemeInfo& scheme) {
    if (scheme.isPlus) {
        return "element string, barcode string, Digital Link, with further AIs";
    }
    return scheme.hasGs1Texts ? "EPC URIs, element string, barcode string, Digital Link"
                              : "EPC URIs";
}

std::string row(std::string_view number, std::string_view name, std::string_view header,
                std::string_view filter, std::string_view reach) {
    return padded(number, 8) + padded(name, 11) + padded(header, 8) + padded(filter, 10) +
           std::string(reach) + '\n';
}

std::string filterText(const SchemeInfo& scheme) {
    return scheme.filterLimit == 0 ? "none" : "below " + std::to_string(scheme.filterLimit);
}

std::string wordsText(const SchemeInfo& scheme) {
    std::string text;
    for (const FilterWord& word : filterWords(scheme)) {
        text +=
            (text.empty() ? "" : ", ") + std::to_string(word.filter) + ' ' + std::string(word.word);
    }
    return text;
}

// The words of the filters, with the schemes that have the same.
std::string filterList() {
    std::string list;
    for (const SchemeInfo& scheme : schemes()) {
        std::string names;
        bool isFirst = true;
        for (const SchemeInfo& other : schemes()) {
            const bool isSame = wordsText(other) == wordsText(scheme);
            isFirst = isFirst && (!isSame || other.scheme >= scheme.scheme);
            names += isSame ? (names.empty() ? "" : " ") + std::string(other.name) : "";
        }
        if (isFirst && !wordsText(scheme).empty()) {
            list += wrapped(names, 100) + "\n  " +
                    replaced(wrapped(wordsText(scheme), 98), "\n", "\n  ") + '\n';
        }
    }
    return list;
}

} // namespace

void schemesCommand(Output& output, bool isJson) {
    outputWrite(output,
                isJson ? "" : row("number", "scheme", "header", "filter", "converts to and from"));
    for (const SchemeInfo& scheme : schemes()) {
        outputWrite(output, isJson ? toJson(scheme) + '\n'
                                   : row(std::to_string(scheme.scheme), scheme.name,
                                         "0x" + hexText(scheme.header, 2), filterText(scheme),
                                         reachText(scheme)));
    }
    outputWrite(output, isJson ? "" : "\nThe filters; those that have no word are reserved:\n");
    outputWrite(output, isJson ? "" : filterList());
}

} // namespace rosetag
