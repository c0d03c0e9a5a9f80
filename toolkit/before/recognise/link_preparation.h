/*
 * Digital Links as they stand on packages. The library reads path and query alone, and every query
 * parameter as an AI; a link on a package has a host, a path of its owner, tracking parameters and
 * GTINs of any length. This makes the former of the latter and tells what it left out.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_LINK_PREPARATION_H
#define ROSETAG_TOOLKIT_RECOGNISE_LINK_PREPARATION_H

#include <string>
#include <string_view>

namespace rosetag {
inline namespace before {

struct PreparedLink {
    std::string text;
    std::string notes; // what was left out or changed; empty if nothing was
};

PreparedLink linkPrepare(std::string_view link);

} // namespace before
} // namespace rosetag

#endif
