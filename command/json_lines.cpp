#include "json_lines.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>

namespace rosetag {

namespace {

using Json = nlohmann::ordered_json;

std::string quoted(std::string_view text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

const Json* childOf(const Json& parent, std::string_view key) {
    if (parent.is_object()) {
        const auto found = parent.find(key);
        return found == parent.end() ? nullptr : &*found;
    }
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), index);
    const bool isIndex =
        parent.is_array() && error == std::errc() && end == key.data() + key.size();
    return isIndex && index < parent.size() ? &parent[index] : nullptr;
}

// A key that holds a dot itself comes first.
const Json* memberOf(const Json& object, std::string_view path) {
    if (const Json* member = childOf(object, path); member != nullptr) {
        return member;
    }
    const Json* member = &object;
    while (member != nullptr) {
        const std::size_t dot = path.find('.');
        member = childOf(*member, path.substr(0, dot));
        if (dot == std::string_view::npos) {
            break;
        }
        path.remove_prefix(dot + 1);
    }
    return member;
}

// The part of a line from the first fault of its JSON on; all of it if there is none.
std::string_view fromParseError(std::string_view line) {
    try {
        [[maybe_unused]] const Json parsed = Json::parse(line);
    } catch (const Json::parse_error& error) {
        return line.substr(std::min(std::max<std::size_t>(error.byte, 1) - 1, line.size()));
    }
    return line;
}

// The last key of a path in the line; all of it if it is not clear where that is.
std::string_view keyIn(std::string_view line, std::string_view path) {
    const std::string_view key = path.substr(path.rfind('.') + 1);
    const std::string asWritten = quoted(key);
    const std::size_t at = line.find(asWritten);
    return at == std::string_view::npos || line.find(asWritten, at + 1) != std::string_view::npos
               ? line
               : line.substr(at + 1, asWritten.size() - 2);
}

} // namespace

JsonFault jsonLineRead(std::string_view line, std::span<const std::string> paths,
                       std::span<const std::string_view> added, std::vector<std::string>& values) {
    values.assign(paths.size(), {});
    const Json object = Json::parse(line, nullptr, false);
    if (!object.is_object()) {
        return {fromParseError(line), "the line is not a JSON object",
                "give one object on each line"};
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const Json* const member = memberOf(object, paths[i]);
        if (member == nullptr || member->is_null()) {
            continue;
        }
        if (member->is_string()) {
            values[i] = member->get<std::string>();
        } else if (member->is_number_integer()) {
            values[i] = member->dump();
        } else {
            return {keyIn(line, paths[i]),
                    '"' + paths[i] + "\" is neither a text nor a whole number",
                    "give one value in quotes"};
        }
    }
    for (const std::string_view key : added) {
        if (object.contains(key)) {
            return {keyIn(line, key),
                    "the object has a member \"" + std::string(key) + "\" of its own", "rename it"};
        }
    }
    return {};
}

void jsonLineAppend(std::string& line, std::span<const JsonMember> members) {
    const std::size_t brace = line.rfind('}');
    const bool isEmpty = line[line.find_last_not_of(" \t", brace - 1)] == '{';
    std::string text;
    for (const JsonMember& member : members) {
        text += isEmpty && text.empty() ? "" : ",";
        text += quoted(member.key) + ':';
        text += member.isNumber ? std::string(member.value) : quoted(member.value);
    }
    line.insert(brace, text);
}

} // namespace rosetag
