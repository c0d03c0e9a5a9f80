/*
 * What a status means for the case at hand, in plain words.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_STATUS_MEANING_H
#define ROSETAG_TOOLKIT_WORDS_STATUS_MEANING_H

#include <rosetag/toolkit.hpp>

#include <string>
#include <string_view>

namespace rosetag {

// What was read when a status was met.
enum class StatusSource {
    ANY,
    BITS,
    URI,
    GS1_TEXT, // a text that does not read as AIs
    GS1,      // one that does, but does not fit its plain scheme
    GS1_PLUS, // the same of a plus scheme
    AI_VALUE,
};

struct StatusCase {
    StatusSource source = StatusSource::ANY;
    const SchemeInfo* scheme = nullptr; // null: none is involved
    int filter = 0;
};

std::string statusMeaning(EpcStatus status, const StatusCase& statusCase);

} // namespace rosetag

#endif
