#include "before/explain/explain_walk.h"
#include "commands.h"
#include "human_text.h"

#include <nlohmann/json.hpp>

namespace rosetag {

namespace {

using Json = nlohmann::ordered_json;

std::string_view reachText(const SchemeInfo& entry) {
    if (entry.isPlus) {
        return "element string, barcode string, Digital Link, with further AIs";
    }
    return entry.hasGs1Texts ? "EPC URIs, element string, barcode string, Digital Link"
                             : "EPC URIs";
}

std::string headerText(const SchemeEntry& entry) {
    std::string bits;
    for (int mask = 0x80; mask != 0; mask >>= 1) {
        bits += (entry.header & mask) != 0 ? '1' : '0';
    }
    return "0x" + hexOfBits(bits);
}

std::string filterText(const SchemeEntry& entry) {
    return entry.filterLimit == 0 ? "none" : "below " + std::to_string(entry.filterLimit);
}

std::string schemeJson(const SchemeEntry& entry) {
    Json object = {{"number", entry.scheme}, {"name", entry.name}, {"header", headerText(entry)}};
    object["filterLimit"] = entry.filterLimit;
    object["uri"] = entry.hasUris;
    object["gs1"] = entry.hasGs1Texts;
    object["furtherAis"] = entry.isPlus;
    return object.dump() + '\n';
}

} // namespace

int schemesCommand(Output& output, const Arguments& arguments) {
    const auto row = [](std::string_view number, std::string_view name, std::string_view header,
                        std::string_view filter, std::string_view reach) {
        return padded(number, 8) + padded(name, 11) + padded(header, 8) + padded(filter, 10) +
               std::string(reach) + '\n';
    };
    if (!arguments.isJson) {
        outputWrite(output, row("number", "scheme", "header", "filter", "converts to and from"));
    }
    for (const SchemeEntry& entry : schemes()) {
        outputWrite(output, arguments.isJson
                                ? schemeJson(entry)
                                : row(std::to_string(entry.scheme), entry.name, headerText(entry),
                                      filterText(entry), reachText(entry)));
    }
    return EXIT_STATUS_GOOD;
}

} // namespace rosetag
