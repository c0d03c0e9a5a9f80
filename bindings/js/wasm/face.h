/*
 * What the functions that JavaScript calls share: where values come in and results go out.
 */
#ifndef ROSETAG_JS_FACE_H
#define ROSETAG_JS_FACE_H

#include <rosetag/toolkit.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Begins a function that the module exports by this name.
#define ROSETAG_JS(name) extern "C" __attribute__((export_name(#name)))

namespace rosetag::js {

// How a value is to be read.
enum Flag : std::uint32_t { AS_BARCODE = 1, STRICT = 2 };

// An option that the caller left out.
constexpr int NOT_GIVEN = -1;

struct Result {
    const char* text;
    std::size_t length;
};

// The texts of a form over many rows.
struct Column {
    std::string texts;
    std::vector<std::uint32_t> ends;
};

struct Row {
    std::uint8_t status;
    std::int8_t scheme; // NOT_GIVEN: it has none
    std::int8_t filter;
};
static_assert(sizeof(Row) == 3);

// All that outlives a call. A module has one, and one thread.
struct Face {
    std::string input;
    Translation item;
    Explanation explanation;
    Rows<Finding> findings;
    GcpList gcpList;
    std::string json;
    Result result{};
    std::array<Column, static_cast<std::size_t>(Form::UNKNOWN)> columns;
    std::vector<Row> rows;
};

Face& face();

// Makes a text the result.
void give(std::string_view text);

// Puts an object or a sentence together, and makes it the result.
void beginJson();
void giveJson();

// The value that the input begins with. One that is too long for the toolkit need not be there.
std::string_view valueOf(std::size_t length);

ReadOptions readOptions(std::uint32_t flags, int gcpLength);

} // namespace rosetag::js

#endif
