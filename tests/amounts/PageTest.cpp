#include <gtest/gtest.h>

#include <cstdint>

#include "aldlib/aldlib.h"

namespace {

TEST(AmountsPage, ShowsWhatItsExampleGives) {
  bool bReachedItsEnd = false;
  [&bReachedItsEnd] {
#include <AmountsPage.inc>
    EXPECT_EQ(line, "Paid                (1,234.50)");
    EXPECT_EQ(words, "One Thousand Two Hundred Thirty-Four and 50/100  ***********************");
    EXPECT_EQ(shares[0], 500.00_dec);
    EXPECT_EQ(shares[1], 333.34_dec);
    EXPECT_EQ(shares[2], 166.67_dec);
    bReachedItsEnd = true;
  }();
  EXPECT_TRUE(bReachedItsEnd);
}

}  // namespace
