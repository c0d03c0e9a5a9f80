// Calls all exports of two builds of the library with the same random inputs, and compares every
// status and every byte of the caller's storage: witness OLD.so NEW.so [CALLS] [SEED]
#include "witness/inputs.h"

#include "support/bits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// What the name of an export says about its input; the first row that matches counts.
struct Family {
    std::string_view mark;
    Kind kind;
    const char* name;
};
// clang-format off
constexpr Family families[] = {
    // part of the name       input                  family
    {"epc_tagScheme",         Kind::SCHEME_NAME,     "scheme names"},
    {"ToTagSchemeName",       Kind::EPC,             "binary to scheme name"},
    {"tid_",                  Kind::TID,             "TID"},
    {"epc_AITo",              Kind::AI_VALUE,        "AI value to binary"},
    {"ValueToAI",             Kind::AI_VALUE_BITS,   "binary to AI value"},
    {"epc_plusAidc",          Kind::PLUS_AIDC,       "+AIDC data to AI value"},
    {"epc_epcTagUriTo",       Kind::TAG_URI,         "tag URI to others"},
    {"epc_epcUriTo",          Kind::URI,             "pure identity URI to others"},
    {"epc_gs1ElementString",  Kind::ELEMENT_STRING,  "element string to others"},
    {"epc_barcodeString",     Kind::BARCODE_STRING,  "barcode string to others"},
    {"epc_digitalLink",       Kind::DIGITAL_LINK,    "Digital Link to others"},
    {"epc_",                  Kind::EPC,             "binary to text"},
};
// clang-format on

struct Tally {
    std::uint64_t calls, successes, differences;
    StatusSet statuses;
};

// An export of both builds.
struct Pair {
    Export before, after;
    std::size_t family;
    std::uint64_t differences;
};

void* libraryAt(const char* path) {
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(2);
    }
    return library;
}

std::vector<Pair> pairsOf(void* before, void* after) {
    std::vector<Pair> pairs;
    for (const Export& row : allExports) {
        Pair pair{row, row, 0, 0};
        pair.before.function = reinterpret_cast<ExportFunction>(dlsym(before, row.name));
        pair.after.function = reinterpret_cast<ExportFunction>(dlsym(after, row.name));
        if (pair.before.function == pair.after.function || pair.after.function == nullptr) {
            std::fprintf(stderr, "%s: missing, or the libraries are the same\n", row.name);
            std::exit(2);
        }
        if (pair.before.function == nullptr) {
            std::printf("%s is new: not compared\n", row.name);
            continue;
        }
        while (std::string_view(row.name).find(families[pair.family].mark) ==
               std::string_view::npos) {
            ++pair.family;
        }
        pairs.push_back(pair);
    }
    return pairs;
}

// ---- Rooms ----

// A room near what the value needs, as the call with enough room showed.
Room tightRoom(const Export& row, const Outcome& full, Random& random) {
    Room room = enoughRoom(row);
    std::int32_t needed = 0;
    switch (row.output) {
    case Output::WORDS:
    case Output::BYTES:
    case Output::AIS:
        needed = full.status == EPC_OK ? full.count() : 2;
        break;
    case Output::BITS:
    case Output::FEW_WORDS:
        needed = full.status == EPC_OK ? (full.count() + 7) / 8 : 2;
        needed = row.output == Output::FEW_WORDS ? (needed + 1) / 2 : needed;
        break;
    default:
        needed = static_cast<std::int32_t>(full.text().size()) + 1;
    }
    needed = std::clamp(needed, 0, 4000); // if nothing was written, any number
    const bool isNear = random.flip();
    room.size = isNear ? needed + random.between(-2, 2) : random.between(-2, needed + 2);
    switch (row.output) {
    case Output::AIS:
        room.size = std::min(room.size, 20);
        room.valueSize = static_cast<std::uint32_t>(random.between(0, random.flip() ? 20 : 100));
        break;
    case Output::FEW_WORDS:
        room.size = std::min(room.size, 33);
        break;
    case Output::COMPONENTS:
    case Output::XTID:
        room.size = std::max(room.size, 0);
        break;
    default:
        break;
    }
    return room;
}

// ---- Reports ----

std::string escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        const auto code = static_cast<std::uint8_t>(character);
        const bool isPlain = code >= 0x20 && code < 0x7F && character != '\\';
        result += isPlain ? std::string(1, character) : "\\x" + hexFromBytes(&code, 1);
    }
    return result;
}

void printOutcome(const char* which, const Outcome& outcome) {
    std::printf("  %s: %s%s%s\n", which, epc_statusName(outcome.status),
                outcome.isInBounds ? "" : ", wrote beside its outputs",
                outcome.isInputUntouched ? "" : ", changed its input");
    for (std::size_t block = 0; block < BLOCK_COUNT; ++block) {
        const std::string_view bytes = outcome.block(block);
        const std::size_t last = bytes.find_last_not_of(static_cast<char>(GuardedArea::FILL));
        if (last != std::string_view::npos) {
            std::printf("    output %zu, %zu bytes: %s\n", block, bytes.size(),
                        escaped(bytes.substr(0, last + 1)).c_str());
        }
    }
}

void printDifference(const Pair& pair, const Arguments& arguments, const Room& room,
                     const Outcome& before, const Outcome& after) {
    std::printf("\nDIFFERENCE in %s\n"
                "  text \"%s\", ai \"%s\", binary %s, bits %d\n"
                "  scheme %d, filter %d, gcpLength %d, encoding %d, withCode %d, separator %d\n"
                "  room %d, valueSize %u, %s\n",
                pair.before.name, escaped(arguments.text).c_str(), escaped(arguments.ai).c_str(),
                hexFromBytes(arguments.binary).c_str(), arguments.bits, arguments.scheme,
                arguments.filter, arguments.gcpLength, arguments.encoding, arguments.withCode,
                arguments.separator, room.size, room.valueSize,
                room.optionals ? "all outputs asked for" : "optional outputs null");
    printOutcome("before", before);
    printOutcome("after ", after);
    std::fflush(stdout);
}

// The current call, for the message if it crashes.
volatile std::uint64_t callNumber = 0;
std::uint64_t seed = 1;
const char* volatile currentExport = "";

void onCrash(int signal) {
    std::fprintf(stderr, "\nCRASH (signal %d) in call %llu of seed %llu: %s\n", signal,
                 static_cast<unsigned long long>(callNumber), static_cast<unsigned long long>(seed),
                 currentExport);
    _exit(3);
}

class Witness {
public:
    Witness(std::vector<Pair> exports, std::uint64_t callCount)
        : pairs(std::move(exports)), limit(callCount), inputs(seed) {}

    int run() {
        const auto start = std::chrono::steady_clock::now();
        while (calls < limit) {
            Pair& pair = pairs[inputs.random.below(pairs.size())];
            callInAllRooms(pair, inputs.next(families[pair.family].kind));
            if (isatty(STDERR_FILENO) != 0 && calls / 1'000'000 != lastShown) {
                lastShown = calls / 1'000'000;
                const std::chrono::duration<double> seconds =
                    std::chrono::steady_clock::now() - start;
                std::fprintf(stderr, "\r%llu million calls, %.0f s, %llu differences ",
                             static_cast<unsigned long long>(lastShown), seconds.count(),
                             static_cast<unsigned long long>(differences));
            }
        }
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        std::printf("\n%llu calls in %.0f s\n", static_cast<unsigned long long>(calls),
                    seconds.count());
        printTallies();
        return differences == 0 ? 0 : 1;
    }

private:
    void callInAllRooms(Pair& pair, const Arguments& arguments) {
        Room room = enoughRoom(pair.before);
        const Outcome full = callBoth(pair, arguments, room);
        for (int i = 0; i < 3; ++i) {
            room = tightRoom(pair.before, full, inputs.random);
            callBoth(pair, arguments, room);
        }
    }

    Outcome callBoth(Pair& pair, const Arguments& arguments, Room room) {
        room.optionals = inputs.random.below(8) != 0;
        room.side =
            inputs.random.flip() ? GuardedArea::Side::BEFORE_PAGE : GuardedArea::Side::AFTER_PAGE;
        callNumber = ++calls;
        currentExport = pair.before.name;
        const Outcome before = callerBefore.call(pair.before, arguments, room);
        const Outcome after = callerAfter.call(pair.after, arguments, room);
        Tally& tally = tallies[pair.family];
        ++tally.calls;
        tally.successes += before.status == EPC_OK ? 1 : 0;
        tally.statuses |= StatusSet{1} << (before.status & 31);
        if (!(before == after)) {
            ++tally.differences;
            ++differences;
            if (++pair.differences == 1) {
                printDifference(pair, arguments, room, before, after);
            }
        }
        return before;
    }

    void printTallies() const {
        std::printf("\n%-30s %12s %11s %9s %12s\n", "family", "calls", "successes", "statuses",
                    "differences");
        for (std::size_t i = 0; i < std::size(families); ++i) {
            const Tally& tally = tallies[i];
            std::printf("%-30s %12llu %10.1f%% %9d %12llu\n", families[i].name,
                        static_cast<unsigned long long>(tally.calls),
                        100.0 * static_cast<double>(tally.successes) /
                            static_cast<double>(std::max<std::uint64_t>(tally.calls, 1)),
                        std::popcount(tally.statuses),
                        static_cast<unsigned long long>(tally.differences));
        }
        std::printf("%llu calls of %zu exports, seed %llu: %llu differences\n",
                    static_cast<unsigned long long>(calls), pairs.size(),
                    static_cast<unsigned long long>(seed),
                    static_cast<unsigned long long>(differences));
    }

    std::vector<Pair> pairs;
    std::uint64_t limit;
    Inputs inputs;
    ExportCaller callerBefore, callerAfter;
    std::array<Tally, std::size(families)> tallies{};
    std::uint64_t calls = 0, differences = 0, lastShown = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc > 5) {
        std::fprintf(stderr, "usage: witness OLD.so NEW.so [CALLS] [SEED]\n");
        return 2;
    }
    const std::uint64_t calls = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 10'000'000;
    seed = argc > 4 ? std::strtoull(argv[4], nullptr, 10) : 1;
    std::signal(SIGSEGV, onCrash);
    std::signal(SIGABRT, onCrash);
    std::vector<Pair> pairs = pairsOf(libraryAt(argv[1]), libraryAt(argv[2]));
    std::printf("seed %llu, %llu calls of %zu exports\n", static_cast<unsigned long long>(seed),
                static_cast<unsigned long long>(calls), pairs.size());
    return Witness(std::move(pairs), calls).run();
}
