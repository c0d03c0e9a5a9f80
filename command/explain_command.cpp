#include "commands.h"
#include "human_text.h"

#include <nlohmann/json.hpp>

namespace rosetag {

namespace {

using Json = nlohmann::ordered_json;

// The hex of a value that has bits of its own.
Failure hexOf(const PreparedValue& value, std::string& hex) {
    if (Failure failure = failureOfPreparing(value); isFailure(failure)) {
        return failure;
    }
    if (value.form == ValueForm::HEX) {
        hex = value.text;
        return {};
    }
    if (value.form == ValueForm::TAG_URI) {
        return encodeValue(value, {}, hex);
    }
    return {EPC_ERR_BAD_FORMAT, std::string(valueFormName(value.form)) +
                                    " has no bits before it is encoded for a scheme; give explain "
                                    "what rosetag encode makes of it"};
}

// What the library says of the bits.
Failure failureOfBits(const std::string& hex) {
    std::string text;
    Forms forms;
    return hexIsTid(hex) ? tidText(hex, false, text)
                         : formsOf({ValueForm::HEX, hex, {}}, std::nullopt, forms);
}

std::string explanationJson(std::string_view value, const WalkedBits& explanation) {
    Json object;
    object["value"] = value;
    object["subject"] = explanation.subject;
    object["fields"] = Json::array();
    for (const ExplainedField& field : explanation.walk.fields) {
        object["fields"].push_back(
            {{"first", field.first},
             {"width", field.width},
             {"name", field.name},
             {"bits", explanation.walk.bits.substr(field.first, field.width)},
             {"meaning", field.meaning},
             {"good", field.isGood}});
    }
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

int explainValue(Output& output, const Arguments& arguments, const std::string& value,
                 bool& isFirst) {
    std::string hex;
    if (const Failure failure = hexOf(prepareValue(value, {}), hex); isFailure(failure)) {
        return complainOfFailure(output, value, failure);
    }
    const WalkedBits explanation = hexIsTid(hex) ? explainTid(hex) : explainEpc(hex);
    outputWrite(output, isFirst || arguments.isJson ? "" : "\n");
    outputWrite(output, arguments.isJson ? explanationJson(value, explanation)
                                         : humanExplanation(explanation));
    isFirst = false;
    const Failure failure = failureOfBits(hex);
    return isFailure(failure) ? complainOfFailure(output, value, failure) : EXIT_STATUS_GOOD;
}

} // namespace

int explainCommand(Output& output, const Arguments& arguments) {
    int exitStatus = EXIT_STATUS_GOOD;
    bool isFirst = true;
    for (const std::string& value : arguments.values) {
        exitStatus = std::max(exitStatus, explainValue(output, arguments, value, isFirst));
    }
    return exitStatus;
}

} // namespace rosetag
