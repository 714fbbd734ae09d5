#include "tests/arith/ReferenceInteger.h"

#include <cmath>
#include <utility>

namespace ald::reference {

namespace {

constexpr std::int32_t kOk = 0;
constexpr std::int32_t kOverflow = 1;
constexpr std::int32_t kDivideByZero = 2;

}  // namespace

Integer::Integer(int nWords, mpz_class value) : Integer(nWords) {
  for (std::uint32_t& nWord : m_words) {
    mpz_class low;
    mpz_fdiv_r_2exp(low.get_mpz_t(), value.get_mpz_t(), 32);
    nWord = static_cast<std::uint32_t>(low.get_ui());
    mpz_fdiv_q_2exp(value.get_mpz_t(), value.get_mpz_t(), 32);
  }
}

mpz_class Integer::Value() const {
  mpz_class value;
  mpz_import(value.get_mpz_t(), m_words.size(), -1, sizeof(m_words[0]), 0, 0, m_words.data());
  if (IsNegative()) value -= mpz_class(1) << static_cast<mp_bitcnt_t>(Bits());
  return value;
}

Integer Integer::Limit(int nWords, bool bLowest) {
  const mpz_class top = mpz_class(1) << static_cast<mp_bitcnt_t>(32 * nWords - 1);
  return Integer(nWords, bLowest ? mpz_class(-top) : mpz_class(top - 1));
}

Integer& Integer::Negate() {
  for (std::uint32_t& nWord : m_words) nWord = ~nWord;
  if ((m_words[0] & 1U) != 0) return Add(Integer(Words(), 1));
  m_words[0] |= 1U;
  return *this;
}

// With bComplement the other's words are complemented and one is added: a subtraction.
Integer& Integer::AddWords(const Integer& other, bool bComplement) {
  std::uint64_t nCarry = bComplement ? 1 : 0;
  for (std::size_t i = 0; i < m_words.size(); ++i) {
    const std::uint32_t nOther = bComplement ? ~other.m_words[i] : other.m_words[i];
    nCarry += std::uint64_t{m_words[i]} + nOther;
    m_words[i] = static_cast<std::uint32_t>(nCarry);
    nCarry >>= 32;
  }
  return *this;
}

Integer& Integer::Add(const Integer& other) {
  const bool bLeft = IsNegative();
  const bool bRight = other.IsNegative();
  AddWords(Integer(other), false);
  g_nMathError = bLeft == bRight && IsNegative() != bLeft ? kOverflow : kOk;
  return g_nMathError == kOk ? *this : *this = Limit(Words(), bLeft);
}

Integer& Integer::Subtract(const Integer& other) {
  const bool bLeft = IsNegative();
  const bool bRight = other.IsNegative();
  AddWords(Integer(other), true);
  g_nMathError = bLeft != bRight && IsNegative() != bLeft ? kOverflow : kOk;
  return g_nMathError == kOk ? *this : *this = Limit(Words(), bLeft);
}

Integer& Integer::Multiply(const Integer& other) {
  const bool bUnlike = IsNegative() != other.IsNegative();
  const Integer left = Magnitude();
  const Integer right = other.Magnitude();
  Integer sum(Words());
  bool bOverflow = false;
  for (int i = 0; i < Words(); ++i) {
    for (int j = 0; j < Words(); ++j) {
      const std::uint64_t nProduct = std::uint64_t{right.m_words[static_cast<std::size_t>(i)]} *
                                     left.m_words[static_cast<std::size_t>(j)];
      if (nProduct == 0) continue;
      const int nOffset = 32 * (i + j);
      if (nOffset >= Bits()) {
        bOverflow = true;
        continue;
      }
      if ((nProduct >> 32) != 0 && nOffset + 32 >= Bits()) bOverflow = true;
      Integer part(Words());
      part.m_words[0] = static_cast<std::uint32_t>(nProduct);
      part.m_words[1] = static_cast<std::uint32_t>(nProduct >> 32);
      sum.Add(part.ShiftLeft(nOffset));
    }
  }
  if (bUnlike) sum.Negate();
  if (sum.IsNegative() != bUnlike) bOverflow = true;
  g_nMathError = bOverflow ? kOverflow : kOk;
  return *this = sum;
}

Integer& Integer::Divide(const Integer& divisor, Integer& remainder) {
  const bool bUnlike = IsNegative() != divisor.IsNegative();
  const bool bNegative = IsNegative();
  const mpz_class dividend = Magnitude().Value();
  const mpz_class by = divisor.Magnitude().Value();
  remainder = Integer(Words());
  if (by == 0) {
    g_nMathError = kDivideByZero;
    return *this = Integer(Words());
  }
  remainder = Integer(Words(), dividend % by);
  Integer quotient(Words(), dividend / by);
  if (bUnlike) quotient.Negate();
  if (bNegative) remainder.Negate();
  g_nMathError = kOk;
  return *this = quotient;
}

Integer& Integer::Divide(const Integer& divisor) {
  Integer remainder(Words());
  return Divide(divisor, remainder);
}

Integer& Integer::ShiftLeft(int nCount) {
  if (nCount < 0) return ShiftRight(-nCount);
  return *this = Integer(Words(), nCount >= Bits() ? mpz_class(0) : Value() << nCount);
}

Integer& Integer::ShiftRight(int nCount) {
  if (nCount < 0) return ShiftLeft(-nCount);
  mpz_class value = Value();
  if (value < 0) value += mpz_class(1) << static_cast<mp_bitcnt_t>(Bits());
  return *this = Integer(Words(), nCount >= Bits() ? mpz_class(0) : value >> nCount);
}

Integer& Integer::FromDecimal(std::string sText) {
  sText.erase(0, sText.find_first_not_of(" \t\n\v\f\r"));
  const bool bMinus = !sText.empty() && sText[0] == '-';
  if (bMinus) sText.erase(0, 1);
  *this = Integer(Words());
  for (std::size_t i = 0; i < sText.size() && sText[i] >= '0' && sText[i] <= '9'; ++i) {
    if (sText[i] != '0') Add(Integer(Words(), sText[i] - '0'));
    if (i + 1 < sText.size()) Multiply(Integer(Words(), 10));
  }
  return bMinus ? Negate() : *this;
}

Integer& Integer::FromDouble(double value, bool bRound) {
  g_nMathError = kOk;
  if (!std::isfinite(value)) value = 0;
  if (bRound) value += value < 0 ? -0.5 : 0.5;
  const bool bFits = std::fabs(value) < std::ldexp(1.0, Bits() - 1);
  if (!bFits) g_nMathError = kOverflow;
  return *this = bFits ? Integer(Words(), mpz_class(value)) : Limit(Words(), value < 0);
}

}  // namespace ald::reference
