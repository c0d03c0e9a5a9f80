#include "template.h"

#include "fields.h"
#include "output.h"

#include <rosetag/toolkit.hpp>

#include <algorithm>

namespace rosetag {

namespace {

bool isSeparatorName(std::string_view name) {
    return name == "GS" || name == "FNC1";
}

bool isUriLike(const Template& text) {
    const std::string& start = text.pieces.front().text;
    return !text.pieces.front().isColumn && (start.starts_with("urn:") || start.starts_with('/') ||
                                             start.find("://") != std::string::npos);
}

bool isElementString(const Template& text) {
    return !text.pieces.front().isColumn && text.pieces.front().text.starts_with('(');
}

// "(01)" becomes "01", and each further "(21)" a separator and "21".
void appendAsBarcode(std::string& text, std::string_view literal) {
    for (const char character : literal) {
        if (character == '(' && !text.empty()) {
            text += groupSeparator;
        } else if (character != '(' && character != ')') {
            text += character;
        }
    }
}

void add(Template& result, std::string_view text) {
    if (!text.empty()) {
        result.pieces.push_back({std::string(text), false, 0});
    }
}

} // namespace

Template templateRead(std::string_view text, std::vector<std::string>& columns) {
    Template result;
    std::size_t literal = 0;
    for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at)) {
        const std::size_t end = text.find('}', at);
        if (end == std::string_view::npos || end == at + 1) {
            throw UsageError("\"" + std::string(text) +
                             "\": a column is written as its name in braces: {serial}");
        }
        const std::string name(text.substr(at + 1, end - at - 1));
        if (!isSeparatorName(name)) {
            add(result, text.substr(literal, at - literal));
            const auto found = std::ranges::find(columns, name);
            const auto column = static_cast<std::size_t>(found - columns.begin());
            if (found == columns.end()) {
                columns.push_back(name);
            }
            result.pieces.push_back({name, true, column});
            literal = end + 1;
        }
        at = end;
    }
    add(result, text.substr(literal));
    return result;
}

bool templateHasColumns(const Template& text) {
    return std::ranges::any_of(text.pieces, &TemplatePiece::isColumn);
}

std::string templateFill(const Template& text, std::span<const std::string> cells) {
    std::string filled;
    for (const TemplatePiece& piece : text.pieces) {
        filled += piece.isColumn ? cells[piece.column] : piece.text;
    }
    return filled;
}

std::string templateFillValue(const Template& text, std::span<const std::string> cells) {
    const bool isEscaped = isUriLike(text);
    const bool hasBracket = std::ranges::any_of(text.pieces, [&](const TemplatePiece& piece) {
        return piece.isColumn && cells[piece.column].find('(') != std::string::npos;
    });
    if (!isEscaped && !(hasBracket && isElementString(text))) {
        return templateFill(text, cells);
    }
    std::string filled;
    for (const TemplatePiece& piece : text.pieces) {
        if (isEscaped && piece.isColumn) {
            appendEscaped(filled, cells[piece.column]);
        } else if (piece.isColumn || isEscaped) {
            filled += piece.isColumn ? cells[piece.column] : piece.text;
        } else {
            appendAsBarcode(filled, piece.text);
        }
    }
    return isEscaped ? filled : "]C1" + filled;
}

} // namespace rosetag
