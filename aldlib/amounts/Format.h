#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Writing numbers and money for people, with the separators of the region.
//
//   CFixedString<16> sField;
//   MyRealToString(1234.5_dec, sField, 2, 12);            // "    1,234.50"
//   DollarsToString(-1234.56_dec, sField, 0, '(');        // "(1,234.56)"
//
// A number is never cut: where it does not fit, or is 1,000,000,000 or more either way, question
// marks stand in its place, so that a wrong figure cannot pass for a right one. Thousands
// separators are the first thing to be given up. Rounding is half away from zero.
//
// Nothing here allocates or calls the error handler. A buffer's capacity is its size less the
// terminator; what stands behind the text in it is zeroed.
namespace ald {

// The three ways of writing a negative amount. Any other character counts as kMoneyMinus.
constexpr char kMoneyMinus = '-';        // "-1,234.56"
constexpr char kMoneyParentheses = '(';  // "(1,234.56)"
constexpr char kMoneyNoSign = ' ';       // "1,234.56", for columns whose heading tells the sign

// Writes a number with nWidth - nWhole decimals at *pnPosition, right-aligned in nWidth + 2
// characters or as many as it needs, with "." and without other separators. If that fits,
// *pnPosition moves behind it and *pbOk is 1. If not, *pbOk is 0, question marks fill the buffer
// from *pnPosition on, and *pnPosition is the capacity. A null position counts as 0.
ALDLIB_EXPORT void RealToStringFixed(const CDecimal& value, int nWidth, int nWhole,
                                     CFixedStringParamRef out, int* pnPosition,
                                     unsigned char* pbOk);

// A number right-aligned in nWidth characters, with separators as far as there are blanks to give
// up for them. Without decimals it gets no thousands separators. A width above the capacity gives
// question marks all over; a number that needs more than nWidth is written as long as the buffer
// holds it.
//   1234567.891, 2 decimals:  width 14 "  1,234,567.89"     width 11 "1234,567.89"
//                    width 10 "1234567.89"
//   1234.5, 0 decimals, width 8: "    1235"
ALDLIB_EXPORT void MyRealToString(const CDecimal& value, CFixedStringParamRef out,
                                  std::uint16_t nDecimals, std::uint16_t nWidth);
ALDLIB_EXPORT void MyQtyToString(const CDecimal& value, CFixedStringParamRef out,
                                 std::uint16_t nDecimals, std::uint16_t nWidth);

// A number in at most 23 blanks' width, trimmed, with the region's decimal separator and no others.
// Returns whether it fitted; otherwise there are question marks. A null value gives them too.
ALDLIB_EXPORT std::int16_t MyDoubleToStringNoCommas(const CDecimal* pValue,
                                                    CFixedStringParamRef out,
                                                    std::int16_t nDecimals);

// Money with CurrencyPrecision decimals, trimmed; the value is negated first if bNegate is not 0.
// What would print as zero has no sign: less than half a cent either way is "0.00". The currency
// sign is not written.
//
//   value       '-'          '('            ' '
//   -1234.56    -1,234.56    (1,234.56)     1,234.56
//   -0.004      0.00         0.00           0.00
//
// In parentheses a number that fills its field up to the first column has the closing one alone,
// "1234.56)", which readers take for what it is; where even that has no room, "(" and question
// marks stand.
ALDLIB_EXPORT void DollarsToString(const CDecimal& value, CFixedStringParamRef out,
                                   unsigned char bNegate, char cFormat);

// Appends money, right-aligned in all the room that is left, in at most nWidth characters and no
// more than the room. To get there it gives up thousands separators from the left, one at a time;
// if that is not enough, nWidth question marks are appended.
//   1234567.89:  width 12 "1,234,567.89"    width 11 "1234,567.89"    width 9 "?????????"
ALDLIB_EXPORT void AppendRtoString(CFixedStringParamRef out, const CDecimal& value, int nWidth,
                                   char cFormat);

// The same for a number with CurrencyPrecision decimals, a leading "-" and no thousands separators.
ALDLIB_EXPORT void AppendRtoStringNoComma(CFixedStringParamRef out, const CDecimal& value,
                                          int nWidth);

}  // namespace ald
