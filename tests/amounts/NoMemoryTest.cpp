// Printing a page of cheques must not depend on free memory: this program counts what it takes.
#include <gtest/gtest.h>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Parse.h"
#include "aldlib/amounts/Words.h"
#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/frame/LibraryStrings.h"
#include "tests/support/WatchedMemory.h"

namespace ald {
namespace {

using namespace literals;

TEST(ChequeLine, IsReadAndWrittenWithoutTakingMemory) {
  const long nAtFirst = g_nAllocations;
  (void)LibraryStringTable();
  ASSERT_GT(g_nAllocations, nAtFirst);  // what the library takes is seen here

  CDecimal amount;
  CFixedString<81> sLine;
  CFixedString<100> sWords;
  const long nBefore = g_nAllocations;
  for (const char* szTyped : {"1,234,567.89", "(12.50)", "0.05", "999,999,999.99", "12-", ""}) {
    MyStringToReal(szTyped, &amount);
    sLine = "Pay ";
    AppendRtoString(sLine, amount, 14, '(');
    AppendRtoStringNoComma(sLine, amount, 14);
    DollarsToString(amount, sLine, 1, '-');
    MyRealToString(amount, sLine, 2, 20);
    MyDoubleToStringNoCommas(&amount, sLine, 2);
    CFixedString<46> sField = amount.FormatDollars('(');
    AddCommasToQtyString(sField);
    AmountToWords(amount, sWords, true);
    CheckAmountText(amount, sWords, true);
  }
  EXPECT_EQ(g_nAllocations, nBefore);
}

TEST(ChequeLine, HasQuestionMarksForAValuePastTheLimitsThoughThereIsNoMemory) {
  const CDecimal past = CDecimal("99999999999999") * 1000;
  CFixedString<8> sLine;
  const int nRefused = RefuseEach([&] { DollarsToString(past, sLine, 0, kMoneyParentheses); },
                                  [&](bool) { EXPECT_EQ(sLine, "???????"); });
  EXPECT_GT(nRefused, 0);
}

}  // namespace
}  // namespace ald
