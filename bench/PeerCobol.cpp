#include <cstdint>
#include <cstring>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// GnuCOBOL's COMP-3 fields: the same twelve bytes, with 0xC for plus. See PackedTables.cob.
extern "C" int packed_tables(std::int32_t* pOperation, const void* pLefts, const void* pRights,
                             void* pResults, std::int32_t* pLess);

namespace ald::bench {

namespace {

constexpr std::size_t kTable = 1000;
static_assert(kPairs % kTable == 0);

using Field = std::array<std::uint8_t, 12>;
using Fields = std::shared_ptr<std::vector<Field>>;
enum EOperation : std::int32_t { kAdd = 1, kSubtract, kMultiply, kDivide, kCompare, kSum };

Field Packed(Int128 n) {
  Field field;
  Int128 rest = n < 0 ? -n : n;
  unsigned nNibble = n < 0 ? 0xD : 0xC;
  for (std::size_t i = field.size(); i-- > 0;) {
    field[i] = static_cast<std::uint8_t>(static_cast<unsigned>(rest % 10) << 4 | nNibble);
    rest /= 10;
    nNibble = static_cast<unsigned>(rest % 10);
    rest /= 10;
  }
  return field;
}

Int128 Unpacked(const Field& field) {
  Int128 n = 0;
  for (std::size_t i = 0; i < field.size(); ++i) {
    n = n * 10 + (field[i] >> 4);
    if (i + 1 < field.size()) n = n * 10 + (field[i] & 0xF);
  }
  return (field.back() & 0xF) == 0xD ? -n : n;
}

Fields PackedAll(const std::vector<Int128>& numbers) {
  auto fields = std::make_shared<std::vector<Field>>();
  for (const Int128 number : numbers) fields->push_back(Packed(number));
  return fields;
}

// Each table has its results; those of a sum are all in the first field. Returns how many compared
// less.
std::int32_t Run(std::int32_t eOperation, const Fields& left, const Fields& right,
                 std::vector<Field>& results) {
  std::int32_t nLess = 0;
  for (std::size_t i = 0; i < left->size(); i += kTable) {
    Field* pResults = results.data() + (eOperation == kSum ? 0 : i);
    packed_tables(&eOperation, left->data() + i, right->data() + i, pResults, &nLess);
  }
  return nLess;
}

void AddTables(CHarness& harness, EOperation eOperation, const char* szName,
               const std::string& sSet, const Pairs& pairs, Int128 (*exact)(Int128, Int128)) {
  const Fields left = PackedAll(pairs.left);
  const Fields right = PackedAll(pairs.right);
  const auto results = std::make_shared<std::vector<Field>>(kPairs, Packed(0));
  const auto pass = [=] { Run(eOperation, left, right, *results); };
  const auto fault = [=, &pairs] {
    CFaults faults;
    const std::int32_t nLess = Run(eOperation, left, right, *results);
    Int128 expected = 0;
    for (std::size_t i = 0; i < kPairs; ++i) {
      const Int128 one = exact(pairs.left[i], pairs.right[i]);
      expected += one;
      if (eOperation < kCompare) faults.Expect(i, one, Unpacked((*results)[i]));
    }
    if (eOperation == kCompare) faults.Expect(0, expected, nLess);
    if (eOperation == kSum) faults.Expect(0, expected, Unpacked(results->front()));
    return faults.Text();
  };
  harness.Add({szName, sSet, "COMP-3", kPairs, pass, fault});
}

}  // namespace

void AddCobol(CHarness& harness, const ArithmeticSets& sets) {
  static const Pairs amounts{sets.amounts, sets.amounts};
  const auto less = [](Int128 a, Int128 b) { return Int128{a < b ? 1 : 0}; };
  for (const ValueSet* pSet : {&sets.money, &sets.full}) {
    AddTables(harness, kAdd, "add", pSet->sName, pSet->sums, ExactSum);
    AddTables(harness, kSubtract, "subtract", pSet->sName, pSet->sums, ExactDifference);
    AddTables(harness, kMultiply, "multiply", pSet->sName, pSet->factors, ExactProduct);
    AddTables(harness, kDivide, "divide", pSet->sName, pSet->quotients, ExactQuotient);
    AddTables(harness, kCompare, "compare", pSet->sName, pSet->sums, less);
  }
  AddTables(harness, kSum, "sum", "M", amounts, [](Int128 a, Int128) { return a; });
}

}  // namespace ald::bench
