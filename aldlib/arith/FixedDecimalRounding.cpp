#include <bit>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/internal/FixedDecimalWords.h"

// Rounding is half away from zero everywhere, by adding 5 to the magnitude and cutting. Scaling by
// powers of ten moves digits.
namespace ald {

CDecimal& CDecimal::Round(int nDecimals) {
  packed::Words words = packed::Load(m_aBytes);
  if (RegistryExists() || !packed::HasPlainSign(words) || nDecimals <= -kWholeDigits ||
      nDecimals >= kDecimals ||
      packed::RoundWords(words, packed::kRounding[static_cast<std::size_t>(kDecimals - nDecimals)]))
      [[unlikely]] {
    return RoundByDigits(nDecimals);
  }
  words.nLow |= std::uint64_t{packed::HasZeroDigits(words)} << 1;  // a zero is positive
  return StoreGood(words);
}

CDecimal& CDecimal::ShiftByPower10(int n) {
  constexpr int kDigitBits = 4 * kDigits;
  packed::Words words = packed::Load(m_aBytes);
  if (RegistryExists() || !packed::HasPlainSign(words) || n <= -kDigits || n >= kDigits)
      [[unlikely]] {
    return ShiftByDigits(n);
  }
  packed::UInt128 nDigits = packed::UInt128{words.nHigh} << 28 | words.nLow >> 4;
  bool bRoundUp = false;
  if (n >= 0) {
    if (nDigits >> (kDigitBits - 4 * n) != 0) return ShiftByDigits(n);
    nDigits <<= 4 * n;
  } else {
    const packed::UInt128 nMoved = nDigits >> (-4 * n);
    bRoundUp = (nDigits >> (-4 * n - 4) & 0xF) >= 5;
    if (nMoved == 0 && !bRoundUp && nDigits != 0) return ShiftByDigits(n);
    nDigits = nMoved;
  }
  words.nHigh = static_cast<std::uint64_t>(nDigits >> 28);
  words.nLow = (static_cast<std::uint64_t>(nDigits) << 4 & packed::kLowDigits) |
               (words.nLow & packed::kSignMask);
  if (bRoundUp) packed::AddToDigits(words, 0, 0x10);
  return StoreGood(words);
}

int CDecimal::FindPower10() const {
  // One bit in all, and that the lowest one of a nibble.
  const packed::Words words = packed::Load(m_aBytes);
  const std::uint64_t nLow = words.nLow & packed::kLowDigits;
  const std::uint64_t nOne = words.nHigh | nLow;
  if ((words.nHigh != 0 && nLow != 0) || !std::has_single_bit(nOne) ||
      (nOne & packed::kUnits) == 0) {
    return kNoPower;
  }
  const int nDigit = std::countr_zero(nOne) / 4;
  return nLow != 0 ? nDigit - 1 - kDecimals : nDigit + 7 - kDecimals;
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
