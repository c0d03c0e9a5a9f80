#include "help_formatter.h"

#include "wrapped_text.h"

namespace rosetag {

std::string typeNameOf(const CLI::Option& option) {
    const std::string name = option.get_type_name();
    return option.get_items_expected_max() == 0 ? std::string() : name.substr(0, name.find(':'));
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    const std::string name = option->get_positional() ? std::string() : typeNameOf(*option);
    return name.empty() ? name : " " + name;
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
    constexpr std::size_t width = 70;
    return wrapped(option->get_description(), width);
}

} // namespace rosetag
