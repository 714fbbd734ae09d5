#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <utility>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/qt/QtDesktop.h"
#include "tests/support/DesktopContract.h"

namespace ald {

// The one application of the process, without a screen. It is never taken down: the desktops come
// and go over it.
inline QApplication& TestApplication() {
  static int nArguments = 3;
  static char szName[] = "test";
  static char szOption[] = "-platform";
  static char szOffscreen[] = "offscreen";
  static char* szArguments[] = {szName, szOption, szOffscreen, nullptr};
  static auto* const pApplication = new QApplication(nArguments, szArguments);
  return *pApplication;
}

inline QString Shown(std::string_view sText) {
  return QString::fromStdString(Utf8FromCodePage1252(sText));
}

// A desktop of widgets, and a user who has nothing but Qt's own events of mouse and keyboard.
class QtBench : public DesktopUnderTest {
 public:
  Desktop Ports() override { return m_desktop.Ports(); }

  bool Press(WindowHandle hDialog, std::int32_t nId) override {
    QWidget* const pButton = Widget(Ports().windows.Child(hDialog, nId));
    if (pButton == nullptr || !pButton->isVisible() || !pButton->isEnabled()) return false;
    QTest::mouseClick(pButton, Qt::LeftButton);
    Drain();
    return true;
  }

  bool Type(WindowHandle hControl, std::string_view sText) override {
    Ports().windows.SetFocus(hControl);
    QWidget* const pControl = Widget(hControl);
    if (pControl == nullptr || !pControl->isEnabled()) return false;
    for (const QChar ch : Shown(sText)) {
      QTest::sendKeyEvent(QTest::Click, pControl, Qt::Key_unknown, QString(ch), Qt::NoModifier);
    }
    Drain();
    return true;
  }

  // A virtual key number, of those that a test presses.
  bool Key(std::uint32_t nKey) override {
    const std::pair<std::uint32_t, Qt::Key> keys[] = {
        {0x09, Qt::Key_Tab}, {0x0D, Qt::Key_Return}, {0x1B, Qt::Key_Escape}, {0x70, Qt::Key_F1}};
    const auto it = std::find_if(std::begin(keys), std::end(keys),
                                 [nKey](const auto& key) { return key.first == nKey; });
    return it != std::end(keys) && Key(it->second);
  }
  bool Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QWidget* const pFocus = Widget(Ports().windows.Focus());
    if (pFocus == nullptr) return false;
    QTest::keyClick(pFocus, key, with);
    return true;
  }

  void WhenWaiting(std::function<bool(WindowHandle)> user) override {
    m_desktop.Headless().WhenWaiting(std::move(user));
  }

  QWidget* Widget(WindowHandle hWindow) { return m_desktop.WidgetOf(hWindow); }

  // Serves the queue until nothing waits.
  void Drain() {
    Queue& queue = Ports().queue;
    WindowMessage message{};
    while (queue.Peek(message, false) && message.nMessage != kMessageQuit) {
      queue.Peek(message, true);
      queue.Translate(message);
      queue.Dispatch(message);
    }
  }

  QtDesktop m_desktop{TestApplication()};
};

}  // namespace ald
