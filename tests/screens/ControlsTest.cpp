#include "aldlib/screens/Controls.h"

#include <gmock/gmock.h>

#include <bit>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/dates/Calendar.h"
#include "aldlib/screens/ControlClasses.h"
#include "aldlib/screens/DialogText.h"
#include "tests/screens/Screen.h"

namespace ald {
namespace {

constexpr int kId = 11;
constexpr int kOtherId = 12;
constexpr int kMissing = 99;

class ControlValues : public Screen {
 protected:
  WindowHandle m_hEdit = Add("EDIT", kId);

  void Set(const char* szText) { m_windows.SetText(m_hEdit, szText); }
  CString Text(WindowHandle hControl) { return m_windows.Text(hControl); }
};

TEST_F(ControlValues, TextsAreCutToTheCapacityAndZeroedBehind) {
  Set("  Alderwood  ");
  CFixedString<9> sText("ZZZZZZZZ");
  EXPECT_EQ(GetDlgItemTextA(m_hScreen, kId, sText), 8);
  EXPECT_EQ(sText.view(), "  Alderw");
  EXPECT_EQ(GetDlgItemTextTrimmed(m_hScreen, kId, sText), 6);
  EXPECT_EQ(sText.view(), "Alderw");
  EXPECT_EQ(sText[7], '\0');
  EXPECT_EQ(GetDlgItemTextWithNulls(m_hScreen, kMissing, sText), 0);
  EXPECT_EQ(sText.view(), "");
}

TEST_F(ControlValues, ARichTextComesWithoutCarriageReturnsAndNoTextIsReadPast4002) {
  m_windows.RegisterClass("ACW_RichEdit", "EDIT", nullptr);
  const WindowHandle hRich = Add("ACW_RichEdit", kOtherId, "one\r\ntwo\r\n");
  CFixedString<5000> sText;
  GetWindowTextA(hRich, sText);
  EXPECT_EQ(sText.view(), "one\ntwo\n");
  Set(CString(4500, 'x').c_str());
  EXPECT_EQ(GetWindowTextA(m_hEdit, sText), 4002);
}

TEST_F(ControlValues, AmountsAreReadAndShownTheWayTheyAreTyped) {
  Set(" (1,234.50) ");
  EXPECT_EQ(GetDlgItemDollars(m_hScreen, kId), -1234.5_dec);
  SetDlgItemDollars(m_hScreen, kId, -1234.5_dec);
  EXPECT_EQ(Text(m_hEdit), "-1,234.50");
  SetDlgItemReal(m_hScreen, kId, 1234.5_dec, 3);
  EXPECT_EQ(Text(m_hEdit), "1,234.500");
  CDecimal value;
  EXPECT_EQ(GetDlgItemReal(m_hScreen, kId, &value), 1);
  EXPECT_EQ(value, 1234.5_dec);
  Set("12 34");
  EXPECT_EQ(GetDlgItemReal(m_hScreen, kId, &value), 0);
  EXPECT_EQ(value, CDecimal());
  EXPECT_EQ(GetDlgItemQty(m_hScreen, kMissing), CDecimal());
  SetDlgItemTextWithTrim(m_hScreen, kId, "  7 up  ");
  EXPECT_EQ(Text(m_hEdit), "7 up");
}

TEST_F(ControlValues, DatesGoThroughTheControlsOwnMessages) {
  DatesType kept{};
  m_windows.RegisterClass("ABD_EditDate", "EDIT",
                          [&](WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                              std::intptr_t nLong) -> std::intptr_t {
                            if (nMessage == kMessageReadDate)
                              return std::bit_cast<std::int32_t>(kept);
                            if (nMessage == kMessageWriteDate) {
                              kept = std::bit_cast<DatesType>(static_cast<std::int32_t>(nLong));
                              return 1;
                            }
                            return m_windows.DefaultProcedure(hWindow, nMessage, nWord, nLong);
                          });
  Add("ABD_EditDate", kOtherId);
  DatesType date{};
  MakeDate(7, 4, 2003, date);
  DatesType read{};
  EXPECT_EQ(GetDlgItemDate(m_hScreen, kOtherId, &read), 0);  // empty
  SetDlgItemDate(m_hScreen, kOtherId, date);
  EXPECT_EQ(GetDlgItemDate(m_hScreen, kOtherId, &read), 1);
  EXPECT_EQ(read, date);
  EXPECT_EQ(GetDlgItemDate(m_hScreen, kOtherId, nullptr), 1);
}

TEST_F(ControlValues, AControlThatTakesNoDateShowsItAndSelectsItUnderTheFocus) {
  DatesType date{};
  MakeDate(7, 4, 2003, date);
  m_windows.SetFocus(m_hEdit);
  SetWindowDate(m_hEdit, date);
  EXPECT_EQ(Text(m_hEdit), "Jul 4, 2003");
  std::int32_t nFirst = 0;
  std::int32_t nEnd = 0;
  ASSERT_TRUE(m_headless.SelectedText(m_hEdit, nFirst, nEnd));
  EXPECT_EQ(nEnd - nFirst, 11);
  SetWindowDate(m_hEdit, InvalidDate);
  EXPECT_EQ(Text(m_hEdit), "");
}

TEST_F(ControlValues, WholeNumbersEndAtABlankAndNeverWithALetter) {
  struct Row {
    const char* szText;
    int bSigned;
    int bOk;
    int nValue;
  };
  constexpr Row kRows[] = {
      {"42", 0, 1, 42},
      {"  42  ", 0, 1, 42},
      {"42x", 0, 0, 0},
      {"", 0, 1, 0},
      {"-42", 1, 1, -42},
      {"-42", 0, 0, 0},
      {"2147483648", 0, 0, 0},
      {"2147483647", 0, 1, 2147483647},
      {"99999999999", 0, 0, 0},
      {"99999999999", 1, 1, 2147483647},
      {"-99999999999", 1, 1, -2147483647 - 1},
      {"1.5", 1, 0, 0},
  };
  for (const Row& row : kRows) {
    Set(row.szText);
    int bOk = -1;
    EXPECT_EQ(GetWindowInt(m_hEdit, &bOk, row.bSigned), row.nValue) << row.szText;
    EXPECT_EQ(bOk, row.bOk) << row.szText;
  }
}

TEST_F(ControlValues, ANumberOutsideItsLimitsIsToldAndTakesTheFocus) {
  RecordingDoor door;
  std::uint16_t nValue = 0;
  for (const char* szBad : {"4", "201", "x", "", "-7", "70000"}) {
    Set(szBad);
    EXPECT_EQ(MyGetDlgItemCard(m_hScreen, kId, 5, 200, &nValue), kId) << szBad;
  }
  EXPECT_THAT(door.m_texts, testing::Each(testing::StrEq("%Number must be between 5 and 200.")));
  EXPECT_EQ(door.m_texts.size(), 6U);
  EXPECT_EQ(m_windows.Focus(), m_hEdit);
  Set(" 200 ");
  EXPECT_EQ(MyGetDlgItemCard(m_hScreen, kId, 5, 200, &nValue), 0);
  EXPECT_EQ(nValue, 200);
  EXPECT_EQ(MyGetDlgItemCard(m_hScreen, kMissing, 5, 200, &nValue), kMissing);
  EXPECT_EQ(door.m_texts.size(), 6U);
}

TEST_F(ControlValues, APercentHasDigitsAndPeriodsAndAMaximum) {
  RecordingDoor door;
  const auto isValid = [&](const char* szText) {
    Set(szText);
    return IsDlgItemValidPercent(m_hScreen, kId, 31, 32, 100_dec);
  };
  EXPECT_TRUE(isValid(""));
  EXPECT_TRUE(isValid("12.5"));
  EXPECT_TRUE(isValid("1.2.3"));  // no number: it counts as 0
  EXPECT_FALSE(isValid("12%"));
  EXPECT_FALSE(isValid("100.1"));
  EXPECT_THAT(door.m_shown, testing::ElementsAre(31, 32));
}

TEST_F(ControlValues, DebitAndCreditStayEmptyWithinHalfACent) {
  const WindowHandle hCredit = Add("EDIT", kOtherId);
  const auto show = [&](const CDecimal& value) {
    SetDlgDrCr(m_hScreen, value, kId, kOtherId);
    return Text(m_hEdit) + "|" + Text(hCredit);
  };
  EXPECT_EQ(show(12.34_dec), "12.34|");
  EXPECT_EQ(show(-12.34_dec), "|12.34");
  EXPECT_EQ(show(0.004_dec), "|");
  EXPECT_EQ(show(CDecimal::ms_HalfCent), "|");
  SetDlgDrCr(m_hScreen, 5_dec, kId, kMissing);
  EXPECT_EQ(Text(m_hEdit), "");
}

TEST_F(ControlValues, EditLikeClassesAreKnownInAnyCase) {
  m_windows.RegisterClass("hierEDIT", "EDIT", nullptr);
  m_windows.RegisterClass("MyEdit", "EDIT", nullptr);
  EXPECT_EQ(IsEdit(Add("hierEDIT", 20)), 1);
  EXPECT_EQ(IsEdit(Add("MyEdit", 21)), 0);
  EXPECT_EQ(IsEdit(m_hEdit), 1);
  EXPECT_EQ(IsEdit(Add("STATIC", 22)), 0);
  EXPECT_EQ(IsEdit(WindowHandle{}), 0);
}

TEST_F(ControlValues, ALongTextOfAModuleGoesThroughTheFormatOnce) {
  const ModuleHandle hModule = m_platform.AddModule({}, 5);
  m_platform.m_resources.AddText(hModule, 7, "Text", "100 %s paid");
  EXPECT_EQ(LoadLongWindedTextEx(hModule, m_hScreen, kId, 7, "TEXT", "%%: %s, %s"), 1);
  EXPECT_EQ(Text(m_hEdit), "%: 100 %s paid, %s");
  EXPECT_EQ(LoadLongWindedTextEx(hModule, m_hScreen, kId, 7, "text", nullptr), 1);
  EXPECT_EQ(Text(m_hEdit), "100 %s paid");
  EXPECT_EQ(LoadLongWindedTextEx(hModule, m_hScreen, kId, 8, "TEXT", nullptr), 0);
  EXPECT_EQ(LoadLongWindedTextEx(hModule, m_hScreen, kMissing, 7, "TEXT", nullptr), 0);
}

}  // namespace
}  // namespace ald
