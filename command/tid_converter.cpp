#include "converters.h"
#include "human_text.h"
#include "json_lines.h"
#include "result_converter.h"

namespace rosetag {

namespace {

class TidConverter : public ResultConverter<Tid> {
public:
    TidConverter(const DesignerList* theDesigners, bool isJsonWanted)
        : ResultConverter(isJsonWanted), designers(theDesigners) {}

    bool convert(const InputItem& input) override {
        take(input);
        tid(given, result);
        return false;
    }

    void writeArgument(std::string& out) override {
        if (isJson) {
            appendJson(out, result, given, line);
            appendNames(out);
            out += '\n';
        } else if (!isFailure(failure())) {
            out += humanTid(result.record, designers);
        }
    }

private:
    // The names are members at the end of the object.
    void appendNames(std::string& json) const {
        const std::string_view designer = designerName(designers, result.record);
        const std::string_view chip = chipName(designers, result.record);
        if (isFailure(failure()) || designer.empty()) {
            return;
        }
        std::vector<JsonMember> members = {{"designer", designer, false}};
        if (!chip.empty()) {
            members.push_back({"chip", chip, false});
        }
        jsonLineAppend(json, members);
    }

    const DesignerList* const designers;
};

} // namespace

std::unique_ptr<Converter> tidConverter(const DesignerList* designers, bool isJson) {
    return std::make_unique<TidConverter>(designers, isJson);
}

} // namespace rosetag
