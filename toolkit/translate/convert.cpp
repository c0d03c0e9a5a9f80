/*
 * One form of a value, and values that are given as bytes.
 */
#include "recognise/plain_tag.h"
#include "recognise/reading.h"
#include "rosetag/toolkit.hpp"
#include "translate/plain_rows.h"

namespace rosetag {
namespace {

std::string_view charactersOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// True where the bits of a tag have the form: then text is that.
bool convertBits(const std::uint8_t* bytes, std::int32_t count, Form form, Translation& result,
                 std::string_view& text) {
    const PlainRowMaker make = plainRowMakerOf(form);
    std::string& room = result.workspace.more;
    if (room.size() < PLAIN_ROW_ROOM) {
        room.resize(PLAIN_ROW_ROOM);
    }
    BitBuffer bits = bitBufferForReading(bytes, count);
    TextBuffer buffer = textBufferOver(room.data(), PLAIN_ROW_ROOM);
    if (make == nullptr || make(bits, buffer) != EPC_OK) {
        return false;
    }
    if (isFailure(result.failure)) {
        failureClear(result.failure);
    }
    result.notes.clear();
    text = textBufferView(buffer);
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
    TagBits tag;
    std::string_view text;
    if (plainTagRead(value, options, tag) &&
        convertBits(tag.bytes.data(), tag.count, form, result, text)) {
        return text;
    }
    translate(value, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result) {
    PlainRow row;
    std::string_view text;
    if (mayBePlainRows(options) && plainRowRead(charactersOf(bytes), true, row) &&
        convertBits(row.bytes, 8 * PLAIN_ROW_BYTES, form, result, text)) {
        return text;
    }
    translate(bytes, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

} // namespace rosetag
