/*
 * All exports of the library as one table, and a caller that runs any of them with its inputs and
 * outputs laid against unreadable pages.
 */
#ifndef ROSETAG_TESTS_CONTRACT_EXPORTS_H
#define ROSETAG_TESTS_CONTRACT_EXPORTS_H

#include "rosetag/rosetag.h"

#include "support/guarded_area.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Everything that any export takes. Each uses what its signature names.
struct Arguments {
    std::string text; // also the hexadecimal text, the scheme's name and the AI's value
    std::string ai;
    std::vector<std::uint8_t> binary; // also as words
    std::int32_t bits = 0;
    std::int32_t scheme = 0;
    std::int32_t filter = 0;
    std::int32_t gcpLength = 0;
    std::int32_t encoding = AI_ENC_AUTO;
    std::int32_t withCode = 0;
    std::int32_t separator = 0x1D;
};

// The room that a call gives.
struct Room {
    std::int32_t size;           // in the unit of the export's own argument; rows for AI arrays
    std::uint32_t valueSize = 0; // of a row of AI values
    bool optionals = true;       // false: every pointer that may be null is
    GuardedArea::Side side = GuardedArea::Side::BEFORE_PAGE;
};

// The arguments and the outputs as they lie in memory.
struct Call {
    const Arguments* arguments; // for the numbers; the texts and bits stand below
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

// What an export writes, and what stands there after a failure.
enum class Output : std::uint8_t {
    NAME,         // text; untouched
    TEXT,         // text; as far as it came
    TEXT_AND_AI,  // the same, and the digits of an AI
    TAG_URI,      // the same; untouched if the failure came before the first character
    HEX,          // text; untouched, or the digits that fitted
    HEX_AND_BITS, // the same
    BYTES,        // cleared, then the bits before the failure
    BITS,         // the same; untouched if the AI is unknown
    WORDS,        // untouched
    FEW_WORDS,    // the same; no more than 31 may be given
    AIS,          // rows; those before the failure
    SCHEME,       // a number; untouched
    RECORD,       // a TidRecord; cleared and filled up to the failure
    COMPONENTS,   // numbers and a text; untouched, or the numbers where the text had no room
    XTID,         // the same, and further numbers behind the text
};

// Bit n stands for the status n. EPC_OK is in no set.
using StatusSet = std::uint32_t;

// Any export, whatever its signature.
using ExportFunction = void (*)();

struct Export {
    const char* name;
    Input input;
    Output output;
    StatusSet statuses; // that it can return
    ExportFunction function;
    EpcStatus (*run)(ExportFunction function, const Call& call);

    EpcStatus call(const Call& call) const {
        return run(function, call);
    }
};

constexpr std::size_t EXPORT_COUNT = 76;
extern const std::array<Export, EXPORT_COUNT> allExports;

// Where outputs lie.
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

// What a call has left: the bytes of each output, GuardedArea::FILL where nothing was written.
struct Outcome {
    EpcStatus status = EPC_OK;
    bool isInBounds = false; // nothing beside the outputs was written
    bool isInputUntouched = false;
    std::string bytes; // of all outputs, one behind the other
    std::array<std::size_t, BLOCK_COUNT + 1> offsets{};

    bool operator==(const Outcome&) const = default;

    std::string_view block(std::size_t block) const;
    bool isUntouched(std::size_t block) const;
    // The text in MAIN, without its NUL, and whether there is one.
    std::string text() const;
    bool isTerminated() const;
    std::int32_t count() const;
};

// Room for any value that the export can write.
Room enoughRoom(const Export& row);

// Lays arguments and outputs, calls, and looks at what is there afterwards. One for each thread.
class ExportCaller {
public:
    Outcome call(const Export& row, const Arguments& arguments, const Room& room);

    // The two halves of it, for those who call by themselves.
    Call lay(const Export& row, const Arguments& arguments, const Room& room);
    Outcome outcomeOf(EpcStatus status) const;

private:
    // One stretch of memory between unreadable pages, and the block that lies in it.
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
    // What is looked at on the side where no unreadable page lies. A call is made with both
    // layouts.
    static constexpr std::size_t WINDOW = 256;
    Place mainPlace{LARGE};
    std::array<Place, BLOCK_COUNT> smallPlaces;
    std::array<Place, 3> inputPlaces{Place{LARGE}, Place{LARGE}, Place{LARGE}};
    std::array<const void*, 3> inputSources{};
    std::vector<std::uint16_t> words;
    GuardedArea::Side side{};
};

#endif
