/*
 * Reads a JSON text event by event, without building the tree of a large list. The members that
 * lead to a value are its path.
 */
#ifndef ROSETAG_TOOLKIT_LISTS_JSON_EVENTS_H
#define ROSETAG_TOOLKIT_LISTS_JSON_EVENTS_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

// One name for each open object or array: that of its member, empty for an element.
using JsonPath = std::vector<std::string>;

// What a list takes from a JSON text. A text that they return says what is wrong.
class JsonListener {
public:
    virtual ~JsonListener() = default;
    virtual void objectBegins(const JsonPath& path) = 0;
    virtual std::string objectEnds(const JsonPath& path) = 0;
    // A text or a number; others are skipped.
    virtual void value(const JsonPath& path, std::string_view name, std::string_view text) = 0;
};

Failure readJsonEvents(std::string_view text, JsonListener& listener);

} // namespace rosetag

#endif
