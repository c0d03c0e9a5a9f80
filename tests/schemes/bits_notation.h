/*
 * Bits as a row of a table writes them, field by field: a number with its width, or characters with
 * the width of each.
 *
 *     bitsOf("0x30/8 3/3")   "00110000011"
 *     bitsOf("`AB`/6")       "000001000010"
 */
#ifndef ROSETAG_TESTS_SCHEMES_BITS_NOTATION_H
#define ROSETAG_TESTS_SCHEMES_BITS_NOTATION_H

#include "support/bits.h"

#include <sstream>
#include <string>

inline std::string bitsOf(const std::string& notation) {
    std::istringstream fields(notation);
    std::string bits;
    for (std::string field; fields >> field;) {
        const std::size_t slash = field.rfind('/');
        const std::size_t width = std::stoul(field.substr(slash + 1));
        if (field[0] != '`') {
            bits += bitsFromNumber(std::stoull(field.substr(0, slash), nullptr, 0), width);
            continue;
        }
        for (const char character : field.substr(1, slash - 2)) {
            bits += bitsFromNumber(static_cast<unsigned char>(character), width);
        }
    }
    return bits;
}

#endif
