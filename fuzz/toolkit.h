/*
 * What the fuzzers of the toolkit share: how a value is read, and what every result promises.
 *
 * Input: a byte of flags (1: asBarcode, 2: strict), a byte for gcpLength (0: none), the value.
 */
#ifndef ROSETAG_FUZZ_TOOLKIT_H
#define ROSETAG_FUZZ_TOOLKIT_H

#include "fuzz_input.h"

#include <rosetag/toolkit.hpp>

#include <nlohmann/json.hpp>

inline rosetag::ReadOptions readOptionsOf(FuzzInput& input) {
    rosetag::ReadOptions options;
    const std::int32_t flags = input.number();
    options.asBarcode = (flags & 1) != 0;
    options.strict = (flags & 2) != 0;
    if (const std::int32_t length = input.number(); length != 0) {
        options.gcpLength = length;
    }
    return options;
}

inline void requirePlace(std::size_t position, std::size_t length, const std::string& value) {
    require(position <= value.size() && length <= value.size() - position,
            "a place lies in the value");
}

// A failure has its place in the value and says something; one that did not happen says nothing.
inline void requireFailure(const rosetag::Failure& failure, const std::string& value) {
    requirePlace(failure.position, failure.length, value);
    require(failure.status >= EPC_OK && failure.status <= EPC_ERR_BAD_TID, "a status exists");
    require(isFailure(failure) == !failure.message.empty(), "a failure has a message");
}

inline void requireNotes(const rosetag::Rows<rosetag::Note>& notes, const std::string& value) {
    for (const rosetag::Note& note : notes) {
        requirePlace(note.position, note.length, value);
        require(!note.text.empty(), "a note says something");
    }
}

inline void requireJson(const std::string& json) {
    require(nlohmann::json::accept(json), "it is JSON: " + json);
    require(json.find('\n') == std::string::npos, "it is one line: " + json);
}

#endif
