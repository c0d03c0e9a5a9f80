/*
 * The rows that columns of reads consist of for the most part: tag values of a scheme of 96 bits,
 * as 24 hexadecimal digits or 12 bytes. They have their forms by one operation each, without a look
 * at what else they might be. Whatever is unusual is not plain.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_PLAIN_ROWS_H
#define ROSETAG_TOOLKIT_TRANSLATE_PLAIN_ROWS_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "rosetag/toolkit.hpp"

namespace rosetag {

constexpr std::int32_t PLAIN_ROW_BYTES = 12;

// Holds every form of a plain row.
constexpr std::int32_t PLAIN_ROW_ROOM = 256;

struct PlainRow {
    std::uint8_t bytes[PLAIN_ROW_BYTES];
};

// False where 24 hexadecimal digits may be something else than the bits of a tag from the EPC on.
bool mayBePlainRows(const ReadOptions& options);

// True if the value begins with the header of a scheme of 96 bits and is as long as that.
bool plainRowRead(std::string_view value, bool isBinary, PlainRow& row);

using PlainRowMaker = EpcStatus (*)(BitBuffer& bits, TextBuffer& text);

// What makes a form; null if there is none.
PlainRowMaker plainRowMakerOf(Form form);

// Writes a form into PLAIN_ROW_ROOM bytes, and its length. False where that fails.
bool plainRowForm(const PlainRow& row, PlainRowMaker make, char* room, std::size_t& length);

} // namespace rosetag

#endif
