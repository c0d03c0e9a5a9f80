#include "converters.h"
#include "fields.h"
#include "human_text.h"

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
            out += '\n';
        } else if (!isFailure(failure())) {
            out += humanTid(result.record);
        }
    }
    bool writesBlocks() const override {
        return !isJson;
    }

private:
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
