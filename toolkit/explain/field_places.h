/*
 * Where the fields of a tag value are in its text forms.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_FIELD_PLACES_H
#define ROSETAG_TOOLKIT_EXPLAIN_FIELD_PLACES_H

#include <rosetag/toolkit.hpp>

namespace rosetag {

// Fills the places of the explanation of a sound tag value. forms has all forms of that value.
void placeFields(const Translation& forms, Explanation& explanation);

} // namespace rosetag

#endif
