#include <gmock/gmock.h>

#include <limits>

#include "tests/support/DesktopContract.h"

// Drawing tools and menus.
namespace ald {
namespace {

tagLOGFONTA FontOf(std::int32_t nHeight, std::int32_t nWeight) {
  tagLOGFONTA font{};
  font.lfHeight = nHeight;
  font.lfWeight = nWeight;
  return font;
}

TEST_P(DesktopContract, MeasuresTextInTheSelectedFont) {
  const ContextHandle hContext = m_canvas.Context({});
  const FontHandle hSmall = m_canvas.CreateFont(FontOf(-11, 400));
  const FontHandle hLarge = m_canvas.CreateFont(FontOf(-33, 400));
  const FontHandle hBefore = m_canvas.SelectFont(hContext, hSmall);
  EXPECT_EQ(hBefore, m_canvas.StockFont(kStockFontSystem));
  const Size small = m_canvas.TextExtent(hContext, "Balance");
  EXPECT_EQ(m_canvas.SelectFont(hContext, hLarge), hSmall);
  const Size large = m_canvas.TextExtent(hContext, "Balance");
  EXPECT_LT(small.cx, large.cx);
  EXPECT_LT(small.cy, large.cy);
  EXPECT_EQ(large.cy, m_canvas.Metrics(hContext).nHeight);
  EXPECT_EQ(m_canvas.SelectFont(hContext, FontHandle{0xFFFF}), FontHandle{});
  EXPECT_EQ(m_canvas.TextExtent(hContext, "Balance"), large);

  Rect place{5, 7, 6, 8};
  EXPECT_EQ(m_canvas.DrawText(hContext, "one\r\ntwo\nthree", place, kTextCalculate), 3 * large.cy);
  EXPECT_EQ(place.top + 3 * large.cy, place.bottom);
  EXPECT_EQ(place.Width(), m_canvas.TextExtent(hContext, "three").cx);
  m_canvas.Release(hContext);
  EXPECT_EQ(m_canvas.TextExtent(hContext, "x"), Size{});
}

TEST_P(DesktopContract, PlacesAndDrawsAsFarAsNumbersGo) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  const WindowHandle hWindow = TopLevel(kStylePopup | kStyleVisible);
  const WindowHandle hChild = Control(hWindow, "STATIC", 5);
  const ContextHandle hContext = m_canvas.Context(hWindow);
  for (const Rect& place : {Rect{kLeast, kLeast, kMost, kMost}, Rect{kMost, kMost, kLeast, kLeast},
                            Rect{kMost - 9, kLeast, kMost, kLeast + 9}}) {
    m_windows.Place(hChild, WindowOrder::kKeep, place.left, place.top, 30, 20, 0);
    EXPECT_LE(m_windows.WindowRect(hChild).Width(), 30);
    m_windows.Place(hChild, WindowOrder::kKeep, 5, 5, place.right, place.bottom, 0);
    for (const bool bUpward : {false, true}) {
      m_canvas.SetUpward(hContext, bUpward);
      for (const std::uint32_t nBits : {kTextCalculate, kTextCenter | kTextSingleLine}) {
        Rect room = place;
        EXPECT_GT(m_canvas.DrawText(hContext, "far\naway", room, nBits), 0);
      }
      EXPECT_TRUE(m_canvas.Line(hContext, {place.left, place.top}, {place.right, place.bottom}));
      EXPECT_TRUE(
          m_canvas.DrawIcon(hContext, {place.right, place.bottom}, m_canvas.SystemIcon(0x7F01)));
    }
    Drain();
  }
  m_canvas.Release(hContext);
}

TEST_P(DesktopContract, DescribesFontsUntilTheyAreDeleted) {
  tagLOGFONTA asked = FontOf(-16, 700);
  asked.lfItalic = 1;
  const FontHandle hFont = m_canvas.CreateFont(asked);
  tagLOGFONTA told{};
  ASSERT_TRUE(m_canvas.Describe(hFont, told));
  EXPECT_EQ(told.lfHeight, -16);
  EXPECT_EQ(told.lfWeight, 700);
  EXPECT_NE(told.lfItalic, 0);
  EXPECT_TRUE(m_canvas.DeleteFont(hFont));
  EXPECT_FALSE(m_canvas.DeleteFont(hFont));
  EXPECT_FALSE(m_canvas.Describe(hFont, told));
}

TEST_P(DesktopContract, RestoresWhatHeldAtSave) {
  const ContextHandle hContext = m_canvas.Context({});
  m_canvas.SetTextColor(hContext, 0x02000001);
  const int nSaved = m_canvas.Save(hContext);
  EXPECT_EQ(m_canvas.SetTextColor(hContext, 0x02000002), 0x02000001U);
  const bool bOpaque = m_canvas.SetOpaque(hContext, false);
  m_canvas.Save(hContext);
  EXPECT_TRUE(m_canvas.Restore(hContext, nSaved));
  EXPECT_EQ(m_canvas.SetTextColor(hContext, 0), 0x02000001U);
  EXPECT_EQ(m_canvas.SetOpaque(hContext, true), bOpaque);
  EXPECT_FALSE(m_canvas.Restore(hContext, nSaved));

  EXPECT_FALSE(m_canvas.SetUpward(hContext, false));
  const int nDownward = m_canvas.Save(hContext);
  m_canvas.SetUpward(hContext, true);
  Rect place{0, 100, 1, 100};
  const int nHeight = m_canvas.DrawText(hContext, "one\ntwo", place, kTextCalculate);
  EXPECT_EQ(nHeight, 2 * m_canvas.Metrics(hContext).nHeight);
  EXPECT_EQ(place.bottom, 100 - nHeight);
  EXPECT_TRUE(m_canvas.Restore(hContext, nDownward));
  EXPECT_FALSE(m_canvas.SetUpward(hContext, false));

  const PenHandle hPen = m_canvas.CreatePen(0x00808080);
  const PenHandle hFirst = m_canvas.SelectPen(hContext, hPen);
  EXPECT_EQ(m_canvas.SelectPen(hContext, hFirst), hPen);
  EXPECT_TRUE(m_canvas.DeletePen(hPen));
  EXPECT_FALSE(m_canvas.DeletePen(hPen));
  m_canvas.Release(hContext);
  EXPECT_FALSE(m_canvas.Line(hContext, {0, 0}, {5, 5}));
}

TEST_P(DesktopContract, KnowsTheIconsOfBoxes) {
  for (const std::intptr_t nIcon : {0x7F01, 0x7F02, 0x7F03, 0x7F04}) {
    EXPECT_NE(m_canvas.SystemIcon(nIcon), IconHandle{});
  }
  EXPECT_EQ(m_canvas.SystemIcon(0x7F05), IconHandle{});
  EXPECT_EQ(m_canvas.SystemIcon(0), IconHandle{});
  EXPECT_GT(m_windows.Metric(kMetricIconWidth), 0);
  EXPECT_GT(m_windows.Metric(kMetricScreenHeight), 0);
}

// &File (&New, separator, &Recent (one)), &Help (About, grayed)
class MenuTree {
 public:
  explicit MenuTree(MenuBar& menus) : m_menus(menus) {
    menus.Append(m_hRecent, 0, 103, "one");
    menus.Append(m_hFile, 0, 101, "&New\tCtrl+N");
    menus.Append(m_hFile, kMenuSeparator, 0, "");
    menus.Append(m_hFile, kMenuPopup, static_cast<std::uint32_t>(m_hRecent), "&Recent");
    menus.Append(m_hHelp, kMenuGrayed, 104, "About");
    menus.Append(m_hBar, kMenuPopup, static_cast<std::uint32_t>(m_hFile), "&File");
    menus.Append(m_hBar, kMenuPopup, static_cast<std::uint32_t>(m_hHelp), "&Help");
  }

  MenuBar& m_menus;
  MenuHandle m_hBar = m_menus.CreateBar();
  MenuHandle m_hFile = m_menus.CreatePopup();
  MenuHandle m_hRecent = m_menus.CreatePopup();
  MenuHandle m_hHelp = m_menus.CreatePopup();
};

TEST_P(DesktopContract, TellsWhatAMenuHolds) {
  const MenuTree tree(m_menus);
  EXPECT_EQ(m_menus.Count(tree.m_hBar), 2);
  EXPECT_EQ(m_menus.Count(tree.m_hFile), 3);
  EXPECT_EQ(m_menus.Id(tree.m_hFile, 0), 101U);
  EXPECT_EQ(m_menus.Id(tree.m_hFile, 1), 0U);
  EXPECT_EQ(m_menus.Id(tree.m_hFile, 2), kMenuIdOfPopup);
  EXPECT_EQ(m_menus.Id(tree.m_hFile, 3), kMenuIdOfPopup);
  EXPECT_EQ(m_menus.Submenu(tree.m_hFile, 2), tree.m_hRecent);
  EXPECT_EQ(m_menus.Submenu(tree.m_hFile, 0), MenuHandle{});
  EXPECT_EQ(m_menus.Text(tree.m_hFile, 0, 80, kMenuByPosition), "&New\tCtrl+N");
  EXPECT_EQ(m_menus.Text(tree.m_hFile, 0, 5, kMenuByPosition), "&New");
  EXPECT_EQ(m_menus.Text(tree.m_hBar, 103, 80, kMenuByCommand), "one") << "two menus down";
  EXPECT_EQ(m_menus.State(tree.m_hBar, 0, kMenuByPosition), kMenuPopup | 3U << 8);
  EXPECT_EQ(m_menus.State(tree.m_hBar, 104, kMenuByCommand), kMenuGrayed);
  EXPECT_EQ(m_menus.State(tree.m_hFile, 1, kMenuByPosition), kMenuSeparator);
  EXPECT_EQ(m_menus.State(tree.m_hBar, 999, kMenuByCommand), 0xFFFFFFFFU);
  EXPECT_EQ(m_menus.Count(MenuHandle{}), -1);
}

TEST_P(DesktopContract, ChangesMenusInPlace) {
  const MenuTree tree(m_menus);
  EXPECT_EQ(m_menus.Enable(tree.m_hBar, 104, 0), kMenuGrayed);
  EXPECT_EQ(m_menus.Enable(tree.m_hBar, 104, kMenuGrayed), 0U);
  EXPECT_EQ(m_menus.Enable(tree.m_hBar, 999, 0), 0xFFFFFFFFU);
  EXPECT_TRUE(m_menus.Insert(tree.m_hBar, 103, kMenuByCommand, 102, "zero"));
  EXPECT_EQ(m_menus.Id(tree.m_hRecent, 0), 102U);
  EXPECT_TRUE(m_menus.Insert(tree.m_hFile, 1, kMenuByPosition, 105, "&Open"));
  EXPECT_EQ(m_menus.Id(tree.m_hFile, 1), 105U);
  EXPECT_FALSE(m_menus.Insert(tree.m_hFile, 999, kMenuByCommand, 106, "x"));
  EXPECT_TRUE(m_menus.Modify(tree.m_hBar, 105, kMenuByCommand | kMenuGrayed, 107, "&Save"));
  EXPECT_EQ(m_menus.State(tree.m_hBar, 107, kMenuByCommand), kMenuGrayed);
  EXPECT_FALSE(m_menus.Delete(tree.m_hBar, 105, kMenuByCommand));
  EXPECT_TRUE(m_menus.Delete(tree.m_hBar, 107, kMenuByCommand));
  EXPECT_EQ(m_menus.Count(tree.m_hFile), 3);
}

TEST_P(DesktopContract, DestroysASubmenuWithItsItemButNotWhenItIsTakenOut) {
  const MenuTree tree(m_menus);
  EXPECT_TRUE(m_menus.Remove(tree.m_hFile, 2, kMenuByPosition));
  EXPECT_EQ(m_menus.Count(tree.m_hRecent), 1);
  EXPECT_TRUE(m_menus.Append(tree.m_hFile, kMenuPopup, static_cast<std::uint32_t>(tree.m_hRecent),
                             "again"));
  const MenuHandle hNew = m_menus.CreatePopup();
  EXPECT_TRUE(m_menus.Modify(tree.m_hFile, 2, kMenuByPosition | kMenuPopup,
                             static_cast<std::uint32_t>(hNew), "other"));
  EXPECT_EQ(m_menus.Count(tree.m_hRecent), -1);
  EXPECT_EQ(m_menus.Submenu(tree.m_hFile, 2), hNew);
  EXPECT_TRUE(m_menus.DestroyMenu(tree.m_hBar));
  EXPECT_EQ(m_menus.Count(tree.m_hFile), -1);
  EXPECT_EQ(m_menus.Count(hNew), -1);
  EXPECT_FALSE(m_menus.Append(tree.m_hBar, 0, 1, "x"));
}

TEST_P(DesktopContract, GivesAWindowItsMenu) {
  const WindowHandle hWindow = TopLevel();
  const MenuTree tree(m_menus);
  EXPECT_EQ(m_menus.Of(hWindow), MenuHandle{});
  EXPECT_TRUE(m_menus.SetOf(hWindow, tree.m_hBar));
  EXPECT_EQ(m_menus.Of(hWindow), tree.m_hBar);
  m_windows.Destroy(hWindow);
  EXPECT_EQ(m_menus.Count(tree.m_hBar), -1) << "it goes with its window";
}

}  // namespace
}  // namespace ald
