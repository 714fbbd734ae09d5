#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <type_traits>

#include "aldlib/arith/FixedDecimal.h"

// To and from the math type, double and the integer types.
namespace ald {

CBigInt<160> CDecimal::toMathType() const {
  const COverflowItem* pItem = FindItem(this);
  if (pItem != nullptr) return pItem->m_MathValue;
  MathType value;
  for (int i = 0; i < kDigits; ++i) {
    // A damaged record can hold a nibble that is no digit: it counts as 9.
    const auto nDigit = static_cast<std::size_t>(std::min(packed::GetDigit(m_aBytes, i), 9));
    if (nDigit != 0) value.op_Add(ms_anMathDigitToPower10[nDigit][static_cast<std::size_t>(i)]);
  }
  return IsNegative() ? -value : value;
}

// The boundary between exact values and 23 digits, and the one place where overflow is found and
// recorded.
CDecimal& CDecimal::fromMathType(const MathType& value) {
  const MathType exact = value;
  SetToZero();

  int nCount = 0;
  for (MathType rest = exact.Abs(); !rest.IsZero(); ++nCount) {
    MathType digit;
    rest.DivideWithRemainder(MathType::ms_Ten, digit);
    SetDigit(nCount, static_cast<int>(digit.m_aWords[0]));
  }
  const DEC_STATUS eStatus = nCount > kDigits ? DEC_OVERFLOW : DEC_OK;
  if (IsOverflow(eStatus)) *this = ms_nMaxValue;
  if (exact.IsNegative()) SetNegative();
  if (IsOverflow(eStatus)) InsertOrUpdateOverflowItem(eStatus, this, exact);
  RaiseStatus(eStatus, this);
  return *this;
}

// The whole part and the fraction go separate ways, so that the binary noise of the fraction is
// rounded away at the ninth decimal and never touches the whole part.
CDecimal& CDecimal::fromDouble(double value) {
  if (!std::isfinite(value)) value = 0.0;
  double whole = 0;
  double fraction = std::modf(value, &whole) * 1e9;
  fraction += fraction >= 0 ? 0.5 : -0.5;

  MathType sum;
  sum.fromDouble(whole, false);
  DEC_STATUS eStatus = ConvertMathErrorToDecStatus(MathType::GetMathError());
  if (IsSuccess(eStatus)) {
    MathType decimals;
    decimals.fromDouble(fraction, false);
    sum.op_Multiply(ms_anMathPowersOf10[kDecimals]);
    sum.op_Add(decimals);
    eStatus = ConvertMathErrorToDecStatus(MathType::GetMathError());
  }

  if (IsSuccess(eStatus)) {
    const CQuietScope quiet;
    fromMathType(sum);
    eStatus = GetLastStatus();
    if (IsSuccess(eStatus) && sum.IsZero() && value != 0.0) eStatus = DEC_UNDERFLOW;
  } else if (eStatus == DEC_OVERFLOW) {
    fromMathType(value < 0 ? MathType::minValue() : MathType::maxValue());
  } else {
    SetToZero();
  }
  RaiseStatus(eStatus, this);
  return *this;
}

double CDecimal::toDouble() const {
  const TextType text = toRawString(kDecimals);
  const std::string_view sText = text.view();
  double result = 0;
  std::from_chars(sText.data(), sText.data() + sText.size(), result);
  return result;
}

template <class TInteger>
TInteger CDecimal::toIntType(bool bRound) const {
  constexpr bool kWide =
      std::is_same_v<TInteger, long long> || std::is_same_v<TInteger, unsigned long long>;
  using Fold = std::conditional_t<kWide, std::uint64_t, std::uint32_t>;

  CDecimal copy(*this);
  if (bRound) {
    // An observer: neither the handler nor the last status hears of the rounding.
    const DEC_STATUS eLastStatus = GetLastStatus();
    const CQuietScope quiet;
    copy.Round(0);
    m_pTlsData->m_eLastStatus = eLastStatus;
  }
  if constexpr (kWide) {
    if (const COverflowItem* pItem = FindItem(&copy)) {
      const MathType whole = pItem->m_MathValue / ms_anMathPowersOf10[kDecimals];
      return static_cast<TInteger>(std::uint64_t{whole.m_aWords[1]} << 32 | whole.m_aWords[0]);
    }
  }
  Fold nFold = 0;
  for (int i = kDigits - 1; i >= kDecimals; --i) {
    nFold = nFold * 10 + static_cast<Fold>(packed::GetDigit(copy.m_aBytes, i));
  }
  if (copy.IsNegative()) nFold = 0 - nFold;
  // A fold of 32 bits is a number of 32 bits: signed types read its top bit as the sign, whatever
  // their own width.
  if constexpr (std::is_signed_v<TInteger>) {
    return static_cast<TInteger>(static_cast<std::make_signed_t<Fold>>(nFold));
  } else {
    return static_cast<TInteger>(nFold);
  }
}

template short CDecimal::toIntType<short>(bool) const;
template unsigned short CDecimal::toIntType<unsigned short>(bool) const;
template int CDecimal::toIntType<int>(bool) const;
template unsigned int CDecimal::toIntType<unsigned int>(bool) const;
template long CDecimal::toIntType<long>(bool) const;
template unsigned long CDecimal::toIntType<unsigned long>(bool) const;
template long long CDecimal::toIntType<long long>(bool) const;
template unsigned long long CDecimal::toIntType<unsigned long long>(bool) const;

}  // namespace ald
