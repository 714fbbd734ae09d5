#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/DesktopContract.h"
#include "tests/support/HeadlessBench.h"
#include "tests/support/TempFolder.h"

// Windows and drawing of the desktop in memory.
namespace ald {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(HeadlessBench, AsksTheParentForColoursAndDrawsInThem) {
  const WindowHandle hParent = Shown();
  const WindowHandle hEdit = Control(hParent, "EDIT", "100.00");
  const BrushHandle hBrush = m_desktop.canvas.CreateSolidBrush(0x02C0C0C0);
  m_desktop.windows.SetProcedure(hParent, [&](WindowHandle h, std::uint32_t nMessage,
                                              std::uint32_t nWord, std::intptr_t nLong) {
    if (nMessage != kMessageColorEdit) {
      return m_desktop.windows.DefaultProcedure(h, nMessage, nWord, nLong);
    }
    EXPECT_EQ(nLong, static_cast<std::intptr_t>(hEdit));
    m_desktop.canvas.SetTextColor(static_cast<ContextHandle>(nWord), 0x020000FF);
    return static_cast<std::intptr_t>(hBrush);
  });
  Drain();
  const std::vector<DrawnItem> drawn = m_bench.DrawnOn(hEdit);
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].kind, DrawnItem::Kind::kFill);
  EXPECT_EQ(drawn[0].nColor, 0x02C0C0C0U);
  EXPECT_EQ(drawn[0].place, (Rect{0, 0, 100, 20}));
  EXPECT_EQ(drawn[1].sText, "100.00");
  EXPECT_EQ(drawn[1].nColor, 0x020000FFU);
  EXPECT_EQ(drawn[1].place, (Rect{0, 0, 42, 13}));
  EXPECT_EQ(m_bench.Live().nContexts, 0U);
}

TEST_F(HeadlessBench, PaintsAWindowOnceForEachReason) {
  const WindowHandle hWindow = Shown();
  int nPaints = 0;
  m_desktop.windows.SetProcedure(
      hWindow, [&](WindowHandle, std::uint32_t nMessage, std::uint32_t, std::intptr_t) {
        if (nMessage == kMessagePaint) ++nPaints;  // and never paints in fact
        return std::intptr_t{0};
      });
  Drain();
  EXPECT_EQ(nPaints, 1);
  const Rect part{1, 2, 3, 4};
  m_desktop.windows.Invalidate(hWindow, &part, true);
  m_desktop.windows.Invalidate(hWindow, &part, false);
  Drain();
  EXPECT_EQ(nPaints, 2);
  m_bench.ForgetOutput();

  constexpr std::uint32_t kOnly = kPlaceNoOrder | kPlaceNoActivate | kPlaceNoSize;
  m_desktop.windows.Place(hWindow, WindowOrder::kKeep, 9, 9, 0, 0, kOnly | kPlaceNoRedraw);
  EXPECT_THAT(m_bench.Invalidated(), IsEmpty());
  m_desktop.windows.Place(hWindow, WindowOrder::kKeep, 10, 10, 0, 0, kOnly);
  ASSERT_EQ(m_bench.Invalidated().size(), 1U);
  EXPECT_EQ(m_bench.Invalidated()[0].part, (Rect{0, 0, 400, 300}));
}

TEST_F(HeadlessBench, FramesAWindowWithACaption) {
  const WindowHandle hWindow = Shown(kStyleCaption);
  EXPECT_EQ(m_desktop.windows.ClientRect(hWindow),
            (Rect{0, 0, 400 - 2 * kHeadlessBorder, 300 - 2 * kHeadlessBorder - kHeadlessCaption}));
  EXPECT_EQ(m_desktop.windows.ToScreen(hWindow, {0, 0}),
            (Point{kHeadlessBorder, kHeadlessBorder + kHeadlessCaption}));
}

TEST_F(HeadlessBench, MeasuresFontsByTheirHeightAndWeight) {
  const struct {
    std::int32_t nHeight, nWidth, nWeight;
    TextMetrics metrics;
  } rows[] = {
      {-11, 0, 400, {13, 10, 7, 14}},  // 8 points
      {-11, 0, 700, {13, 10, 8, 16}},  // bold: a pixel wider
      {13, 0, 400, {13, 10, 7, 14}},  {0, 0, 0, {13, 10, 7, 14}},
      {26, 0, 400, {26, 20, 14, 28}}, {-22, 0, 400, {26, 20, 14, 28}},
      {13, 5, 400, {13, 10, 5, 10}},  {1, 0, 400, {1, 1, 1, 2}},
  };
  const ContextHandle hContext = m_desktop.canvas.Context({});
  for (const auto& row : rows) {
    tagLOGFONTA font{};
    font.lfHeight = row.nHeight;
    font.lfWidth = row.nWidth;
    font.lfWeight = row.nWeight;
    m_desktop.canvas.SelectFont(hContext, m_desktop.canvas.CreateFont(font));
    EXPECT_EQ(m_desktop.canvas.Metrics(hContext), row.metrics)
        << row.nHeight << ' ' << row.nWidth << ' ' << row.nWeight;
  }
}

TEST_F(HeadlessBench, LaysOutTextLineByLine) {
  const struct {
    const char* szText;
    std::uint32_t nBits;
    std::vector<CString> lines;
    std::vector<Point> at;
  } rows[] = {
      // Ten characters of 7 by 13 fit between 0 and 70, and three lines between 0 and 39.
      {"one\r\ntwo\n\nsix\n", 0, {"one", "two", "", "six"}, {{0, 0}, {0, 13}, {0, 26}, {0, 39}}},
      {"one", kTextRight, {"one"}, {{49, 0}}},
      {"four", kTextCenter, {"four"}, {{21, 0}}},
      {"one", kTextSingleLine | kTextVCenter, {"one"}, {{0, 13}}},
      {"one", kTextSingleLine | kTextBottom, {"one"}, {{0, 26}}},
      {"&Save && e&xit", 0, {"Save & exit"}, {{0, 0}}},
      {"a & b", kTextNoPrefix, {"a & b"}, {{0, 0}}},
      {"a\tb", kTextExpandTabs, {"a       b"}, {{0, 0}}},
      {"the balance is off",
       kTextWordBreak,
       {"the", "balance is", "off"},
       {{0, 0}, {0, 13}, {0, 26}}},
      {"a reconciliation b",
       kTextWordBreak,
       {"a", "reconciliation", "b"},
       {{0, 0}, {0, 13}, {0, 26}}},
      {"", 0, {}, {}},
  };
  const ContextHandle hContext = m_desktop.canvas.Context({});
  for (const auto& row : rows) {
    m_bench.ForgetOutput();
    Rect place{0, 0, 70, 39};
    m_desktop.canvas.DrawText(hContext, row.szText, place, row.nBits);
    std::vector<CString> lines;
    std::vector<Point> at;
    for (const DrawnItem& item : m_bench.Drawn()) {
      lines.push_back(item.sText);
      at.push_back({item.place.left, item.place.top});
      EXPECT_EQ(item.clip, place);
    }
    EXPECT_EQ(lines, row.lines) << row.szText;
    EXPECT_EQ(at, row.at) << row.szText;
  }
}

TEST_F(HeadlessBench, NarrowsDrawingUntilItIsRestored) {
  const ContextHandle hContext = m_desktop.canvas.Context({});
  const int nSaved = m_desktop.canvas.Save(hContext);
  m_desktop.canvas.Clip(hContext, {0, 0, 50, 50});
  m_desktop.canvas.Clip(hContext, {20, 30, 90, 90});
  m_desktop.canvas.Line(hContext, {1, 2}, {3, 4});
  m_desktop.canvas.Restore(hContext, nSaved);
  m_desktop.canvas.Line(hContext, {1, 2}, {3, 4});
  ASSERT_EQ(m_bench.Drawn().size(), 2U);
  EXPECT_EQ(m_bench.Drawn()[0].clip, (Rect{20, 30, 50, 50}));
  EXPECT_EQ(m_bench.Drawn()[0].place, (Rect{1, 2, 3, 4}));
  EXPECT_EQ(m_bench.Drawn()[1].clip, std::nullopt);
}

TEST_F(HeadlessBench, GivesTheFocusBackToTheControlOfADialog) {
  const WindowHandle hDialog = m_desktop.windows.CreateDialog({}, {}, SmallDialog(), nullptr, 0);
  m_desktop.windows.Show(hDialog, kShowNormal);
  const WindowHandle hEdit = m_desktop.windows.Child(hDialog, 12);
  m_desktop.windows.SetFocus(hEdit);
  const WindowHandle hOther = Shown();
  EXPECT_EQ(m_desktop.windows.Focus(), hOther);
  m_desktop.windows.Destroy(hOther);
  EXPECT_EQ(m_desktop.windows.Focus(), hEdit);
  m_bench.LeaveApplication();
  EXPECT_EQ(m_desktop.windows.Active(), WindowHandle{});
  EXPECT_EQ(m_desktop.windows.Focus(), WindowHandle{});
  EXPECT_TRUE(m_desktop.windows.SetForeground(hDialog));
  EXPECT_EQ(m_desktop.windows.Focus(), hEdit);
  EXPECT_EQ(m_bench.Live().nFonts, 1U);
  m_desktop.windows.Destroy(hDialog);
  EXPECT_EQ(m_bench.Live(), LiveObjects{});
}

TEST_F(HeadlessBench, GoesRoundTheDocumentsOfAClient) {
  const WindowHandle hClient = Shown();
  const WindowHandle hOne = Control(hClient, "STATIC", "one");
  const WindowHandle hTwo = Control(hClient, "STATIC", "two");
  m_desktop.windows.SetFocus(hOne);
  EXPECT_EQ(m_desktop.windows.ActiveDocument(hClient), hOne);
  m_bench.Hold(kKeyControl, true);
  Queue& queue = m_desktop.queue;
  EXPECT_TRUE(queue.TranslateMdiAccelerator(hClient, {hOne, kMessageKeyDown, 0x75, 0}));
  EXPECT_EQ(m_desktop.windows.ActiveDocument(hClient), hTwo);
  EXPECT_TRUE(queue.TranslateMdiAccelerator(hClient, {hTwo, kMessageKeyDown, 0x73, 0}));
  EXPECT_FALSE(m_desktop.windows.IsWindow(hTwo));
  EXPECT_EQ(m_desktop.windows.ActiveDocument(hClient), hOne);
  EXPECT_FALSE(queue.TranslateMdiAccelerator(hClient, {hOne, kMessageKeyDown, 'A', 0}));
}

TEST_F(HeadlessBench, KeepsTopmostWindowsInFront) {
  const WindowHandle hTop = Shown();
  m_desktop.windows.Place(hTop, WindowOrder::kTopmost, 0, 0, 0, 0, kPlaceNoSize | kPlaceNoMove);
  const WindowHandle hOther = Shown();
  EXPECT_THAT(m_desktop.windows.TopLevel(), ElementsAre(hTop, hOther));
  EXPECT_EQ(m_desktop.windows.Active(), hOther);
}

TEST_F(HeadlessBench, ListsAFolderByPattern) {
  const TempFolder folder;
  for (const char* szName : {"CHART.DAT", "ledger.dat", "notes.txt"}) {
    folder.Write(szName, "x");
  }
  std::filesystem::create_directory(folder.Path("BACKUP"));
  const WindowHandle hParent = Shown();
  const WindowHandle hList = Control(hParent, "LISTBOX", "");
  const WindowHandle hLabel = m_desktop.windows.Create(
      {.sClass = "STATIC", .nStyle = kStyleChild, .hParent = hParent, .nId = 6});
  const auto items = [&] {
    std::vector<CString> texts;
    for (int i = 0; i < m_desktop.controls.Count(hList); ++i) {
      texts.push_back(m_desktop.controls.ItemText(hList, i));
    }
    return texts;
  };
  const CString sFolder = folder.Path("");
  EXPECT_TRUE(m_desktop.controls.ListFolder(hParent, sFolder, 5, 6, 0));
  EXPECT_THAT(items(), ElementsAre("CHART.DAT", "ledger.dat", "notes.txt"));
  EXPECT_EQ(m_desktop.windows.Text(hLabel) + "/", sFolder);
  EXPECT_TRUE(m_desktop.controls.ListFolder(hParent, sFolder + "*.D?T", 5, 6, 0x10));
  EXPECT_THAT(items(), ElementsAre("CHART.DAT", "ledger.dat", "[..]", "[BACKUP]"));
  EXPECT_FALSE(m_desktop.controls.ListFolder(hParent, sFolder + "none/*.*", 5, 6, 0));

  CString sOnDrive = "C:" + folder.Path();
  std::replace(sOnDrive.begin(), sOnDrive.end(), '/', '\\');
  EXPECT_TRUE(m_desktop.controls.ListFolder(hParent, sOnDrive + "\\backup\\..\\NOTES.*", 5, 6, 0));
  EXPECT_THAT(items(), ElementsAre("notes.txt"));
  EXPECT_EQ(m_desktop.windows.Text(hLabel), sOnDrive);
}

TEST_F(HeadlessBench, LeavesNothingBehindOfAWindowThatGoes) {
  const WindowHandle hWindow = Shown();
  const WindowHandle hChild = Control(hWindow, "STATIC", "");
  m_desktop.windows.SetProcedure(
      hChild, [&](WindowHandle, std::uint32_t nMessage, std::uint32_t, std::intptr_t) {
        if (nMessage == kMessageDestroy) Control(hWindow, "EDIT", "late");
        return std::intptr_t{0};
      });
  EXPECT_TRUE(m_desktop.windows.Destroy(hWindow));
  EXPECT_EQ(m_bench.Live().nWindows, 0U);
}

TEST_F(HeadlessBench, NeverLetsAStaleHandleAnswerForItsSuccessor) {
  std::vector<WindowHandle> gone;
  for (int i = 0; i < 500; ++i) {
    const WindowHandle hWindow = m_desktop.windows.Create({.sClass = "STATIC"});
    for (const WindowHandle hOld : gone) ASSERT_NE(hOld, hWindow);
    m_desktop.windows.Destroy(hWindow);
    gone.push_back(hWindow);
  }
  m_desktop.windows.Create({.sClass = "STATIC"});
  for (const WindowHandle hOld : gone) EXPECT_FALSE(m_desktop.windows.IsWindow(hOld));
}

}  // namespace
}  // namespace ald
