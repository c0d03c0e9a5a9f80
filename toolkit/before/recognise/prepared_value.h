/*
 * A value as people have it, made ready for the library.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_PREPARED_VALUE_H
#define ROSETAG_TOOLKIT_RECOGNISE_PREPARED_VALUE_H

#include "before/words/failure.h"

namespace rosetag {
inline namespace before {

struct PreparedValue {
    ValueForm form = ValueForm::UNKNOWN;
    std::string text;
    std::string notes; // what was left out or changed; empty if nothing was
};

PreparedValue prepareValue(std::string_view value, const ReadOptions& options);

// What is wrong with a value before the library has seen it: its form is not known, its hex has
// other characters, or it holds a NUL.
Failure failureOfPreparing(const PreparedValue& value);

} // namespace before
} // namespace rosetag

#endif
