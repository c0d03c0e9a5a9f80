#include "lists/json_events.h"

#include "lists/list_failure.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace rosetag {

namespace {

using Json = nlohmann::json;

// Counts what has been read, to tell the place of a fault.
struct CountedText {
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    const char* at;
    const char** last;

    reference operator*() const {
        *last = at;
        return *at;
    }
    CountedText& operator++() {
        ++at;
        return *this;
    }
    bool operator==(const CountedText& other) const {
        return at == other.at;
    }
    bool operator!=(const CountedText& other) const {
        return at != other.at;
    }
};

class Events {
public:
    Events(std::string_view text, JsonListener& listener) : all(text), heard(listener) {}

    bool null() {
        return true;
    }
    bool boolean(bool) {
        return true;
    }
    bool number_integer(Json::number_integer_t number) {
        return value(std::to_string(number));
    }
    bool number_unsigned(Json::number_unsigned_t number) {
        return value(std::to_string(number));
    }
    bool number_float(Json::number_float_t, const std::string& text) {
        return value(text);
    }
    bool string(std::string& text) {
        return value(text);
    }
    bool binary(Json::binary_t&) {
        return true;
    }
    bool key(std::string& text) {
        name.swap(text);
        return true;
    }
    bool start_object(std::size_t) {
        open();
        heard.objectBegins(path);
        return true;
    }
    bool end_object() {
        const std::string fault = heard.objectEnds(path);
        path.pop_back();
        if (!fault.empty()) {
            failure = listFailure(all, read(), fault);
        }
        return fault.empty();
    }
    bool start_array(std::size_t) {
        open();
        return true;
    }
    bool end_array() {
        path.pop_back();
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const Json::exception&) {
        failure = listFailure(all, position == 0 ? 0 : position - 1, "this is not JSON");
        return false;
    }

    std::size_t read() const {
        return last == nullptr ? 0 : static_cast<std::size_t>(last - all.data());
    }

    Failure failure;
    const char* last = nullptr;

private:
    bool value(std::string_view text) {
        heard.value(path, name, text);
        return true;
    }
    void open() {
        path.push_back(std::exchange(name, {}));
    }

    std::string_view all;
    JsonListener& heard;
    JsonPath path;
    std::string name;
};

} // namespace

Failure readJsonEvents(std::string_view text, JsonListener& listener) {
    Events events(text, listener);
    const CountedText begin = {text.data(), &events.last};
    const CountedText end = {text.data() + text.size(), &events.last};
    Json::sax_parse(begin, end, &events);
    return std::move(events.failure);
}

} // namespace rosetag
