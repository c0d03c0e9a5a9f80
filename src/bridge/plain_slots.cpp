#include "bridge/plain_slots.h"

#include "bridge/ais_to_identity.h"
#include "bridge/identity_to_ais.h"
#include "gs1/text_to_text.h"
#include "schemes/epc_uri.h"

namespace rosetag {

namespace {

// Holds the URI or the element string between two steps of a chain.
constexpr std::int32_t STEP_TEXT_SIZE = 256;

// work: EpcStatus(TextCursor& body, const Gs1KeyDefinition& key), on the body of the pure identity
// URI of a binary value. What stands before the body there is known: the family's word.
template <typename Work>
EpcStatus identityFrame(BitBuffer& bits, EpcScheme scheme, Work work) {
    const TagSchemeOps& row = tagSchemeTable[scheme];
    char storage[STEP_TEXT_SIZE];
    TextBuffer body = textBufferOver(storage);
    EPC_TRY(row.binaryToUriBody(bits, body, UriForm::PURE_IDENTITY));
    const Gs1KeyDefinition* const key = gs1KeyFindByName(row.info.familyWord);
    if (key == nullptr) {
        return EPC_ERR_NO_KEY_DEFINITION;
    }
    TextCursor cursor = textCursorOver(textBufferView(body));
    return work(cursor, *key);
}

// A GS1 text to binary through the body of a tag URI. The whole URI must fit the local text,
// although what stands before the body is neither written nor read.
EpcStatus gs1TextToBits(std::string_view text, AiBrackets brackets, BitBuffer& bits,
                        const EncodeArguments& arguments) {
    const TagUriArguments uri = {arguments.info.scheme, arguments.filter, arguments.gcpLength};
    AiKeyScan found;
    EPC_TRY(aiTextFindKeyOfScheme(text, brackets, uri, found));
    char storage[STEP_TEXT_SIZE];
    TextBuffer body = textBufferOver(storage, STEP_TEXT_SIZE - tagUriHeadLength(uri));
    EPC_TRY(aiTextToUriBody(text, brackets, arguments.gcpLength, found, body));
    TextCursor cursor = textCursorOver(textBufferView(body));
    return epcUriBodyToBits(cursor, static_cast<std::uint32_t>(arguments.filter),
                            tagSchemeTable[uri.scheme], bits);
}

// All text under the cursor is consumed.
EpcStatus aiTextToBits(TextCursor& cursor, AiBrackets brackets, BitBuffer& bits,
                       const EncodeArguments& arguments) {
    const std::string_view text(cursor.current, static_cast<std::size_t>(textCursorLeft(cursor)));
    EPC_TRY(gs1TextToBits(text, brackets, bits, arguments));
    cursor.current = textCursorEnd(cursor);
    return EPC_OK;
}

} // namespace

EpcStatus plainBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return identityFrame(bits, scheme, [&text](TextCursor& body, const Gs1KeyDefinition& key) {
        return identityToElementString(body, text, key);
    });
}

EpcStatus plainBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return identityFrame(bits, scheme, [&text](TextCursor& body, const Gs1KeyDefinition& key) {
        return identityToBarcodeString(body, text, key);
    });
}

// The element string is parsed in full: a value that breaks its AI's syntax is refused here alone.
EpcStatus plainBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    char storage[STEP_TEXT_SIZE];
    TextBuffer elementString = textBufferOver(storage);
    EPC_TRY(plainBinaryToElementString(bits, elementString, scheme));
    TextCursor cursor = textCursorOver(textBufferView(elementString));
    return elementStringToDigitalLink(cursor, text);
}

EpcStatus plainBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme) {
    return identityFrame(bits, scheme, [&rows](TextCursor& body, const Gs1KeyDefinition& key) {
        return identityListFrame(body, key, [&rows](const AiList& list, const char* values) {
            return aiListCopyOut(list, values, rows);
        });
    });
}

EpcStatus plainElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments) {
    return aiTextToBits(cursor, AI_BRACKETED, bits, arguments);
}

EpcStatus plainBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                     const EncodeArguments& arguments) {
    return aiTextToBits(cursor, AI_BARE, bits, arguments);
}

EpcStatus plainDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                   const EncodeArguments& arguments) {
    char storage[STEP_TEXT_SIZE];
    TextBuffer elementString = textBufferOver(storage);
    EPC_TRY(digitalLinkToElementString(cursor, elementString));
    EPC_TRY(gs1TextToBits(textBufferView(elementString), AI_BRACKETED, bits, arguments));
    cursor.current = textCursorEnd(cursor);
    return EPC_OK;
}

} // namespace rosetag
