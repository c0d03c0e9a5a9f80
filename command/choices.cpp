#include "choices.h"

#include "fields.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::string_view autoEncoding = "auto";

struct DelimiterWord {
    std::string_view word;
    char delimiter;
};

constexpr DelimiterWord delimiterWords[] = {
    {"tab", '\t'},
    {"comma", ','},
    {"semicolon", ';'},
    {"bar", '|'},
};

template <typename Rows, typename Member>
std::vector<std::string> wordsOf(const Rows& rows, Member member) {
    std::vector<std::string> words;
    for (const auto& row : rows) {
        words.emplace_back(row.*member);
    }
    return words;
}

bool beginsLike(std::string_view word, std::string_view start) {
    return word.size() >= start.size() &&
           std::equal(start.begin(), start.end(), word.begin(), [](char one, char other) {
               return std::tolower(static_cast<unsigned char>(one)) ==
                      std::tolower(static_cast<unsigned char>(other));
           });
}

// Those of the words that begin like what was given, as far as any does; all where none does.
std::vector<std::string> wordsLike(const std::vector<std::string>& words, std::string_view given) {
    for (; given.size() > 1; given.remove_suffix(1)) {
        std::vector<std::string> found;
        std::ranges::copy_if(words, std::back_inserter(found),
                             [&](const std::string& word) { return beginsLike(word, given); });
        if (!found.empty()) {
            return found;
        }
    }
    return words;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

} // namespace

std::vector<std::string> choicesOf(std::string_view typeName) {
    if (typeName.starts_with("FIELD")) {
        return wordsOf(fields(), &Field::name);
    }
    if (typeName == "SCHEME") {
        return wordsOf(schemes(), &SchemeInfo::name);
    }
    if (typeName == "ENCODING") {
        std::vector<std::string> words = {std::string(autoEncoding)};
        words.insert(words.end(), encodingWords().begin(), encodingWords().end());
        return words;
    }
    if (typeName == "BANK") {
        return {bankWords().begin(), bankWords().end()};
    }
    if (typeName == "DELIMITER") {
        return wordsOf(delimiterWords, &DelimiterWord::word);
    }
    if (typeName == "GCP-LENGTH") {
        std::vector<std::string> words;
        for (int length = MIN_GCP_LENGTH; length <= MAX_GCP_LENGTH; ++length) {
            words.push_back(std::to_string(length));
        }
        return words;
    }
    return {};
}

std::string choicesText(std::string_view typeName) {
    return joined(choicesOf(typeName));
}

std::string unknownWordError(const std::vector<std::string>& words, std::string_view what,
                             std::string_view given) {
    const std::vector<std::string> like = wordsLike(words, given);
    return "there is no " + std::string(what) + " \"" + std::string(given) + "\"; " +
           (like.size() == 1 ? "did you mean " + like.front() + "?"
                             : "choose one of " + joined(like));
}

std::string choiceError(std::string_view typeName, std::string_view what, std::string_view given) {
    const std::vector<std::string> words = choicesOf(typeName);
    return std::ranges::find(words, given) == words.end() ? unknownWordError(words, what, given)
                                                          : std::string();
}

int encodingByWord(std::string_view word) {
    const auto words = encodingWords();
    const auto found = std::ranges::find(words, word);
    return found == words.end() ? AI_ENC_AUTO : static_cast<int>(found - words.begin());
}

Bank bankByWord(std::string_view word) {
    return static_cast<Bank>(std::ranges::find(bankWords(), word) - bankWords().begin());
}

char delimiterOf(std::string_view given) {
    const auto* const found = std::ranges::find(delimiterWords, given, &DelimiterWord::word);
    if (found != std::end(delimiterWords)) {
        return found->delimiter;
    }
    return given.size() == 1 && given != "\"" && given != "\n" && given != "\r" ? given[0] : '\0';
}

} // namespace rosetag
