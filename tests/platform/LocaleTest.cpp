#include "aldlib/platform/Locale.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/PosixLocale.h"

namespace ald {
namespace {

TEST(NumberText, FollowsItsFormat) {
  const struct {
    const char* szNumber;
    NumberFormat format;
    const char* szExpected;
  } rows[] = {
      // Decimals: filled up, or rounded half away from zero.
      {"1", {}, "1.00"},
      {"1.005", {}, "1.01"},
      {"-1.005", {}, "-1.01"},
      {"1.0049999", {}, "1.00"},
      {"999.995", {}, "1,000.00"},
      {"0.5", {.nDecimals = 0}, "1"},
      {".25", {.nDecimals = 1}, "0.3"},
      {"7.", {.nDecimals = 1}, "7.0"},
      {"0.0000000005", {.nDecimals = 40}, "0.000000001"},
      // The zero before the separator, and those that nobody wants.
      {"0.5", {.bLeadingZero = false}, ".50"},
      {"000123.4", {}, "123.40"},
      {"000.4", {.bLeadingZero = false}, ".40"},
      {"0", {.nDecimals = 0, .bLeadingZero = false}, "0"},
      // Groups.
      {"1234567890", {.nDecimals = 0, .nGrouping = 3}, "1,234,567,890"},
      {"1234567890", {.nDecimals = 0, .nGrouping = 32}, "1,23,45,67,890"},
      {"1234567890", {.nDecimals = 0, .nGrouping = 30}, "1234567,890"},
      {"1234567890", {.nDecimals = 0, .nGrouping = 320}, "12345,67,890"},
      {"1234567890", {.nDecimals = 0, .nGrouping = 4}, "12,3456,7890"},
      {"1234567890", {.nDecimals = 0, .nGrouping = 0}, "1234567890"},
      {"123456", {.nDecimals = 0}, "123,456"},
      {"99999999999999.999999999",
       {.nDecimals = 9, .nGrouping = 32},
       "9,99,99,99,99,99,999.999999999"},
      // Separators of any length.
      {"-1234.5",
       {.sDecimalSeparator = ",", .sThousandSeparator = "\xA0"},
       "-1\xA0"
       "234,50"},
      {"1234.5", {.sDecimalSeparator = "", .sThousandSeparator = "' "}, "1' 23450"},
      // The sign; a zero has none.
      {"-1234.5", {.nNegativeOrder = 0}, "(1,234.50)"},
      {"-1234.5", {.nNegativeOrder = 1}, "-1,234.50"},
      {"-1234.5", {.nNegativeOrder = 2}, "- 1,234.50"},
      {"-1234.5", {.nNegativeOrder = 3}, "1,234.50-"},
      {"-1234.5", {.nNegativeOrder = 4}, "1,234.50 -"},
      {"-1234.5", {.nNegativeOrder = 5}, "-1,234.50"},
      {"-0.004", {.nNegativeOrder = 0}, "0.00"},
      {"-0.005", {.nNegativeOrder = 0}, "(0.01)"},
      // What is no number.
      {"", {}, ""},
      {"-", {}, ""},
      {".", {}, ""},
      {"+1", {}, ""},
      {"1,000", {}, ""},
      {"1.2.3", {}, ""},
      {"1-", {}, ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FormatNumberText(row.szNumber, row.format), row.szExpected)
        << row.szNumber << " grouping " << row.format.nGrouping;
  }
  EXPECT_EQ(CurrentPlatform().locale.FormatNumber("-1234.5", {}), "-1,234.50");
}

TEST(NumberSettingsOfALocale, FollowFromWhatTheCLibrarySays) {
  const struct {
    const char* szDecimal;
    const char* szThousands;
    const char* szGrouping;
    bool bUtf8;
    const char* szExpectedDecimal;
    const char* szExpectedThousand;
    const char* szExpectedGrouping;
  } rows[] = {
      {".", "", "", true, ".", ",", "3;0"},  // the locale "C" says nothing
      {nullptr, nullptr, nullptr, true, ".", ",", "3;0"},
      {".", ",", "\3\3", true, ".", ",", "3;0"},
      {".", ",", "\3\2", true, ".", ",", "3;2;0"},
      {".", ",", "\3\2\2", true, ".", ",", "3;2;0"},
      {",", ".", "\3", true, ",", ".", "3;0"},
      {",", ".", "\3\x7F", true, ",", ".", "3"},
      {",", "\u202F", "\3", true, ",", "\xA0", "3;0"},
      {",", "\u00A0", "\3", true, ",", "\xA0", "3;0"},
      {".", "\u2019", "\3", true, ".", "\x92", "3;0"},
      {"\u066B", "\u066C", "\3", true, ".", "", "3;0"},  // the code page has neither
      {",", "\xA0", "\3", false, ",", "\xA0", "3;0"},
      {",", "\u202F", "\3", false, ",", "", "3;0"},
      {",", "", "", true, ",", "", "0"},
      {",", ".", "\x7F", true, ",", ".", "0"},
  };
  for (const auto& row : rows) {
    const NumberSettings settings =
        PosixLocale::SettingsFrom(row.szDecimal, row.szThousands, row.szGrouping, row.bUtf8);
    SCOPED_TRACE(testing::Message() << "row " << &row - rows);
    EXPECT_EQ(settings.sDecimalSeparator, row.szExpectedDecimal);
    EXPECT_EQ(settings.sThousandSeparator, row.szExpectedThousand);
    EXPECT_EQ(settings.sGrouping, row.szExpectedGrouping);
    EXPECT_EQ(settings.nDecimals, 2U);
    EXPECT_EQ(settings.nNegativeOrder, 1U);
  }
}

TEST(NumberSettingsOfALocale, AreDefaultsForAnUnknownLocaleAndLeaveTheProcessAlone) {
  const CString sBefore = std::setlocale(LC_ALL, nullptr);
  ASSERT_EQ(::setenv("LC_ALL", "xx_NOWHERE.UTF-8", 1), 0);
  const NumberSettings settings = CurrentPlatform().locale.ReadNumberSettings();
  ::unsetenv("LC_ALL");
  EXPECT_EQ(settings.sDecimalSeparator, ".");
  EXPECT_EQ(settings.sThousandSeparator, ",");
  EXPECT_EQ(settings.sGrouping, "3;0");
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), sBefore);
}

}  // namespace
}  // namespace ald
