#include "aldlib/screens/Menus.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <vector>

#include "tests/screens/Screen.h"

namespace ald {
namespace {

constexpr ModuleHandle kModule{501};
constexpr ModuleHandle kOtherModule{502};

class MenuBars : public Screen {
 protected:
  MenuBars() {
    m_hBar = m_menus.CreateBar();
    m_windows.SetMainWindow(m_hScreen);
    m_menus.SetOf(m_hScreen, m_hBar);
  }

  MenuHandle AddPopup(MenuHandle hMenu, const char* szText) {
    const MenuHandle hPopup = m_menus.CreatePopup();
    m_menus.Append(hMenu, kMenuPopup, static_cast<std::uint32_t>(hPopup), szText);
    return hPopup;
  }
  void AddCommand(MenuHandle hMenu, std::uint32_t nId, const char* szText) {
    m_menus.Append(hMenu, 0, nId, szText);
  }
  void AddSeparator(MenuHandle hMenu) { m_menus.Append(hMenu, kMenuSeparator, 0, ""); }

  // A menu on one line: "File[1:Open -- 2:Close] Help[]".
  CString Show(MenuHandle hMenu) {
    CString sMenu;
    for (int i = 0; i < m_menus.Count(hMenu); ++i) {
      if (i > 0) sMenu += " ";
      const std::uint32_t nId = m_menus.Id(hMenu, i);
      const CString sText = m_menus.Text(hMenu, static_cast<std::uint32_t>(i), 80, kMenuByPosition);
      if (nId == kMenuIdOfPopup) {
        sMenu += sText + "[" + Show(m_menus.Submenu(hMenu, i)) + "]";
      } else {
        sMenu += nId == 0 ? CString("--") : std::to_string(nId) + ":" + sText;
      }
    }
    return sMenu;
  }

  MenuBar& m_menus = m_desktop.menus;
  MenuHandle m_hBar{};
};

TEST_F(MenuBars, FindItemsByTheNormalFormOfTheirTexts) {
  AddCommand(m_hBar, 1, "&Save As...\tCtrl+S");
  AddCommand(m_hBar, 2, "E\\x&xit\\tAlt+F4");
  EXPECT_EQ(FindMenuItemWithText(m_hBar, "Save As"), 0);
  EXPECT_EQ(FindMenuItemWithText(m_hBar, "save as"), -1);
  EXPECT_EQ(FindMenuItemWithText(m_hBar, "Exit"), 1);
  EXPECT_EQ(FindMenuItemWithID(m_hBar, 2), 1);
  EXPECT_EQ(FindMenuItemWithID(m_hBar, 3), -1);
  EXPECT_EQ(FindMenuItemWithID(m_menus.CreatePopup(), 2), -1);
  EXPECT_EQ(FindMenuItemWithText(MenuHandle{}, nullptr), -1);
}

TEST_F(MenuBars, MergeByTextAndIdAndLeaveAgain) {
  const MenuHandle hFile = AddPopup(m_hBar, "&File");
  AddCommand(hFile, 1, "Open");
  AddCommand(hFile, 2, "Exit");
  const MenuHandle hSource = m_menus.CreateBar();
  const MenuHandle hSourceFile = AddPopup(hSource, "File");
  AddSeparator(hSourceFile);
  AddCommand(hSourceFile, 2, "Exit now");
  AddCommand(hSourceFile, 70, "Import");
  AddCommand(AddPopup(hSource, "Payroll"), 80, "Run");

  EXPECT_EQ(AddMenuToMenu(kModule, m_hBar, hSource), 1);
  EXPECT_EQ(Show(m_hBar), "File[1:Open 2:Exit now -- 70:Import] Payroll[80:Run]");
  EXPECT_EQ(m_menus.Submenu(m_hBar, 0), hFile);  // no second one was made
  EXPECT_EQ(MenuIDToModule(hFile, 70), kModule);
  EXPECT_EQ(MenuIDToModule(hFile, 1), ModuleHandle{});
  EXPECT_EQ(MenuIDToModule(m_hBar, 70), ModuleHandle{});

  // What was there before under the same id goes as well.
  EXPECT_EQ(DelMenuFromMenu(kModule, m_hBar, hSource), 1);
  EXPECT_EQ(Show(m_hBar), "File[1:Open]");
  EXPECT_EQ(MenuIDToModule(hFile, 70), ModuleHandle{});
  EXPECT_EQ(DelMenuFromMenu(kModule, m_hBar, hSource), 0);
}

TEST_F(MenuBars, AnEmptySourceAndACommandThatBecomesASubmenu) {
  EXPECT_EQ(AddMenuToMenu(kModule, m_hBar, m_menus.CreateBar()), 1);
  EXPECT_EQ(AddMenuToMenu(kModule, m_hBar, MenuHandle{}), 1);
  AddCommand(m_hBar, 5, "Reports");
  const MenuHandle hSource = m_menus.CreateBar();
  AddCommand(AddPopup(hSource, "Reports"), 6, "Aging");
  AddMenuToMenu(kModule, m_hBar, hSource);
  EXPECT_EQ(Show(m_hBar), "Reports[6:Aging]");
}

// Modules whose ids and submenus are their own come and go in any order.
TEST_F(MenuBars, AreNotMergedIntoAPartOfThemselves) {
  const MenuHandle hFile = AddPopup(m_hBar, "File");
  const MenuHandle hRecent = AddPopup(hFile, "Recent");
  AddCommand(hRecent, 7, "CHART");
  const CString sBefore = Show(m_hBar);
  EXPECT_EQ(AddMenuToMenu(kModule, hRecent, m_hBar), 1);
  EXPECT_EQ(Show(m_hBar), sBefore);
  // Nor does the desktop let a menu stand in itself, however deep the item is found.
  EXPECT_FALSE(m_menus.Modify(m_hBar, 7, kMenuByCommand | kMenuPopup,
                              static_cast<std::uint32_t>(hRecent), "Recent"));
  EXPECT_FALSE(m_menus.Insert(m_hBar, 7, kMenuByCommand | kMenuPopup,
                              static_cast<std::uint32_t>(hFile), "File"));
  EXPECT_EQ(Show(m_hBar), sBefore);
}

TEST_F(MenuBars, ReturnToWhatTheyWereWhateverTheOrderOfModules) {
  AddCommand(AddPopup(m_hBar, "&File"), 1, "Open");
  const CString sBefore = Show(m_hBar);
  std::mt19937 random(7);
  std::vector<MenuHandle> sources;
  for (std::uint32_t nModule = 0; nModule < 6; ++nModule) {
    const MenuHandle hSource = m_menus.CreateBar();
    const MenuHandle hFile = AddPopup(hSource, "File");
    for (std::uint32_t i = 0; i < 1 + random() % 4; ++i) {
      AddCommand(hFile, 100 * (nModule + 1) + i, "Command");
      if (random() % 2 == 0) AddSeparator(hFile);
    }
    const CString sOwn = "Module " + std::to_string(nModule);
    AddCommand(AddPopup(hFile, sOwn.c_str()), 100 * (nModule + 1) + 50, "Deep");
    AddCommand(AddPopup(hSource, sOwn.c_str()), 100 * (nModule + 1) + 60, "Top");
    sources.push_back(hSource);
  }
  for (int nRound = 0; nRound < 50; ++nRound) {
    std::shuffle(sources.begin(), sources.end(), random);
    for (const MenuHandle hSource : sources) AddMenuToMenu(kModule, m_hBar, hSource);
    std::shuffle(sources.begin(), sources.end(), random);
    for (const MenuHandle hSource : sources) {
      ASSERT_EQ(DelMenuFromMenu(kModule, m_hBar, hSource), 1);
    }
    ASSERT_EQ(Show(m_hBar), sBefore.substr(0, 0) + "File[1:Open]");
  }
}

TEST_F(MenuBars, TheOwnerOfACommandIsTheOneThatIsLeft) {
  const MenuHandle hSource = m_menus.CreateBar();
  AddCommand(hSource, 9, "Shared");
  AddMenuToMenu(kModule, m_hBar, hSource);
  AddMenuToMenu(kOtherModule, m_hBar, hSource);
  EXPECT_EQ(MenuIDToModule(m_hBar, 9), kModule);
  DelMenuFromMenu(kModule, m_hBar, hSource);
  EXPECT_EQ(MenuIDToModule(m_hBar, 9), kOtherModule);
  DelMenuIDOwnerTable();
  EXPECT_EQ(MenuIDToModule(m_hBar, 9), ModuleHandle{});
}

TEST_F(MenuBars, TheMainMenuIsEditedByTheNamesOfItsTopMenus) {
  const MenuHandle hFirst = AddPopup(m_hBar, "&File");
  const MenuHandle hSecond = AddPopup(m_hBar, "&Tasks");
  const MenuHandle hThird = AddPopup(m_hBar, "&Tasks");
  for (const MenuHandle hMenu : {hFirst, hSecond, hThird}) AddCommand(hMenu, 1, "One");
  AddCommand(hFirst, 2, "Two");
  EXPECT_EQ(EnableMainMenuItemByCommand(2, 0), 0U);
  EXPECT_EQ(EnableMainMenuItemByCommand(2, 1) & kMenuGrayed, kMenuGrayed);
  EXPECT_EQ(EnableMainMenuItemByCommand(77, 1), 0xFFFFFFFFU);

  DeleteMenuItem("&Tasks", 1);  // the last one of that name
  EXPECT_EQ(Show(m_hBar), "&File[1:One 2:Two] &Tasks[1:One] &Tasks[]");
  DeleteMenuItem("Tasks", 1);  // no such name: the first of all
  EXPECT_EQ(Show(m_hBar), "&File[2:Two] &Tasks[1:One] &Tasks[]");
}

TEST_F(MenuBars, ACommandIsInsertedBehindASeparatorAsFarAsTheBarIsWide) {
  const MenuHandle hFile = AddPopup(m_hBar, "&File");
  for (int i = 0; i < 5; ++i) AddPopup(m_hBar, "Other");
  AddCommand(hFile, 1, "One");
  AddSeparator(hFile);
  AddCommand(hFile, 2, "Two");
  AddSeparator(hFile);
  const auto insert = [&](const char* szText, int nSeparator, int nOffset) {
    InsertMenuItemA("&File", 90, szText, nSeparator, nOffset);
    const CString sMenu = Show(hFile);
    m_menus.Delete(hFile, 90, kMenuByCommand);
    return sMenu;
  };
  EXPECT_EQ(insert("New", 1, 0), "1:One -- 90:New 2:Two --");
  EXPECT_EQ(insert("New", 0, 1), "1:One 90:New -- 2:Two --");
  EXPECT_EQ(insert("New", 2, 0), "1:One -- 2:Two -- 90:New");
  EXPECT_EQ(insert("New", 3, 0), "1:One 90:New -- 2:Two --");  // no third: counted from the top
  EXPECT_EQ(insert("New", 3, 9), "90:New 1:One -- 2:Two --");
  EXPECT_EQ(insert("&One", 2, 0), "1:One -- 2:Two --");        // it is there already
  EXPECT_EQ(insert("Two", 1, 0), "1:One -- 90:Two 2:Two --");  // behind the separator: not seen
}

}  // namespace
}  // namespace ald
