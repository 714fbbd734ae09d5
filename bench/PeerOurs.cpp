#include <cstdint>
#include <stdexcept>

#include "aldlib/arith/FixedDecimal.h"
#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// The decimal as a host calls it: across the border of the shared library.
namespace ald::bench {

namespace {

struct Ours : PeerBase {
  static constexpr const char* kName = "aldlib";
  using Value = CDecimal;

  static void Set(Value& value, Int128 n) {
    packed::Bytes bytes = packed::kZero;
    Int128 rest = n < 0 ? -n : n;
    for (int i = 0; i < CDecimal::kDigits; ++i, rest /= 10)
      packed::SetDigit(bytes, i, static_cast<int>(rest % 10));
    if (n < 0) packed::SetSign(bytes, packed::kNegative);
    value = CDecimal::FromBytes(bytes);
  }
  static Int128 Get(const Value& value) {
    Int128 n = 0;
    for (int i = CDecimal::kDigits - 1; i >= 0; --i) n = n * 10 + value.GetDigit(i);
    return value.IsNegative() ? -n : n;
  }
  static void Add(Value& result, const Value& a, const Value& b) {
    result = a;
    result.op_Add(b);
  }
  static void Subtract(Value& result, const Value& a, const Value& b) {
    result = a;
    result.op_Subtract(b);
  }
  static void Multiply(Value& result, const Value& a, const Value& b) {
    result = a;
    result.op_Multiply(b);
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    result = a;
    result.op_Divide(b);
  }
  static bool Less(const Value& a, const Value& b) { return a < b; }
  static void Read(Value& value, const char* szText) { value.fromRawString(szText); }
  static CDecimal::TextType Write(const Value& value, int nDecimals) {
    return value.toRawString(nDecimals);
  }
};

// An out-of-range value somewhere else: as long as there is one, all arithmetic goes digit by
// digit.
class COverflowElsewhere {
 public:
  COverflowElsewhere() {
    if (CDecimal::GetOverflowItem(&m_held) == nullptr)
      throw std::logic_error("the value is not out of range");
  }

 private:
  CDecimal m_held{INT64_MAX};
};

struct OursByDigits : Ours {
  static constexpr const char* kName = "digit by digit";
  using Setting = COverflowElsewhere;
};

constexpr auto AddByValue = [](CDecimal& result, const CDecimal& a, const CDecimal& b) {
  result = a + b;
};
constexpr auto RoundToCents = [](CDecimal& result, const CDecimal& a, const CDecimal&) {
  result = a;
  result.Round(2);
};
constexpr auto ExactCents = [](Int128 a, Int128) { return ExactRounded(a, 2); };

// Roads that no peer has in this form.
void AddRest(CHarness& harness, const ValueSet& set) {
  const Pairs& pairs = set.sums;
  AddPairwise<Ours, AddByValue, ExactSum>(harness, "a + b by value", set.sName, pairs);
  AddPairwise<Ours, RoundToCents, ExactCents>(harness, "round to cents", set.sName, pairs);

  const auto toWhole = [values = ValuesOf<Ours>(pairs.left)](auto sink) {
    const CDecimal* pValues = values->data();
    for (std::size_t i = 0; i < kPairs; ++i) sink(i, pValues[i].toIntType<long long>(true));
  };
  const auto checkWhole = [&pairs](CFaults& faults, std::size_t i, long long n) {
    faults.Expect(i, ExactRounded(pairs.left[i], 0), n * kScale);
  };
  AddChecked(harness, "to whole", set.sName, Ours::kName, kPairs, toWhole, checkWhole);

  const auto fromWhole = [&pairs](auto sink) {
    for (std::size_t i = 0; i < kPairs; ++i)
      sink(i, CDecimal(static_cast<long long>(pairs.left[i] / kScale)));
  };
  const auto checkDecimal = [&pairs](CFaults& faults, std::size_t i, const CDecimal& value) {
    faults.Expect(i, pairs.left[i] / kScale * kScale, Ours::Get(value));
  };
  AddChecked(harness, "from whole", set.sName, Ours::kName, kPairs, fromWhole, checkDecimal);
}

}  // namespace

void AddOurs(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<Ours>(harness, sets);
  for (const ValueSet* pSet : {&sets.money, &sets.full}) {
    AddFourOperations<OursByDigits>(harness, *pSet);
    AddRest(harness, *pSet);
  }
}

}  // namespace ald::bench
