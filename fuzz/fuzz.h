/*
 * What the fuzzers of the exports share: calls with outputs against unreadable pages.
 */
#ifndef ROSETAG_FUZZ_FUZZ_H
#define ROSETAG_FUZZ_FUZZ_H

#include "fuzz_input.h"

#include "contract/exports.h"

#include <algorithm>
#include <string>

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

// Calls an export twice, its outputs before and after an unreadable page, and looks whether all
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
