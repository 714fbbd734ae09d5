#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/DesktopContract.h"

// Windows, classes and what hangs on them.
namespace ald {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Atom kAtom{77};

TEST_P(DesktopContract, MakesNothingOfAHandleThatNamesNoWindow) {
  const WindowHandle hGone = TopLevel();
  ASSERT_TRUE(m_windows.Destroy(hGone));
  const WindowHandle hNext = TopLevel();  // may take the place of the one that went
  EXPECT_TRUE(m_windows.IsWindow(hNext));
  for (const WindowHandle h : {WindowHandle{}, hGone, WindowHandle{0xFFFFFFFF}}) {
    EXPECT_FALSE(m_windows.IsWindow(h));
    EXPECT_FALSE(m_windows.Destroy(h));
    EXPECT_FALSE(m_windows.SetText(h, "x"));
    EXPECT_EQ(m_windows.Text(h), "");
    EXPECT_EQ(m_windows.ClassName(h), "");
    EXPECT_EQ(m_windows.WindowRect(h), Rect{});
    EXPECT_EQ(m_windows.Parent(h), WindowHandle{});
    EXPECT_THAT(m_windows.Children(h), IsEmpty());
    EXPECT_FALSE(m_windows.SetProperty(h, kAtom, 1));
    EXPECT_FALSE(m_windows.Place(h, WindowOrder::kKeep, 0, 0, 1, 1, 0));
    EXPECT_FALSE(m_windows.Show(h, kShowNormal));
    EXPECT_FALSE(m_windows.Enable(h, false));
    EXPECT_FALSE(m_queue.Post(h, kMessageClose, 0, 0));
    EXPECT_EQ(m_queue.Send(h, kMessageClose, 0, 0), 0);
    EXPECT_FALSE(m_queue.SetTimer(h, 1, 10));
    EXPECT_EQ(m_controls.Count(h), 0);
    EXPECT_EQ(m_controls.AddItem(h, "x"), -1);
    EXPECT_EQ(m_menus.Of(h), MenuHandle{});
    m_windows.Invalidate(h, nullptr, true);
  }
  EXPECT_TRUE(m_windows.IsWindow(hNext));
}

TEST_P(DesktopContract, HasTheClassesOfTheSystemInAnyCase) {
  const WindowHandle hParent = TopLevel();
  for (const char* szClass :
       {"BUTTON", "edit", "Static", "LISTBOX", "ComboBox", "COMBO", "ABD_Edit"}) {
    EXPECT_TRUE(m_windows.IsWindow(Control(hParent, szClass, 5))) << szClass;
  }
  EXPECT_EQ(m_windows.ClassName(Control(hParent, "abd_edit", 6)), "ABD_Edit");
  EXPECT_EQ(Control(hParent, "NoSuchClass", 7), WindowHandle{});
}

TEST_P(DesktopContract, HandsAMessageDownTheClassesThatAClassStandsOn) {
  std::vector<CString> road;
  const auto passOn = [&](const char* szName) {
    return [&, szName](WindowHandle h, std::uint32_t nMessage, std::uint32_t nWord,
                       std::intptr_t nLong) -> std::intptr_t {
      if (nMessage != kMessageReadDate) {
        return m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
      }
      road.push_back(szName);
      return 1 + m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
    };
  };
  EXPECT_TRUE(m_windows.RegisterClass("Base_Edit", "EDIT", passOn("base")));
  EXPECT_TRUE(m_windows.RegisterClass("Plain_Edit", "base_edit", nullptr));
  EXPECT_TRUE(m_windows.RegisterClass("Date_Edit", "Plain_Edit", passOn("date")));
  EXPECT_FALSE(m_windows.RegisterClass("DATE_EDIT", "EDIT", nullptr));
  EXPECT_FALSE(m_windows.RegisterClass("", "EDIT", nullptr));
  EXPECT_FALSE(m_windows.RegisterClass("Other", "NoSuchClass", nullptr));

  const WindowHandle hParent = TopLevel();
  const WindowHandle hEdit = Control(hParent, "Date_Edit", 5);
  EXPECT_EQ(m_queue.Send(hEdit, kMessageReadDate, 0, 0), 2);
  EXPECT_THAT(road, ElementsAre("date", "base"));
  EXPECT_TRUE(m_controls.SelectText(hEdit, 0, -1)) << "it is an edit control still";

  // A procedure of its own stands in place of the class's.
  m_windows.SetProcedure(hEdit, passOn("own"));
  road.clear();
  EXPECT_EQ(m_queue.Send(hEdit, kMessageReadDate, 0, 0), 2);
  EXPECT_THAT(road, ElementsAre("own", "base"));

  EXPECT_FALSE(m_windows.UnregisterClass("Date_Edit")) << "a window of it is there";
  m_windows.Destroy(hParent);
  EXPECT_TRUE(m_windows.UnregisterClass("Date_Edit"));
  EXPECT_FALSE(m_windows.UnregisterClass("Date_Edit"));
  EXPECT_FALSE(m_windows.UnregisterClass("EDIT"));
  EXPECT_TRUE(m_windows.UnregisterClass("Plain_Edit"));
  EXPECT_TRUE(m_windows.UnregisterClass("Base_Edit"));
}

TEST_P(DesktopContract, DestroysTheParentFirstAndAllInsideWithIt) {
  std::vector<WindowHandle> destroyed;
  ASSERT_TRUE(m_windows.RegisterClass(
      "Mourned", "STATIC",
      [&](WindowHandle h, std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) {
        if (nMessage == kMessageDestroy) destroyed.push_back(h);
        return m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
      }));
  const WindowHandle hParent = m_windows.Create({.sClass = "Mourned", .nStyle = kStylePopup});
  const WindowHandle hOne = Control(hParent, "Mourned", 1);
  const WindowHandle hInner = Control(hOne, "Mourned", 2);
  const WindowHandle hTwo = Control(hParent, "Mourned", 3);
  EXPECT_TRUE(m_queue.Post(hInner, kMessageClose, 0, 0));
  EXPECT_TRUE(m_queue.SetTimer(hTwo, 1, 1));
  EXPECT_TRUE(m_windows.Destroy(hParent));
  EXPECT_THAT(destroyed, ElementsAre(hParent, hOne, hInner, hTwo));
  for (const WindowHandle h : destroyed) EXPECT_FALSE(m_windows.IsWindow(h));
  WindowMessage message{};
  EXPECT_FALSE(m_queue.Peek(message, false)) << "nothing waits for a window that is gone";
  EXPECT_TRUE(m_windows.UnregisterClass("Mourned"));
}

TEST_P(DesktopContract, FindsControlsByTheirIdAndKeepsTheirOrder) {
  const WindowHandle hParent = TopLevel();
  const WindowHandle hOne = Control(hParent, "EDIT", 7);
  const WindowHandle hTwo = Control(hParent, "BUTTON", -1);
  const WindowHandle hThree = Control(hParent, "EDIT", 7);
  EXPECT_THAT(m_windows.Children(hParent), ElementsAre(hOne, hTwo, hThree));
  EXPECT_EQ(m_windows.Child(hParent, 7), hOne);
  EXPECT_EQ(m_windows.Child(hParent, -1), hTwo);
  EXPECT_EQ(m_windows.Child(hParent, 8), WindowHandle{});
  EXPECT_EQ(m_windows.ControlId(hThree), 7);
  EXPECT_EQ(m_windows.Parent(hThree), hParent);
}

TEST_P(DesktopContract, KeepsTextStyleFontAndProperties) {
  const WindowHandle hWindow = TopLevel();
  const CString sText = "Caf\xE9 & Co\r\n100 \x80";
  EXPECT_TRUE(m_windows.SetText(hWindow, sText));
  EXPECT_EQ(m_windows.Text(hWindow), sText);
  EXPECT_TRUE(m_windows.SetStyle(hWindow, m_windows.Style(hWindow) | 2));
  EXPECT_EQ(m_windows.Style(hWindow) & 2, 2U);

  tagLOGFONTA description{};
  description.lfHeight = -11;
  const FontHandle hFont = m_canvas.CreateFont(description);
  EXPECT_TRUE(m_windows.SetFont(hWindow, hFont, false));
  EXPECT_EQ(m_windows.Font(hWindow), hFont);
  EXPECT_EQ(m_queue.Send(hWindow, kMessageGetFont, 0, 0), static_cast<std::intptr_t>(hFont));
  EXPECT_TRUE(m_canvas.DeleteFont(hFont));

  int nOwner = 0;
  EXPECT_EQ(m_windows.Property(hWindow, kAtom), 0);
  EXPECT_TRUE(m_windows.SetProperty(hWindow, kAtom, reinterpret_cast<std::intptr_t>(&nOwner)));
  EXPECT_EQ(m_windows.Property(hWindow, kAtom), reinterpret_cast<std::intptr_t>(&nOwner));
  EXPECT_EQ(m_windows.RemoveProperty(hWindow, kAtom), reinterpret_cast<std::intptr_t>(&nOwner));
  EXPECT_EQ(m_windows.RemoveProperty(hWindow, kAtom), 0);
}

TEST_P(DesktopContract, PlacesChildrenInTheirParentsInside) {
  const WindowHandle hParent = TopLevel(kStylePopup | kStyleCaption);
  const WindowHandle hChild = Control(hParent, "STATIC", 5);
  const Point origin = m_windows.ToScreen(hParent, {0, 0});
  EXPECT_EQ(m_windows.ToClient(hParent, origin), (Point{0, 0}));
  EXPECT_EQ(m_windows.WindowRect(hChild),
            (Rect{origin.x + 10, origin.y + 20, origin.x + 90, origin.y + 44}));

  constexpr std::uint32_t kOnly = kPlaceNoOrder | kPlaceNoActivate;
  EXPECT_TRUE(m_windows.Place(hChild, WindowOrder::kKeep, 30, 40, 999, 999, kOnly | kPlaceNoSize));
  EXPECT_EQ(m_windows.ToClient(hParent, m_windows.ToScreen(hChild, {0, 0})), (Point{30, 40}));
  EXPECT_TRUE(m_windows.Place(hChild, WindowOrder::kKeep, 999, 999, 50, 20, kOnly | kPlaceNoMove));
  EXPECT_EQ(m_windows.ClientRect(hChild), (Rect{0, 0, 50, 20}));

  const Windows::Move moves[] = {{hChild, 1, 2, 3, 4, kOnly}, {hParent, 50, 60, 200, 100, kOnly}};
  EXPECT_TRUE(m_windows.PlaceAll(moves));
  EXPECT_EQ(m_windows.WindowRect(hParent), (Rect{50, 60, 250, 160}));
  const Point moved = m_windows.ToScreen(hParent, {1, 2});
  EXPECT_EQ(m_windows.WindowRect(hChild), (Rect{moved.x, moved.y, moved.x + 3, moved.y + 4}));
}

TEST_P(DesktopContract, ShowsAWindowOnlyIfAllAboveItAreShown) {
  const WindowHandle hParent = TopLevel();
  const WindowHandle hChild = Control(hParent, "EDIT", 5);
  EXPECT_FALSE(m_windows.IsVisible(hChild));
  EXPECT_FALSE(m_windows.Show(hParent, kShowNormal));
  EXPECT_TRUE(m_windows.IsVisible(hChild));
  EXPECT_TRUE(m_windows.Show(hChild, kShowHide));
  EXPECT_FALSE(m_windows.IsVisible(hChild));
  EXPECT_TRUE(m_windows.Place(hChild, WindowOrder::kKeep, 0, 0, 0, 0,
                              kPlaceShow | kPlaceNoMove | kPlaceNoSize | kPlaceNoOrder));
  EXPECT_TRUE(m_windows.IsVisible(hChild));
  EXPECT_FALSE(m_windows.Enable(hChild, false));
  EXPECT_FALSE(m_windows.IsEnabled(hChild));
  EXPECT_TRUE(m_windows.Enable(hChild, true));
}

TEST_P(DesktopContract, GivesTheFocusToEnabledWindowsAndTellsThem) {
  const WindowHandle hParent = TopLevel();
  const WindowHandle hOne = Control(hParent, "EDIT", 1);
  const WindowHandle hTwo = Control(hParent, "EDIT", 2);
  m_windows.Show(hParent, kShowNormal);
  m_windows.SetFocus(hOne);
  int nTold = 0;
  m_windows.SetProcedure(
      hTwo, [&](WindowHandle h, std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) {
        if (nMessage == kMessageSetFocus) ++nTold;
        return m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
      });
  EXPECT_EQ(m_windows.SetFocus(hTwo), hOne);
  EXPECT_EQ(m_windows.Focus(), hTwo);
  EXPECT_EQ(m_windows.Active(), hParent);
  EXPECT_EQ(nTold, 1);
  m_windows.Enable(hOne, false);
  EXPECT_EQ(m_windows.SetFocus(hOne), hTwo);
  EXPECT_EQ(m_windows.Focus(), hTwo);
  m_windows.Destroy(hParent);
  EXPECT_EQ(m_windows.Focus(), WindowHandle{});
}

TEST_P(DesktopContract, BringsAWindowToTheFrontWithWhatItOwns) {
  const WindowHandle hOne = TopLevel(kStylePopup | kStyleVisible);
  const WindowHandle hOwned =
      m_windows.Create({.sClass = "STATIC", .nStyle = kStylePopup, .hParent = hOne});
  const WindowHandle hTwo = TopLevel(kStylePopup | kStyleVisible);
  EXPECT_EQ(m_windows.TopLevel().front(), hTwo);
  EXPECT_EQ(m_windows.Parent(hOwned), hOne);
  m_windows.SetForeground(hOne);
  const std::vector<WindowHandle> order = m_windows.TopLevel();
  const auto at = [&](WindowHandle h) { return std::find(order.begin(), order.end(), h); };
  EXPECT_LT(at(hOwned), at(hOne));
  EXPECT_LT(at(hOne), at(hTwo));
  m_windows.Destroy(hOne);
  EXPECT_FALSE(m_windows.IsWindow(hOwned));
}

TEST_P(DesktopContract, HoldsListsAndCombos) {
  const WindowHandle hParent = TopLevel();
  for (const char* szClass : {"LISTBOX", "COMBOBOX", "COMBO"}) {
    const WindowHandle hList = Control(hParent, szClass, 5);
    EXPECT_EQ(m_controls.Selection(hList), -1);
    EXPECT_EQ(m_controls.AddItem(hList, "Cash"), 0);
    EXPECT_EQ(m_controls.AddItem(hList, "Bank"), 1);
    EXPECT_TRUE(m_controls.SetItemData(hList, 1, -5));
    EXPECT_FALSE(m_controls.SetItemData(hList, 2, 1));
    EXPECT_EQ(m_controls.Count(hList), 2);
    EXPECT_EQ(m_controls.ItemText(hList, 1), "Bank");
    EXPECT_EQ(m_controls.ItemData(hList, 1), -5);
    EXPECT_EQ(m_controls.ItemText(hList, -1), "");
    EXPECT_TRUE(m_controls.Select(hList, 1));
    EXPECT_EQ(m_controls.Selection(hList), 1);
    EXPECT_FALSE(m_controls.Select(hList, 2));
    EXPECT_TRUE(m_controls.Select(hList, -1));
    EXPECT_TRUE(m_controls.RemoveAllItems(hList));
    EXPECT_EQ(m_controls.Count(hList), 0);
  }
  const WindowHandle hEdit = Control(hParent, "EDIT", 6);
  EXPECT_EQ(m_controls.AddItem(hEdit, "x"), -1);
  EXPECT_FALSE(m_controls.Select(hEdit, -1));
}

TEST_P(DesktopContract, TellsTheParentWhatTheUserDoes) {
  const WindowHandle hParent = Recorder({kMessageCommand});
  const WindowHandle hEdit = Control(hParent, "EDIT", 11);
  const WindowHandle hCheck =
      Control(hParent, "BUTTON", 12, kStyleVisible | kStyleTabStop | kButtonAutoCheck);
  m_windows.Show(hParent, kShowNormal);
  m_controls.SetLimit(hEdit, 4);
  EXPECT_TRUE(m_pBench->Type(hEdit, "12345"));
  EXPECT_EQ(m_windows.Text(hEdit), "1234");
  EXPECT_TRUE(m_controls.SelectText(hEdit, 1, 3));
  EXPECT_TRUE(m_pBench->Type(hEdit, "x"));
  EXPECT_EQ(m_windows.Text(hEdit), "1x4");
  ASSERT_FALSE(m_heard.empty());
  EXPECT_EQ(m_heard.back().nWord, kNoticeChange << 16 | 11);
  EXPECT_EQ(m_heard.back().nLong, static_cast<std::intptr_t>(hEdit));

  m_heard.clear();
  EXPECT_TRUE(m_pBench->Press(hParent, 12));
  EXPECT_EQ(m_controls.Check(hCheck), 1);
  EXPECT_TRUE(m_pBench->Press(hParent, 12));
  EXPECT_EQ(m_controls.Check(hCheck), 0);
  ASSERT_EQ(m_heard.size(), 2U);
  EXPECT_EQ(m_heard[0].nWord, kNoticeClick << 16 | 12);
  m_windows.Enable(hCheck, false);
  EXPECT_FALSE(m_pBench->Press(hParent, 12));
  EXPECT_FALSE(m_pBench->Press(hParent, 99));
}

TEST_P(DesktopContract, ChecksOneRadioButtonOfAGroup) {
  const WindowHandle hParent = TopLevel();
  const std::uint32_t nRadio = kStyleVisible | kButtonAutoRadio;
  const WindowHandle hA = Control(hParent, "BUTTON", 1, nRadio | kStyleGroup);
  const WindowHandle hB = Control(hParent, "BUTTON", 2, nRadio);
  const WindowHandle hOther = Control(hParent, "BUTTON", 3, nRadio | kStyleGroup);
  m_windows.Show(hParent, kShowNormal);
  m_controls.SetCheck(hOther, 1);
  EXPECT_TRUE(m_pBench->Press(hParent, 1));
  EXPECT_TRUE(m_pBench->Press(hParent, 2));
  EXPECT_EQ(m_controls.Check(hA), 0);
  EXPECT_EQ(m_controls.Check(hB), 1);
  EXPECT_EQ(m_controls.Check(hOther), 1);
}

}  // namespace
}  // namespace ald
