/*
 * Room for what an export or a writer of the library puts out.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TEXT_ROOM_H
#define ROSETAG_TOOLKIT_TRANSLATE_TEXT_ROOM_H

#include "core/text_buffer.h"

#include <rosetag/rosetag.h>

#include <array>
#include <cstdint>
#include <string>

namespace rosetag {

// Runs a call that takes (dstSize, dst) at its end. text is left alone if it fails.
template <std::size_t size, typename Call>
EpcStatus textFrom(std::string& text, Call call) {
    std::array<char, size> dst;
    const EpcStatus status = call(static_cast<std::int32_t>(size), dst.data());
    if (status == EPC_OK) {
        text.assign(dst.data());
    }
    return status;
}

// Runs a writer: EpcStatus(TextBuffer& buffer). text is left alone if it fails.
template <std::size_t size, typename Write>
EpcStatus textWritten(std::string& text, Write write) {
    std::array<char, size> room;
    TextBuffer buffer = textBufferOver(room.data(), static_cast<std::int32_t>(size));
    EPC_TRY(write(buffer));
    text = textBufferView(buffer);
    return EPC_OK;
}

} // namespace rosetag

#endif
