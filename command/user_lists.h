/*
 * The lists that the user has: lengths of company prefixes, and chip designers.
 */
#ifndef ROSETAG_COMMAND_USER_LISTS_H
#define ROSETAG_COMMAND_USER_LISTS_H

#include <rosetag/toolkit.hpp>

#include <string>

namespace rosetag {

// Read a file. Throw IoError where it cannot be read, or is not such a list.
GcpList gcpListRead(const std::string& fileName);
DesignerList designerListRead(const std::string& fileName);

} // namespace rosetag

#endif
