#include "bridge/ais_to_identity.h"

#include "core/char_class.h"
#include "gs1/ai_list.h"
#include "gs1/ai_prefix.h"
#include "schemes/epc_uri.h"

#include <algorithm>

namespace rosetag {

namespace {

// The walk tells the keys' own AIs as long as their definitions do.
constexpr bool prefixFitsKey(const Gs1KeyDefinition& key) {
    const AiPrefix prefix = aiPrefixOf(key.primaryAi[0], key.primaryAi[1]);
    return prefix.codeDigits == key.primaryAi.size() &&
           (prefix.valueLength == 0 || prefix.valueLength == key.keyValueLength);
}

constexpr bool prefixFitsSecondaryAi(const Gs1KeyDefinition& key) {
    const std::string_view code = key.secondaryAi;
    return code.empty() || aiPrefixOf(code[0], code[1]).codeDigits == code.size();
}

static_assert(holdsForKeys(prefixFitsKey));
static_assert(holdsForKeys(prefixFitsSecondaryAi));

constexpr std::int32_t MIN_GCP_LENGTH = 6;
constexpr std::int32_t MAX_GCP_LENGTH = 12;

std::uint32_t textLength(std::string_view text) {
    return static_cast<std::uint32_t>(text.size());
}

std::string_view textBetween(std::string_view text, std::uint32_t start, std::uint32_t end) {
    return start < end ? std::string_view(text.data() + start, end - start) : std::string_view();
}

std::uint32_t valueStart(std::uint32_t codeEnd, AiBrackets brackets) {
    return codeEnd + (brackets.close != 0 ? 1 : 0);
}

EpcStatus scanFixedValue(std::string_view text, std::uint32_t position, AiPrefix prefix,
                         AiBrackets brackets, AiScan& scan) {
    const std::uint32_t codeDigits = prefix.codeDigits;
    const std::uint32_t valueLength = prefix.valueLength;
    if (textLength(text) - position < codeDigits + valueLength + (brackets.open != 0 ? 1U : 0U)) {
        return EPC_ERR_TRUNCATED;
    }
    const std::uint32_t codeEnd = position + codeDigits;
    if (brackets.close != 0 && text[codeEnd] != brackets.close) {
        return EPC_ERR_BAD_FORMAT;
    }
    const std::uint32_t valueEnd = valueStart(codeEnd, brackets) + valueLength;
    scan = {codeEnd, valueEnd, valueEnd};
    return EPC_OK;
}

// In brackets the character behind the code is stepped over whatever it is. In the bare form the
// search begins with the code itself.
void scanVariableValue(std::string_view text, std::uint32_t position, AiPrefix prefix,
                       AiBrackets brackets, AiScan& scan) {
    const std::uint32_t length = textLength(text);
    const std::uint32_t codeEnd = position + std::uint32_t{prefix.codeDigits};
    const bool isBracketed = brackets.open != 0;
    const std::size_t stop = text.find(isBracketed ? brackets.open : GROUP_SEPARATOR,
                                       isBracketed ? codeEnd + 1 : position);
    const bool isFound = stop != std::string_view::npos;
    const std::uint32_t valueEnd = isFound ? static_cast<std::uint32_t>(stop) : length;
    const std::uint32_t next = isFound && !isBracketed ? valueEnd + 1 : valueEnd;
    scan = {std::min(codeEnd, length), valueEnd, next};
}

// One step of a walk: scans the element at position, tells its code and moves on to the next.
EpcStatus scanNext(std::string_view text, AiBrackets brackets, std::uint32_t& position,
                   std::string_view& code, AiScan& scan) {
    if (brackets.open != 0) {
        if (text[position] != brackets.open) {
            return EPC_ERR_BAD_FORMAT;
        }
        ++position;
    }
    EPC_TRY(aiScanElement(text, position, brackets, scan));
    code = textBetween(text, position, scan.codeEnd);
    position = scan.next;
    return EPC_OK;
}

// Appends the characters from start up to end, which lies behind the text if a value is too short.
EpcStatus putWithinText(TextBuffer& dst, std::string_view text, std::uint32_t start,
                        std::uint32_t end) {
    return end > textLength(text) ? EPC_ERR_TRUNCATED
                                  : textBufferPutEscapedRange(dst, text.data(), start, end);
}

// The key's value from start up to keyEnd: company prefix, ".", reference. A check digit is skipped
// and never looked at.
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

EpcStatus putSecondaryValue(std::string_view text, std::string_view code, AiBrackets brackets,
                            TextBuffer& dst) {
    AiScan scan;
    EPC_TRY(aiScanFind(text, code, brackets, scan));
    return textBufferPutEscapedRange(dst, text.data(), valueStart(scan.codeEnd, brackets),
                                     scan.valueEnd);
}

EpcStatus checkScheme(const TagUriArguments& arguments, const Gs1KeyDefinition& key) {
    if (!tagSchemeIsKnown(arguments.scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeInfo& info = tagSchemeTable[arguments.scheme].info;
    if (info.familyWord != key.familyName) {
        return EPC_ERR_SCHEME_MISMATCH;
    }
    return arguments.filter >= 0 && arguments.filter < info.filterLimit ? EPC_OK
                                                                        : EPC_ERR_FILTER_LIMIT;
}

} // namespace

EpcStatus aiScanElement(std::string_view text, std::uint32_t position, AiBrackets brackets,
                        AiScan& scan) {
    const bool hasPrefix = textLength(text) >= position + 2;
    if (!hasPrefix || !charIsDigit(text[position]) || !charIsDigit(text[position + 1])) {
        return EPC_ERR_BAD_FORMAT;
    }
    const AiPrefix prefix = aiPrefixOf(text[position], text[position + 1]);
    if (prefix.codeDigits == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    if (prefix.valueLength != 0) {
        return scanFixedValue(text, position, prefix, brackets, scan);
    }
    scanVariableValue(text, position, prefix, brackets, scan);
    return EPC_OK;
}

EpcStatus aiScanForKey(std::string_view text, AiBrackets brackets, AiKeyScan& found) {
    found.key = nullptr;
    for (std::uint32_t position = 0; position < textLength(text);) {
        std::string_view code;
        AiScan scan;
        EPC_TRY(scanNext(text, brackets, position, code, scan));
        const Gs1KeyDefinition* const key = gs1KeyFindByAi(code);
        if (key == nullptr) {
            continue;
        }
        if (found.key != nullptr) {
            return EPC_ERR_SECOND_KEY;
        }
        found = {key, scan.codeEnd, scan.valueEnd};
    }
    return found.key != nullptr ? EPC_OK : EPC_ERR_NO_KEY_AI;
}

EpcStatus aiScanFind(std::string_view text, std::string_view code, AiBrackets brackets,
                     AiScan& found) {
    for (std::uint32_t position = 0; position < textLength(text);) {
        std::string_view scanned;
        EPC_TRY(scanNext(text, brackets, position, scanned, found));
        if (scanned == code) {
            return EPC_OK;
        }
    }
    return EPC_ERR_NO_SECONDARY_AI;
}

EpcStatus aiTextToUriBody(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                          const AiKeyScan& found, TextBuffer& dst) {
    const Gs1KeyDefinition& key = *found.key;
    const auto keyValueLength = static_cast<std::uint32_t>(key.keyValueLength);
    const std::uint32_t start = valueStart(found.codeEnd, brackets);
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
    // Behind a key of fixed length, but on either side of one that varies.
    const std::uint32_t from = keyValueLength > 0 ? tail : 0;
    return putSecondaryValue(textBetween(text, from, textLength(text)), key.secondaryAi, brackets,
                             dst);
}

EpcStatus aiTextFindKey(std::string_view text, AiBrackets brackets, std::int32_t gcpLength,
                        AiKeyScan& found) {
    if (gcpLength < MIN_GCP_LENGTH || gcpLength > MAX_GCP_LENGTH) {
        return EPC_ERR_FILTER_FIELD;
    }
    return aiScanForKey(text, brackets, found);
}

EpcStatus aiTextFindKeyOfScheme(std::string_view text, AiBrackets brackets,
                                const TagUriArguments& arguments, AiKeyScan& found) {
    EPC_TRY(aiTextFindKey(text, brackets, arguments.gcpLength, found));
    return checkScheme(arguments, *found.key);
}

std::int32_t tagUriHeadLength(const TagUriArguments& arguments) {
    const std::string_view name = tagSchemeTable[arguments.scheme].info.name;
    const std::int32_t filterDigits =
        decimalDigitCount(static_cast<std::uint64_t>(arguments.filter));
    return static_cast<std::int32_t>(TAG_URI_PREFIX.size() + name.size()) + 1 + filterDigits + 1;
}

} // namespace rosetag
