#include "converters.h"
#include "csv_cells.h"
#include "human_text.h"
#include "result_converter.h"

namespace rosetag {

namespace {

class AiConverter : public ResultConverter<AiTranslation> {
public:
    AiConverter(const AiEncoding& theEncoding, bool isEncoder, bool isJsonWanted)
        : ResultConverter(isJsonWanted), encoding(theEncoding), isEncode(isEncoder) {}

    bool convert(const InputItem& input) override {
        take(input);
        result = isEncode ? encodeAi(encoding.ai, given, encoding.withCode, encoding.encoding)
                          : decodeAi(given, encoding.ai);
        return false;
    }

    // Encoding writes hex, decoding the AI and its value.
    void writeLine(std::string& out) override {
        if (isJson) {
            return writeArgument(out);
        }
        if (isFailure(failure())) {
            out += '\t';
            out += failureWord();
        } else if (isEncode) {
            out += result.hex;
        } else if (!given.empty()) {
            out += result.ai.ai + '\t';
            tsvAppendCell(out, result.ai.value);
        }
        out += '\n';
    }
    bool linesTellFailures() const override {
        return isJson;
    }
    void writeArgument(std::string& out) override {
        if (isJson) {
            appendJson(out, result, line);
            out += '\n';
        } else if (!isFailure(failure())) {
            out += labelled("AI", result.ai.ai + "  " + std::string(result.ai.title));
            out += labelled("value", result.ai.value);
            out += labelled("hex", result.hex);
            out +=
                result.bits == 0 ? "" : labelled("length", std::to_string(result.bits) + " bits");
        }
    }

private:
    const AiEncoding encoding;
    const bool isEncode;
};

} // namespace

std::unique_ptr<Converter> aiEncodeConverter(const AiEncoding& encoding, bool isJson) {
    return std::make_unique<AiConverter>(encoding, true, isJson);
}

std::unique_ptr<Converter> aiDecodeConverter(const std::string& ai, bool isJson) {
    return std::make_unique<AiConverter>(AiEncoding{ai}, false, isJson);
}

} // namespace rosetag
