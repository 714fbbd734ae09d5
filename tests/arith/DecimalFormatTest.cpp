#include <fmt/format.h>
#include <gtest/gtest.h>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/FixedDecimalFormat.h"

namespace ald {
namespace {

using namespace literals;

TEST(DecimalFormat, WritesExactOrRoundedAndLeansToTheRight) {
  EXPECT_EQ(fmt::format("{} {:.2} {:>8.2}|", 12.5_dec, 12.345_dec, 1_dec), "12.5 12.35     1.00|");
  EXPECT_EQ(fmt::format("{:*<6}|{:^7}|{:8.0}|", 1.5_dec, 2_dec, 2.5_dec),
            "1.5***|   2   |       3|");
  EXPECT_EQ(fmt::format("{:>5}", CBigInt<128>(-42)), "  -42");
}

TEST(DecimalFormat, LeavesTheLastStatusAsItWas) {
  CDecimal("x");
  EXPECT_EQ(fmt::format("{:.1}", 0.25_dec), "0.3");
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_BAD_FORMAT);
}

TEST(DecimalFormat, RefusesWhatIsNoFormatOfANumber) {
  for (const char* szFormat : {"{:x}", "{:.}", "{:5.2f}", "{:99999}"}) {
    EXPECT_THROW((void)fmt::format(fmt::runtime(szFormat), 1_dec), fmt::format_error) << szFormat;
  }
}

}  // namespace
}  // namespace ald
