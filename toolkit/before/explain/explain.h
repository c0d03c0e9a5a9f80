/*
 * Explains the bits of a tag value or of a TID field by field.
 */
#ifndef ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_H
#define ROSETAG_TOOLKIT_EXPLAIN_EXPLAIN_H

#include "before/explain/explain_walk.h"

#include <string>
#include <string_view>

namespace rosetag {
inline namespace before {

struct WalkedBits {
    std::string subject; // the scheme's name, "TID", or empty where the header says nothing
    Walk walk;
};

WalkedBits explainEpc(std::string_view hexDigits);
WalkedBits explainTid(std::string_view hexDigits);

// The field at which an explanation failed, in words: "bits 11 to 13 (partition): ...". Empty
// where it did not.
std::string explainFailure(const WalkedBits& explanation);

} // namespace before
} // namespace rosetag

#endif
