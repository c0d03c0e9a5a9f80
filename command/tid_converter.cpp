#include "converters.h"
#include "fields.h"
#include "human_text.h"
#include "json_lines.h"

namespace rosetag {

namespace {

class TidConverter : public Converter {
public:
    TidConverter(const DesignerList* theDesigners, bool isJsonWanted)
        : designers(theDesigners), isJson(isJsonWanted) {}

    void convert(const InputItem& input) override {
        given = input.value;
        tid(given, result);
    }
    void refuse(const InputItem& input, Failure failure) override {
        given = input.value;
        result = {};
        result.failure = std::move(failure);
    }
    const Failure& failure() const override {
        return result.failure;
    }
    std::string_view value() const override {
        return given;
    }
    const Rows<Note>* notes() const override {
        return &result.notes;
    }

    // The lines of a TID end with an empty one, and say what is wrong.
    void writeLine(std::string& out) override {
        writeArgument(out);
        if (!isJson) {
            out += isFailure(failure())
                       ? std::string(failureWord()) + ": " + failureMessage(failure()) + '\n'
                       : "";
            out += '\n';
        }
    }
    void writeArgument(std::string& out) override {
        if (isJson) {
            appendJson(out, result, given);
            appendNames(out);
            out += '\n';
        } else if (!isFailure(failure())) {
            out += humanTid(result.record, designers);
        }
    }
    bool writesBlocks() const override {
        return !isJson;
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
    const bool isJson;
    std::string_view given;
    Tid result;
};

} // namespace

std::unique_ptr<Converter> tidConverter(const DesignerList* designers, bool isJson) {
    return std::make_unique<TidConverter>(designers, isJson);
}

} // namespace rosetag
