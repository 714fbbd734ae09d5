#pragma once

#include <gtest/gtest.h>

#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "tests/support/FakePlatform.h"

namespace ald {

// A desktop in memory, on a clock whose sleeps take no time.
class HeadlessBench : public testing::Test {
 protected:
  WindowHandle Shown(std::uint32_t nStyle = 0) {
    return m_desktop.windows.Create({.sClass = "STATIC",
                                     .nStyle = kStylePopup | kStyleVisible | nStyle,
                                     .place = {0, 0, 400, 300}});
  }
  WindowHandle Control(WindowHandle hParent, const char* szClass, const char* szText,
                       std::uint32_t nStyle = 0) {
    return m_desktop.windows.Create({.sClass = szClass,
                                     .sText = szText,
                                     .nStyle = kStyleChild | kStyleVisible | nStyle,
                                     .place = {10, 20, 110, 40},
                                     .hParent = hParent,
                                     .nId = 5});
  }
  void Drain() {
    WindowMessage message{};
    while (m_desktop.queue.Peek(message, true)) m_desktop.queue.Dispatch(message);
  }

  FakeClock m_clock;
  HeadlessDesktop m_bench{m_clock};
  Desktop m_desktop = m_bench.Ports();
};

}  // namespace ald
