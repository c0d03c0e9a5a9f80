/*
 * Rows of tests about values: what is asked of the toolkit, in a word and its options, and the
 * value.
 */
#ifndef ROSETAG_TESTS_TOOLKIT_VALUE_ROWS_H
#define ROSETAG_TESTS_TOOLKIT_VALUE_ROWS_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

// A text of a table, in which "\xHH" is the byte.
std::string unescaped(std::string text);

struct Answer {
    rosetag::Failure failure;
    rosetag::Rows<rosetag::Note> notes;
    std::string result; // hex of encode, otherwise the element string, pure identity or tag URI
};

// Asks "decode", "encode", "explain", "tid", "ai-encode" or "ai-decode" with options: a scheme, an
// AI, "barcode", "strict", "checked", "epc", "pc", "crc-pc", "gcp=7", "filter=3", "separator=^".
Answer ask(std::string_view text, const std::string& value);

#endif
