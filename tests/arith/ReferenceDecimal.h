#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "aldlib/arith/DecimalStatus.h"
#include "tests/arith/ReferenceInteger.h"

// The decimal in its plainest form: an array of digits, a sign and, past the limits, the exact
// value. Each operation does what its rule says, digit by digit, and leaves the status, the exact
// value and the calls of the handler that the library has to leave. Every faster road is held
// against this one, so nothing here is clever. The names are those of CFixedDecimal, so that one
// piece of test code drives both.
//
// The library keeps the exact value in a table under the object's address; here it is a member,
// which comes to the same as long as objects are not moved by copying bytes.
namespace ald::reference {

inline constexpr int kMathWords = 5;  // 160 bits

using Bytes = std::array<std::uint8_t, 12>;

// What the handler does once its call has been recorded.
enum class Handler { kNone, kDefault, kRefuse, kAccept };

struct Call {
  const void* pObject;
  DEC_STATUS eStatus;
  Bytes bytes;  // as the handler found them
};

struct State {
  Handler eHandler = Handler::kNone;
  DEC_STATUS eLast = DEC_OK;
  int nHandlerDepth = 0;
  int nExpressionDepth = 0;
  std::vector<Call> calls;
};
inline State g_state;

struct Item {
  DEC_STATUS eStatus;
  Integer value;  // times 10^9
  bool bHandled;
};

class Decimal {
 public:
  std::array<int, 23> m_digits{};  // digit 0 is the last decimal
  int m_nSign = 0xF;
  std::optional<Item> m_item;

  Decimal() = default;
  Decimal(bool bNegative, std::uint64_t nMagnitude);
  static Decimal OneDigit(int nDigit, int nValue);
  static Decimal Limit(bool bNegative);

  // A copy carries the item in silence, an assignment reports it; a frozen registry does neither.
  Decimal(const Decimal& other);
  Decimal& operator=(const Decimal& other);
  void SetToZero();
  void SetNegative();
  void SetPositive();
  bool IsNegative() const { return m_nSign == 0xD; }
  Bytes GetBytes() const;

  Decimal& op_Add(const Decimal& other);
  Decimal& op_Subtract(const Decimal& other);
  Decimal& op_Multiply(const Decimal& other);
  Decimal& op_Divide(const Decimal& other);
  static int Compare(const Decimal& a, const Decimal& b);

  Decimal& Round(int nDecimals);
  Decimal& ShiftByPower10(int n);
  void ShiftDigits(int n);
  int FindPower10() const;
  int CountTrailingZeroDecimals() const;
  void Split(Decimal& whole, Decimal& fraction) const;

  Integer toMathType() const;
  Decimal& fromMathType(const Integer& math);
  Decimal& fromRawString(std::string sText);
  std::string toRawString(int nDecimals) const;
  Decimal& fromDouble(double value);
  // The low nBits (16, 32 or 64) of the whole part.
  std::uint64_t ToInteger(bool bRound, int nBits) const;

  Decimal operator-() const;
  friend Decimal operator+(const Decimal& a, const Decimal& b);
  friend Decimal operator-(const Decimal& a, const Decimal& b);
  friend Decimal operator*(const Decimal& a, const Decimal& b);
  friend Decimal operator/(const Decimal& a, const Decimal& b);

  void RaiseStatus(DEC_STATUS eStatus);

 private:
  int& Digit(int i) { return m_digits[static_cast<std::size_t>(i)]; }
  int Digit(int i) const { return m_digits[static_cast<std::size_t>(i)]; }
  bool IsZero() const { return Compare(*this, Decimal()) == 0; }
  bool AreZero(int nFirst, int nEnd) const;
  void ClearDigits(int nFirst, int nEnd);
  void CopyItem(const Decimal& other);
  void NegateItem(bool bIfNegative);
  bool CallHandler(DEC_STATUS eStatus);
  void SetSign(bool bLike) { bLike ? SetPositive() : SetNegative(); }
  void AddExactly(const Decimal& left, const Decimal& right, bool bAdd);
  Decimal& Land(const Decimal& result);
  Integer ProductOfDigits(Decimal right) const;
  DEC_STATUS StoreQuietly(const Integer& math, bool bLikeSigns);
};

// The handler is out of the way for the lifetime; the status is still recorded.
class Quietly {
 public:
  Quietly() : m_eSaved(g_state.eHandler) { g_state.eHandler = Handler::kNone; }
  ~Quietly() { g_state.eHandler = m_eSaved; }

 private:
  Handler m_eSaved;
};

// 10^n as it is, and in 160 bits.
mpz_class Power(int n);
Integer MathPower(int n);
// Adds `half` to the magnitude and divides, cutting.
Integer RoundedQuotient(Integer value, const mpz_class& half, const Integer& divisor);

}  // namespace ald::reference
