/*
 * AIs as results have them, and the numbers that people know an object by.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_NUMBERS_H
#define ROSETAG_TOOLKIT_TRANSLATE_NUMBERS_H

#include "bridge/gs1_key_table.h"
#include "core/text_buffer.h"
#include "gs1/barcode_string.h"

#include <rosetag/toolkit.hpp>

namespace rosetag {

inline constexpr FormSet AI_FORMS = Form::AIS | Form::GTIN | Form::SERIAL;

void addAi(Translation& result, std::string_view code, std::string_view value);

struct AiText {
    std::string_view code;
    std::string_view value;
};

// Finds the serial number of a key in an AI: the value of an AI of its own, or what follows the
// digits of the key. False if the AI has none.
bool serialIn(const AiText& element, const Gs1KeyDefinition& key, std::string_view& serial);

// The GTIN among count AIs, and the serial number of the first key among them; empty if there is
// none.
// at: AiText(std::size_t index)
template <typename At>
std::string_view gtinAmong(std::size_t count, At at) {
    for (std::size_t i = 0; i < count; ++i) {
        if (const AiText element = at(i); element.code == GTIN_AI) {
            return element.value;
        }
    }
    return {};
}

template <typename At>
std::string_view serialAmong(std::size_t count, At at) {
    const Gs1KeyDefinition* key = nullptr;
    for (std::size_t i = 0; key == nullptr && i < count; ++i) {
        key = gs1KeyFindByAi(at(i).code);
    }
    std::string_view serial;
    for (std::size_t i = 0; key != nullptr && i < count; ++i) {
        if (serialIn(at(i), *key, serial)) {
            break;
        }
    }
    return serial;
}

// Writes count AIs as appendAis does.
// at: AiText(std::size_t index)
template <typename At>
EpcStatus aisPut(TextBuffer& text, std::size_t count, At at) {
    for (std::size_t i = 0; i < count; ++i) {
        const AiText element = at(i);
        EPC_TRY(textBufferPutString(text, i == 0 ? "" : " "));
        EPC_TRY(textBufferPutString(text, element.code));
        EPC_TRY(textBufferPutChar(text, '='));
        EPC_TRY(textBufferPutString(text, element.value));
    }
    return EPC_OK;
}

// Fills the numbers that were asked for.
template <typename At>
void addNumbers(FormSet wanted, std::size_t count, At at, Translation& result) {
    if (wanted.has(Form::GTIN)) {
        result.gtin = gtinAmong(count, at);
    }
    if (wanted.has(Form::SERIAL)) {
        result.serial = serialAmong(count, at);
    }
}

} // namespace rosetag

#endif
