#include "aldlib/arith/Precision.h"

#include "aldlib/arith/DecimalLiteral.h"

namespace ald {

using namespace literals;

namespace {

constinit std::uint16_t g_nRealPrecision = 2;
constinit bool g_bAutoDecimal = false;
constinit bool g_bInIntlErrorHandler = false;

}  // namespace

constinit std::uint16_t CurrencyPrecision = 2;
constinit CDecimal g_decCurrencyUnit = 100_dec;
constinit CDecimal g_decHalfCent = 0.005_dec;
constinit const CDecimal g_decCutoffIsZero5 = 0.000005_dec;
constinit const CDecimal g_decCutoffIsZero7 = 0.00000005_dec;

std::int16_t GetCurrencyPrecision() {
  return static_cast<std::int16_t>(CurrencyPrecision);
}

void UpdateCentRounding() {
  g_decCurrencyUnit = CDecimal::pow10(CurrencyPrecision);
  g_decHalfCent = CDecimal::ms_Five / g_decCurrencyUnit / CDecimal::ms_Ten;
}

std::int16_t GetRealPrecision() {
  return static_cast<std::int16_t>(g_nRealPrecision);
}

std::int16_t SetRealPrecision(std::int16_t nDecimals) {
  const std::int16_t nFormer = GetRealPrecision();
  g_nRealPrecision = static_cast<std::uint16_t>(nDecimals);
  return nFormer;
}

int GetAutoDecimal() {
  return g_bAutoDecimal ? 1 : 0;
}

void StoreAutoDecimal(bool bOn) {
  g_bAutoDecimal = bOn;
}

bool IsEffectivelyZero(const CDecimal& value) {
  CDecimal magnitude(value);
  magnitude.SetPositive();
  return magnitude < g_decCutoffIsZero5;
}

bool IntlErrorHandler(CDecimal* pValue, DEC_STATUS eStatus) {
  if (g_bInIntlErrorHandler || pValue == nullptr) return false;
  g_bInIntlErrorHandler = true;
  bool bHandled = true;
  if (IsOverflow(eStatus)) {
    *pValue = pValue->IsNegative() ? CDecimal::ms_nMinValue : CDecimal::ms_nMaxValue;
  } else if (IsUnderflow(eStatus)) {
    pValue->SetToZero();
  } else {
    bHandled = eStatus == DEC_DIVIDE_BY_ZERO || eStatus == DEC_BAD_FORMAT || eStatus == DEC_EMPTY;
  }
  g_bInIntlErrorHandler = false;
  return bHandled;
}

}  // namespace ald
