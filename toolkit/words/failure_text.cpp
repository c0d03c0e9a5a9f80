/*
 * A failure as one sentence.
 */
#include "words/shown_text.h"

namespace rosetag {

std::string failureText(const Failure& failure) {
    std::string text;
    if (failure.length > 0 || failure.position > 0) {
        text = failure.culprit.empty()
                   ? "after character " + std::to_string(failure.position) + ": "
                   : "character " + std::to_string(failure.position + 1) + ", " +
                         quotedBeginning(failure.culprit) + ": ";
    }
    text += failure.message;
    return failure.remedy.empty() ? text : text + "; " + failure.remedy;
}

} // namespace rosetag
