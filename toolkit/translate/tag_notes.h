/*
 * What looks wrong with the bits of a tag value that could be read.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TAG_NOTES_H
#define ROSETAG_TOOLKIT_TRANSLATE_TAG_NOTES_H

#include "recognise/reading.h"

namespace rosetag {

// Notes a missing digit, bits other than 0 after the value, and a length that is not that of the
// scheme. The prepared text is the hex of a value that was read.
void noteTagBits(Reading& reading);

} // namespace rosetag

#endif
