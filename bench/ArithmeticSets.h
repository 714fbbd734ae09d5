#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The values that the arithmetic is timed on, and what must come out. Every value is a whole
// number: 10^9 times what it stands for.
namespace ald::bench {

__extension__ typedef __int128 Int128;

// With fewer pairs the branch predictor would learn the values by heart.
constexpr std::size_t kPairs = 20'000;
constexpr Int128 kScale = 1'000'000'000;

struct Pairs {
  std::vector<Int128> left, right;
};

// Texts one behind the other in one buffer, as fields of records lie.
class CTexts {
 public:
  void Add(const std::string& sText) {
    m_starts.push_back(m_buffer.size());
    m_buffer += sText + '\0';
  }
  const char* operator[](std::size_t i) const { return m_buffer.c_str() + m_starts[i]; }

 private:
  std::string m_buffer;
  std::vector<std::size_t> m_starts;
};

struct ValueSet {
  std::string sName;
  Pairs sums;  // also compared, written and read
  Pairs factors;
  Pairs quotients;
  int nDecimals;  // of the texts
  CTexts texts;   // of sums.left
};

struct ArithmeticSets {
  ValueSet money;               // M: cents up to 9,999,999.99
  ValueSet full;                // F: as many digits as the operation has room for
  std::vector<Int128> amounts;  // for a running total: the amounts of M, all positive
  std::vector<Int128> chain;    // factors near 1, such that their product stays near 1
};

// The same values in every run.
ArithmeticSets MakeArithmeticSets();

// Rounded half away from zero to the ninth decimal.
Int128 ExactProduct(Int128 a, Int128 b);
Int128 ExactQuotient(Int128 a, Int128 b);
// To nDecimals decimals, at most 9, half away from zero.
Int128 ExactRounded(Int128 value, int nDecimals);
// The value to nDecimals decimals, 1 to 9; those behind must be zero.
std::string ExactText(Int128 value, int nDecimals);

}  // namespace ald::bench
