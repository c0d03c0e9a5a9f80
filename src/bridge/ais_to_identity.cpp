#include "bridge/ais_to_identity.h"

#include "schemes/epc_uri.h"
#include "schemes/partition.h"

namespace rosetag {

namespace {

// Appends the characters from start up to end, which lies after the text if a value is too short.
EpcStatus putWithinText(TextBuffer& dst, std::string_view text, std::uint32_t start,
                        std::uint32_t end) {
    return end > text.size() ? EPC_ERR_TRUNCATED
                             : textBufferPutEscapedRange(dst, text.data(), start, end);
}

// The key's value from start up to keyEnd: company prefix, ".", reference. A check digit is skipped
// unverified.
EpcStatus putKeyFields(std::string_view text, std::int32_t gcpLength, const AiKeyScan& found,
                       std::uint32_t start, std::uint32_t keyEnd, TextBuffer& dst) {
    const Gs1KeyDefinition& key = *found.key;
    const std::uint32_t prefix = start + (key.digitArrangement == KEY_DIGITS_AS_IS ? 0 : 1);
    const std::uint32_t prefixEnd = prefix + static_cast<std::uint32_t>(gcpLength);
    if (prefixEnd > found.valueEnd) {
        return EPC_ERR_OUT_OF_RANGE;
    }
    EPC_TRY(textBufferPutRange(dst, text.data(), prefix, prefixEnd));
    EPC_TRY(textBufferPutChar(dst, '.'));
    if (key.digitArrangement == KEY_DIGITS_FIRST_MOVES) {
        EPC_TRY(textBufferPutChar(dst, text[start]));
    }
    return putWithinText(dst, text, prefixEnd, keyEnd - key.hasCheckDigit);
}

EpcStatus putExtraFields(std::string_view text, const Gs1KeyDefinition& key,
                         std::uint32_t& position, TextBuffer& dst) {
    for (std::int32_t i = 0; i < key.extraFieldCount; ++i) {
        const std::uint32_t end = position + static_cast<std::uint32_t>(key.extraFieldLengths[i]);
        EPC_TRY(textBufferPutChar(dst, '.'));
        EPC_TRY(putWithinText(dst, text, position, end));
        position = end;
    }
    return EPC_OK;
}

EpcStatus putSecondaryValue(std::string_view text, AiBrackets brackets, std::string_view code,
                            TextBuffer& dst) {
    AiScan scan;
    EPC_TRY(aiScanFind(text, brackets, code, scan));
    return textBufferPutEscapedRange(dst, text.data(), aiValueStart(scan.codeEnd, brackets),
                                     scan.valueEnd);
}

} // namespace

EpcStatus gcpLengthCheck(std::int32_t gcpLength) {
    const bool isLength = gcpLength >= companyPrefixSizes.back().digits &&
                          gcpLength <= companyPrefixSizes.front().digits;
    return isLength ? EPC_OK : EPC_ERR_FILTER_FIELD;
}

EpcStatus gs1KeyCheckScheme(const Gs1KeyDefinition& key, const TagSchemeOps& row,
                            std::int32_t filter) {
    if (row.key != &key) {
        return EPC_ERR_SCHEME_MISMATCH;
    }
    return filter >= 0 && filter < row.info.filterLimit ? EPC_OK : EPC_ERR_FILTER_LIMIT;
}

EpcStatus aiTextToUriBody(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                          const AiKeyScan& found, TextBuffer& dst) {
    const Gs1KeyDefinition& key = *found.key;
    const auto keyValueLength = static_cast<std::uint32_t>(key.keyValueLength);
    const std::uint32_t start = aiValueStart(found.codeEnd, brackets);
    const std::uint32_t keyEnd = keyValueLength > 0 ? start + keyValueLength : found.valueEnd;
    EPC_TRY(putKeyFields(text, gcpLength, found, start, keyEnd, dst));
    if (key.hasTail == 0) {
        return EPC_OK;
    }
    std::uint32_t tail = keyEnd;
    EPC_TRY(putExtraFields(text, key, tail, dst));
    EPC_TRY(textBufferPutChar(dst, '.'));
    if (key.tailIsSecondaryAi == 0) {
        return textBufferPutEscapedRange(dst, text.data(), tail, found.valueEnd);
    }
    // The secondary AI follows a key of fixed length, but may precede one that varies.
    if (keyValueLength > 0) {
        text.remove_prefix(std::min<std::size_t>(tail, text.size()));
    }
    return putSecondaryValue(text, brackets, key.secondaryAi, dst);
}

EpcStatus gs1TextToTagUri(std::string_view text, AiBrackets brackets,
                          const TagUriArguments& arguments, std::int32_t dstSize, char* dst) {
    AiKeyScan found;
    EPC_TRY(gcpLengthCheck(arguments.gcpLength));
    EPC_TRY(aiScanForKey(text, brackets, found));
    if (!tagSchemeIsKnown(arguments.scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeOps& row = tagSchemeTable[arguments.scheme];
    EPC_TRY(gs1KeyCheckScheme(*found.key, row, arguments.filter));
    TextBuffer uri = textBufferOver(dst, dstSize);
    EPC_TRY(textBufferPutString(uri, TAG_URI_PREFIX));
    EPC_TRY(textBufferPutString(uri, row.info.name));
    EPC_TRY(textBufferPutChar(uri, ':'));
    EPC_TRY(textBufferPutDecimal(uri, static_cast<std::uint64_t>(arguments.filter)));
    EPC_TRY(textBufferPutChar(uri, '.'));
    return aiTextToUriBody(text, brackets, arguments.gcpLength, found, uri);
}

EpcStatus gs1TextToPureIdentityUri(std::string_view text, AiBrackets brackets,
                                   std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    AiKeyScan found;
    EPC_TRY(gcpLengthCheck(gcpLength));
    EPC_TRY(aiScanForKey(text, brackets, found));
    TextBuffer uri = textBufferOver(dst, dstSize);
    EPC_TRY(textBufferPutString(uri, PURE_IDENTITY_URI_PREFIX));
    EPC_TRY(textBufferPutString(uri, found.key->familyName));
    EPC_TRY(textBufferPutChar(uri, ':'));
    return aiTextToUriBody(text, brackets, gcpLength, found, uri);
}

} // namespace rosetag
