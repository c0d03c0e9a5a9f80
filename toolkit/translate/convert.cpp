/*
 * One form of a value, and values that are given as bytes.
 */
#include "rosetag/toolkit.hpp"
#include "translate/plain_rows.h"
#include "words/failure.h"

namespace rosetag {
namespace {

std::string_view charactersOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// True where the value is a plain row and has the form: then text is that.
bool convertPlain(std::string_view value, bool isBinary, const ReadOptions& options, Form form,
                  Translation& result, std::string_view& text) {
    const PlainRowMaker make = plainRowMakerOf(form);
    PlainRow row;
    if (make == nullptr || !mayBePlainRows(options) || !plainRowRead(value, isBinary, row)) {
        return false;
    }
    std::string& room = result.workspace.more;
    if (room.size() < PLAIN_ROW_ROOM) {
        room.resize(PLAIN_ROW_ROOM);
    }
    std::size_t length = 0;
    if (!plainRowForm(row, make, room.data(), length)) {
        return false;
    }
    result.failure.status = EPC_OK;
    text = {room.data(), length};
    return true;
}

} // namespace

void translate(std::span<const std::uint8_t> bytes, const ReadOptions& options, FormSet wanted,
               Translation& result) {
    const std::string_view characters = charactersOf(bytes);
    std::string& digits = result.workspace.digits;
    digits.clear();
    if (bytes.size() <= MAX_VALUE_LENGTH) {
        appendHex(digits, bytes);
    }
    ReadOptions read = options;
    read.isHex = true;
    // Too many bytes are too many characters, too, whatever they are.
    translate(bytes.size() <= MAX_VALUE_LENGTH ? std::string_view(digits) : characters, read,
              wanted, result);
}

std::string_view convert(std::string_view value, const ReadOptions& options, Form form,
                         Translation& result) {
    std::string_view text;
    if (convertPlain(value, false, options, form, result, text)) {
        return text;
    }
    translate(value, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result) {
    std::string_view text;
    if (convertPlain(charactersOf(bytes), true, options, form, result, text)) {
        return text;
    }
    translate(bytes, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

} // namespace rosetag
