#pragma once

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"

// Rounding of prices. Rounding to a number of places is CFixedDecimal<23, 9>::Round.
namespace ald {

// The nearest amount at or above the value whose fraction is `cents` (0 to 0.99 or so): prices that
// end in 0.99. A value that ends in those cents already is returned rounded to two places, whatever
// CurrencyPrecision is, and what is effectively zero gives the cents themselves.
//
//   value    cents    result
//    12.34   0.99      12.99
//    12.99   0.99      12.99
//    12.995  0.99      13.99
//     0      0.99       0.99
//   -12.34   0.99     -11.99     on purpose: at or above, and so towards zero
//   -12.99   0.99     -12.99
[[nodiscard]] ALDLIB_EXPORT CDecimal RoundToCent(const CDecimal& value, const CDecimal& cents);

// The smallest whole number not below the value; Floor stands in FixedDecimal.h.
[[nodiscard]] ALDLIB_EXPORT CDecimal Ceiling(const CDecimal& value);

}  // namespace ald
