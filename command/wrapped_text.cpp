#include "wrapped_text.h"

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

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

} // namespace rosetag
