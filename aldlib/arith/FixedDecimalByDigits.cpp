#include "aldlib/arith/FixedDecimal.h"

// The four operations, rounding and scaling as they are defined, digit by digit. This is the road
// for every corner (values past the limits, zeros, results that vanish, odd signs), and what the
// fast roads of FixedDecimalArithmetic.cpp are held to: while any object has an overflow item, all
// of the arithmetic runs here.
//
// The digits do the work where they can. Where an operand is past the limits, or the result is, the
// 160-bit integers take over: they hold the exact value, which fromMathType keeps in the registry
// behind the limit that it stores.
namespace ald {

// Stores the exact sum or difference and returns its status. The operands may be *this.
DEC_STATUS CDecimal::AddOrSubtractExactly(const CDecimal& left, const CDecimal& right, bool bAdd) {
  const CQuietScope quiet;
  MathType value = left.toMathType();
  if (bAdd) {
    value.op_Add(right.toMathType());
  } else {
    value.op_Subtract(right.toMathType());
  }
  fromMathType(value);
  return GetLastStatus();
}

CDecimal& CDecimal::AddByDigits(const CDecimal& other) {
  CDecimal result;
  DEC_STATUS eStatus = DEC_OK;
  bool bExact = FindItem(this) != nullptr || FindItem(&other) != nullptr;
  if (!bExact) {
    if (IsNegative() == other.IsNegative()) {
      packed::AddDigits(result.m_aBytes, m_aBytes);
      if (packed::AddDigits(result.m_aBytes, other.m_aBytes)) eStatus = DEC_OVERFLOW;
      if (IsNegative()) result.SetNegative();
    } else {
      const CQuietScope quiet;
      result = IsNegative() ? other : *this;
      result.op_Subtract(IsNegative() ? -*this : -other);
      eStatus = GetLastStatus();
    }
    bExact = IsOverflow(eStatus);
  }
  if (bExact) eStatus = result.AddOrSubtractExactly(*this, other, true);
  *this = result;
  RaiseStatus(eStatus, this);
  return *this;
}

CDecimal& CDecimal::SubtractByDigits(const CDecimal& other) {
  CDecimal result;
  DEC_STATUS eStatus = DEC_OK;
  bool bExact = FindItem(this) != nullptr || FindItem(&other) != nullptr;
  if (!bExact) {
    const CQuietScope quiet;
    if (IsNegative() && other.IsNegative()) {
      result = -other;
      result.op_Subtract(-*this);
      eStatus = GetLastStatus();
    } else if (IsNegative() || other.IsNegative()) {
      result = *this;
      result.op_Add(-other);
      eStatus = GetLastStatus();
    } else if (Compare(*this, other) < 0) {
      result = other;
      result.op_Subtract(*this);
      result.SetNegative();
    } else {
      packed::AddDigits(result.m_aBytes, m_aBytes);
      packed::SubtractDigits(result.m_aBytes, other.m_aBytes);
    }
    bExact = IsOverflow(eStatus);
  }
  if (bExact) eStatus = result.AddOrSubtractExactly(*this, other, false);
  *this = result;
  RaiseStatus(eStatus, this);
  return *this;
}

// The limit of a sign, while the exact value stays in the registry.
void CDecimal::StoreLimit(bool bPositive) {
  const CFrozenScope frozen;
  *this = bPositive ? ms_nMaxValue : ms_nMinValue;
}

// The common end of multiplication and division, called quietly: a non-zero result that became zero
// is an underflow.
DEC_STATUS CDecimal::StoreQuotientOrProduct(const MathType& value, bool bSameSigns) {
  fromMathType(value);
  const DEC_STATUS eStatus = GetLastStatus();
  if (IsSuccess(eStatus) && IsZeroDigits()) return DEC_UNDERFLOW;
  if (IsOverflow(eStatus)) StoreLimit(bSameSigns);
  return eStatus;
}

// The product times 10^9, of digits alone. Most amounts have few decimals: trailing zeros that make
// up nine places are dropped from the operands, and then neither a division nor a rounding is
// needed.
CBigInt<160> CDecimal::ProductOfDigits(const CDecimal& right) const {
  const int nLeftZeros = CountTrailingZeroDecimals();
  const int nRightZeros = nLeftZeros == kDecimals ? 0 : right.CountTrailingZeroDecimals();
  if (nLeftZeros + nRightZeros < kDecimals) return RoundedProduct(toMathType(), right.toMathType());
  const int nLeftDrop = nRightZeros == kDecimals ? 0 : nLeftZeros;
  CDecimal left(*this);
  CDecimal other(right);
  left.ShiftDigits(-nLeftDrop);
  other.ShiftDigits(nLeftDrop - kDecimals);
  return left.toMathType() * other.toMathType();
}

CBigInt<160> CDecimal::RoundedProduct(const MathType& left, const MathType& right) {
  MathType product = left * right;
  const MathType& half = ms_anMathDigitToPower10[5][kDecimals - 1];
  if (product.IsNegative()) {
    product -= half;
  } else {
    product += half;
  }
  return product / ms_anMathPowersOf10[kDecimals];
}

// A factor that is a power of ten moves the digits of the other one. Reports in bTaken whether it
// was so.
DEC_STATUS CDecimal::ShiftByPowerShortcut(const CDecimal& right, bool& bTaken) {
  const int nLeftPower = FindPower10();
  const int nRightPower = right.FindPower10();
  bTaken = nLeftPower != kNoPower || nRightPower != kNoPower;
  if (!bTaken) return DEC_OK;

  // With two powers of unlike signs the negative one is moved: a product that vanishes then keeps
  // its minus, whichever operand came first.
  const bool bUnlike = IsNegative() != right.IsNegative();
  bool bMoveRight = nLeftPower != kNoPower;
  if (bMoveRight && nRightPower != kNoPower && bUnlike) bMoveRight = right.IsNegative();

  const CQuietScope quiet;
  DEC_STATUS eStatus = DEC_OK;
  if (bMoveRight) {
    CDecimal moved(right);
    moved.ShiftByPower10(nLeftPower);
    eStatus = GetLastStatus();
    *this = moved;
  } else {
    ShiftByPower10(nRightPower);
    eStatus = GetLastStatus();
  }
  if (bUnlike) {
    SetNegative();
  } else {
    SetPositive();
  }
  return eStatus;
}

CDecimal& CDecimal::MultiplyByDigits(const CDecimal& other) {
  const CDecimal saved(*this);
  const CDecimal& right = &other == this ? saved : other;
  // A copy that is made inside a handler has no item, so the exact values are noted from the
  // operands themselves.
  const MathType leftValue = toMathType();
  const MathType rightValue = other.toMathType();
  DEC_STATUS eStatus = DEC_OK;
  if (Compare(*this, ms_Zero) == 0 || Compare(right, ms_Zero) == 0) {
    SetToZero();
  } else {
    bool bDone = false;
    bool bExact = FindItem(this) != nullptr || FindItem(&other) != nullptr;
    if (!bExact) {
      eStatus = ShiftByPowerShortcut(right, bDone);
      if (IsOverflow(eStatus)) {
        *this = saved;
        bDone = false;
        bExact = true;
      }
    }
    if (!bDone) {
      const CQuietScope quiet;
      eStatus = StoreQuotientOrProduct(
          bExact ? RoundedProduct(leftValue, rightValue) : saved.ProductOfDigits(right),
          saved.IsNegative() == right.IsNegative());
    }
  }
  RaiseStatus(eStatus, this);
  return *this;
}

CDecimal& CDecimal::DivideByDigits(const CDecimal& other) {
  const CDecimal saved(*this);
  const CDecimal& divisor = &other == this ? saved : other;
  const MathType dividendValue = toMathType();
  const MathType divisorValue = other.toMathType();
  DEC_STATUS eStatus = DEC_OK;
  // A zero that is marked negative divides like any other zero, in silence.
  if (Compare(*this, ms_Zero) == 0 || divisorValue.IsZero()) {
    SetToZero();
  } else {
    const CQuietScope quiet;
    bool bDone = false;
    const bool bExact = FindItem(this) != nullptr || FindItem(&other) != nullptr;
    const int nPower = bExact ? kNoPower : divisor.FindPower10();
    if (nPower != kNoPower) {
      ShiftByPower10(-nPower);
      eStatus = GetLastStatus();
      if (IsNegative() == divisor.IsNegative()) {
        SetPositive();
      } else {
        SetNegative();
      }
      bDone = !IsOverflow(eStatus);
      if (!bDone) *this = saved;
    }
    if (!bDone) {
      // Ten decimals, cut; the tenth alone decides the rounding, whatever follows it.
      MathType quotient = dividendValue * ms_anMathPowersOf10[kDecimals + 1] / divisorValue;
      if (quotient.IsNegative()) {
        quotient -= MathType::ms_Five;
      } else {
        quotient += MathType::ms_Five;
      }
      eStatus = StoreQuotientOrProduct(quotient / MathType::ms_Ten,
                                       saved.IsNegative() == divisor.IsNegative());
    }
  }
  RaiseStatus(eStatus, this);
  return *this;
}

CDecimal& CDecimal::RoundByDigits(int nDecimals) {
  DEC_STATUS eStatus = DEC_OK;
  if (nDecimals <= -kWholeDigits) {
    SetToZero();
  } else if (nDecimals < kDecimals) {
    const bool bNegative = IsNegative();
    SetPositive();
    const auto nGoing = static_cast<std::size_t>(kDecimals - nDecimals);
    {
      const CQuietScope quiet;
      op_Add(ms_anRoundAmount[nGoing - 1]);
      eStatus = GetLastStatus();
    }
    const COverflowItem* pItem = IsOverflow(eStatus) ? FindItem(this) : nullptr;
    if (pItem != nullptr) {
      const MathType& unit = ms_anMathPowersOf10[nGoing];
      fromMathType(pItem->m_MathValue / unit * unit);
    } else {
      packed::ClearDigits(m_aBytes, 0, static_cast<int>(nGoing));
    }
    if (bNegative) SetNegative();
  }
  RaiseStatus(eStatus, this);
  return *this;
}

// Neither direction touches the sign nibble or the registry: an overflow has no item, so that no
// handler is called for it, and a negative value whose digits all go stays marked negative until a
// handler clears it.
CDecimal& CDecimal::ShiftByDigits(int n) {
  DEC_STATUS eStatus = DEC_OK;
  const bool bZero = IsZeroDigits();
  if (n >= kDigits) {
    if (!bZero) eStatus = DEC_OVERFLOW;
  } else if (n > 0) {
    if (packed::AreZero(m_aBytes, kDigits - n, kDigits)) {
      ShiftDigits(n);
    } else {
      eStatus = DEC_OVERFLOW;
    }
  } else if (n <= -kDigits) {
    if (!bZero) eStatus = DEC_UNDERFLOW;
    packed::ClearDigits(m_aBytes, 0, kDigits);
  } else if (n < 0) {
    const bool bLost = !packed::AreZero(m_aBytes, 0, -n);
    const int nRoundingDigit = packed::GetDigit(m_aBytes, -n - 1);
    ShiftDigits(n);
    bool bKept = !IsZeroDigits();
    if (nRoundingDigit >= 5) {
      if (IsNegative()) {
        op_Subtract(ms_Smallest);
      } else {
        op_Add(ms_Smallest);
      }
      bKept = true;
    }
    if (bLost && !bKept) eStatus = DEC_UNDERFLOW;
  }
  RaiseStatus(eStatus, this);
  return *this;
}

}  // namespace ald
