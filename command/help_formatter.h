/*
 * The help of the command: options with the names of what they take, texts that fit the screen.
 */
#ifndef ROSETAG_COMMAND_HELP_FORMATTER_H
#define ROSETAG_COMMAND_HELP_FORMATTER_H

#include <CLI/CLI.hpp>

namespace rosetag {

// The type name of an option, without what its checks add.
std::string typeNameOf(const CLI::Option& option);

class HelpFormatter : public CLI::Formatter {
public:
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
};

} // namespace rosetag

#endif
