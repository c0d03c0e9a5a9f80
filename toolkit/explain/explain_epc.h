/*
 * The bits of a tag value: its header, and the fields that the table of schemes lists after it.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_EPC_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_EPC_H

#include "explain/bit_walk.h"

namespace rosetag {

// Fills scheme, hex, bits and fields. False if the bits break the layout: the last field says how.
// bankWords are those of the memory bank before the EPC, if any.
bool explainEpc(std::string_view bankWords, std::string_view hexDigits, Explanation& explanation);

// The same for the TID memory of a tag.
bool explainTid(std::string_view hexDigits, Explanation& explanation);

// The last field of an explanation and what is wrong with it: "bits 11 to 13 (partition): ...".
std::string explainedFault(const Explanation& explanation);

} // namespace rosetag

#endif
