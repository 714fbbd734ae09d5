#include "aldlib/arith/CentRounding.h"

#include "aldlib/arith/Precision.h"

namespace ald {

CDecimal RoundToCent(const CDecimal& value, const CDecimal& cents) {
  CDecimal whole;
  CDecimal fraction;
  value.Split(whole, fraction);
  fraction.SetPositive();
  if (IsEffectivelyZero(value)) return cents;
  if (IsEffectivelyZero(fraction - cents)) return CDecimal(value).Round(2);
  // Below zero the candidate lies under the value whenever its fraction is smaller than the cents;
  // the step up then takes it towards zero. Price lists rely on the result never being lower.
  CDecimal candidate = value >= CDecimal::ms_Zero ? Floor(value) + cents : Ceiling(value) - cents;
  if (candidate < value) candidate += CDecimal::ms_One;
  return candidate;
}

CDecimal Ceiling(const CDecimal& value) {
  CDecimal whole;
  CDecimal fraction;
  value.Split(whole, fraction);
  if (!value.IsNegative() && fraction != CDecimal::ms_Zero) whole.op_Add(CDecimal::ms_One);
  return whole;
}

}  // namespace ald
