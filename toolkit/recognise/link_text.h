/*
 * Digital Links as they are on packages. The library reads path and query alone, and every query
 * parameter as an AI; a link on a package has a host, a path of its owner, tracking parameters and
 * GTINs of any length.
 *
 * Source: GS1 Digital Link Standard: URI Syntax.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_LINK_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_LINK_TEXT_H

#include "recognise/reading.h"

namespace rosetag {

// No code of an AI and no name of one is longer.
inline constexpr std::size_t LONGEST_LINK_CODE = 5;

// The AI that a name of early versions of the standard stood for; empty if it is not one.
std::string_view aiOfLinkName(std::string_view name);

// Keeps path and query with their AIs, and notes what was left out, padded or renamed.
bool prepareLink(Reading& reading, std::string_view value);

} // namespace rosetag

#endif
