#include "aldlib/screens/Drawing.h"

#include <gmock/gmock.h>

#include <limits>
#include <sstream>

#include "aldlib/frame/LargeClip.h"
#include "aldlib/screens/DialogFonts.h"
#include "tests/screens/Screen.h"

namespace ald {
namespace {

// A character is 7 by 13.
class Drawing : public Screen {
 protected:
  Drawing() : m_hContext(m_desktop.canvas.Context(m_hScreen)) {}
  ~Drawing() override { m_desktop.canvas.Release(m_hContext); }

  // The lines that MyDrawText draws, with their tops, and the y that it returns.
  CString Draw(const char* szText, const Rect& place, std::uint32_t nFlags, int nLength = -1) {
    m_headless.ForgetOutput();
    const int y = MyDrawText(m_hContext, m_hContext, szText, nLength, place, nFlags);
    std::ostringstream out;
    for (const DrawnItem& item : m_headless.Drawn()) {
      out << item.sText << "@" << item.place.top << " ";
    }
    out << y;
    return out.str();
  }

  ContextHandle m_hContext;
};

TEST_F(Drawing, WrapsAtBlanksAndInsideWordsThatAreTooLong) {
  constexpr Rect kTenWide{0, 0, 70, -200};
  EXPECT_EQ(Draw("one two three", kTenWide, 0), "one two@0 three@-13 -26");
  EXPECT_EQ(Draw("one\r\n\r\nthree", kTenWide, 0), "one@0 three@-26 -39");
  EXPECT_EQ(Draw("incomprehensibilities", kTenWide, 0), "incomprehe@0 nsibilitie@-13 s@-26 -39");
  EXPECT_EQ(Draw("one two three", kTenWide, kTextWordBreak), "one two three@0 -13");
  EXPECT_EQ(Draw("one\r\ntwo", kTenWide, 0, 3), "one@0 -13");
  EXPECT_EQ(Draw("", kTenWide, 0), "-13");
  EXPECT_EQ(Draw(nullptr, kTenWide, 0), "-13");
  EXPECT_EQ(Draw("x", {0, 0, 70, 0}, 0), "0");
}

TEST_F(Drawing, PlacesTheLinesUpAndDownUnlessNothingIsToBeBroken) {
  constexpr Rect kPlace{0, 100, 70, 0};
  EXPECT_EQ(Draw("a", kPlace, kTextVCenter), "a@57 44");
  EXPECT_EQ(Draw("a", kPlace, kTextBottom), "a@13 0");
  EXPECT_EQ(Draw("a", kPlace, kTextBottom | kTextWordBreak), "a@100 87");
}

TEST_F(Drawing, ClipsToTheRectangleOrOneUnitMore) {
  const auto clip = [&](const Rect& place, std::uint32_t nFlags) {
    Draw("a", place, nFlags);
    return m_headless.Drawn().at(0).clip;
  };
  EXPECT_EQ(clip({5, 0, 70, -20}, 0), (Rect{5, 0, 70, -20}));
  EXPECT_EQ(clip({5, 0, 70, -20}, kTextNoClip), std::nullopt);
  AllowLargeClip(true);
  EXPECT_EQ(clip({5, 0, 70, -20}, 0), (Rect{4, 0, 71, -20}));
  EXPECT_EQ(clip({0, 0, 70, -20}, 0), (Rect{0, 0, 71, -20}));
  AllowLargeClip(false);
}

TEST_F(Drawing, OnAContextThatCountsUpwardTheFirstLineIsTheHighest) {
  m_desktop.canvas.SetUpward(m_hContext, true);
  const int nInside = m_windows.ClientRect(m_hScreen).bottom;
  m_desktop.canvas.Clip(m_hContext, {0, nInside, 60, 0});
  Draw("one two three", {5, nInside - 20, 70, 0}, 0);
  const std::vector<DrawnItem>& drawn = m_headless.Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].place.top, 20);
  EXPECT_EQ(drawn[1].place.top, 33);
  EXPECT_EQ(drawn[0].clip, (Rect{5, 20, 60, nInside}));
}

TEST_F(Drawing, TabsLeadToTheirStops) {
  constexpr int kStops[] = {50, 90};
  const auto lefts = [&](const char* szText, const int* pnTabs) {
    m_headless.ForgetOutput();
    DrawTabClippedText(m_hContext, {0, 0, 300, 20}, szText, -1, pnTabs, 2, 10,
                       kTextSingleLine | kTextRight);
    std::vector<CString> drawn;
    for (const DrawnItem& item : m_headless.Drawn()) {
      drawn.push_back(item.sText + "@" + std::to_string(item.place.left));
    }
    return drawn;
  };
  EXPECT_THAT(lefts("a\tb\tc\td", kStops), testing::ElementsAre("a@0", "b@60", "c@100", "d@140"));
  EXPECT_THAT(lefts("ab", kStops), testing::ElementsAre("ab@286"));  // right aligned, as it stands
}

TEST_F(Drawing, ABevelIsWhiteAboveAndGrayBelow) {
  const auto lines = [&](std::uint32_t nFlags, int bRaised) {
    m_headless.ForgetOutput();
    DrawBevelRect(m_hContext, {10, 20, 50, 60}, 2, nFlags, bRaised);
    std::ostringstream out;
    for (const DrawnItem& item : m_headless.Drawn()) {
      out << (item.nColor == 0xFFFFFF ? "white " : "gray ") << item.place.left << ","
          << item.place.top << "-" << item.place.right << "," << item.place.bottom << "; ";
    }
    return out.str();
  };
  EXPECT_EQ(lines(0, 1),
            "white 10,20-50,20; white 11,21-49,21; gray 11,59-50,59; gray 12,58-49,58; "
            "white 10,21-10,60; white 11,22-11,59; gray 49,21-49,59; gray 48,22-48,58; ");
  EXPECT_EQ(lines(kBevelUpsideDown | kBevelOtherSide, 0),
            "gray 11,59-50,59; gray 12,58-49,58; gray 49,21-49,59; gray 48,22-48,58; ");
  EXPECT_EQ(lines(kBevelUpsideDown, 1).substr(0, 16), "gray 10,20-50,20");
  EXPECT_EQ(m_headless.Live().nPens, 0U);
}

TEST_F(Drawing, EndsWhereNumbersEnd) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr int kTabs[] = {kLeast, kMost};
  for (const Rect& place : {Rect{kLeast, kMost, kMost, kLeast}, Rect{0, kLeast + 5, 70, kLeast},
                            Rect{kMost - 5, kMost, kMost, kMost - 5}}) {
    for (const std::uint32_t nFlags : {0U, kTextCenter | kTextVCenter, kTextRight | kTextBottom}) {
      Draw("one two\r\nthree", place, nFlags);
      DrawTabClippedText(m_hContext, place, "a\tb\tc\td", -1, kTabs, 2, place.left, nFlags);
    }
    DrawBevelRect(m_hContext, place, 3, 0, 1);
  }
  EXPECT_EQ(Draw("a\r\nb", {0, kLeast + 20, 70, kLeast}, 0),
            std::to_string(kLeast + 20).insert(0, "a@") + " b@" + std::to_string(kLeast + 7) + " " +
                std::to_string(kLeast));
  m_headless.ForgetOutput();
  DrawBevelRect(m_hContext, {10, 20, 50, 60}, kMost, 0, 0);
  EXPECT_EQ(m_headless.Drawn().size(), 2U * 32767);
}

TEST_F(Drawing, ADialogWithoutItsBoldnessKeepsItsProportions) {
  const FontHandle hBold =
      m_desktop.canvas.CreateFont({-11, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0, "MS Sans Serif"});
  EXPECT_EQ(UnBoldDialogFont(m_hScreen, 0), FontHandle{});
  m_windows.SetFont(m_hScreen, hBold, false);
  const WindowHandle hEdit = Add("EDIT", 1, "", {10, 10, 110, 30});
  const WindowHandle hButton = Add("BUTTON", 2, "", {200, 10, 300, 30});
  m_windows.SetFont(hButton, hBold, false);
  const int nBold = GetDlgCharWidth(m_hScreen);

  const FontHandle hThin = UnBoldDialogFont(m_hScreen, 0);
  const int nThin = GetDlgCharWidth(m_hScreen);
  ASSERT_LT(nThin, nBold);
  const auto scaled = [&](int n) { return (2 * n * nThin + nBold) / (2 * nBold); };
  EXPECT_EQ(m_windows.WindowRect(m_hScreen).Width(), scaled(400));
  EXPECT_EQ(PlaceOf(hEdit).left, scaled(10));
  EXPECT_EQ(PlaceOf(hEdit).right, scaled(110));
  EXPECT_EQ(m_windows.Font(hEdit), hThin);
  EXPECT_EQ(m_windows.Font(hButton), hBold);
  EXPECT_EQ(GetDlgStringWidth(m_hScreen, "four"), 4 * nThin);

  // With room asked for on the right the dialog is widened to it.
  m_windows.SetFont(m_hScreen, hBold, false);
  UnBoldDialogFont(m_hScreen, 200);
  EXPECT_EQ(m_windows.ClientRect(m_hScreen).Width(), PlaceOf(hButton).right + 200);
}

}  // namespace
}  // namespace ald
