#pragma once

#include <gmpxx.h>

#include <cstdint>
#include <string>
#include <vector>

// The fixed-width integer in its plainest form, for a width chosen at run time: the word loops that
// tell what an overflow leaves behind, and GMP wherever a result is exact. Slow on purpose; the
// library's own arithmetic, however fast, has to agree with it bit for bit.
namespace ald::reference {

// What the last operation that reports would have left in m_nMathError: 0, 1 past the limits, 2 for
// a division by zero.
inline std::int32_t g_nMathError = 0;

class Integer {
 public:
  std::vector<std::uint32_t> m_words;  // word 0 is the least significant

  explicit Integer(int nWords) : m_words(static_cast<std::size_t>(nWords)) {}
  // The low words of the two's complement of the value.
  Integer(int nWords, mpz_class value);
  static Integer Limit(int nWords, bool bLowest);

  int Words() const { return static_cast<int>(m_words.size()); }
  int Bits() const { return 32 * Words(); }
  bool IsNegative() const { return (m_words.back() >> 31) != 0; }
  bool IsZero() const { return *this == Integer(Words()); }
  mpz_class Value() const;
  Integer Magnitude() const { return IsNegative() ? Integer(*this).Negate() : *this; }

  Integer& Negate();
  Integer& op_Add(const Integer& other);
  Integer& op_Subtract(const Integer& other);
  Integer& op_Multiply(const Integer& other);
  Integer& Divide(const Integer& divisor, Integer* pRemainder = nullptr);
  Integer& fromDecimalString(std::string sText);
  Integer& fromDouble(double value, bool bRound);

  bool operator==(const Integer&) const = default;
};

}  // namespace ald::reference
