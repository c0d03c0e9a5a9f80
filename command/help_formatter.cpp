#include "help_formatter.h"

namespace rosetag {

std::string wrapped(std::string_view text, std::size_t width) {
    std::string lines;
    while (text.size() > width) {
        std::size_t end = text.rfind(' ', width);
        end = end == std::string_view::npos ? text.find(' ') : end;
        if (end == std::string_view::npos) {
            break;
        }
        lines += text.substr(0, end);
        lines += '\n';
        text.remove_prefix(end + 1);
    }
    return lines += text;
}

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
