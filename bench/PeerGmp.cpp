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

// Room for steps in between, made once.
CInteger g_product, g_scaled, g_half, g_rounded;

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
    mpz_mul(g_product, a, b);
    DivideRounded(result, g_product, kUnit);
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    mpz_mul_ui(g_scaled, a, kUnit);
    mpz_tdiv_q_2exp(g_half, b, 1);
    if (IsNegative(a) == IsNegative(b)) {
      mpz_add(g_scaled, g_scaled, g_half);
    } else {
      mpz_sub(g_scaled, g_scaled, g_half);
    }
    mpz_tdiv_q(result, g_scaled, b);
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
    mpz_srcptr shown = value;
    if (nDecimals < 9) {
      constexpr std::array<unsigned long, 9> kDropped{
          1'000'000'000, 100'000'000, 10'000'000, 1'000'000, 100'000, 10'000, 1000, 100, 10};
      DivideRounded(g_rounded, value, kDropped[static_cast<std::size_t>(nDecimals)]);
      shown = g_rounded;
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
  // Half away from zero.
  static void DivideRounded(Value& result, const Value& dividend, unsigned long nDivisor) {
    if (IsNegative(dividend)) {
      mpz_sub_ui(result, dividend, nDivisor / 2);
    } else {
      mpz_add_ui(result, dividend, nDivisor / 2);
    }
    mpz_tdiv_q_ui(result, result, nDivisor);
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
