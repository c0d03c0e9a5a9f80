/*
 * EPC URIs of numeric identities.
 *
 * Source: EPC Tag Data Standard, sections 6 (pure identity) and 12 (tag URI).
 */
#ifndef ROSETAG_SCHEMES_NUMERIC_URI_H
#define ROSETAG_SCHEMES_NUMERIC_URI_H

#include "schemes/epc_uri.h"
#include "schemes/numeric_text.h"
#include "schemes/scheme_codec.h"

namespace rosetag {

constexpr std::string_view uriPrefix(UriForm form) {
    return form == UriForm::TAG ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX;
}

constexpr std::string_view uriWord(const SchemeRow& row, UriForm form) {
    return form == UriForm::TAG ? row.name : row.familyWord;
}

template <EpcScheme scheme, UriForm form>
constexpr auto uriHeadMake() {
    constexpr std::size_t size =
        uriPrefix(form).size() + uriWord(schemeRows[scheme], form).size() + 1;
    Literal<size> head{};
    char* out = std::copy(uriPrefix(form).begin(), uriPrefix(form).end(), head.characters);
    for (const char character : uriWord(schemeRows[scheme], form)) {
        *out++ = character;
    }
    *out = ':';
    return head;
}

template <EpcScheme scheme, UriForm form>
inline constexpr auto uriHead = uriHeadMake<scheme, form>();

template <EpcScheme scheme>
inline constexpr bool uriHasFilter = schemeHasField(schemeRows[scheme], FieldKind::FILTER);

template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE void numericPutUriField(char*& end, const NumericIdentity& identity) {
    if constexpr (fieldIsPart(schemeRows[scheme].fields[index].kind)) {
        end = numericPutPart<scheme, index>(end, identity);
        if constexpr (fieldPartIndex(schemeRows[scheme], index) > 0) {
            *--end = '.';
        }
    }
}

template <EpcScheme scheme, std::size_t... index>
ROSETAG_INLINE void numericPutUriFields(char*& end, const NumericIdentity& identity,
                                        std::index_sequence<index...>) {
    (numericPutUriField<scheme, sizeof...(index) - 1 - index>(end, identity), ...);
}

template <EpcScheme scheme, UriForm form>
ROSETAG_INLINE bool numericToUri(const NumericIdentity& identity, TextBuffer& text) {
    constexpr auto& head = uriHead<scheme, form>;
    constexpr bool hasFilter = form == UriForm::TAG && uriHasFilter<scheme>;
    constexpr std::size_t partCount = schemePartCount(schemeRows[scheme]);
    auto length = static_cast<std::int32_t>(sizeof head + (hasFilter ? 2 : 0) + partCount - 1);
    for (std::size_t i = 0; i < partCount; ++i) {
        length += identity.parts[i].digits;
    }
    if (length > textBufferRoom(text)) {
        return false;
    }
    char* end = text.begin + length;
    *end = '\0';
    text.writePointer = end;
    numericPutUriFields<scheme>(end, identity, NumericFieldSequence<scheme>());
    if constexpr (hasFilter) {
        static_assert(schemeFilterLimit(schemeRows[scheme]) <= 10, "the filter is one digit");
        *--end = '.';
        *--end = static_cast<char>('0' + identity.filter);
    }
    literalPut(text.begin, head);
    return true;
}

// Writes the URI of a whole binary value into an empty text. False if the general writer has to.
template <EpcScheme scheme>
ROSETAG_INLINE bool numericBitsToUri(BitBuffer& bits, TextBuffer& text, UriForm form) {
    NumericIdentity identity;
    if (!numericFromBits<scheme>(bits, identity)) {
        return false;
    }
    return form == UriForm::TAG ? numericToUri<scheme, UriForm::TAG>(identity, text)
                                : numericToUri<scheme, UriForm::PURE_IDENTITY>(identity, text);
}

template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericReadUriField(NumericReader& reader, NumericIdentity& identity) {
    constexpr FieldKind kind = schemeRows[scheme].fields[index].kind;
    if constexpr (kind == FieldKind::COMPANY_PREFIX) {
        return numericReadPrefix<PrefixDigits::COUNTED>(
            reader, digitsCount(reader.current, reader.end), identity);
    } else if constexpr (fieldIsPart(kind)) {
        constexpr bool isFirst = fieldPartIndex(schemeRows[scheme], index) == 0;
        return (isFirst || literalRead(reader, Literal<1>{{'.'}})) &&
               numericReadPart<scheme, index>(reader, identity);
    } else {
        return true;
    }
}

template <EpcScheme scheme, std::size_t... index>
ROSETAG_INLINE bool numericReadUriFields(NumericReader& reader, NumericIdentity& identity,
                                         std::index_sequence<index...>) {
    return (numericReadUriField<scheme, index>(reader, identity) && ...) &&
           reader.current == reader.end;
}

// Reads the body of a URI and writes the whole value. Before the body there is room for a word.
template <EpcScheme scheme>
bool numericUriBodyToBits(NumericReader reader, std::uint32_t filter, BitBuffer& bits) {
    NumericIdentity identity;
    identity.filter = filter;
    return numericReadUriFields<scheme>(reader, identity, NumericFieldSequence<scheme>()) &&
           numericToBits<scheme>(identity, bits);
}

// Reads a tag URI from the ":" after its scheme word on.
template <EpcScheme scheme>
bool numericTagUriToBits(std::string_view rest, BitBuffer& bits) {
    NumericReader reader = {rest.data() + 1, rest.data() + rest.size()};
    std::uint32_t filter = 0;
    if constexpr (uriHasFilter<scheme>) {
        if (rest.size() < 3 || !charIsDigit(rest[1]) || rest[2] != '.') {
            return false;
        }
        filter = static_cast<std::uint32_t>(rest[1] - '0');
        reader.current += 2;
    }
    return numericUriBodyToBits<scheme>(reader, filter, bits);
}

// The slot that reads the body of either URI. A body at the beginning of its text has no word
// before it.
template <EpcScheme scheme>
EpcStatus numericWriteBody(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    const char* const end = textCursorEnd(cursor);
    if (cursor.current - cursor.begin < WORD_DIGITS ||
        !numericUriBodyToBits<scheme>({cursor.current, end}, filter, bits)) {
        return schemeWriteBody<scheme>(cursor, filter, bits);
    }
    cursor.current = end;
    return EPC_OK;
}

} // namespace rosetag

#endif
