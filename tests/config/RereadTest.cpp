#include "aldlib/config/Reread.h"

#include <gtest/gtest.h>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/config/Preferences.h"
#include "aldlib/dates/DateText.h"
#include "aldlib/frame/LargeClip.h"
#include "aldlib/text/Constants.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/WatchedMemory.h"

namespace ald {
namespace {

TEST(RegionalSettings, ReplaceOnlyWhatTheSystemSays) {
  FakePlatform platform;
  const struct {
    const char* szProfile;
    const char* szDecimal;
    const char* szThousand;
    std::uint16_t nDigits;
    const char* szUnit;
    const char* szHalf;
  } rows[] = {
      {"", ".", ",", 2, "100", "0.005"},
      {"[intl]\nsDecimal=,\nsThousand=.\niCurrDigits=3", ",", ".", 3, "1000", "0.0005"},
      {"[intl]\niCurrDigits=0", ",", ".", 0, "1", "0.5"},
      {"[INTL]\nSDECIMAL=<>\nsThousand=\" \"", "<", " ", 0, "1", "0.5"},
      {"[intl]\nsThousand=\niCurrDigits=", "<", "", 0, "1", "0.5"},
  };
  // Each starts from what the one before has left.
  for (const auto& row : rows) {
    platform.m_profile.m_files[""] = row.szProfile;
    ReReadWinIni();
    SCOPED_TRACE(row.szProfile);
    EXPECT_EQ(DecimalPoint, row.szDecimal);
    EXPECT_EQ(Comma, row.szThousand);
    EXPECT_EQ(GetCurrencyPrecision(), row.nDigits);
    EXPECT_EQ(g_decCurrencyUnit.toExactString(), row.szUnit);
    EXPECT_EQ(CDecimal::ms_HalfCent.toExactString(), row.szHalf);
    EXPECT_EQ(CurrencySign, "$");
  }
}

TEST(RegionalSettings, AreReadByTheLoadAndForgottenByTheUnload) {
  FakePlatform platform;
  platform.m_profile.m_files[""] = "[intl]\nsDecimal=,\niCurrDigits=0";
  MoveToPlatform(&CurrentPlatform());
  EXPECT_EQ(DecimalPoint, ",");
  EXPECT_EQ(CurrencyPrecision, 0);
  platform.m_profile.m_files.clear();
  MoveToPlatform(&CurrentPlatform());
  EXPECT_EQ(DecimalPoint, ".");
  EXPECT_EQ(CurrencyPrecision, 2);
}

TEST(RegionalSettings, ReplaceTheCustomOfDates) {
  FakePlatform platform;
  const struct {
    const char* szProfile;
    const char* szSeparator;
    std::int32_t nOrder;
  } rows[] = {{"", "-", 0},
              {"[intl]\nsDate=/.\niDate=2", "/", 2},
              {"[intl]\niDate=1", "/", 1},
              {"[intl]\nsDate=\niDate=", "", 1},
              {"[intl]\niDate=7", "", 7}};
  // Each starts from what the one before has left.
  for (const auto& row : rows) {
    platform.m_profile.m_files[""] = row.szProfile;
    ReReadWinIni();
    EXPECT_EQ(GetDateSeparator(), row.szSeparator) << row.szProfile;
    EXPECT_EQ(GetDateOrder(), row.nOrder) << row.szProfile;
  }
  platform.m_profile.m_files.clear();
  MoveToPlatform(&CurrentPlatform());
  EXPECT_EQ(GetDateSeparator(), "-");
  EXPECT_EQ(GetDateOrder(), DateOrderMDY);
}

TEST(RegionalSettings, LetDatesStepWithinTheirRange) {
  FakePlatform platform;
  DatesType date{31, 12, 2003};
  IncDate(date, IncDay);
  EXPECT_EQ(date, (DatesType{1, 1, 2004}));
  AlderLibEntry({}, kProcessDetach, nullptr);
  IncDate(date, IncDay);
  EXPECT_EQ(date, DatesType{}) << "an unloaded library has no range";
  ReReadWinIni();
  DecDate(date, IncDay);
  EXPECT_EQ(date, (DatesType{1, 1, 1901}));
}

TEST(RegionalSettings, PutTheirErrorHandlerInPlaceForGood) {
  FakePlatform platform;
  CDecimal::SetErrorHandler(nullptr);
  ReReadWinIni();
  EXPECT_EQ(CDecimal::SetErrorHandler(IntlErrorHandler), IntlErrorHandler);
}

TEST(RegionalSettings, TakeAnyPrecisionAsSixteenBits) {
  FakePlatform platform;
  const std::pair<const char*, std::uint16_t> rows[] = {
      {"65535", 65535}, {"-1", 65535}, {"65538", 2}, {"23", 23}};
  for (const auto& [szDigits, nPrecision] : rows) {
    platform.m_profile.m_files[""] = CString("[intl]\niCurrDigits=") + szDigits;
    ReReadWinIni();
    EXPECT_EQ(CurrencyPrecision, nPrecision) << szDigits;
  }
}

TEST(DataPath, EndsWithABackslashOnceItIsRead) {
  FakePlatform platform;
  const struct {
    CString sLine;
    CString sPath;
  } rows[] = {
      {"", ""},
      {"DATAPATH=C:\\BOOKS", "C:\\BOOKS\\"},
      {"", "C:\\BOOKS\\"},
      {"DATAPATH=D:\\", "D:\\"},
      {"DATAPATH=" + CString(258, 'd'), CString(258, 'd') + "\\"},
      {"DATAPATH=" + CString(259, 'e'), CString(259, 'e')},  // no room for one
      {"DATAPATH=" + CString(300, 'f'), CString(259, 'f')},
      {"DATAPATH=", ""},
  };
  for (const auto& row : rows) {
    platform.m_profile.m_files["PRODUCT.INI"] = "[Lib]\n" + row.sLine;
    ReReadAlderIni();
    EXPECT_EQ(CString(MyAlderLibDataPtr->szDataPath), row.sPath) << row.sLine.substr(0, 20);
  }
  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  MyAlderLibDataPtr = nullptr;
  ReReadAlderIni();
  MyAlderLibDataPtr = pRecord;
}

TEST(DataPath, StaysAsItWasWhereThereIsNoMemoryToReadIt) {
  FakePlatform platform;
  platform.m_product.m_sIniFile = "C:\\PROGRAMS\\PRODUCT.INI";
  const CString sPath = "C:\\BOOKS\\OF THE COMPANY\\";
  sPath.copy(MyAlderLibDataPtr->szDataPath, sPath.size());
  const int nRefused = RefuseEach([] { ReReadAlderIni(); },
                                  [&](bool) { EXPECT_EQ(MyAlderLibDataPtr->szDataPath, sPath); });
  EXPECT_GT(nRefused, 0);
}

TEST(AutoDecimal, IsKeptAsAPreference) {
  FakePlatform platform;
  SetAutoDecimal(5);
  EXPECT_EQ(GetAutoDecimal(), 1);
  StoreAutoDecimal(false);
  AllowLargeClip(true);
  ReReadAlderIni();
  EXPECT_EQ(GetAutoDecimal(), 1);
  EXPECT_FALSE(IsLargeClipAllowed());
  SetAutoDecimal(0);
  EXPECT_EQ(GetAutoDecimal(), 0);
  CALWMachineUserPreferences options(PreferenceOpenMode::Write, PreferenceGroup::Options);
  std::uint32_t nStored = 9;
  EXPECT_TRUE(options.GetValue("autodecimal", 7U, nStored));
  EXPECT_EQ(nStored, 0U);
  options.SetValue(Preference::allowlargeclip, true);
  ReReadAlderIni();
  EXPECT_TRUE(IsLargeClipAllowed());
}

}  // namespace
}  // namespace ald
