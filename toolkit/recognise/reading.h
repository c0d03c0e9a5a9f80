/*
 * A value on its way from what people have to what the library takes: the text so far, where each
 * part of it was in the value, the notes, and the failure if there is one.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_READING_H
#define ROSETAG_TOOLKIT_RECOGNISE_READING_H

#include <rosetag/toolkit.hpp>

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>

namespace rosetag {

struct Reading {
    std::string_view value; // as it was given
    const ReadOptions& options;
    Workspace& workspace; // workspace.text is what the library gets
    Rows<Note>& notes;
    Failure& failure;
    Form form = Form::UNKNOWN;
};

// Makes the value ready. False if that is not possible: the failure says why.
bool readingPrepare(Reading& reading);

// What is taken off both ends of a value.
inline constexpr std::string_view BLANKS = " \t\r\n";

constexpr bool isBlank(char character) {
    return std::any_of(BLANKS.begin(), BLANKS.end(),
                       [=](char blank) { return character == blank; });
}

// The value without the blanks around it, with a note if there are any.
std::string_view withoutOuterBlanks(Reading& reading);

// Where a part of the value begins.
inline std::size_t positionIn(const Reading& reading, std::string_view part) {
    return static_cast<std::size_t>(part.data() - reading.value.data());
}

void readingClear(Reading& reading);

// Appends a part of the value, which is a view of it.
void readingKeep(Reading& reading, std::string_view part);

// Appends text that takes the place of what is at a position of the value.
void readingPut(Reading& reading, std::string_view text, std::size_t position);

// What is at a position of the prepared text.
std::size_t givenPosition(const Workspace& workspace, std::size_t prepared);

// What went wrong, in words: the rule, and what to do.
struct Complaint {
    std::string message;
    std::string remedy{};
    std::string_view option{};
};

// No failure; its texts keep their memory.
void failureClear(Failure& failure);

// Sets the failure, about a part of the value. Always false.
bool readingFail(Reading& reading, EpcStatus status, std::size_t position, std::size_t length,
                 Complaint complaint);

// The same, about a part of the prepared text.
bool readingFailAt(Reading& reading, EpcStatus status, std::size_t prepared, std::size_t length,
                   Complaint complaint);

// Built with ROSETAG_WORDLESS_FAILURES, failures say where a value is wrong, but not why.
#ifdef ROSETAG_WORDLESS_FAILURES
constexpr bool FAILURES_HAVE_WORDS = false;
#else
constexpr bool FAILURES_HAVE_WORDS = true;
#endif

template <std::invocable Complain>
Complaint complaintOf(const Reading& reading, Complain complain) {
    if constexpr (FAILURES_HAVE_WORDS) {
        return reading.options.wordless ? Complaint() : complain();
    } else {
        return {};
    }
}

// The same two, with words that are only put together if somebody wants them.
// complain: Complaint()
template <std::invocable Complain>
bool readingFail(Reading& reading, EpcStatus status, std::size_t position, std::size_t length,
                 Complain complain) {
    return readingFail(reading, status, position, length, complaintOf(reading, complain));
}

template <std::invocable Complain>
bool readingFailAt(Reading& reading, EpcStatus status, std::size_t prepared, std::size_t length,
                   Complain complain) {
    return readingFailAt(reading, status, prepared, length, complaintOf(reading, complain));
}

// Adds a note about a part of the value.
Note& readingNote(Reading& reading, NoteKind kind, std::string_view part, std::string_view text);

// The same with words that are only put together if somebody wants them.
// tell: std::string()
template <std::invocable Tell>
Note& readingNote(Reading& reading, NoteKind kind, std::string_view part, Tell tell) {
    Note& note = readingNote(reading, kind, part, std::string_view());
    if (!reading.options.wordless) {
        note.text = tell();
    }
    return note;
}

} // namespace rosetag

#endif
