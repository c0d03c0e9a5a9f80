/*
 * What makes a form of a tag value from its bits, by one operation each. The bits are whole: from
 * the EPC on, without what a reader puts before them.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TAG_FORM_WRITERS_H
#define ROSETAG_TOOLKIT_TRANSLATE_TAG_FORM_WRITERS_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "recognise/plain_tag.h"

namespace rosetag {

// Holds every form of a value of up to 96 bits, and most of the others.
constexpr std::int32_t TAG_FORM_ROOM = 256;

// Writes a form into an empty text, which becomes no more than it: it may begin later.
using TagFormWriter = EpcStatus (*)(BitBuffer& bits, TextBuffer& text);

// Null if bits alone do not make the form.
TagFormWriter tagFormWriterOf(Form form);

// False where the form cannot be written, or without a writer.
inline bool tagFormWrite(const TagBits& tag, TagFormWriter write, TextBuffer& text) {
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    return write != nullptr && write(bits, text) == EPC_OK;
}

} // namespace rosetag

#endif
