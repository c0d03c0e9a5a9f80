/*
 * Encodes texts that are as the library writes them, which most are. Whatever is unusual is not
 * plain.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_ENCODE_PLAIN_H
#define ROSETAG_TOOLKIT_TRANSLATE_ENCODE_PLAIN_H

#include "recognise/plain_tag.h"
#include "recognise/reading.h"

namespace rosetag {

// True if the options say all that a value of this form needs, and nothing that its scheme does not
// have. A list of prefixes says nothing by itself.
bool optionsSuffice(Form form, const EncodeOptions& options);

// Encodes a prepared text for a plain scheme, with options that suffice. False if the text is not
// plain or cannot be encoded: there is nothing to note about one that is.
bool encodePlain(const Reading& reading, const EncodeOptions& options, TagBits& tag);

} // namespace rosetag

#endif
