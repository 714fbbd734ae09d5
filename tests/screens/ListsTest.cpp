#include "aldlib/screens/Lists.h"

#include "tests/screens/Screen.h"

namespace ald {
namespace {

class ScreenLists : public Screen {};

TEST_F(ScreenLists, CombosAreFilledAndSelectedByTheNumbersOfTheirItems) {
  m_platform.AddModule({{300, "Three hundred"}}, 5);
  const WindowHandle hCombo = Add("COMBO", 1);
  EXPECT_EQ(SetCBhWndDataAndText(hCombo, 70, "Seventy"), 0);
  EXPECT_EQ(SetCBDataAndText(m_hScreen, 1, -80, "Minus eighty"), 1);
  EXPECT_EQ(SetCBhWndDataAndTextFromResource(hCombo, 300, 300), 2);
  EXPECT_EQ(SetCBDataAndText(m_hScreen, 99, 1, "Nowhere"), -1);
  EXPECT_EQ(GetComboIndexByItemData(hCombo, -80), 1);
  EXPECT_EQ(GetComboIndexByItemData(hCombo, 5), -1);

  int bOk = -1;
  EXPECT_EQ(GetComboSelItemData(hCombo, &bOk), 0);
  EXPECT_EQ(bOk, 0);
  EXPECT_EQ(SetComboByItemData(hCombo, 300), 2);
  EXPECT_EQ(GetComboSelItemData(hCombo, &bOk), 300);
  EXPECT_EQ(bOk, 1);
  EXPECT_EQ(m_windows.Text(hCombo), "Three hundred");
  EXPECT_EQ(SetComboByItemData(hCombo, 5), -1);
  EXPECT_EQ(m_desktop.controls.Selection(hCombo), -1);
}

TEST_F(ScreenLists, TheFirstWordOfTheEditControlSelectsInAList) {
  const WindowHandle hEdit = Add("EDIT", 1);
  const WindowHandle hList = Add("LISTBOX", 2);
  const auto selection = [&](const char* szText) {
    m_windows.SetText(hEdit, szText);
    SetListBoxSelection(m_hScreen, 1, 2);
    return m_desktop.controls.Selection(hList);
  };
  EXPECT_EQ(selection("1000"), -1);  // an empty list
  for (const char* szItem : {" 1000 Cash", "1100 Bank", "1000 Twice"}) {
    m_desktop.controls.AddItem(hList, szItem);
  }
  m_desktop.controls.SetItemData(hList, 1, 42);
  EXPECT_EQ(selection("  1100  more"), 1);
  EXPECT_EQ(selection("1000"), 0);
  EXPECT_EQ(selection("100"), -1);
  EXPECT_EQ(SetListByItemData(hList, 42), 1);
  EXPECT_EQ(GetListIndexByItemData(hList, 42), 1);
  EXPECT_EQ(GetListSelItemData(hList, nullptr), 42);
}

}  // namespace
}  // namespace ald
