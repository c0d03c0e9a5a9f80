#include "lists/list_failure.h"

#include <algorithm>

namespace rosetag {

Failure listFailure(std::string_view text, std::size_t position, const std::string& message) {
    const std::string_view before = text.substr(0, std::min(position, text.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t column = before.size() - (before.rfind('\n') + 1);
    Failure failure;
    failure.status = EPC_ERR_BAD_FORMAT;
    failure.message =
        "line " + std::to_string(line) + ", column " + std::to_string(column + 1) + ": " + message;
    failure.remedy = "get the list from GS1 again, as it is published";
    failure.position = before.size();
    return failure;
}

} // namespace rosetag
