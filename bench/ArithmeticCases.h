#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/ArithmeticSets.h"
#include "bench/Harness.h"

// One set of cases for every number type. A peer is a struct of static functions in the cheapest
// faithful form of its library, with results in place and without allocation where it has that:
//
//   kName, Value                           its name in the tables, and its number
//   Set(value, n), Get(value)              from and to 10^9 times the value
//   Add, Subtract, Divide(result, a, b)    Divide rounds to 9 decimals, half away from zero
//   Multiply(result, a, b)                 so does Multiply; result may be a
//   Less(a, b)
//   Read(value, szText)                    optional
//   Write(value, nDecimals)                optional; returns a text with view() or a std::string
//   kIsFloating                            keeps all its digits instead of rounding to 9 decimals
//   Setting                                alive during each pass
namespace ald::bench {

struct PeerBase {
  static constexpr bool kIsFloating = false;
  struct Setting {};
};

// A written text, for the peers that have none of their own.
struct WrittenText {
  std::array<char, 46> aChars;
  std::size_t nLength;
  std::string_view view() const { return {aChars.data(), nLength}; }
};

inline std::string_view ViewOf(const auto& text) {
  if constexpr (requires { text.view(); }) {
    return text.view();
  } else {
    return text;
  }
}

// Counts what differs and remembers the first.
class CFaults {
 public:
  void Expect(bool bRight, std::size_t i, const std::string& sExpected, const auto& actual) {
    if (bRight) return;
    if (m_nWrong++ == 0) {
      m_sFirst = " wrong, the first at " + std::to_string(i) + ": ";
      m_sFirst += actual();
      m_sFirst += " for " + sExpected;
    }
  }
  std::string Text() const { return m_nWrong == 0 ? "" : std::to_string(m_nWrong) + m_sFirst; }

 private:
  std::size_t m_nWrong = 0;
  std::string m_sFirst;
};

void ExpectNear(CFaults& faults, std::size_t i, Int128 expected, Int128 actual, Int128 tolerance);

template <class TPeer>
std::shared_ptr<std::vector<typename TPeer::Value>> ValuesOf(const std::vector<Int128>& numbers) {
  auto values = std::make_shared<std::vector<typename TPeer::Value>>(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) TPeer::Set((*values)[i], numbers[i]);
  return values;
}

// result = a operation b for each pair. The pairs must outlive the harness.
template <class TPeer, auto operation, auto exact>
void AddPairwise(CHarness& harness, const char* szOperation, const std::string& sSet,
                 const Pairs& pairs, Int128 tolerance = 0) {
  using Value = typename TPeer::Value;
  const auto left = ValuesOf<TPeer>(pairs.left);
  const auto right = ValuesOf<TPeer>(pairs.right);
  const auto pass = [left, right] {
    [[maybe_unused]] const typename TPeer::Setting setting;
    const Value* pRight = right->data();
    Value result;
    for (const Value& value : *left) {
      operation(result, value, *pRight++);
      Keep(result);
    }
  };
  const auto fault = [left, right, &pairs, tolerance] {
    [[maybe_unused]] const typename TPeer::Setting setting;
    CFaults faults;
    Value result;
    for (std::size_t i = 0; i < left->size(); ++i) {
      operation(result, (*left)[i], (*right)[i]);
      ExpectNear(faults, i, exact(pairs.left[i], pairs.right[i]), TPeer::Get(result), tolerance);
    }
    return faults.Text();
  };
  harness.Add({szOperation, sSet, TPeer::kName, pairs.left.size(), pass, fault});
}

// value = value operation next, over and over: the time until the result can be used again.
template <class TPeer, auto operation, auto exact>
void AddChain(CHarness& harness, const char* szOperation, const std::string& sSet, Int128 start,
              const std::vector<Int128>& numbers) {
  using Value = typename TPeer::Value;
  const auto values = ValuesOf<TPeer>(numbers);
  const auto run = [values, start] {
    [[maybe_unused]] const typename TPeer::Setting setting;
    Value running;
    TPeer::Set(running, start);
    for (const Value& value : *values) operation(running, running, value);
    Keep(running);
    return TPeer::Get(running);
  };
  const auto fault = [run, start, &numbers] {
    Int128 expected = start;
    for (const Int128 number : numbers) expected = exact(expected, number);
    CFaults faults;
    ExpectNear(faults, numbers.size(), expected, run(), 0);
    return faults.Text();
  };
  harness.Add({szOperation, sSet, TPeer::kName, numbers.size(), [run] { run(); }, fault});
}

template <class TPeer>
void AddCompare(CHarness& harness, const std::string& sSet, const Pairs& pairs) {
  const auto left = ValuesOf<TPeer>(pairs.left);
  const auto right = ValuesOf<TPeer>(pairs.right);
  const auto pass = [left, right] {
    const typename TPeer::Value* pRight = right->data();
    std::size_t nLess = 0;
    for (const typename TPeer::Value& value : *left) nLess += TPeer::Less(value, *pRight++) ? 1 : 0;
    Keep(nLess);
  };
  const auto fault = [left, right, &pairs] {
    CFaults faults;
    for (std::size_t i = 0; i < left->size(); ++i) {
      const bool bLess = TPeer::Less((*left)[i], (*right)[i]);
      ExpectNear(faults, i, pairs.left[i] < pairs.right[i] ? 1 : 0, bLess ? 1 : 0, 0);
    }
    return faults.Text();
  };
  harness.Add({"compare", sSet, TPeer::kName, pairs.left.size(), pass, fault});
}

template <class TPeer>
void AddTexts(CHarness& harness, const ValueSet& set) {
  using Value = typename TPeer::Value;
  const std::vector<Int128>& numbers = set.sums.left;
  if constexpr (requires { &TPeer::Read; }) {
    const auto pass = [&set] {
      Value value;
      for (std::size_t i = 0; i < kPairs; ++i) {
        TPeer::Read(value, set.texts[i]);
        Keep(value);
      }
    };
    const auto fault = [&set, &numbers] {
      CFaults faults;
      Value value;
      for (std::size_t i = 0; i < kPairs; ++i) {
        TPeer::Read(value, set.texts[i]);
        ExpectNear(faults, i, numbers[i], TPeer::Get(value), 0);
      }
      return faults.Text();
    };
    harness.Add({"parse", set.sName, TPeer::kName, kPairs, pass, fault});
  }
  if constexpr (requires { &TPeer::Write; }) {
    const auto values = ValuesOf<TPeer>(numbers);
    const auto pass = [values, nDecimals = set.nDecimals] {
      for (const Value& value : *values) {
        const auto text = TPeer::Write(value, nDecimals);
        Keep(text);
      }
    };
    const auto fault = [values, &set] {
      CFaults faults;
      for (std::size_t i = 0; i < kPairs; ++i) {
        const auto text = TPeer::Write((*values)[i], set.nDecimals);
        faults.Expect(ViewOf(text) == set.texts[i], i, set.texts[i], [&] { return ViewOf(text); });
      }
      return faults.Text();
    };
    harness.Add({"format", set.sName, TPeer::kName, kPairs, pass, fault});
  }
}

constexpr auto ExactSum = [](Int128 a, Int128 b) { return a + b; };
constexpr auto ExactDifference = [](Int128 a, Int128 b) { return a - b; };

template <class TPeer>
void AddFourOperations(CHarness& harness, const ValueSet& set) {
  // A quotient of 34 digits is rounded once before it is rounded to 9 decimals.
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
    AddCompare<TPeer>(harness, pSet->sName, pSet->sums);
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
