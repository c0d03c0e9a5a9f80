/*
 * The layouts of identities that are no GS1 keys: general identifier, US Department of Defense,
 * aerospace and defense. They exist between URIs and binary only.
 *
 * Body: general manager number "." object class "." serial
 *       CAGE or DoDAAC code "." serial
 *       CAGE or DoDAAC code "." part number "." serial
 *
 * Source: EPC Tag Data Standard, section 14.6 (EPC binary coding tables).
 */
#ifndef ROSETAG_SCHEMES_LAYOUT_NON_GS1_H
#define ROSETAG_SCHEMES_LAYOUT_NON_GS1_H

#include "schemes/layout.h"

EpcStatus gid96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus gid96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus usdod96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus usdod96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus adiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus adiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);

inline constexpr Layout layoutGid96 = {EPC_SCHEME_GID_96, gid96Read, gid96Write};
inline constexpr Layout layoutUsdod96 = {EPC_SCHEME_USDOD_96, usdod96Read, usdod96Write};
inline constexpr Layout layoutAdiVar = {EPC_SCHEME_ADI_VAR, adiVarRead, adiVarWrite};

#endif
