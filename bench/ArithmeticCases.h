#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/ArithmeticSets.h"
#include "bench/Harness.h"

// The same cases for every number type. A peer is a struct of static functions in the cheapest
// faithful form of its library, with results in place where it has that:
//
//   kName, Value                        its name in the tables, and its number
//   Set(value, n), Get(value)           from and to 10^9 times the value
//   Add, Subtract(result, a, b)
//   Multiply, Divide(result, a, b)      rounded to 9 decimals, half away from zero
//   Less(a, b)
//   Read(value, szText)                 optional
//   Write(value, nDecimals)             optional; returns a std::string or a text with view()
//   kIsFloating                         products and quotients keep all their digits instead
//   Setting                             is alive during each pass
//
// The sets must outlive the harness.
namespace ald::bench {

struct PeerBase {
  static constexpr bool kIsFloating = false;
  struct Setting {};
};

// For peers that have no text of their own.
struct WrittenText {
  std::array<char, 46> aChars;
  std::size_t nLength;
  std::string_view view() const { return {aChars.data(), nLength}; }
};

// Counts what differs and remembers the first.
class CFaults {
 public:
  void Expect(std::size_t i, std::string_view sExpected, std::string_view sActual) {
    if (sExpected != sActual && m_nWrong++ == 0) {
      m_sFirst = " wrong, the first at " + std::to_string(i) + ": ";
      m_sFirst.append(sActual).append(" instead of ").append(sExpected);
    }
  }
  void Expect(std::size_t i, Int128 expected, Int128 actual, Int128 tolerance = 0) {
    const Int128 distance = expected < actual ? actual - expected : expected - actual;
    if (distance > tolerance) Expect(i, ExactText(expected, 9), ExactText(actual, 9));
  }
  std::string Text() const { return m_nWrong == 0 ? "" : std::to_string(m_nWrong) + m_sFirst; }

 private:
  std::size_t m_nWrong = 0;
  std::string m_sFirst;
};

// run(sink) makes n results and hands each to sink(i, result). What is timed is what is checked.
template <class TRun, class TCheck>
void AddChecked(CHarness& harness, const char* szOperation, const std::string& sSet,
                const char* szPeer, std::size_t n, TRun run, TCheck check) {
  const auto pass = [run] { run([](std::size_t, const auto& result) { Keep(result); }); };
  const auto fault = [run, check] {
    CFaults faults;
    run([&](std::size_t i, const auto& result) { check(faults, i, result); });
    return faults.Text();
  };
  harness.Add({szOperation, sSet, szPeer, n, pass, fault});
}

template <class TPeer>
using Values = std::shared_ptr<std::vector<typename TPeer::Value>>;

template <class TPeer>
Values<TPeer> ValuesOf(const std::vector<Int128>& numbers) {
  auto values = std::make_shared<std::vector<typename TPeer::Value>>(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) TPeer::Set((*values)[i], numbers[i]);
  return values;
}

// A result at the start of a cache line. The stack begins elsewhere in each run, and a value that
// lay across two lines would have one run in four wait for it by half as long again.
template <class TPeer>
struct alignas(64) Result {
  typename TPeer::Value value;
};

template <class TPeer, auto operation, auto exact>
void AddPairwise(CHarness& harness, const char* szOperation, const std::string& sSet,
                 const Pairs& pairs, Int128 tolerance = 0) {
  const auto run = [left = ValuesOf<TPeer>(pairs.left),
                    right = ValuesOf<TPeer>(pairs.right)](auto sink) {
    [[maybe_unused]] const typename TPeer::Setting setting;
    const auto* pLeft = left->data();
    const auto* pRight = right->data();
    Result<TPeer> result;
    for (std::size_t i = 0; i < kPairs; ++i) {
      operation(result.value, pLeft[i], pRight[i]);
      sink(i, result.value);
    }
  };
  const auto check = [&pairs, tolerance](CFaults& faults, std::size_t i, const auto& result) {
    faults.Expect(i, exact(pairs.left[i], pairs.right[i]), TPeer::Get(result), tolerance);
  };
  AddChecked(harness, szOperation, sSet, TPeer::kName, kPairs, run, check);
}

// running = running operation number, over and over: each waits for the one before.
template <class TPeer, auto operation, auto exact>
void AddChain(CHarness& harness, const char* szOperation, const char* szSet, Int128 start,
              const std::vector<Int128>& numbers) {
  const auto run = [start, values = ValuesOf<TPeer>(numbers)](auto sink) {
    Result<TPeer> running;
    TPeer::Set(running.value, start);
    for (const auto& value : *values) operation(running.value, running.value, value);
    sink(values->size(), running.value);
  };
  const auto check = [start, &numbers](CFaults& faults, std::size_t i, const auto& result) {
    Int128 expected = start;
    for (const Int128 number : numbers) expected = exact(expected, number);
    faults.Expect(i, expected, TPeer::Get(result));
  };
  AddChecked(harness, szOperation, szSet, TPeer::kName, kPairs, run, check);
}

template <class TPeer>
void AddCompare(CHarness& harness, const ValueSet& set) {
  const auto run = [left = ValuesOf<TPeer>(set.sums.left),
                    right = ValuesOf<TPeer>(set.sums.right)](auto sink) {
    const auto* pLeft = left->data();
    const auto* pRight = right->data();
    for (std::size_t i = 0; i < kPairs; ++i) sink(i, TPeer::Less(pLeft[i], pRight[i]));
  };
  const auto check = [&set](CFaults& faults, std::size_t i, bool bLess) {
    faults.Expect(i, set.sums.left[i] < set.sums.right[i] ? 1 : 0, bLess ? 1 : 0);
  };
  AddChecked(harness, "compare", set.sName, TPeer::kName, kPairs, run, check);
}

template <class TPeer>
void AddTexts(CHarness& harness, const ValueSet& set) {
  if constexpr (requires { &TPeer::Read; }) {
    const auto run = [&set](auto sink) {
      Result<TPeer> result;
      for (std::size_t i = 0; i < kPairs; ++i) {
        TPeer::Read(result.value, set.texts[i]);
        sink(i, result.value);
      }
    };
    const auto check = [&set](CFaults& faults, std::size_t i, const auto& value) {
      faults.Expect(i, set.sums.left[i], TPeer::Get(value));
    };
    AddChecked(harness, "parse", set.sName, TPeer::kName, kPairs, run, check);
  }
  if constexpr (requires { &TPeer::Write; }) {
    const auto run = [values = ValuesOf<TPeer>(set.sums.left),
                      nDecimals = set.nDecimals](auto sink) {
      const auto* pValues = values->data();
      for (std::size_t i = 0; i < kPairs; ++i) sink(i, TPeer::Write(pValues[i], nDecimals));
    };
    const auto check = [&set](CFaults& faults, std::size_t i, const auto& text) {
      if constexpr (requires { text.view(); }) {
        faults.Expect(i, set.texts[i], text.view());
      } else {
        faults.Expect(i, set.texts[i], text);
      }
    };
    AddChecked(harness, "format", set.sName, TPeer::kName, kPairs, run, check);
  }
}

constexpr auto ExactSum = [](Int128 a, Int128 b) { return a + b; };
constexpr auto ExactDifference = [](Int128 a, Int128 b) { return a - b; };

template <class TPeer>
void AddFourOperations(CHarness& harness, const ValueSet& set) {
  // A quotient of 34 digits has been rounded once before it is rounded to 9 decimals.
  constexpr Int128 kTolerance = TPeer::kIsFloating ? 1 : 0;
  AddPairwise<TPeer, TPeer::Add, ExactSum>(harness, "add", set.sName, set.sums);
  AddPairwise<TPeer, TPeer::Subtract, ExactDifference>(harness, "subtract", set.sName, set.sums);
  AddPairwise<TPeer, TPeer::Multiply, ExactProduct>(harness, "multiply", set.sName, set.factors);
  AddPairwise<TPeer, TPeer::Divide, ExactQuotient>(harness, "divide", set.sName, set.quotients,
                                                   kTolerance);
}

template <class TPeer>
void AddAll(CHarness& harness, const ArithmeticSets& sets) {
  for (const ValueSet* pSet : {&sets.money, &sets.full}) {
    AddFourOperations<TPeer>(harness, *pSet);
    AddCompare<TPeer>(harness, *pSet);
    AddTexts<TPeer>(harness, *pSet);
  }
  AddChain<TPeer, TPeer::Add, ExactSum>(harness, "sum", "M", 0, sets.amounts);
  // A floating chain ends elsewhere, since it rounds elsewhere.
  if constexpr (!TPeer::kIsFloating) {
    constexpr Int128 kStart = Int128{1'234'567} * kScale + 891'234'567;
    AddChain<TPeer, TPeer::Multiply, ExactProduct>(harness, "multiply chain", "F", kStart,
                                                   sets.chain);
  }
}

}  // namespace ald::bench
