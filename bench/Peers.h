#pragma once

#include "bench/ArithmeticSets.h"
#include "bench/Harness.h"

// Each adds the cases of one number type. Those that this machine lacks are left out of the build.
// The sets must outlive the harness.
namespace ald::bench {

void AddOurs(CHarness& harness, const ArithmeticSets& sets);
void AddInt128(CHarness& harness, const ArithmeticSets& sets);
void AddGmp(CHarness& harness, const ArithmeticSets& sets);
void AddCppInt(CHarness& harness, const ArithmeticSets& sets);
void AddCppDecFloat(CHarness& harness, const ArithmeticSets& sets);
void AddDecimal128(CHarness& harness, const ArithmeticSets& sets);
void AddCobol(CHarness& harness, const ArithmeticSets& sets);

}  // namespace ald::bench
