/*
 * decode and encode: values as arguments, or the lines of a file.
 */
#include "commands.h"
#include "human_text.h"
#include "results.h"

namespace rosetag {

namespace {

// What sets one of the two commands apart from the other.
struct Conversion {
    Convert convert;
    bool isEncode;
    std::string_view defaultField; // of lines
};

std::vector<const ResultField*> chosenFields(const Arguments& arguments, bool isEncode,
                                             std::string_view defaultField) {
    std::vector<const ResultField*> fields;
    std::string_view names = arguments.fields;
    if (names.empty()) {
        names = arguments.to.empty() ? defaultField : std::string_view(arguments.to);
    }
    while (!names.empty()) {
        const std::size_t comma = std::min(names.find(','), names.size());
        fields.push_back(&resultField(names.substr(0, comma), isEncode));
        names.remove_prefix(std::min(comma + 1, names.size()));
    }
    return fields;
}

bool holdsStatus(const std::vector<const ResultField*>& fields) {
    for (const ResultField* field : fields) {
        if (field->name == "status") {
            return true;
        }
    }
    return false;
}

LineFormat lineFormat(const Arguments& arguments, bool isEncode, std::string_view defaultField) {
    LineFormat format;
    format.isJson = arguments.isJson;
    format.isRaw = arguments.isRaw;
    if (format.isJson) {
        return format;
    }
    format.fields = chosenFields(arguments, isEncode, defaultField);
    format.hasFieldHeader = !arguments.fields.empty();
    format.hasStatusColumn = !holdsStatus(format.fields);
    if (!isEncode && format.fields.size() == 1 && !format.hasFieldHeader &&
        arguments.run.table.columns.empty() && !arguments.read.asBarcode) {
        format.hexExport = hexExportOf(format.fields.front()->name);
    }
    return format;
}

// What one value as an argument gives on standard output.
std::string resultLine(const Result& result, const LineFormat& format) {
    if (format.isJson) {
        return resultJson(result) + '\n';
    }
    if (isFailure(result.failure)) {
        return {};
    }
    std::string line;
    appendTsvRow(line, format.fields, result, format.isRaw);
    return line + '\n';
}

void tellNotes(Output& output, const Result& result) {
    if (!result.prepared.notes.empty()) {
        complain(output, "note: " + textForMessage(result.value) + ": " + result.prepared.notes);
    }
}

// A bare value may be a TID, which is no EPC value.
bool isBareTid(const Result& result, const Arguments& arguments) {
    return arguments.isBare && result.prepared.form == ValueForm::HEX &&
           hexIsTid(result.prepared.text) && arguments.to.empty() && arguments.fields.empty();
}

void showTid(Output& output, Result& result, const Arguments& arguments, bool isFirst) {
    std::string text;
    result.failure = tidText(std::string(result.value), arguments.isJson, text);
    if (!isFailure(result.failure)) {
        const std::string_view sentence = "This is the TID of a Gen2 tag in hex.\n";
        outputWrite(output, isFirst || arguments.isJson ? "" : "\n");
        outputWrite(output, arguments.isJson ? "" : sentence);
        outputWrite(output, text);
    }
}

std::string humanResult(const Result& result, const Arguments& arguments, bool isFirst) {
    std::string text = isFirst ? "" : "\n";
    text += arguments.isBare ? humanSentence(result) : "";
    return text + humanForms(result, arguments.isRaw);
}

int convertValues(Output& output, const Arguments& arguments, const Conversion& conversion) {
    const LineFormat format = lineFormat(arguments, conversion.isEncode, conversion.defaultField);
    const bool isHuman = !conversion.isEncode && !arguments.isJson && arguments.to.empty() &&
                         arguments.fields.empty();
    int exitStatus = EXIT_STATUS_GOOD;
    bool isFirst = true;
    for (const std::string& value : arguments.values) {
        Result result;
        result.value = value;
        conversion.convert(result);
        tellNotes(output, result);
        if (isBareTid(result, arguments)) {
            showTid(output, result, arguments, isFirst);
            isFirst = isFirst && isFailure(result.failure);
        } else if (!isHuman) {
            outputWrite(output, resultLine(result, format));
        } else if (!isFailure(result.failure)) {
            outputWrite(output, humanResult(result, arguments, isFirst));
            isFirst = false;
        }
        if (isFailure(result.failure)) {
            if (arguments.isBare && result.prepared.form == ValueForm::UNKNOWN) {
                result.failure.message += "\n  or a command: " + std::string(COMMAND_WORDS);
            }
            exitStatus = complainOfFailure(output, value, result.failure);
        }
    }
    return exitStatus;
}

int convertLines(Output& output, const Arguments& arguments, const Conversion& conversion) {
    LineRules rules;
    rules.convert = conversion.convert;
    rules.format = lineFormat(arguments, conversion.isEncode, conversion.defaultField);
    rules.stopsAtFailure = arguments.read.strict;
    return lineRun(output, rules, arguments.run);
}

int runConversion(Output& output, const Arguments& arguments, const Conversion& conversion) {
    const bool isForLines = arguments.values.empty();
    const std::string_view to = !isForLines || !arguments.to.empty()
                                    ? std::string_view(arguments.to)
                                    : conversion.defaultField;
    // With one form asked for, a value that does not have it has failed.
    Conversion required = conversion;
    if (!to.empty() && arguments.fields.empty() && !arguments.isJson) {
        const ResultField& field = resultField(to, conversion.isEncode);
        required.convert = [&conversion, &field](Result& result) {
            conversion.convert(result);
            requireForm(field, result);
        };
    }
    return isForLines ? convertLines(output, arguments, required)
                      : convertValues(output, arguments, required);
}

void throwIfUnusable(const EncodeRequest& request, ValueForm form) {
    if (const std::string error = encodeUsageError(request, form); !error.empty()) {
        throw UsageError(error);
    }
}

} // namespace

int decodeCommand(Output& output, const Arguments& arguments) {
    const Convert convert = [&](Result& result) {
        result.prepared = prepareValue(result.value, arguments.read);
        result.failure = formsOf(result.prepared, arguments.encode.gcpLength, result.forms);
    };
    return runConversion(output, arguments, {convert, false, "tag-uri"});
}

int encodeCommand(Output& output, const Arguments& arguments) {
    const EncodeRequest& request = arguments.encode;
    for (const std::string& value : arguments.values) {
        throwIfUnusable(request, valueFormOf(value, arguments.read.asBarcode));
    }
    const Convert convert = [&](Result& result) {
        result.prepared = prepareValue(result.value, arguments.read);
        throwIfUnusable(request, result.prepared.form);
        result.failure = encodeValue(result.prepared, request, result.forms.hex);
        if (!isFailure(result.failure)) {
            addTagFacts(result.forms);
        }
    };
    return runConversion(output, arguments, {convert, true, "hex"});
}

int complainOfFailure(Output& output, std::string_view value, const Failure& failure) {
    complain(output, (value.empty() ? "\"\"" : textForMessage(value)) + ": " +
                         std::string(epc_statusName(failure.status)) + ": " + failure.message);
    return EXIT_STATUS_FAILED;
}

} // namespace rosetag
