/*
 * All exports of the library in one table, and a caller that runs any of them with inputs and
 * outputs placed against unreadable pages.
 */
#ifndef ROSETAG_TESTS_CONTRACT_EXPORTS_H
#define ROSETAG_TESTS_CONTRACT_EXPORTS_H

#include "rosetag/rosetag.h"

#include "support/guarded_area.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Everything that any export takes. Each one uses what its signature names.
struct Arguments {
    std::string text; // or the hexadecimal digits, the scheme's name, the AI's value
    std::string ai;
    std::vector<std::uint8_t> binary; // or the words
    std::int32_t bits = 0;
    std::int32_t scheme = 0;
    std::int32_t filter = 0;
    std::int32_t gcpLength = 0;
    std::int32_t encoding = AI_ENC_AUTO;
    std::int32_t withCode = 0;
    std::int32_t separator = 0x1D;
};

// The size of the outputs of a call.
struct Room {
    std::int32_t size;           // in the unit of the export's argument; rows for AI arrays
    std::uint32_t valueSize = 0; // of a row of AI values
    bool optionals = true;       // false: every pointer that may be null is null
    GuardedArea::Side side = GuardedArea::Side::BEFORE_PAGE;
};

// The arguments and the outputs in memory.
struct Call {
    const Arguments* arguments; // for the numbers; texts and bits are below
    const char *text, *ai;
    const std::uint8_t* binary;
    const std::uint16_t* words;
    Room room;
    char* dst;
    std::uint8_t* out;
    std::uint16_t* outWords;
    TidRecord* record;
    std::int32_t *count, *outScheme;
    std::uint32_t* aiCount;
    char *aiCodes, *aiOut;
    std::uint16_t *mdid, *tmid, *userMemory, *permaLock;
    std::uint8_t *serialBits, *maxEpcSize, *commands, *blockWrite, *blockErase;
};

enum class Input : std::uint8_t { SCHEME, TEXT, HEX, BINARY, WORDS };

// What an export writes; what a failure leaves there.
enum class Output : std::uint8_t {
    NAME,         // text; untouched
    TEXT,         // text; what was written before the failure
    TEXT_AND_AI,  // the same, and the digits of an AI
    TAG_URI,      // the same; untouched if the failure came before the first character
    HEX,          // text; untouched, or the digits that fit
    HEX_AND_BITS, // the same
    BYTES,        // cleared, then the bits before the failure
    BITS,         // the same; untouched if the AI is unknown
    WORDS,        // untouched
    FEW_WORDS,    // the same; no more than 31 may be given
    AIS,          // rows; those before the failure
    SCHEME,       // a number; untouched
    RECORD,       // a TidRecord; cleared and filled up to the failure
    COMPONENTS,   // numbers and a text; untouched, or the numbers if the text had no room
    XTID,         // the same, and further numbers after the text
};

// What an export translates. The exports of a family fail alike and share their inputs (cases.cpp).
enum class Family : std::uint8_t {
    SCHEME_TO_NAME,
    NAME_TO_SCHEME,
    BINARY_TO_NAME,
    BINARY_TO_URI,
    BINARY_TO_GS1,
    BINARY_TO_LINK,
    TAG_URI_TO_BINARY,
    URI_TO_BINARY,
    GS1_TO_BINARY,
    GS1_TO_AIS,
    LINK_TO_GS1,
    TAG_URI_TO_GS1,
    URI_TO_GS1,
    GS1_TO_LINK,
    GS1_TO_TAG_URI,
    GS1_TO_URI,
    AI_TO_BITS,
    BITS_TO_AI,
    TID,
};

// Bit n is the status n. EPC_OK is in no set.
using StatusSet = std::uint32_t;

// Any export, whatever its signature.
using ExportFunction = void (*)();

struct Export {
    const char* name;
    Input input;
    Output output;
    Family family;
    StatusSet statuses; // it can return
    ExportFunction function;
    EpcStatus (*run)(ExportFunction function, const Call& call);

    EpcStatus call(const Call& call) const {
        return run(function, call);
    }
};

extern const std::span<const Export> allExports;

// The outputs.
enum Block : std::uint8_t {
    MAIN, // dst, out, outWords, outScheme, record, the AI values or the serial number
    COUNT,
    AI_CODES,
    AI_OUT,
    MDID,
    TMID,
    SERIAL_BITS,
    MAX_EPC_SIZE,
    COMMANDS,
    BLOCK_WRITE,
    BLOCK_ERASE,
    USER_MEMORY,
    PERMA_LOCK,
    BLOCK_COUNT
};

// What a call leaves: the bytes of each output, GuardedArea::FILL where nothing was written.
struct Outcome {
    EpcStatus status = EPC_OK;
    bool isInBounds = false; // nothing outside the outputs was written
    bool isInputUntouched = false;
    std::string bytes; // of all outputs, one after the other
    std::array<std::size_t, BLOCK_COUNT + 1> offsets{};

    bool operator==(const Outcome&) const = default;

    std::string_view block(std::size_t block) const;
    bool isUntouched(std::size_t block) const;
    // The text in MAIN without its NUL, and whether it has one.
    std::string text() const;
    bool isTerminated() const;
    std::int32_t count() const;
};

// Room for every value that the export can write.
Room enoughRoom(const Export& row);

// Places arguments and outputs, calls, and collects what the call left. One for each thread.
class ExportCaller {
public:
    Outcome call(const Export& row, const Arguments& arguments, const Room& room);

    // The two halves of call, for those who make the call in between.
    Call lay(const Export& row, const Arguments& arguments, const Room& room);
    Outcome outcomeOf(EpcStatus status) const;

private:
    // Memory between unreadable pages, and the block placed in it.
    struct Place {
        explicit Place(std::size_t room = 4096) : area(room) {}
        std::uint8_t* lay(std::size_t count, GuardedArea::Side against);

        GuardedArea area;
        std::uint8_t* bytes = nullptr;
        std::size_t size = 0;
    };
    template <typename Element>
    Element* layOutput(Block block, std::size_t count);
    template <typename Element>
    const Element* layInput(std::size_t index, const Element* source, std::size_t count);

    static constexpr std::size_t LARGE = 32 * 1024;
    // Checked on the side without an unreadable page. Tests make each call in both layouts.
    static constexpr std::size_t WINDOW = 256;
    Place mainPlace{LARGE};
    std::array<Place, BLOCK_COUNT> smallPlaces;
    std::array<Place, 3> inputPlaces{Place{LARGE}, Place{LARGE}, Place{LARGE}};
    std::array<const void*, 3> inputSources{};
    std::vector<std::uint16_t> words;
    GuardedArea::Side side{};
};

#endif
