#pragma once

#include <memory>

#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"

class QApplication;
class QWidget;

namespace ald {

// The desktop of a person: real windows, by Qt Widgets. It is a library of its own, aldlib::qt.
//
//   int main(int argc, char** argv) {
//     ald::QtDesktop desktop(argc, argv);
//     desktop.SetApplicationName("Ledger");
//     const ald::Platform platform = ald::CurrentPlatform().WithDesktop(desktop.Ports());
//     ald::MoveToPlatform(&platform);
//     ... make the windows ...
//     while (ald::MyGetMessage()) {
//     }
//   }
//
// The windows are kept in memory, as HeadlessDesktop keeps them, and each one that is shown has a
// widget. Texts are turned from and into code page 1252 at this edge; a character that the code
// page lacks cannot be typed. The keypad's decimal key types the library's DecimalPoint.
//
// The screen is served whenever the library's queue is asked for a message that does not wait there
// already, so a host runs the library's message loop and not that of Qt. A key goes the road of
// every message: the accelerators see it first, then the dialogs, then the control. So does a
// request to close a window: it waits in the queue as kMessageClose until somebody handles it.
//
// Boxes and dialogs are laid out in dialog units of their real fonts, and a box breaks long lines.
// An edit control has one line. What a program draws lies over what the control draws by itself,
// and the colours that a parent answers for a control are those of its widget.
//
// It belongs to the thread that made it, which must be that of the QApplication.
class ALDLIB_EXPORT QtDesktop {
 public:
  // Whether windows can be shown: there is a QApplication with windows already, or a display that
  // Qt can open. Asking is harmless, while Qt itself ends a process that has no display.
  static bool HasDisplay();

  // Makes the QApplication, which takes its own arguments out of the list; both must live as long
  // as the desktop. Without a display, or with one that Qt has no means for, there is none and the
  // desktop is as one in memory: a box takes its default button and nothing waits.
  QtDesktop(int& argc, char** argv);
  // Over the host's own application, which must outlive the desktop.
  explicit QtDesktop(QApplication& application);
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;
  ~QtDesktop();

  // Whether it shows anything.
  bool IsOnScreen() const;

  // The ports, for a Platform. They live as long as the desktop.
  Desktop Ports();

  // What stands in the caption of the application's own boxes; empty until it is set.
  void SetApplicationName(const CString& sName);

  // The desktop beneath, which keeps the windows. It records no output.
  HeadlessDesktop& Headless();

  // The widget of a window as it is now: of a top-level window the outer one. Null for a window
  // that was never shown.
  QWidget* WidgetOf(WindowHandle hWindow);
  // How many windows have a widget.
  std::size_t Widgets() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> m_pParts;
};

}  // namespace ald
