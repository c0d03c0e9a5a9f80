#include "schemes/epc_uri.h"

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

// The row of the scheme whose name and ":" are next, or null, also where the text is short.
static const TagSchemeOps* findScheme(const TextCursor& cursor) {
    if (textCursorLeft(cursor) < static_cast<std::ptrdiff_t>(SCHEME_WORD_CHARS)) {
        return nullptr;
    }
    const SchemeWord word = {loadCharacters(cursor.current),
                             loadCharacters(cursor.current + SCAN_WIDTH)};
    const EpcScheme scheme = schemeGuess(word.first);
    return schemeWordIs(word, scheme) ? &tagSchemeTable[scheme] : nullptr;
}

EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row) {
    EPC_TRY(textCursorExpect(cursor, TAG_URI_PREFIX));
    row = findScheme(cursor);
    if (row != nullptr) {
        cursor.current += row->info.name.size();
        return EPC_OK;
    }
    std::string_view name;
    EPC_TRY(textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, name));
    row = tagSchemeFindByName(name);
    return row != nullptr ? EPC_OK : EPC_ERR_UNKNOWN_SCHEME;
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

EpcStatus tagUriToBitsByFields(BitBuffer& bits, std::string_view text) {
    TextCursor cursor = textCursorOver(text);
    const TagSchemeOps* row = nullptr;
    std::uint32_t filter = 0;
    EPC_TRY(tagUriReadScheme(cursor, row));
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
