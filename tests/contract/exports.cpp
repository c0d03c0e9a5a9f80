#include "contract/exports.h"

#include "support/bits.h"

#include <algorithm>
#include <cstring>

namespace {

// One overload for each shape of an argument list. Exports of the same shape take the same
// arguments in the same order.
using Text = const char*;
using Int = std::int32_t;
using Bytes = const std::uint8_t*;
using Words = const std::uint16_t*;

// clang-format off
EpcStatus run(EpcStatus f(Int, Int, char*), const Call& c) { return f(c.arguments->scheme, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Int*), const Call& c) { return f(c.text, c.outScheme); }

EpcStatus run(EpcStatus f(Int, Bytes, Int, char*), const Call& c) { return f(c.arguments->bits, c.binary, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Int, Words, Int, char*), const Call& c) { return f(c.arguments->bits, c.words, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Int, char*), const Call& c) { return f(c.text, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Int, Bytes, Int, std::uint32_t, char*, char*, std::uint32_t*), const Call& c) { return f(c.arguments->bits, c.binary, c.room.size, c.room.valueSize, c.aiCodes, c.dst, c.aiCount); }
EpcStatus run(EpcStatus f(Text, Int, std::uint32_t, char*, char*, std::uint32_t*), const Call& c) { return f(c.text, c.room.size, c.room.valueSize, c.aiCodes, c.dst, c.aiCount); }
EpcStatus run(EpcStatus f(Text, Int, Int, std::uint32_t, char*, char*, std::uint32_t*), const Call& c) { return f(c.text, c.arguments->separator, c.room.size, c.room.valueSize, c.aiCodes, c.dst, c.aiCount); }

EpcStatus run(EpcStatus f(Text, Int, std::uint8_t*, Int*), const Call& c) { return f(c.text, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Int, std::uint16_t*, Int*), const Call& c) { return f(c.text, c.room.size, c.outWords, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, std::uint8_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, char*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, std::uint16_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.room.size, c.outWords, c.count); }

EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, std::uint8_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, char*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, std::uint16_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.room.size, c.outWords, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, Int, std::uint8_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.arguments->encoding, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, Int, char*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.arguments->encoding, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Int, Int, Int, Int, Int, std::uint16_t*, Int*), const Call& c) { return f(c.text, c.arguments->scheme, c.arguments->filter, c.arguments->gcpLength, c.arguments->encoding, c.room.size, c.outWords, c.count); }
EpcStatus run(EpcStatus f(Text, Int, Int, char*), const Call& c) { return f(c.text, c.arguments->gcpLength, c.room.size, c.dst); }

EpcStatus run(EpcStatus f(Text, Text, Int, Int, std::uint8_t*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Text, Int, Int, char*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.room.size, c.dst, c.count); }
EpcStatus run(EpcStatus f(Text, Text, Int, Int, std::uint16_t*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.room.size, c.outWords, c.count); }
EpcStatus run(EpcStatus f(Text, Text, Int, Int, Int, std::uint8_t*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.arguments->encoding, c.room.size, c.out, c.count); }
EpcStatus run(EpcStatus f(Text, Text, Int, Int, Int, char*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.arguments->encoding, c.room.size, c.dst, c.count); }
EpcStatus run(EpcStatus f(Text, Text, Int, Int, Int, std::uint16_t*, Int*), const Call& c) { return f(c.ai, c.text, c.arguments->withCode, c.arguments->encoding, c.room.size, c.outWords, c.count); }
EpcStatus run(EpcStatus f(Int, Bytes, Text, Int, char*), const Call& c) { return f(c.arguments->bits, c.binary, c.ai, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, Text, Int, char*), const Call& c) { return f(c.text, c.ai, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Int, Words, Text, Int, char*), const Call& c) { return f(c.arguments->bits, c.words, c.ai, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Int, Bytes, char*, Int, char*), const Call& c) { return f(c.arguments->bits, c.binary, c.aiOut, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Text, char*, Int, char*), const Call& c) { return f(c.text, c.aiOut, c.room.size, c.dst); }
EpcStatus run(EpcStatus f(Int, Words, char*, Int, char*), const Call& c) { return f(c.arguments->bits, c.words, c.aiOut, c.room.size, c.dst); }

EpcStatus run(EpcStatus f(Int, Bytes, TidRecord*), const Call& c) { return f(c.arguments->bits, c.binary, c.record); }
EpcStatus run(EpcStatus f(Int, Words, TidRecord*), const Call& c) { return f(c.arguments->bits, c.words, c.record); }
// clang-format on

template <typename Source>
EpcStatus run(EpcStatus f(Int, Source, std::uint16_t*, std::uint16_t*, std::uint8_t*, std::uint32_t,
                          char*),
              const Call& c, Source source) {
    return f(c.arguments->bits, source, c.mdid, c.tmid, c.serialBits,
             static_cast<std::uint32_t>(c.room.size), c.dst);
}

template <typename Source>
EpcStatus run(EpcStatus f(Int, Source, std::uint16_t*, std::uint16_t*, std::uint8_t*, std::uint32_t,
                          char*, std::uint8_t*, std::uint8_t*, std::uint8_t*, std::uint8_t*,
                          std::uint16_t*, std::uint16_t*),
              const Call& c, Source source) {
    return f(c.arguments->bits, source, c.mdid, c.tmid, c.serialBits,
             static_cast<std::uint32_t>(c.room.size), c.dst, c.maxEpcSize, c.commands, c.blockWrite,
             c.blockErase, c.userMemory, c.permaLock);
}

template <typename... Numbers>
constexpr StatusSet statusSet(Numbers... numbers) {
    return (0U | ... | (StatusSet{1} << numbers));
}

// The statuses of a family, by their numbers.
constexpr StatusSet statusesOf(Family family) {
    constexpr StatusSet binaryToGs1 = statusSet(1, 2, 3, 5, 6, 7, 13, 17, 18, 21);
    constexpr StatusSet gs1ToAis = statusSet(1, 2, 7, 13, 17, 21, 23);
    constexpr StatusSet gs1ToUri = statusSet(1, 2, 3, 7, 8, 13, 14, 15, 16);
    switch (family) {
    case Family::SCHEME_TO_NAME:
        return statusSet(1, 11);
    case Family::NAME_TO_SCHEME:
        return statusSet(11);
    case Family::BINARY_TO_NAME:
        return statusSet(1, 2, 5);
    case Family::BINARY_TO_URI:
        return statusSet(1, 2, 3, 5, 6, 17, 18);
    case Family::BINARY_TO_GS1:
        return binaryToGs1;
    case Family::BINARY_TO_LINK:
        return binaryToGs1 | statusSet(22, 23);
    case Family::TAG_URI_TO_BINARY:
        return statusSet(1, 2, 3, 4, 6, 7, 8, 10, 11, 17, 18);
    case Family::URI_TO_BINARY:
        return statusSet(1, 2, 3, 4, 6, 7, 8, 9, 11, 17, 18);
    case Family::GS1_TO_BINARY:
        return statusSet(1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 13, 14, 15, 16, 17, 18, 20, 21, 23);
    case Family::GS1_TO_AIS:
        return gs1ToAis;
    case Family::LINK_TO_GS1:
        return gs1ToAis | statusSet(EPC_ERR_TOO_LONG);
    case Family::TAG_URI_TO_GS1:
        return statusSet(1, 2, 3, 4, 7, 10, 11, 12, 17);
    case Family::URI_TO_GS1:
        return statusSet(1, 2, 4, 7, 12, 17);
    case Family::GS1_TO_LINK:
        return statusSet(1, 2, 7, 13, 17, 20, 21, 22, 23);
    case Family::GS1_TO_TAG_URI:
        return gs1ToUri | statusSet(9, 10, 11);
    case Family::GS1_TO_URI:
        return gs1ToUri;
    case Family::AI_TO_BITS:
        return statusSet(1, 2, 3, 4, 7, 13, 17);
    case Family::BITS_TO_AI:
        return statusSet(1, 2, 3, 7, 13, 17);
    case Family::TID:
        return statusSet(1, 2, 24);
    }
    return 0;
}

// clang-format off
#define EXPORT(name) #name, reinterpret_cast<ExportFunction>(name), [](ExportFunction function, const Call& call) { return run(reinterpret_cast<decltype(&(name))>(function), call); }
#define EXPORT_OF(name, source) #name, reinterpret_cast<ExportFunction>(name), [](ExportFunction function, const Call& call) { return run(reinterpret_cast<decltype(&(name))>(function), call, call.source); }

// A row begins with the export; this puts its columns into the order of the record. Digits and words
// can also be too long.
Export row(const char* name, ExportFunction function, EpcStatus (*run)(ExportFunction, const Call&), Input input, Output output, Family family) {
    const bool isCopied = input == Input::HEX || input == Input::WORDS;
    return {name, input, output, family, statusesOf(family) | (isCopied ? statusSet(EPC_ERR_TOO_LONG) : 0), function, run};
}

const Export exportRows[] = {
    // export                                      input          output                family
    row(EXPORT(epc_tagSchemeEnumToName),           Input::SCHEME, Output::NAME,         Family::SCHEME_TO_NAME),
    row(EXPORT(epc_tagSchemeNameToEnum),           Input::TEXT,   Output::SCHEME,       Family::NAME_TO_SCHEME),
    row(EXPORT(epc_binaryToTagSchemeName),         Input::BINARY, Output::NAME,         Family::BINARY_TO_NAME),
    row(EXPORT(epc_hexToTagSchemeName),            Input::HEX,    Output::NAME,         Family::BINARY_TO_NAME),

    row(EXPORT(epc_binaryToEpcTagUri),             Input::BINARY, Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_binaryToEpcUri),                Input::BINARY, Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_binaryToGs1ElementString),      Input::BINARY, Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_binaryToBarcodeString),         Input::BINARY, Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_binaryToDigitalLink),           Input::BINARY, Output::TEXT,         Family::BINARY_TO_LINK),
    row(EXPORT(epc_binaryToAIs),                   Input::BINARY, Output::AIS,          Family::BINARY_TO_GS1),
    row(EXPORT(epc_hexToEpcTagUri),                Input::HEX,    Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_hexToEpcUri),                   Input::HEX,    Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_hexToGs1ElementString),         Input::HEX,    Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_hexToBarcodeString),            Input::HEX,    Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_hexToDigitalLink),              Input::HEX,    Output::TEXT,         Family::BINARY_TO_LINK),
    row(EXPORT(epc_hexToAIs),                      Input::HEX,    Output::AIS,          Family::BINARY_TO_GS1),
    row(EXPORT(epc_wordsToEpcTagUri),              Input::WORDS,  Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_wordsToEpcUri),                 Input::WORDS,  Output::TEXT,         Family::BINARY_TO_URI),
    row(EXPORT(epc_wordsToGs1ElementString),       Input::WORDS,  Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_wordsToBarcodeString),          Input::WORDS,  Output::TEXT,         Family::BINARY_TO_GS1),
    row(EXPORT(epc_wordsToDigitalLink),            Input::WORDS,  Output::TEXT,         Family::BINARY_TO_LINK),

    row(EXPORT(epc_epcTagUriToBinary),             Input::TEXT,   Output::BYTES,        Family::TAG_URI_TO_BINARY),
    row(EXPORT(epc_epcTagUriToHex),                Input::TEXT,   Output::HEX,          Family::TAG_URI_TO_BINARY),
    row(EXPORT(epc_epcTagUriToWords),              Input::TEXT,   Output::WORDS,        Family::TAG_URI_TO_BINARY),
    row(EXPORT(epc_epcUriToBinary),                Input::TEXT,   Output::BYTES,        Family::URI_TO_BINARY),
    row(EXPORT(epc_epcUriToHex),                   Input::TEXT,   Output::HEX,          Family::URI_TO_BINARY),
    row(EXPORT(epc_epcUriToWords),                 Input::TEXT,   Output::WORDS,        Family::URI_TO_BINARY),

    row(EXPORT(epc_barcodeStringToBinary),         Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_barcodeStringToBinaryEnc),      Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_barcodeStringToHex),            Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_barcodeStringToHexEnc),         Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_barcodeStringToWords),          Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_barcodeStringToWordsEnc),       Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToBinary),           Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToBinaryEnc),        Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToHex),              Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToHexEnc),           Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToWords),            Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_digitalLinkToWordsEnc),         Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToBinary),      Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToBinaryEnc),   Input::TEXT,   Output::BYTES,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToHex),         Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToHexEnc),      Input::TEXT,   Output::HEX,          Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToWords),       Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),
    row(EXPORT(epc_gs1ElementStringToWordsEnc),    Input::TEXT,   Output::WORDS,        Family::GS1_TO_BINARY),

    row(EXPORT(epc_barcodeStringToAIs),            Input::TEXT,   Output::AIS,          Family::GS1_TO_AIS),
    row(EXPORT(epc_barcodeStringToEpcTagUri),      Input::TEXT,   Output::TAG_URI,      Family::GS1_TO_TAG_URI),
    row(EXPORT(epc_digitalLinkToAIs),              Input::TEXT,   Output::AIS,          Family::LINK_TO_GS1),
    row(EXPORT(epc_digitalLinkToGs1ElementString), Input::TEXT,   Output::TEXT,         Family::LINK_TO_GS1),
    row(EXPORT(epc_epcTagUriToBarcodeString),      Input::TEXT,   Output::TEXT,         Family::TAG_URI_TO_GS1),
    row(EXPORT(epc_epcTagUriToDigitalLink),        Input::TEXT,   Output::TEXT,         Family::TAG_URI_TO_GS1),
    row(EXPORT(epc_epcTagUriToGs1ElementString),   Input::TEXT,   Output::TEXT,         Family::TAG_URI_TO_GS1),
    row(EXPORT(epc_epcUriToBarcodeString),         Input::TEXT,   Output::TEXT,         Family::URI_TO_GS1),
    row(EXPORT(epc_epcUriToGs1ElementString),      Input::TEXT,   Output::TEXT,         Family::URI_TO_GS1),
    row(EXPORT(epc_gs1ElementStringToAIs),         Input::TEXT,   Output::AIS,          Family::GS1_TO_AIS),
    row(EXPORT(epc_gs1ElementStringToDigitalLink), Input::TEXT,   Output::TEXT,         Family::GS1_TO_LINK),
    row(EXPORT(epc_gs1ElementStringToEpcTagUri),   Input::TEXT,   Output::TAG_URI,      Family::GS1_TO_TAG_URI),
    row(EXPORT(epc_gs1ElementStringToEpcUri),      Input::TEXT,   Output::TAG_URI,      Family::GS1_TO_URI),

    row(EXPORT(epc_AIToBinary),                    Input::TEXT,   Output::BITS,         Family::AI_TO_BITS),
    row(EXPORT(epc_AIToBinaryEnc),                 Input::TEXT,   Output::BITS,         Family::AI_TO_BITS),
    row(EXPORT(epc_AIToHex),                       Input::TEXT,   Output::HEX_AND_BITS, Family::AI_TO_BITS),
    row(EXPORT(epc_AIToHexEnc),                    Input::TEXT,   Output::HEX_AND_BITS, Family::AI_TO_BITS),
    row(EXPORT(epc_AIToWords),                     Input::TEXT,   Output::FEW_WORDS,    Family::AI_TO_BITS),
    row(EXPORT(epc_AIToWordsEnc),                  Input::TEXT,   Output::FEW_WORDS,    Family::AI_TO_BITS),
    row(EXPORT(epc_binaryValueToAI),               Input::BINARY, Output::TEXT,         Family::BITS_TO_AI),
    row(EXPORT(epc_hexValueToAI),                  Input::HEX,    Output::TEXT,         Family::BITS_TO_AI),
    row(EXPORT(epc_wordsValueToAI),                Input::WORDS,  Output::TEXT,         Family::BITS_TO_AI),
    row(EXPORT(epc_plusAidcBinaryToAI),            Input::BINARY, Output::TEXT_AND_AI,  Family::BITS_TO_AI),
    row(EXPORT(epc_plusAidcHexToAI),               Input::HEX,    Output::TEXT_AND_AI,  Family::BITS_TO_AI),
    row(EXPORT(epc_plusAidcWordsToAI),             Input::WORDS,  Output::TEXT_AND_AI,  Family::BITS_TO_AI),

    row(EXPORT(tid_binaryDecode),                  Input::BINARY, Output::RECORD,       Family::TID),
    row(EXPORT_OF(tid_binaryToComponents, binary), Input::BINARY, Output::COMPONENTS,   Family::TID),
    row(EXPORT_OF(tid_binaryToXtid, binary),       Input::BINARY, Output::XTID,         Family::TID),
    row(EXPORT(tid_wordsDecode),                   Input::WORDS,  Output::RECORD,       Family::TID),
    row(EXPORT_OF(tid_wordsToComponents, words),   Input::WORDS,  Output::COMPONENTS,   Family::TID),
    row(EXPORT_OF(tid_wordsToXtid, words),         Input::WORDS,  Output::XTID,         Family::TID),
};
// clang-format on

} // namespace

const std::span<const Export> allExports = exportRows;

std::string_view Outcome::block(std::size_t block) const {
    return std::string_view(bytes).substr(offsets[block], offsets[block + 1] - offsets[block]);
}

bool Outcome::isUntouched(std::size_t block) const {
    return this->block(block).find_first_not_of(static_cast<char>(GuardedArea::FILL)) ==
           std::string_view::npos;
}

std::string Outcome::text() const {
    return std::string(block(MAIN).substr(0, block(MAIN).find('\0')));
}

bool Outcome::isTerminated() const {
    return block(MAIN).find('\0') != std::string_view::npos;
}

std::int32_t Outcome::count() const {
    std::int32_t count = 0;
    std::memcpy(&count, block(COUNT).data(), std::min(sizeof count, block(COUNT).size()));
    return count;
}

Room enoughRoom(const Export& row) {
    switch (row.output) {
    case Output::AIS:
        return {20, 1100};
    case Output::BYTES:
    case Output::BITS:
        return {2000};
    case Output::WORDS:
    case Output::FEW_WORDS:
        return {31};
    default:
        return {8000};
    }
}

std::uint8_t* ExportCaller::Place::lay(std::size_t count, GuardedArea::Side against) {
    std::fill_n(bytes, size, GuardedArea::FILL);
    size = count;
    bytes = area.place<std::uint8_t>(count, against);
    return bytes;
}

template <typename Element>
Element* ExportCaller::layOutput(Block block, std::size_t count) {
    Place& place = block == MAIN ? mainPlace : smallPlaces[block];
    return reinterpret_cast<Element*>(place.lay(count * sizeof(Element), side));
}

template <typename Element>
const Element* ExportCaller::layInput(std::size_t index, const Element* source, std::size_t count) {
    std::uint8_t* bytes = inputPlaces[index].lay(count * sizeof(Element), side);
    if (count != 0) {
        std::memcpy(bytes, source, count * sizeof(Element));
    }
    inputSources[index] = source;
    return reinterpret_cast<const Element*>(bytes);
}

Call ExportCaller::lay(const Export& row, const Arguments& arguments, const Room& room) {
    side = room.side;
    mainPlace.lay(0, side);
    for (Place& place : smallPlaces) {
        place.lay(0, side);
    }
    Call call{};
    call.arguments = &arguments;
    call.room = room;
    call.text = layInput(0, arguments.text.c_str(), arguments.text.size() + 1);
    call.ai = layInput(1, arguments.ai.c_str(), arguments.ai.size() + 1);
    if (row.input == Input::WORDS) {
        words = wordsFromBytes(arguments.binary);
        call.words = layInput(2, words.data(), words.size());
    } else {
        call.binary = layInput(2, arguments.binary.data(), arguments.binary.size());
    }

    const auto size = static_cast<std::size_t>(std::max(room.size, 0));
    const auto optional = [&]<typename Element>(Block block, std::size_t count, Element*& pointer) {
        pointer = room.optionals ? layOutput<Element>(block, count) : nullptr;
    };
    switch (row.output) {
    case Output::TEXT_AND_AI:
        call.aiOut = layOutput<char>(AI_OUT, 5);
        [[fallthrough]];
    case Output::TEXT:
    case Output::TAG_URI:
    case Output::HEX:
        call.dst = layOutput<char>(MAIN, std::max(size, std::size_t{1}));
        break;
    case Output::NAME:
        call.dst = layOutput<char>(MAIN, size);
        break;
    case Output::HEX_AND_BITS:
        call.dst = layOutput<char>(MAIN, std::max(size, std::size_t{1}));
        optional(COUNT, 1, call.count);
        break;
    case Output::BYTES:
    case Output::BITS:
        call.out = layOutput<std::uint8_t>(MAIN, size);
        optional(COUNT, 1, call.count);
        break;
    case Output::WORDS:
    case Output::FEW_WORDS:
        call.outWords = layOutput<std::uint16_t>(MAIN, size);
        optional(COUNT, 1, call.count);
        break;
    case Output::AIS: {
        const std::size_t rows = room.size < 0 ? 20 : size;
        call.aiCodes = layOutput<char>(AI_CODES, rows * 5);
        call.dst = layOutput<char>(MAIN, rows * room.valueSize);
        call.aiCount = layOutput<std::uint32_t>(COUNT, 1);
        break;
    }
    case Output::SCHEME:
        optional(MAIN, 1, call.outScheme);
        break;
    case Output::RECORD:
        optional(MAIN, 1, call.record);
        break;
    case Output::XTID:
        optional(MAX_EPC_SIZE, 1, call.maxEpcSize);
        optional(COMMANDS, 9, call.commands);
        optional(BLOCK_WRITE, 6, call.blockWrite);
        optional(BLOCK_ERASE, 6, call.blockErase);
        optional(USER_MEMORY, 1, call.userMemory);
        optional(PERMA_LOCK, 1, call.permaLock);
        [[fallthrough]];
    case Output::COMPONENTS:
        call.dst = layOutput<char>(MAIN, size);
        optional(MDID, 1, call.mdid);
        optional(TMID, 1, call.tmid);
        optional(SERIAL_BITS, 1, call.serialBits);
        break;
    }
    return call;
}

Outcome ExportCaller::outcomeOf(EpcStatus status) const {
    Outcome outcome;
    outcome.status = status;
    outcome.isInBounds = true;
    outcome.isInputUntouched = true;
    for (std::size_t block = MAIN; block < BLOCK_COUNT; ++block) {
        const Place& place = block == MAIN ? mainPlace : smallPlaces[block];
        if (place.size != 0) {
            outcome.bytes.append(reinterpret_cast<const char*>(place.bytes), place.size);
            outcome.isInBounds &= place.area.isUntouchedAround(place.bytes, place.size, WINDOW);
        }
        outcome.offsets[block + 1] = outcome.bytes.size();
    }
    for (std::size_t i = 0; i < inputPlaces.size(); ++i) {
        const Place& place = inputPlaces[i];
        const bool isSame =
            place.size == 0 || std::memcmp(place.bytes, inputSources[i], place.size) == 0;
        outcome.isInputUntouched &=
            isSame && place.area.isUntouchedAround(place.bytes, place.size, WINDOW);
    }
    return outcome;
}

Outcome ExportCaller::call(const Export& row, const Arguments& arguments, const Room& room) {
    const Call call = lay(row, arguments, room);
    return outcomeOf(row.call(call));
}
