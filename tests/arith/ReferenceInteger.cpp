#include "tests/arith/ReferenceInteger.h"

#include <cmath>

namespace ald::reference {

namespace {

mpz_class PowerOf2(int n) {
  return mpz_class(1) << static_cast<mp_bitcnt_t>(n);
}

// a + b, or a + ~b + 1, without the carry out of the top.
Integer SumOfWords(const Integer& a, const Integer& b, bool bComplement) {
  Integer sum(a.Words());
  std::uint64_t nCarry = bComplement ? 1 : 0;
  for (std::size_t i = 0; i < a.m_words.size(); ++i) {
    const std::uint32_t nWord = bComplement ? ~b.m_words[i] : b.m_words[i];
    nCarry += std::uint64_t{a.m_words[i]} + nWord;
    sum.m_words[i] = static_cast<std::uint32_t>(nCarry);
    nCarry >>= 32;
  }
  return sum;
}

}  // namespace

Integer::Integer(int nWords, mpz_class value) : Integer(nWords) {
  for (std::uint32_t& nWord : m_words) {
    mpz_class low;
    mpz_fdiv_r_2exp(low.get_mpz_t(), value.get_mpz_t(), 32);
    nWord = static_cast<std::uint32_t>(low.get_ui());
    mpz_fdiv_q_2exp(value.get_mpz_t(), value.get_mpz_t(), 32);
  }
}

Integer Integer::Limit(int nWords, bool bLowest) {
  const mpz_class end = PowerOf2(32 * nWords - 1);
  return Integer(nWords, bLowest ? mpz_class(-end) : mpz_class(end - 1));
}

mpz_class Integer::Value() const {
  mpz_class value;
  mpz_import(value.get_mpz_t(), m_words.size(), -1, sizeof m_words[0], 0, 0, m_words.data());
  return IsNegative() ? mpz_class(value - PowerOf2(Bits())) : value;
}

Integer& Integer::Negate() {
  for (std::uint32_t& nWord : m_words) nWord = ~nWord;
  if ((m_words[0] & 1U) != 0) return op_Add(Integer(Words(), 1));
  m_words[0] |= 1U;
  return *this;
}

// Past a limit both clamp, by the sign of the left operand.
Integer& Integer::op_Add(const Integer& other) {
  const Integer sum = SumOfWords(*this, other, false);
  const bool bLike = IsNegative() == other.IsNegative();
  g_nMathError = bLike && sum.IsNegative() != IsNegative() ? 1 : 0;
  return *this = g_nMathError == 0 ? sum : Limit(Words(), IsNegative());
}

Integer& Integer::op_Subtract(const Integer& other) {
  const Integer difference = SumOfWords(*this, other, true);
  const bool bLike = IsNegative() == other.IsNegative();
  g_nMathError = !bLike && difference.IsNegative() != IsNegative() ? 1 : 0;
  return *this = g_nMathError == 0 ? difference : Limit(Words(), IsNegative());
}

// Not clamped; what the clamping of the sum swallows is not reported; and a zero product of unlike
// signs is.
Integer& Integer::op_Multiply(const Integer& other) {
  const bool bUnlike = IsNegative() != other.IsNegative();
  const Integer left = Magnitude();
  const Integer right = other.Magnitude();
  Integer sum(Words());
  bool bOverflow = false;
  for (std::size_t i = 0; i < m_words.size(); ++i) {
    for (std::size_t j = 0; j < m_words.size(); ++j) {
      const std::uint64_t nProduct = std::uint64_t{right.m_words[i]} * left.m_words[j];
      if (nProduct == 0) continue;
      const int nOffset = 32 * static_cast<int>(i + j);
      if (nOffset + ((nProduct >> 32) != 0 ? 32 : 0) >= Bits()) bOverflow = true;
      if (nOffset < Bits()) sum.op_Add(Integer(Words(), nProduct * PowerOf2(nOffset)));
    }
  }
  if (bUnlike) sum.Negate();
  g_nMathError = bOverflow || sum.IsNegative() != bUnlike ? 1 : 0;
  return *this = sum;
}

Integer& Integer::Divide(const Integer& divisor, Integer* pRemainder) {
  const mpz_class dividend = Magnitude().Value();
  const mpz_class by = divisor.Magnitude().Value();
  Integer quotient(Words());
  Integer remainder(Words());
  if (by != 0) {
    quotient = Integer(Words(), dividend / by);
    remainder = Integer(Words(), dividend % by);
    if (IsNegative() != divisor.IsNegative()) quotient.Negate();
    if (IsNegative()) remainder.Negate();
  }
  g_nMathError = by != 0 ? 0 : 2;
  if (pRemainder != nullptr) *pRemainder = remainder;
  return *this = quotient;
}

Integer& Integer::fromDecimalString(std::string sText) {
  sText.erase(0, sText.find_first_not_of(" \t\n\v\f\r"));
  const bool bMinus = sText.starts_with('-');
  if (bMinus) sText.erase(0, 1);
  *this = Integer(Words());
  for (std::size_t i = 0; i < sText.size() && sText[i] >= '0' && sText[i] <= '9'; ++i) {
    if (sText[i] != '0') op_Add(Integer(Words(), sText[i] - '0'));
    if (i + 1 < sText.size()) op_Multiply(Integer(Words(), 10));
  }
  return bMinus ? Negate() : *this;
}

Integer& Integer::fromDouble(double value, bool bRound) {
  if (!std::isfinite(value)) value = 0;
  if (bRound) value += value < 0 ? -0.5 : 0.5;
  const bool bFits = std::fabs(value) < std::ldexp(1.0, Bits() - 1);
  g_nMathError = bFits ? 0 : 1;
  return *this = bFits ? Integer(Words(), mpz_class(value)) : Limit(Words(), value < 0);
}

}  // namespace ald::reference
