/*
 * The prefix list in JSON:
 *
 *     {"GCPPrefixFormatList": {"date": "...", "entry": [{"prefix": "0000030", "gcpLength": 12},
 * ...]}}
 */
#include "lists/gcp_list_reader.h"
#include "lists/json_events.h"

namespace rosetag {

namespace {

class Listener : public JsonListener {
public:
    explicit Listener(GcpList& list) : filled(list) {}

    void objectBegins(const JsonPath& path) override {
        if (isEntry(path)) {
            isInEntry = true;
            prefix.clear();
            gcpLength.clear();
        }
    }
    std::string objectEnds(const JsonPath& path) override {
        if (!isEntry(path)) {
            return {};
        }
        isInEntry = false;
        return gcpListAdd(filled, prefix, gcpLength);
    }
    void value(const JsonPath& path, std::string_view name, std::string_view text) override {
        if (isInEntry && path.size() == ENTRY_DEPTH) {
            if (name == "prefix") {
                prefix = text;
            } else if (name == "gcpLength") {
                gcpLength = text;
            }
        } else if (isList(path) && path.size() == 2 && name == "date") {
            filled.date = text;
        }
    }

private:
    static constexpr std::size_t ENTRY_DEPTH = 4;

    static bool isList(const JsonPath& path) {
        return path.size() >= 2 && path[1] == "GCPPrefixFormatList";
    }
    static bool isEntry(const JsonPath& path) {
        return isList(path) && path.size() == ENTRY_DEPTH && path[2] == "entry";
    }

    GcpList& filled;
    bool isInEntry = false;
    std::string prefix;
    std::string gcpLength;
};

} // namespace

Failure readGcpListJson(std::string_view text, GcpList& list) {
    Listener listener(list);
    return readJsonEvents(text, listener);
}

} // namespace rosetag
