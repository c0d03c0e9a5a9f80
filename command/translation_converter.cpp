#include "translation_converter.h"

#include "csv_cells.h"
#include "human_text.h"
#include "output.h"
#include "plain_fields.h"

#include <algorithm>
#include <charconv>

namespace rosetag {

namespace {

std::optional<int> numberOf(std::string_view text) {
    int number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    return error == std::errc() && end == last ? std::optional(number) : std::nullopt;
}

std::string setFilterByWord(const std::string& word, EncodeOptions& options) {
    if (options.scheme == nullptr) {
        return "--filter: the word \"" + word + "\" needs --scheme, or give a number";
    }
    options.filter = filterByWord(*options.scheme, word);
    if (options.filter.has_value()) {
        return {};
    }
    std::string words;
    for (const FilterWord& filter : filterWords(*options.scheme)) {
        words += ' ' + std::string(filter.word);
    }
    return "--filter: " + std::string(options.scheme->name) + " has no filter \"" + word + "\"" +
           (words.empty() ? "" : "; it has" + words + ", or give a number");
}

PlainFields plainFieldsFor(const TranslationSettings& settings) {
    if (settings.isEncode || settings.required != nullptr || settings.wanted.has(Form::FINDINGS)) {
        return {};
    }
    const bool hasStatus = settings.hasStatus && settings.hasHeader;
    return plainFieldsOf(settings.fields,
                         hasStatus ? '\t' + std::string(epc_statusName(EPC_OK)) + '\n' : "\n");
}

class TranslationConverter final : public Converter {
public:
    explicit TranslationConverter(const TranslationSettings& theSettings)
        : settings(theSettings), options(theSettings.options), plain(plainFieldsFor(settings)) {}

    bool convert(const InputItem& input) override {
        take(input);
        if (!settings.text.pieces.empty()) {
            composed = templateFillValue(settings.text, input.cells);
            item.value = composed;
        }
        if (settings.hasWordsOfRows && !takeWords(input.cells)) {
            return false;
        }
        if (!plain.fields.empty() && plainFieldsWrite(plain, options.read, item)) {
            return true;
        }
        convertAny();
        Failure& failure = item.translation.failure;
        isLone = !text.empty() && !isFailure(failure) &&
                 (!settings.required->holdsGivenText || isPlainCell(text));
        if (isLone) {
            return item.translation.notes.empty() && item.translation.findings.empty();
        }
        if (failure.isOfOptions && !settings.hasWordsOfRows && options.read.gcpList == nullptr) {
            throw UsageError(optionsMessage(failure));
        }
        if (settings.required != nullptr && !isFailure(failure) && text.empty()) {
            require(*settings.required, failure);
        }
        return !isFailure(failure) && item.translation.notes.empty() &&
               item.translation.findings.empty();
    }

    void refuse(const InputItem& input, Failure failure) override {
        take(input);
        plain.isWritten = false;
        isLone = false;
        item.translation.form = Form::UNKNOWN;
        item.translation.scheme = nullptr;
        item.translation.filter.reset();
        item.translation.notes.clear();
        item.translation.findings.clear();
        item.translation.asked = {};
        item.translation.bits = 0;
        item.translation.ais.clear();
        item.translation.fitsSchemes.clear();
        item.translation.failure = std::move(failure);
    }

    const Failure& failure() const override {
        return item.translation.failure;
    }
    std::string_view value() const override {
        return item.value;
    }
    const Rows<Note>* notes() const override {
        return &item.translation.notes;
    }
    const Rows<Finding>* findings() const override {
        return &item.translation.findings;
    }

    void writeLine(std::string& out) override {
        if (plain.isWritten) {
            out += plainFieldsLine(plain);
            return;
        }
        if (isLone) {
            out += text;
            out += '\n';
            return;
        }
        if (settings.writing == Writing::JSON) {
            appendJson(out, item.translation, item.value, item.line);
        } else if (!item.value.empty() || item.line == 0) {
            writeFields(out);
            if (settings.hasStatus && (settings.hasHeader || isFailure(failure()))) {
                out += '\t';
                out += epc_statusName(failure().status);
            }
        }
        out += '\n';
    }

    void writeArgument(std::string& out) override {
        if (settings.writing == Writing::JSON) {
            writeLine(out);
        } else if (isFailure(failure())) {
            return;
        } else if (settings.writing == Writing::HUMAN) {
            out += settings.hasSentence ? "This is " + describe(item.translation) + ".\n" : "";
            out += humanForms(item.translation, settings.isRaw);
        } else {
            writeFields(out);
            out += '\n';
        }
    }

    bool writesBlocks() const override {
        return settings.writing == Writing::HUMAN;
    }
    bool linesTellFailures() const override {
        return writesFieldOrAll("message");
    }
    bool linesTellNotes() const override {
        return writesFieldOrAll("notes");
    }

    void writeCells(std::vector<std::string>& cells) override {
        const bool isBlank = item.value.empty();
        cells.resize(settings.fields.size() + (settings.hasStatus ? 1 : 0));
        for (std::size_t i = 0; i < settings.fields.size(); ++i) {
            cells[i].clear();
            if (plain.isWritten) {
                cells[i] = plainField(plain, i);
            } else if (!isBlank) {
                appendText(*settings.fields[i], cells[i]);
                spell(*settings.fields[i], cells[i]);
            }
        }
        if (settings.hasStatus) {
            cells.back() = isBlank ? "" : epc_statusName(failure().status);
        }
    }

private:
    bool writesFieldOrAll(std::string_view name) const {
        const auto isIt = [=](const Field* field) { return field->name == name; };
        return settings.writing == Writing::JSON || std::ranges::any_of(settings.fields, isIt);
    }

    void take(const InputItem& input) {
        item.value = input.value;
        item.line = input.line;
    }

    // Converts by way of a translation.
    void convertAny() {
        const Form only = settings.required == nullptr ? Form::UNKNOWN : settings.required->text;
        if (settings.isEncode && only == Form::HEX && settings.wanted == only) {
            text = encodeToHex(item.value, options, item.translation);
        } else if (settings.isEncode) {
            encode(item.value, options, settings.wanted, item.translation);
            text = formText(item.translation, only);
        } else if (settings.wanted == only) {
            text = rosetag::convert(item.value, options.read, only, item.translation);
        } else {
            translate(item.value, options.read, settings.wanted, item.translation);
            text = formText(item.translation, only);
        }
    }

    // Takes scheme, filter and prefix length of this row.
    bool takeWords(std::span<const std::string> cells) {
        options = settings.options;
        std::string error = encodeOptionsOf(settings.words, cells, options);
        if (!error.empty()) {
            const InputItem whole{item.value, item.line, {}};
            Failure failure = {EPC_ERR_OUT_OF_RANGE, std::move(error)};
            placeAtValue(failure);
            refuse(whole, std::move(failure));
            return false;
        }
        return true;
    }

    void placeAtValue(Failure& failure) const {
        failure.position = 0;
        failure.length = item.value.size();
        failure.culprit = item.value;
    }

    // What the value is, in words. A conversion to a single form does not find that out.
    std::string nameOfValue() {
        if (!settings.isEncode) {
            translate(item.value, options.read, {}, described);
        }
        const Translation& known = settings.isEncode ? item.translation : described;
        return known.scheme == nullptr ? std::string(formName(known.form))
                                       : "a value of " + std::string(known.scheme->name);
    }

    static bool lacksGcpLength(const Translation& translation) {
        for (const Note& note : translation.notes) {
            if (note.kind == NoteKind::NEEDS_GCP_LENGTH) {
                return true;
            }
        }
        return false;
    }

    // Makes the text of a field that is not a form at hand. Fails where the value has none.
    void require(const Field& field, Failure& failure) {
        scratch.clear();
        field.append(scratch, item);
        text = scratch;
        if (text.empty()) {
            failure = Failure();
            failure.status = EPC_ERR_NOT_SUPPORTED;
            failure.message = nameOfValue() + " has no " + std::string(field.name);
            placeAtValue(failure);
            const bool isTag = field.text == Form::TAG_URI || field.text == Form::HEX;
            if (lacksGcpLength(item.translation)) {
                failure.message += " without the length of the company prefix";
                failure.remedy = "give it";
                failure.option = "gcp_length";
            } else {
                failure.remedy = isTag && !settings.isEncode && described.scheme == nullptr
                                     ? "encode it for a tag, or choose another form"
                                     : "choose another form";
                failure.option = "to";
            }
        }
    }

    // Appends the text of a field. The required one has it at hand.
    void appendText(const Field& field, std::string& out) const {
        const bool hasFailed = isFailure(item.translation.failure);
        if (&field == settings.required && !hasFailed) {
            out += text;
        } else if (!hasFailed || field.isOfFailure) {
            field.append(out, item);
        }
    }

    // Spells the separators of barcode strings {GS} unless they are to stay.
    void spell(const Field& field, std::string& cell) const {
        if (field.holdsGivenText && !settings.isRaw) {
            spellSeparators(cell);
        }
    }

    void writeFields(std::string& out) {
        for (const Field* field : settings.fields) {
            if (field != settings.fields.front()) {
                out += '\t';
            }
            const std::size_t from = out.size();
            appendText(*field, out);
            if (field->holdsGivenText && !isPlainCell(std::string_view(out).substr(from))) {
                scratch.assign(out, from);
                out.resize(from);
                spell(*field, scratch);
                tsvAppendCell(out, scratch);
            }
        }
    }

    const TranslationSettings& settings;
    EncodeOptions options;
    PlainFields plain;
    Item item;
    Translation described; // what a value is that lacks a form
    std::string composed;
    std::string_view text; // of the required field, after a conversion without failure
    bool isLone = false;   // the text is all there is to write, as it is
    std::string scratch;
};

} // namespace

std::string encodeOptionsOf(const EncodeWords& words, std::span<const std::string> cells,
                            EncodeOptions& options) {
    const std::string scheme = templateFill(words.scheme, cells);
    const std::string filter = templateFill(words.filter, cells);
    const std::string gcpLength = templateFill(words.gcpLength, cells);
    if (!scheme.empty()) {
        options.scheme = schemeByName(scheme);
        if (options.scheme == nullptr) {
            return "--scheme: there is no scheme \"" + scheme + "\"; rosetag schemes lists all";
        }
    }
    if (!gcpLength.empty()) {
        options.read.gcpLength = numberOf(gcpLength);
        if (options.read.gcpLength.value_or(0) < MIN_GCP_LENGTH ||
            *options.read.gcpLength > MAX_GCP_LENGTH) {
            return "--gcp-length: a company prefix has " + std::to_string(MIN_GCP_LENGTH) + " to " +
                   std::to_string(MAX_GCP_LENGTH) + " digits, not \"" + gcpLength + '"';
        }
    }
    if (!filter.empty()) {
        options.filter = numberOf(filter);
        if (!options.filter.has_value()) {
            return setFilterByWord(filter, options);
        }
    }
    return {};
}

std::vector<AddedColumn> addedColumns(const TranslationSettings& settings) {
    std::vector<AddedColumn> columns;
    for (const Field* field : settings.fields) {
        columns.push_back({field->name, field->isNumber});
    }
    if (settings.hasStatus) {
        columns.push_back({"status", false});
    }
    return columns;
}

std::unique_ptr<Converter> translationConverter(const TranslationSettings& settings) {
    return std::make_unique<TranslationConverter>(settings);
}

} // namespace rosetag
