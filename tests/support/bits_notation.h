/*
 * Bits as a row of a table writes them, field by field: binary digits, a number with its width, or
 * characters with the width of each.
 *
 *     bitsOf("011 0x30/8 3/3")   "01100110000011"
 *     bitsOf("`AB`/6")           "000001000010"
 *     bitsOf("`095`/4")          "000010010101"
 */
#ifndef ROSETAG_TESTS_SUPPORT_BITS_NOTATION_H
#define ROSETAG_TESTS_SUPPORT_BITS_NOTATION_H

#include "support/bits.h"

#include <sstream>
#include <string>
#include <vector>

inline std::vector<std::string> fieldsOf(const std::string& notation) {
    std::istringstream words(notation);
    std::vector<std::string> fields;
    for (std::string word; words >> word;) {
        const std::size_t slash = word.rfind('/');
        if (slash == std::string::npos) {
            fields.push_back(word);
            continue;
        }
        const std::size_t width = std::stoul(word.substr(slash + 1));
        if (word[0] != '`') {
            const std::uint64_t number = std::stoull(word.substr(0, slash), nullptr, 0);
            fields.push_back(bitsFromNumber(number, width));
            continue;
        }
        for (const char character : word.substr(1, slash - 2)) {
            fields.push_back(bitsFromNumber(static_cast<unsigned char>(character), width));
        }
    }
    return fields;
}

inline std::string bitsOf(const std::string& notation) {
    std::string bits;
    for (const std::string& field : fieldsOf(notation)) {
        bits += field;
    }
    return bits;
}

#endif
