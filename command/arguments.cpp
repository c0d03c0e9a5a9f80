#include "arguments.h"

#include <rosetag/toolkit.hpp>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

namespace rosetag {

namespace {

constexpr std::array<std::string_view, 7> commandWords = {"decode", "encode",  "explain", "ai",
                                                          "tid",    "schemes", "help"};

constexpr const char* mainExamples = R"(Examples:
  rosetag 3074257BF7194E4000001A85
  rosetag decode "(01)80614141123458(21)6789(10)LOT7"
  rosetag encode --scheme sgtin-96 --filter 3 --gcp-length 7 "(01)80614141123458(21)6789"
  rosetag explain 3074257BF7194E4000001A85
  rosetag tid E2003412

Exit status: 0 all went well, 1 a value could not be converted, 2 wrong usage, 3 a file or pipe
could not be read or written.)";

constexpr const char* decodeExamples = R"(Examples:
  rosetag decode 3074257BF7194E4000001A85
  rosetag decode "30 74 25 7B F7 19 4E 40 00 00 1A 85"
  rosetag decode urn:epc:id:sgtin:0614141.812345.6789
  rosetag decode "https://shop.example/01/9506000134352/10/LOT7?utm_source=box"
  rosetag decode --gcp-length 7 "]C1018061414112345810LOT7{GS}216789"
  rosetag decode --json 3074257BF7194E4000001A85
  echo 3074257BF7194E4000001A85 | rosetag decode --to tag-uri
  printf 'id,epc\n7,3074257BF7194E4000001A85\n' | rosetag decode --column epc --fields scheme,digital-link

Without values the lines of standard input or of --input are read, and a line is written for each:
the field of --to (tag-uri if nothing is said), those of --fields, or a JSON object. A line that
fails has an empty result and its status behind a tab. Fields:
  value line form scheme filter tag-uri pure-uri element-string barcode-string digital-link hex
  words binary bits ais status message)";

constexpr const char* encodeExamples = R"(Examples:
  rosetag encode urn:epc:tag:sgtin-96:3.0614141.812345.6789
  rosetag encode --scheme sgtin-96 --filter 3 urn:epc:id:sgtin:0614141.812345.6789
  rosetag encode --scheme sgtin-198 --gcp-length 7 "(01)80614141123458(21)A/B"
  rosetag encode --scheme sgtin+ "https://example.com/01/80614141123458/21/6789?17=251231"
  rosetag encode --scheme sscc-96 --gcp-length 7 --to words "]C100106141412345678908"
  rosetag encode --scheme giai+ --encoding iso646 "(8004)0614141ABC"
  echo "(01)80614141123458(21)6789" | rosetag encode --scheme sgtin-96 --gcp-length 7

A link may have a host, a path in front of its key, and parameters that are no AIs: what is left
out is told, and --strict takes it as it is.
Without values the lines of standard input or of --input are read. Fields of --fields:
  value line form scheme filter hex words binary bits status message)";

constexpr const char* explainExamples = R"(Examples:
  rosetag explain 3074257BF7194E4000001A85
  rosetag explain urn:epc:tag:sscc-96:3.0614141.1234567890
  rosetag explain E2003412)";

constexpr const char* aiExamples = R"(Examples:
  rosetag ai encode 21 ABCG
  rosetag ai encode 10 LOT7 --with-code --encoding iso646
  rosetag ai decode --ai 21 64001086
  rosetag ai decode 2164001086)";

constexpr const char* tidExamples = R"(Examples:
  rosetag tid E2003412
  rosetag tid "E280 1130 2000 1234 5678 9ABC")";

constexpr const char* autoWord = "auto";

// AI_ENC_AUTO for the word that is no encoding's.
int encodingOf(std::string_view word) {
    const auto words = encodingWords();
    const auto found = std::find(words.begin(), words.end(), word);
    return found == words.end() ? AI_ENC_AUTO : static_cast<int>(found - words.begin());
}

// What CLI11 fills before it becomes Arguments.
struct Words {
    std::string scheme;
    std::string encoding = autoWord;
    std::string aiValue;
    std::string hex;
    std::string column;
    std::string delimiter;
    bool noHeader = false;
};

void addValues(CLI::App& command, Arguments& arguments, const char* description) {
    command.add_option("VALUE", arguments.values, description);
}

void addReading(CLI::App& command, Arguments& arguments) {
    command.add_flag("--barcode", arguments.read.asBarcode,
                     "a value without a mark is a barcode string, not hex");
    command.add_flag("--strict", arguments.read.strict,
                     "take links as they are; a run over lines stops at the first failure");
}

void addWriting(CLI::App& command, Arguments& arguments) {
    command.add_flag("--json", arguments.isJson, "write a JSON object for each value, a line each");
    command.add_option("--to", arguments.to, "write this one field of each value")
        ->type_name("FIELD");
    command
        .add_option("--fields", arguments.fields,
                    "write these fields of each value, separated by tabs")
        ->type_name("FIELD,...");
}

void addRunning(CLI::App& command, Arguments& arguments, Words& words) {
    RunOptions& run = arguments.run;
    const std::string group = "Options for lines";
    command.add_option("--input", run.inputFile, "read this file, not standard input")
        ->type_name("FILE")
        ->group(group);
    command
        .add_option("--column", words.column,
                    "the values stand in this column of a CSV or TSV table; its rows are kept, "
                    "the results stand behind them")
        ->type_name("NAME|N")
        ->group(group);
    command
        .add_option("--delimiter", words.delimiter,
                    "what stands between the cells of the table: a character, or tab")
        ->type_name("C")
        ->group(group);
    command.add_flag("--no-header", words.noHeader, "the table has no line of column names")
        ->group(group);
    command
        .add_option("--errors", run.errorsFile,
                    "write lines that fail here: number, status, value, message")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--jobs", run.jobs, "convert on so many threads")
        ->type_name("N")
        ->check(CLI::Range(1, 256))
        ->group(group);
    command
        .add_flag("--unbuffered", run.isUnbuffered, "write each line as soon as it is converted")
        ->group(group);
    command.add_flag("--quiet", run.isQuiet, "no summary and no progress on standard error")
        ->group(group);
}

void addGcpLength(CLI::App& command, Arguments& arguments) {
    command
        .add_option("--gcp-length", arguments.encode.gcpLength,
                    "the number of digits of the GS1 company prefix, 6 to 12")
        ->type_name("N")
        ->check(CLI::Range(6, 12));
}

void addEncoding(CLI::App& command, Words& words) {
    std::vector<std::string> names = {autoWord};
    for (const std::string_view word : encodingWords()) {
        names.emplace_back(word);
    }
    const std::string listed = std::accumulate(
        names.begin() + 1, names.end() - 1, names.front(),
        [](const std::string& list, const std::string& name) { return list + ", " + name; });
    command
        .add_option("--encoding", words.encoding,
                    "how texts are encoded in a plus scheme: " + listed + " or " + names.back())
        ->type_name("E")
        ->check(CLI::IsMember(names));
}

CLI::App& addDecode(CLI::App& app, Arguments& arguments, Words& words) {
    CLI::App& command = *app.add_subcommand("decode", "show a value in all the forms that it has");
    addValues(command, arguments, "tag values and texts in any form");
    addReading(command, arguments);
    addGcpLength(command, arguments);
    addWriting(command, arguments);
    command.add_flag("--raw", arguments.isRaw,
                     "write the separator of barcode strings as character 29, not as {GS}");
    addRunning(command, arguments, words);
    command.footer(decodeExamples);
    return command;
}

CLI::App& addEncode(CLI::App& app, Arguments& arguments, Words& words) {
    CLI::App& command = *app.add_subcommand("encode", "make the bits of a tag");
    addValues(command, arguments, "texts in any form");
    command.add_option("--scheme", words.scheme, "the tag scheme (rosetag schemes lists them)")
        ->type_name("S");
    command.add_option("--filter", arguments.encode.filter, "the filter value, 0 if not given")
        ->type_name("N");
    addGcpLength(command, arguments);
    addEncoding(command, words);
    addReading(command, arguments);
    addWriting(command, arguments);
    addRunning(command, arguments, words);
    command.footer(encodeExamples);
    return command;
}

void addAi(CLI::App& app, Arguments& arguments, Words& words, std::array<CLI::App*, 2>& commands) {
    CLI::App& ai = *app.add_subcommand("ai", "encode or decode the bits of a single AI value");
    ai.require_subcommand(1);
    ai.footer(aiExamples);
    CLI::App& encode = *ai.add_subcommand("encode", "make the bits of a value");
    encode.add_option("AI", arguments.ai, "the code of the AI")->required();
    encode.add_option("VALUE", words.aiValue, "its value, as in an element string")->required();
    encode.add_flag("--with-code", arguments.withCode, "begin with the code of the AI");
    addEncoding(encode, words);
    encode.add_flag("--json", arguments.isJson, "write a JSON object");
    encode.footer(aiExamples);
    CLI::App& decode = *ai.add_subcommand("decode", "read the bits of a value");
    decode.add_option("--ai", arguments.ai, "the bits are of this AI, without its code in front")
        ->type_name("AI");
    decode.add_option("HEX", words.hex, "the bits")->required();
    decode.add_flag("--json", arguments.isJson, "write a JSON object");
    decode.footer(aiExamples);
    commands = {&encode, &decode};
}

CLI::App& addHexReader(CLI::App& app, Arguments& arguments, const char* name,
                       const char* description, const char* examples) {
    CLI::App& command = *app.add_subcommand(name, description);
    command.add_option("VALUE", arguments.values, "hex")->required();
    command.add_flag("--json", arguments.isJson, "write a JSON object for each value");
    command.footer(examples);
    return command;
}

void applyWords(Arguments& arguments, const Words& words) {
    arguments.encode.encoding = encodingOf(words.encoding);
    if (!words.scheme.empty()) {
        arguments.encode.scheme = schemeByName(words.scheme);
        if (arguments.encode.scheme == nullptr) {
            throw UsageError("--scheme: there is no scheme \"" + words.scheme + "\"; there are " +
                             schemeNamesLike(words.scheme));
        }
    }
    arguments.run.table.hasHeader = !words.noHeader;
    if (!words.column.empty()) {
        arguments.run.table.columns = {words.column};
    }
    if (!words.delimiter.empty()) {
        arguments.run.table.delimiter = words.delimiter == "tab" ? '\t' : words.delimiter.front();
    }
    if (arguments.command == Command::AI_ENCODE) {
        arguments.values = {words.aiValue};
    } else if (arguments.command == Command::AI_DECODE) {
        arguments.values = {words.hex};
    }
}

void checkTogether(const Arguments& arguments, const Words& words) {
    const RunOptions& run = arguments.run;
    if (!arguments.to.empty() + !arguments.fields.empty() + arguments.isJson > 1) {
        throw UsageError("--to, --fields and --json exclude each other");
    }
    if (arguments.to.find(',') != std::string::npos) {
        throw UsageError("--to takes one field; --fields takes several");
    }
    const bool hasRunOption = !run.inputFile.empty() || !run.table.columns.empty() ||
                              !run.errorsFile.empty() || run.jobs > 1 || run.isUnbuffered ||
                              words.noHeader;
    if (!arguments.values.empty() && hasRunOption) {
        throw UsageError("--input, --column, --no-header, --errors, --jobs and --unbuffered are "
                         "for lines, and here values are given");
    }
    if (words.noHeader && (run.table.columns.empty() || run.table.columns.front().find_first_not_of(
                                                            "0123456789") != std::string::npos)) {
        throw UsageError("--no-header needs --column with a number");
    }
}

// A value in the place of the command is decoded.
bool isBareValue(int argc, char** argv) {
    return argc > 1 && *argv[1] != '-' &&
           std::ranges::find(commandWords, std::string_view(argv[1])) == commandWords.end();
}

std::vector<std::string> wordsOf(int argc, char** argv, bool isBare) {
    std::vector<std::string> words;
    if (isBare) {
        words.emplace_back("decode");
    }
    words.insert(words.end(), argv + 1, argv + argc);
    if (!words.empty() && words.front() == "help") {
        words.front() = "--help";
    }
    std::ranges::reverse(words);
    return words;
}

} // namespace

std::optional<int> argumentsRead(int argc, char** argv, Output& output, Arguments& arguments) {
    if (argc < 2) {
        throw UsageError("give a value, or a command such as decode or encode");
    }
    CLI::App app("Translates identifiers between the forms used in GS1 and RFID data capture.\n"
                 "rosetag VALUE says what a value is.",
                 "rosetag");
    app.set_version_flag("--version", std::string("rosetag ") + ROSETAG_VERSION,
                         "show the version");
    app.set_help_flag("-h,--help", "show this help");
    app.footer(mainExamples);
    app.require_subcommand(1);
    Words words;
    std::array<CLI::App*, 2> ais{};
    CLI::App& decode = addDecode(app, arguments, words);
    CLI::App& encode = addEncode(app, arguments, words);
    CLI::App& explain = addHexReader(app, arguments, "explain",
                                     "show the bits of a value field by field", explainExamples);
    addAi(app, arguments, words, ais);
    CLI::App& tid = addHexReader(app, arguments, "tid", "tell what a TID says", tidExamples);
    CLI::App& schemes = *app.add_subcommand("schemes", "list the 34 tag schemes");
    schemes.add_flag("--json", arguments.isJson, "write a JSON object for each scheme");
    const std::pair<CLI::App*, Command> commands[] = {
        {&decode, Command::DECODE},   {&encode, Command::ENCODE},   {&explain, Command::EXPLAIN},
        {ais[0], Command::AI_ENCODE}, {ais[1], Command::AI_DECODE}, {&tid, Command::TID},
        {&schemes, Command::SCHEMES}};
    arguments.isBare = isBareValue(argc, argv);
    try {
        app.parse(wordsOf(argc, argv, arguments.isBare));
    } catch (const CLI::Success& asked) {
        std::ostringstream text;
        app.exit(asked, text, text);
        outputWrite(output, text.str());
        return EXIT_STATUS_GOOD;
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }
    for (const auto& [subcommand, command] : commands) {
        if (subcommand->parsed()) {
            arguments.command = command;
        }
    }
    applyWords(arguments, words);
    checkTogether(arguments, words);
    return std::nullopt;
}

} // namespace rosetag
