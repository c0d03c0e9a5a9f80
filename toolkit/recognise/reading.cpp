#include "recognise/reading.h"

#include "words/utf8.h"

#include <algorithm>

namespace rosetag {

void readingClear(Reading& reading) {
    reading.workspace.text.clear();
    reading.workspace.pieces.clear();
}

void failureClear(Failure& failure) {
    failure.status = EPC_OK;
    failure.message.clear();
    failure.remedy.clear();
    failure.position = 0;
    failure.length = 0;
    failure.culprit.clear();
    failure.option = {};
    failure.isOfOptions = false;
}

void readingKeep(Reading& reading, std::string_view part) {
    Workspace& workspace = reading.workspace;
    const std::size_t given = positionIn(reading, part);
    const bool goesOn = !workspace.pieces.empty() &&
                        workspace.pieces.back().given +
                                (workspace.text.size() - workspace.pieces.back().prepared) ==
                            given;
    if (!goesOn) {
        workspace.pieces.push_back({workspace.text.size(), given});
    }
    workspace.text += part;
}

void readingPut(Reading& reading, std::string_view text, std::size_t position) {
    for (const char character : text) {
        reading.workspace.pieces.push_back({reading.workspace.text.size(), position});
        reading.workspace.text += character;
    }
}

std::size_t givenPosition(const Workspace& workspace, std::size_t prepared) {
    std::size_t given = prepared;
    for (const Workspace::Piece& piece : workspace.pieces) {
        if (piece.prepared > prepared) {
            break;
        }
        given = piece.given + (prepared - piece.prepared);
    }
    return given;
}

bool readingFail(Reading& reading, EpcStatus status, std::size_t position, std::size_t length,
                 Complaint complaint) {
    Failure& failure = reading.failure;
    failure.status = status;
    failure.message = std::move(complaint.message);
    failure.remedy = std::move(complaint.remedy);
    failure.option = complaint.option;
    const std::size_t first = std::min(position, reading.value.size());
    const std::string_view culprit =
        wholeCharacters(reading.value, first, std::min(length, reading.value.size() - first));
    failure.position = positionIn(reading, culprit);
    failure.length = culprit.size();
    failure.culprit = culprit;
    failure.isOfOptions = false;
    return false;
}

bool readingFailAt(Reading& reading, EpcStatus status, std::size_t prepared, std::size_t length,
                   Complaint complaint) {
    const std::size_t position = givenPosition(reading.workspace, prepared);
    const std::size_t last =
        length == 0 ? position : givenPosition(reading.workspace, prepared + length - 1) + 1;
    return readingFail(reading, status, position, std::max(last, position) - position,
                       std::move(complaint));
}

Note& readingNote(Reading& reading, NoteKind kind, std::string_view part, std::string_view text) {
    Note& note = reading.notes.add();
    note.kind = kind;
    note.severity = Severity::NOTE;
    note.text = text;
    note.position = positionIn(reading, part);
    note.length = part.size();
    note.option = {};
    return note;
}

} // namespace rosetag
