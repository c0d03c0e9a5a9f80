#include "bridge/plain_slots.h"

#include "bridge/ais_to_identity.h"
#include "bridge/identity_to_ais.h"
#include "gs1/text_to_text.h"
#include "schemes/epc_uri.h"

namespace rosetag {

namespace {

// Holds the URI or the element string between two steps of a chain.
constexpr std::int32_t STEP_TEXT_SIZE = 256;

// The body of the pure identity URI of a binary value. What precedes it is known: the word of the
// family.
EpcStatus readBody(const TagSchemeOps& row, BitBuffer& bits, char (&storage)[STEP_TEXT_SIZE],
                   TextCursor& body) {
    TextBuffer text = textBufferOver(storage);
    EPC_TRY(row.binaryToUriBody(bits, text, UriForm::PURE_IDENTITY));
    body = textCursorOver(textBufferView(text));
    return EPC_OK;
}

// The characters of a tag URI before its body.
std::int32_t tagUriHeadLength(const TagSchemeInfo& info, std::int32_t filter) {
    const std::int32_t filterDigits = decimalDigitCount(static_cast<std::uint64_t>(filter));
    return static_cast<std::int32_t>(TAG_URI_PREFIX.size() + info.name.size()) + 1 + filterDigits +
           1;
}

// A GS1 text to binary through the body of a tag URI. The local text must have room for the whole
// URI even though its head is never written.
EpcStatus aiTextToBits(const TagSchemeOps& row, std::string_view text, AiBrackets brackets,
                       BitBuffer& bits, const EncodeArguments& arguments) {
    AiKeyScan found;
    if (arguments.isKeyAlone) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(gcpLengthCheck(arguments.gcpLength));
    EPC_TRY(aiScanForKey(text, brackets, found));
    EPC_TRY(gs1KeyCheckScheme(*found.key, row, arguments.filter));
    char storage[STEP_TEXT_SIZE];
    TextBuffer body =
        textBufferOver(storage, STEP_TEXT_SIZE - tagUriHeadLength(row.info, arguments.filter));
    EPC_TRY(aiTextToUriBody(text, brackets, arguments.gcpLength, found, body));
    TextCursor cursor = textCursorOver(textBufferView(body));
    return epcUriBodyToBits(cursor, static_cast<std::uint32_t>(arguments.filter), row, bits);
}

// Consumes all text from the cursor on.
std::string_view takeRest(TextCursor& cursor) {
    const char* const start = cursor.current;
    cursor.current = textCursorEnd(cursor);
    return {start, cursor.current};
}

} // namespace

EpcStatus plainBinaryToElementString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    char storage[STEP_TEXT_SIZE];
    TextCursor body;
    EPC_TRY(readBody(row, bits, storage, body));
    return identityToElementString(body, text, *row.key);
}

EpcStatus plainBinaryToBarcodeString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    char storage[STEP_TEXT_SIZE];
    TextCursor body;
    EPC_TRY(readBody(row, bits, storage, body));
    return identityToBarcodeString(body, text, *row.key);
}

// The element string is parsed in full; a value that breaks the syntax of its AI is refused nowhere
// else.
EpcStatus plainBinaryToDigitalLink(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    char storage[STEP_TEXT_SIZE];
    TextBuffer elementString = textBufferOver(storage);
    EPC_TRY(plainBinaryToElementString(row, bits, elementString));
    TextCursor cursor = textCursorOver(textBufferView(elementString));
    return elementStringToDigitalLink(cursor, text);
}

EpcStatus plainBinaryToAIs(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows) {
    char storage[STEP_TEXT_SIZE];
    TextCursor body;
    EPC_TRY(readBody(row, bits, storage, body));
    IdentityAIs ais;
    EPC_TRY(identityToAIs(body, *row.key, ais));
    return aiListCopyOut(ais.list, ais.values, rows);
}

EpcStatus plainElementStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments) {
    return aiTextToBits(row, takeRest(cursor), AI_BRACKETED, bits, arguments);
}

EpcStatus plainBarcodeStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments) {
    return aiTextToBits(row, takeRest(cursor), AI_BARE, bits, arguments);
}

EpcStatus plainDigitalLinkToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                   const EncodeArguments& arguments) {
    char storage[STEP_TEXT_SIZE];
    TextBuffer elementString = textBufferOver(storage);
    EPC_TRY(digitalLinkToElementString(cursor, elementString));
    takeRest(cursor);
    return aiTextToBits(row, textBufferView(elementString), AI_BRACKETED, bits, arguments);
}

} // namespace rosetag
