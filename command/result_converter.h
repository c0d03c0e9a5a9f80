/*
 * What the converters of results that are shown one by one have in common.
 */
#ifndef ROSETAG_COMMAND_RESULT_CONVERTER_H
#define ROSETAG_COMMAND_RESULT_CONVERTER_H

#include "converter.h"
#include "fields.h"

namespace rosetag {

template <typename Result>
class ResultConverter : public Converter {
public:
    explicit ResultConverter(bool isJsonWanted) : isJson(isJsonWanted) {}

    void refuse(const InputItem& input, Failure failure) override {
        take(input);
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

    // A block of several lines ends with an empty one, and says what is wrong.
    void writeLine(std::string& out) override {
        writeArgument(out);
        if (!isJson) {
            out += isFailure(failure())
                       ? std::string(failureWord()) + ": " + failureMessage(failure()) + '\n'
                       : "";
            out += '\n';
        }
    }
    bool writesBlocks() const override {
        return !isJson;
    }
    bool linesTellFailures() const override {
        return true;
    }
    bool linesTellNotes() const override {
        return isJson;
    }

protected:
    void take(const InputItem& input) {
        given = input.value;
        line = input.line;
    }

    const bool isJson;
    std::string_view given;
    std::uint64_t line = 0;
    Result result;
};

} // namespace rosetag

#endif
