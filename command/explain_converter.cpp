#include "converters.h"
#include "human_text.h"
#include "result_converter.h"

namespace rosetag {

namespace {

class ExplainConverter : public ResultConverter<Explanation> {
public:
    ExplainConverter(const ReadOptions& theOptions, bool isJsonWanted)
        : ResultConverter(isJsonWanted), options(theOptions) {}

    bool convert(const InputItem& input) override {
        take(input);
        explain(given, options, result);
        return false;
    }

    void writeArgument(std::string& out) override {
        if (isJson) {
            appendJson(out, result, given, line);
            out += '\n';
        } else if (!result.fields.empty()) {
            out += humanExplanation(result);
        }
    }

private:
    const ReadOptions options;
};

} // namespace

std::unique_ptr<Converter> explainConverter(const ReadOptions& options, bool isJson) {
    return std::make_unique<ExplainConverter>(options, isJson);
}

} // namespace rosetag
