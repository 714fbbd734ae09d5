#pragma once

#include <cstdint>

#include "aldlib/arith/DecimalLiteral.h"

namespace alder_checks {

// What these controls tell their parent when the user leaves them: their text is in order by then.
constexpr std::uint32_t kNoticeLeft = 0x0200;

// The largest amount that is written with digits; those above would show as question marks.
constexpr ald::CDecimal kLargestShown = ald::literals::operator""_dec("999999999.99");

// Adds the two kinds of edit control that the program's screens are made of to the desktop in use.
// Both select their whole text when the user comes to them, so that typing replaces it.
//
//   "ABD_EditDate"   shows a date in its medium form; what is typed ("7/4", "0704", "4") is read
//                    beside TodaysDate. Answers kMessageReadDate and kMessageWriteDate. A text that
//                    is no date stays as typed when it is left, and reads as a date that is not
//                    legal.
//   "ABD_Dollars"    shows money; what is typed ("1234.5", "(12)") is put in order when it is left,
//                    unless it is no number or
//                    above kLargestShown.
//
// False if the desktop has classes of these names already.
bool RegisterEditKinds();

}  // namespace alder_checks
