/*
 * The layouts of the GS1 keys whose reference has no exact count of digits: the GIAI and the CPI,
 * each with a number and with a string as reference.
 *
 * Body: company prefix "." asset reference
 *       company prefix "." component reference "." serial
 *
 * Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables).
 */
#ifndef ROSETAG_SCHEMES_LAYOUT_GIAI_CPI_H
#define ROSETAG_SCHEMES_LAYOUT_GIAI_CPI_H

#include "schemes/layout.h"

EpcStatus giai96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus giai96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus giai202Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus giai202Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus cpi96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus cpi96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus cpiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus cpiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);

inline constexpr Layout layoutGiai96 = {EPC_SCHEME_GIAI_96, giai96Read, giai96Write};
inline constexpr Layout layoutGiai202 = {EPC_SCHEME_GIAI_202, giai202Read, giai202Write};
inline constexpr Layout layoutCpi96 = {EPC_SCHEME_CPI_96, cpi96Read, cpi96Write};
inline constexpr Layout layoutCpiVar = {EPC_SCHEME_CPI_VAR, cpiVarRead, cpiVarWrite};

#endif
