#include "arguments.h"

#include "choices.h"
#include "command_line.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <span>
#include <sstream>

namespace rosetag {

namespace {

// "--to excludes --json" and "VALUE excludes --input" in plain words. The error holds the two names
// in its text alone.
std::string exclusionText(const std::string& text) {
    constexpr std::string_view excludes = " excludes ";
    const std::size_t at = text.find(excludes);
    const std::string one = text.substr(0, at);
    const std::string other = text.substr(at + excludes.size());
    if (one == "VALUE" || other == "VALUE") {
        return (one == "VALUE" ? other : one) + " is for lines, and here a value is given";
    }
    return one + " does not go together with " + other;
}

// An option that the command does not have.
std::string strangerText(const CLI::App& app, const CLI::ExtrasError& error) {
    const std::vector<std::string> strangers = app.remaining(true);
    const auto option = std::ranges::find_if(
        strangers, [](const std::string& word) { return word.starts_with('-'); });
    if (option == strangers.end()) {
        return error.what();
    }
    if (*option == "-v") {
        return "there is no option \"-v\"; rosetag -V shows the version";
    }
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
    }
    std::vector<std::string> names;
    for (const CLI::Option* known : command->get_options()) {
        for (const std::string& name : known->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return unknownWordError(names, "option", option->substr(0, option->find('=')));
}

// The words in reverse order. "rosetag help encode" is another way to say "rosetag encode --help".
std::vector<std::string> wordsOf(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    if (!words.empty() && words.front() == "help") {
        words.erase(words.begin());
        words.emplace_back("--help");
    }
    return {words.rbegin(), words.rend()};
}

// Parses words, which are in reverse order. Help and version are written, and their exit status
// given.
std::optional<int> parse(CLI::App& app, std::vector<std::string> words, Output& output) {
    try {
        app.parse(std::move(words));
    } catch (const CLI::Success& asked) {
        std::ostringstream text;
        app.exit(asked, text, text);
        outputWrite(output, text.str());
        return EXIT_STATUS_GOOD;
    } catch (const CLI::ExcludesError& error) {
        throw UsageError(exclusionText(error.what()));
    } catch (const CLI::ExtrasError& error) {
        throw UsageError(strangerText(app, error));
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }
    return std::nullopt;
}

// A word that is nothing but a value: no option, no name of a command, and no brackets in which the
// parser finds several values.
bool isValueAlone(std::string_view word, const std::vector<std::string>& commands) {
    constexpr std::string_view begins = "(/";
    return !word.empty() && word != "help" &&
           (std::isalnum(static_cast<unsigned char>(word.front())) != 0 ||
            begins.find(word.front()) != std::string_view::npos) &&
           std::ranges::find(commands, word) == commands.end();
}

// Takes values without a command and without options, as most are tried by hand. False if there is
// anything else, which the parser of options takes: to build that takes longer than to convert.
bool takeValuesAlone(int argc, char** argv, Arguments& arguments) {
    const std::vector<std::string> commands = commandNames();
    const std::span<char* const> words(argv + 1, argv + argc);
    const bool areValues =
        !words.empty() && std::getenv(gcpListVariable) == nullptr &&
        std::ranges::all_of(words, [&](const char* word) { return isValueAlone(word, commands); });
    if (areValues) {
        arguments.isBare = true;
        arguments.values.assign(words.begin(), words.end());
    }
    return areValues;
}

} // namespace

std::optional<int> argumentsRead(int argc, char** argv, Output& output, Arguments& arguments) {
    if (takeValuesAlone(argc, argv, arguments)) {
        return std::nullopt;
    }
    CLI::App app("Translates identifiers between the forms used in GS1 and RFID data capture.\n"
                 "rosetag VALUE says what a value is.",
                 "rosetag");
    commandLineBuild(app, arguments);
    std::vector<std::string> words = wordsOf(argc, argv);
    if (words.empty()) {
        throw UsageError("give a value, or a command such as decode or encode");
    }
    if (const std::optional<int> exitStatus = parse(app, std::move(words), output)) {
        return exitStatus;
    }
    const std::vector<std::string> rest = app.remaining();
    arguments.isBare = app.get_subcommands().empty();
    if (arguments.isBare) {
        CLI::App* const decode = app.get_subcommand("decode")->name("rosetag");
        return parse(*decode, {rest.rbegin(), rest.rend()}, output);
    }
    if (!rest.empty()) {
        throw UsageError(rest.front() + " belongs after the command");
    }
    return std::nullopt;
}

} // namespace rosetag
