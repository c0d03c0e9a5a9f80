#include "before/recognise/prepared_value.h"

#include "before/recognise/barcode_text.h"
#include "before/recognise/link_preparation.h"

namespace rosetag {
inline namespace before {

PreparedValue prepareValue(std::string_view value, const ReadOptions& options) {
    const ValueForm form = valueFormOf(value, options.asBarcode);
    switch (form) {
    case ValueForm::HEX:
        return {form, hexDigitsOf(value), {}};
    case ValueForm::BARCODE:
        return {form, groupSeparatorsRaw(value), {}};
    case ValueForm::LINK:
        if (!options.strict) {
            PreparedLink link = linkPrepare(value);
            return {form, std::move(link.text), std::move(link.notes)};
        }
        return {form, std::string(value), {}};
    default:
        return {form, std::string(value), {}};
    }
}

Failure failureOfPreparing(const PreparedValue& value) {
    if (const std::size_t nul = value.text.find('\0'); nul != std::string::npos) {
        return {EPC_ERR_BAD_CHARACTER,
                "character " + std::to_string(nul + 1) + " is a NUL, which no value holds"};
    }
    if (value.form == ValueForm::UNKNOWN) {
        return {EPC_ERR_BAD_FORMAT, valueFormUnknown(value.text)};
    }
    return value.form == ValueForm::HEX ? failureOfHex(value.text) : Failure();
}

} // namespace before
} // namespace rosetag
