#include "bridge/identity_to_ais.h"

#include "gs1/check_digit.h"
#include "gs1/text_writers.h"
#include "schemes/epc_uri.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace rosetag {

namespace {

struct KeyAIs {
    const AiDefinition* primary;
    const AiDefinition* secondary; // null if the key has none
};

// One for each row of the keys.
constexpr auto keyAIs = []() {
    std::array<KeyAIs, std::size(gs1KeyTable)> ais{};
    std::transform(std::begin(gs1KeyTable), std::end(gs1KeyTable), ais.begin(),
                   [](const Gs1KeyDefinition& key) -> KeyAIs {
                       const std::string_view second = key.secondaryAi;
                       return {&aiCatalogue[aiSlotOf(key.primaryAi)],
                               second.empty() ? nullptr : &aiCatalogue[aiSlotOf(second)]};
                   });
    return ais;
}();

// A field has at most 255 characters.
constexpr std::int32_t FIELD_SIZE = 256;

// A field of the body with its percent escapes resolved.
struct IdentityField {
    std::string_view text; // of the URI itself if it has no escape, else of storage
    char storage[FIELD_SIZE];
};

// With the delimiter NUL it reads to the end of the text.
EpcStatus readField(TextCursor& cursor, char delimiter, IdentityField& field) {
    const char* end = cursor.current;
    while (*end != delimiter && *end != '%' && *end != '\0') {
        ++end;
    }
    if (*end == delimiter && end - cursor.current < FIELD_SIZE) {
        field.text = {cursor.current, end};
        cursor.current = end;
        return EPC_OK;
    }
    std::int32_t count = 0;
    EPC_TRY(textCursorReadEscapedUntil(cursor, delimiter, FIELD_SIZE, field.storage, count));
    field.text = field.storage; // up to its first NUL, which may come from an escape
    return EPC_OK;
}

struct KeyFields {
    IdentityField first;
    IdentityField second;
};

EpcStatus readKeyFields(TextCursor& cursor, const Gs1KeyDefinition& key, KeyFields& fields) {
    EPC_TRY(readField(cursor, '.', fields.first));
    EPC_TRY(textCursorExpect(cursor, '.'));
    return readField(cursor, key.hasTail != 0 ? '.' : '\0', fields.second);
}

EpcStatus putKeyDigits(TextBuffer& dst, const Gs1KeyDefinition& key, const KeyFields& fields) {
    std::string_view second = fields.second.text;
    if (key.digitArrangement == KEY_DIGITS_FIRST_MOVES) {
        if (second.empty()) {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(textBufferPutChar(dst, second.front()));
        second.remove_prefix(1);
    }
    if (key.digitArrangement == KEY_DIGITS_ZERO_FILL) {
        EPC_TRY(textBufferPutChar(dst, '0'));
    }
    EPC_TRY(textBufferPutString(dst, fields.first.text));
    return textBufferPutString(dst, second);
}

EpcStatus putExtraFields(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key) {
    for (std::int32_t i = 0; i < key.extraFieldCount; ++i) {
        IdentityField field;
        EPC_TRY(textCursorExpect(cursor, '.'));
        EPC_TRY(readField(cursor, '.', field));
        EPC_TRY(textBufferPutString(dst, field.text));
    }
    return EPC_OK;
}

// Appends the value of the key up to the place of the tail.
EpcStatus putKeyValue(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key,
                      const KeyFields& fields) {
    const char* const value = dst.writePointer;
    EPC_TRY(putKeyDigits(dst, key, fields));
    if (key.hasCheckDigit != 0) {
        const auto length = static_cast<std::size_t>(dst.writePointer - value);
        EPC_TRY(textBufferPutChar(dst, gs1CheckDigit({value, length})));
    }
    return putExtraFields(cursor, dst, key);
}

EpcStatus readTail(TextCursor& cursor, IdentityField& tail) {
    EPC_TRY(textCursorExpect(cursor, '.'));
    return readField(cursor, '\0', tail);
}

} // namespace

EpcStatus identityToAIs(TextCursor& cursor, const Gs1KeyDefinition& key, IdentityAIs& ais) {
    TextBuffer values = textBufferOver(ais.values);
    const auto length = [&values] { return static_cast<std::uint32_t>(textBufferLength(values)); };
    aiListClear(ais.list);
    KeyFields fields;
    EPC_TRY(readKeyFields(cursor, key, fields));
    EPC_TRY(putKeyValue(cursor, values, key, fields));
    const std::uint32_t tail = length();
    if (key.hasTail != 0) {
        IdentityField field;
        EPC_TRY(readTail(cursor, field));
        EPC_TRY(textBufferPutString(values, field.text));
    }
    const KeyAIs& definitions = keyAIs[static_cast<std::size_t>(&key - gs1KeyTable)];
    if (definitions.secondary == nullptr) {
        return aiListAdd(ais.list, *definitions.primary, 0, length(), KEY_PASS);
    }
    EPC_TRY(aiListAdd(ais.list, *definitions.primary, 0, tail, KEY_PASS));
    return aiListAdd(ais.list, *definitions.secondary, tail, length() - tail, KEY_PASS);
}

EpcStatus identityToBarcodeString(TextCursor& cursor, TextBuffer& dst,
                                  const Gs1KeyDefinition& key) {
    KeyFields fields;
    EPC_TRY(readKeyFields(cursor, key, fields));
    EPC_TRY(textBufferPutString(dst, key.primaryAi));
    EPC_TRY(putKeyValue(cursor, dst, key, fields));
    if (key.hasTail == 0) {
        return EPC_OK;
    }
    IdentityField tail;
    EPC_TRY(readTail(cursor, tail));
    if (key.tailIsSecondaryAi != 0) {
        if (key.keyValueLength == 0) {
            EPC_TRY(textBufferPutChar(dst, GROUP_SEPARATOR));
        }
        EPC_TRY(textBufferPutString(dst, key.secondaryAi));
    }
    return textBufferPutString(dst, tail.text);
}

EpcStatus identityToElementString(TextCursor& cursor, TextBuffer& dst,
                                  const Gs1KeyDefinition& key) {
    IdentityAIs ais;
    EPC_TRY(identityToAIs(cursor, key, ais));
    return elementStringWrite(dst, ais.list, ais.values);
}

EpcStatus identityToDigitalLink(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key) {
    IdentityAIs ais;
    EPC_TRY(identityToAIs(cursor, key, ais));
    return digitalLinkWrite(dst, ais.list, ais.values);
}

EpcStatus tagUriToGs1Text(TextCursor& cursor, TextBuffer& dst, IdentityToText write) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagUriReadScheme(cursor, row));
    if (row->key == nullptr) {
        return EPC_ERR_NO_KEY_DEFINITION;
    }
    std::uint32_t filter = 0;
    EPC_TRY(tagUriReadFilter(cursor, row->info, filter));
    return write(cursor, dst, *row->key);
}

EpcStatus pureIdentityUriToGs1Text(TextCursor& cursor, TextBuffer& dst, IdentityToText write) {
    std::string_view word;
    EPC_TRY(textCursorExpect(cursor, PURE_IDENTITY_URI_PREFIX));
    EPC_TRY(textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, word));
    const Gs1KeyDefinition* const key = gs1KeyFindByName(word);
    if (key == nullptr) {
        return EPC_ERR_NO_KEY_DEFINITION;
    }
    EPC_TRY(textCursorExpect(cursor, ':'));
    return write(cursor, dst, *key);
}

} // namespace rosetag
