#include "values/plus_slots.h"

#include "gs1/digital_link_parser.h"
#include "gs1/text_writers.h"
#include "values/plus_codec.h"

namespace rosetag {

namespace {

// Parses the text by parse and encodes the list.
// parse: EpcStatus(AiList& list)
template <typename Parse>
EpcStatus encodeFrame(const TextCursor& cursor, BitBuffer& bits, const EncodeArguments& arguments,
                      ValueForm form, Parse parse) {
    if (arguments.filter < 0) {
        return EPC_ERR_FILTER_LIMIT;
    }
    const PlusSchemeRow* const row = plusSchemeFind(arguments.info.name);
    if (row == nullptr) {
        return EPC_ERR_NO_KEY_FOR_SCHEME;
    }
    AiList list;
    aiListClear(list);
    EPC_TRY(parse(list));
    return plusEncodeAiList(bits, list, cursor.begin, form, arguments.filter, *row,
                            arguments.encoding);
}

// Decodes the bits and hands the list to write.
// write: EpcStatus(AiList& list, const char* baseText)
template <typename Write>
EpcStatus decodeFrame(BitBuffer& bits, EpcScheme scheme, Write write) {
    AiList list;
    aiListClear(list);
    char values[PLUS_VALUES_SIZE];
    TextBuffer text = textBufferOver(values);
    EPC_TRY(plusDecodeAiList(bits, text, list, scheme));
    return write(list, values);
}

} // namespace

EpcStatus plusBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return elementStringWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return barcodeStringWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&text](AiList& list, const char* baseText) {
        return digitalLinkWrite(text, list, baseText);
    });
}

EpcStatus plusBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme) {
    return decodeFrame(bits, scheme, [&rows](AiList& list, const char* baseText) {
        return aiListCopyOut(list, baseText, rows);
    });
}

EpcStatus plusElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PLAIN, [&cursor](AiList& list) {
        return aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 0);
    });
}

EpcStatus plusBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PLAIN, [&cursor](AiList& list) {
        return aiTextParse(list, cursor, BARCODE_STRING_SYNTAX, 0);
    });
}

EpcStatus plusDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments) {
    return encodeFrame(cursor, bits, arguments, ValueForm::PERCENT_ENCODED,
                       [&cursor](AiList& list) -> EpcStatus {
                           EPC_TRY(digitalLinkSkipHost(cursor));
                           return digitalLinkParse(list, cursor);
                       });
}

} // namespace rosetag
