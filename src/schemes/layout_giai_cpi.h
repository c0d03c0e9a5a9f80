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

namespace rosetag {

EpcStatus layoutGiai96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutGiai96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus layoutGiai202Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutGiai202Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus layoutCpi96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutCpi96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus layoutCpiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutCpiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);

inline constexpr Layout layoutGiai96 = {EPC_SCHEME_GIAI_96, layoutGiai96Read, layoutGiai96Write};
inline constexpr Layout layoutGiai202 = {EPC_SCHEME_GIAI_202, layoutGiai202Read,
                                         layoutGiai202Write};
inline constexpr Layout layoutCpi96 = {EPC_SCHEME_CPI_96, layoutCpi96Read, layoutCpi96Write};
inline constexpr Layout layoutCpiVar = {EPC_SCHEME_CPI_VAR, layoutCpiVarRead, layoutCpiVarWrite};

} // namespace rosetag

#endif
