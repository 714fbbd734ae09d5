#include "aldlib/arith/FixedDecimal.h"

#include <utility>

#include "aldlib/arith/Precision.h"

// The value itself: constants, sign, order, and the constructors that can leave the range.
// Everything here is constant-initialised, so that no order of static initialisation matters.
namespace ald {

namespace {

constexpr CDecimal OneDigit(int nDigit, int nValue, std::uint8_t nSign = packed::kPositive) {
  packed::Bytes bytes = packed::kZero;
  packed::SetDigit(bytes, nDigit, nValue);
  packed::SetSign(bytes, nSign);
  return CDecimal::FromBytes(bytes);
}

template <std::size_t... kDigit>
constexpr std::array<CDecimal, sizeof...(kDigit)> OneDigitEach(int nValue,
                                                               std::index_sequence<kDigit...>) {
  return {OneDigit(static_cast<int>(kDigit), nValue)...};
}

// The product with a small factor, for the tables; the values are far below the limits.
template <class TMath>
constexpr TMath Times(const TMath& value, std::uint32_t nFactor) {
  TMath result;
  std::uint64_t nCarry = 0;
  for (int i = 0; i < TMath::kWords; ++i) {
    nCarry += std::uint64_t{value.m_aWords[i]} * nFactor;
    result.m_aWords[i] = static_cast<std::uint32_t>(nCarry);
    nCarry >>= 32;
  }
  return result;
}

template <class TMath>
constexpr std::array<TMath, 47> PowersOf10(std::uint32_t nFactor) {
  std::array<TMath, 47> aPowers{};
  TMath power(1);
  for (std::size_t i = 0; i < aPowers.size(); ++i) {
    aPowers[i] = Times(power, nFactor);
    power = Times(power, 10);
  }
  return aPowers;
}

template <class TMath>
constexpr std::array<std::array<TMath, 47>, 10> DigitTimesPowersOf10() {
  std::array<std::array<TMath, 47>, 10> aRows{};
  for (std::uint32_t nDigit = 0; nDigit < 10; ++nDigit) aRows[nDigit] = PowersOf10<TMath>(nDigit);
  return aRows;
}

}  // namespace

constinit CDecimal::CALWThreadData CDecimal::m_pTlsData_storage{&CDecimal::DefaultErrorHandler,
                                                                DEC_OK, nullptr, 0, 0};
constinit CDecimal::CALWThreadData* CDecimal::m_pTlsData = &CDecimal::m_pTlsData_storage;
constinit bool CDecimal::ms_bInitialized = false;

constexpr CDecimal CDecimal::ms_Zero = CDecimal();
constexpr CDecimal CDecimal::ms_One = OneDigit(kDecimals, 1);
constexpr CDecimal CDecimal::ms_MinusOne = OneDigit(kDecimals, 1, packed::kNegative);
constexpr CDecimal CDecimal::ms_Five = OneDigit(kDecimals, 5);
constexpr CDecimal CDecimal::ms_Ten = OneDigit(kDecimals + 1, 1);
constexpr CDecimal CDecimal::ms_OneHundred = OneDigit(kDecimals + 2, 1);
constexpr CDecimal CDecimal::ms_Smallest = OneDigit(0, 1);
constexpr CDecimal CDecimal::ms_nMinValue = std::numeric_limits<CDecimal>::lowest();
constexpr CDecimal CDecimal::ms_nMaxValue = std::numeric_limits<CDecimal>::max();
constinit const CDecimal& CDecimal::ms_HalfCent = g_decHalfCent;

constinit const std::array<CDecimal, CDecimal::kDigits> CDecimal::ms_anPowersOf10 =
    OneDigitEach(1, std::make_index_sequence<CDecimal::kDigits>());
constinit const std::array<CDecimal, CDecimal::kDigits> CDecimal::ms_anRoundAmount =
    OneDigitEach(5, std::make_index_sequence<CDecimal::kDigits>());
constexpr std::array<CBigInt<160>, 47> CDecimal::ms_anMathPowersOf10 = PowersOf10<CBigInt<160>>(1);
constexpr std::array<std::array<CBigInt<160>, 47>, 10> CDecimal::ms_anMathDigitToPower10 =
    DigitTimesPowersOf10<CBigInt<160>>();

void CDecimal::SetToOverflow(bool bNegative, std::uint64_t nMagnitude) {
  MathType value = MathType(nMagnitude) * ms_anMathPowersOf10[kDecimals];
  if (bNegative) value = -value;
  *this = ms_nMaxValue;
  InsertOrUpdateOverflowItem(DEC_OVERFLOW, this, value);
  RaiseStatus(DEC_OVERFLOW, this);
  if (bNegative) SetNegative();
}

void CDecimal::SetNegative() {
  if (Compare(*this, ms_Zero) == 0) return;
  packed::SetSign(m_aBytes, packed::kNegative);
  COverflowItem* pItem = FindItem(this);
  if (pItem != nullptr && pItem->m_MathValue > MathType::ms_Zero) {
    pItem->m_MathValue = -pItem->m_MathValue;
  }
}

void CDecimal::SetPositive() {
  packed::SetSign(m_aBytes, packed::kPositive);
  COverflowItem* pItem = FindItem(this);
  if (pItem != nullptr && pItem->m_MathValue.IsNegative()) {
    pItem->m_MathValue = -pItem->m_MathValue;
  }
}

int CDecimal::Sign() const {
  if (IsNegative()) return -1;
  return IsZeroDigits() ? 0 : 1;
}

bool CDecimal::IsValid() const {
  if (!ms_bInitialized) return true;
  const std::uint8_t nSign = packed::GetSign(m_aBytes);
  if (nSign != packed::kPositive && nSign != packed::kNegative) return false;
  for (int i = 0; i < kDigits; ++i) {
    if (packed::GetDigit(m_aBytes, i) > 9) return false;
  }
  return true;
}

}  // namespace ald
