/*
 * Writes the completions for bash, zsh and fish, and the man page, from the description of the
 * command line: pages bash|zsh|fish, pages man TEMPLATE.
 */
#include "choices.h"
#include "command_line.h"
#include "help_formatter.h"
#include "wrapped_text.h"

#include <fstream>
#include <iostream>
#include <map>

using namespace rosetag;

namespace {

// A command as it is typed, "ai encode", and its options.
struct CommandPage {
    std::string name;
    const CLI::App* app;
};

std::vector<CommandPage> commandPages(const CLI::App& app) {
    std::vector<CommandPage> pages;
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::vector<const CLI::App*> parts = command->get_subcommands({});
        if (parts.empty()) {
            pages.push_back({command->get_name(), command});
        }
        for (const CLI::App* part : parts) {
            pages.push_back({command->get_name() + ' ' + part->get_name(), part});
        }
    }
    return pages;
}

// The options of a command, without the values.
std::vector<const CLI::Option*> optionsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) { return !option->get_positional(); });
}

std::string longName(const CLI::Option& option) {
    return "--" + option.get_lnames().front();
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

std::string optionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : optionsOf(command)) {
        names.push_back(longName(*option));
    }
    return joined(names);
}

// The options that take a value, by the names of their types.
std::map<std::string, std::vector<std::string>> optionsByType(const CLI::App& app) {
    std::map<std::string, std::vector<std::string>> options;
    for (const CommandPage& page : commandPages(app)) {
        for (const CLI::Option* option : optionsOf(*page.app)) {
            std::vector<std::string>& names = options[typeNameOf(*option)];
            const std::string name = longName(*option);
            if (takesValue(*option) && std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
            }
        }
    }
    return options;
}

std::string firstSentence(const std::string& text) {
    return text.substr(0, text.find(';'));
}

// ---- bash ----

void writeBashValues(std::ostream& out, const CLI::App& app) {
    for (const auto& [type, names] : optionsByType(app)) {
        if (names.empty()) {
            continue;
        }
        out << "        " << replaced(joined(names), " ", " | ") << ") ";
        if (type == "FILE") {
            out << "mapfile -t COMPREPLY < <(compgen -f -- \"$2\") ;;\n";
        } else if (type == "FIELD,...") {
            out << "_rosetag_offer_list '" << choicesText(type) << "' \"$2\" ;;\n";
        } else if (choicesOf(type).empty()) {
            out << ";;\n";
        } else {
            out << "_rosetag_offer '" << choicesText(type) << "' \"$2\" ;;\n";
        }
    }
}

void writeBash(std::ostream& out, const CLI::App& app) {
    out << R"(# Completion of rosetag for bash.

_rosetag_offer() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# The last of several words that are separated by commas.
_rosetag_offer_list() {
    local before=''
    [[ $2 == *,* ]] && before=${2%,*},
    _rosetag_offer "$1" "${2##*,}"
    COMPREPLY=("${COMPREPLY[@]/#/$before}")
}

# The value of an option that takes one. Fails for any other.
_rosetag_value() {
    case $1 in
)";
    writeBashValues(out, app);
    out << R"(        *) return 1 ;;
    esac
}

_rosetag() {
    local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    if [[ $COMP_CWORD -gt 1 ]] && _rosetag_value "${COMP_WORDS[COMP_CWORD - 1]}" "$current"; then
        return
    fi
    [[ $command == ai && $COMP_CWORD -gt 2 ]] && command="ai ${COMP_WORDS[2]}"
    [[ $COMP_CWORD -eq 1 ]] && command=''
    case $command in
        '') _rosetag_offer ')"
        << joined(commandNames()) << ' ' << optionNames(app) << R"(' "$current" ;;
        ai) _rosetag_offer 'encode decode --help' "$current" ;;
)";
    for (const CommandPage& page : commandPages(app)) {
        out << "        '" << page.name << "') _rosetag_offer '" << optionNames(*page.app)
            << "' \"$current\" ;;\n";
    }
    out << "    esac\n}\n\ncomplete -F _rosetag rosetag\n";
}

// ---- zsh ----

std::string zshText(const std::string& text) {
    std::string quoted = replaced(text, "'", "'\\''");
    for (const char* const special : {"[", "]", ":"}) {
        quoted = replaced(quoted, special, std::string("\\") + special);
    }
    return quoted;
}

std::string zshValue(const CLI::Option& option) {
    const std::string type = typeNameOf(option);
    if (!takesValue(option)) {
        return {};
    }
    if (type == "FILE") {
        return ":file:_files";
    }
    if (type == "FIELD,...") {
        return ":fields:_values -s , field " + choicesText(type);
    }
    const std::string choices = choicesText(type);
    return ':' + zshText(type) + ':' + (choices.empty() ? "" : '(' + choices + ')');
}

void writeZshOptions(std::ostream& out, const CLI::App& command) {
    for (const CLI::Option* option : optionsOf(command)) {
        out << " \\\n            '" << longName(*option) << '['
            << zshText(firstSentence(option->get_description())) << ']' << zshValue(*option)
            << '\'';
    }
}

void writeZsh(std::ostream& out, const CLI::App& app) {
    out << "#compdef rosetag\n# Completion of rosetag for zsh.\n\nlocal -a commands=(\n";
    for (const CLI::App* command : app.get_subcommands({})) {
        out << "    '" << command->get_name() << ':' << zshText(command->get_description())
            << "'\n";
    }
    out << ")\n\nif (( CURRENT == 2 )); then\n    _describe command commands\n    _arguments";
    writeZshOptions(out, app);
    out << R"(
    return
fi
local command=$words[2]
shift words
(( CURRENT-- ))
if [[ $command == ai ]]; then
    if (( CURRENT == 2 )); then
        _values command 'encode[make the bits of values]' 'decode[read the bits of values]'
        return
    fi
    command="ai $words[2]"
    shift words
    (( CURRENT-- ))
fi
case $command in
)";
    for (const CommandPage& page : commandPages(app)) {
        out << "    '" << page.name << "')\n        _arguments";
        writeZshOptions(out, *page.app);
        out << " \\\n            '*:value:' ;;\n";
    }
    out << "esac\n";
}

// ---- fish ----

std::string fishText(const std::string& text) {
    return '\'' + replaced(replaced(text, "\\", "\\\\"), "'", "\\'") + '\'';
}

std::string fishCondition(const std::string& command) {
    if (command.starts_with("ai ")) {
        return "__fish_seen_subcommand_from ai; and __fish_seen_subcommand_from " +
               command.substr(3);
    }
    return "__fish_seen_subcommand_from " + command + "; and not __fish_seen_subcommand_from ai";
}

std::string fishValue(const CLI::Option& option) {
    const std::string type = typeNameOf(option);
    if (!takesValue(option)) {
        return {};
    }
    if (type == "FILE") {
        return " -r -F";
    }
    const std::string choices = choicesText(type);
    if (type == "FIELD,...") {
        return " -x -a \"(__fish_complete_list , 'string split \\\" \\\" \\\"" + choices +
               "\\\"')\"";
    }
    return " -x" + (choices.empty() ? "" : " -a " + fishText(choices));
}

void writeFishOptions(std::ostream& out, const CLI::App& command, const std::string& condition) {
    for (const CLI::Option* option : optionsOf(command)) {
        out << "complete -c rosetag -n " << fishText(condition) << " -l "
            << option->get_lnames().front() << fishValue(*option) << " -d "
            << fishText(firstSentence(option->get_description())) << '\n';
    }
}

void writeFish(std::ostream& out, const CLI::App& app) {
    out << "# Completion of rosetag for fish.\n\ncomplete -c rosetag -f\n";
    writeFishOptions(out, app, "__fish_use_subcommand");
    for (const CLI::App* command : app.get_subcommands({})) {
        out << "complete -c rosetag -n __fish_use_subcommand -a " << command->get_name() << " -d "
            << fishText(command->get_description()) << '\n';
    }
    out << "complete -c rosetag -n '__fish_seen_subcommand_from ai; and not "
           "__fish_seen_subcommand_from encode decode' -a 'encode decode'\n";
    for (const CommandPage& page : commandPages(app)) {
        writeFishOptions(out, *page.app, fishCondition(page.name));
    }
}

// ---- man ----

std::string manText(const std::string& text) {
    std::string escaped = replaced(replaced(text, "\\", "\\e"), "-", "\\-");
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

struct ManOption {
    const CLI::Option* option;
    std::vector<std::string> commands;
};

// Options of one name and description are listed once.
std::vector<ManOption> manOptions(const CLI::App& app) {
    std::vector<ManOption> options;
    const auto add = [&](const CLI::Option* option, const std::string& command) {
        for (ManOption& known : options) {
            if (longName(*known.option) == longName(*option) &&
                known.option->get_description() == option->get_description()) {
                known.commands.push_back(command);
                return;
            }
        }
        options.push_back({option, {command}});
    };
    for (const CLI::Option* option : optionsOf(app)) {
        add(option, "rosetag");
    }
    for (const CommandPage& page : commandPages(app)) {
        for (const CLI::Option* option : optionsOf(*page.app)) {
            add(option, page.name);
        }
    }
    return options;
}

void writeManOption(std::ostream& out, const ManOption& entry) {
    const CLI::Option& option = *entry.option;
    const std::string name = manText(replaced(option.get_name(false, true), ",", ", "));
    out << ".TP\n";
    if (takesValue(option)) {
        out << ".BI \"" << name << "\" \" " << manText(typeNameOf(option)) << "\"\n";
    } else {
        out << ".B " << name << '\n';
    }
    std::string text = option.get_description();
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    out << manText(text) << ".\n";
    if (entry.commands.front() != "rosetag") {
        std::string commands;
        for (const std::string& command : entry.commands) {
            commands += (commands.empty() ? "" : ", ") + command;
        }
        out << "Of " << manText(commands) << ".\n";
    }
}

// A line "@OPTIONS@" of the template becomes the list of options, "@FIELDS@" the names of the
// fields, "@SCHEMES@" those of the schemes.
void writeMan(std::ostream& out, const CLI::App& app, std::istream& page) {
    for (std::string line; std::getline(page, line);) {
        if (line == "@OPTIONS@") {
            for (const ManOption& option : manOptions(app)) {
                writeManOption(out, option);
            }
        } else if (line == "@FIELDS@") {
            out << manText(choicesText("FIELD")) << ".\n";
        } else if (line == "@SCHEMES@") {
            out << manText(choicesText("SCHEME")) << ".\n";
        } else {
            out << line << '\n';
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("", "rosetag");
    Arguments arguments;
    commandLineBuild(app, arguments);
    commandLineComplete(app, arguments);
    const std::string kind = argc > 1 ? argv[1] : "";
    if (kind == "bash") {
        writeBash(std::cout, app);
    } else if (kind == "zsh") {
        writeZsh(std::cout, app);
    } else if (kind == "fish") {
        writeFish(std::cout, app);
    } else if (kind == "man" && argc == 3) {
        std::ifstream page(argv[2]);
        writeMan(std::cout, app, page);
    } else {
        std::cerr << "usage: pages bash|zsh|fish, pages man TEMPLATE\n";
        return EXIT_STATUS_USAGE;
    }
    return std::cout.flush() ? EXIT_STATUS_GOOD : EXIT_STATUS_IO;
}
