/*
 * The shared rows, which every face of the toolkit must pass: here the toolkit itself.
 */
#include "toolkit/rows_of_file.h"

#include <rosetag/toolkit.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

using namespace rosetag;

struct VectorRow {
    std::string id, op, input, scheme, filter, gcpLength, encoding, status, output;
};

// A cell without its escapes: \t, \n, \\ and \xHH.
std::string cellText(const std::string& cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\') {
            text += cell[i];
            continue;
        }
        const char kind = cell[++i];
        if (kind == 'x') {
            text += static_cast<char>(std::stoi(cell.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            text += kind == 't' ? '\t' : kind == 'n' ? '\n' : kind;
        }
    }
    return text;
}

std::vector<VectorRow> vectorRows() {
    std::vector<VectorRow> rows;
    for (std::vector<std::string>& cells : rowsOfFile("../../vectors/rosetag.tsv")) {
        cells.resize(9); // an empty output at the end of a line is not a cell
        VectorRow row;
        std::string* const members[] = {&row.id,       &row.op,     &row.input,
                                        &row.scheme,   &row.filter, &row.gcpLength,
                                        &row.encoding, &row.status, &row.output};
        for (std::size_t i = 0; i < cells.size(); ++i) {
            *members[i] = cellText(cells[i]);
        }
        rows.push_back(row);
    }
    rows.erase(rows.begin()); // the names of the columns
    return rows;
}

struct Outcome {
    EpcStatus status = EPC_OK;
    std::string output;
};

// What is no failure has no words either.
Outcome outcomeOf(const Failure& failure, std::string_view output) {
    EXPECT_EQ(isFailure(failure), !failure.message.empty()) << failure.message;
    return {failure.status, isFailure(failure) ? std::string() : std::string(output)};
}

int encodingOf(const std::string& word) {
    const auto words = encodingWords();
    const auto found = std::find(words.begin(), words.end(), word);
    return found == words.end() ? AI_ENC_AUTO : static_cast<int>(found - words.begin());
}

Outcome encodeRow(const VectorRow& row) {
    EncodeOptions options;
    options.scheme = row.scheme.empty() ? nullptr : schemeByName(row.scheme);
    options.encoding = encodingOf(row.encoding);
    if (!row.filter.empty()) {
        options.filter = std::stoi(row.filter);
    }
    if (!row.gcpLength.empty()) {
        options.read.gcpLength = std::stoi(row.gcpLength);
    }
    const Translation item = encode(row.input, options);
    return outcomeOf(item.failure, item.hex);
}

Outcome encodeAiRow(const VectorRow& row) {
    const std::size_t end = row.input.find(')');
    const AiTranslation item = encodeAi(row.input.substr(1, end - 1), row.input.substr(end + 1),
                                        true, encodingOf(row.encoding));
    return outcomeOf(item.failure, item.hex);
}

Outcome decodeAiRow(const VectorRow& row) {
    const AiTranslation item = decodeAi(row.input);
    return outcomeOf(item.failure, "(" + item.ai.ai + ")" + item.ai.value);
}

Outcome tidRow(const VectorRow& row) {
    const Tid memory = tid(row.input);
    const std::string serial = memory.record.serial;
    return outcomeOf(memory.failure, std::to_string(memory.record.mdid & TID_DESIGNER_MASK) + " " +
                                         std::to_string(memory.record.tmid) +
                                         (serial.empty() ? "" : " " + serial));
}

Outcome checkRow(const VectorRow& row) {
    std::string text;
    for (const Finding& finding : check(row.input)) {
        text += text.empty() ? "" : ", ";
        text += std::string(severityWord(finding.severity)) + " " +
                std::string(checkRuleWord(finding.rule));
        text += finding.ai.empty() ? "" : " " + finding.ai;
    }
    return {EPC_OK, text};
}

Outcome explainRow(const VectorRow& row) {
    const Explanation explanation = explain(row.input);
    std::string text;
    for (const ExplainedField& field : explanation.fields) {
        text += (text.empty() ? "" : ", ") + field.name + "=" +
                explanation.bits.substr(field.first, field.width);
    }
    return {explanation.failure.status, text};
}

Outcome translateRow(const VectorRow& row) {
    const Translation item = translate(row.input);
    if (row.op == "scheme") {
        return outcomeOf(item.failure,
                         item.scheme == nullptr ? std::string_view() : item.scheme->name);
    }
    if (row.op == "filter") {
        return outcomeOf(item.failure, item.filter.has_value() ? std::to_string(*item.filter) : "");
    }
    if (row.op == "ais") {
        std::string text;
        for (const AiValue& ai : item.ais) {
            text += "(" + ai.ai + ")" + ai.value;
        }
        return outcomeOf(item.failure, text);
    }
    const Form form = formByWord(row.op);
    EXPECT_NE(Form::UNKNOWN, form) << row.op;
    return outcomeOf(item.failure, formText(item, form));
}

TEST(Vectors, HoldForTheToolkit) {
    const std::map<std::string, Outcome (*)(const VectorRow&)> operations = {
        {"encode", encodeRow}, {"encode_ai", encodeAiRow}, {"decode_ai", decodeAiRow},
        {"tid", tidRow},       {"check", checkRow},        {"explain", explainRow},
    };
    const std::vector<VectorRow> rows = vectorRows();
    std::set<std::string> ids;
    for (const VectorRow& row : rows) {
        SCOPED_TRACE(row.id + " " + row.op + " " + row.input);
        const auto operation = operations.find(row.op);
        const Outcome found =
            operation == operations.end() ? translateRow(row) : operation->second(row);
        EXPECT_EQ(row.status, epc_statusName(found.status));
        EXPECT_EQ(row.output, found.output);
        ids.insert(row.id);
    }
    EXPECT_EQ(rows.size(), ids.size());
    EXPECT_LE(2000U, rows.size());
    EXPECT_GE(4000U, rows.size());
}

} // namespace
