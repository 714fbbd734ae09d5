#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "aldlib/platform/qt/internal/QtKeys.h"
#include "aldlib/platform/qt/internal/QtText.h"
#include "aldlib/platform/qt/internal/QtView.h"

// What the user does, on its way into the queue.
namespace ald {
namespace {

// So many key presses are kept that nobody has asked for.
constexpr std::size_t kKeptKeys = 256;

}  // namespace

// The window that a widget belongs to, which may be a part of a control; 0 for the host's own.
WindowHandle QtView::HandleOf(const QWidget* pWidget) const {
  for (; pWidget != nullptr; pWidget = pWidget->parentWidget()) {
    if (const auto it = m_handles.find(pWidget); it != m_handles.end()) return it.value();
  }
  return {};
}

bool QtView::eventFilter(QObject* pObject, QEvent* pEvent) {
  const QEvent::Type type = pEvent->type();
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::WindowActivate:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Paint:
      break;
    default:
      return false;
  }
  auto* const pWidget = qobject_cast<QWidget*>(pObject);
  if (qobject_cast<QMenuBar*>(pWidget) != nullptr)
    return false;  // Qt's own while the user is there
  const WindowHandle hWindow = HandleOf(pWidget);
  if (hWindow == WindowHandle{}) return false;
  const bool bOuter = m_handles.contains(pWidget) && OuterOf(hWindow) == pWidget;
  switch (type) {
    case QEvent::KeyPress:
      // What closes a list that is down goes on to its window, when no popup is there any more.
      if (pWidget->window()->windowType() == Qt::Popup) return false;
      return FilterKey(hWindow, static_cast<QKeyEvent&>(*pEvent));
    case QEvent::ShortcutOverride:
      return FilterShortcut(hWindow, static_cast<QKeyEvent&>(*pEvent));
    case QEvent::InputMethod:
      return FilterInputMethod(hWindow, *pEvent);
    case QEvent::Close:
      if (!bOuter || !pWidget->isWindow()) return false;
      // Whoever handles the request closes the window.
      pEvent->ignore();
      if (m_input.TakesInput(hWindow)) m_input.Close(hWindow);
      return true;
    case QEvent::WindowActivate:
      if (!bOuter || !pWidget->isWindow() || m_ports.windows.Active() == hWindow) return false;
      if (m_input.TakesInput(hWindow)) {
        m_input.Activated(hWindow);
      } else {
        m_bBringBack = true;
      }
      return false;
    case QEvent::Move:
    case QEvent::Resize:
      if (bOuter && pWidget->isWindow()) Follow(hWindow, *pWidget);
      return false;
    case QEvent::Paint:
      return m_handles.contains(pWidget) && FilterPaint(*pWidget, hWindow, *pEvent);
    default:
      return FilterMouse(hWindow, type);
  }
}

// The key waits in the queue, and comes back by TypedBy and DoKey if it is for the control.
bool QtView::FilterKey(WindowHandle hWindow, const QKeyEvent& key) {
  if (m_bDoingKey || QApplication::activePopupWidget() != nullptr) return false;
  if (!m_input.TakesInput(hWindow)) {
    m_bBringBack = true;
    return true;
  }
  switch (key.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
      return false;  // by themselves they are Qt's: Alt leads to the menu
    default:
      break;
  }
  const Qt::KeyboardModifiers with = key.modifiers();
  Press(KeyNumberOf(key),
        {.bControl = with.testFlag(Qt::ControlModifier),
         .bShift = with.testFlag(Qt::ShiftModifier),
         .bAlt = with.testFlag(Qt::AltModifier)},
        std::unique_ptr<QKeyEvent>(key.clone()), TypedTextOf(key));
  return true;
}

// Qt's own shortcuts are the letters of menus; all others are the library's.
bool QtView::FilterShortcut(WindowHandle hWindow, QKeyEvent& key) {
  if (QApplication::activePopupWidget() != nullptr) return false;
  const QWidget* const pOuter = OuterOf(hWindow);
  const Shown* const pTop = pOuter != nullptr ? Find(HandleOf(pOuter->window())) : nullptr;
  const bool bMenu = pTop != nullptr && !pTop->pMenu.isNull();
  if (bMenu && key.modifiers().testFlag(Qt::AltModifier)) return false;
  key.accept();
  return true;
}

// What an input method has composed is typed like the characters of a key.
bool QtView::FilterInputMethod(WindowHandle hWindow, QEvent& event) {
  auto& input = static_cast<QInputMethodEvent&>(event);
  if (input.commitString().isEmpty() || !m_input.TakesInput(hWindow)) return false;
  Press(kKeyPacket, {}, nullptr, TypableTextOf(input.commitString()));
  input.setCommitString(QString());
  return false;  // the control takes back what it showed of the composition
}

bool QtView::FilterMouse(WindowHandle hWindow, QEvent::Type type) {
  if (QApplication::activePopupWidget() != nullptr) return false;
  if (!m_input.TakesInput(hWindow)) {
    m_bBringBack = m_bBringBack || type == QEvent::MouseButtonPress;
    return true;
  }
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) return false;
  const HeadlessWindow* const pWindow = m_input.Find(hWindow);
  const WindowKind kind = pWindow->pClass->kind;
  if (kind == WindowKind::kEdit || kind == WindowKind::kList || kind == WindowKind::kCombo ||
      kind == WindowKind::kButton) {
    m_input.FocusAt(hWindow);
  }
  return false;
}

void QtView::Follow(WindowHandle hWindow, const QWidget& widget) {
  const HeadlessWindow* const pWindow = m_input.Find(hWindow);
  const Shown* const pShown = Find(hWindow);
  if (m_bShowing || pWindow == nullptr || pShown == nullptr || !widget.isVisible()) return;
  const Rect frame = DesktopInput::FrameOf(pWindow->nStyle);
  const int nMenu = pShown->pMenu.isNull() ? 0 : pShown->pMenu->height();
  const QRect inside = widget.geometry().adjusted(0, nMenu, 0, 0);
  m_input.Placed(hWindow, {inside.left() - frame.left, inside.top() - frame.top,
                           inside.left() + inside.width() + frame.right,
                           inside.top() + inside.height() + frame.bottom});
}

void QtView::Press(std::uint32_t nKey, const HeldWith& held, std::unique_ptr<QKeyEvent> pEvent,
                   CString sTyped) {
  if (m_keys.size() == kKeptKeys) m_keys.pop_front();
  m_keys.push_back({++m_nLastKey, std::move(pEvent), std::move(sTyped)});
  m_input.Key(nKey, held, m_nLastKey);
}

// Keys before it are forgotten: messages come in order.
QtView::KeyPress* QtView::FindPress(std::intptr_t nKeyPress) {
  while (!m_keys.empty() && m_keys.front().nNumber < nKeyPress) m_keys.pop_front();
  const bool bThere = !m_keys.empty() && m_keys.front().nNumber == nKeyPress;
  return bThere ? &m_keys.front() : nullptr;
}

CString QtView::TypedBy(std::intptr_t nKeyPress) {
  const KeyPress* const pPress = FindPress(nKeyPress);
  return pPress != nullptr ? pPress->sTyped : CString();
}

// An edit hears of characters by themselves, so only its other keys are its own: the ones that move
// and select, and those of the clipboard.
void QtView::DoKey(WindowHandle hControl, std::intptr_t nKeyPress) {
  const HeadlessWindow* const pWindow = m_input.Find(hControl);
  const KeyPress* const pPress = FindPress(nKeyPress);
  if (pWindow == nullptr || pPress == nullptr || pPress->pEvent == nullptr || m_bDoingKey) return;
  const WindowKind kind = pWindow->pClass->kind;
  if (kind != WindowKind::kEdit && kind != WindowKind::kList && kind != WindowKind::kCombo) return;
  if (kind == WindowKind::kEdit && (!pPress->sTyped.empty() || IsCharacter(*pPress->pEvent))) {
    return;
  }
  const std::unique_ptr<QKeyEvent> pEvent(pPress->pEvent->clone());
  Show();
  const Shown* const pShown = Find(hControl);
  if (pShown == nullptr) return;
  m_bDoingKey = true;
  // Straight to the widget: what it has no use for is not offered to those above it.
  static_cast<QObject*>(pShown->pInside)->event(pEvent.get());
  m_bDoingKey = false;
}

}  // namespace ald
