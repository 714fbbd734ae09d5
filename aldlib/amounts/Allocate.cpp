#include "aldlib/amounts/Allocate.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

#include "aldlib/arith/Precision.h"

namespace ald {
namespace {

using MathType = CDecimal::MathType;

struct Share {
  std::size_t nPart;
  MathType cents;      // the exact share, cut
  MathType remainder;  // what the cut took, in units of 1 / the sum of the weights
};

MathType ToMath(const CDecimal& weight) {
  return weight.toMathType();
}
MathType ToMath(std::int64_t nWeight) {
  return MathType(nWeight);
}

// Below 10^23 in both factors, so that their product fits with its sign.
bool IsInRange(const MathType& value) {
  return value < CDecimal::ms_anMathPowersOf10[CDecimal::kDigits];
}

template <class TWeight>
Allocation Split(const CDecimal& amount, std::span<const TWeight> weights,
                 std::span<CDecimal> parts) {
  if (weights.empty()) return Allocation::NoWeights;
  if (weights.size() != parts.size()) return Allocation::SizesDiffer;
  MathType sum;
  for (const TWeight& weight : weights) {
    const MathType value = ToMath(weight);
    if (value < MathType::ms_Zero) return Allocation::NegativeWeight;
    if (!IsInRange(value)) return Allocation::OutOfRange;
    sum += value;
  }
  if (sum == MathType::ms_Zero) return Allocation::AllWeightsZero;

  const int nPlaces = std::min<int>(CurrencyPrecision, CDecimal::kDecimals);
  const MathType& cent =
      CDecimal::ms_anMathPowersOf10[static_cast<std::size_t>(CDecimal::kDecimals - nPlaces)];
  MathType total = amount.toMathType();
  const bool bNegative = total < MathType::ms_Zero;
  if (bNegative) total = -total;
  if (!IsInRange(total)) return Allocation::OutOfRange;
  MathType rest;
  total.DivideWithRemainder(cent, rest);
  if (rest != MathType::ms_Zero) return Allocation::NotInCents;

  std::vector<Share> shares;
  shares.reserve(weights.size());
  MathType left = total;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    Share share{i, total * ToMath(weights[i]), {}};
    share.cents.DivideWithRemainder(sum, share.remainder);
    left -= share.cents;
    shares.push_back(share);
  }
  // Fewer cents are left than parts that lost something: nobody gets two, and no weight of 0 one.
  const std::size_t nLeft = left.m_aWords[0];
  std::nth_element(shares.begin(), shares.begin() + static_cast<std::ptrdiff_t>(nLeft),
                   shares.end(), [](const Share& a, const Share& b) {
                     if (a.remainder != b.remainder) return a.remainder > b.remainder;
                     return a.nPart < b.nPart;
                   });
  for (std::size_t i = 0; i < shares.size(); ++i) {
    MathType cents = shares[i].cents;
    if (i < nLeft) cents += MathType::ms_One;
    parts[shares[i].nPart].fromMathType((bNegative ? -cents : cents) * cent);
  }
  return Allocation::Done;
}

}  // namespace

Allocation Allocate(const CDecimal& amount, std::span<const CDecimal> weights,
                    std::span<CDecimal> parts) try {
  return Split(amount, weights, parts);
} catch (const std::bad_alloc&) {
  return Allocation::NoMemory;
}

Allocation Allocate(const CDecimal& amount, std::span<const std::int64_t> weights,
                    std::span<CDecimal> parts) try {
  return Split(amount, weights, parts);
} catch (const std::bad_alloc&) {
  return Allocation::NoMemory;
}

const char* AllocationName(Allocation eResult) {
  switch (eResult) {
    case Allocation::Done:
      return "Done";
    case Allocation::NoWeights:
      return "NoWeights";
    case Allocation::SizesDiffer:
      return "SizesDiffer";
    case Allocation::NegativeWeight:
      return "NegativeWeight";
    case Allocation::AllWeightsZero:
      return "AllWeightsZero";
    case Allocation::NotInCents:
      return "NotInCents";
    case Allocation::OutOfRange:
      return "OutOfRange";
    case Allocation::NoMemory:
      return "NoMemory";
  }
  return "?";
}

}  // namespace ald
