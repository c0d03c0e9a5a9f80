#include "schemes/epc_uri.h"

#include "schemes/scheme_word.h"

namespace rosetag {

EpcStatus bitsPutEpcUri(BitBuffer& bits, TextBuffer& text, UriForm form) {
    const bool isTagUri = form == UriForm::TAG;
    const TagSchemeOps* row = nullptr;
    const EpcStatus headerStatus = tagSchemeReadHeader(bits, row);
    if (row != nullptr && row->numericBitsToUri != nullptr &&
        row->numericBitsToUri(bits, text, form)) {
        return EPC_OK;
    }
    EPC_TRY(textBufferPutString(text, isTagUri ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX));
    EPC_TRY(headerStatus);
    if (row->binaryToUriBody == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(textBufferPutString(text, isTagUri ? row->info.name : row->info.familyWord));
    EPC_TRY(textBufferPutChar(text, ':'));
    return row->binaryToUriBody(bits, text, form);
}

EpcStatus bitsToEpcUri(BitBuffer& bits, std::int32_t dstSize, char* dst, UriForm form) {
    TextBuffer text = textBufferOver(dst, dstSize);
    return bitsPutEpcUri(bits, text, form);
}

EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row) {
    EPC_TRY(textCursorExpect(cursor, TAG_URI_PREFIX));
    row = nullptr;
    SchemeWord word;
    if (!schemeWordRead(cursor, word)) {
        std::string_view name;
        EPC_TRY(textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, name));
        word = schemeWordOf(name);
    }
    const EpcScheme scheme = schemeFindByWord(word);
    if (scheme < 0) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    row = &tagSchemeTable[scheme];
    return EPC_OK;
}

EpcStatus tagUriReadFilter(TextCursor& cursor, const TagSchemeInfo& info, std::uint32_t& filter) {
    EPC_TRY(textCursorExpect(cursor, ':'));
    filter = 0;
    if (info.filterLimit == 0) {
        return EPC_OK;
    }
    std::uint64_t value = 0;
    EPC_TRY(textCursorReadShortNumber(cursor, LeadingZeros::REFUSE, value));
    if (value >= static_cast<std::uint64_t>(info.filterLimit)) {
        return EPC_ERR_FILTER_LIMIT;
    }
    filter = static_cast<std::uint32_t>(value);
    return textCursorExpect(cursor, '.');
}

EpcStatus epcUriBodyToBits(TextCursor& cursor, std::uint32_t filter, const TagSchemeOps& row,
                           BitBuffer& bits) {
    if (row.uriBodyToBinary == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(row.uriBodyToBinary(cursor, filter, bits));
    EPC_TRY(bitBufferPadToWord(bits));
    return textCursorAtEnd(cursor) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

EpcStatus tagUriToBits(BitBuffer& bits, std::string_view text) {
    TextCursor cursor = textCursorOver(text);
    const TagSchemeOps* row = nullptr;
    std::uint32_t filter = 0;
    EPC_TRY(tagUriReadScheme(cursor, row));
    if (row->numericTagUriToBits != nullptr &&
        row->numericTagUriToBits({cursor.current, textCursorEnd(cursor)}, bits)) {
        return EPC_OK;
    }
    EPC_TRY(tagUriReadFilter(cursor, row->info, filter));
    return epcUriBodyToBits(cursor, filter, *row, bits);
}

EpcStatus pureIdentityUriToBits(BitBuffer& bits, std::string_view text, EpcScheme scheme,
                                std::int32_t filter) {
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(textCursorExpect(cursor, PURE_IDENTITY_URI_PREFIX));
    if (!tagSchemeIsKnown(scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeOps& row = tagSchemeTable[scheme];
    std::string_view word;
    EPC_TRY(textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, word));
    if (word != row.info.familyWord) {
        return EPC_ERR_SCHEME_MISMATCH;
    }
    EPC_TRY(textCursorExpect(cursor, ':'));
    return epcUriBodyToBits(cursor, static_cast<std::uint32_t>(filter), row, bits);
}

} // namespace rosetag
