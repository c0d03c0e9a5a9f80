#include "gs1/ai_list.h"

#include "core/hex_digits.h"
#include "gs1/ai_table.h"
#include "gs1/check_digit.h"
#include "gs1/percent_decoding.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

// Room for the characters of a component that ends in a check digit, and a NUL.
constexpr std::int32_t CHECKED_TEXT_SIZE = []() {
    std::int32_t most = 0;
    for (const AiTableRow& row : aiTable) {
        for (const AiComponent& component : row.components) {
            const bool isChecked = component.checkKind == AI_CHECK_DIGIT;
            most = std::max<std::int32_t>(most, isChecked ? component.digitCount : 0);
        }
    }
    return most + 1;
}();

EpcStatus readDelimiter(TextCursor& cursor, char delimiter) {
    return delimiter == 0 ? EPC_OK : textCursorExpect(cursor, delimiter);
}

// Skips one character; a percent escape is one.
EpcStatus skipEscapedChar(TextCursor& cursor) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    if (*cursor.current++ != '%') {
        return EPC_OK;
    }
    for (int digit = 0; digit < 2; ++digit) {
        if (textCursorAtEnd(cursor)) {
            return EPC_ERR_TRUNCATED;
        }
        if (hexDigitValue(*cursor.current++) < 0) {
            return EPC_ERR_BAD_CHARACTER;
        }
    }
    return EPC_OK;
}

EpcStatus skipFixed(TextCursor& cursor, std::ptrdiff_t digitCount) {
    if (digitCount > textCursorLeft(cursor)) {
        return EPC_ERR_NO_ROOM;
    }
    cursor.current += digitCount;
    return EPC_OK;
}

EpcStatus skipFixedEscaped(TextCursor& cursor, std::ptrdiff_t digitCount) {
    const std::string_view plain = {cursor.current, static_cast<std::size_t>(digitCount)};
    if (digitCount <= textCursorLeft(cursor) && plain.find('%') == std::string_view::npos) {
        cursor.current += digitCount;
        return EPC_OK;
    }
    for (std::ptrdiff_t i = 0; i < digitCount; ++i) {
        EPC_TRY(skipEscapedChar(cursor));
    }
    return EPC_OK;
}

EpcStatus skipVariable(TextCursor& cursor, std::uint32_t maxLength, char stopDelimiter) {
    const std::uint32_t length = textCursorCountTo(cursor, stopDelimiter);
    if (maxLength != 0 && length > maxLength) {
        return EPC_ERR_BAD_FORMAT;
    }
    cursor.current += length;
    return EPC_OK;
}

EpcStatus verifyCheckDigit(std::string_view component, bool percentDecoding) {
    char decoded[CHECKED_TEXT_SIZE];
    if (percentDecoding) {
        EPC_TRY(percentDecode(component, sizeof decoded, decoded, component));
    }
    const std::string_view digits = {component.data(),
                                     std::min(component.find('\0'), component.size())};
    if (digits.empty()) {
        return EPC_ERR_CHECK_DIGIT;
    }
    const char expected = gs1CheckDigit({digits.data(), digits.size() - 1});
    return digits.back() == expected ? EPC_OK : EPC_ERR_CHECK_DIGIT;
}

EpcStatus readComponent(TextCursor& cursor, const AiComponent& component, const AiSyntax& syntax) {
    const char* const start = cursor.current;
    if (component.digitCount == 0) {
        EPC_TRY(skipVariable(cursor, component.maxLength, syntax.stopDelimiter));
    } else if (syntax.percentDecoding) {
        EPC_TRY(skipFixedEscaped(cursor, component.digitCount));
    } else {
        EPC_TRY(skipFixed(cursor, component.digitCount));
    }
    if (component.checkKind != AI_CHECK_DIGIT) {
        return EPC_OK;
    }
    return verifyCheckDigit({start, cursor.current}, syntax.percentDecoding);
}

// A delimiter that also starts the next element is left for it.
void skipStopDelimiter(TextCursor& cursor, const AiSyntax& syntax) {
    if (syntax.stopDelimiter != syntax.startDelimiter && !textCursorAtEnd(cursor) &&
        *cursor.current == syntax.stopDelimiter) {
        ++cursor.current;
    }
}

EpcStatus readElement(AiElement& element, TextCursor& cursor, const AiSyntax& syntax,
                      std::uint32_t offsetBase) {
    EPC_TRY(readDelimiter(cursor, syntax.startDelimiter));
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiReadCode(cursor, ai));
    EPC_TRY(readDelimiter(cursor, syntax.codeDelimiter));
    if (ai->componentCount == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    const char* const value = cursor.current;
    for (std::size_t i = 0; i < ai->componentCount; ++i) {
        EPC_TRY(readComponent(cursor, ai->components[i], syntax));
    }
    element.ai = ai;
    element.valueOffset = offsetBase + static_cast<std::uint32_t>(value - cursor.begin);
    element.valueLength = static_cast<std::uint32_t>(cursor.current - value);
    element.pass = KEY_PASS;
    element.isConsumed = false;
    skipStopDelimiter(cursor, syntax);
    return EPC_OK;
}

void copyText(std::string_view text, char* out) {
    *std::copy(text.begin(), text.end(), out) = '\0';
}

} // namespace

EpcStatus aiListAdd(AiList& list, const AiDefinition& ai, std::uint32_t valueOffset,
                    std::uint32_t valueLength, AiPass pass) {
    if (list.count == MAX_AI_ELEMENTS) {
        return EPC_ERR_TOO_MANY_AIS;
    }
    list.elements[list.count++] = {&ai, valueOffset, valueLength, pass, false};
    return EPC_OK;
}

EpcStatus aiTextParse(AiList& list, TextCursor& cursor, const AiSyntax& syntax,
                      std::uint32_t offsetBase) {
    while (!textCursorAtEnd(cursor)) {
        if (list.count == MAX_AI_ELEMENTS) {
            return EPC_ERR_TOO_MANY_AIS;
        }
        EPC_TRY(readElement(list.elements[list.count], cursor, syntax, offsetBase));
        ++list.count;
    }
    return EPC_OK;
}

EpcStatus aiListCopyOut(const AiList& list, const char* baseText, const AiRows& rows) {
    for (std::int32_t i = 0; i < list.count; ++i) {
        if (i == rows.maxAIs) {
            return EPC_ERR_TOO_MANY_AIS;
        }
        const AiElement& element = list.elements[i];
        const std::string_view value = aiElementValue(element, baseText);
        if (value.size() >= rows.valueSize) {
            return EPC_ERR_NO_ROOM;
        }
        const auto row = static_cast<std::size_t>(i);
        copyText(aiCodeOf(*element.ai), rows.aiCodes + row * AI_CODE_SIZE);
        copyText(value, rows.aiValues + row * rows.valueSize);
    }
    *rows.aiCount = list.count;
    return EPC_OK;
}

} // namespace rosetag
