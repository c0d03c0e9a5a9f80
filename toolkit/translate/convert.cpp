/*
 * One form of a value, and values that are given as bytes.
 */
#include "recognise/plain_tag.h"
#include "recognise/reading.h"
#include "rosetag/toolkit.hpp"
#include "translate/tag_form_writers.h"

namespace rosetag {
namespace {

std::string_view charactersOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// True where a plain tag value has the form: then text is that.
bool convertTag(const TagBits& tag, Form form, Translation& result, std::string_view& text) {
    const TagFormWriter write = tagFormWriterOf(form);
    std::string& room = result.workspace.more;
    if (room.size() < TAG_FORM_ROOM) {
        room.resize(TAG_FORM_ROOM);
    }
    std::size_t length = 0;
    if (write == nullptr || !tagFormWrite(tag, write, room.data(), length)) {
        return false;
    }
    if (isFailure(result.failure)) {
        failureClear(result.failure);
    }
    result.notes.clear();
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
    TagBits tag;
    std::string_view text;
    if (plainTagRead(value, options, tag) && convertTag(tag, form, result, text)) {
        return text;
    }
    translate(value, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result) {
    TagBits tag;
    std::string_view text;
    if (mayBePlainTags(options) && plainTagOfBytes(charactersOf(bytes), tag) &&
        plainTagIsClear(tag, options) && convertTag(tag, form, result, text)) {
        return text;
    }
    translate(bytes, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

} // namespace rosetag
