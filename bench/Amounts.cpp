#include <monetary.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Parse.h"
#include "aldlib/amounts/Words.h"
#include "bench/Harness.h"

#ifdef ALDLIB_BENCH_BOOST
#include <boost/multiprecision/cpp_dec_float.hpp>
#endif

// Amounts of money as people type and read them, with thousands separators, against what a C++
// program would use instead. None of the peers knows separators when it reads, so each is handed
// the plain digits: they do less.
namespace ald::bench {

namespace {

constexpr std::size_t kAmounts = 20'000;

struct Amounts {
  std::vector<std::string> typed;  // "1,234.50"
  std::vector<std::string> plain;  // "1234.50"
  std::vector<double> doubles;
  std::vector<CDecimal> decimals;
};

std::string WithSeparators(const std::string& sPlain) {
  std::string sTyped = sPlain;
  const std::size_t nFirst = sTyped.front() == '-' ? 1 : 0;
  for (std::size_t i = sTyped.find('.'); i > nFirst + 3;) sTyped.insert(i -= 3, 1, ',');
  return sTyped;
}

// As many small amounts as large ones, from 0.01 to 9,999,999.99, 30 % negative.
Amounts MakeAmounts() {
  Amounts amounts;
  std::mt19937_64 random(20'000);
  std::uniform_real_distribution<double> logarithm(std::log(1.0), std::log(999'999'999.0));
  for (std::size_t i = 0; i < kAmounts; ++i) {
    const auto nCents = static_cast<long long>(std::exp(logarithm(random)));
    char szPlain[32];
    std::snprintf(szPlain, sizeof szPlain, "%s%lld.%02lld", random() % 10 < 3 ? "-" : "",
                  nCents / 100, nCents % 100);
    amounts.plain.push_back(szPlain);
    amounts.typed.push_back(WithSeparators(szPlain));
    amounts.doubles.push_back(std::strtod(szPlain, nullptr));
    amounts.decimals.emplace_back(szPlain);
  }
  return amounts;
}

// A case whose pass hands each amount's result to a sink: the timed pass keeps it, the proof
// compares its text with what is expected of the amount.
template <class TWork, class TExpected>
void AddCase(CHarness& harness, const char* szOperation, const char* szPeer, TWork work,
             TExpected expected) {
  harness.Add({szOperation, "M", szPeer, kAmounts,
               [work] {
                 for (std::size_t i = 0; i < kAmounts; ++i) Keep(work(i));
               },
               [work, expected, szPeer] {
                 for (std::size_t i = 0; i < kAmounts; ++i) {
                   if (!expected(i, work(i)))
                     return std::string(szPeer) + " disagrees on amount " + std::to_string(i);
                 }
                 return std::string();
               }});
}

void AddReaders(CHarness& harness, const Amounts& amounts) {
  const auto sameDouble = [&amounts](std::size_t i, double value) {
    return value == amounts.doubles[i];
  };
  AddCase(
      harness, "read", "aldlib",
      [&amounts](std::size_t i) {
        CDecimal value;
        MyStringToReal(amounts.typed[i].c_str(), &value);
        return value;
      },
      [&amounts](std::size_t i, const CDecimal& value) { return value == amounts.decimals[i]; });
  AddCase(
      harness, "read", "from_chars",
      [&amounts](std::size_t i) {
        double value = 0;
        std::from_chars(amounts.plain[i].data(), amounts.plain[i].data() + amounts.plain[i].size(),
                        value);
        return value;
      },
      sameDouble);
  AddCase(
      harness, "read", "strtod",
      [&amounts](std::size_t i) { return std::strtod(amounts.plain[i].c_str(), nullptr); },
      sameDouble);
#ifdef ALDLIB_BENCH_BOOST
  using Decimal = boost::multiprecision::cpp_dec_float_50;
  AddCase(
      harness, "read", "cpp_dec_float",
      [&amounts](std::size_t i) { return Decimal(amounts.plain[i].c_str()); },
      [&amounts](std::size_t i, const Decimal& value) {
        return static_cast<double>(value) == amounts.doubles[i];
      });
#endif
}

void AddWriters(CHarness& harness, const Amounts& amounts) {
  using Text = CFixedString<24>;
  AddCase(
      harness, "write", "aldlib",
      [&amounts](std::size_t i) {
        Text text;
        MyRealToString(amounts.decimals[i], text, 2, 16);
        return text;
      },
      [&amounts](std::size_t i, const Text& text) {
        return text.view().substr(text.view().find_first_not_of(' ')) == amounts.typed[i];
      });
  AddCase(
      harness, "write", "strfmon",
      [&amounts](std::size_t i) {
        Text text;
        strfmon(text, 24, "%!.2n", amounts.doubles[i]);
        return text;
      },
      // In the C locale it writes no separators.
      [&amounts](std::size_t i, const Text& text) { return text == amounts.plain[i]; });
  AddCase(
      harness, "write", "snprintf",
      [&amounts](std::size_t i) {
        Text text;
        std::snprintf(text, 24, "%.2f", amounts.doubles[i]);
        return text;
      },
      [&amounts](std::size_t i, const Text& text) { return text == amounts.plain[i]; });
#ifdef ALDLIB_BENCH_BOOST
  using Decimal = boost::multiprecision::cpp_dec_float_50;
  const auto decimals = std::make_shared<std::vector<Decimal>>();
  for (const std::string& sPlain : amounts.plain) decimals->emplace_back(sPlain);
  AddCase(
      harness, "write", "cpp_dec_float",
      [decimals](std::size_t i) { return (*decimals)[i].str(2, std::ios_base::fixed); },
      [&amounts](std::size_t i, const std::string& sText) { return sText == amounts.plain[i]; });
#endif
}

// The line of words of a cheque, which has no peer.
void AddWords(CHarness& harness, const Amounts& amounts) {
  using Text = CFixedString<161>;
  AddCase(
      harness, "words", "aldlib",
      [&amounts](std::size_t i) {
        Text text;
        CheckAmountText(amounts.decimals[i], text, false);
        return text;
      },
      [&amounts](std::size_t i, const Text& text) {
        const std::string& sPlain = amounts.plain[i];
        return text.view().ends_with(sPlain.substr(sPlain.size() - 2) + "/100 Dollars");
      });
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald::bench;
  const Amounts amounts = MakeAmounts();
  CHarness harness("amounts", "aldlib");
  AddReaders(harness, amounts);
  AddWriters(harness, amounts);
  AddWords(harness, amounts);
  // Reading a double is another job, without separators, signs behind or a status: shown, with
  // nothing promised.
  harness.Want("read", "M", "from_chars", 0, 0);
  harness.Want("read", "M", "strtod", 0, 0);
  harness.Want("read", "M", "cpp_dec_float", 2, 0);
  for (const char* szPeer : {"strfmon", "snprintf", "cpp_dec_float"})
    harness.Want("write", "M", szPeer, 2, 0);
  return harness.Main(argc, argv);
}
