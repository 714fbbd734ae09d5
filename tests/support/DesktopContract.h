#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string_view>
#include <tuple>
#include <vector>

#include "aldlib/platform/Desktop.h"

// What every desktop must do, as one suite of tests over the ports. A program that has a desktop
// compiles the DesktopContract*.cpp files of tests/platform with an INSTANTIATE_TEST_SUITE_P of its
// own.
namespace ald {

// A desktop, and the user in front of it.
class DesktopUnderTest {
 public:
  virtual ~DesktopUnderTest() = default;

  virtual Desktop Ports() = 0;
  // Presses a button, types a text and presses a key as a user does; false if a user could not.
  virtual bool Press(WindowHandle hDialog, std::int32_t nId) = 0;
  virtual bool Type(WindowHandle hControl, std::string_view sText) = 0;
  virtual bool Key(std::uint32_t nKey) = 0;
  // Has the user called while a box or dialog waits; he returns true if he did something.
  virtual void WhenWaiting(std::function<bool(WindowHandle hModal)> user) = 0;
};

struct DesktopMaker {
  const char* szName;
  std::function<std::unique_ptr<DesktopUnderTest>()> make;
};
inline void PrintTo(const DesktopMaker& maker, std::ostream* pOut) {
  *pOut << maker.szName;
}

class DesktopContract : public testing::TestWithParam<DesktopMaker> {
 protected:
  // What a window heard, in order.
  struct Heard {
    WindowHandle hWindow;
    std::uint32_t nMessage;
    std::uint32_t nWord;
    std::intptr_t nLong;
  };

  // A hidden top-level window whose procedure writes down what it hears of these messages, and
  // passes everything on.
  WindowHandle Recorder(std::vector<std::uint32_t> messages) {
    const WindowHandle hWindow = TopLevel();
    m_windows.SetProcedure(hWindow, [this, messages](WindowHandle h, std::uint32_t nMessage,
                                                     std::uint32_t nWord, std::intptr_t nLong) {
      for (const std::uint32_t nWanted : messages) {
        if (nMessage == nWanted) m_heard.push_back({h, nMessage, nWord, nLong});
      }
      return m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
    });
    return hWindow;
  }

  WindowHandle TopLevel(std::uint32_t nStyle = kStylePopup) {
    return m_windows.Create({.sClass = "STATIC", .nStyle = nStyle, .place = {100, 100, 400, 300}});
  }
  WindowHandle Control(WindowHandle hParent, const char* szClass, std::int32_t nId,
                       std::uint32_t nStyle = kStyleVisible | kStyleTabStop) {
    return m_windows.Create({.sClass = szClass,
                             .nStyle = nStyle | kStyleChild,
                             .place = {10, 20, 90, 44},
                             .hParent = hParent,
                             .nId = nId});
  }

  // Serves what waits until nothing does.
  void Drain() {
    WindowMessage message{};
    while (m_queue.Peek(message, true)) {
      ASSERT_NE(message.nMessage, kMessageQuit);
      m_queue.Translate(message);
      m_queue.Dispatch(message);
    }
  }

  std::unique_ptr<DesktopUnderTest> m_pBench = GetParam().make();
  Desktop m_desktop = m_pBench->Ports();
  Queue& m_queue = m_desktop.queue;
  Windows& m_windows = m_desktop.windows;
  Controls& m_controls = m_desktop.controls;
  Canvas& m_canvas = m_desktop.canvas;
  MenuBar& m_menus = m_desktop.menus;
  Presenter& m_presenter = m_desktop.presenter;
  std::vector<Heard> m_heard;
};

// A dialog of two edits (11, 12), a label with a letter, OK (1) and Cancel (2), OK the default.
DialogTemplate SmallDialog();

}  // namespace ald
