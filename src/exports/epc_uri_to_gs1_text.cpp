#include "bridge/identity_to_ais.h"
#include "schemes/epc_uri.h"

namespace rosetag {
namespace {

EpcStatus readPureIdentityHead(TextCursor& cursor, const Gs1KeyDefinition*& key) {
    std::string_view word;
    EPC_TRY(textCursorExpect(cursor, PURE_IDENTITY_URI_PREFIX));
    EPC_TRY(textCursorReadUntil(cursor, ':', SCHEME_WORD_SIZE, word));
    key = gs1KeyFindByName(word);
    if (key == nullptr) {
        return EPC_ERR_NO_KEY_DEFINITION;
    }
    return textCursorExpect(cursor, ':');
}

// The filter is tested and dropped: no GS1 text carries it.
EpcStatus readTagUriHead(TextCursor& cursor, const Gs1KeyDefinition*& key) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagUriReadScheme(cursor, row));
    key = gs1KeyFindByName(row->info.familyWord);
    if (key == nullptr) {
        return EPC_ERR_NO_KEY_DEFINITION;
    }
    std::uint32_t filter = 0;
    return tagUriReadFilter(cursor, row->info, filter);
}

using ReadHead = EpcStatus (*)(TextCursor& cursor, const Gs1KeyDefinition*& key);
using Convert = EpcStatus (*)(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);

EpcStatus uriToGs1Text(const char* text, std::int32_t dstSize, char* dst, ReadHead readHead,
                       Convert convert) {
    TextCursor cursor = textCursorOver(text);
    TextBuffer out = textBufferOver(dst, dstSize);
    const Gs1KeyDefinition* key = nullptr;
    EPC_TRY(readHead(cursor, key));
    return convert(cursor, out, *key);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_epcTagUriToBarcodeString(const char* text, std::int32_t dstSize, char* dst) {
    return uriToGs1Text(text, dstSize, dst, readTagUriHead, identityToBarcodeString);
}

EpcStatus epc_epcTagUriToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    return uriToGs1Text(text, dstSize, dst, readTagUriHead, identityToElementString);
}

EpcStatus epc_epcTagUriToDigitalLink(const char* text, std::int32_t dstSize, char* dst) {
    return uriToGs1Text(text, dstSize, dst, readTagUriHead, identityToDigitalLink);
}

EpcStatus epc_epcUriToBarcodeString(const char* text, std::int32_t dstSize, char* dst) {
    return uriToGs1Text(text, dstSize, dst, readPureIdentityHead, identityToBarcodeString);
}

EpcStatus epc_epcUriToGs1ElementString(const char* text, std::int32_t dstSize, char* dst) {
    return uriToGs1Text(text, dstSize, dst, readPureIdentityHead, identityToElementString);
}
