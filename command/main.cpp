#include "commands.h"
#include "system.h"

#include <exception>

using namespace rosetag;

namespace {

int run(Output& output, int argc, char** argv) {
    Arguments arguments;
    std::optional<int> exitStatus = argumentsRead(argc, argv, output, arguments);
    if (!exitStatus.has_value()) {
        exitStatus = commandRun(output, arguments);
    }
    outputClose(output);
    return *exitStatus;
}

// Says why the command ends, after what it has written so far.
int endWith(Output& output, int exitStatus, std::string_view reason) {
    try {
        outputFlush(output);
    } catch (const IoError& error) {
        warn(error.what());
        exitStatus = EXIT_STATUS_IO;
    }
    warn(reason);
    return exitStatus;
}

} // namespace

int main(int argc, char** argv) {
    prepareStandardStreams();
    returnLargeMemory();
    Output output = standardOutput();
    try {
        return run(output, argc, argv);
    } catch (const UsageError& error) {
        const int exitStatus = endWith(output, EXIT_STATUS_USAGE, error.what());
        warn("rosetag --help shows how the command is used");
        return exitStatus;
    } catch (const IoError& error) {
        return endWith(output, EXIT_STATUS_IO, error.what());
    } catch (const std::exception& error) {
        return endWith(output, EXIT_STATUS_IO, std::string("stopped: ") + error.what());
    }
}
