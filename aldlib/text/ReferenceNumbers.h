#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Stepping a reference such as an invoice or cheque number. The number in it is the last run of
// digits; whatever stands around that stays.
namespace ald {

// The next reference. All nines take one digit more while the buffer has room, and else wrap to
// zeros. A reference without a digit gets a "1" at its end, over its last character if it is full;
// the empty one stays empty.
//   "A1B2" -> "A1B3"     "99-B" -> "100-B"     "9" -> "10"     "ABC" -> "ABC1"
//   "A9" in CFixedString<3> -> "A0"
ALDLIB_EXPORT void TextIncrement(CFixedStringParamRef ref) noexcept;

// The one before. The width stays, but for a leading zero of seven digits or more, which is
// dropped; then, with text behind the number, the first character of that text comes twice. Below
// zero the first digit becomes "/", the character before "0". A reference without a
// digit gets a "0" at its end if there is room.
//   "100" -> "099"     "1000000" -> "999999"     "1000000-B" -> "999999--B"
//   "0" -> "/"         "A000" -> "A/99"          "ABC" -> "ABC0"
ALDLIB_EXPORT void TextDecrement(CFixedStringParamRef ref) noexcept;

}  // namespace ald
