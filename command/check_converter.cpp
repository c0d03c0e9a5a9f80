#include "converters.h"
#include "csv_cells.h"
#include "fields.h"

namespace rosetag {

namespace {

class CheckConverter : public Converter {
public:
    CheckConverter(const ReadOptions& theOptions, bool isJsonWanted)
        : options(theOptions), isJson(isJsonWanted) {}

    bool convert(const InputItem& input) override {
        given = input.value;
        line = input.line;
        check(given, options, found);
        setFailure();
        noteReading();
        return false;
    }
    void refuse(const InputItem& input, Failure failure) override {
        given = input.value;
        line = input.line;
        found.clear();
        taken.clear();
        problem = std::move(failure);
    }

    // The first error.
    const Failure& failure() const override {
        return problem;
    }
    std::string_view failureWord() const override {
        const Finding* const error = firstError();
        return error == nullptr ? Converter::failureWord() : checkRuleWord(error->rule);
    }
    std::string_view value() const override {
        return given;
    }
    const Rows<Note>* notes() const override {
        return &taken;
    }
    const Rows<Finding>* findings() const override {
        return &found;
    }

    // A row for each finding: line, severity, rule, AI, position, culprit, message.
    void writeLine(std::string& out) override {
        if (isJson) {
            return writeArgument(out);
        }
        for (const Finding& finding : found) {
            out += std::to_string(line) + '\t';
            out += severityWord(finding.severity);
            out += '\t';
            out += checkRuleWord(finding.rule);
            out += '\t' + finding.ai + '\t' + std::to_string(finding.position + 1) + '\t';
            tsvAppendCell(out, finding.culprit);
            out += '\t';
            tsvAppendCell(out, finding.message + optionHint(finding.option));
            out += '\n';
        }
        if (found.empty() && isFailure(problem)) {
            out += std::to_string(line) + "\terror\t" + std::string(Converter::failureWord()) +
                   "\t\t" + std::to_string(problem.position + 1) + '\t';
            tsvAppendCell(out, problem.culprit);
            out += '\t' + problem.message + "; " + problem.remedy + '\n';
        }
    }
    void writeArgument(std::string& out) override {
        if (isJson) {
            appendJson(out, found, taken, given, line);
            out += '\n';
            return;
        }
        out += shownText(given) + '\n';
        for (const Finding& finding : found) {
            out += "  ";
            out += severityWord(finding.severity);
            out += ' ' + findingMessage(finding) + '\n';
        }
        out += found.empty() ? "  no findings\n" : "";
    }
    bool showsFailures() const override {
        return true;
    }
    bool linesTellFailures() const override {
        return true;
    }
    bool linesTellNotes() const override {
        return isJson;
    }

    void writeCells(std::vector<std::string>& cells) override {
        cells.assign(2, {});
        if (!found.empty() || isFailure(problem)) {
            cells[0] = severityWord(isFailure(problem) ? Severity::ERROR : Severity::WARNING);
        }
        for (const Finding& finding : found) {
            cells[1] += (cells[1].empty() ? "" : "; ") + findingMessage(finding);
        }
        cells[1] += found.empty() && isFailure(problem) ? failureMessage(problem) : "";
    }

private:
    const Finding* firstError() const {
        for (const Finding& finding : found) {
            if (finding.severity == Severity::ERROR) {
                return &finding;
            }
        }
        return nullptr;
    }

    void setFailure() {
        const Finding* const error = firstError();
        problem = {};
        if (error != nullptr) {
            problem.status = EPC_ERR_BAD_FORMAT;
            problem.message = findingMessage(*error);
        }
    }

    // What a check passes over without a finding: blanks, and words before the EPC.
    void noteReading() {
        constexpr std::string_view blanks = " \t\r";
        const auto isBlank = [=](char character) {
            return blanks.find(character) != std::string_view::npos;
        };
        const auto mayBeginHex = [](char character) {
            return (character >= '0' && character <= '9') ||
                   (character >= 'A' && character <= 'F') || (character >= 'a' && character <= 'f');
        };
        taken.clear();
        if (given.empty() ||
            !(isBlank(given.front()) || isBlank(given.back()) || mayBeginHex(given.front()))) {
            return;
        }
        recognise(given, options, recognition);
        for (const Note& note : recognition.notes) {
            if (note.kind == NoteKind::BLANKS || note.kind == NoteKind::PC_WORD ||
                note.kind == NoteKind::MAY_BE_PC_WORD) {
                taken.add() = note;
            }
        }
    }

    const ReadOptions options;
    const bool isJson;
    std::string_view given;
    std::uint64_t line = 0;
    Rows<Finding> found;
    Rows<Note> taken;
    Recognition recognition;
    Failure problem;
};

} // namespace

std::unique_ptr<Converter> checkConverter(const ReadOptions& options, bool isJson) {
    return std::make_unique<CheckConverter>(options, isJson);
}

} // namespace rosetag
