#include "aldlib/screens/WindowTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr bool kDialogs = true;
constexpr bool kDataEntries = false;

TEST(WindowTable, HoldsFifteenWindowsEachAndNoSixteenth) {
  const FakePlatform platform;
  for (std::uint32_t i = 1; i <= 15; ++i) {
    EXPECT_EQ(AddWindowToTable(WindowHandle{i}, 0, kDialogs), 1);
  }
  EXPECT_EQ(AddWindowToTable(WindowHandle{16}, 0, kDialogs), 0);
  EXPECT_EQ(AddWindowToTable(WindowHandle{16}, 0, kDataEntries), 1);
}

TEST(WindowTable, KnowsAMenuIdOnceATable) {
  const FakePlatform platform;
  EXPECT_EQ(AddWindowToTable(WindowHandle{1}, 500, kDialogs), 1);
  EXPECT_EQ(AddWindowToTable(WindowHandle{2}, 500, kDialogs), 0);
  EXPECT_EQ(AddWindowToTable(WindowHandle{2}, 500, kDataEntries), 1);
  EXPECT_EQ(AddWindowToTable(WindowHandle{1}, 501, kDialogs), 1);  // the window may repeat
  EXPECT_EQ(GetWindowFromMenu(500, kDialogs), WindowHandle{1});
  EXPECT_EQ(GetWindowFromMenu(500, kDataEntries), WindowHandle{2});
  EXPECT_EQ(GetMenuFromWindow(WindowHandle{1}, kDialogs), 500);
  EXPECT_EQ(GetMenuFromWindow(WindowHandle{3}, kDialogs), 0);
}

TEST(WindowTable, TakesNoWindowWhileTheSystemIsFrozen) {
  const FakePlatform platform;
  AddWindowToTable(WindowHandle{1}, 0, kDialogs);
  DataEntryManagerData.bSystemFrozen = 2;
  EXPECT_EQ(IsSystemFrozen(), 1);
  EXPECT_EQ(AddWindowToTable(WindowHandle{2}, 0, kDialogs), 0);
  EXPECT_EQ(AddWindowToTableForHelp(WindowHandle{2}, 0), 0);
  EXPECT_EQ(RemoveWindowFromTable(WindowHandle{1}, kDialogs), 1);
}

TEST(WindowTable, MarksTheFirstEntryOfAWindowThatHandlesHelp) {
  const FakePlatform platform;
  AddWindowToTable(WindowHandle{1}, 0, kDataEntries);
  EXPECT_FALSE(DataEntryTableHandleHelp(WindowHandle{1}));
  EXPECT_EQ(AddWindowToTableForHelp(WindowHandle{1}, 7), 1);
  EXPECT_TRUE(DataEntryTableHandleHelp(WindowHandle{1}));
  EXPECT_EQ(DataEntryManagerData.dataEntryTable[0].bHandlesHelp, 1U);
  EXPECT_EQ(DataEntryManagerData.dataEntryTable[1].bHandlesHelp, 0U);
  // With its entry the mark goes.
  RemoveWindowFromTable(WindowHandle{1}, kDataEntries);
  RemoveWindowFromTable(WindowHandle{1}, kDataEntries);
  AddWindowToTable(WindowHandle{1}, 0, kDataEntries);
  EXPECT_FALSE(DataEntryTableHandleHelp(WindowHandle{1}));
}

// Against a plain vector: packed from the front, in order, and cleared behind.
TEST(WindowTable, StaysPackedThroughAnyOrderOfAddingAndRemoving) {
  const FakePlatform platform;
  std::mt19937 random(19);
  std::vector<std::uint32_t> model;
  for (int nStep = 0; nStep < 5000; ++nStep) {
    const auto nWindow = static_cast<std::uint32_t>(1 + random() % 20);
    if (random() % 2 == 0) {
      const bool bFits = model.size() < 15;
      ASSERT_EQ(AddWindowToTable(WindowHandle{nWindow}, 0, kDialogs), bFits ? 1 : 0);
      if (bFits) model.push_back(nWindow);
    } else {
      const auto it = std::find(model.begin(), model.end(), nWindow);
      ASSERT_EQ(RemoveWindowFromTable(WindowHandle{nWindow}, kDialogs), it != model.end() ? 1 : 0);
      if (it != model.end()) model.erase(it);
    }
    ASSERT_EQ(DataEntryManagerData.nDialogs, model.size());
    for (std::size_t i = 0; i < kWindowTableSize; ++i) {
      ASSERT_EQ(DataEntryManagerData.dialogTable[i].hWindow,
                WindowHandle{i < model.size() ? model[i] : 0});
    }
  }
  EXPECT_EQ(DataEntryManagerData.nDataEntries, 0);
}

TEST(WindowTable, StaysInsideItselfWhateverTheHostWroteIntoTheCount) {
  const FakePlatform platform;
  AddWindowToTable(WindowHandle{1}, 4, kDialogs);
  DataEntryManagerData.nDialogs = 60000;
  EXPECT_EQ(AddWindowToTable(WindowHandle{2}, 0, kDialogs), 0);
  EXPECT_EQ(GetWindowFromMenu(9, kDialogs), WindowHandle{});
  EXPECT_EQ(RemoveWindowFromTable(WindowHandle{1}, kDialogs), 1);
  EXPECT_EQ(DataEntryManagerData.nDialogs, 14);
}

TEST(WindowData, IsKeptWithTheWindowAndGoesWithIt) {
  FakePlatform platform;
  Windows& windows = CurrentPlatform().desktop.windows;
  const WindowHandle hWindow = windows.Create({.sClass = "STATIC", .sText = "", .place = {}});
  int nData = 5;
  EXPECT_EQ(GetMyWindowData(hWindow), nullptr);
  EXPECT_EQ(SetMyWindowData(hWindow, &nData), 1);
  EXPECT_EQ(GetMyWindowData(hWindow), &nData);
  EXPECT_EQ(RemoveMyWindowData(hWindow), &nData);
  EXPECT_EQ(GetMyWindowData(hWindow), nullptr);
  EXPECT_EQ(GetMyWindowData(WindowHandle{}), nullptr);
  windows.Destroy(hWindow);
  EXPECT_EQ(SetMyWindowData(hWindow, &nData), 0);
}

TEST(WindowData, ADialogIdStaysUntilItIsRemoved) {
  const FakePlatform platform;
  SetDialogID(WindowHandle{77}, 7015);
  EXPECT_EQ(GetDialogID(WindowHandle{77}), 7015);
  EXPECT_EQ(GetDialogID(WindowHandle{78}), 0);
  RemoveWindowFromALWInternals(WindowHandle{77});
  EXPECT_EQ(GetDialogID(WindowHandle{77}), 0);
}

TEST(WindowData, ClassNamesAreComparedInAnyCase) {
  const FakePlatform platform;
  Windows& windows = CurrentPlatform().desktop.windows;
  const WindowHandle hWindow = windows.Create({.sClass = "ABD_Edit", .sText = "", .place = {}});
  EXPECT_TRUE(IsWindowClassName(hWindow, "abd_EDIT"));
  EXPECT_FALSE(IsWindowClassName(hWindow, "ABD_EditDate"));
  EXPECT_FALSE(IsWindowClassName(WindowHandle{12345}, "ABD_Edit"));
}

}  // namespace
}  // namespace ald
