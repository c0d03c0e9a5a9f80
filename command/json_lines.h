/*
 * One line of JSON Lines: its members, and what is added to it.
 */
#ifndef ROSETAG_COMMAND_JSON_LINES_H
#define ROSETAG_COMMAND_JSON_LINES_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

struct JsonMember {
    std::string_view key;
    std::string_view value;
    bool isNumber;
};

// What is wrong with a line; nothing if message is empty.
struct JsonFault {
    std::string_view culprit; // a part of the line
    std::string message;
    std::string remedy;
};

// Reads members of the object of a line as texts. A path is a key, or keys and indexes of arrays
// with dots between them; a member that is not there, or null, is the empty text. It is a fault if
// the line is not an object, a member is neither a text nor a whole number, or the object has one
// of the keys in added already.
JsonFault jsonLineRead(std::string_view line, std::span<const std::string> paths,
                       std::span<const std::string_view> added, std::vector<std::string>& values);

// Adds members at the end of the object, whose text is otherwise kept.
void jsonLineAppend(std::string& line, std::span<const JsonMember> members);

} // namespace rosetag

#endif
