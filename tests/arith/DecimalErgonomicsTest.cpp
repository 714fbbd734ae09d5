#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <limits>
#include <sstream>
#include <unordered_set>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/platform/Platform.h"

// The decimal as a value among others: in source text, in containers, in streams, in records.
namespace ald::test {

using namespace literals;

namespace {

constexpr packed::Bytes kGolden{0x12, 0x34, 0x56, 0x78, 0x90, 0x12,
                                0x34, 0x56, 0x78, 0x90, 0x12, 0x3F};
static_assert((12'345'678'901'234.567890123_dec).GetBytes() == kGolden);
static_assert((0.000000001_dec).GetBytes()[11] == 0x1F);
static_assert(CDecimal(-7).IsNegative());

#pragma pack(push, 1)
struct Record {
  char cKind;
  CDecimal amount;
  std::uint16_t nCount;
};
#pragma pack(pop)
static_assert(sizeof(Record) == 15 && offsetof(Record, amount) == 1);
static_assert(sizeof(CDecimal[3]) == 36);

}  // namespace

TEST(DecimalErgonomics, StoresTwelveBytesOfWhichEachNibbleIsADigit) {
  CDecimal value("12345678901234.567890123");
  EXPECT_EQ(value.GetBytes(), kGolden);
  EXPECT_EQ((-value).GetBytes()[11], 0x3D);
  EXPECT_EQ(CDecimal().GetBytes(), (packed::Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x0F}));
  EXPECT_EQ(value.GetDigit(22), 1);
  EXPECT_EQ(value.GetDigit(9), 4);
  EXPECT_EQ(value.GetDigit(0), 3);
  EXPECT_EQ(value.GetDigit(23), 0);
  value.SetDigit(23, 9);
  value.SetDigit(-1, 9);
  EXPECT_EQ(value.GetBytes(), kGolden);

  Record record{'A', 19.99_dec, 3};
  record.amount *= record.nCount;
  record.amount.Round(1);
  EXPECT_EQ(record.amount, 60);
}

TEST(DecimalErgonomics, TellsDamagedBytes) {
  EXPECT_TRUE(CDecimal::ms_nMinValue.IsValid());
  for (const int nByte : {0x0C, 0x0A, 0x00, 0xAF, 0xFD}) {
    packed::Bytes bytes = packed::kZero;
    bytes[11] = static_cast<std::uint8_t>(nByte);
    EXPECT_FALSE(CDecimal::FromBytes(bytes).IsValid()) << nByte;
  }
}

TEST(DecimalErgonomics, HasItsConstants) {
  EXPECT_EQ(CDecimal::ms_Zero + CDecimal::ms_One + CDecimal::ms_Five, 6_dec);
  EXPECT_EQ(CDecimal::ms_Ten * CDecimal::ms_OneHundred, 1000_dec);
  EXPECT_EQ(CDecimal::ms_MinusOne, -1_dec);
  EXPECT_EQ(CDecimal::ms_Smallest, 0.000000001_dec);
  EXPECT_EQ(CDecimal::ms_HalfCent, 0.005_dec);
  EXPECT_EQ(&CDecimal::ms_HalfCent, &g_decHalfCent);
  using Limits = std::numeric_limits<CDecimal>;
  EXPECT_EQ(CDecimal::ms_nMaxValue, 99999999999999.999999999_dec);
  EXPECT_EQ(CDecimal::ms_nMinValue, Limits::lowest());
  EXPECT_EQ(Limits::max() + Limits::lowest(), 0);
  EXPECT_EQ(Limits::epsilon(), CDecimal::ms_Smallest);
  CBigInt<160> power(1);
  for (std::size_t i = 0; i < 47; ++i, power *= 10) {
    EXPECT_EQ(CDecimal::ms_anMathPowersOf10[i], power);
    for (std::size_t d = 0; d < 10; ++d) {
      EXPECT_EQ(CDecimal::ms_anMathDigitToPower10[d][i], power * d);
    }
    if (i >= 23) continue;
    EXPECT_EQ(CDecimal::ms_anPowersOf10[i].toMathType(), power);
    EXPECT_EQ(CDecimal::ms_anRoundAmount[i].toMathType(), power * 5);
  }
}

TEST(DecimalErgonomics, SortsAndHashes) {
  std::vector<CDecimal> values{2.5_dec, -1_dec, 100.00_dec, -0.000000001_dec, 0_dec, 2.49_dec};
  std::sort(values.begin(), values.end());
  const std::vector<CDecimal> sorted{-1_dec, -0.000000001_dec, 0_dec, 2.49_dec, 2.5_dec, 100_dec};
  EXPECT_EQ(values, sorted);
  const std::unordered_set<CDecimal> set{1_dec, 1.0_dec, -1_dec, 2_dec - 1_dec};
  EXPECT_EQ(set.size(), 2U);
}

TEST(DecimalErgonomics, WorksWithNumbersOfOtherTypes) {
  CDecimal value(2);
  EXPECT_EQ(value++, 2);
  EXPECT_EQ(++value, 4);
  EXPECT_EQ(value--, 4);
  EXPECT_EQ(--value, 2);
  EXPECT_EQ(3 * value + 0.5, 6.5_dec);
  EXPECT_EQ(0.5 - value / 4L, 0_dec);
  value += 0.1;
  value *= 10U;
  value -= 0.5F;
  value /= std::int64_t{-2};
  EXPECT_EQ(value, -10.25_dec);
  EXPECT_LT(value, 0);
}

TEST(DecimalErgonomics, PrintsOnStreams) {
  const CDecimal value = -1234.5_dec;
  std::ostringstream stream;
  CDecimal("x");
  stream << value << ' ' << 100_dec << ' ' << 0_dec << ' ' << std::fixed << std::setprecision(2)
         << value << ' ' << 0.005_dec << std::setw(9) << 1.005_dec << std::setprecision(30) << ' '
         << 7_dec;
  EXPECT_EQ(stream.str(), "-1234.5 100 0 -1234.50 0.01     1.01 7.000000000");
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_BAD_FORMAT) << "an output leaves the status alone";
}

TEST(DecimalErgonomics, ShowsItselfInTheUsersWayForDiagnostics) {
  struct Customs : Locale {
    NumberSettings settings;
    int nReads = 0;
    NumberSettings ReadNumberSettings() override { return ++nReads, settings; }
    CString FormatNumber(std::string_view sText, const NumberFormat& format) override {
      return FormatNumberText(sText, format);
    }
  } customs;
  customs.settings = {3, true, "3;2;0", ",", ".", 0};
  const Platform& own = CurrentPlatform();
  const Platform platform{own.resources, own.machine,   customs,    own.profile,
                          own.registry,  own.product,   own.clock,  own.files,
                          own.volumes,   own.processes, own.desktop};
  InstallPlatform(&platform);
  CDecimal::ForgetDebugFormat();
  const CDecimal value = -1234567.0625_dec;
  EXPECT_STREQ(value.FormatDebugString(-1), "(12.34.567,063)");
  EXPECT_STREQ(value.FormatDebugString(0), "(12.34.567)");
  EXPECT_STREQ(value.FormatDebugString(9), "(12.34.567,062500000)");
  EXPECT_STREQ(value.FormatDebugString(-2), "(12.34.567,062500000)");
  EXPECT_EQ(customs.nReads, 1);
  InstallPlatform(nullptr);
  CDecimal::ForgetDebugFormat();
}

}  // namespace ald::test
