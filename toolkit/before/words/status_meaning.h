/*
 * What a status means for the case at hand, in plain words.
 */
#ifndef ROSETAG_TOOLKIT_WORDS_STATUS_MEANING_H
#define ROSETAG_TOOLKIT_WORDS_STATUS_MEANING_H

#include "before/recognise/value_form.h"
#include "before/words/scheme_dictionary.h"

#include <string>
#include <string_view>

namespace rosetag {
inline namespace before {

// What was read when a status was met.
enum class StatusSource {
    ANY,
    BITS,
    URI,
    GS1_TEXT, // a text that does not read as AIs
    GS1,      // one that does, and does not fit its plain scheme
    GS1_PLUS, // the same of a plus scheme
    AI_VALUE,
};

struct StatusCase {
    StatusSource source = StatusSource::ANY;
    const SchemeEntry* scheme = nullptr; // null: none is involved
    ValueForm form = ValueForm::UNKNOWN;
    int filter = 0;
};

std::string statusMeaning(EpcStatus status, const StatusCase& statusCase);

} // namespace before
} // namespace rosetag

#endif
