#include "values/plus_slots.h"

#include "gs1/digital_link_parser.h"
#include "gs1/text_writers.h"
#include "values/plus_codec.h"

namespace rosetag {

namespace {

// The caller has tested the upper limit.
EpcStatus checkFilter(const EncodeArguments& arguments) {
    return arguments.filter < 0 ? EPC_ERR_FILTER_LIMIT : EPC_OK;
}

} // namespace

EpcStatus plusBinaryToElementString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(row, bits, values));
    return elementStringWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToBarcodeString(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(row, bits, values));
    return barcodeStringWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToDigitalLink(const TagSchemeOps& row, BitBuffer& bits, TextBuffer& text) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(row, bits, values));
    return digitalLinkWrite(text, values.list, values.baseText);
}

EpcStatus plusBinaryToAIs(const TagSchemeOps& row, BitBuffer& bits, const AiRows& rows) {
    PlusValues values;
    EPC_TRY(plusDecodeAiList(row, bits, values));
    return aiListCopyOut(values.list, values.baseText, rows);
}

EpcStatus plusElementStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 0));
    return plusEncodeAiList(row, bits, list, cursor.begin, ValueForm::PLAIN, arguments);
}

EpcStatus plusBarcodeStringToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                    const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(aiTextParse(list, cursor, BARCODE_STRING_SYNTAX, 0));
    return plusEncodeAiList(row, bits, list, cursor.begin, ValueForm::PLAIN, arguments);
}

EpcStatus plusDigitalLinkToBinary(const TagSchemeOps& row, TextCursor& cursor, BitBuffer& bits,
                                  const EncodeArguments& arguments) {
    EPC_TRY(checkFilter(arguments));
    AiList list;
    aiListClear(list);
    EPC_TRY(digitalLinkSkipHost(cursor));
    EPC_TRY(digitalLinkParse(list, cursor));
    return plusEncodeAiList(row, bits, list, cursor.begin, ValueForm::PERCENT_ENCODED, arguments);
}

} // namespace rosetag
