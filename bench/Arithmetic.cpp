#include <string>
#include <string_view>

#include "bench/ArithmeticSets.h"
#include "bench/Peers.h"

// The packed decimal against other exact and decimal numbers. The wanted ratios are what the
// decimal promises on x86-64.
namespace ald::bench {

namespace {

struct Wanted {
  const char* szOperation;
  const char* szSets;
  const char* szPeer;
  double fAtLeast, fAim;
};

// An aim of 0: none beyond the least.
constexpr Wanted kWanted[] = {
    {"add", "MF", "_Decimal128", 3, 4.5},
    {"add", "MF", "cpp_int", 1.2, 2},
    {"add", "MF", "GMP", 1.2, 2},
    {"add", "MF", "COMP-3", 25, 50},
    {"add", "MF", "digit by digit", 10, 0},
    {"subtract", "MF", "_Decimal128", 3, 4.5},
    {"subtract", "MF", "cpp_int", 1.2, 2},
    {"subtract", "MF", "GMP", 1.2, 2},
    {"subtract", "MF", "COMP-3", 25, 50},
    {"sum", "M", "_Decimal128", 4, 5},
    {"sum", "M", "GMP", 1, 1.2},
    {"compare", "MF", "_Decimal128", 3, 5},
    {"compare", "MF", "GMP", 1.2, 1.8},
    {"multiply", "M", "cpp_int", 2, 2.3},
    {"multiply", "F", "cpp_int", 1.7, 2.1},
    {"multiply", "M", "GMP", 1.6, 2},
    {"multiply", "F", "GMP", 1.2, 1.4},
    {"multiply", "MF", "COMP-3", 15, 20},
    {"multiply", "MF", "digit by digit", 40, 0},
    {"divide", "M", "cpp_int", 2.5, 3},
    {"divide", "F", "cpp_int", 2.3, 2.9},
    {"divide", "M", "_Decimal128", 4.5, 5.7},
    {"divide", "F", "_Decimal128", 3.5, 4.4},
    {"divide", "MF", "COMP-3", 15, 21},
    {"divide", "MF", "digit by digit", 40, 0},
    {"parse", "MF", "GMP", 3.5, 5},
    {"parse", "MF", "cpp_dec_float", 12, 16},
    {"format", "MF", "GMP", 8, 11},
    {"format", "MF", "__int128", 4, 6},
};

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
  for (const Wanted& wanted : kWanted) {
    for (const char c : std::string_view(wanted.szSets))
      harness.Want(wanted.szOperation, std::string(1, c), wanted.szPeer, wanted.fAtLeast,
                   wanted.fAim);
  }
  return harness.Main(argc, argv);
}
