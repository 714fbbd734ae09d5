#include "aldlib/screens/Layout.h"

#include <limits>

#include "aldlib/screens/Visibility.h"
#include "tests/screens/Screen.h"

namespace ald {
namespace {

constexpr int kId = 11;
constexpr int kReference = 12;
constexpr int kMissing = 99;
constexpr Rect kOwn{10, 10, 40, 20};                 // 30 by 10
constexpr Rect kReferencePlace{100, 100, 180, 141};  // 80 by 41

class Layout : public Screen {
 protected:
  WindowHandle m_hControl = Add("STATIC", kId, "", kOwn);
  WindowHandle m_hReference = Add("STATIC", kReference, "", kReferencePlace);

  Point AlignedBy(std::uint32_t nFlags, std::int16_t dx = 0, std::int16_t dy = 0) {
    m_windows.Place(m_hControl, WindowOrder::kKeep, kOwn.left, kOwn.top, 0, 0, kPlaceNoSize);
    EXPECT_NE(AlignControls(m_hScreen, kId, kReference, dx, dy, nFlags), 0);
    const Rect place = PlaceOf(m_hControl);
    EXPECT_EQ(place.Width(), 30);
    EXPECT_EQ(place.Height(), 10);
    return {place.left, place.top};
  }
};

TEST_F(Layout, PutsAControlBesideAnotherByTheFirstFlagOfEachGroup) {
  EXPECT_EQ(AlignedBy(0), (Point{10, 10}));
  EXPECT_EQ(AlignedBy(kAlignTop | kAlignLeft), (Point{100, 100}));
  EXPECT_EQ(AlignedBy(kAlignBottom | kAlignRight), (Point{150, 131}));
  EXPECT_EQ(AlignedBy(kAlignBelow | kAlignRightOf), (Point{180, 141}));
  EXPECT_EQ(AlignedBy(kAlignAbove | kAlignLeftOf), (Point{70, 90}));
  EXPECT_EQ(AlignedBy(kAlignMiddle | kAlignCenter), (Point{125, 115}));
  EXPECT_EQ(AlignedBy(kAlignMiddle | kAlignBelow | kAlignCenter | kAlignLeft), (Point{100, 141}));
  EXPECT_EQ(AlignedBy(kAlignTop, -3, 4), (Point{7, 104}));
  EXPECT_EQ(AlignControls(m_hScreen, kId, kMissing, 0, 0, kAlignTop), 0);
  AlignStatToLB(m_hScreen, kId, kReference);
  EXPECT_EQ(PlaceOf(m_hControl), (Rect{7, 90, 37, 100}));
}

TEST_F(Layout, MovesAndStretchesByADistance) {
  AlignControlBy(m_hScreen, kId, 5, -2);
  EXPECT_EQ(PlaceOf(m_hControl), (Rect{15, 8, 45, 18}));
  StretchDlgWindow(m_hScreen, kId, 4, 6);
  EXPECT_EQ(PlaceOf(m_hControl), (Rect{15, 8, 49, 24}));
  EXPECT_EQ(AsWideAs(m_hScreen, kReference, kId), 80);
  EXPECT_EQ(PlaceOf(m_hControl), (Rect{15, 8, 95, 24}));
  EXPECT_EQ(AsWideAs(m_hScreen, kMissing, kId), 0);
}

TEST_F(Layout, CentresAcrossAndDownOnlyIfAsked) {
  const WindowHandle hOther = m_windows.Create(
      {.sClass = "STATIC", .sText = "", .nStyle = kStylePopup, .place = {0, 0, 100, 100}});
  CenterWindow(hOther, m_hScreen, false);
  EXPECT_EQ(m_windows.WindowRect(hOther), (Rect{250, 0, 350, 100}));
  CenterWindow(hOther, m_hScreen, true);
  EXPECT_EQ(m_windows.WindowRect(hOther), (Rect{250, 150, 350, 250}));
  CenterWindow(m_hControl, m_hReference, true);
  EXPECT_EQ(PlaceOf(m_hControl), (Rect{125, 115, 155, 125}));
}

TEST_F(Layout, FitsADialogToABitmapInTheDirectionsAskedFor) {
  ResizeDialogToBitmap(m_hScreen, {200, 90}, true, false, 8);
  EXPECT_EQ(m_windows.WindowRect(m_hScreen), (Rect{100, 50, 308, 350}));
  ResizeDialogToBitmap(m_hScreen, {500, 90}, false, true, 8);
  EXPECT_EQ(m_windows.WindowRect(m_hScreen), (Rect{100, 50, 308, 148}));
}

TEST_F(Layout, GoesAsFarAsNumbersGoAndNoFurther) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kEnds[] = {kLeast, 0, kMost};
  for (const std::int32_t nLeft : kEnds) {
    for (const std::int32_t nRight : kEnds) {
      const WindowHandle hFar = m_windows.Create({.sClass = "STATIC",
                                                  .nStyle = kStylePopup | kStyleVisible,
                                                  .place = {nLeft, nRight, nRight, nLeft}});
      CenterWindow(hFar, m_hScreen, true);
      CenterWindow(m_hScreen, hFar, true);
      ResizeDialogToBitmap(hFar, {kMost, kLeast}, true, true, kMost);
      m_windows.Place(m_hReference, WindowOrder::kKeep, nLeft, nRight, kMost, kMost, 0);
      for (std::uint32_t nFlags = 1; nFlags <= kAlignMiddle; nFlags <<= 1) {
        AlignControls(m_hScreen, kId, kReference, -3, 4, nFlags);
      }
      HideDlgCtlRange(m_hScreen, kId, kReference);
      ShowDlgCtlRange(m_hScreen, kId, kReference);
      m_windows.Destroy(hFar);
    }
  }
  m_windows.Place(m_hScreen, WindowOrder::kKeep, 0, 0, 0, 0, kPlaceNoSize);
  m_windows.Place(m_hReference, WindowOrder::kKeep, kMost - 1, 0, 10, 10, 0);
  AlignControls(m_hScreen, kId, kReference, 5, 0, kAlignLeft);
  EXPECT_EQ(m_windows.WindowRect(m_hControl).left, kMost);
}

TEST_F(Layout, AsksAControlForItsRectangle) {
  std::intptr_t nAnswer = 1;
  Rect told{1, 2, 3, 4};
  m_windows.SetProcedure(m_hControl,
                         [&](WindowHandle, std::uint32_t nMessage, std::uint32_t,
                             std::intptr_t nLong) -> std::intptr_t {
                           if (nMessage != kMessageAskRect) return 0;
                           *reinterpret_cast<Rect*>(nLong) = told;
                           return nAnswer;
                         });
  Rect rect{};
  EXPECT_EQ(GetALWWindowRect(m_hControl, &rect), 1);
  EXPECT_EQ(rect, told);
  nAnswer = 0;
  EXPECT_EQ(GetALWWindowRect(m_hControl, &rect), 1);
  EXPECT_EQ(rect, m_windows.WindowRect(m_hControl));
  nAnswer = 1;
  told = {};
  EXPECT_EQ(GetALWWindowRect(m_hControl, &rect), 1);
  EXPECT_EQ(rect, m_windows.WindowRect(m_hControl));
  EXPECT_EQ(GetALWWindowRect(m_hControl, nullptr), 1);
  EXPECT_EQ(GetALWWindowRect(WindowHandle{}, &rect), 0);
}

class Visibility : public Screen {
 protected:
  Visibility() {
    for (int nId : {1, 2, 4}) Add("BUTTON", nId, "&Save", {10 * nId, 10, 10 * nId + 8, 20});
    Add("EDIT", 5, "R&D", {50, 10, 58, 20});
  }
  WindowHandle Control(int nId) { return m_windows.Child(m_hScreen, nId); }
  CString Seen() {
    CString sSeen;
    for (int nId : {1, 2, 4, 5}) {
      if (m_windows.IsVisible(Control(nId))) sSeen += std::to_string(nId);
    }
    return sSeen;
  }
};

TEST_F(Visibility, HidesARangeWithItsMnemonicsAndPaintsOnce) {
  m_headless.ForgetOutput();
  HideDlgCtlRange(m_hScreen, 2, 5);
  EXPECT_EQ(Seen(), "1");
  EXPECT_EQ(m_windows.Text(Control(2)), "\x1FSave");
  EXPECT_EQ(m_windows.Text(Control(5)), "R&D");  // an edit control has none
  ASSERT_EQ(m_headless.Invalidated().size(), 1U);
  EXPECT_EQ(m_headless.Invalidated()[0].part, (Rect{20, 10, 58, 20}));
  EXPECT_TRUE(m_headless.Invalidated()[0].bErase);
  ShowDlgCtlRange(m_hScreen, 2, 5);
  EXPECT_EQ(Seen(), "1245");
  EXPECT_EQ(m_windows.Text(Control(2)), "&Save");
  m_headless.ForgetOutput();
  HideDlgCtlRange(m_hScreen, 50, 60);
  EXPECT_TRUE(m_headless.Invalidated().empty());
}

TEST_F(Visibility, RangesOfAnyWidthReachWhatIsThereInTheOrderOfIds) {
  constexpr int kFirst = std::numeric_limits<int>::min();
  constexpr int kLast = std::numeric_limits<int>::max();
  const WindowHandle hLast = Add("BUTTON", kLast, "", {}, kButtonAutoRadio);
  Add("BUTTON", kFirst, "");
  m_desktop.controls.SetCheck(hLast, 1);
  EXPECT_EQ(GetDlgRadioCheck(m_hScreen, 5, kLast), kLast - 5);
  EnableDlgWindowRange(m_hScreen, 3, kLast, 0);
  EXPECT_FALSE(m_windows.IsEnabled(hLast));
  EXPECT_TRUE(m_windows.IsEnabled(Control(2)));
  // The first control takes a later one away while it is asked for its place.
  m_windows.SetProcedure(Control(kFirst), [&](WindowHandle hControl, std::uint32_t nMessage,
                                              std::uint32_t nWord, std::intptr_t nLong) {
    if (nMessage == kMessageAskRect) m_windows.Destroy(Control(4));
    return m_windows.DefaultProcedure(hControl, nMessage, nWord, nLong);
  });
  HideDlgCtlRange(m_hScreen, kFirst, kLast);
  EXPECT_EQ(Seen(), "");
  ShowDlgCtlRange(m_hScreen, kFirst, kLast);
  EXPECT_EQ(Seen(), "125");
  EXPECT_TRUE(m_windows.IsVisible(hLast));
}

TEST_F(Visibility, SwapsRangesAndLists) {
  HideDlgCtlRange(m_hScreen, 4, 5);
  SwapDlgCtlRange(m_hScreen, 1, 2, 4, 5);
  EXPECT_EQ(Seen(), "45");
  constexpr int kHide[] = {5, 77};
  constexpr int kShow[] = {1};
  SwapDlgCtlSet(m_hScreen, kHide, 2, kShow, 1);
  EXPECT_EQ(Seen(), "14");
  ShowDlgWindowRange(m_hScreen, 1, 5, kShowHide);
  EXPECT_EQ(Seen(), "");
  ShowDlgWindow(m_hScreen, 2, kShowNormal);
  EXPECT_EQ(Seen(), "2");
}

TEST_F(Visibility, EnablesFocusesAndLimits) {
  EnableDlgWindowRange(m_hScreen, 1, 2, 0);
  EXPECT_FALSE(m_windows.IsEnabled(Control(2)));
  EnableDlgWindow(m_hScreen, 2, 1);
  EXPECT_TRUE(m_windows.IsEnabled(Control(2)));
  SetDlgFocus(m_hScreen, 5);
  EXPECT_EQ(m_windows.Focus(), Control(5));
  SetDlgFocus(m_hScreen, 99);
  EXPECT_EQ(m_windows.Focus(), Control(5));
  SetDlgEditLimit(m_hScreen, 5, 2);
  m_windows.SetText(Control(5), "");
  m_headless.Type(Control(5), "abc");
  EXPECT_EQ(m_windows.Text(Control(5)), "ab");
  SetFocusToButton(m_hScreen, 2);
  EXPECT_EQ(m_windows.Focus(), Control(2));
  EXPECT_EQ(m_windows.Style(Control(2)) & kButtonKindMask, kButtonDefaultPush);
  m_headless.ForgetOutput();
  ForceRePaint(m_hScreen);
  EXPECT_EQ(m_headless.Invalidated().size(), 1U);
}

TEST_F(Visibility, TellsTheCheckedRadioButtonTheShiftKeyAndWhatIsInside) {
  for (int nId : {31, 32, 33}) Add("BUTTON", nId, "", {}, kButtonAutoRadio);
  EXPECT_EQ(GetDlgRadioCheck(m_hScreen, 31, 33), 0);
  m_desktop.controls.SetCheck(Control(33), 1);
  EXPECT_EQ(GetDlgRadioCheck(m_hScreen, 31, 33), 2);
  EXPECT_EQ(IsKeyShifted(), 0);
  m_headless.Hold(kKeyShift, true);
  EXPECT_EQ(IsKeyShifted(), 1);

  EXPECT_EQ(IsInDlg(m_hScreen, Control(1)), 1);
  EXPECT_EQ(IsInDlg(m_hScreen, m_hScreen), 0);
  EXPECT_EQ(IsInDlg(Control(1), m_hScreen), 0);
  const WindowHandle hGone = Control(1);
  m_windows.Destroy(hGone);
  EXPECT_EQ(IsInDlg(m_hScreen, hGone), 0);
}

}  // namespace
}  // namespace ald
