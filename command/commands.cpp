#include "commands.h"

#include "choices.h"
#include "command_line.h"
#include "converters.h"
#include "system.h"
#include "translation_converter.h"
#include "user_lists.h"

#include <algorithm>

namespace rosetag {

namespace {

// A bare value may be a TID, which no form translates.
class BareConverter : public Converter {
public:
    BareConverter(const TranslationSettings& settings, bool isJson)
        : translation(translationConverter(settings)), tid(tidConverter(nullptr, isJson)),
          last(translation.get()) {}

    bool convert(const InputItem& input) override {
        recognise(input.value, {}, recognition);
        last = recognition.form == Form::TID ? tid.get() : translation.get();
        return last->convert(input);
    }
    void refuse(const InputItem& input, Failure failure) override {
        last->refuse(input, std::move(failure));
    }
    const Failure& failure() const override {
        return last->failure();
    }
    std::string_view value() const override {
        return last->value();
    }
    const Rows<Note>* notes() const override {
        return last->notes();
    }
    const Rows<Finding>* findings() const override {
        return last->findings();
    }
    void writeLine(std::string& out) override {
        last->writeLine(out);
    }
    void writeArgument(std::string& out) override {
        if (last == tid.get() && last->writesBlocks() && !isFailure(last->failure())) {
            out += "This is " + std::string(formName(Form::TID)) + ".\n";
        }
        last->writeArgument(out);
    }
    bool writesBlocks() const override {
        return last->writesBlocks();
    }
    bool linesTellFailures() const override {
        return last->linesTellFailures();
    }
    bool linesTellNotes() const override {
        return last->linesTellNotes();
    }

private:
    Recognition recognition;
    const std::unique_ptr<Converter> translation;
    const std::unique_ptr<Converter> tid;
    Converter* last;
};

// Columns that words name make a table of the input, as --column does.
void takeColumns(const Arguments& arguments, TranslationSettings& settings, TableOptions& table) {
    settings.text = templateRead(arguments.text, table.columns);
    if (!arguments.text.empty() && !templateHasColumns(settings.text)) {
        throw UsageError("--text names no column: write it in braces, {gtin}");
    }
    settings.words = {templateRead(arguments.scheme, table.columns),
                      templateRead(arguments.filter, table.columns),
                      templateRead(arguments.gcpLength, table.columns)};
    settings.hasWordsOfRows = templateHasColumns(settings.words.scheme) ||
                              templateHasColumns(settings.words.filter) ||
                              templateHasColumns(settings.words.gcpLength);
    if (!table.columns.empty() &&
        (!arguments.values.empty() || (arguments.run.column.empty() && arguments.text.empty()))) {
        throw UsageError("columns in braces are those of a table: give --column or --text");
    }
}

void chooseFields(const Arguments& arguments, TranslationSettings& settings) {
    const bool isForLines = arguments.values.empty();
    std::vector<std::string> names = arguments.fields;
    if (names.empty() && !arguments.to.empty()) {
        names = {arguments.to};
    } else if (names.empty() && (isForLines || settings.isEncode)) {
        names = {settings.isEncode ? "hex" : "tag_uri"};
    }
    for (const std::string& name : names) {
        const Field* const field = fieldByName(name);
        settings.fields.push_back(field);
        settings.wanted = settings.wanted | field->needs;
        settings.hasStatus = settings.hasStatus && field->name != "status";
    }
    // With one form asked for, a value that does not have it has failed.
    if (arguments.fields.empty() && settings.fields.size() == 1 && settings.fields[0]->isForm) {
        settings.required = settings.fields[0];
    }
    settings.hasHeader = !arguments.fields.empty();
    settings.hasStatus = settings.hasStatus && arguments.run.errorsFile.empty();
}

TranslationSettings translationSettings(const Arguments& arguments, TableOptions& table) {
    TranslationSettings settings;
    settings.isEncode = arguments.command == Command::ENCODE;
    settings.options.read = arguments.read;
    settings.options.encoding = encodingByWord(arguments.encoding);
    settings.isRaw = arguments.isRaw;
    settings.hasSentence = arguments.isBare;
    takeColumns(arguments, settings, table);
    if (!settings.hasWordsOfRows) {
        const std::string error = encodeOptionsOf(settings.words, {}, settings.options);
        if (!error.empty()) {
            throw UsageError(error);
        }
    }
    // What is written of a line does not tell what is wrong with it, unless that is asked for.
    if (!arguments.values.empty() || arguments.isJson || arguments.read.strict) {
        settings.wanted = Form::FINDINGS;
    }
    if (arguments.isJson) {
        settings.writing = Writing::JSON;
        settings.wanted = settings.wanted | (settings.isEncode ? Form::HEX : ALL_FORMS);
        return settings;
    }
    chooseFields(arguments, settings);
    if (settings.fields.empty()) {
        settings.writing = Writing::HUMAN;
        settings.wanted = settings.wanted | ALL_FORMS;
    }
    return settings;
}

std::string headerOf(const TranslationSettings& settings) {
    std::string header;
    for (const AddedColumn& column : addedColumns(settings)) {
        header += (header.empty() ? "" : "\t") + std::string(column.name);
    }
    return header + '\n';
}

// Without a list the form that needs the length of the company prefix says so in its place.
void tellNotes(Output& output, const Converter& converter, bool hasGcpList) {
    const Rows<Note>* const notes = converter.notes();
    for (const Severity severity : {Severity::NOTE, Severity::WARNING}) {
        std::string text;
        for (std::size_t i = 0; notes != nullptr && i < notes->size(); ++i) {
            const Note& note = (*notes)[i];
            const bool isShown = note.kind == NoteKind::NEEDS_GCP_LENGTH && !hasGcpList;
            if (note.severity == severity && !isShown) {
                text += (text.empty() ? "" : "; ") + note.text + optionHint(note.option);
            }
        }
        if (!text.empty()) {
            complain(output, std::string(severityWord(severity)) + ": " +
                                 shownText(converter.value()) + ": " + text);
        }
    }
}

void tellFindings(Output& output, const Converter& converter) {
    const Rows<Finding>* const findings = converter.findings();
    if (findings == nullptr || isFailure(converter.failure())) {
        return;
    }
    for (const Finding& finding : *findings) {
        if (!isToldByNote(finding, *converter.notes())) {
            complain(output, std::string(severityWord(finding.severity)) + ": " +
                                 shownText(converter.value()) + ": " + findingMessage(finding));
        }
    }
}

void tellFailure(Output& output, const Converter& converter, bool isBare) {
    const std::string value = shownText(converter.value());
    std::string text = (value.empty() ? "\"\"" : value) + ": " +
                       std::string(converter.failureWord()) + ": " +
                       failureMessage(converter.failure());
    const bool isUnknown = recognise(converter.value()).form == Form::UNKNOWN;
    if (converter.failure().option != "input" && isFileName(std::string(converter.value()))) {
        text += "\n  or the name of a file: --input reads it";
    }
    if (isBare && isUnknown) {
        text += "\n  or a command:";
        for (const std::string& name : commandNames()) {
            text += ' ' + name;
        }
    }
    complain(output, text);
}

int runValues(Output& output, const Arguments& arguments, Converter& converter) {
    int exitStatus = EXIT_STATUS_GOOD;
    bool isFirst = true;
    std::string text;
    for (const std::string& value : arguments.values) {
        converter.convert({value, 0, {}});
        tellNotes(output, converter, arguments.read.gcpList != nullptr);
        if (!converter.showsFailures()) {
            tellFindings(output, converter);
        }
        text.clear();
        converter.writeArgument(text);
        if (!text.empty()) {
            outputWrite(output, !isFirst && converter.writesBlocks() ? "\n" : "");
            outputWrite(output, text);
            isFirst = false;
        }
        if (isFailure(converter.failure())) {
            exitStatus = EXIT_STATUS_FAILED;
            if (!converter.showsFailures()) {
                tellFailure(output, converter, arguments.isBare);
            }
        }
    }
    return exitStatus;
}

int run(Output& output, const Arguments& arguments, LineRules& rules, const TableOptions& table) {
    if (!arguments.values.empty()) {
        const std::unique_ptr<Converter> converter = rules.makeConverter();
        return runValues(output, arguments, *converter);
    }
    rules.stopsAtFailure = arguments.run.stopsAtFailure;
    rules.keepsRows = !arguments.isJson;
    RunOptions options = arguments.run;
    options.table = table;
    return lineRun(output, rules, options);
}

int runTranslation(Output& output, const Arguments& arguments) {
    TableOptions table = arguments.run.table;
    if (!arguments.run.column.empty()) {
        table.columns = {arguments.run.column};
    }
    const TranslationSettings settings = translationSettings(arguments, table);
    LineRules rules;
    rules.makeConverter = [&settings] { return translationConverter(settings); };
    if (arguments.isBare && arguments.to.empty() && arguments.fields.empty()) {
        rules.makeConverter = [&settings, &arguments] {
            return std::make_unique<BareConverter>(settings, arguments.isJson);
        };
    }
    if (settings.writing == Writing::FIELDS) {
        rules.header = settings.hasHeader ? headerOf(settings) : "";
        rules.addedColumns = addedColumns(settings);
    }
    return run(output, arguments, rules, table);
}

int runOther(Output& output, const Arguments& arguments, const MakeConverter& makeConverter) {
    LineRules rules;
    rules.makeConverter = makeConverter;
    rules.addedColumns = {{"severity", false}, {"findings", false}};
    TableOptions table = arguments.run.table;
    if (!arguments.run.column.empty()) {
        table.columns = {arguments.run.column};
    }
    return run(output, arguments, rules, table);
}

} // namespace

int commandRun(Output& output, const Arguments& given) {
    Arguments arguments = given;
    GcpList gcpList;
    if (!arguments.gcpListFile.empty()) {
        gcpList = gcpListRead(arguments.gcpListFile, arguments.run.otherInputs);
        arguments.read.gcpList = &gcpList;
    }
    DesignerList designers;
    if (!arguments.designerListFile.empty()) {
        designers = designerListRead(arguments.designerListFile, arguments.run.otherInputs);
    }
    const DesignerList* const known = arguments.designerListFile.empty() ? nullptr : &designers;
    const bool isJson = arguments.isJson;
    switch (arguments.command) {
    case Command::DECODE:
    case Command::ENCODE:
        return runTranslation(output, arguments);
    case Command::EXPLAIN:
        return runOther(output, arguments,
                        [&] { return explainConverter(arguments.read, isJson); });
    case Command::CHECK:
        return runOther(output, arguments, [&] { return checkConverter(arguments.read, isJson); });
    case Command::AI_ENCODE:
        return runOther(output, arguments, [&] {
            return aiEncodeConverter(
                {arguments.ai, arguments.withCode, encodingByWord(arguments.encoding)}, isJson);
        });
    case Command::AI_DECODE:
        return runOther(output, arguments, [&] { return aiDecodeConverter(arguments.ai, isJson); });
    case Command::TID:
        return runOther(output, arguments, [&] { return tidConverter(known, isJson); });
    case Command::SCHEMES:
        schemesCommand(output, isJson);
        return EXIT_STATUS_GOOD;
    }
    return EXIT_STATUS_USAGE;
}

} // namespace rosetag
