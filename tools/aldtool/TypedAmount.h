#pragma once

#include <string>
#include <string_view>

#include "aldlib/arith/FixedDecimal.h"

namespace aldtool {

// Both take a text in code page 1252 and return a sentence without a subject that says what is
// wrong with it, or an empty text.

// Reads an amount the way a money field of the application does, under the regional settings.
//   "$5" -> "cannot be read: '$' is no part of a number (DEC_TRUNCATED)"
std::string ReadTypedAmount(std::string_view sText, ald::CDecimal& amount);

// Looks for what reads as a number and may well be meant as another one: thousands separators that
// do not part off three digits ("12,50"), and decimals that would be rounded away.
std::string DoubtAbout(std::string_view sText);

}  // namespace aldtool
