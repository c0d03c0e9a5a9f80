/*
 * AIs as results have them, and the numbers that people know an object by.
 */
#ifndef ROSETAG_TOOLKIT_TRANSLATE_NUMBERS_H
#define ROSETAG_TOOLKIT_TRANSLATE_NUMBERS_H

#include <rosetag/toolkit.hpp>

namespace rosetag {

inline constexpr FormSet AI_FORMS = Form::AIS | Form::GTIN | Form::SERIAL;

void addAi(Translation& result, std::string_view code, std::string_view value);

// Fills the numbers that were asked for from the AIs.
void addNumbers(FormSet wanted, Translation& result);

} // namespace rosetag

#endif
