#include "gs1/check_digit.h"

#include <cstdint>

namespace rosetag {

char gs1CheckDigit(std::string_view digits) {
    // The digit next to the check digit always has weight 3.
    std::int32_t weight = digits.size() % 2 != 0 ? 3 : 1;
    std::int32_t sum = 0;
    for (const char digit : digits) {
        if (digit == '\0') {
            break;
        }
        sum += (static_cast<unsigned char>(digit) - '0') * weight;
        weight = 4 - weight;
    }
    // Characters below '0' make the sum negative. Its remainder is then above -10, and the result a
    // digit all the same.
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

} // namespace rosetag
