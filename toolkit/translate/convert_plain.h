/*
 * One form of a plain text, written at once.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_CONVERT_PLAIN_H
#define ROSETAG_TOOLKIT_TRANSLATE_CONVERT_PLAIN_H

#include "core/text_buffer.h"
#include "recognise/reading.h"

namespace rosetag {

// Writes the form of a text that plainTextPrepare has taken. False if it is more than plain, or has
// no such form: what was written then is of no use. There is nothing to note about one that is.
bool convertPlain(const Reading& reading, Form form, TextBuffer& text);

} // namespace rosetag

#endif
