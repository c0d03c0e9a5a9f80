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

namespace rosetag {

EpcStatus layoutGid96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutGid96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus layoutUsdod96Read(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutUsdod96Write(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);
EpcStatus layoutAdiVarRead(BitBuffer& bits, TextBuffer& text, UriForm form);
EpcStatus layoutAdiVarWrite(TextCursor& cursor, std::uint32_t filter, BitBuffer& bits);

inline constexpr Layout layoutGid96 = {EPC_SCHEME_GID_96, layoutGid96Read, layoutGid96Write};
inline constexpr Layout layoutUsdod96 = {EPC_SCHEME_USDOD_96, layoutUsdod96Read,
                                         layoutUsdod96Write};
inline constexpr Layout layoutAdiVar = {EPC_SCHEME_ADI_VAR, layoutAdiVarRead, layoutAdiVarWrite};

} // namespace rosetag

#endif
