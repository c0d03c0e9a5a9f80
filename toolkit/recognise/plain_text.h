/*
 * Texts as the library writes them, and as most systems keep them: no blanks around them, no host,
 * no symbology identifier, no separator. Whatever is unusual is not plain.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_PLAIN_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_PLAIN_TEXT_H

#include "recognise/reading.h"

namespace rosetag {

// Takes a value as the prepared text, and its form from its first characters. False if something
// has to be taken off it, or may have to be. What lies within a GS1 text is not looked at: GTINs
// may lack zeros, and a link may have several keys.
bool plainTextPrepare(Reading& reading);

} // namespace rosetag

#endif
