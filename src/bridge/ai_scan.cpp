#include "bridge/ai_scan.h"

#include "core/char_class.h"
#include "gs1/ai_list.h"
#include "gs1/ai_prefix.h"

#include <algorithm>

namespace rosetag {

namespace {

// The walk finds the same lengths as the definitions of the keys.
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

std::uint32_t textLength(std::string_view text) {
    return static_cast<std::uint32_t>(text.size());
}

EpcStatus scanFixedValue(std::string_view text, AiBrackets brackets, std::uint32_t position,
                         AiPrefix prefix, AiScan& scan) {
    const std::uint32_t codeEnd = position + prefix.codeDigits;
    const std::uint32_t valueEnd = aiValueStart(codeEnd, brackets) + prefix.valueLength;
    if (valueEnd > textLength(text)) {
        return EPC_ERR_TRUNCATED;
    }
    if (brackets.close != 0 && text[codeEnd] != brackets.close) {
        return EPC_ERR_BAD_FORMAT;
    }
    scan = {{text.data() + position, prefix.codeDigits}, codeEnd, valueEnd, valueEnd};
    return EPC_OK;
}

// In brackets the character after the code is stepped over whatever it is. In the bare form the
// search for the separator begins with the code itself.
void scanVariableValue(std::string_view text, AiBrackets brackets, std::uint32_t position,
                       AiPrefix prefix, AiScan& scan) {
    const std::uint32_t codeEnd = std::min(position + prefix.codeDigits, textLength(text));
    const bool isBare = brackets.open == 0;
    const std::size_t stop =
        isBare ? text.find(GROUP_SEPARATOR, position) : text.find(brackets.open, codeEnd + 1);
    const bool isFound = stop != std::string_view::npos;
    const std::uint32_t valueEnd = isFound ? static_cast<std::uint32_t>(stop) : textLength(text);
    const std::uint32_t next = isFound && isBare ? valueEnd + 1 : valueEnd;
    scan = {{text.data() + position, codeEnd - position}, codeEnd, valueEnd, next};
}

} // namespace

EpcStatus aiScanElement(std::string_view text, AiBrackets brackets, std::uint32_t position,
                        AiScan& scan) {
    if (brackets.open != 0 && text[position++] != brackets.open) {
        return EPC_ERR_BAD_FORMAT;
    }
    if (textLength(text) - position < 2 || !charIsDigit(text[position]) ||
        !charIsDigit(text[position + 1])) {
        return EPC_ERR_BAD_FORMAT;
    }
    const AiPrefix prefix = aiPrefixOf(text[position], text[position + 1]);
    if (prefix.codeDigits == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    if (prefix.valueLength != 0) {
        return scanFixedValue(text, brackets, position, prefix, scan);
    }
    scanVariableValue(text, brackets, position, prefix, scan);
    return EPC_OK;
}

EpcStatus aiScanForKey(std::string_view text, AiBrackets brackets, AiKeyScan& found) {
    found.key = nullptr;
    AiScan scan;
    for (std::uint32_t position = 0; position < textLength(text); position = scan.next) {
        EPC_TRY(aiScanElement(text, brackets, position, scan));
        const Gs1KeyDefinition* const key = gs1KeyFindByAi(scan.code);
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

EpcStatus aiScanFind(std::string_view text, AiBrackets brackets, std::string_view code,
                     AiScan& found) {
    for (std::uint32_t position = 0; position < textLength(text); position = found.next) {
        EPC_TRY(aiScanElement(text, brackets, position, found));
        if (found.code == code) {
            return EPC_OK;
        }
    }
    return EPC_ERR_NO_SECONDARY_AI;
}

} // namespace rosetag
