#include "recognise/plain_text.h"

#include "core/char_class.h"
#include "recognise/barcode_text.h"
#include "recognise/look.h"

namespace rosetag {

namespace {

constexpr std::size_t LONGEST_PLAIN = 512;

Form formByBeginning(std::string_view value, const ReadOptions& options) {
    switch (value.front()) {
    case '(':
        return Form::ELEMENT_STRING;
    case '/':
        return Form::DIGITAL_LINK;
    case 'u':
        return value.starts_with(TAG_URI_PREFIX)             ? Form::TAG_URI
               : value.starts_with(PURE_IDENTITY_URI_PREFIX) ? Form::PURE_IDENTITY
                                                             : Form::UNKNOWN;
    default:
        return options.asBarcode && charIsDigit(value.front()) && !mayHoldSeparator(value, options)
                   ? Form::BARCODE_STRING
                   : Form::UNKNOWN;
    }
}

} // namespace

bool plainTextPrepare(Reading& reading) {
    const std::string_view value = reading.value;
    if (value.empty() || value.size() > LONGEST_PLAIN || reading.options.isHex ||
        isBlank(value.back()) || value.find('\0') != std::string_view::npos) {
        return false;
    }
    reading.form = formByBeginning(value, reading.options);
    readingClear(reading);
    reading.workspace.text = value;
    return reading.form != Form::UNKNOWN;
}

} // namespace rosetag
