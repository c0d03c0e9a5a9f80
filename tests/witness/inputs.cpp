#include "witness/inputs.h"

#include "schemes/scheme_model.h"
#include "support/bits.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>

namespace {

constexpr std::size_t SAMPLE_COUNT = 4096;
constexpr EpcScheme FIRST_PLUS_SCHEME = EPC_SCHEME_CPI_PLUS;
constexpr std::int32_t ROOM = 8000;
constexpr std::size_t LONGEST_AI_VALUE = 92;

constexpr std::string_view CHARACTERS =
    "!\"%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";
// Characters with a meaning in some syntax, and some with none in any.
constexpr std::string_view TELLING_CHARACTERS = "()./:?&=%#]-+;,_\x1D ~\x7F\x80\xFF"
                                                "0123456789AFafGgZz0011228";

// The key of each plus scheme, and the AI that goes with it.
struct PlusKey {
    EpcScheme scheme;
    std::string_view key, second;
};
constexpr PlusKey plusKeys[] = {
    {EPC_SCHEME_CPI_PLUS, "8010", "8011"}, {EPC_SCHEME_GRAI_PLUS, "8003", ""},
    {EPC_SCHEME_SGLN_PLUS, "414", "254"},  {EPC_SCHEME_ITIP_PLUS, "8006", "21"},
    {EPC_SCHEME_GSRN_PLUS, "8018", ""},    {EPC_SCHEME_GSRNP_PLUS, "8017", ""},
    {EPC_SCHEME_GDTI_PLUS, "253", ""},     {EPC_SCHEME_SGTIN_PLUS, "01", "21"},
    {EPC_SCHEME_SGCN_PLUS, "255", ""},     {EPC_SCHEME_SSCC_PLUS, "00", ""},
    {EPC_SCHEME_GIAI_PLUS, "8004", ""},    {EPC_SCHEME_DSGTIN_PLUS, "01", "21"},
};
constexpr std::string_view plusDates[] = {"11", "13", "15", "16", "17", "7006", "7007", "12"};

// The text that a call writes; empty if it fails.
template <typename Call>
std::string textFrom(Call call) {
    static std::array<char, ROOM> text;
    return call(ROOM, text.data()) == EPC_OK ? text.data() : "";
}

bool isEncodable(const std::string& ai, const std::string& value) {
    std::array<std::uint8_t, 400> bytes;
    return epc_AIToBinary(ai.c_str(), value.c_str(), 0, 400, bytes.data(), nullptr) == EPC_OK;
}

} // namespace

Inputs::Inputs(std::uint64_t seed) : random(seed) {
    for (int digits = 2; digits <= 4; ++digits) {
        const int count = digits == 2 ? 100 : digits == 3 ? 1000 : 10000;
        for (int number = 0; number < count; ++number) {
            const std::string text = std::to_string(number);
            const std::string code =
                std::string(static_cast<std::size_t>(digits) - text.size(), '0') + text;
            if (epc_AIToBinary(code.c_str(), "", 0, 0, nullptr, nullptr) != EPC_ERR_UNKNOWN_AI) {
                aiCodes.push_back(code);
            }
        }
    }
    aiValues.resize(aiCodes.size());
    std::map<std::vector<bool>, std::size_t> shapes;
    const std::vector<std::string> candidates = candidateValues();
    for (const std::string& code : aiCodes) {
        collectAi(code);
        std::vector<bool> taken;
        for (const std::string& value : candidates) {
            taken.push_back(isEncodable(code, value));
        }
        const std::size_t shape = shapes.try_emplace(taken, shapes.size()).first->second;
        aisOfShape.resize(shapes.size());
        aisOfShape[shape].push_back(code);
    }
    while (samples.size() < SAMPLE_COUNT) {
        samples.push_back(random.below(3) != 0 ? plainSample() : plusSample());
    }
}

// ---- AI values ----

// Values of every shape. Which of them an AI takes, encoding them will show.
std::vector<std::string> Inputs::candidateValues() {
    std::vector<std::string> values;
    const auto two = [this](std::int32_t first, std::int32_t last) {
        const std::int32_t number = random.between(first, last);
        return std::to_string(number / 10) + std::to_string(number % 10);
    };
    const auto date = [&] { return two(0, 99) + two(1, 12) + two(1, 28); };
    const auto time = [&] { return two(0, 23) + two(0, 59); };
    for (std::size_t length = 1; length <= 30; ++length) {
        std::string digits = random.digits(length);
        for (char last = '0'; last <= '9'; ++last) { // one of them is the check digit
            digits.back() = last;
            values.push_back(digits);
        }
    }
    for (int i = 0; i < 3; ++i) {
        values.insert(values.end(), {date(), date() + time(), date() + date(), two(0, 99), "0", "1",
                                     date() + time() + two(0, 59), date() + two(0, 23),
                                     date() + "00", date() + "0000", date() + "9999"});
        values.push_back(random.digits(6) + "-");
        values.push_back(random.text(2, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    }
    for (const std::string_view alphabet :
         {CHARACTERS, std::string_view("0123456789abcdef"), std::string_view("0123456789ABCDEF"),
          std::string_view("ABCabc019-_"), std::string_view("0123456789ABC#-/")}) {
        for (int i = 0; i < 8; ++i) {
            const auto length = static_cast<std::size_t>(random.between(1, i < 6 ? 30 : 90));
            values.push_back(random.text(length, alphabet));
            values.push_back(random.digits(4 + random.below(14)) + random.text(length, alphabet));
        }
    }
    return values;
}

// Up to three values of each length, and those around the longest.
void Inputs::collectAi(const std::string& ai) {
    const auto index =
        static_cast<std::size_t>(std::find(aiCodes.begin(), aiCodes.end(), ai) - aiCodes.begin());
    std::map<std::size_t, int> taken;
    std::vector<std::string> values;
    for (const std::string& value : candidateValues()) {
        if (taken[value.size()] < 3 && isEncodable(ai, value)) {
            ++taken[value.size()];
            values.push_back(value);
        }
    }
    for (std::size_t length = LONGEST_AI_VALUE; length > 0; --length) {
        std::string value = random.digits(length);
        if (isEncodable(ai, value)) {
            values.push_back(value);
            values.push_back(value + "1");
            value.back() = 'A';
            values.push_back(value);
            break;
        }
    }
    if (!values.empty()) {
        aiValues[index] = values;
    }
}

std::string Inputs::valueOf(std::string_view ai) {
    const auto index =
        static_cast<std::size_t>(std::find(aiCodes.begin(), aiCodes.end(), ai) - aiCodes.begin());
    if (index == aiCodes.size() || aiValues[index].empty()) {
        return random.digits(random.below(20));
    }
    if (random.below(256) == 0) {
        collectAi(std::string(ai));
    }
    return aiValues[index][random.below(aiValues[index].size())];
}

Inputs::AiValue Inputs::anyAiValue() {
    // Half of them by shape: some shapes have one AI, others more than a hundred.
    const std::vector<std::string>& codes =
        random.flip() ? aiCodes : aisOfShape[random.below(aisOfShape.size())];
    const std::string ai = codes[random.below(codes.size())];
    return {ai, valueOf(ai)};
}

std::string Inputs::elementString(const std::vector<AiValue>& ais) const {
    std::string text;
    for (const AiValue& ai : ais) {
        text += "(" + ai.ai + ")" + ai.value;
    }
    return text;
}

std::string Inputs::barcodeString(const std::vector<AiValue>& ais) {
    std::string text;
    for (const AiValue& ai : ais) {
        text += ai.ai + ai.value;
        text += random.below(8) != 0 ? "\x1D" : "";
    }
    if (text.ends_with('\x1D') && random.below(4) != 0) {
        text.pop_back();
    }
    return text;
}

// ---- Values of schemes ----

void Inputs::addGs1Texts(Sample& sample) {
    const auto bits = static_cast<std::int32_t>(sample.epc.size() * 8);
    const std::uint8_t* epc = sample.epc.data();
    sample.elementString = textFrom(
        [&](auto size, auto dst) { return epc_binaryToGs1ElementString(bits, epc, size, dst); });
    sample.barcodeString = textFrom(
        [&](auto size, auto dst) { return epc_binaryToBarcodeString(bits, epc, size, dst); });
    sample.digitalLink = textFrom(
        [&](auto size, auto dst) { return epc_binaryToDigitalLink(bits, epc, size, dst); });
}

Inputs::Sample Inputs::plainSample() {
    const SchemeModel& model = schemeModels[random.below(schemeModels.size())];
    const auto filter = static_cast<std::uint32_t>(random.below(model.maxFilter + 1));
    const auto partition = static_cast<std::size_t>(random.below(7));
    const std::uint64_t choice = random.below(8);
    Picker picker = choice == 0   ? Picker::lowest()
                    : choice == 1 ? Picker::largest()
                                  : Picker::random(random.next());
    const ModelValue value = modelValue(model, filter, partition, picker);
    Sample sample;
    sample.scheme = model.scheme;
    sample.filter = static_cast<std::int32_t>(filter);
    sample.gcpLength = 12 - static_cast<std::int32_t>(partition);
    sample.epc = bytesFromBits(value.bits);
    sample.tagUri = value.tagUri;
    sample.uri = value.uri;
    addGs1Texts(sample);
    return sample;
}

Inputs::Sample Inputs::plusSample() {
    const PlusKey& row = plusKeys[random.below(std::size(plusKeys))];
    std::vector<AiValue> ais = {{std::string(row.key), valueOf(row.key)}};
    if (row.scheme == EPC_SCHEME_DSGTIN_PLUS) {
        const std::string_view date = plusDates[random.below(std::size(plusDates))];
        ais.insert(ais.begin() + random.between(0, 1), {std::string(date), valueOf(date)});
    }
    if (!row.second.empty()) {
        ais.push_back({std::string(row.second), valueOf(row.second)});
    }
    for (std::uint64_t more = random.below(2) * random.below(5); more > 0; --more) {
        ais.push_back(anyAiValue());
    }
    Sample sample;
    sample.scheme = row.scheme;
    sample.filter = random.between(0, 7);
    sample.elementString = elementString(ais);
    std::array<std::uint8_t, 2000> bytes;
    std::int32_t count = 0;
    if (epc_gs1ElementStringToBinary(sample.elementString.c_str(), sample.scheme, sample.filter, 7,
                                     2000, bytes.data(), &count) == EPC_OK) {
        sample.epc.assign(bytes.begin(), bytes.begin() + count);
        addGs1Texts(sample);
        return sample;
    }
    sample.epc = random.bytes(20);
    sample.epc[0] = static_cast<std::uint8_t>(0xF0 + (row.scheme - FIRST_PLUS_SCHEME));
    sample.barcodeString = barcodeString(ais);
    return sample;
}

const Inputs::Sample& Inputs::anySample() {
    Sample& sample = samples[random.below(samples.size())];
    if (random.below(16) == 0) {
        sample = sample.scheme >= FIRST_PLUS_SCHEME ? plusSample() : plainSample();
    }
    return sample;
}

std::vector<std::uint8_t> Inputs::tid() {
    std::vector<std::uint8_t> bytes = random.bytes(random.below(4) == 0 ? random.below(14) : 44);
    if (bytes.size() >= 6 && random.below(16) != 0) {
        bytes[0] = 0xE2;
        bytes[1] |= static_cast<std::uint8_t>(random.below(4) != 0 ? 0x80 : 0);
        if (random.flip()) { // the bits of the XTID header that are reserved
            bytes[4] &= 0xFC;
            bytes[5] = 0;
        }
    }
    return bytes;
}

std::vector<std::uint8_t> Inputs::bytesOf(const AiValue& ai, std::int32_t withCode) {
    std::array<std::uint8_t, 400> bytes;
    std::int32_t bits = 0;
    const std::int32_t encoding = random.below(4) == 0 ? random.between(0, 7) : AI_ENC_AUTO;
    if (epc_AIToBinaryEnc(ai.ai.c_str(), ai.value.c_str(), withCode, encoding, 400, bytes.data(),
                          &bits) != EPC_OK) {
        return random.bytes(random.below(30));
    }
    return {bytes.begin(), bytes.begin() + (bits + 7) / 8};
}

// ---- Damage ----

std::string Inputs::noise() {
    const auto length = static_cast<std::size_t>(random.below(random.below(32) == 0 ? 300 : 40));
    std::string text = random.text(length, random.flip() ? CHARACTERS : TELLING_CHARACTERS);
    if (random.below(4) == 0) {
        for (char& character : text) {
            character = static_cast<char>(random.between(1, 255));
        }
    }
    return text;
}

// Mostly short, else near a length at which some text no longer fits its storage.
std::size_t Inputs::runLength() {
    constexpr std::int32_t limits[] = {90, 255, 1024, 1800};
    if (random.below(4) != 0) {
        return random.below(20);
    }
    const std::int32_t limit = limits[random.below(std::size(limits))];
    return static_cast<std::size_t>(random.between(limit - 70, limit + 5));
}

std::string Inputs::damaged(std::string text) {
    for (std::uint64_t times = 1 + random.below(3); times > 0; --times) {
        const std::size_t at = random.below(text.size() + 1);
        const std::size_t count = random.below(std::min<std::size_t>(text.size() - at, 6) + 1);
        const char character = TELLING_CHARACTERS[random.below(TELLING_CHARACTERS.size())];
        switch (random.below(9)) {
        case 0:
            text.resize(at);
            break;
        case 1:
            text.erase(at, count);
            break;
        case 2:
            text.insert(at, text.substr(at, count));
            break;
        case 3:
            text.insert(at, 1, character);
            break;
        case 4:
            text.insert(at, random.below(16) == 0 ? noise() : random.digits(random.below(4)));
            break;
        case 5:
            text.insert(at, std::string(runLength(), character));
            break;
        case 6: {
            const std::string other = textOf(Kind::ELEMENT_STRING, anySample());
            text.insert(at, other.substr(0, random.below(other.size() + 1)));
            break;
        }
        default:
            if (at < text.size()) {
                text[at] = character;
            }
        }
    }
    return text;
}

void Inputs::damageNumbers(Arguments& arguments) {
    const auto extreme = [this] {
        return random.flip() ? random.between(INT32_MIN, INT32_MAX) : random.between(-2, 40);
    };
    switch (random.below(5)) {
    case 0:
        arguments.scheme = random.between(-1, 34);
        break;
    case 1:
        arguments.filter = random.below(4) == 0 ? extreme() : random.between(-1, 17);
        break;
    case 2:
        arguments.gcpLength = random.below(4) == 0 ? extreme() : random.between(5, 13);
        break;
    case 3:
        arguments.scheme = random.below(4) == 0 ? extreme() : random.between(22, 33);
        break;
    default:
        arguments.separator = random.below(4) == 0 ? extreme() : random.between(0, 255);
    }
}

// The bytes as they are or damaged, and as hexadecimal text.
void Inputs::layBits(Arguments& arguments, std::vector<std::uint8_t> bytes) {
    const std::uint64_t fate = random.below(8);
    if (fate == 0 && !bytes.empty()) {
        bytes.resize(random.below(bytes.size() + 1));
    } else if (fate == 1) {
        const std::vector<std::uint8_t> more = random.bytes(random.below(12));
        bytes.insert(bytes.end(), more.begin(), more.end());
    } else if (fate <= 3 && !bytes.empty()) {
        for (std::uint64_t times = 1 + random.below(4); times > 0; --times) {
            bytes[random.below(bytes.size())] ^= static_cast<std::uint8_t>(1U << random.below(8));
        }
    } else if (fate == 4 && random.below(4) == 0) {
        bytes = random.bytes(random.below(random.below(16) == 0 ? 90 : 40));
    }
    arguments.binary = bytes;
    arguments.bits = static_cast<std::int32_t>(bytes.size() * 8);
    if (random.below(4) == 0) {
        arguments.bits -= random.between(0, std::min(arguments.bits, 20));
    }
    arguments.text = hexFromBytes(bytes);
    if (random.below(4) == 0) {
        std::transform(arguments.text.begin(), arguments.text.end(), arguments.text.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    }
    if (random.below(8) == 0) {
        arguments.text = damaged(arguments.text);
    }
}

std::string Inputs::textOf(Kind kind, const Sample& sample) {
    switch (kind) {
    case Kind::TAG_URI:
        return sample.tagUri;
    case Kind::URI:
        return sample.uri;
    case Kind::BARCODE_STRING: {
        const std::uint64_t fate = random.below(8);
        const std::string more = fate == 0 ? barcodeString({anyAiValue(), anyAiValue()}) : "";
        return fate == 1 ? "]C1" + sample.barcodeString
               : fate == 0 && random.flip()
                   ? more + "\x1D" + sample.barcodeString
                   : sample.barcodeString + (fate == 0 ? "\x1D" : "") + more;
    }
    case Kind::DIGITAL_LINK:
        return sample.digitalLink;
    default: {
        const std::string more = random.below(8) == 0 ? elementString({anyAiValue()}) : "";
        return random.flip() ? sample.elementString + more : more + sample.elementString;
    }
    }
}

Arguments Inputs::next(Kind kind) {
    Arguments arguments;
    const Sample& sample = anySample();
    arguments.scheme = sample.scheme;
    arguments.filter = sample.filter;
    arguments.gcpLength = sample.gcpLength;
    arguments.encoding = random.below(4) == 0 ? random.between(-2, 8) : AI_ENC_AUTO;
    arguments.withCode = random.below(8) == 0 ? random.between(-1, 2) : random.between(0, 1);
    const AiValue value = anyAiValue();
    arguments.ai = random.below(16) == 0 ? damaged(value.ai) : value.ai;
    const std::uint64_t fate = random.below(32);
    switch (kind) {
    case Kind::EPC:
        layBits(arguments, sample.epc);
        break;
    case Kind::TID:
        layBits(arguments, tid());
        break;
    case Kind::AI_VALUE_BITS:
        layBits(arguments, bytesOf(value, 0));
        break;
    case Kind::PLUS_AIDC:
        layBits(arguments, bytesOf(value, 1));
        break;
    default:
        arguments.text = fate == 0   ? noise()
                         : fate == 1 ? textOf(Kind::ELEMENT_STRING, sample)
                         : fate == 2 ? textOf(Kind::TAG_URI, sample)
                                     : textOf(kind, sample);
        break;
    case Kind::AI_VALUE:
        arguments.text = fate == 0 ? noise() : value.value;
        break;
    case Kind::SCHEME_NAME:
        arguments.scheme = random.between(0, EPC_SCHEME_COUNT - 1);
        arguments.text = textFrom([&](auto size, auto dst) {
            return epc_tagSchemeEnumToName(arguments.scheme, size, dst);
        });
        break;
    }
    const bool isText = arguments.binary.empty();
    if (isText && random.below(8) < 3) {
        arguments.text = damaged(arguments.text);
    }
    if (random.below(5) == 0) {
        damageNumbers(arguments);
    }
    arguments.text = arguments.text.substr(0, arguments.text.find('\0'));
    arguments.ai = arguments.ai.substr(0, arguments.ai.find('\0'));
    return arguments;
}
