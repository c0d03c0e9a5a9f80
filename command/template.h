/*
 * A text with columns of a table in it: "(01){gtin}(21){serial}".
 */
#ifndef ROSETAG_COMMAND_TEMPLATE_H
#define ROSETAG_COMMAND_TEMPLATE_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

struct TemplatePiece {
    std::string text;
    bool isColumn = false;
    std::size_t column = 0; // its place among the columns that were asked for
};

struct Template {
    std::vector<TemplatePiece> pieces;
};

// Reads a template, and adds the columns that it names to those that are asked for. {GS} and {FNC1}
// are the separator of barcode strings and no columns. Throws UsageError.
Template templateRead(std::string_view text, std::vector<std::string>& columns);

bool templateHasColumns(const Template& text);

// Puts the cells of a row in, as they are.
std::string templateFill(const Template& text, std::span<const std::string> cells);

// Puts the cells in so that they are read back as they are: with the escapes of a link or URI, and
// as a barcode string where a cell has a bracket that an element string cannot hold.
std::string templateFillValue(const Template& text, std::span<const std::string> cells);

} // namespace rosetag

#endif
