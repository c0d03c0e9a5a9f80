/*
 * The rows that columns of reads consist of for the most part: tag values of a scheme of 96 bits,
 * as 24 hexadecimal digits or 12 bytes. They have their forms by one export each, without a look
 * at what else they might be. Whatever is unusual is not plain.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_PLAIN_ROWS_H
#define ROSETAG_TOOLKIT_TRANSLATE_PLAIN_ROWS_H

#include "rosetag/toolkit.hpp"

namespace rosetag {

constexpr std::int32_t PLAIN_ROW_BYTES = 12;

// Holds every form of a plain row.
constexpr std::int32_t PLAIN_ROW_ROOM = 256;

struct PlainRow {
    std::uint8_t bytes[PLAIN_ROW_BYTES];
};

// True if the value begins with the header of a scheme of 96 bits and is as long as that.
bool plainRowRead(std::string_view value, bool isBinary, PlainRow& row);

using PlainRowExport = EpcStatus (*)(std::int32_t bits, const std::uint8_t* binary,
                                     std::int32_t dstSize, char* dst);

// The export that makes a form, or what takes its place; null if there is none.
PlainRowExport plainRowExportOf(Form form);

// Writes a form into PLAIN_ROW_ROOM bytes. False where the export fails.
bool plainRowForm(const PlainRow& row, PlainRowExport convert, char* room);

} // namespace rosetag

#endif
