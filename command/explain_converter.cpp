#include "converters.h"
#include "fields.h"
#include "human_text.h"

namespace rosetag {

namespace {

class ExplainConverter : public Converter {
public:
    ExplainConverter(const ReadOptions& theOptions, bool isJsonWanted)
        : options(theOptions), isJson(isJsonWanted) {}

    void convert(const InputItem& input) override {
        given = input.value;
        explain(given, options, result);
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

    // An explanation of several lines ends with an empty one, and says what is wrong.
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
        } else if (!result.fields.empty()) {
            out += humanExplanation(result);
        }
    }
    bool writesBlocks() const override {
        return !isJson;
    }

private:
    const ReadOptions options;
    const bool isJson;
    std::string_view given;
    Explanation result;
};

} // namespace

std::unique_ptr<Converter> explainConverter(const ReadOptions& options, bool isJson) {
    return std::make_unique<ExplainConverter>(options, isJson);
}

} // namespace rosetag
