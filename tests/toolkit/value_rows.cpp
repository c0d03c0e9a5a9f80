#include "toolkit/value_rows.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace rosetag;

namespace {

struct Question {
    std::string verb;
    EncodeOptions options;
    FormSet forms = ALL_FORMS;
    std::string ai;
};

void addOption(Question& question, const std::string& word) {
    EncodeOptions& options = question.options;
    if (const SchemeInfo* const scheme = schemeByName(word); scheme != nullptr) {
        options.scheme = scheme;
    } else if (word.starts_with("gcp=")) {
        options.read.gcpLength = std::stoi(word.substr(4));
    } else if (word.starts_with("filter=")) {
        options.filter = std::stoi(word.substr(7));
    } else if (word.starts_with("separator=")) {
        options.read.separator = word.back();
    } else if (word == "barcode") {
        options.read.asBarcode = true;
    } else if (word == "strict") {
        options.read.strict = true;
    } else if (word == "checked") {
        question.forms = question.forms | Form::FINDINGS;
    } else if (word == "epc" || word == "pc" || word == "crc-pc") {
        options.read.bank = word == "epc" ? Bank::EPC : word == "pc" ? Bank::PC : Bank::CRC_PC;
    } else {
        question.ai = word;
    }
}

std::string textOf(const Translation& item) {
    return !item.elementString.empty()  ? item.elementString
           : !item.pureIdentity.empty() ? item.pureIdentity
                                        : item.tagUri;
}

} // namespace

std::string unescaped(std::string text) {
    for (std::size_t at = text.find("\\x"); at != std::string::npos;
         at = text.find("\\x", at + 1)) {
        text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
    }
    return text;
}

Answer ask(std::string_view text, const std::string& value) {
    std::istringstream words{std::string(text)};
    Question question;
    words >> question.verb;
    for (std::string word; words >> word;) {
        addOption(question, word);
    }
    const EncodeOptions& options = question.options;
    if (question.verb == "encode") {
        Translation item = encode(value, options, question.forms);
        return {item.failure, item.notes, item.hex};
    }
    if (question.verb == "explain") {
        Explanation explanation = explain(value, options.read);
        return {explanation.failure, explanation.notes, explanation.hex};
    }
    if (question.verb == "tid") {
        Tid memory = tid(value);
        return {memory.failure, memory.notes, memory.hex};
    }
    if (question.verb == "ai-encode") {
        const AiTranslation ai = encodeAi(question.ai, value);
        return {ai.failure, ai.notes, ai.hex};
    }
    if (question.verb == "ai-decode") {
        const AiTranslation ai = decodeAi(value, question.ai);
        return {ai.failure, ai.notes, ai.ai.value};
    }
    EXPECT_EQ("decode", question.verb);
    Translation item = translate(value, options.read, question.forms);
    return {item.failure, item.notes, textOf(item)};
}
