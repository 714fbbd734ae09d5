#include "aldlib/arith/FixedDecimal.h"

// Rounding is half away from zero everywhere, by adding 5 to the magnitude and cutting. Scaling by
// powers of ten moves digits.
namespace ald {

CDecimal& CDecimal::Round(int nDecimals) {
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
CDecimal& CDecimal::ShiftByPower10(int n) {
  DEC_STATUS eStatus = DEC_OK;
  const bool bZero = Compare(*this, ms_Zero) == 0;
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

int CDecimal::FindPower10() const {
  int nFound = kNoPower;
  for (int i = 0; i < kDigits; ++i) {
    const int nDigit = packed::GetDigit(m_aBytes, i);
    if (nDigit == 0) continue;
    if (nDigit != 1 || nFound != kNoPower) return kNoPower;
    nFound = i - kDecimals;
  }
  return nFound;
}

int CDecimal::CountTrailingZeroDecimals() const {
  int nCount = 0;
  while (nCount < kDecimals && packed::GetDigit(m_aBytes, nCount) == 0) ++nCount;
  return nCount;
}

void CDecimal::Split(CDecimal& whole, CDecimal& fraction) const {
  CDecimal wholePart(*this);
  CDecimal fractionPart(*this);
  packed::ClearDigits(wholePart.m_aBytes, 0, kDecimals);
  packed::ClearDigits(fractionPart.m_aBytes, kDecimals, kDigits);
  if (wholePart.IsZeroDigits()) wholePart.SetPositive();
  if (fractionPart.IsZeroDigits()) fractionPart.SetPositive();
  whole = wholePart;
  fraction = fractionPart;
}

CDecimal Floor(const CDecimal& value) {
  CDecimal whole;
  CDecimal fraction;
  value.Split(whole, fraction);
  if (value.IsNegative() && fraction != CDecimal::ms_Zero) {
    whole.op_Subtract(CDecimal::ms_One);
  }
  return whole;
}

// No squaring: rounding at every step is the result that callers know.
CDecimal CDecimal::pow(const CDecimal& base, int n) {
  const CQuietScope quiet;
  CDecimal result(ms_One);
  const unsigned nTimes = n < 0 ? 0U - static_cast<unsigned>(n) : static_cast<unsigned>(n);
  for (unsigned i = 0; i < nTimes; ++i) {
    const CDecimal before(result);
    result.op_Multiply(base);
    // A product that leaves the value as it was does so for ever after, with the same status.
    if (result.m_aBytes == before.m_aBytes && Compare(result, before) == 0) break;
  }
  if (n < 0) {
    CDecimal inverse(ms_One);
    inverse.op_Divide(result);
    result = inverse;
  }
  return result;
}

CDecimal CDecimal::pow10(int n) {
  CDecimal result;
  DEC_STATUS eStatus = DEC_OK;
  if (n < -kDecimals) {
    eStatus = DEC_UNDERFLOW;
  } else if (n >= kWholeDigits) {
    constexpr int kLargestPower = 46;
    const auto nPower =
        static_cast<std::size_t>(n > kLargestPower - kDecimals ? kLargestPower : n + kDecimals);
    eStatus = DEC_OVERFLOW;
    result = ms_nMaxValue;
    InsertOrUpdateOverflowItem(eStatus, &result, ms_anMathPowersOf10[nPower]);
  } else {
    result = ms_anPowersOf10[static_cast<std::size_t>(n + kDecimals)];
  }
  RaiseStatus(eStatus, &result);
  return result;
}

}  // namespace ald
