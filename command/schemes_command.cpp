#include "commands.h"
#include "human_text.h"

namespace rosetag {

namespace {

std::string_view reachText(const SchemeInfo& scheme) {
    if (scheme.isPlus) {
        return "element string, barcode string, Digital Link, with further AIs";
    }
    return scheme.hasGs1Texts ? "EPC URIs, element string, barcode string, Digital Link"
                              : "EPC URIs";
}

std::string headerText(const SchemeInfo& scheme) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    return {'0', 'x', digits[scheme.header >> 4], digits[scheme.header & 15]};
}

std::string row(std::string_view number, std::string_view name, std::string_view header,
                std::string_view filter, std::string_view reach) {
    return padded(number, 8) + padded(name, 11) + padded(header, 8) + padded(filter, 10) +
           std::string(reach) + '\n';
}

std::string filterText(const SchemeInfo& scheme) {
    return scheme.filterLimit == 0 ? "none" : "below " + std::to_string(scheme.filterLimit);
}

} // namespace

void schemesCommand(Output& output, bool isJson) {
    outputWrite(output,
                isJson ? "" : row("number", "scheme", "header", "filter", "converts to and from"));
    for (const SchemeInfo& scheme : schemes()) {
        outputWrite(output, isJson
                                ? toJson(scheme) + '\n'
                                : row(std::to_string(scheme.scheme), scheme.name,
                                      headerText(scheme), filterText(scheme), reachText(scheme)));
    }
}

} // namespace rosetag
