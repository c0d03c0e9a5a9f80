/*
 * Failures of reading a list, at a place of its text.
 */
#ifndef ROSETAG_TOOLKIT_LISTS_LIST_FAILURE_H
#define ROSETAG_TOOLKIT_LISTS_LIST_FAILURE_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {

// message goes after the line and the column of the place.
Failure listFailure(std::string_view text, std::size_t position, const std::string& message);

} // namespace rosetag

#endif
