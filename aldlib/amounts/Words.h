#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Amounts in words, as they stand on a cheque. The words are numbered texts (20600 to 20637), so a
// module's own table can translate them; each counts with its first 10 characters.
namespace ald {

// Writes an amount in words:
//   1234.56 -> "One Thousand Two Hundred Thirty-Four and 56/100 Dollars"
//   0.45    -> "Zero and 45/100 Dollars"
//   5, bFill, 30 bytes -> "Five and 00/100  ************"
//
// With bFill asterisks take the rest of the buffer, up to its last byte, and the word for dollars
// is left out. Words that do not fit are cut. The caller brings an amount from 0 to 999,999,999,999
// with two decimals; callers rely on what others give:
//   1.999              -> "One and 99/100 Dollars"       further decimals are cut
//   1,234,567,890,123  -> "Two Hundred Thirty-Four Billion ..."   words reach to the billions
//   -1234.56           -> "and -56/100 Dollars"          no words for the whole part
// CheckAmountText takes any amount and writes none of these.
ALDLIB_EXPORT void AmountToWords(const CDecimal& amount, CFixedStringParamRef out, bool bFill);

// The words of one group of three digits; nothing for 0 and for a number above 999.
//   123 -> "One Hundred Twenty-Three"     20 -> "Twenty"
void ThreeDigitsToWords(std::uint16_t nNumber, CFixedStringParamRef out);

// An addition, for printing a cheque without a look at the amount first: the words of the absolute
// value, rounded to the cent half away from zero. Returns true if they stand in `out` in full.
// Otherwise `out` has the word "Void", and the rest asterisks if bFill: for an amount that rounds
// to 1,000,000,000,000 or more, for words that do not fit, and for a word that no module has. Where
// even "Void" has no room there are question marks.
//   1.999 -> "Two and 00/100 Dollars"     -3 -> "Three and 00/100 Dollars"
ALDLIB_EXPORT bool CheckAmountText(const CDecimal& amount, CFixedStringParamRef out, bool bFill);

}  // namespace ald
