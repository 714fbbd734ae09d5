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

// Functions that no peer has in this form.
constexpr auto AddByValue = [](CDecimal& result, const CDecimal& a, const CDecimal& b) {
  result = a + b;
};
constexpr auto RoundToCents = [](CDecimal& result, const CDecimal& a, const CDecimal&) {
  result = a;
  result.Round(2);
};
constexpr auto ThroughWhole = [](CDecimal& result, const CDecimal& a, const CDecimal&) {
  result = CDecimal(a.toIntType<long long>(true));
};
constexpr auto ExactCents = [](Int128 a, Int128) { return ExactRounded(a, 2); };
constexpr auto ExactWhole = [](Int128 a, Int128) { return ExactRounded(a, 0); };

}  // namespace

void AddOurs(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<Ours>(harness, sets);
  for (const ValueSet* pSet : {&sets.money, &sets.full}) {
    AddFourOperations<OursByDigits>(harness, *pSet);
    const auto& [sName, pairs] = std::tie(pSet->sName, pSet->sums);
    AddPairwise<Ours, AddByValue, ExactSum>(harness, "a + b by value", sName, pairs);
    AddPairwise<Ours, RoundToCents, ExactCents>(harness, "round to cents", sName, pairs);
    AddPairwise<Ours, ThroughWhole, ExactWhole>(harness, "to whole and back", sName, pairs);
  }
}

}  // namespace ald::bench
