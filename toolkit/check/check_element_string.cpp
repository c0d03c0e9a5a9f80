#include "check/check_text.h"

#include "check/check_value.h"
#include "core/char_class.h"
#include "gs1/ai_catalogue.h"

#include <algorithm>

namespace rosetag {

const KnownAi* checkAiCode(CheckRun& run, std::size_t position, std::size_t length) {
    const std::string_view code = run.value.substr(position, length);
    const bool isDigits = std::all_of(code.begin(), code.end(), charIsDigit);
    if (!isDigits || code.size() < 2 || code.size() >= AI_CODE_SIZE) {
        report(run, CheckRule::AI_CODE, {}, {position, length});
        return nullptr;
    }
    const KnownAi& known = knownAiOf(code);
    if (known.rule == nullptr) {
        const std::size_t digits = knownAiCodeLength(code[0], code[1]);
        report(run, CheckRule::UNKNOWN_AI, code, {position, length},
               digits == 0 || digits == length
                   ? ""
                   : "; those that begin with " + std::string(code.substr(0, 2)) + " have " +
                         std::to_string(digits));
    }
    return known.rule == nullptr ? nullptr : &known;
}

// Source: GS1 General Specifications, section 4.14 (human readable interpretation).
void checkElementString(CheckRun& run, std::size_t position, std::size_t end) {
    const std::string_view text = run.value.substr(0, end);
    while (position < end) {
        const std::size_t code = position + 1;
        const std::size_t close = text.find_first_of("()", code);
        if (text[position] != '(') {
            report(run, CheckRule::BRACKETS, {}, {position, 1}, "begin with one");
            position = std::min(text.find('(', position), end);
            continue;
        }
        if (close == text.npos || text[close] == '(') {
            const std::size_t next = std::min(close, end);
            report(run, CheckRule::BRACKETS, {}, {position, next - position},
                   "close this one; a text whose values hold \"(\" is written as a barcode string "
                   "or a link");
            position = next;
            continue;
        }
        const std::size_t next = std::min(text.find('(', close), end);
        if (const KnownAi* const known = checkAiCode(run, code, close - code); known != nullptr) {
            const std::string_view value = text.substr(close + 1, next - close - 1);
            checkAi(run, {text.substr(code, close - code), known->rule, value, code, close - code},
                    *known, {value, close + 1});
        }
        position = next;
    }
}

} // namespace rosetag
