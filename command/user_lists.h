/*
 * The lists that the user has: lengths of company prefixes, and chip designers.
 */
#ifndef ROSETAG_COMMAND_USER_LISTS_H
#define ROSETAG_COMMAND_USER_LISTS_H

#include "system.h"

#include <rosetag/toolkit.hpp>

#include <string>
#include <vector>

namespace rosetag {

// Read a file, and remember it among the inputs. Throw IoError where it cannot be read, or is not
// such a list.
GcpList gcpListRead(const std::string& fileName, std::vector<KnownFile>& inputs);
DesignerList designerListRead(const std::string& fileName, std::vector<KnownFile>& inputs);

} // namespace rosetag

#endif
