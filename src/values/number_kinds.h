/*
 * Kinds of AI components that are numbers: as one binary number of fixed or of variable digit
 * count, or digit by digit.
 *
 * Source: EPC Tag Data Standard, sections 14.5.2, 14.5.4, 14.5.6.1 and 14.5.13.
 */
#ifndef ROSETAG_VALUES_NUMBER_KINDS_H
#define ROSETAG_VALUES_NUMBER_KINDS_H

#include "values/ai_kind.h"

namespace rosetag {

// A fixed count of digits as one number.
EpcStatus aiEncodeNumeric(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeNumeric(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// A fixed count of digits, 4 bits each. The encoder leaves what follows them on the cursor.
EpcStatus aiEncodeDigits(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDigits(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// A count of digits, and the digits as one number.
EpcStatus aiEncodeVarNumeric(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeVarNumeric(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// The digits up to the end of the cursor as one number of the width that that many digits take; no
// bits for no digits.
EpcStatus aiEncodeInteger(TextCursor& cursor, BitBuffer& out);
EpcStatus aiDecodeInteger(BitBuffer& bits, TextBuffer& text, std::int32_t digitCount);

} // namespace rosetag

#endif
