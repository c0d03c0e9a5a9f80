#include "bridge/identity_to_ais.h"

#include "gs1/check_digit.h"
#include "gs1/text_writers.h"
#include "schemes/epc_uri.h"

namespace rosetag {

namespace {

// A field has at most 255 characters.
constexpr std::int32_t FIELD_SIZE = 256;

// A field of the body, percent escapes resolved.
struct IdentityField {
    std::string_view text; // of the URI itself where no escape stands in it, else of storage
    char storage[FIELD_SIZE];
};

// The delimiter NUL reads to the end of the text.
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
    field.text = field.storage; // up to its first NUL, which may come of an escape
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

EpcStatus putSecondaryAiCode(TextBuffer& dst, const Gs1KeyDefinition& key) {
    if (key.keyValueLength == 0) {
        EPC_TRY(textBufferPutChar(dst, GROUP_SEPARATOR));
    }
    return textBufferPutString(dst, key.secondaryAi);
}

} // namespace

EpcStatus identityToAiList(TextCursor& cursor, TextBuffer& values, AiList& list,
                           const Gs1KeyDefinition& key) {
    const auto length = [&values] { return static_cast<std::uint32_t>(textBufferLength(values)); };
    KeyFields fields;
    EPC_TRY(readKeyFields(cursor, key, fields));
    const std::uint32_t keyOffset = length();
    EPC_TRY(putKeyValue(cursor, values, key, fields));
    const std::uint32_t tailOffset = length();
    if (key.hasTail != 0) {
        IdentityField tail;
        EPC_TRY(readTail(cursor, tail));
        EPC_TRY(textBufferPutString(values, tail.text));
    }
    if (key.tailIsSecondaryAi == 0) {
        return aiListAdd(list, *aiFind(key.primaryAi), keyOffset, length() - keyOffset, KEY_PASS);
    }
    EPC_TRY(aiListAdd(list, *aiFind(key.primaryAi), keyOffset, tailOffset - keyOffset, KEY_PASS));
    return aiListAdd(list, *aiFind(key.secondaryAi), tailOffset, length() - tailOffset, KEY_PASS);
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
        EPC_TRY(putSecondaryAiCode(dst, key));
    }
    return textBufferPutString(dst, tail.text);
}

EpcStatus identityToElementString(TextCursor& cursor, TextBuffer& dst,
                                  const Gs1KeyDefinition& key) {
    return identityListFrame(cursor, key, [&dst](const AiList& list, const char* values) {
        return elementStringWrite(dst, list, values);
    });
}

EpcStatus identityToDigitalLink(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key) {
    return identityListFrame(cursor, key, [&dst](AiList& list, const char* values) {
        return digitalLinkWrite(dst, list, values);
    });
}

} // namespace rosetag
