#include <cstdint>
#include <cstring>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// The floor: the compiler's own 128-bit integer, times 10^9. No status, no overflow.
namespace ald::bench {

namespace {

struct ScaledInt128 : PeerBase {
  static constexpr const char* kName = "__int128";
  using Value = Int128;

  static void Set(Value& value, Int128 n) { value = n; }
  static Int128 Get(const Value& value) { return value; }
  static void Add(Value& result, const Value& a, const Value& b) { result = a + b; }
  static void Subtract(Value& result, const Value& a, const Value& b) { result = a - b; }
  static void Multiply(Value& result, const Value& a, const Value& b) {
    const Int128 product = a * b;
    result = (product < 0 ? product - kScale / 2 : product + kScale / 2) / kScale;
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    const Int128 scaled = a * kScale;
    const Int128 half = b / 2;
    result = ((scaled < 0) == (b < 0) ? scaled + half : scaled - half) / b;
  }
  static bool Less(const Value& a, const Value& b) { return a < b; }

  static void Read(Value& value, const char* szText) {
    const bool bMinus = *szText == '-';
    if (bMinus) ++szText;
    std::uint64_t nWhole = 0;
    for (; *szText >= '0' && *szText <= '9'; ++szText)
      nWhole = nWhole * 10 + static_cast<unsigned>(*szText - '0');
    std::uint64_t nPart = 0;
    int nMissing = 9;
    if (*szText == '.') {
      for (++szText; *szText >= '0' && *szText <= '9' && nMissing > 0; ++szText, --nMissing)
        nPart = nPart * 10 + static_cast<unsigned>(*szText - '0');
    }
    for (; nMissing > 0; --nMissing) nPart *= 10;
    value = Int128{nWhole} * kScale + nPart;
    if (bMinus) value = -value;
  }

  // Digit by digit from the end, in 64 bits where that does.
  static WrittenText Write(const Value& value, int nDecimals) {
    Unsigned128 size = static_cast<Unsigned128>(value < 0 ? -value : value);
    unsigned nUnit = 1'000'000'000;
    if (nDecimals < 9) {
      constexpr std::array<unsigned, 10> kPowers{
          1, 10, 100, 1000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
      nUnit = kPowers[static_cast<std::size_t>(nDecimals)];
      const unsigned nDropped = kPowers[static_cast<std::size_t>(9 - nDecimals)];
      size = (size + nDropped / 2) / nDropped;
    }
    auto nWhole = static_cast<std::uint64_t>(size / nUnit);
    auto nPart = static_cast<std::uint64_t>(size % nUnit);
    std::array<char, 32> aDigits;
    char* const pEnd = aDigits.data() + aDigits.size();
    char* p = pEnd;
    for (int i = 0; i < nDecimals; ++i, nPart /= 10) *--p = static_cast<char>('0' + nPart % 10);
    if (nDecimals > 0) *--p = '.';
    do {
      *--p = static_cast<char>('0' + nWhole % 10);
      nWhole /= 10;
    } while (nWhole != 0);
    if (value < 0) *--p = '-';
    WrittenText text;
    text.nLength = static_cast<std::size_t>(pEnd - p);
    std::memcpy(text.aChars.data(), p, text.nLength);
    text.aChars[text.nLength] = '\0';
    return text;
  }

 private:
  __extension__ typedef unsigned __int128 Unsigned128;
};

}  // namespace

void AddInt128(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<ScaledInt128>(harness, sets);
}

}  // namespace ald::bench
