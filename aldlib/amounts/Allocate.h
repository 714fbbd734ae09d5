#pragma once

#include <cstdint>
#include <span>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"

// Splitting an amount of money over several accounts, owners or months without losing a cent. An
// addition to the application's own rules.
namespace ald {

enum class Allocation : std::int32_t {
  Done,
  NoWeights,    // there is nothing to split over
  SizesDiffer,  // as many parts as weights are wanted
  NegativeWeight,
  AllWeightsZero,
  NotInCents,  // the amount has decimals behind the last place of money
  OutOfRange,  // the amount or a weight is past the limits of a stored value
  NoMemory,
};

// Splits `amount` over the weights, into parts that are whole in the last place of money
// (CurrencyPrecision) and whose sum is the amount exactly. Each part is its exact share cut to
// that place; what is left over goes out in single cents to the parts that lost most by the cut,
// and among equals to the first. So no part is a whole cent away from its exact share, a weight of
// 0 gets 0, and a negative amount splits as its opposite does.
//
//   100.00 over 1, 1, 1       -> 33.34 33.33 33.33
//   100.00 over 0.5, 0.3, 0.2 -> 50.00 30.00 20.00
//    -0.05 over 1, 0, 1       -> -0.03  0.00 -0.02
//
// `parts` may be the weights' own memory. On any result but Done they stay as they were.
[[nodiscard]] ALDLIB_EXPORT Allocation Allocate(const CDecimal& amount,
                                                std::span<const CDecimal> weights,
                                                std::span<CDecimal> parts);
[[nodiscard]] ALDLIB_EXPORT Allocation Allocate(const CDecimal& amount,
                                                std::span<const std::int64_t> weights,
                                                std::span<CDecimal> parts);

// The name of the result, such as "NegativeWeight"; "?" for a number that is none.
[[nodiscard]] ALDLIB_EXPORT const char* AllocationName(Allocation eResult);

}  // namespace ald
