#pragma once

#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace ald {

// A test with a window of 400 by 300 at (100, 50) on the screen, for controls of any class.
class Screen : public testing::Test {
 protected:
  Screen() { m_hScreen = NewScreen(); }

  WindowHandle NewScreen() {
    return m_windows.Create({.sClass = "STATIC",
                             .sText = "Screen",
                             .nStyle = kStylePopup | kStyleVisible,
                             .place = {100, 50, 500, 350}});
  }

  WindowHandle Add(const char* szClass, int nId, const char* szText = "",
                   Rect place = {0, 0, 60, 20}, std::uint32_t nStyle = 0) {
    const WindowHandle hControl = m_windows.Create({.sClass = szClass,
                                                    .sText = szText,
                                                    .nStyle = nStyle | kStyleChild | kStyleVisible,
                                                    .place = place,
                                                    .hParent = m_hScreen,
                                                    .nId = nId});
    EXPECT_NE(hControl, WindowHandle{}) << szClass;
    return hControl;
  }

  // Where a control stands on the screen's inside.
  Rect PlaceOf(WindowHandle hControl) {
    const Rect rect = m_windows.WindowRect(hControl);
    const Point at = m_windows.ToClient(m_hScreen, {rect.left, rect.top});
    return {at.x, at.y, at.x + rect.Width(), at.y + rect.Height()};
  }

  FakePlatform m_platform;
  HeadlessDesktop& m_headless = m_platform.m_desktop;
  Desktop m_desktop = m_headless.Ports();
  Windows& m_windows = m_desktop.windows;
  WindowHandle m_hScreen{};
};

inline void PrintTo(const Rect& rect, std::ostream* pOut) {
  *pOut << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

}  // namespace ald
