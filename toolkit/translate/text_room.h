/*
 * Room for what an export or a writer of the library puts out.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_TEXT_ROOM_H
#define ROSETAG_TOOLKIT_TRANSLATE_TEXT_ROOM_H

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

} // namespace rosetag

#endif
