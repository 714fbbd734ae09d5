#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <string>

#include "aldlib/arith/FixedDecimal.h"
#include "tests/arith/ReferenceDecimal.h"

// Decimals of the library beside their plain forms: the same operation is done to both, and Agree
// tells whether everything that a caller can observe is the same.
namespace ald::test {

using reference::Handler;
using Random = std::mt19937_64;

struct Twin {
  char cPadding = 0;  // a decimal may stand at any address
  CDecimal real;
  reference::Decimal plain;
};

// Switches both sides to a handler that records its calls, and starts with a clean record.
void SetHandlers(Handler eHandler);

// Bytes, exact values with their marks, last status, depths, and the calls of the handler since the
// last question. The twins have to be all that live.
testing::AssertionResult Agree(std::initializer_list<const Twin*> twins);

// Puts the value into both without a word; the second form may be past the limits.
void Load(Twin& twin, const reference::Decimal& value);
void Load(Twin& twin, const reference::Integer& math);

template <int nBits>
CBigInt<nBits> ToBigInt(const reference::Integer& value) {
  CBigInt<nBits> result;
  std::copy(value.m_words.begin(), value.m_words.end(), result.m_aWords);
  return result;
}
template <int nBits>
reference::Integer ToReference(const CBigInt<nBits>& value) {
  reference::Integer result(CBigInt<nBits>::kWords);
  result.m_words.assign(value.m_aWords, value.m_aWords + CBigInt<nBits>::kWords);
  return result;
}

// The number of rounds of a random test: nRounds, or ALDLIB_ARITH_ROUNDS times as many.
int Rounds(int nRounds);
// 0 to nEnd - 1.
int Below(Random& random, int nEnd);
// Words of all zeros, all ones and their neighbours are as likely as any others.
reference::Integer RandomInteger(Random& random, int nWords);
// Any number of digits, powers of ten, nines, amounts of money, tiny values, the limits, neighbours
// of powers of two, zero of either sign.
reference::Decimal RandomDecimal(Random& random);

// The twelve bytes, and the exact value times 10^9 if there is one.
std::string Show(const reference::Decimal& value);
std::string Show(const CDecimal& value);

// Every test has the handler that it asked for, and leaves the default one.
class DecimalTest : public testing::Test {
 protected:
  explicit DecimalTest(Handler eHandler = Handler::kNone) { SetHandlers(eHandler); }
  ~DecimalTest() override { CDecimal::SetErrorHandler(&CDecimal::DefaultErrorHandler); }
};

}  // namespace ald::test
