#pragma once

#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <limits>
#include <type_traits>

#include "aldlib/arith/BigInt.h"
#include "aldlib/arith/DecimalStatus.h"
#include "aldlib/arith/OverflowRegistry.h"
#include "aldlib/arith/PackedDigits.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The money and quantity type: CFixedDecimal<23, 9>, twelve bytes of packed decimal with 14 digits
// before the point and 9 behind it. Those bytes are the stored format of every company record.
//
//   using namespace ald::literals;
//   CFixedDecimal<23, 9> share = 100.00_dec;
//   share /= 3;                                   // 33.333333333
//   share.Round(2).toRawString(2);                // "33.33"
//
// Arithmetic is exact; a result with more than 9 decimals is rounded once, half away from zero. No
// binary fraction takes part, and a division by zero is a silent 0.
//
// Status. Every operation leaves its DEC_STATUS in m_pTlsData->m_eLastStatus and offers a failure
// to the error handler. Nothing throws. Both are process-wide: decimals are for one thread at a
// time. The math type's own error record is no part of this: most operations do without it.
//
// Overflow. A value past the limits shows the limit in its digits, and its exact value goes into a
// registry under the object's address. Later arithmetic on that object uses the exact value, so
//
//   balance = balance + deposit - payment;
//
// is right even where the sum on the way does not fit. Copies carry the exact value in silence; the
// assignment that lands it in a variable reports DEC_OVERFLOW, once. Copying the twelve bytes alone
// leaves the exact value behind: the copy is simply the limit.
namespace ald {

namespace packed {
struct Words;
}

// The company records know one layout, so the template has this one member.
template <int nDigits, int nDecimals>
class CFixedDecimal;

template <>
class ALDLIB_EXPORT CFixedDecimal<23, 9> {
 public:
  static constexpr int kDigits = packed::kDigits;           // in all
  static constexpr int kDecimals = 9;                       // behind the point
  static constexpr int kWholeDigits = kDigits - kDecimals;  // before it
  static constexpr int kNoPower = -99999;                   // what FindPower10 says of other values

  // A product of two 23-digit magnitudes is below 10^46 < 2^153: 160 bits hold it with its sign.
  using MathType = CBigInt<160>;
  using TextType = CFixedString<46>;

  // Told of a failure: the object that holds the result, and the status. Returns whether it dealt
  // with it. While it runs the overflow registry is frozen, so that it may store a limit without
  // losing the exact value.
  using ErrorHandler = bool (*)(CFixedDecimal*, DEC_STATUS);

  struct COverflowItem {
    DEC_STATUS m_eStatus;           // with which it was inserted
    const CFixedDecimal* m_pOwner;  // the key again
    MathType m_MathValue;           // the exact value times 10^9
    bool m_bHandled;                // the handler has dealt with it
  };
  using OverflowItems = COverflowRegistry<COverflowItem, CFixedDecimal>;

  // One for the process, whatever the name says.
  struct CALWThreadData {
    ErrorHandler m_pfnErrorHandler;   // null: no handler
    DEC_STATUS m_eLastStatus;         // the outcome of the last operation
    OverflowItems* m_pOverflowItems;  // null while there is no item
    std::int32_t m_nHandlerDepth;     // not 0: the registry is frozen
    std::int32_t m_nExpressionDepth;  // not 0: inside a binary operator, overflow is not reported
  };
  static CALWThreadData* m_pTlsData;
  static CALWThreadData m_pTlsData_storage;

  static const CFixedDecimal ms_Zero, ms_One, ms_MinusOne, ms_Five, ms_Ten, ms_OneHundred;
  static const CFixedDecimal ms_Smallest;                 // 0.000000001
  static const CFixedDecimal ms_nMinValue, ms_nMaxValue;  // -/+99999999999999.999999999
  static const CFixedDecimal& ms_HalfCent;                // half the last place of a money amount
  static const std::array<CFixedDecimal, kDigits>
      ms_anPowersOf10;  // entry i: 1 at digit i, 10^(i-9)
  static const std::array<CFixedDecimal, kDigits> ms_anRoundAmount;  // entry i: 5 at digit i
  static const std::array<MathType, 47> ms_anMathPowersOf10;         // entry i: 10^i
  static const std::array<std::array<MathType, 47>, 10> ms_anMathDigitToPower10;  // row d: d * 10^i
  static bool ms_bInitialized;

  // Run by the load of the library: from then on IsValid judges values.
  static void Initialize() { ms_bInitialized = true; }

  // ---- Values

  // Zero.
  constexpr CFixedDecimal() : m_aBytes(packed::kZero) {
    if (!std::is_constant_evaluated()) DropOverflowItem();
  }
  constexpr CFixedDecimal(const CFixedDecimal& other) : m_aBytes(other.m_aBytes) {
    if (!std::is_constant_evaluated() && RegistryExists()) UpdateOverflowItemOnCopy(this, other);
  }
  constexpr ~CFixedDecimal() {
    if (!std::is_constant_evaluated()) DropOverflowItem();
  }
  constexpr CFixedDecimal& operator=(const CFixedDecimal& other) {
    if (this == &other) return *this;
    m_aBytes = other.m_aBytes;
    if (!std::is_constant_evaluated() && RegistryExists()) {
      UpdateOverflowItemOnAssignment(this, other);
    }
    return *this;
  }

  // Whole numbers. One of 64 bits with more than 14 digits gives the limit, DEC_OVERFLOW and an
  // overflow item.
  template <std::integral TInteger>
  constexpr CFixedDecimal(TInteger nValue) : CFixedDecimal() {
    const bool bNegative = std::signed_integral<TInteger> && nValue < TInteger{0};
    const auto nBits = static_cast<std::uint64_t>(nValue);
    const std::uint64_t nMagnitude = bNegative ? 0 - nBits : nBits;
    if constexpr (sizeof(TInteger) > 4) {
      if (nMagnitude > kLargestWhole) {
        SetToOverflow(bNegative, nMagnitude);
        return;
      }
    }
    if (std::is_constant_evaluated()) {
      packed::StoreWhole(m_aBytes, nMagnitude, kDecimals);
      if (bNegative) packed::SetSign(m_aBytes, packed::kNegative);
    } else {
      StoreWhole(nMagnitude, bNegative);
    }
  }
  explicit CFixedDecimal(const char* szText) : CFixedDecimal() { fromRawString(szText); }
  explicit CFixedDecimal(double value) : CFixedDecimal() { fromDouble(value); }
  explicit CFixedDecimal(float value) : CFixedDecimal() { fromDouble(value); }
  explicit CFixedDecimal(const MathType& value) : CFixedDecimal() { fromMathType(value); }

  template <std::integral TInteger>
  CFixedDecimal& operator=(TInteger nValue) {
    return *this = CFixedDecimal(nValue);
  }
  CFixedDecimal& operator=(const char* szText) { return fromRawString(szText); }
  CFixedDecimal& operator=(double value) { return fromDouble(value); }
  CFixedDecimal& operator=(float value) { return fromDouble(value); }
  CFixedDecimal& operator=(const MathType& value) { return fromMathType(value); }

  // The value of twelve stored digits and sign as they stand; IsValid tells whether they are ones.
  static constexpr CFixedDecimal FromBytes(const packed::Bytes& bytes) {
    CFixedDecimal result;
    result.m_aBytes = bytes;
    return result;
  }
  constexpr const packed::Bytes& GetBytes() const { return m_aBytes; }

  // Digit 0 is the last decimal, 9 the units, 22 the highest. Outside that range: 0, and nothing is
  // stored.
  constexpr int GetDigit(int nDigit) const {
    return nDigit >= 0 && nDigit < kDigits ? packed::GetDigit(m_aBytes, nDigit) : 0;
  }
  constexpr void SetDigit(int nDigit, int nValue) {
    if (nDigit >= 0 && nDigit < kDigits) packed::SetDigit(m_aBytes, nDigit, nValue);
  }

  // Drops the exact value of this address too.
  void SetToZero() {
    m_aBytes = packed::kZero;
    DropOverflowItem();
  }
  // Refused by a value that compares equal to zero. Both take the exact value along.
  void SetNegative();
  void SetPositive();
  constexpr bool IsNegative() const { return packed::IsNegative(m_aBytes); }
  // -1, 0 or 1, in step with Compare: a zero that is marked negative has -1.
  int Sign() const;
  // Whether all digits are 0 to 9 and the sign nibble is 0xD or 0xF. True in any case before
  // Initialize.
  bool IsValid() const;

  // ---- Arithmetic in place. FixedDecimalArithmetic.cpp tells the rules.

  CFixedDecimal& op_Add(const CFixedDecimal& other);
  CFixedDecimal& op_Subtract(const CFixedDecimal& other);
  CFixedDecimal& op_Multiply(const CFixedDecimal& other);
  // By zero: 0 with DEC_OK.
  CFixedDecimal& op_Divide(const CFixedDecimal& other);
  // Below 0, 0 or above 0, from -9 to 9: values that differ in the last decimal alone give its
  // difference. Two values that both show the limit are told apart by their exact values.
  static int Compare(const CFixedDecimal& a, const CFixedDecimal& b);

  // ---- Conversions

  // The value times 10^9; the exact value where this object has an overflow item.
  MathType toMathType() const;
  // The way back. More than 23 digits: the limit, DEC_OVERFLOW, and the value goes into the
  // registry.
  CFixedDecimal& fromMathType(const MathType& value);

  // Canonical text: blanks, an optional sign, digits, an optional "." and digits. Reads as far as
  // it goes; the status tells what was made of it. Decimals past the ninth round by the tenth
  // alone.
  CFixedDecimal& fromRawString(const char* szText);
  // Canonical text with that many decimals, rounded half away from zero; a negative number rounds
  // before the point. An out-of-range value prints its true digits, at most 45 characters.
  TextType toRawString(int nDecimals) const;
  // Canonical text of the exact value without trailing zeros: "12.5", "-3".
  TextType toExactString() const;

  // Text for people, with the separators of the region, right-aligned in 45 characters: a number
  // and a quantity with that many decimals, or as many as GetRealPrecision() says if negative; and
  // money, trimmed, with its sign by the format of DollarsToString. Question marks for a value of
  // 1,000,000,000 or more either way. aldlib/amounts/Format.h tells the rules.
  TextType FormatReal(int nDecimals) const;
  TextType FormatQty(int nDecimals) const;
  TextType FormatDollars(char cFormat) const;

  // Rounds at the ninth decimal, so that 0.1 gives 0.1. NaN and infinities give 0.
  CFixedDecimal& fromDouble(double value);
  double toDouble() const;

  // The whole part, cut or rounded half away from zero, as short, int, long or long long, signed or
  // unsigned. No status and no handler; what does not fit wraps. `long` is the 32-bit fold on every
  // system, since modules stored its results as such: ask for `long long` where 64 bits are wanted.
  template <class TInteger>
  TInteger toIntType(bool bRound) const;

  // For diagnostics: formatted by the user's locale, read on first use. -1 stands for the locale's
  // own number of decimals, anything else that is not 0 to 8 for 9.
  TextType FormatDebugString(int nDecimals) const;
  // Lets the next FormatDebugString read the locale anew.
  static void ForgetDebugFormat();

  // ---- Rounding and scaling

  // Half away from zero to that many decimals; a negative number rounds before the point, -14 or
  // less gives 0.
  CFixedDecimal& Round(int nDecimals);
  // Multiplies or divides by 10^n by moving digits; a division rounds half away from zero. A digit
  // pushed out at the top leaves the value as it was with DEC_OVERFLOW, without an overflow item.
  // The sign nibble stays, also on a zero.
  CFixedDecimal& ShiftByPower10(int n);
  // Moves digits and clears what is vacated: no rounding, no status.
  void ShiftDigits(int n) { packed::ShiftDigits(m_aBytes, n); }
  // -9 to 13 when the value is plus or minus that power of ten, otherwise kNoPower.
  int FindPower10() const;
  // How many of the nine decimals, from the last one on, are zero.
  int CountTrailingZeroDecimals() const;
  // Both parts keep the sign; a part of zeros is positive.
  void Split(CFixedDecimal& whole, CFixedDecimal& fraction) const;
  // base multiplied |n| times, rounding at every step; a negative n divides 1 by that. No handler
  // is called.
  static CFixedDecimal pow(const CFixedDecimal& base, int n);
  static CFixedDecimal pow10(int n);

  // ---- Status, handler and overflow registry

  static DEC_STATUS GetLastStatus() { return m_pTlsData->m_eLastStatus; }
  // Returns the former handler. Null: failures are recorded and nobody is told.
  static ErrorHandler SetErrorHandler(ErrorHandler pfnHandler);
  // What stands until the host or the regional settings install another: puts the limit or zero.
  static bool DefaultErrorHandler(CFixedDecimal* pValue, DEC_STATUS eStatus);
  // The one road to the handler. An overflow is offered once, and not inside a binary operator.
  static void RaiseStatus(DEC_STATUS eStatus, CFixedDecimal* pValue);
  static DEC_STATUS ConvertMathErrorToDecStatus(int nMathError);

  // The item of an address, or null. Good until the next operation on decimals.
  static const COverflowItem* GetOverflowItem(const CFixedDecimal* pKey) { return FindItem(pKey); }
  // Each returns whether the registry changed; while a handler runs it never does.
  static bool InsertOrUpdateOverflowItem(DEC_STATUS eStatus, const CFixedDecimal* pKey,
                                         const MathType& value);
  static bool RemovePossibleOverflowItem(const CFixedDecimal* pKey);
  // A copy carries an item in silence; an assignment reports it if nobody has dealt with it yet.
  static bool UpdateOverflowItemOnCopy(CFixedDecimal* pTarget, const CFixedDecimal& source);
  static bool UpdateOverflowItemOnAssignment(CFixedDecimal* pTarget, const CFixedDecimal& source);

  // ---- Operators

  CFixedDecimal& operator+=(const CFixedDecimal& other) { return op_Add(other); }
  CFixedDecimal& operator-=(const CFixedDecimal& other) { return op_Subtract(other); }
  CFixedDecimal& operator*=(const CFixedDecimal& other) { return op_Multiply(other); }
  CFixedDecimal& operator/=(const CFixedDecimal& other) { return op_Divide(other); }
  CFixedDecimal& operator++() { return op_Add(ms_One); }
  CFixedDecimal& operator--() { return op_Subtract(ms_One); }
  CFixedDecimal operator++(int) {
    CFixedDecimal old(*this);
    op_Add(ms_One);
    return old;
  }
  CFixedDecimal operator--(int) {
    CFixedDecimal old(*this);
    op_Subtract(ms_One);
    return old;
  }
  CFixedDecimal operator-() const {
    CFixedDecimal result(*this);
    if (result.IsNegative()) {
      result.SetPositive();
    } else {
      result.SetNegative();
    }
    return result;
  }

  friend CFixedDecimal operator+(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Evaluate(a, &CFixedDecimal::op_Add, b);
  }
  friend CFixedDecimal operator-(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Evaluate(a, &CFixedDecimal::op_Subtract, b);
  }
  friend CFixedDecimal operator*(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Evaluate(a, &CFixedDecimal::op_Multiply, b);
  }
  friend CFixedDecimal operator/(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Evaluate(a, &CFixedDecimal::op_Divide, b);
  }

  // A float or double takes part in arithmetic by the road of fromDouble; whole numbers convert by
  // themselves.
  template <std::floating_point TFloat>
  CFixedDecimal& operator+=(TFloat value) {
    return op_Add(CFixedDecimal(value));
  }
  template <std::floating_point TFloat>
  CFixedDecimal& operator-=(TFloat value) {
    return op_Subtract(CFixedDecimal(value));
  }
  template <std::floating_point TFloat>
  CFixedDecimal& operator*=(TFloat value) {
    return op_Multiply(CFixedDecimal(value));
  }
  template <std::floating_point TFloat>
  CFixedDecimal& operator/=(TFloat value) {
    return op_Divide(CFixedDecimal(value));
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator+(const CFixedDecimal& a, TFloat b) {
    return a + CFixedDecimal(b);
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator+(TFloat a, const CFixedDecimal& b) {
    return CFixedDecimal(a) + b;
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator-(const CFixedDecimal& a, TFloat b) {
    return a - CFixedDecimal(b);
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator-(TFloat a, const CFixedDecimal& b) {
    return CFixedDecimal(a) - b;
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator*(const CFixedDecimal& a, TFloat b) {
    return a * CFixedDecimal(b);
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator*(TFloat a, const CFixedDecimal& b) {
    return CFixedDecimal(a) * b;
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator/(const CFixedDecimal& a, TFloat b) {
    return a / CFixedDecimal(b);
  }
  template <std::floating_point TFloat>
  friend CFixedDecimal operator/(TFloat a, const CFixedDecimal& b) {
    return CFixedDecimal(a) / b;
  }

  friend bool operator==(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Compare(a, b) == 0;
  }
  friend std::strong_ordering operator<=>(const CFixedDecimal& a, const CFixedDecimal& b) {
    return Compare(a, b) <=> 0;
  }

 private:
  static constexpr std::uint64_t kLargestWhole = 99'999'999'999'999;

  // Switches the handler off for its lifetime; the status is still recorded.
  class CQuietScope {
   public:
    CQuietScope() : m_pfnSaved(SetErrorHandler(nullptr)) {}
    ~CQuietScope() { SetErrorHandler(m_pfnSaved); }
    CQuietScope(const CQuietScope&) = delete;
    CQuietScope& operator=(const CQuietScope&) = delete;

   private:
    ErrorHandler m_pfnSaved;
  };

  // Freezes the overflow registry for its lifetime.
  class CFrozenScope {
   public:
    CFrozenScope() { ++m_pTlsData->m_nHandlerDepth; }
    ~CFrozenScope() { --m_pTlsData->m_nHandlerDepth; }
    CFrozenScope(const CFrozenScope&) = delete;
    CFrozenScope& operator=(const CFrozenScope&) = delete;
  };

  // Keeps overflow unreported for its lifetime.
  class CExpressionScope {
   public:
    CExpressionScope() { ++m_pTlsData->m_nExpressionDepth; }
    ~CExpressionScope() { --m_pTlsData->m_nExpressionDepth; }
    CExpressionScope(const CExpressionScope&) = delete;
    CExpressionScope& operator=(const CExpressionScope&) = delete;
  };

  // The exact value of an overflow rides from copy to copy, and from the copy to the result.
  static CFixedDecimal Evaluate(const CFixedDecimal& a,
                                CFixedDecimal& (CFixedDecimal::*pfnOperation)(const CFixedDecimal&),
                                const CFixedDecimal& b) {
    const CExpressionScope scope;
    CFixedDecimal result(a);
    (result.*pfnOperation)(b);
    return result;
  }

  static bool RegistryExists() { return m_pTlsData_storage.m_pOverflowItems != nullptr; }
  static COverflowItem* FindItem(const CFixedDecimal* pKey) {
    return RegistryExists() ? m_pTlsData->m_pOverflowItems->Find(pKey) : nullptr;
  }
  void DropOverflowItem() {
    if (RegistryExists()) RemovePossibleOverflowItem(this);
  }
  bool IsZeroDigits() const { return packed::AreZero(m_aBytes, 0, kDigits); }
  CFixedDecimal& AddByDigits(const CFixedDecimal& other);
  CFixedDecimal& SubtractByDigits(const CFixedDecimal& other);
  CFixedDecimal& MultiplyByDigits(const CFixedDecimal& other);
  CFixedDecimal& DivideByDigits(const CFixedDecimal& other);
  CFixedDecimal& RoundByDigits(int nDecimals);
  CFixedDecimal& ShiftByDigits(int n);
  CFixedDecimal& ParseByDigits(const char* szText);
  TextType PrintByDigits(int nDecimals) const;
  CFixedDecimal& fromMathByDigits(const MathType& value);
  // The end of every fast road.
  CFixedDecimal& MarkGood();
  CFixedDecimal& StoreGood(packed::Words words);  // in FixedDecimalWords.h
  void StoreWhole(std::uint64_t nMagnitude, bool bNegative);
  template <bool bSubtract>
  CFixedDecimal& StoreSumOfCents(packed::Words a, packed::Words b, const CFixedDecimal& other);
  template <bool bSubtract>
  [[gnu::visibility("hidden")]] CFixedDecimal& StoreSum(const CFixedDecimal& other);
  CFixedDecimal& StoreProduct(const CFixedDecimal& other);
  CFixedDecimal& StoreLargeProduct(const CFixedDecimal& other);
  CFixedDecimal& StoreQuotient(const CFixedDecimal& other);
  CFixedDecimal& StoreRareQuotient(std::uint64_t nQuotient, const CFixedDecimal& other);
  CFixedDecimal& StoreLargeQuotient(const CFixedDecimal& other);
  static int CompareLastDigits(const CFixedDecimal& a, const CFixedDecimal& b);
  void SetToOverflow(bool bNegative, std::uint64_t nMagnitude);
  void StoreLimit(bool bPositive);
  DEC_STATUS AddOrSubtractExactly(const CFixedDecimal& left, const CFixedDecimal& right, bool bAdd);
  DEC_STATUS ShiftByPowerShortcut(const CFixedDecimal& right, bool& bTaken);
  DEC_STATUS StoreQuotientOrProduct(const MathType& value, bool bSameSigns);
  MathType ProductOfDigits(const CFixedDecimal& right) const;
  static MathType RoundedProduct(const MathType& left, const MathType& right);

  packed::Bytes m_aBytes;
};

using CDecimal = CFixedDecimal<23, 9>;

// The largest whole number not above the value.
ALDLIB_EXPORT CDecimal Floor(const CDecimal& value);

// Writes the exact value without trailing zeros ("12.5"); with std::fixed, as many decimals as the
// stream's precision, rounded ("12.50"). Leaves the last status as it was.
ALDLIB_EXPORT std::ostream& operator<<(std::ostream& stream, const CDecimal& value);

static_assert(sizeof(CDecimal) == 12 && alignof(CDecimal) == 1);
static_assert(std::is_standard_layout_v<CDecimal>);
static_assert(!std::is_convertible_v<CDecimal, double>);  // toDouble is always asked for by name

}  // namespace ald

// Values that compare equal show equal digits, so the digits and the sign make the hash.
template <>
struct std::hash<ald::CDecimal> {
  std::size_t operator()(const ald::CDecimal& value) const noexcept {
    std::uint64_t nHash = value.IsNegative() ? 0x9E3779B97F4A7C15U : 0;
    const ald::packed::Bytes& bytes = value.GetBytes();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const unsigned nByte = i + 1 < bytes.size() ? bytes[i] : bytes[i] & 0xF0U;
      nHash = (nHash ^ nByte) * 0x100000001B3U;
    }
    return static_cast<std::size_t>(nHash ^ (nHash >> 32));
  }
};

// An exact type in base ten. min and lowest are both the lower limit, since there is no exponent;
// epsilon is the smallest step.
template <>
class std::numeric_limits<ald::CDecimal> {
 public:
  static constexpr bool is_specialized = true;
  static constexpr bool is_signed = true;
  static constexpr bool is_integer = false;
  static constexpr bool is_exact = true;
  static constexpr bool is_bounded = true;
  static constexpr bool is_modulo = false;
  static constexpr bool has_infinity = false;
  static constexpr bool has_quiet_NaN = false;
  static constexpr bool has_signaling_NaN = false;
  static constexpr bool is_iec559 = false;
  static constexpr bool traps = false;
  static constexpr bool tinyness_before = false;
  static constexpr std::float_round_style round_style = std::round_to_nearest;
  static constexpr int radix = 10;
  static constexpr int digits = ald::CDecimal::kDigits;
  static constexpr int digits10 = ald::CDecimal::kDigits;
  static constexpr int max_digits10 = ald::CDecimal::kDigits;
  static constexpr int min_exponent = 0;
  static constexpr int min_exponent10 = 0;
  static constexpr int max_exponent = 0;
  static constexpr int max_exponent10 = 0;

  static constexpr ald::CDecimal max() noexcept { return Limit(ald::packed::kPositive); }
  static constexpr ald::CDecimal min() noexcept { return Limit(ald::packed::kNegative); }
  static constexpr ald::CDecimal lowest() noexcept { return Limit(ald::packed::kNegative); }
  static constexpr ald::CDecimal epsilon() noexcept { return OneDigit(0, 1); }
  static constexpr ald::CDecimal round_error() noexcept {
    return OneDigit(ald::CDecimal::kDecimals - 1, 5);
  }
  static constexpr ald::CDecimal infinity() noexcept { return ald::CDecimal(); }
  static constexpr ald::CDecimal quiet_NaN() noexcept { return ald::CDecimal(); }
  static constexpr ald::CDecimal signaling_NaN() noexcept { return ald::CDecimal(); }
  static constexpr ald::CDecimal denorm_min() noexcept { return min(); }

 private:
  static constexpr ald::CDecimal OneDigit(int nDigit, int nValue) {
    ald::packed::Bytes bytes = ald::packed::kZero;
    ald::packed::SetDigit(bytes, nDigit, nValue);
    return ald::CDecimal::FromBytes(bytes);
  }
  static constexpr ald::CDecimal Limit(std::uint8_t nSign) {
    ald::packed::Bytes bytes;
    bytes.fill(0x99);
    ald::packed::SetSign(bytes, nSign);
    return ald::CDecimal::FromBytes(bytes);
  }
};
