/*
 * Reads texts of AIs and values in such a way that one fault does not hide the next: after a bad
 * value the reader goes on at the next bracket or separator.
 */
#ifndef ROSETAG_TOOLKIT_CHECK_CHECK_TEXT_H
#define ROSETAG_TOOLKIT_CHECK_CHECK_TEXT_H

#include "check/check_run.h"

namespace rosetag {

// Checks the AIs of a value that was translated, whose bits or fields hold them.
void checkAis(std::string_view value, const ReadOptions& options, const Translation& translation,
              Rows<Finding>& findings);

// The same as check, with room for a translation that keeps its memory.
void check(std::string_view value, const ReadOptions& options, Rows<Finding>& findings,
           Translation* room);

// Each checks a part of the value, from position to end; it is not empty.
void checkElementString(CheckRun& run, std::size_t position, std::size_t end);
void checkGtinAlone(CheckRun& run, std::size_t position, std::size_t end);
void checkBarcodeString(CheckRun& run, std::size_t position, std::size_t end);
void checkDigitalLink(CheckRun& run, std::size_t position, std::size_t end);

// Looks up the code of an AI. Null, with a finding, if it is not assigned.
const KnownAi* checkAiCode(CheckRun& run, std::size_t position, std::size_t length);

} // namespace rosetag

#endif
