#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Reading numbers as people type them, with the separators of the region.
//
//   CDecimal amount;
//   if (!MyStringToReal("(1,234.50)", &amount)) ...      // amount is -1234.5
//
// All of them accept blanks on both sides, thousands separators wherever they stand, parentheses
// around the whole for a minus sign, and the empty entry as 0. Refused, with ok 0 and the value 0:
// a currency sign, a sign behind the number, blanks inside it, a second sign or point, more than 14
// digits before the point, digits that all lie behind the ninth decimal, and texts of more than 44
// characters. No error handler hears of that; CDecimal::GetLastStatus() has the reason, except for
// a text that is too long. A null text counts as empty. The entries look at the first 45 characters
// of what was typed, blanks and separators included: that is what their fields hold.
//
// Auto decimal (Precision.h) lets the money and quantity entries take a number without a point as
// one with its decimals implied:
//
//   "1234" -> 12.34     "5" -> 0.05     "(1234)" -> -12.34     "12.3" -> 12.3     "" -> 0
namespace ald {

// Brings a typed number to canonical text, in place: deletes the thousands separators, turns the
// decimal separator into ".", trims blanks, and makes "(12)" "-12". What is no number stays for the
// parser to refuse: "$5", "12-", "(12".
ALDLIB_EXPORT void PrepString4RealConv(CFixedStringParamRef text);

// Reads canonical text from *pnPosition to its end, and moves *pnPosition there, or 45 characters
// on in a longer text. A position behind the end of the text reads as empty and stays. A null
// position counts as 0.
ALDLIB_EXPORT void StringToReal(const char* szText, std::uint16_t* pnPosition, CDecimal* pValue,
                                unsigned char* pbOk);

// A number, without auto decimal. Returns ok.
ALDLIB_EXPORT unsigned char MyStringToRealWithNoExtras(const char* szText, CDecimal* pValue);
// The same, rounded to GetRealPrecision() decimals.
ALDLIB_EXPORT unsigned char MyStringToQtyWithNoExtras(const char* szText, CDecimal* pValue);

// Money: auto decimal implies CurrencyPrecision decimals. The value is not rounded.
ALDLIB_EXPORT unsigned char MyStringToReal(const char* szText, CDecimal* pValue);
// A quantity: auto decimal implies GetRealPrecision() decimals, and the value is rounded to them.
ALDLIB_EXPORT unsigned char MyStringToQty(const char* szText, CDecimal* pValue);

// Puts thousands separators into a whole number that stands right-aligned in its field. Each takes
// up one of the blanks at the left, so the length stays; where there is none left, no more go in.
// Counts from the right end: a number with decimals is not understood. A text with "?" is left.
//   "    1234567" -> "  1,234,567"     " 1234567" -> "1234,567"     "1234567" -> "1234567"
ALDLIB_EXPORT void AddCommasToQtyString(CFixedStringParamRef text);

// Deletes every ",", whatever the region's separator is. A text with "?" is left.
ALDLIB_EXPORT void RemoveCommasFromQtyString(CFixedStringParamRef text);

}  // namespace ald
