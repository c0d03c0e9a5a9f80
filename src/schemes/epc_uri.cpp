#include "schemes/epc_uri.h"

#include "core/frames.h"

namespace {

// Up to the ":", which stays unread.
EpcStatus readSchemeWord(TextCursor& cursor, std::string_view& word) {
    return textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, word);
}

// The frame of the exports from a URI to binary.
// read: EpcStatus(TextCursor& cursor, BitBuffer& bits)
template <typename Read>
EpcStatus uriToBinary(const char* text, std::int32_t maxBytes, std::uint8_t* out,
                      std::int32_t* outBytes, Read read) {
    BitBuffer bits = bitBufferForWriting(out, maxBytes);
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(read(cursor, bits));
    if (outBytes != nullptr) {
        *outBytes = bits.position / 8;
    }
    return EPC_OK;
}

// Reads a whole tag URI.
EpcStatus tagUriToBits(TextCursor& cursor, BitBuffer& bits) {
    const TagSchemeOps* row = nullptr;
    std::uint32_t filter = 0;
    EPC_TRY(tagUriReadScheme(cursor, row));
    EPC_TRY(tagUriReadFilter(cursor, row->info, filter));
    return epcUriBodyToBits(cursor, filter, *row, bits);
}

// A negative filter goes on as an unsigned number.
EpcStatus pureIdentityUriToBits(TextCursor& cursor, EpcScheme scheme, std::int32_t filter,
                                BitBuffer& bits) {
    EPC_TRY(textCursorExpect(cursor, PURE_IDENTITY_URI_PREFIX));
    if (!tagSchemeIsKnown(scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeOps& row = tagSchemeTable[scheme];
    std::string_view word;
    EPC_TRY(readSchemeWord(cursor, word));
    if (word != row.info.familyWord) {
        return EPC_ERR_SCHEME_MISMATCH;
    }
    EPC_TRY(textCursorExpect(cursor, ':'));
    return epcUriBodyToBits(cursor, static_cast<std::uint32_t>(filter), row, bits);
}

// What the six exports do, as work for the output frames.
auto tagUriWork(const char* text) {
    return [text](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return uriToBinary(text, maxBytes, out, outBytes, tagUriToBits);
    };
}

auto uriWork(const char* text, EpcScheme scheme, std::int32_t filter) {
    return [=](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return uriToBinary(text, maxBytes, out, outBytes,
                           [scheme, filter](TextCursor& cursor, BitBuffer& bits) {
                               return pureIdentityUriToBits(cursor, scheme, filter, bits);
                           });
    };
}

} // namespace

EpcStatus tagUriReadScheme(TextCursor& cursor, const TagSchemeOps*& row) {
    std::string_view word;
    EPC_TRY(textCursorExpect(cursor, TAG_URI_PREFIX));
    EPC_TRY(readSchemeWord(cursor, word));
    row = tagSchemeFindByName(word);
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

EpcStatus epc_epcTagUriToBinary(const char* text, int32_t maxBytes, uint8_t* out,
                                int32_t* outBytes) {
    return tagUriWork(text)(maxBytes, out, outBytes);
}

EpcStatus epc_epcTagUriToHex(const char* text, int32_t dstSize, char* dst) {
    return hexOutputFrame(dstSize, dst, tagUriWork(text));
}

EpcStatus epc_epcTagUriToWords(const char* text, int32_t maxWords, uint16_t* outWords,
                               int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, tagUriWork(text));
}

EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, int32_t filter, int32_t maxBytes,
                             uint8_t* out, int32_t* outBytes) {
    return uriWork(text, scheme, filter)(maxBytes, out, outBytes);
}

EpcStatus epc_epcUriToHex(const char* text, EpcScheme scheme, int32_t filter, int32_t dstSize,
                          char* dst) {
    return hexOutputFrame(dstSize, dst, uriWork(text, scheme, filter));
}

EpcStatus epc_epcUriToWords(const char* text, EpcScheme scheme, int32_t filter, int32_t maxWords,
                            uint16_t* outWords, int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, uriWork(text, scheme, filter));
}
