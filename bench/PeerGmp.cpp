#include <gmp.h>

#include <cstring>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// GMP's integers times 10^9, into results that exist already.
namespace ald::bench {

namespace {

constexpr unsigned long kUnit = 1'000'000'000;

class CInteger {
 public:
  CInteger() { mpz_init2(m_z, 192); }
  ~CInteger() { mpz_clear(m_z); }
  CInteger(const CInteger&) = delete;
  CInteger& operator=(const CInteger&) = delete;
  operator mpz_ptr() { return m_z; }
  operator mpz_srcptr() const { return m_z; }

 private:
  mpz_t m_z;
};

struct Gmp : PeerBase {
  static constexpr const char* kName = "GMP";
  using Value = CInteger;

  static void Set(Value& value, Int128 n) {
    const Int128 size = n < 0 ? -n : n;
    mpz_set_ui(value, static_cast<unsigned long>(size >> 64));
    mpz_mul_2exp(value, value, 64);
    mpz_add_ui(value, value, static_cast<unsigned long>(size));
    if (n < 0) mpz_neg(value, value);
  }
  static Int128 Get(const Value& value) {
    const Int128 size =
        Int128{mpz_getlimbn(value, 1)} << 64 | static_cast<Int128>(mpz_getlimbn(value, 0));
    return mpz_sgn(static_cast<mpz_srcptr>(value)) < 0 ? -size : size;
  }
  static void Add(Value& result, const Value& a, const Value& b) { mpz_add(result, a, b); }
  static void Subtract(Value& result, const Value& a, const Value& b) { mpz_sub(result, a, b); }
  static void Multiply(Value& result, const Value& a, const Value& b) {
    static Value product;
    mpz_mul(product, a, b);
    DivideRounded(result, product, kUnit);
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    static Value scaled;
    static Value half;
    mpz_mul_ui(scaled, a, kUnit);
    mpz_tdiv_q_2exp(half, b, 1);
    if (IsNegative(a) == IsNegative(b)) {
      mpz_add(scaled, scaled, half);
    } else {
      mpz_sub(scaled, scaled, half);
    }
    mpz_tdiv_q(result, scaled, b);
  }
  static bool Less(const Value& a, const Value& b) { return mpz_cmp(a, b) < 0; }

  // The digits without the point, filled up to nine decimals.
  static void Read(Value& value, const char* szText) {
    std::array<char, 48> szDigits;
    char* p = szDigits.data();
    while (*szText != '\0' && *szText != '.') *p++ = *szText++;
    int nMissing = 9;
    if (*szText == '.') {
      for (++szText; *szText != '\0' && nMissing > 0; --nMissing) *p++ = *szText++;
    }
    while (nMissing-- > 0) *p++ = '0';
    *p = '\0';
    mpz_set_str(value, szDigits.data(), 10);
  }

  static WrittenText Write(const Value& value, int nDecimals) {
    static Value rounded;
    mpz_srcptr shown = value;
    if (nDecimals < 9) {
      unsigned long nDropped = 1;
      for (int i = nDecimals; i < 9; ++i) nDropped *= 10;
      static Value copy;
      mpz_set(copy, value);
      DivideRounded(rounded, copy, nDropped);
      shown = rounded;
    }
    std::array<char, 48> szDigits;
    mpz_get_str(szDigits.data(), 10, shown);
    const char* pDigits = szDigits.data();
    WrittenText text;
    char* p = text.aChars.data();
    if (*pDigits == '-') *p++ = *pDigits++;
    const auto nDigits = static_cast<std::ptrdiff_t>(std::strlen(pDigits));
    const std::ptrdiff_t nWhole = nDigits - nDecimals;
    if (nWhole > 0) {
      p = Append(p, pDigits, nWhole);
      *p++ = '.';
      p = Append(p, pDigits + nWhole, nDecimals);
    } else {
      *p++ = '0';
      *p++ = '.';
      for (std::ptrdiff_t i = nWhole; i < 0; ++i) *p++ = '0';
      p = Append(p, pDigits, nDigits);
    }
    *p = '\0';
    text.nLength = static_cast<std::size_t>(p - text.aChars.data());
    return text;
  }

 private:
  static bool IsNegative(const Value& value) { return mpz_sgn(static_cast<mpz_srcptr>(value)) < 0; }
  // Half away from zero. The dividend is used up.
  static void DivideRounded(Value& result, Value& dividend, unsigned long nDivisor) {
    if (IsNegative(dividend)) {
      mpz_sub_ui(dividend, dividend, nDivisor / 2);
    } else {
      mpz_add_ui(dividend, dividend, nDivisor / 2);
    }
    mpz_tdiv_q_ui(result, dividend, nDivisor);
  }
  static char* Append(char* pTarget, const char* pSource, std::ptrdiff_t nLength) {
    std::memcpy(pTarget, pSource, static_cast<std::size_t>(nLength));
    return pTarget + nLength;
  }
};

}  // namespace

void AddGmp(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<Gmp>(harness, sets);
}

}  // namespace ald::bench
