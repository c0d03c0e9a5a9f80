/*
 * One form of a value, and values that are given as bytes.
 */
#include "recognise/plain_tag.h"
#include "recognise/plain_text.h"
#include "rosetag/toolkit.hpp"
#include "translate/convert_plain.h"
#include "translate/encode_plain.h"
#include "translate/tag_form_writers.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

#include <optional>

namespace rosetag {
namespace {

std::string_view charactersOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Gives what work writes into a room of the result; none where it fails.
// work: bool(TextBuffer& text)
template <typename Work>
ROSETAG_INLINE std::optional<std::string_view> written(Translation& result, Work work) {
    std::string& room = result.workspace.more;
    if (room.size() < TAG_FORM_ROOM) {
        room.resize(TAG_FORM_ROOM);
    }
    TextBuffer text = textBufferOver(room.data(), TAG_FORM_ROOM);
    if (!work(text)) {
        return std::nullopt;
    }
    if (isFailure(result.failure)) {
        failureClear(result.failure);
    }
    result.notes.clear();
    return textBufferView(text);
}

bool readTag(std::string_view value, const ReadOptions& options, TagBits& tag) {
    return plainTagRead(value, options, tag);
}

bool readTag(std::span<const std::uint8_t> bytes, const ReadOptions& options, TagBits& tag) {
    return mayBePlainTags(options) && plainTagOfBytes(charactersOf(bytes), tag) &&
           plainTagIsClear(tag, options);
}

std::optional<std::string_view> convertTag(const TagBits& tag, Form form, Translation& result) {
    return written(
        result, [&](TextBuffer& text) { return tagFormWrite(tag, tagFormWriterOf(form), text); });
}

std::optional<std::string_view> convertText(std::string_view value, const ReadOptions& options,
                                            Form form, Translation& result) {
    Reading reading{value, options, result.workspace, result.notes, result.failure};
    return !plainTextPrepare(reading) ? std::nullopt : written(result, [&](TextBuffer& text) {
        return convertPlain(reading, form, text);
    });
}

template <typename Value>
std::string_view convertToForm(Value value, const ReadOptions& options, Form form,
                               Translation& result) {
    translate(value, options, form, result);
    if (isFailure(result.failure)) {
        return {};
    }
    if (form != Form::AIS) {
        return formText(result, form);
    }
    result.workspace.more.clear();
    appendAis(result.workspace.more, result.ais);
    return result.workspace.more;
}

// value: a text, or bytes
template <typename Value>
std::string_view convertAnyToAi(Value value, const ReadOptions& options, std::string_view ai,
                                Translation& result) {
    TagBits tag;
    if (readTag(value, options, tag)) {
        BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
        const std::optional<std::string_view> text = written(result, [&](TextBuffer& buffer) {
            return aiOfNumericBits(bits, ai, buffer) == EPC_OK;
        });
        if (text.has_value()) {
            return *text;
        }
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
    TagBits tag;
    const std::optional<std::string_view> text = readTag(value, options, tag)
                                                     ? convertTag(tag, form, result)
                                                     : convertText(value, options, form, result);
    return text.has_value() ? *text : convertToForm(value, options, form, result);
}

std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result) {
    TagBits tag;
    const std::optional<std::string_view> text =
        readTag(bytes, options, tag) ? convertTag(tag, form, result) : std::nullopt;
    return text.has_value() ? *text : convertToForm(bytes, options, form, result);
}

std::string_view encodeToHex(std::string_view value, const EncodeOptions& options,
                             Translation& result) {
    Reading reading{value, options.read, result.workspace, result.notes, result.failure};
    TagBits tag;
    if (plainTextPrepare(reading) && optionsSuffice(reading.form, options) &&
        encodePlain(reading, options, tag) && isNumericScheme(*schemeByHeader(tag.bytes[0]))) {
        return *written(result, [&](TextBuffer& text) {
            return textBufferPutHex(text, tag.bytes.data(), tag.count / 8) == EPC_OK;
        });
    }
    encode(value, options, Form::HEX, result);
    return isFailure(result.failure) ? std::string_view() : std::string_view(result.hex);
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
