#include "values/plus_slots.h"

#include "gs1/digital_link_parser.h"
#include "gs1/text_writers.h"
#include "values/plus_codec.h"

namespace rosetag {

namespace {

// Whoever calls a slot has tested the filter against the limit of the scheme.
EpcStatus checkFilter(const EncodeArguments& arguments) {
    return arguments.filter < 0 ? EPC_ERR_FILTER_LIMIT : EPC_OK;
}

} // namespace

EpcStatus plusBinaryToElementString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(bits, scheme, values));
    return elementStringWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToBarcodeString(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(bits, scheme, values));
    return barcodeStringWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToDigitalLink(BitBuffer& bits, TextBuffer& text, EpcScheme scheme) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(bits, scheme, values));
    return digitalLinkWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToAIs(BitBuffer& bits, const AiRows& rows, EpcScheme scheme) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(bits, scheme, values));
    return aiListCopyOut(values.list, values.baseText, rows);
}

EpcStatus plusElementStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 0));
    return plusEncodeAiList(bits, list, cursor.begin, ValueForm::PLAIN, arguments);
}

EpcStatus plusBarcodeStringToBinary(TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, BARCODE_STRING_SYNTAX, 0));
    return plusEncodeAiList(bits, list, cursor.begin, ValueForm::PLAIN, arguments);
}

EpcStatus plusDigitalLinkToBinary(TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(digitalLinkSkipHost(cursor));
    EPC_TRY(digitalLinkParse(list, cursor));
    return plusEncodeAiList(bits, list, cursor.begin, ValueForm::PERCENT_ENCODED, arguments);
}

} // namespace rosetag
