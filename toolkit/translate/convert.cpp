/*
 * One form of a value, and values that are given as bytes.
 */
#include "recognise/plain_tag.h"
#include "recognise/reading.h"
#include "rosetag/toolkit.hpp"
#include "translate/tag_form_writers.h"
#include "translate/translate.h"

namespace rosetag {
namespace {

std::string_view charactersOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Reads a value that is plain. False if it is not.
bool readPlain(std::string_view value, const ReadOptions& options, TagBits& tag) {
    return plainTagRead(value, options, tag);
}

bool readPlain(std::span<const std::uint8_t> bytes, const ReadOptions& options, TagBits& tag) {
    return mayBePlainTags(options) && plainTagOfBytes(charactersOf(bytes), tag) &&
           plainTagIsClear(tag, options);
}

// Writes a text of a plain value. False if it is not plain, or does not have the text.
// value: a text, or bytes; write: EpcStatus(BitBuffer& bits, TextBuffer& text)
template <typename Value, typename Write>
bool writePlain(Value value, const ReadOptions& options, Write write, Translation& result,
                std::string_view& text) {
    TagBits tag;
    if (!readPlain(value, options, tag)) {
        return false;
    }
    std::string& room = result.workspace.more;
    if (room.size() < TAG_FORM_ROOM) {
        room.resize(TAG_FORM_ROOM);
    }
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    TextBuffer buffer = textBufferOver(room.data(), TAG_FORM_ROOM);
    if (write(bits, buffer) != EPC_OK) {
        return false;
    }
    if (isFailure(result.failure)) {
        failureClear(result.failure);
    }
    result.notes.clear();
    text = textBufferView(buffer);
    return true;
}

template <typename Value>
std::string_view convertAny(Value value, const ReadOptions& options, Form form,
                            Translation& result) {
    const TagFormWriter write = tagFormWriterOf(form);
    std::string_view text;
    if (write != nullptr && writePlain(value, options, write, result, text)) {
        return text;
    }
    translate(value, options, form, result);
    return isFailure(result.failure) ? std::string_view() : formText(result, form);
}

template <typename Value>
std::string_view convertAnyToAi(Value value, const ReadOptions& options, std::string_view ai,
                                Translation& result) {
    const auto write = [ai](BitBuffer& bits, TextBuffer& text) {
        return aiOfNumericBits(bits, ai, text);
    };
    std::string_view text;
    if (writePlain(value, options, write, result, text)) {
        return text;
    }
    translate(value, options, Form::AIS, result);
    return isFailure(result.failure) ? std::string_view() : aiValueOf(result, ai);
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
    return convertAny(value, options, form, result);
}

std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result) {
    return convertAny(bytes, options, form, result);
}

std::string_view convertToAi(std::string_view value, const ReadOptions& options,
                             std::string_view ai, Translation& result) {
    return convertAnyToAi(value, options, ai, result);
}

std::string_view convertToAi(std::span<const std::uint8_t> bytes, const ReadOptions& options,
                             std::string_view ai, Translation& result) {
    return convertAnyToAi(bytes, options, ai, result);
}

} // namespace rosetag
