#include <string>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// The packed decimal against other exact and decimal numbers. The wanted ratios are what the
// decimal promises on x86-64.
namespace ald::bench {

void ExpectNear(CFaults& faults, std::size_t i, Int128 expected, Int128 actual, Int128 tolerance) {
  const Int128 distance = expected < actual ? actual - expected : expected - actual;
  if (distance > tolerance)
    faults.Expect(false, i, ExactText(expected, 9), [actual] { return ExactText(actual, 9); });
}

namespace {

void WantRatios(CHarness& harness) {
  for (const char* szOperation : {"add", "subtract"}) {
    for (const char* szSet : {"M", "F"}) {
      harness.Want(szOperation, szSet, "_Decimal128", 3, 4.5);
      harness.Want(szOperation, szSet, "cpp_int", 1.2, 2);
      harness.Want(szOperation, szSet, "GMP", 1.2, 2);
      harness.Want(szOperation, szSet, "COMP-3", 25, 50);
      if (szOperation == std::string("add")) harness.Want("add", szSet, "digit by digit", 10, 0);
    }
  }
  harness.Want("sum", "M", "_Decimal128", 4, 5);
  harness.Want("sum", "M", "GMP", 1, 1.2);
  for (const char* szSet : {"M", "F"}) {
    harness.Want("compare", szSet, "_Decimal128", 3, 5);
    harness.Want("compare", szSet, "GMP", 1.2, 1.8);
  }
  harness.Want("multiply", "M", "cpp_int", 2, 2.3);
  harness.Want("multiply", "M", "GMP", 1.6, 2);
  harness.Want("multiply", "M", "COMP-3", 15, 20);
  harness.Want("multiply", "M", "digit by digit", 40, 0);
  harness.Want("multiply", "F", "cpp_int", 1.7, 2.1);
  harness.Want("multiply", "F", "GMP", 1.2, 1.4);
  harness.Want("multiply", "F", "COMP-3", 15, 20);
  harness.Want("multiply", "F", "digit by digit", 40, 0);
  harness.Want("divide", "M", "cpp_int", 2.5, 3);
  harness.Want("divide", "M", "_Decimal128", 4.5, 5.7);
  harness.Want("divide", "M", "COMP-3", 15, 21);
  harness.Want("divide", "M", "digit by digit", 40, 0);
  harness.Want("divide", "F", "cpp_int", 2.3, 2.9);
  harness.Want("divide", "F", "_Decimal128", 3.5, 4.4);
  harness.Want("divide", "F", "COMP-3", 15, 21);
  harness.Want("divide", "F", "digit by digit", 40, 0);
  for (const char* szSet : {"M", "F"}) {
    harness.Want("parse", szSet, "GMP", 3.5, 5);
    harness.Want("parse", szSet, "cpp_dec_float", 12, 16);
  }
  for (const char* szSet : {"M", "F"}) {
    harness.Want("format", szSet, "GMP", 8, 11);
    harness.Want("format", szSet, "__int128", 4, 6);
  }
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald::bench;
  const ArithmeticSets sets = MakeArithmeticSets();
  CHarness harness("arithmetic", "aldlib");
  AddOurs(harness, sets);
  AddInt128(harness, sets);
#ifdef ALDLIB_BENCH_GMP
  AddGmp(harness, sets);
#endif
#ifdef ALDLIB_BENCH_BOOST
  AddCppInt(harness, sets);
  AddCppDecFloat(harness, sets);
#endif
#ifdef ALDLIB_BENCH_DECIMAL128
  AddDecimal128(harness, sets);
#endif
#ifdef ALDLIB_BENCH_COBOL
  AddCobol(harness, sets);
#endif
  WantRatios(harness);
  return harness.Main(argc, argv);
}
