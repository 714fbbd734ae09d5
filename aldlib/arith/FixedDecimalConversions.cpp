#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <type_traits>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/internal/FixedDecimalWords.h"

// To and from the math type, double and the integer types.
namespace ald {

namespace {

constexpr std::uint64_t kTenTo7 = 10'000'000;
constexpr std::uint64_t kTenTo8 = 100'000'000;
constexpr std::uint64_t kTenTo16 = 10'000'000'000'000'000;

packed::UInt128 LowWordsOf(const CDecimal::MathType& value) {
  packed::UInt128 n = 0;
  for (int i = 3; i >= 0; --i) n = n << 32 | value.m_aWords[i];
  return n;
}

CDecimal::MathType MathOf(packed::UInt128 nMagnitude, bool bNegative) {
  CDecimal::MathType value;
  const packed::UInt128 n = bNegative ? 0 - nMagnitude : nMagnitude;
  for (int i = 0; i < 4; ++i) value.m_aWords[i] = static_cast<std::uint32_t>(n >> (32 * i));
  value.m_aWords[4] = bNegative && nMagnitude != 0 ? ~0U : 0U;
  return value;
}

template <class TInteger>
constexpr bool kWide =
    std::is_same_v<TInteger, long long> || std::is_same_v<TInteger, unsigned long long>;

// A fold of 32 bits is a number of 32 bits: signed types read its top bit as the sign, whatever
// their own width.
template <class TInteger>
TInteger FoldTo(std::uint64_t nWhole, bool bNegative) {
  using Fold = std::conditional_t<kWide<TInteger>, std::uint64_t, std::uint32_t>;
  const auto nFold = static_cast<Fold>(bNegative ? 0 - nWhole : nWhole);
  if constexpr (std::is_signed_v<TInteger>) {
    return static_cast<TInteger>(static_cast<std::make_signed_t<Fold>>(nFold));
  } else {
    return static_cast<TInteger>(nFold);
  }
}

}  // namespace

CBigInt<160> CDecimal::toMathType() const {
  if (const COverflowItem* pItem = FindItem(this)) return pItem->m_MathValue;
  // Sixteen digits, and seven that count ten times.
  const std::uint64_t nHigh = packed::BinaryOfHighs(m_aBytes, m_aBytes).nFirst;
  const std::uint64_t nLow = packed::BinaryOfLows(m_aBytes, m_aBytes).nFirst / 10;
  return MathOf(packed::UInt128{nHigh} * kTenTo7 + nLow, IsNegative());
}

CDecimal& CDecimal::fromMathType(const MathType& value) {
  if (RegistryExists()) return fromMathByDigits(value);
  const bool bNegative = value.IsNegative();
  const MathType magnitude = value.Abs();
  const packed::UInt128 nMagnitude = LowWordsOf(magnitude);
  // The quotient by 10^7 fits a word for sure where the upper word is below it.
  if (magnitude.m_aWords[4] != 0 || nMagnitude >> 64 >= kTenTo7) return fromMathByDigits(value);
  const auto [nHigh, nLow] = packed::Divide128By64(nMagnitude, kTenTo7);
  if (nHigh >= kTenTo16) return fromMathByDigits(value);
  const auto nSign = bNegative && nMagnitude != 0 ? packed::kNegative : packed::kPositive;
  packed::StoreDigits(packed::FoursOf(nHigh / kTenTo8), nHigh % kTenTo8, nLow * 10, nSign,
                      m_aBytes);
  return MarkGood();
}

// The boundary between exact values and 23 digits, and the one place where overflow is found and
// recorded.
CDecimal& CDecimal::fromMathByDigits(const MathType& value) {
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
  if (!RegistryExists()) [[likely]] {
    const packed::Words words = packed::Load(m_aBytes);
    std::uint64_t nWhole = packed::BinaryOf(words.nHigh >> 8, 0).nFirst;
    if (bRound && (words.nHigh >> 4 & 0xF) >= 5) ++nWhole;
    // Rounded past the limit it is the corner of the exact values below.
    if (nWhole <= kLargestWhole) return FoldTo<TInteger>(nWhole, IsNegative());
  }

  CDecimal copy(*this);
  if (bRound) {
    // An observer: neither the handler nor the last status hears of the rounding.
    const DEC_STATUS eLastStatus = GetLastStatus();
    const CQuietScope quiet;
    copy.Round(0);
    m_pTlsData->m_eLastStatus = eLastStatus;
  }
  if constexpr (kWide<TInteger>) {
    if (const COverflowItem* pItem = FindItem(&copy)) {
      const MathType whole = pItem->m_MathValue / ms_anMathPowersOf10[kDecimals];
      return static_cast<TInteger>(std::uint64_t{whole.m_aWords[1]} << 32 | whole.m_aWords[0]);
    }
  }
  std::uint64_t nWhole = 0;
  for (int i = kDigits - 1; i >= kDecimals; --i) {
    nWhole = nWhole * 10 + static_cast<std::uint64_t>(packed::GetDigit(copy.m_aBytes, i));
  }
  return FoldTo<TInteger>(nWhole, copy.IsNegative());
}

// At most 14 digits.
void CDecimal::StoreWhole(std::uint64_t nMagnitude, bool bNegative) {
  const std::uint64_t nTop = nMagnitude / 1'000'000;
  packed::StoreDigits(packed::FoursOf(nTop), (nMagnitude - nTop * 1'000'000) * 100, 0,
                      bNegative ? packed::kNegative : packed::kPositive, m_aBytes);
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
