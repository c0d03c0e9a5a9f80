/*
 * Which AIs must be together, and which must not.
 *
 * Source: GS1 General Specifications, section 4.14.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_CHECK_ASSOCIATIONS_H
#define ROSETAG_TOOLKIT_CHECK_CHECK_ASSOCIATIONS_H

#include "check/check_run.h"

namespace rosetag {

// Examines all AIs that the run remembers. A pair that does not go together is one finding, at the
// later AI.
void checkAssociations(CheckRun& run);

} // namespace rosetag

#endif
