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

// The characters of the shortest body, with the "." between its parts.
constexpr std::ptrdiff_t uriBodyLeastLength(const SchemeRow& row) {
    std::ptrdiff_t length = -1;
    for (const SchemeField& field : schemeFields(row)) {
        if (field.kind == FieldKind::COMPANY_PREFIX) {
            length += companyPrefixSizes.back().digits + 1;
        } else if (field.kind == FieldKind::REFERENCE_DIGITS) {
            length += field.size - companyPrefixSizes.back().digits + 1;
        } else if (fieldIsPart(field.kind)) {
            length += std::max(field.size, 1) + 1;
        }
    }
    return length;
}

// Counts the digits of a company prefix; fewer than any has are counted as the fewest, of which one
// is a stray then.
template <EpcScheme scheme>
ROSETAG_INLINE std::ptrdiff_t numericCountPrefix(const NumericReader& reader) {
    constexpr std::ptrdiff_t least = companyPrefixSizes.back().digits;
    constexpr bool isFollowed = uriBodyLeastLength(schemeRows[scheme]) >= least + WORD_DIGITS;
    const char* const after = reader.current + least;
    const std::uint64_t word = isFollowed ? loadCharacters(after) : loadUpTo(after, reader.end);
    return least + countBeforeMark(strayMarks(word ^ DIGIT_CHARACTERS) & ALL_MARKS);
}

template <EpcScheme scheme, std::size_t index>
ROSETAG_INLINE bool numericReadUriField(NumericReader& reader, const char* body,
                                        NumericIdentity& identity) {
    constexpr SchemeField field = schemeRows[scheme].fields[index];
    if constexpr (field.kind == FieldKind::COMPANY_PREFIX) {
        return numericReadPrefix(reader, numericCountPrefix<scheme>(reader), identity);
    } else if constexpr (fieldIsPart(field.kind)) {
        constexpr bool isFirst = fieldPartIndex(schemeRows[scheme], index) == 0;
        if (!isFirst && *reader.current++ != '.') {
            return false;
        }
        if constexpr (field.kind == FieldKind::REFERENCE_DIGITS) {
            numericReadReference<field.size>(reader, body + field.size + 1, identity);
            return true;
        } else {
            return numericReadPart<scheme, index>(reader, identity);
        }
    } else {
        return true;
    }
}

template <EpcScheme scheme, std::size_t... index>
ROSETAG_INLINE bool numericReadUriFields(NumericReader& reader, NumericIdentity& identity,
                                         std::index_sequence<index...>) {
    const char* const body = reader.current;
    return (numericReadUriField<scheme, index>(reader, body, identity) && ...);
}

// Reads the body of a URI, which has the least length or more. Before the body there is room for a
// word.
template <EpcScheme scheme>
ROSETAG_INLINE ValueEnds numericUriBodyToValue(NumericReader reader, std::uint32_t filter) {
    NumericIdentity identity;
    identity.filter = filter;
    return numericReadUriFields<scheme>(reader, identity, NumericFieldSequence<scheme>()) &&
                   numericReadAll(reader)
               ? numericToValue<scheme>(identity)
               : NO_VALUE;
}

// Reads a tag URI, also one that turns out to be of another scheme.
template <EpcScheme scheme>
ValueEnds numericTagUriToValue(std::string_view text) {
    constexpr std::size_t headLength = sizeof(uriHead<scheme, UriForm::TAG>);
    constexpr std::size_t filterLength = uriHasFilter<scheme> ? 2 : 0;
    constexpr auto bodyLength = static_cast<std::size_t>(uriBodyLeastLength(schemeRows[scheme]));
    if (text.size() < headLength + filterLength + bodyLength ||
        std::memcmp(text.data(), uriHead<scheme, UriForm::TAG>.characters, headLength) != 0) {
        return NO_VALUE;
    }
    const char* const body = text.data() + headLength + filterLength;
    std::uint32_t filter = 0;
    if constexpr (uriHasFilter<scheme>) {
        filter = static_cast<std::uint32_t>(body[-2] - '0'); // a non-digit is above every limit
        if (body[-1] != '.') {
            return NO_VALUE;
        }
    }
    return numericUriBodyToValue<scheme>({body, text.data() + text.size()}, filter);
}

// The slot that reads the body of either URI. A body at the beginning of its text has no word
// before it.
template <EpcScheme scheme>
EpcStatus numericWriteBody(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits) {
    const char* const end = textCursorEnd(cursor);
    if (cursor.current - cursor.begin < WORD_DIGITS ||
        end - cursor.current < uriBodyLeastLength(schemeRows[scheme])) {
        return schemeWriteBody<scheme>(cursor, filter, bits);
    }
    const ValueEnds ends = numericUriBodyToValue<scheme>({cursor.current, end}, filter);
    if (!shortValueToBits({ends, numericBytes<scheme>}, bits)) {
        return schemeWriteBody<scheme>(cursor, filter, bits);
    }
    cursor.current = end;
    return EPC_OK;
}

} // namespace rosetag

#endif
