#include "command_line.h"

#include "choices.h"
#include "fields.h"
#include "help_formatter.h"
#include "wrapped_text.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr const char* mainExamples = R"(Examples:
  rosetag 3074257BF7194E4000001A85
  rosetag decode "(01)80614141123458(21)6789(10)LOT7"
  rosetag encode --scheme sgtin-96 --filter 3 --gcp-length 7 "(01)80614141123458(21)6789"
  rosetag explain 3074257BF7194E4000001A85
  rosetag check "(01)09506000134352(17)261231"
  rosetag tid E2003412

Exit status: 0 all went well, 1 a value could not be converted or breaks a rule, 2 wrong usage,
3 a file or pipe could not be read or written.)";

constexpr const char* decodeExamples = R"(Examples:
  rosetag decode 3074257BF7194E4000001A85
  rosetag decode "30 74 25 7B F7 19 4E 40 00 00 1A 85"
  rosetag decode urn:epc:id:sgtin:0614141.812345.6789
  rosetag decode "https://shop.example/01/9506000134352/10/LOT7?utm_source=box"
  rosetag decode --gcp-length 7 "]C1018061414112345810LOT7{GS}216789"
  rosetag decode --json 3074257BF7194E4000001A85
  echo 3074257BF7194E4000001A85 | rosetag decode --to tag_uri
  printf 'id,epc\n7,3074257BF7194E4000001A85\n' | rosetag decode --column epc --fields scheme,digital_link

Without values the lines of standard input or of --input are read, and a line is written for each:
the field of --to (tag_uri if nothing is said), those of --fields, or a JSON object. A line that
fails has an empty result, then a tab and its status.)";

constexpr const char* encodeExamples = R"(Examples:
  rosetag encode urn:epc:tag:sgtin-96:3.0614141.812345.6789
  rosetag encode --scheme sgtin-96 --filter 3 urn:epc:id:sgtin:0614141.812345.6789
  rosetag encode --scheme sgtin-198 --gcp-length 7 "(01)80614141123458(21)A/B"
  rosetag encode --scheme sgtin+ "https://example.com/01/80614141123458/21/6789?17=251231"
  rosetag encode --scheme sscc-96 --gcp-length 7 --to words "]C100106141412345678908"
  rosetag encode --scheme giai+ --encoding iso646 "(8004)0614141ABC"
  echo "(01)80614141123458(21)6789" | rosetag encode --scheme sgtin-96 --gcp-length 7
  printf 'gtin,serial\n80614141123458,6789\n' | rosetag encode --text "(01){gtin}(21){serial}" --scheme sgtin-96 --gcp-length 7

A link may have a host, a path before its key, and parameters that are not AIs: what is left out is
reported, and --strict takes the link as it is. Without values the lines of standard input or of --input
are read. In a table --text, --scheme, --filter and --gcp-length may name columns in braces.)";

constexpr const char* explainExamples = R"(Examples:
  rosetag explain 3074257BF7194E4000001A85
  rosetag explain urn:epc:tag:sscc-96:3.0614141.1234567890
  rosetag explain E2003412)";

constexpr const char* checkExamples = R"(Examples:
  rosetag check "(01)09506000134352(17)261231"
  rosetag check --json "https://example.com/01/09506000134352?17=261231"

Without values the lines of standard input or of --input are read, and a line is written for each
finding: line, severity, rule, AI, position, culprit and message, with tabs between them. Exit status
1 says that there was an error; warnings do not count.)";

constexpr const char* aiExamples = R"(Examples:
  rosetag ai encode 21 ABCG
  rosetag ai encode 10 LOT7 --with-code --encoding iso646
  rosetag ai decode --ai 21 64001086
  rosetag ai decode 2164001086)";

constexpr const char* tidExamples = R"(Examples:
  rosetag tid E2003412
  rosetag tid "E280 1130 2000 1234 5678 9ABC")";

constexpr const char* lineGroup = "Options for lines";

// An option whose value is a word of its type. Where rows of a table may give it, a column will do.
void takeChoice(CLI::Option& option, const char* typeName, std::string_view what,
                bool mayBeColumn = false) {
    option.type_name(typeName);
    option.check(
        [=](const std::string& given) {
            const bool isColumn = mayBeColumn && given.find('{') != std::string::npos;
            return isColumn ? std::string() : choiceError(typeName, what, given);
        },
        "");
}

void takeField(CLI::Option& option, const char* typeName) {
    option.type_name(typeName);
    option.check(
        [=](const std::string& given) -> std::string {
            if (fieldByName(given) != nullptr) {
                return {};
            }
            return given.find(',') != std::string::npos
                       ? "it takes one field; --fields takes several"
                       : choiceError(typeName, "field", given);
        },
        "");
}

// The options of a run over lines exclude values. Each is added after VALUE.
CLI::Option& forLines(CLI::App& command, CLI::Option* option) {
    option->group(lineGroup);
    if (CLI::Option* const values = command.get_option_no_throw("VALUE"); values != nullptr) {
        option->excludes(values);
    }
    return *option;
}

void addValues(CLI::App& command, Arguments& arguments, const char* description) {
    command.add_option("VALUE", arguments.values, description);
}

void addReading(CLI::App& command, Arguments& arguments) {
    command.add_flag("--barcode", arguments.read.asBarcode,
                     "a value without a mark is a barcode string, not hex");
    takeChoice(
        *command.add_option_function<std::string>(
            "--bank",
            [&arguments](const std::string& word) { arguments.read.bank = bankByWord(word); },
            "where hex begins in the memory of a tag: auto finds out, epc, pc is the PC word "
            "before it, crc-pc the CRC and the PC word"),
        "BANK", "bank");
    command
        .add_option_function<std::string>(
            "--separator",
            [&arguments](const std::string& given) { arguments.read.separator = given.front(); },
            "this character stands for the separator of barcode strings, besides character 29")
        ->type_name("C")
        ->check(
            [](const std::string& given) {
                return given.size() == 1 ? std::string() : "\"" + given + "\" is not one character";
            },
            "");
    command.add_flag("--strict", arguments.read.strict,
                     "take links as they are, and refuse what check calls an error");
}

void addJson(CLI::App& command, Arguments& arguments) {
    command.add_flag("--json", arguments.isJson, "write a JSON object for each value, a line each");
}

void addWriting(CLI::App& command, Arguments& arguments) {
    addJson(command, arguments);
    CLI::Option& to =
        *command.add_option("--to", arguments.to, "write this one field of each value");
    CLI::Option& several = *command.add_option(
        "--fields", arguments.fields, "write these fields of each value, separated by tabs");
    takeField(to, "FIELD");
    several.delimiter(',');
    takeField(several, "FIELD,...");
    to.excludes(&several);
    to.excludes(command.get_option("--json"));
    several.excludes(command.get_option("--json"));
    several.allow_extra_args(false);
}

void addRunning(CLI::App& command, Arguments& arguments) {
    RunOptions& run = arguments.run;
    forLines(command, command.add_option("--input", run.inputFile,
                                         "read this file, not standard input; - is standard input"))
        .type_name("FILE");
    forLines(command, command.add_option("--errors", run.errorsFile,
                                         "write lines that fail here: number, status, value, "
                                         "message"))
        .type_name("FILE");
    forLines(command, command.add_flag("--stop", run.stopsAtFailure,
                                       "end the run at the first line that fails"));
    forLines(command, command.add_option("--jobs", run.jobs, "convert on so many threads"))
        .type_name("N")
        ->check(CLI::Range(1, 256));
    forLines(command, command.add_flag("--unbuffered", run.isUnbuffered,
                                       "write each line as soon as it is converted"));
    command.add_flag("--quiet", run.isQuiet, "no summary and no progress on standard error")
        ->group(lineGroup);
}

void addTable(CLI::App& command, Arguments& arguments) {
    TableOptions& table = arguments.run.table;
    CLI::Option& column = forLines(
        command, command.add_option("--column", arguments.run.column,
                                    "the values are in this column of a table, or are this "
                                    "member of JSON objects, one a line; the rows are "
                                    "kept, and the results follow them"));
    column.type_name("NAME|N");
    CLI::Option& delimiter = forLines(
        command, command.add_option_function<std::string>(
                     "--delimiter",
                     [&table](const std::string& given) { table.delimiter = delimiterOf(given); },
                     "what separates the cells of the table: a character, or tab, comma, semicolon "
                     "or bar"));
    delimiter.type_name("DELIMITER")
        ->check(
            [](const std::string& given) -> std::string {
                return delimiterOf(given) != '\0' ? std::string()
                                                  : "\"" + given + "\" is not one character";
            },
            "");
    CLI::Option& noHeader = forLines(
        command, command.add_flag_callback(
                     "--no-header", [&table] { table.hasHeader = false; },
                     "the table has no row of column names; columns are given by their numbers"));
    if (command.get_option_no_throw("--text") == nullptr) {
        delimiter.needs(&column);
        noHeader.needs(&column);
    } else {
        column.excludes("--text");
    }
}

void addGcpLength(CLI::App& command, Arguments& arguments, bool mayBeColumn) {
    takeChoice(*command.add_option("--gcp-length", arguments.gcpLength,
                                   "the number of digits of the GS1 company prefix, " +
                                       std::to_string(MIN_GCP_LENGTH) + " to " +
                                       std::to_string(MAX_GCP_LENGTH)),
               "GCP-LENGTH", "company prefix length", mayBeColumn);
}

void addGcpList(CLI::App& command, Arguments& arguments) {
    command
        .add_option(
            "--gcp-list", arguments.gcpListFile,
            "look the length of the company prefix up in this file, the list that GS1 "
            "publishes, as XML or JSON; the environment variable ROSETAG_GCP_LIST names one "
            "too")
        ->type_name("FILE")
        ->envname(gcpListVariable);
}

void addEncoding(CLI::App& command, Arguments& arguments) {
    takeChoice(*command.add_option("--encoding", arguments.encoding,
                                   "how texts are put into the bits of a plus scheme: " +
                                       choicesText("ENCODING")),
               "ENCODING", "encoding");
}

void addDecode(CLI::App& command, Arguments& arguments) {
    addValues(command, arguments, "tag values and texts in any form");
    addReading(command, arguments);
    addGcpLength(command, arguments, false);
    addGcpList(command, arguments);
    addWriting(command, arguments);
    command.add_flag("--raw", arguments.isRaw,
                     "write the separator of barcode strings as character 29, not as {GS}");
    addRunning(command, arguments);
    addTable(command, arguments);
    command.footer(wrapped("Fields: " + choicesText("FIELD"), 100) + "\n\n" + decodeExamples);
}

void addEncode(CLI::App& command, Arguments& arguments) {
    addValues(command, arguments, "texts in any form");
    takeChoice(*command.add_option("--scheme", arguments.scheme,
                                   "the tag scheme (rosetag schemes lists them)"),
               "SCHEME", "scheme", true);
    command
        .add_option("--filter", arguments.filter,
                    "the filter value, a number or its word for the scheme (rosetag schemes lists "
                    "them); 0 if not given")
        ->type_name("N|WORD");
    addGcpLength(command, arguments, true);
    addGcpList(command, arguments);
    addEncoding(command, arguments);
    addReading(command, arguments);
    addWriting(command, arguments);
    addRunning(command, arguments);
    forLines(command, command.add_option("--text", arguments.text,
                                         "make the value from columns of a table, whose names "
                                         "are in braces: (01){gtin}(21){serial}"))
        .type_name("TEMPLATE");
    addTable(command, arguments);
    command.footer(wrapped("Fields: " + choicesText("FIELD"), 100) + "\n\n" + encodeExamples);
}

void addExplain(CLI::App& command, Arguments& arguments) {
    addValues(command, arguments, "hex or tag URIs");
    addJson(command, arguments);
    addRunning(command, arguments);
    command.footer(explainExamples);
}

void addCheck(CLI::App& command, Arguments& arguments) {
    addValues(command, arguments, "tag values and texts in any form");
    addReading(command, arguments);
    addGcpList(command, arguments);
    addJson(command, arguments);
    addRunning(command, arguments);
    addTable(command, arguments);
    command.footer(checkExamples);
}

void addAiEncode(CLI::App& command, Arguments& arguments) {
    command.add_option("AI", arguments.ai, "the code of the AI")->required();
    addValues(command, arguments, "values, as in an element string");
    command.add_flag("--with-code", arguments.withCode, "begin with the code of the AI");
    addEncoding(command, arguments);
    addJson(command, arguments);
    addRunning(command, arguments);
    command.footer(aiExamples);
}

void addAiDecode(CLI::App& command, Arguments& arguments) {
    command.add_option("--ai", arguments.ai, "the bits are of this AI and do not begin with it")
        ->type_name("AI");
    addValues(command, arguments, "hex");
    addJson(command, arguments);
    addRunning(command, arguments);
    command.footer(aiExamples);
}

void addTid(CLI::App& command, Arguments& arguments) {
    addValues(command, arguments, "hex");
    command
        .add_option("--designer-list", arguments.designerListFile,
                    "name designers and chips by this file, the list that GS1 publishes, as JSON")
        ->type_name("FILE");
    addJson(command, arguments);
    addRunning(command, arguments);
    command.footer(tidExamples);
}

struct CommandRow {
    const char* parent; // "": the app itself
    const char* name;
    const char* description;
    void (*addOptions)(CLI::App& command, Arguments& arguments);
    Command command;
};

// clang-format off
constexpr CommandRow commandTable[] = {
    // parent, name          description                                         options      command
    {"",   "decode",  "show a value in all the forms that it has",               addDecode,   Command::DECODE},
    {"",   "encode",  "make the bits of a tag",                                  addEncode,   Command::ENCODE},
    {"",   "explain", "show the bits of a value field by field",                 addExplain,  Command::EXPLAIN},
    {"",   "check",   "find what is not as GS1 demands",                         addCheck,    Command::CHECK},
    {"ai", "encode",  "make the bits of values of an AI",                        addAiEncode, Command::AI_ENCODE},
    {"ai", "decode",  "read the bits of values",                                 addAiDecode, Command::AI_DECODE},
    {"",   "tid",     "explain a TID",                                    addTid,      Command::TID},
    {"",   "schemes", "list the tag schemes",                                    addJson,     Command::SCHEMES},
};
// clang-format on

CLI::App& parentOf(CLI::App& app, const CommandRow& row) {
    if (*row.parent == '\0') {
        return app;
    }
    const std::vector<CLI::App*> found = app.get_subcommands(
        [&](const CLI::App* command) { return command->get_name() == row.parent; });
    CLI::App* ai = found.empty() ? nullptr : found.front();
    if (ai == nullptr) {
        ai = app.add_subcommand(row.parent, "encode or decode the bits of single AI values");
        ai->require_subcommand(1);
        ai->footer(aiExamples);
    }
    return *ai;
}

} // namespace

void commandLineBuild(CLI::App& app, Arguments& arguments) {
    app.set_version_flag("-V,--version", "rosetag " + std::string(version()), "show the version");
    app.set_help_flag("-h,--help", "show this help");
    app.footer(mainExamples);
    app.formatter(std::make_shared<HelpFormatter>());
    app.require_subcommand(0, 1);
    for (const CommandRow& row : commandTable) {
        CLI::App& command = *parentOf(app, row).add_subcommand(row.name, row.description);
        command.preparse_callback([&command, &row, &arguments](std::size_t) {
            arguments.command = row.command;
            row.addOptions(command, arguments);
        });
    }
    app.prefix_command();
}

std::vector<std::string> commandNames() {
    std::vector<std::string> names;
    for (const CommandRow& row : commandTable) {
        const char* const name = *row.parent == '\0' ? row.name : row.parent;
        if (names.empty() || names.back() != name) {
            names.emplace_back(name);
        }
    }
    return names;
}

void commandLineComplete(CLI::App& app, Arguments& arguments) {
    for (const CommandRow& row : commandTable) {
        row.addOptions(*parentOf(app, row).get_subcommand(row.name), arguments);
    }
}

} // namespace rosetag
