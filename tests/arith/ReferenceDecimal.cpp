#include "tests/arith/ReferenceDecimal.h"

#include <algorithm>

namespace ald::reference {

namespace {

constexpr int kDigits = 23;
constexpr int kDecimals = 9;
constexpr int kNoPower = -99999;

Decimal Evaluate(const Decimal& a, Decimal& (Decimal::*pfn)(const Decimal&), const Decimal& b) {
  ++g_state.nExpressionDepth;
  Decimal result(a);
  (result.*pfn)(b);
  --g_state.nExpressionDepth;
  return result;
}

Integer RoundedProduct(const Integer& left, const Integer& right) {
  return RoundedQuotient(Integer(left).op_Multiply(right), 5 * Power(8), MathPower(kDecimals));
}

}  // namespace

// ---- Values, items and the handler

Decimal Decimal::OneDigit(int nDigit, int nValue) {
  Decimal result;
  result.Digit(nDigit) = nValue;
  return result;
}

Decimal Decimal::Limit(bool bNegative) {
  Decimal result;
  result.m_digits.fill(9);
  result.m_nSign = bNegative ? 0xD : 0xF;
  return result;
}

Decimal::Decimal(const Decimal& other) : m_digits(other.m_digits), m_nSign(other.m_nSign) {
  CopyItem(other);
}

Decimal& Decimal::operator=(const Decimal& other) {
  if (this == &other) return *this;
  m_digits = other.m_digits;
  m_nSign = other.m_nSign;
  CopyItem(other);
  const bool bReport = g_state.nHandlerDepth == 0 && other.m_item && !other.m_item->bHandled;
  if (bReport) RaiseStatus(other.m_item->eStatus);
  return *this;
}

void Decimal::CopyItem(const Decimal& other) {
  if (g_state.nHandlerDepth != 0) return;
  m_item.reset();
  if (other.m_item) m_item = Item{other.m_item->eStatus, other.m_item->value, false};
}

void Decimal::SetToZero() {
  ClearDigits(0, kDigits);
  m_nSign = 0xF;
  if (g_state.nHandlerDepth == 0) m_item.reset();
}

void Decimal::NegateItem(bool bIfNegative) {
  if (!m_item || m_item->value.IsZero() || m_item->value.IsNegative() != bIfNegative) return;
  m_item->value.Negate();
}

void Decimal::SetNegative() {
  if (IsZero()) return;
  m_nSign = 0xD;
  NegateItem(false);
}

void Decimal::SetPositive() {
  m_nSign = 0xF;
  NegateItem(true);
}

Decimal Decimal::operator-() const {
  Decimal result(*this);
  result.SetSign(IsNegative());
  return result;
}

Bytes Decimal::GetBytes() const {
  Bytes bytes{};
  for (int i = 0; i < 12; ++i) {
    const int nLow = i == 11 ? m_nSign : Digit(21 - 2 * i);
    bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(Digit(22 - 2 * i) * 16 + nLow);
  }
  return bytes;
}

bool Decimal::AreZero(int nFirst, int nEnd) const {
  return std::all_of(m_digits.begin() + nFirst, m_digits.begin() + nEnd,
                     [](int n) { return n == 0; });
}

void Decimal::ClearDigits(int nFirst, int nEnd) {
  std::fill(m_digits.begin() + nFirst, m_digits.begin() + nEnd, 0);
}

void Decimal::RaiseStatus(DEC_STATUS eStatus) {
  g_state.eLast = eStatus;
  if (g_state.eHandler == Handler::kNone || eStatus >= 0) return;
  const bool bOverflow = IsOverflow(eStatus);
  if (bOverflow && (g_state.nExpressionDepth != 0 || !m_item || m_item->bHandled)) return;
  const bool bDone = CallHandler(eStatus);
  if (bDone && bOverflow) m_item->bHandled = true;
}

bool Decimal::CallHandler(DEC_STATUS eStatus) {
  g_state.calls.push_back({this, eStatus, GetBytes()});
  if (g_state.eHandler != Handler::kDefault) return g_state.eHandler == Handler::kAccept;
  ++g_state.nHandlerDepth;
  if (IsUnderflow(eStatus)) *this = Decimal();
  if (IsOverflow(eStatus)) *this = Limit(IsNegative());
  --g_state.nHandlerDepth;
  return IsUnderflow(eStatus) || IsOverflow(eStatus);
}

// ---- Arithmetic

int Decimal::Compare(const Decimal& a, const Decimal& b) {
  if (a.IsNegative() != b.IsNegative()) return a.IsNegative() ? -1 : 1;
  const Decimal& x = a.IsNegative() ? b : a;
  const Decimal& y = a.IsNegative() ? a : b;
  for (int i = kDigits - 1; i > 0; --i) {
    if (x.Digit(i) != y.Digit(i)) return x.Digit(i) < y.Digit(i) ? -1 : 1;
  }
  if (x.Digit(0) != y.Digit(0)) return x.Digit(0) - y.Digit(0);
  if (!a.m_item && !b.m_item) return 0;
  return sgn(mpz_class(a.toMathType().Value() - b.toMathType().Value()));
}

void Decimal::AddExactly(const Decimal& left, const Decimal& right, bool bAdd) {
  const Quietly quietly;
  Integer value = left.toMathType();
  fromMathType(bAdd ? value.op_Add(right.toMathType()) : value.op_Subtract(right.toMathType()));
}

// The result becomes the value, with the status that stands.
Decimal& Decimal::Land(const Decimal& result) {
  const DEC_STATUS eStatus = g_state.eLast;
  *this = result;
  RaiseStatus(eStatus);
  return *this;
}

Decimal& Decimal::op_Add(const Decimal& other) {
  Decimal result;
  g_state.eLast = DEC_OK;
  if (m_item || other.m_item) {
    result.AddExactly(*this, other, true);
  } else if (IsNegative() == other.IsNegative()) {
    int nCarry = 0;
    for (int i = 0; i < kDigits; ++i) {
      const int nSum = Digit(i) + other.Digit(i) + nCarry;
      result.Digit(i) = nSum % 10;
      nCarry = nSum / 10;
    }
    if (IsNegative()) result.SetNegative();
    if (nCarry != 0) result.AddExactly(*this, other, true);
  } else {
    const Quietly quietly;
    result = IsNegative() ? other - -*this : *this - -other;
  }
  return Land(result);
}

Decimal& Decimal::op_Subtract(const Decimal& other) {
  Decimal result;
  g_state.eLast = DEC_OK;
  if (m_item || other.m_item) {
    result.AddExactly(*this, other, false);
  } else if (IsNegative() || other.IsNegative()) {
    const Quietly quietly;
    result = IsNegative() && other.IsNegative() ? -other - -*this : *this + -other;
    if (IsOverflow(g_state.eLast)) result.AddExactly(*this, other, false);
  } else if (Compare(*this, other) < 0) {
    const Quietly quietly;
    result = other - *this;
    result.SetNegative();
  } else {
    int nBorrow = 0;
    for (int i = 0; i < kDigits; ++i) {
      const int nDifference = Digit(i) - other.Digit(i) - nBorrow;
      nBorrow = nDifference < 0 ? 1 : 0;
      result.Digit(i) = nDifference + 10 * nBorrow;
    }
  }
  return Land(result);
}

// Without the zeros that nine decimals have in common no rounding is needed.
Integer Decimal::ProductOfDigits(Decimal right) const {
  const int nLeft = CountTrailingZeroDecimals();
  const int nRight = right.CountTrailingZeroDecimals();
  if (nLeft + nRight < kDecimals) return RoundedProduct(toMathType(), right.toMathType());
  const int nDrop = nLeft == kDecimals ? kDecimals : nRight == kDecimals ? 0 : nLeft;
  Decimal left(*this);
  left.ShiftDigits(-nDrop);
  right.ShiftDigits(nDrop - kDecimals);
  return left.toMathType().op_Multiply(right.toMathType());
}

// Past the limits the limit of the sign is stored, while the registry is frozen.
DEC_STATUS Decimal::StoreQuietly(const Integer& math, bool bLikeSigns) {
  const Quietly quietly;
  fromMathType(math);
  const DEC_STATUS eStatus = g_state.eLast;
  if (IsSuccess(eStatus) && IsZero()) return DEC_UNDERFLOW;
  ++g_state.nHandlerDepth;
  if (IsOverflow(eStatus)) *this = Limit(!bLikeSigns);
  --g_state.nHandlerDepth;
  return eStatus;
}

Decimal& Decimal::op_Multiply(const Decimal& other) {
  const Decimal saved(*this);
  const Decimal right(other);  // which may be *this
  const Integer exactLeft = toMathType();
  const Integer exactRight = other.toMathType();
  const bool bLike = IsNegative() == other.IsNegative();
  const bool bItem = m_item || other.m_item;
  const int nLeft = bItem ? kNoPower : FindPower10();
  const int nRight = bItem ? kNoPower : other.FindPower10();
  DEC_STATUS eStatus = DEC_OK;
  if (IsZero() || other.IsZero()) {
    SetToZero();
  } else if (nLeft == kNoPower && nRight == kNoPower) {
    eStatus =
        StoreQuietly(bItem ? RoundedProduct(exactLeft, exactRight) : ProductOfDigits(right), bLike);
  } else {
    const Quietly quietly;
    // Of two powers of ten with unlike signs the negative one is moved.
    const bool bBoth = nLeft != kNoPower && nRight != kNoPower;
    const bool bMoveLeft = nLeft == kNoPower || (bBoth && !bLike && IsNegative());
    if (!bMoveLeft) *this = right;
    ShiftByPower10(bMoveLeft ? nRight : nLeft);
    eStatus = g_state.eLast;
    SetSign(bLike);
    if (IsOverflow(eStatus)) {
      *this = saved;
      eStatus = StoreQuietly(RoundedProduct(exactLeft, exactRight), bLike);
    }
  }
  RaiseStatus(eStatus);
  return *this;
}

Decimal& Decimal::op_Divide(const Decimal& other) {
  const Decimal saved(*this);
  const Integer divisor = other.toMathType();  // noted, since other may be *this
  const bool bLike = IsNegative() == other.IsNegative();
  const int nPower = m_item || other.m_item ? kNoPower : other.FindPower10();
  DEC_STATUS eStatus = DEC_OK;
  bool bDone = true;
  // A divisor of zero digits is zero, whatever its sign.
  if (IsZero() || divisor.IsZero()) {
    SetToZero();
  } else if (nPower != kNoPower) {
    const Quietly quietly;
    ShiftByPower10(-nPower);
    eStatus = g_state.eLast;
    SetSign(bLike);
    bDone = !IsOverflow(eStatus);
    if (!bDone) *this = saved;
  } else {
    bDone = false;
  }
  if (!bDone) {
    // One guard digit, and that digit alone, decides the rounding.
    const Integer quotient = toMathType().op_Multiply(MathPower(10)).Divide(divisor);
    eStatus = StoreQuietly(RoundedQuotient(quotient, 5, MathPower(1)), bLike);
  }
  RaiseStatus(eStatus);
  return *this;
}

Decimal operator+(const Decimal& a, const Decimal& b) {
  return Evaluate(a, &Decimal::op_Add, b);
}
Decimal operator-(const Decimal& a, const Decimal& b) {
  return Evaluate(a, &Decimal::op_Subtract, b);
}
Decimal operator*(const Decimal& a, const Decimal& b) {
  return Evaluate(a, &Decimal::op_Multiply, b);
}
Decimal operator/(const Decimal& a, const Decimal& b) {
  return Evaluate(a, &Decimal::op_Divide, b);
}

// ---- Digits

Decimal& Decimal::Round(int nDecimals) {
  DEC_STATUS eStatus = DEC_OK;
  if (nDecimals <= -14) {
    SetToZero();
  } else if (nDecimals < kDecimals) {
    const bool bNegative = IsNegative();
    const int k = kDecimals - nDecimals;
    SetPositive();
    {
      const Quietly quietly;
      op_Add(OneDigit(k - 1, 5));
      eStatus = g_state.eLast;
    }
    if (IsOverflow(eStatus) && m_item) {
      Integer cut = m_item->value;
      fromMathType(cut.Divide(MathPower(k)).op_Multiply(MathPower(k)));
    } else {
      ClearDigits(0, k);
    }
    if (bNegative) SetNegative();
  }
  RaiseStatus(eStatus);
  return *this;
}

Decimal& Decimal::ShiftByPower10(int n) {
  DEC_STATUS eStatus = DEC_OK;
  const int nMoved = std::clamp(n, -kDigits, kDigits);
  if (n > 0 && !AreZero(kDigits - nMoved, kDigits)) {
    eStatus = DEC_OVERFLOW;
  } else if (n > 0) {
    ShiftDigits(nMoved);
  } else if (n < 0) {
    const bool bLost = !AreZero(0, -nMoved);
    const bool bRoundUp = n > -kDigits && Digit(-nMoved - 1) >= 5;
    ShiftDigits(nMoved);
    const bool bKept = !AreZero(0, kDigits) || bRoundUp;
    if (bRoundUp) IsNegative() ? op_Subtract(OneDigit(0, 1)) : op_Add(OneDigit(0, 1));
    if (bLost && !bKept) eStatus = DEC_UNDERFLOW;
  }
  RaiseStatus(eStatus);
  return *this;
}

void Decimal::ShiftDigits(int n) {
  const auto old = m_digits;
  for (int i = 0; i < kDigits; ++i) {
    Digit(i) = i - n >= 0 && i - n < kDigits ? old[static_cast<std::size_t>(i - n)] : 0;
  }
}

int Decimal::FindPower10() const {
  if (std::count(m_digits.begin(), m_digits.end(), 0) != kDigits - 1) return kNoPower;
  const auto found = std::find(m_digits.begin(), m_digits.end(), 1);
  return found == m_digits.end() ? kNoPower
                                 : static_cast<int>(found - m_digits.begin()) - kDecimals;
}

int Decimal::CountTrailingZeroDecimals() const {
  int n = 0;
  while (n < kDecimals && Digit(n) == 0) ++n;
  return n;
}

void Decimal::Split(Decimal& whole, Decimal& fraction) const {
  Decimal a(*this);
  Decimal b(*this);
  a.ClearDigits(0, kDecimals);
  b.ClearDigits(kDecimals, kDigits);
  if (a.AreZero(0, kDigits)) a.SetPositive();
  if (b.AreZero(0, kDigits)) b.SetPositive();
  whole = a;
  fraction = b;
}

}  // namespace ald::reference
