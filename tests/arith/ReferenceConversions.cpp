#include <algorithm>
#include <cmath>

#include "tests/arith/ReferenceDecimal.h"

// The plain decimal to and from integers, text and double.
namespace ald::reference {

namespace {

constexpr int kDigits = 23;
constexpr int kDecimals = 9;
constexpr const char* kDigitSet = "0123456789";

}  // namespace

mpz_class Power(int n) {
  mpz_class result;
  mpz_ui_pow_ui(result.get_mpz_t(), 10, static_cast<unsigned long>(n));
  return result;
}

Integer MathPower(int n) {
  return Integer(kMathWords, Power(n));
}

Integer RoundedQuotient(Integer value, const mpz_class& half, const Integer& divisor) {
  const Integer part(kMathWords, half);
  value.IsNegative() ? value.op_Subtract(part) : value.op_Add(part);
  return value.Divide(divisor);
}

Decimal::Decimal(bool bNegative, std::uint64_t nMagnitude) {
  const mpz_class math = nMagnitude * Power(kDecimals);
  if (math < Power(kDigits)) {
    for (int i = kDecimals; i < kDigits; ++i, nMagnitude /= 10) {
      Digit(i) = static_cast<int>(nMagnitude % 10);
    }
  } else {
    const Integer exact(kMathWords, bNegative ? mpz_class(-math) : math);
    *this = Limit(false);
    if (g_state.nHandlerDepth == 0) m_item = Item{DEC_OVERFLOW, exact, false};
    RaiseStatus(DEC_OVERFLOW);
  }
  if (bNegative) SetNegative();
}

Integer Decimal::toMathType() const {
  if (m_item) return m_item->value;
  mpz_class math;
  for (int i = kDigits - 1; i >= 0; --i) math = 10 * math + Digit(i);
  return Integer(kMathWords, IsNegative() ? mpz_class(-math) : math);
}

Decimal& Decimal::fromMathType(const Integer& math) {
  const Integer exact(math);  // which may be the item's own value
  SetToZero();
  std::string sDigits = exact.Magnitude().Value().get_str();
  std::reverse(sDigits.begin(), sDigits.end());
  const bool bOverflow = sDigits.size() > kDigits;
  if (bOverflow) *this = Limit(false);
  for (std::size_t i = 0; i < sDigits.size() && !bOverflow; ++i) m_digits[i] = sDigits[i] - '0';
  if (exact.IsNegative()) SetNegative();
  if (bOverflow && g_state.nHandlerDepth == 0) m_item = Item{DEC_OVERFLOW, exact, false};
  RaiseStatus(bOverflow ? DEC_OVERFLOW : DEC_OK);
  return *this;
}

Decimal& Decimal::fromRawString(std::string sText) {
  SetToZero();
  sText.erase(0, sText.find_first_not_of(" \t\n\v\f\r"));
  if (sText.find_first_of(kDigitSet) == std::string::npos) {
    RaiseStatus(sText.empty() ? DEC_EMPTY : DEC_BAD_FORMAT);
    return *this;
  }
  DEC_STATUS eStatus = DEC_OK;
  if (const std::size_t n = sText.find_first_not_of("0123456789-+."); n != std::string::npos) {
    sText.resize(n);
    eStatus = DEC_TRUNCATED;
  }
  const std::size_t nPoint = sText.find('.');
  if (sText.find_first_of("-+", 1) != std::string::npos || nPoint != sText.rfind('.')) {
    g_state.eLast = DEC_BAD_FORMAT;
    if (g_state.eHandler != Handler::kNone) CallHandler(DEC_BAD_FORMAT);
    return *this;
  }
  const bool bMinus = sText.starts_with('-');
  Decimal whole;
  Decimal fraction;
  const std::string sWhole = sText.substr(0, nPoint).erase(0, bMinus || sText.starts_with('+'));
  if (sWhole.size() > kDigits - kDecimals) {
    const Quietly quietly;
    whole.fromMathType(
        Integer(kMathWords).fromDecimalString(sWhole).op_Multiply(MathPower(kDecimals)));
    eStatus = DEC_TEXT_OVERFLOW;
  } else {
    int nDigit = kDecimals + static_cast<int>(sWhole.size());
    for (const char c : sWhole) whole.Digit(--nDigit) = c - '0';
  }
  if (nPoint != std::string::npos && nPoint + 1 < sText.size()) {
    const std::string sFraction = sText.substr(nPoint + 1);
    int nDigit = kDecimals;
    for (const char c : sFraction.substr(0, kDecimals)) fraction.Digit(--nDigit) = c - '0';
    if (sFraction.size() > kDecimals && sFraction[kDecimals] >= '5') {
      fraction.op_Add(OneDigit(0, 1));
    }
    const bool bDigits = sFraction.find_first_of("123456789") != std::string::npos;
    if (whole.IsZero() && fraction.IsZero() && bDigits) eStatus = DEC_TEXT_UNDERFLOW;
  }
  {
    const Quietly quietly;
    *this = whole + fraction;
    if (IsOverflow(g_state.eLast)) eStatus = DEC_TEXT_OVERFLOW;
  }
  if (bMinus) SetNegative();
  RaiseStatus(eStatus);
  return *this;
}

std::string Decimal::toRawString(int nDecimals) const {
  Decimal copy(*this);
  if (nDecimals < kDecimals) {
    const Quietly quietly;
    copy.Round(nDecimals);
  }
  Integer exact = copy.toMathType();
  const bool bMinus = copy.m_item ? exact.IsNegative() : copy.IsNegative();
  if (copy.m_item && nDecimals < kDecimals) {
    const Integer unit = MathPower(kDecimals - nDecimals);
    exact.Divide(unit).op_Multiply(unit);
  }
  // At least one digit before the point and nine behind it, then as many decimals as asked for.
  std::string sText = exact.Magnitude().Value().get_str();
  if (sText.size() < kDecimals + 1) sText.insert(0, kDecimals + 1 - sText.size(), '0');
  const std::size_t nWhole = sText.size() - kDecimals;
  sText.resize(nWhole + static_cast<std::size_t>(std::clamp(nDecimals, 0, 46)), '0');
  if (nDecimals > 0) sText.insert(nWhole, ".");
  if (bMinus) sText.insert(0, "-");
  return sText.substr(0, 45);
}

Decimal& Decimal::fromDouble(double value) {
  if (!std::isfinite(value)) value = 0.0;
  double whole = 0;
  double fraction = std::modf(value, &whole) * 1e9;
  fraction += fraction < 0 ? -0.5 : 0.5;
  Integer math(kMathWords);
  math.fromDouble(whole, false);
  if (g_nMathError == 0) {
    const Integer decimals = Integer(kMathWords).fromDouble(fraction, false);
    math.op_Multiply(MathPower(kDecimals)).op_Add(decimals);
  }
  DEC_STATUS eStatus = g_nMathError == 0 ? DEC_OK : DEC_OVERFLOW;
  if (eStatus == DEC_OK) {
    const Quietly quietly;
    fromMathType(math);
    eStatus = g_state.eLast;
    if (IsSuccess(eStatus) && math.IsZero() && value != 0.0) eStatus = DEC_UNDERFLOW;
  } else {
    fromMathType(Integer::Limit(kMathWords, value < 0));
  }
  RaiseStatus(eStatus);
  return *this;
}

std::uint64_t Decimal::ToInteger(bool bRound, int nBits) const {
  const DEC_STATUS eLast = g_state.eLast;
  const Quietly quietly;
  Decimal copy(*this);
  if (bRound) copy.Round(0);
  g_state.eLast = eLast;
  // Up to 32 bits fold the digits that show, 64 take the exact value.
  if (nBits < 64) copy.m_item.reset();
  const Integer whole = copy.toMathType().Divide(MathPower(kDecimals));
  mpz_class low;
  mpz_fdiv_r_2exp(low.get_mpz_t(), whole.Value().get_mpz_t(), static_cast<mp_bitcnt_t>(nBits));
  return low.get_ui();
}

}  // namespace ald::reference
