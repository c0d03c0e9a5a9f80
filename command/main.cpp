#include "commands.h"
#include "system.h"

#include <exception>

using namespace rosetag;

namespace {

int runCommand(Output& output, const Arguments& arguments) {
    switch (arguments.command) {
    case Command::DECODE:
        return decodeCommand(output, arguments);
    case Command::ENCODE:
        return encodeCommand(output, arguments);
    case Command::EXPLAIN:
        return explainCommand(output, arguments);
    case Command::AI_ENCODE:
        return aiEncodeCommand(output, arguments);
    case Command::AI_DECODE:
        return aiDecodeCommand(output, arguments);
    case Command::TID:
        return tidCommand(output, arguments);
    case Command::SCHEMES:
        return schemesCommand(output, arguments);
    }
    return EXIT_STATUS_USAGE;
}

int run(Output& output, int argc, char** argv) {
    Arguments arguments;
    std::optional<int> exitStatus = argumentsRead(argc, argv, output, arguments);
    if (!exitStatus.has_value()) {
        exitStatus = runCommand(output, arguments);
    }
    outputClose(output);
    return *exitStatus;
}

} // namespace

int main(int argc, char** argv) {
    prepareStandardStreams();
    Output output = standardOutput();
    try {
        return run(output, argc, argv);
    } catch (const UsageError& error) {
        complain(output, error.what());
        complain(output, "rosetag --help tells how the command is used");
        return EXIT_STATUS_USAGE;
    } catch (const IoError& error) {
        complain(output, error.what());
        return EXIT_STATUS_IO;
    } catch (const std::exception& error) {
        complain(output, std::string("stopped: ") + error.what());
        return EXIT_STATUS_IO;
    }
}
