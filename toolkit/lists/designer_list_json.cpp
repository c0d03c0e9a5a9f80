/*
 * The list of chip designers in JSON:
 *
 *     {"version": "...", "registeredMaskDesigners": [
 *         {"mdid": "000000001", "manufacturer": "...", "manufacturerUrl": "...", "chips": [
 *             {"tmnBinary": "000100000101", "modelName": "...", "productUrl": "..."}, ...]}, ...]}
 */
#include "lists/json_events.h"
#include "lists/list_failure.h"
#include "lists/list_order.h"
#include "tid/tid_layout.h"
#include "words/shown_text.h"

#include <iterator>

namespace rosetag {

namespace {

constexpr auto MDID_BITS = static_cast<std::size_t>(std::end(tidDesigner)[-1].width);
constexpr auto TMN_BITS = static_cast<std::size_t>(std::end(tidModel)[-1].width);

// False if the text is not a number of that many binary digits.
bool readBits(std::string_view text, std::size_t bits, std::uint16_t& number) {
    unsigned value = 0;
    for (const char digit : text) {
        if (digit != '0' && digit != '1') {
            return false;
        }
        value = value << 1 | static_cast<unsigned>(digit - '0');
    }
    number = static_cast<std::uint16_t>(value);
    return text.size() == bits;
}

class Listener : public JsonListener {
public:
    explicit Listener(DesignerList& list) : filled(list) {}

    void objectBegins(const JsonPath& path) override {
        if (isDesigner(path)) {
            designer = {};
            mdid.clear();
        } else if (isChip(path)) {
            chip = {};
            bits.clear();
        }
    }
    std::string objectEnds(const JsonPath& path) override {
        if (isChip(path)) {
            if (!readBits(bits, TMN_BITS, chip.tmn)) {
                return "the tmnBinary \"" + bits + "\" does not have " +
                       counted(TMN_BITS, "binary digit");
            }
            designer.chips.push_back(std::move(chip));
        } else if (isDesigner(path)) {
            if (!readBits(mdid, MDID_BITS, designer.mdid)) {
                return "the mdid \"" + mdid + "\" does not have " +
                       counted(MDID_BITS, "binary digit");
            }
            filled.designers.push_back(std::move(designer));
        }
        return {};
    }
    void value(const JsonPath& path, std::string_view name, std::string_view text) override {
        if (isChip(path)) {
            take(name, text,
                 {{"tmnBinary", &bits}, {"modelName", &chip.name}, {"productUrl", &chip.url}});
        } else if (isDesigner(path)) {
            take(name, text,
                 {{"mdid", &mdid},
                  {"manufacturer", &designer.name},
                  {"manufacturerUrl", &designer.url}});
        } else if (path.size() == 1) {
            take(name, text, {{"version", &filled.version}});
        }
    }

private:
    struct Member {
        std::string_view name;
        std::string* text;
    };
    static void take(std::string_view name, std::string_view text,
                     std::initializer_list<Member> members) {
        for (const Member& member : members) {
            if (member.name == name) {
                *member.text = text;
            }
        }
    }
    static bool isDesigner(const JsonPath& path) {
        return path.size() == 3 && path[1] == "registeredMaskDesigners";
    }
    static bool isChip(const JsonPath& path) {
        return path.size() == 5 && path[1] == "registeredMaskDesigners" && path[3] == "chips";
    }

    DesignerList& filled;
    ChipDesigner designer{};
    std::string mdid;
    ChipModel chip{};
    std::string bits;
};

bool chipIsBefore(const ChipModel& one, const ChipModel& other) {
    return one.tmn < other.tmn;
}

} // namespace

Failure readDesignerList(std::string_view text, DesignerList& list) {
    list = {};
    Listener listener(list);
    Failure failure = readJsonEvents(text, listener);
    if (!isFailure(failure) && list.designers.empty()) {
        failure = listFailure(text, 0, "there is no entry of registeredMaskDesigners in this text");
    }
    if (isFailure(failure)) {
        list = {};
    }
    std::stable_sort(list.designers.begin(), list.designers.end(), designerIsBefore);
    for (ChipDesigner& designer : list.designers) {
        std::stable_sort(designer.chips.begin(), designer.chips.end(), chipIsBefore);
    }
    return failure;
}

} // namespace rosetag
