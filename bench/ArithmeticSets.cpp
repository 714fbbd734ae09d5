#include "bench/ArithmeticSets.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace ald::bench {

namespace {

constexpr Int128 kCent = kScale / 100;
constexpr double kNegativeShare = 0.3;

Int128 PowerOf10(int n) {
  Int128 power = 1;
  for (; n > 0; --n) power *= 10;
  return power;
}

Int128 RoundedDivision(Int128 n, Int128 d) {
  const Int128 nSize = n < 0 ? -n : n;
  const Int128 dSize = d < 0 ? -d : d;
  const Int128 rest = nSize % dSize;
  const Int128 quotient = nSize / dSize + (rest >= dSize - rest ? 1 : 0);
  return (n < 0) == (d < 0) ? quotient : -quotient;
}

class CMaker {
 public:
  // As many small amounts as large ones: evenly spread on a logarithmic scale.
  Int128 Amount() {
    std::uniform_real_distribution<double> exponent(0, std::log(999'999'999.99));
    return Signed(Int128{std::llround(std::exp(exponent(m_random)))} * kCent);
  }
  // Exactly nDigits digits, the highest from 1 to nTop.
  Int128 Digits(int nDigits, int nTop) {
    Int128 value = Int128{Below(static_cast<unsigned>(nTop))} + 1;
    for (int i = 1; i < nDigits; ++i) value = value * 10 + Int128{Below(10)};
    return Signed(value);
  }
  // 0.9 to 1.1.
  Int128 NearOne() { return kScale * 9 / 10 + Int128{Below(200'000'001)}; }

 private:
  unsigned Below(unsigned n) { return std::uniform_int_distribution<unsigned>(0, n - 1)(m_random); }
  Int128 Signed(Int128 value) {
    return std::bernoulli_distribution(kNegativeShare)(m_random) ? -value : value;
  }

  std::mt19937_64 m_random{20'231'117};
};

template <class TMake>
Pairs MakePairs(TMake left, TMake right) {
  Pairs pairs;
  for (std::size_t i = 0; i < kPairs; ++i) {
    pairs.left.push_back(left());
    pairs.right.push_back(right());
  }
  return pairs;
}

}  // namespace

Int128 ExactProduct(Int128 a, Int128 b) {
  return RoundedDivision(a * b, kScale);
}

Int128 ExactQuotient(Int128 a, Int128 b) {
  return RoundedDivision(a * kScale, b);
}

Int128 ExactRounded(Int128 value, int nDecimals) {
  const Int128 unit = PowerOf10(9 - nDecimals);
  return RoundedDivision(value, unit) * unit;
}

std::string ExactText(Int128 value, int nDecimals) {
  Int128 rest = (value < 0 ? -value : value) / PowerOf10(9 - nDecimals);
  std::string sText;
  for (int i = 0; i <= nDecimals || rest != 0; ++i, rest /= 10) {
    if (i == nDecimals) sText += '.';
    sText += static_cast<char>('0' + static_cast<int>(rest % 10));
  }
  if (value < 0) sText += '-';
  std::reverse(sText.begin(), sText.end());
  return sText;
}

ArithmeticSets MakeArithmeticSets() {
  CMaker maker;
  ArithmeticSets sets;
  const auto amount = [&maker] { return maker.Amount(); };
  const Pairs money = MakePairs(amount, amount);
  sets.money = {"M", money, money, money, 2, {}};

  const auto digits = [&maker](int nDigits, int nTop) {
    return std::function<Int128()>([&maker, nDigits, nTop] { return maker.Digits(nDigits, nTop); });
  };
  sets.full = {"F",
               MakePairs(digits(23, 4), digits(23, 4)),  // sums of two fit
               MakePairs(digits(16, 9), digits(16, 9)),  // 7 before the point: products fit
               MakePairs(digits(23, 9), digits(16, 9)),
               9,
               {}};
  for (ValueSet* pSet : {&sets.money, &sets.full}) {
    for (const Int128 value : pSet->sums.left) pSet->texts.Add(ExactText(value, pSet->nDecimals));
  }

  for (const Int128 value : money.left) sets.amounts.push_back(value < 0 ? -value : value);
  for (std::size_t i = 0; i < kPairs / 2; ++i) {
    sets.chain.push_back(maker.NearOne());
    sets.chain.push_back(ExactQuotient(kScale, sets.chain.back()));
  }
  return sets;
}

}  // namespace ald::bench
