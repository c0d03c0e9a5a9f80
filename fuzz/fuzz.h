/*
 * What the fuzzers share: reading numbers and texts from the bytes that they are given, and calls
 * of exports with outputs against unreadable pages.
 */
#ifndef ROSETAG_FUZZ_FUZZ_H
#define ROSETAG_FUZZ_FUZZ_H

#include "contract/exports.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Stops with what does not hold. The fuzzer keeps the input.
inline void require(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what.c_str());
        std::abort();
    }
}

// Longer inputs show nothing new.
constexpr std::size_t MAX_FUZZ_BYTES = 4000;

class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : bytes(data, size < MAX_FUZZ_BYTES ? size : MAX_FUZZ_BYTES) {}

    // One byte as a number from -128 to 127; 0 behind the end.
    std::int32_t number() {
        if (bytes.empty()) {
            return 0;
        }
        const auto value = static_cast<std::int8_t>(bytes.front());
        bytes = bytes.subspan(1);
        return value;
    }

    // One byte as the size of an output: -2 to 252, or enough for anything.
    std::int32_t size(std::int32_t enough) {
        const std::int32_t byte = number() & 0xFF;
        return byte == 0xFF ? enough : byte - 2;
    }

    // The bytes up to the separator, which is taken too.
    std::string textUntil(char separator) {
        std::string text;
        while (!bytes.empty()) {
            const auto character = static_cast<char>(number());
            if (character == separator) {
                break;
            }
            text += character;
        }
        return withoutNul(text);
    }

    std::string restAsText() const {
        return withoutNul({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    std::vector<std::uint8_t> rest() const {
        return {bytes.begin(), bytes.end()};
    }

private:
    static std::string withoutNul(const std::string& text) {
        return text.substr(0, text.find('\0'));
    }

    std::span<const std::uint8_t> bytes;
};

// The room for a call, from one number: -2 to 252, or what is enough for anything.
inline Room roomOf(const Export& row, std::int32_t size) {
    Room room = enoughRoom(row);
    room.optionals = size % 16 != 0;
    if (row.output == Output::AIS) {
        room.size = std::min(size, 20);
        room.valueSize =
            size % 2 != 0 ? static_cast<std::uint32_t>(std::clamp(size, 0, 100)) : room.valueSize;
    } else if (row.output == Output::FEW_WORDS) {
        room.size = std::min(size, 32);
    } else if (row.output == Output::COMPONENTS || row.output == Output::XTID) {
        room.size = std::clamp(size, 0, room.size); // the size of a serial number has no sign
    } else {
        room.size = std::min(size, room.size);
    }
    return room;
}

inline bool writesText(const Export& row) {
    switch (row.output) {
    case Output::NAME:
    case Output::TEXT:
    case Output::TEXT_AND_AI:
    case Output::TAG_URI:
    case Output::HEX:
    case Output::HEX_AND_BITS:
    case Output::COMPONENTS:
    case Output::XTID:
        return true;
    default:
        return false;
    }
}

// Calls an export twice, its outputs before and behind an unreadable page, and looks whether all
// that every export promises holds. What it gave is the result.
inline Outcome checkedCall(const Export& row, const Arguments& arguments, Room room) {
    thread_local ExportCaller caller;
    const std::string name = row.name;
    room.side = GuardedArea::Side::BEFORE_PAGE;
    const Outcome outcome = caller.call(row, arguments, room);
    room.side = GuardedArea::Side::AFTER_PAGE;
    const Outcome again = caller.call(row, arguments, room);
    require(outcome.isInBounds && again.isInBounds, name + " writes within its outputs");
    require(outcome.isInputUntouched, name + " leaves its inputs alone");
    require(outcome == again, name + " gives the same a second time");
    const StatusSet returned = StatusSet{1} << outcome.status;
    require(outcome.status >= EPC_OK && outcome.status <= EPC_ERR_BAD_TID &&
                ((row.statuses | 1U) & returned) != 0,
            name + " returns only its own statuses, not " + epc_statusName(outcome.status));
    require(!writesText(row) || outcome.isTerminated() || outcome.isUntouched(MAIN),
            name + " ends its text");
    return outcome;
}

#endif
