#include "aldlib/platform/qt/internal/QtView.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "aldlib/platform/qt/internal/QtText.h"

namespace ald {
namespace {

constexpr std::uint32_t kStyleSizable = 0x00040000;
// So long the application must be without the focus before it has left: between two windows of its
// own there is a moment without one.
constexpr qint64 kLeaveAfter = 200;

// While it lives, the flag is set.
class Flagged {
 public:
  explicit Flagged(bool& bFlag) : m_bFlag(bFlag), m_bBefore(std::exchange(bFlag, true)) {}
  Flagged(const Flagged&) = delete;
  Flagged& operator=(const Flagged&) = delete;
  ~Flagged() { m_bFlag = m_bBefore; }

 private:
  bool& m_bFlag;
  bool m_bBefore;
};

Qt::WindowFlags FlagsOf(const HeadlessWindow& window) {
  const bool bOwned = window.hParent != WindowHandle{};
  const bool bDialog = window.pClass->kind == WindowKind::kDialog;
  Qt::WindowFlags flags = bDialog || bOwned ? Qt::Dialog : Qt::Window;
  flags |= Qt::CustomizeWindowHint;
  if ((window.nStyle & kStyleCaption) == kStyleCaption) {
    flags |= Qt::WindowTitleHint;
    if ((window.nStyle & kStyleSystemMenu) != 0) {
      flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
  } else {
    flags |= Qt::FramelessWindowHint;
  }
  if ((window.nStyle & kStyleSizable) != 0) flags |= Qt::WindowMinMaxButtonsHint;
  if (window.bTopmost) flags |= Qt::WindowStaysOnTopHint;
  return flags;
}

}  // namespace

QtView::QtView(HeadlessDesktop& desktop)
    : m_desktop(desktop), m_ports(desktop.Ports()), m_input(desktop) {
  m_wake.setSingleShot(true);
  m_inactive.start();
  QApplication::setQuitOnLastWindowClosed(false);
  qApp->installEventFilter(this);
  m_input.SetView(this);
  for (const WindowHandle hWindow : m_ports.windows.TopLevel()) Changed(hWindow);
}

QtView::~QtView() {
  m_input.SetView(nullptr);
  qApp->removeEventFilter(this);
  const Flagged showing(m_bShowing);
  for (auto& [hWindow, shown] : m_shown) delete shown.pOuter;
  for (const QPointer<QWidget>& pWidget : m_dropped) delete pWidget;
}

void QtView::Changed(WindowHandle hWindow) {
  m_changed.insert(hWindow);
}

void QtView::MenusChanged() {
  m_bMenusChanged = true;
}

void QtView::Gone(WindowHandle hWindow) {
  m_changed.erase(hWindow);
  const auto it = m_shown.find(hWindow);
  if (it == m_shown.end()) return;
  const Flagged showing(m_bShowing);
  const QPointer<QWidget> pOuter = it->second.pOuter;
  m_handles.remove(it->second.pInside);
  m_handles.remove(pOuter);
  m_shown.erase(it);
  if (pOuter.isNull()) return;
  pOuter->hide();
  if (m_nInQt > 0 || m_bDoingKey) {
    m_dropped.push_back(pOuter);
  } else {
    delete pOuter;
  }
}

void QtView::Flash(WindowHandle hWindow) {
  if (QWidget* const pOuter =
          OuterOf(m_ports.windows.IsWindow(hWindow) ? hWindow : WindowHandle{})) {
    QApplication::alert(pOuter->window(), 1000);
  }
}

QtView::Shown* QtView::Find(WindowHandle hWindow) {
  const auto it = m_shown.find(hWindow);
  if (it == m_shown.end() || it->second.pInside.isNull()) return nullptr;
  return &it->second;
}

QWidget* QtView::OuterOf(WindowHandle hWindow) {
  const Shown* const pShown = Find(hWindow);
  return pShown != nullptr ? pShown->pOuter.data() : nullptr;
}

Size QtView::Screen() {
  const QSize size = QApplication::primaryScreen()->size();
  return {size.width(), size.height()};
}

// --- Showing what changed

void QtView::Show() {
  if (m_bShowing) return;
  const Flagged showing(m_bShowing);
  if (m_nInQt == 0) {
    for (const QPointer<QWidget>& pWidget : std::exchange(m_dropped, {})) delete pWidget;
  }
  const std::set<WindowHandle> changed = std::exchange(m_changed, {});
  for (const WindowHandle hWindow : changed) {
    const HeadlessWindow* const pWindow = m_input.Find(hWindow);
    if (pWindow == nullptr || pWindow->nProcess != 0) continue;
    if (Find(hWindow) != nullptr) {
      UpdateWindow(hWindow);
    } else if (pWindow->IsChild() ? Find(pWindow->hParent) != nullptr : pWindow->IsShown()) {
      Add(hWindow);
    }
  }
  // Not under the user's hands.
  if (m_bMenusChanged && QApplication::activePopupWidget() == nullptr) {
    m_bMenusChanged = false;
    for (auto& [hWindow, shown] : m_shown) UpdateMenu(hWindow, shown);
  }
  UpdateFocus();
}

// Makes the widgets of a window and of all inside it.
void QtView::Add(WindowHandle hWindow) {
  const HeadlessWindow& window = *m_input.Find(hWindow);
  Shown shown;
  if (window.IsChild()) {
    shown.pInside = NewControl(hWindow, window, Find(window.hParent)->pInside);
    shown.pOuter = shown.pInside;
  } else {
    QWidget* const pOwner = OuterOf(window.hParent);
    const bool bDialog = window.pClass->kind == WindowKind::kDialog;
    shown.pOuter = bDialog ? new QDialog(pOwner) : new QWidget(pOwner);
    shown.pOuter->setWindowFlags(FlagsOf(window));
    shown.pInside = NewControl(hWindow, window, shown.pOuter);
    shown.pInside->show();
    m_handles[shown.pOuter] = hWindow;
    m_hAdded = hWindow;
  }
  m_handles[shown.pInside] = hWindow;
  m_shown[hWindow] = std::move(shown);
  for (const WindowHandle hChild : window.children) Add(hChild);
  UpdateMenu(hWindow, m_shown[hWindow]);
  UpdateWindow(hWindow);
}

void QtView::UpdateWindow(WindowHandle hWindow) {
  const HeadlessWindow& window = *m_input.Find(hWindow);
  Shown& shown = *Find(hWindow);
  UpdateControl(hWindow, window, shown);
  UpdateOrder(window, shown);
  if (!window.IsChild()) return UpdateOuter(hWindow, window, shown);
  QWidget& widget = *shown.pInside;
  QRect place = QtRectOf(window.place);
  // The place of a combo has room for its list.
  if (window.pClass->kind == WindowKind::kCombo) {
    place.setHeight(std::min(place.height(), widget.sizeHint().height()));
  }
  if (widget.geometry() != place) widget.setGeometry(place);
  if (widget.isEnabledTo(widget.parentWidget()) == window.IsDisabled()) {
    widget.setEnabled(!window.IsDisabled());
  }
  if (widget.isHidden() == window.IsShown()) widget.setVisible(window.IsShown());
}

// The inside lies where the window in memory has it; the window manager puts its own frame around
// that, and a menu bar stands above it.
void QtView::UpdateOuter(WindowHandle hWindow, const HeadlessWindow& window, Shown& shown) {
  QWidget& outer = *shown.pOuter;
  const QString title = QtTextOf(window.sText);
  if (outer.windowTitle() != title) outer.setWindowTitle(title);
  if (outer.windowFlags().testFlag(Qt::WindowStaysOnTopHint) != window.bTopmost) {
    outer.setWindowFlags(FlagsOf(window));  // hides it
  }

  const Rect frame = DesktopInput::FrameOf(window.nStyle);
  const int nMenu = shown.pMenu.isNull() ? 0 : shown.pMenu->sizeHint().height();
  const QRect whole = QtRectOf(window.place);
  const int cx = std::max(0, whole.width() - frame.left - frame.right);
  const int cy = std::max(0, whole.height() - frame.top - frame.bottom);
  const QRect place(whole.left() + frame.left, whole.top() + frame.top - nMenu, cx, cy + nMenu);
  const bool bSizable = (window.nStyle & kStyleSizable) != 0;
  if (!bSizable && outer.maximumSize() != place.size()) outer.setFixedSize(place.size());
  if (outer.geometry() != place) outer.setGeometry(place);
  if (!shown.pMenu.isNull()) shown.pMenu->setGeometry(0, 0, cx, nMenu);
  const QRect inside(0, nMenu, cx, cy);
  if (shown.pInside->geometry() != inside) shown.pInside->setGeometry(inside);

  if (outer.isHidden() == window.IsShown()) {
    outer.setAttribute(Qt::WA_ShowWithoutActivating, m_ports.windows.Active() != hWindow);
    outer.setVisible(window.IsShown());
  }
}

// The first of the children lies on top of the others.
void QtView::UpdateOrder(const HeadlessWindow& window, Shown& shown) {
  if (shown.children == window.children) return;
  const bool bFirst = shown.children.empty();
  shown.children = window.children;
  if (bFirst && window.pClass->kind == WindowKind::kDialog) return;  // controls lie side by side
  for (auto it = shown.children.rbegin(); it != shown.children.rend(); ++it) {
    if (const Shown* const pChild = Find(*it)) pChild->pInside->raise();
  }
}

void QtView::UpdateFocus() {
  const WindowHandle hActive = m_ports.windows.Active();
  const std::vector<WindowHandle> order = m_ports.windows.TopLevel();
  const WindowHandle hFront = order.empty() ? WindowHandle{} : order.front();
  // One that has just been shown is in front already, and so is one whose front one has gone.
  if (QWidget* const pFront = OuterOf(hFront); hFront != m_hFront && pFront != nullptr &&
                                               hFront != m_hAdded &&
                                               m_ports.windows.IsVisible(m_hFront)) {
    pFront->raise();
  }
  m_hAdded = {};
  m_hFront = hFront;
  if (hActive != m_hActive || m_bBringBack) {
    QWidget* const pActive = OuterOf(hActive);
    if (pActive != nullptr && pActive->isVisible()) {
      pActive->activateWindow();
    }
    m_bBringBack = false;
    m_hActive = hActive;
  }
  const WindowHandle hFocus = m_ports.windows.Focus();
  if (hFocus == m_hFocus) return;
  m_hFocus = hFocus;
  if (const Shown* const pFocus = Find(hFocus)) {
    pFocus->pInside->setFocus(Qt::OtherFocusReason);
  } else if (QWidget* const pBefore = QApplication::focusWidget();
             pBefore != nullptr && HandleOf(pBefore) != WindowHandle{}) {
    pBefore->clearFocus();
  }
}

// --- Serving the user

void QtView::Process(bool bWait) {
  ++m_nInQt;
  QCoreApplication::processEvents(bWait ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
  --m_nInQt;
}

void QtView::Serve() {
  Show();
  Process(false);
  const bool bActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
  if (bActive) {
    m_bWasActive = true;
    m_inactive.restart();
  } else if (m_bWasActive && m_inactive.elapsed() > kLeaveAfter) {
    m_bWasActive = false;
    if (m_ports.windows.Active() != WindowHandle{}) m_input.Left();
  }
  Show();
}

bool QtView::AnyVisible() {
  return std::any_of(m_shown.begin(), m_shown.end(), [](const auto& entry) {
    const QWidget* const pOuter = entry.second.pOuter;
    return pOuter != nullptr && pOuter->isWindow() && pOuter->isVisible();
  });
}

bool QtView::Wait(std::uint32_t nMilliseconds) {
  Show();
  if (nMilliseconds == 0) return true;
  if (nMilliseconds == kForever) {
    if (!AnyVisible()) return false;
    // The moment at which the application counts as left is no event of Qt.
    if (m_bWasActive && QGuiApplication::applicationState() != Qt::ApplicationActive) {
      m_wake.start(static_cast<int>(kLeaveAfter) + 1);
    }
  } else {
    m_wake.start(static_cast<int>(std::min(nMilliseconds, std::uint32_t{INT32_MAX})));
  }
  Process(true);
  m_wake.stop();
  return true;
}

}  // namespace ald
