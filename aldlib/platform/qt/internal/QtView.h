#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QKeyEvent>
#include <QMenuBar>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "aldlib/platform/headless/internal/DesktopView.h"

class QMenu;

namespace ald {

// Qt reckons with places in 32 bits and has no wider widget than this. What lies further out is cut
// there, far beyond every screen.
inline int QtMeasure(std::int64_t n) {
  constexpr std::int64_t kMost = QWIDGETSIZE_MAX;
  return static_cast<int>(std::clamp(n, -kMost, kMost));
}
inline QRect QtRectOf(const Rect& place) {
  const int x = QtMeasure(place.left);
  const int y = QtMeasure(place.top);
  return QRect(x, y, QtMeasure(place.right) - x, QtMeasure(place.bottom) - y);
}

// Widgets for the windows in memory. What changed is noted, and the widgets are brought in line
// when the queue is next asked. What Qt tells of the user is only put into the queue: no code of
// the host's runs inside an event of Qt, so any handler may destroy any window.
class QtView : public QObject, public DesktopView {
 public:
  explicit QtView(HeadlessDesktop& desktop);
  ~QtView() override;

  void Changed(WindowHandle hWindow) override;
  void Gone(WindowHandle hWindow) override;
  void MenusChanged() override;
  void Flash(WindowHandle hWindow) override;
  void SetColors(WindowHandle hWindow, const ControlColors& colors) override;
  void Serve() override;
  bool Wait(std::uint32_t nMilliseconds) override;
  CString TypedBy(std::intptr_t nKeyPress) override;
  void DoKey(WindowHandle hControl, std::intptr_t nKeyPress) override;
  Size Screen() override;
  TextMetrics MetricsOf(const tagLOGFONTA& font) override;
  std::int32_t WidthOf(const tagLOGFONTA& font, std::string_view sText) override;
  void BeginPaint(WindowHandle hWindow) override;
  void Draw(const DrawnItem& item, const tagLOGFONTA& font) override;

  bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  QWidget* OuterOf(WindowHandle hWindow);
  std::size_t Count() const { return m_shown.size(); }
  // Brings the widgets in line.
  void Show();

 private:
  // What the screen has of a window.
  struct Shown {
    QPointer<QWidget> pOuter;   // of a top-level window; else the same as the inner one
    QPointer<QWidget> pInside;  // what the class says, and where children live
    QPointer<QMenuBar> pMenu;
    CString sMenu;  // what the menu bar was built from
    std::uint32_t nStyle = 0;
    std::optional<FontHandle> hFont;
    IconHandle hIcon{};
    std::vector<CString> items;
    std::vector<WindowHandle> children;
    std::optional<ControlColors> colors;
    QPixmap drawing;  // what the program drew, over what the widget draws by itself
  };
  struct KeyPress {
    std::intptr_t nNumber;
    std::unique_ptr<QKeyEvent> pEvent;  // null for what an input method typed
    CString sTyped;
  };
  struct Font {
    QFont font;
    QFontMetrics metrics;
  };

  // QtView.cpp
  Shown* Find(WindowHandle hWindow);
  void Add(WindowHandle hWindow);
  void UpdateWindow(WindowHandle hWindow);
  void UpdateOuter(WindowHandle hWindow, const HeadlessWindow& window, Shown& shown);
  void UpdateOrder(const HeadlessWindow& window, Shown& shown);
  void UpdateFocus();
  bool AnyVisible();
  void Process(bool bWait);

  // QtControls.cpp
  QWidget* NewControl(WindowHandle hWindow, const HeadlessWindow& window, QWidget* pParent);
  void UpdateControl(WindowHandle hWindow, const HeadlessWindow& window, Shown& shown);
  void UpdateItems(const HeadlessWindow& window, Shown& shown);
  void UpdateLook(const HeadlessWindow& window, Shown& shown);
  void MirrorEdit(WindowHandle hEdit);

  // QtInput.cpp
  WindowHandle HandleOf(const QWidget* pWidget) const;
  bool FilterKey(WindowHandle hWindow, const QKeyEvent& key);
  bool FilterShortcut(WindowHandle hWindow, QKeyEvent& key);
  bool FilterInputMethod(WindowHandle hWindow, QEvent& event);
  bool FilterMouse(WindowHandle hWindow, QEvent::Type type);
  bool FilterPaint(QWidget& widget, WindowHandle hWindow, QEvent& event);
  void Follow(WindowHandle hWindow, const QWidget& widget);
  void Press(std::uint32_t nKey, const HeldWith& held, std::unique_ptr<QKeyEvent> pEvent,
             CString sTyped);
  KeyPress* FindPress(std::intptr_t nKeyPress);

  // QtMenus.cpp
  void UpdateMenu(WindowHandle hWindow, Shown& shown);
  CString Describe(MenuHandle hMenu);
  void Fill(WindowHandle hWindow, MenuHandle hMenu, QMenu* pMenu, QMenuBar* pBar);

  // QtPainting.cpp
  const Font& FontOf(const tagLOGFONTA& font);
  void Paint(QPaintDevice& device, const DrawnItem& item, const tagLOGFONTA& font);

  HeadlessDesktop& m_desktop;
  Desktop m_ports;
  DesktopInput m_input;
  std::map<WindowHandle, Shown> m_shown;
  std::set<WindowHandle> m_changed;
  QHash<const QObject*, WindowHandle> m_handles;
  std::vector<QPointer<QWidget>> m_dropped;  // to be deleted outside the events of Qt
  std::deque<KeyPress> m_keys;
  std::intptr_t m_nLastKey = 0;
  std::map<std::string, Font> m_fonts;
  QTimer m_wake;
  QElapsedTimer m_inactive;
  bool m_bMenusChanged = false;
  bool m_bShowing = false;
  bool m_bDoingKey = false;
  bool m_bBringBack = false;  // the user clicked on a window that is blocked
  bool m_bWasActive = false;
  int m_nInQt = 0;
  WindowHandle m_hActive{};
  WindowHandle m_hFocus{};
  WindowHandle m_hFront{};
  WindowHandle m_hAdded{};  // the window that was shown last
};

// The icon of a box by its number.
QPixmap PixmapOf(IconHandle hIcon);

}  // namespace ald
