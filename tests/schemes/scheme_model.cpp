#include "schemes/scheme_model.h"

#include "support/bits.h"

namespace {

// The lowest and the highest character are at the ends.
constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view CHARACTER_SET_82 =
    "!\"%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view CHARACTER_SET_39 = "#-/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view WITHOUT_HASH = "-/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view CODE_CHARACTERS = "0123456789ABCDEFGHJKLMNPQRSTUVWXYZ";

// One field: its text and its bits.
struct Value {
    std::string text;
    std::string bits;
};

std::size_t bitsForDigits(std::size_t digits) {
    std::uint64_t power = 1;
    for (std::size_t i = 0; i < digits; ++i) {
        power *= 10;
    }
    std::size_t bits = 0;
    while ((std::uint64_t{1} << bits) < power) {
        ++bits;
    }
    return bits;
}

Value digitsValue(const std::string& digits, std::size_t bits) {
    return {digits, bitsFromNumber(digits.empty() ? 0 : std::stoull(digits), bits)};
}

Value numberValue(std::uint64_t number, std::size_t bits) {
    return {std::to_string(number), bitsFromNumber(number, bits)};
}

// The low bits of every character, and the text as it is in a URI.
Value charsValue(const std::string& characters, std::size_t charBits) {
    Value value;
    for (const char character : characters) {
        const auto code = static_cast<unsigned char>(character);
        const bool isEscaped =
            std::string_view(" \"#%&()/<>?").find(character) != std::string::npos;
        value.text += isEscaped ? "%" + hexFromBytes(&code, 1) : std::string(1, character);
        value.bits += bitsFromNumber(code, charBits);
    }
    return value;
}

Value filledUp(Value value, std::size_t bits) {
    value.bits.resize(bits, '0');
    return value;
}

Value referenceValue(const FieldModel& model, std::size_t prefixDigits, std::size_t prefixBits,
                     Picker& picker) {
    const std::size_t count = model.count - prefixDigits;
    const std::size_t bits = model.bits - prefixBits;
    switch (model.field) {
    case Field::KEY:
        return digitsValue(picker.text(count, DIGITS), bits);
    case Field::OPEN_KEY:
        return numberValue(picker.number(bits), bits);
    case Field::CHARS7_KEY:
        return filledUp(charsValue(picker.text(picker.length(1, count), CHARACTER_SET_82), 7),
                        bits);
    default: {
        const Value value = charsValue(picker.text(picker.length(1, count), CHARACTER_SET_39), 6);
        return {value.text, value.bits + "000000"};
    }
    }
}

Value keyValue(const FieldModel& model, std::size_t partition, Picker& picker) {
    const std::size_t prefixDigits = 12 - partition;
    const std::size_t prefixBits = bitsForDigits(prefixDigits);
    const Value prefix = digitsValue(picker.text(prefixDigits, DIGITS), prefixBits);
    const Value reference = referenceValue(model, prefixDigits, prefixBits, picker);
    return {prefix.text + "." + reference.text,
            bitsFromNumber(partition, 3) + prefix.bits + reference.bits};
}

Value codeValue(std::size_t charBits, Picker& picker) {
    const std::string code = picker.text(picker.length(5, 6), CODE_CHARACTERS);
    const Value value = charsValue(code, charBits);
    return {code, code.size() == 5 ? bitsFromNumber(' ', charBits) + value.bits : value.bits};
}

Value serial6Value(std::size_t maxChars, Picker& picker) {
    const std::string first = picker.text(1, CHARACTER_SET_39);
    const std::string rest = picker.text(picker.length(0, maxChars - 1), WITHOUT_HASH);
    const Value value = charsValue(first + rest, 6);
    return {value.text, value.bits + "000000"};
}

Value fieldValue(const FieldModel& model, std::size_t partition, Picker& picker) {
    switch (model.field) {
    case Field::TWO_DIGITS:
        return digitsValue(picker.text(2, DIGITS), model.bits);
    case Field::NUMBER:
        return numberValue(picker.number(model.bits), model.bits);
    case Field::LEADING_ONE: {
        const std::string digits = picker.text(picker.length(1, model.count), DIGITS);
        return {digits, bitsFromNumber(std::stoull("1" + digits), model.bits)};
    }
    case Field::CHARS7: {
        const std::string text = picker.text(picker.length(1, model.count), CHARACTER_SET_82);
        return filledUp(charsValue(text, 7), 7 * model.count);
    }
    case Field::CODE:
        return codeValue(model.bits, picker);
    case Field::CHARS6: {
        const std::string text = picker.text(picker.length(0, model.count), WITHOUT_HASH);
        const Value value = charsValue(text, 6);
        return {value.text, value.bits + "000000"};
    }
    case Field::SERIAL6:
        return serial6Value(model.count, picker);
    default:
        return keyValue(model, partition, picker);
    }
}

} // namespace

// Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables).
// clang-format off
const std::vector<SchemeModel> schemeModels = {
    {EPC_SCHEME_SGTIN_96,  "sgtin-96",  "sgtin", 0x30, 3,  7, {{Field::KEY, 13, 44}, {Field::NUMBER, 0, 38}}},
    {EPC_SCHEME_SGTIN_198, "sgtin-198", "sgtin", 0x36, 3,  7, {{Field::KEY, 13, 44}, {Field::CHARS7, 20, 0}}},
    {EPC_SCHEME_SSCC_96,   "sscc-96",   "sscc",  0x31, 3,  7, {{Field::KEY, 17, 58}, {Field::ZEROS, 0, 24}}},
    {EPC_SCHEME_SGLN_96,   "sgln-96",   "sgln",  0x32, 3,  7, {{Field::KEY, 12, 41}, {Field::NUMBER, 0, 41}}},
    {EPC_SCHEME_SGLN_195,  "sgln-195",  "sgln",  0x39, 3,  7, {{Field::KEY, 12, 41}, {Field::CHARS7, 20, 0}}},
    {EPC_SCHEME_GRAI_96,   "grai-96",   "grai",  0x33, 3,  7, {{Field::KEY, 12, 44}, {Field::NUMBER, 0, 38}}},
    {EPC_SCHEME_GRAI_170,  "grai-170",  "grai",  0x37, 3,  7, {{Field::KEY, 12, 44}, {Field::CHARS7, 16, 0}}},
    {EPC_SCHEME_GIAI_96,   "giai-96",   "giai",  0x34, 3,  7, {{Field::OPEN_KEY, 12, 82}}},
    {EPC_SCHEME_GIAI_202,  "giai-202",  "giai",  0x38, 3,  7, {{Field::CHARS7_KEY, 30, 188}}},
    {EPC_SCHEME_GSRN_96,   "gsrn-96",   "gsrn",  0x2D, 3,  7, {{Field::KEY, 17, 58}, {Field::ZEROS, 0, 24}}},
    {EPC_SCHEME_GSRNP_96,  "gsrnp-96",  "gsrnp", 0x2E, 3,  7, {{Field::KEY, 17, 58}, {Field::ZEROS, 0, 24}}},
    {EPC_SCHEME_GDTI_96,   "gdti-96",   "gdti",  0x2C, 3,  7, {{Field::KEY, 12, 41}, {Field::NUMBER, 0, 41}}},
    {EPC_SCHEME_GDTI_113,  "gdti-113",  "gdti",  0x3A, 3,  7, {{Field::KEY, 12, 41}, {Field::LEADING_ONE, 17, 58}}},
    {EPC_SCHEME_GDTI_174,  "gdti-174",  "gdti",  0x3E, 3,  7, {{Field::KEY, 12, 41}, {Field::CHARS7, 17, 0}}},
    {EPC_SCHEME_CPI_96,    "cpi-96",    "cpi",   0x3C, 3,  7, {{Field::OPEN_KEY, 12, 51}, {Field::NUMBER, 0, 31}}},
    {EPC_SCHEME_CPI_VAR,   "cpi-var",   "cpi",   0x3D, 3,  7, {{Field::CHARS6_KEY, 30, 0}, {Field::NUMBER, 0, 40}}},
    {EPC_SCHEME_SGCN_96,   "sgcn-96",   "sgcn",  0x3F, 3,  7, {{Field::KEY, 12, 41}, {Field::LEADING_ONE, 12, 41}}},
    {EPC_SCHEME_GID_96,    "gid-96",    "gid",   0x35, 0,  0, {{Field::NUMBER, 0, 28}, {Field::NUMBER, 0, 24}, {Field::NUMBER, 0, 36}}},
    {EPC_SCHEME_USDOD_96,  "usdod-96",  "usdod", 0x2F, 4, 14, {{Field::CODE, 0, 8}, {Field::NUMBER, 0, 36}}},
    {EPC_SCHEME_ADI_VAR,   "adi-var",   "adi",   0x3B, 6, 63, {{Field::CODE, 0, 6}, {Field::CHARS6, 32, 0}, {Field::SERIAL6, 30, 0}}},
    {EPC_SCHEME_ITIP_110,  "itip-110",  "itip",  0x40, 3,  7, {{Field::KEY, 13, 44}, {Field::TWO_DIGITS, 0, 7}, {Field::TWO_DIGITS, 0, 7}, {Field::NUMBER, 0, 38}}},
    {EPC_SCHEME_ITIP_212,  "itip-212",  "itip",  0x41, 3,  7, {{Field::KEY, 13, 44}, {Field::TWO_DIGITS, 0, 7}, {Field::TWO_DIGITS, 0, 7}, {Field::CHARS7, 20, 0}}},
};
// clang-format on

std::size_t Picker::length(std::size_t first, std::size_t last) {
    if (choice == Choice::RANDOM) {
        return first + generator.below(last - first + 1);
    }
    return choice == Choice::LOWEST ? first : last;
}

std::string Picker::text(std::size_t length, std::string_view alphabet) {
    if (choice == Choice::RANDOM) {
        return generator.text(length, alphabet);
    }
    return std::string(length, choice == Choice::LOWEST ? alphabet.front() : alphabet.back());
}

std::uint64_t Picker::number(std::size_t bits) {
    const std::uint64_t largest = (std::uint64_t{1} << bits) - 1;
    if (choice == Choice::RANDOM) {
        return generator.next() & largest;
    }
    return choice == Choice::LOWEST ? 0 : largest;
}

ModelValue modelValue(const SchemeModel& model, std::uint32_t filter, std::size_t partition,
                      Picker& picker) {
    Value body;
    for (const FieldModel& field : model.fields) {
        if (field.field == Field::ZEROS) {
            body.bits += bitsFromNumber(0, field.bits);
            continue;
        }
        const Value value = fieldValue(field, partition, picker);
        body.text += (body.text.empty() ? "" : ".") + value.text;
        body.bits += value.bits;
    }
    const std::string filterText = model.filterBits == 0 ? "" : std::to_string(filter) + ".";
    const std::string name(model.name);
    const std::string family(model.family);
    return {model.scheme, filter, "urn:epc:tag:" + name + ":" + filterText + body.text,
            "urn:epc:id:" + family + ":" + body.text,
            bitsFromNumber(model.header, 8) + bitsFromNumber(filter, model.filterBits) + body.bits};
}
