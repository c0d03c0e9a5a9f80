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

// What a call gives: a text, and numbers. Several texts stand one after the other; the numbers say
// where each ends.
struct Result {
    const char* text;
    std::size_t length;
    const std::int32_t* numbers;
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
    std::uint8_t form; // also of a row that fails
};
static_assert(sizeof(Row) == 4);

// All that outlives a call. A module has one, and one thread.
struct Face {
    std::string input;
    Translation item;
    Explanation explanation;
    Rows<Finding> findings;
    GcpList gcpList;
    std::string text;
    std::vector<std::int32_t> numbers;
    Result result{};
    std::array<Column, static_cast<std::size_t>(Form::UNKNOWN)> columns;
    std::vector<Row> rows;
};

Face& face();

// Makes a text the result.
void give(std::string_view text);

// Puts a text together, and makes it the result.
std::string& beginText();
void giveText();

// Puts a record of numbers and texts together, and makes it the result.
void recordBegin();
void recordNumber(std::size_t number);
void recordText(std::string_view text);
void recordGive();

// The value that the input begins with. One that is too long for the toolkit need not be there.
std::string_view valueOf(std::size_t length);

ReadOptions readOptions(std::uint32_t flags, int gcpLength);

} // namespace rosetag::js

#endif
